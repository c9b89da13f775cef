#include "actions/request/file_name_warning.h"

#include "actions/request/request_checks.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::actions {

namespace {

constexpr std::size_t kLongestExtension = 5;

bool IsAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsLetterOrDigit(char c) {
    return IsAsciiLetter(c) || (c >= '0' && c <= '9');
}

// "report.txt", but neither ".config" nor "v1.2" nor "Vol. 3".
bool IsNamedLikeFile(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == name.npos || dot == 0) return false;
    const std::string_view extension = name.substr(dot + 1);
    return extension.size() <= kLongestExtension &&
           std::ranges::all_of(extension, IsLetterOrDigit) &&
           std::ranges::any_of(extension, IsAsciiLetter);
}

} // namespace

std::string FileNameWarning(session::Session& session, std::string_view destination) {
    if (!session.platform.traits.hasNativePaths) return ExtensionWarning(session, destination);
    const std::string_view folder = text::StripTrailingSlash(destination);
    if (!IsNamedLikeFile(text::FileNameOf(folder))) return {};
    if (platform::GetFolder(session.files(), folder)) return {};
    return fmt::format("{} is named like a file. It isn't there, and will be made as a "
                       "folder.\r\n\r\n",
                       session.Shown(folder));
}

} // namespace tarvix::actions
