#pragma once

#include <string>
#include <string_view>

namespace tarvix::fields {
class Control;
}
namespace tarvix::platform {
class NativePaths;
}

namespace tarvix::session {

struct Session;

// Whether a box holds a path, or a list of paths. Its field has them in drive form; people read and
// write the form that `PathForm` names, and may type either.
bool TakesPaths(const fields::Control& control);

// A list of paths separated by "|" with each native one in drive form; blanks in front of a bar
// belong to no path.
std::string DriveForm(const platform::NativePaths& paths, std::string_view list);

// What a box of paths holds for its field: the destination is one path, whatever marks are in it,
// the locations are a list.
std::string EntryInDriveForm(const platform::NativePaths& paths, const fields::Control& control,
                             std::string_view typed);

// A text of such a field as its box shows it. What is read back gives the same again: a path that
// the box could not hold as it is stands there as an address.
std::string EntryShown(const Session& session, const fields::Control& control,
                       std::string_view text);

// A name in drive form as it is typed in the form that `PathForm` names, and back.
std::string NameShown(const Session& session, std::string_view name);
std::string NameInDriveForm(const Session& session, std::string_view typed);

} // namespace tarvix::session
