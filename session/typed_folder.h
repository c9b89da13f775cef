#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::fields {
class Control;
}

namespace tarvix::session {

struct Session;

// A path that is being typed into a box of paths: what stays in front of it, the folder that it
// lies in (a drive path), and how its name begins.
struct TypedFolder {
    std::string before;
    std::string folder;
    std::string begin;
};

// The last path of the box's text; none while that begins no path.
std::optional<TypedFolder> TypedFolderIn(const Session& session, const fields::Control& control,
                                         std::string_view text);

// The texts that the box could go on to, for the names (in drive form) of the folders that lie
// there: at most 200; those with a leading dot only where one was typed.
std::vector<std::string> FolderTexts(const Session& session, const fields::Control& control,
                                     const TypedFolder& typed,
                                     const std::vector<std::string>& names);

} // namespace tarvix::session
