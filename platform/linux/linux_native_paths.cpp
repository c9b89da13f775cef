#include "platform/linux/linux_native_paths.h"

#include "platform/drive_path.h"
#include "platform/linux/glib_pointer.h"
#include "platform/names.h"
#include "text/case.h"

#include <glib.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace tarvix::platform {

namespace {
constexpr std::string_view kFileScheme = "file://";

bool IsFileAddress(std::string_view text) {
    return text.size() >= kFileScheme.size() &&
           text::EqualNoCase(text.substr(0, kFileScheme.size()), kFileScheme);
}

// The path in an address of this machine.
std::optional<std::string> PathOfAddress(const std::string& address) {
    char* host = nullptr;
    const GlibPointer<char> path(g_filename_from_uri(address.c_str(), &host, nullptr));
    const GlibPointer<char> heldHost(host);
    const std::string_view hostName = host == nullptr ? "" : host;
    if (path == nullptr || !(hostName.empty() || hostName == "localhost")) return std::nullopt;
    return std::string(path.get());
}
} // namespace

std::string CleanNativePath(std::string_view path) {
    std::string out;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view name = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            out.resize(out.empty() ? 0 : out.rfind('/'));
            continue;
        }
        out += '/';
        out += name;
    }
    return out.empty() ? "/" : out;
}

bool LinuxNativePaths::IsNative(std::string_view text) const {
    return text.starts_with('/') || text == "~" || text.starts_with("~/") || IsFileAddress(text);
}

std::string LinuxNativePaths::ToDrive(std::string_view text) const {
    if (!IsNative(text)) return std::string(text);
    std::string path(text);
    if (text.starts_with('~')) {
        path = home_ + std::string(text.substr(1));
    } else if (IsFileAddress(text)) {
        auto decoded = PathOfAddress(path);
        if (!decoded) return path;
        path = std::move(*decoded);
    }
    return mounts_.Now()->ToDrive(CleanNativePath(path));
}

namespace {
// The folder of the path that was asked for last: paths of one folder mostly come together.
struct LastFolder {
    std::shared_ptr<const DriveTable> drives;
    std::string path;
    std::string native;
};

std::string ByParts(const DriveTable& drives, std::string_view drivePath) {
    const auto parsed = ParseDrivePath(drivePath);
    if (!parsed) return {};
    auto base = drives.BaseOf(*parsed);
    if (!base) return {};
    std::string out = std::move(base->folder);
    for (std::size_t i = base->namesTaken; i < parsed->names.size(); ++i) {
        out += '/';
        AppendNameToNative(out, parsed->names[i]);
    }
    return out.empty() ? "/" : out;
}
} // namespace

std::string LinuxNativePaths::ToNative(std::string_view drivePath) const {
    static thread_local LastFolder last;
    auto drives = mounts_.Now();
    const std::size_t slash = drivePath.rfind('\\');
    const bool isInDrive = slash != drivePath.npos && drivePath.size() > 2 && drivePath[1] == ':';
    if (!isInDrive || !CanBeName(drivePath.substr(slash + 1))) return ByParts(*drives, drivePath);
    if (last.drives != drives || last.path != drivePath.substr(0, slash)) {
        last.native = ByParts(*drives, drivePath.substr(0, slash));
        last.path = drivePath.substr(0, slash);
        last.drives = std::move(drives);
    }
    if (last.native.empty()) return {};
    std::string out;
    out.reserve(last.native.size() + 1 + drivePath.size() - slash);
    out += last.native;
    if (!out.ends_with('/')) out += '/';
    AppendNameToNative(out, drivePath.substr(slash + 1));
    return out;
}

std::string LinuxNativePaths::NamePart(std::string_view typed) const {
    return CarryReserved(typed);
}

} // namespace tarvix::platform
