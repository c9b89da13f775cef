#pragma once

namespace tarvix::platform {

// What the users of a machine take for granted of it. A new record is one that names its drives by
// letters; each machine says what it is like itself.
struct Traits {
    bool keepsEveryDate = false;    // whatever year a disk tells is the date of the file
    bool hasNativePaths = false;    // people read and write the form of the other programs
    bool takesLongPaths = false;    // no path needs a short form to be opened
    bool passesDeepFolders = false; // one that is too deep for a search is passed over
    bool keepsFinalDots = false;    // a name may end in a dot
    bool takesRoots = false;        // a drive alone is a place to copy to
};

} // namespace tarvix::platform
