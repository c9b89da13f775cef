#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::fields {
class Control;
}
namespace tarvix::platform {
class NativePaths;
}

namespace tarvix::session {

// A list of paths separated by "|" with each native one in drive form.
std::string DriveForm(const platform::NativePaths& paths, std::string_view list);

// What a box of paths is to hold once a user has left it: its native paths in drive form. Nothing
// when it stays as it is, as a disabled box and a control of another kind do.
std::optional<std::string> EntryInDriveForm(const platform::NativePaths& paths,
                                            const fields::Control& control);

} // namespace tarvix::session
