#pragma once

#include "platform/object_facts.h"

#include <string>
#include <string_view>

namespace tarvix::platform {

// What the desktop calls the types of files.
class ContentTypes {
  public:
    virtual ~ContentTypes() = default;
    // The desktop's description of a file's type, as "MP3 audio", in the user's language, told by
    // the last name of the drive path alone: nothing is read and the file need not be there. Empty
    // when the desktop knows no such type, and for folders and special files. For one thread;
    // cheap enough for every row.
    virtual std::string TypeName(std::string_view path, const ObjectFacts& facts) = 0;
};

} // namespace tarvix::platform
