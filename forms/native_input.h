#pragma once

#include <QList>
#include <QUrl>

#include <string>
#include <string_view>

namespace tarvix::fields {
class Control;
}
namespace tarvix::platform {
class NativePaths;
struct Platform;
} // namespace tarvix::platform

namespace tarvix::forms {

// Whether the control holds paths, so that native ones are turned into drive form.
bool TakesPaths(const fields::Control& control);

// A list of paths separated by "|" with each native one in drive form.
std::string DriveForm(const platform::NativePaths& paths, std::string_view list);

// The dropped folders and list files in drive form, joined with "|"; of any other file its folder.
std::string DroppedLocations(const platform::Platform& machine, const QList<QUrl>& urls);

// A list with more behind it.
std::string Appended(std::string_view list, std::string_view more);

} // namespace tarvix::forms
