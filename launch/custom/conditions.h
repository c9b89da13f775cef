#pragma once

#include "launch/custom/chosen.h"

#include <span>
#include <string>
#include <string_view>

namespace tarvix::platform {
class Desktop;
}

namespace tarvix::custom {

class KeyFile;

// Whether a name fits a pattern with "*" and "?", byte for byte but for the case of ASCII letters;
// time grows with the product of both lengths at most.
bool FitsGlob(std::string_view pattern, std::string_view name, bool matchCase);

// Whether a type fits one of a list: "image/png" and what is derived from it, "image/*", "*",
// "all/all", "all/allfiles" for all but folders.
bool FitsType(platform::Desktop& desktop, std::string_view type, std::string_view wanted);
// Whether each object fits at least one of them, and none of those with a "!" in front. An empty
// list fits all.
bool FitTypes(platform::Desktop& desktop, const Chosen& chosen,
              std::span<const std::string> wanted);

// The conditions of a file-manager action, menu or profile: whether all in the group hold.
bool ConditionsHold(platform::Desktop& desktop, const KeyFile& file, std::string_view group,
                    const Chosen& chosen);

} // namespace tarvix::custom
