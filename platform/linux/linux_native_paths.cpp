#include "platform/linux/linux_native_paths.h"

#include "platform/drive_path.h"
#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
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
constexpr std::size_t kMostFolders = 2048;

bool IsFileAddress(std::string_view text) {
    return text.size() >= kFileScheme.size() &&
           text::EqualNoCase(text.substr(0, kFileScheme.size()), kFileScheme);
}

// The path in an address of this machine.
std::optional<std::string> PathOfAddress(const std::string& address) {
    char* host = nullptr;
    const GlibPointer<char> path(TX_GIO(g_filename_from_uri)(address.c_str(), &host, nullptr));
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

std::string LinuxNativePaths::FromKnown(std::string_view folder, std::string_view name) const {
    std::string out;
    const DriveTable* const drives = mounts_.NowAt();
    const std::scoped_lock lock(mutex_);
    if (drives_.get() != drives) return out;
    const auto* const known = lastFolders_.In(folders_, folder);
    if (known == nullptr) return out;
    out.reserve(known->second.size() + 1 + name.size());
    out += known->second;
    out += '/';
    AppendNameToNative(out, name);
    return out;
}

void LinuxNativePaths::Note(const Table& drives, std::string_view folder,
                            std::string_view native) const {
    const std::scoped_lock lock(mutex_);
    if (drives_ != drives || folders_.size() >= kMostFolders) {
        lastFolders_.Forget();
        folders_.clear();
    }
    drives_ = drives;
    folders_.insert_or_assign(std::string(folder), std::string(native));
}

std::string LinuxNativePaths::ToNative(std::string_view drivePath) const {
    const std::size_t slash = std::min(text::LastOf(drivePath, '\\'), drivePath.size());
    const std::string_view folder = drivePath.substr(0, slash);
    const std::string_view name = drivePath.substr(std::min(slash + 1, drivePath.size()));
    // On a share more than the folder may tell where a name leads.
    const bool isInFolder = drivePath.size() > 1 && drivePath[1] == ':' && CanBeName(name);
    if (isInFolder) {
        if (std::string known = FromKnown(folder, name); !known.empty()) return known;
    }
    const auto parsed = ParseDrivePath(drivePath);
    if (!parsed) return {};
    const Table drives = mounts_.Now();
    auto base = drives->BaseOf(*parsed);
    if (!base) return {};
    std::string out = std::move(base->folder);
    for (std::size_t i = base->namesTaken; i < parsed->names.size(); ++i) {
        out += '/';
        AppendNameToNative(out, parsed->names[i]);
    }
    if (isInFolder) Note(drives, folder, std::string_view(out).substr(0, out.rfind('/')));
    return out.empty() ? "/" : out;
}

std::string LinuxNativePaths::NamePart(std::string_view typed) const {
    return CarryReserved(typed);
}

} // namespace tarvix::platform
