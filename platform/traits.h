#pragma once

namespace tarvix::platform {

// What the users of a machine take for granted of it. A new record is one that names its drives by
// letters; each machine says what it is like itself.
struct Traits {
    bool keepsEveryDate = false; // whatever year a disk tells is the date of the file
    bool hasNativePaths = false; // people read and write the form of the other programs
};

} // namespace tarvix::platform
