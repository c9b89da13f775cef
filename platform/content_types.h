#pragma once

#include "platform/object_facts.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {

// What this machine knows of the content of files: what the desktop calls their types, and the
// character sets of texts.
class ContentTypes {
  public:
    virtual ~ContentTypes() = default;
    // The desktop's description of a file's type, as "MP3 audio", in the user's language, told by
    // the last name of the drive path alone: nothing is read and the file need not be there. Empty
    // when the desktop knows no such type, and for folders and special files. For one thread;
    // cheap enough for every row.
    virtual std::string TypeName(std::string_view path, const ObjectFacts& facts) = 0;
    // A text in the character set that documents call so ("Shift_JIS", in any case), as UTF-8; what
    // is no character of it becomes U+FFFD. Nothing for a set that isn't known here.
    virtual std::optional<std::string> Decoded(std::string_view /*bytes*/,
                                               std::string_view /*charset*/) {
        return std::nullopt;
    }
};

} // namespace tarvix::platform
