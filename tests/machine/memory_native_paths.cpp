#include "tests/machine/memory_native_paths.h"

#include "platform/drive_path.h"
#include "platform/names.h"
#include "text/case.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::string_view kHome = "/home/ann";
constexpr std::string_view kScheme = "file://";

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string PercentDecoded(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
        out += low >= 0 ? static_cast<char>(high * 16 + low) : text[i];
        if (low >= 0) i += 2;
    }
    return out;
}

// The absolute native path that a native text stands for.
std::string Absolute(std::string_view text) {
    if (text.starts_with(kScheme)) {
        text.remove_prefix(kScheme.size());
        const auto path = text.find('/'); // behind a host name
        return path == text.npos ? "/" : PercentDecoded(text.substr(path));
    }
    if (text.starts_with('~')) return std::string(kHome).append(text.substr(1));
    return std::string(text);
}

bool IsBelow(std::string_view path, std::string_view mount) {
    if (mount == "/") return true;
    return path.starts_with(mount) && (path.size() == mount.size() || path[mount.size()] == '/');
}

std::string DriveForm(std::string_view root, std::string_view nativeRest) {
    std::string path(root);
    bool isEmpty = true;
    while (!nativeRest.empty()) {
        const std::string_view name = nativeRest.substr(0, nativeRest.find('/'));
        nativeRest.remove_prefix(std::min(nativeRest.size(), name.size() + 1));
        if (name.empty()) continue;
        path += '\\';
        AppendNameToDrive(path, name);
        isEmpty = false;
    }
    return isEmpty ? path + "\\" : path;
}
} // namespace

bool MemoryNativePaths::IsNative(std::string_view text) const {
    return text.starts_with('/') || text == "~" || text.starts_with("~/") ||
           text.starts_with(kScheme);
}

std::string MemoryNativePaths::ToDrive(std::string_view text) const {
    if (!IsNative(text)) return std::string(text);
    const std::string path = Absolute(text);
    DriveInfo best;
    for (DriveInfo& drive : files_.Drives()) {
        const bool isLonger = drive.nativeMount.size() > best.nativeMount.size();
        if (isLonger && IsBelow(path, drive.nativeMount)) best = drive;
    }
    if (best.path.empty()) return std::string(text);
    const std::size_t skipped = best.nativeMount == "/" ? 0 : best.nativeMount.size();
    return DriveForm(best.path, std::string_view(path).substr(skipped));
}

std::string MemoryNativePaths::ToNative(std::string_view drivePath) const {
    const auto parsed = ParseDrivePath(drivePath);
    if (!parsed) return {};
    for (const DriveInfo& drive : files_.Drives()) {
        if (!text::EqualNoCase(drive.path, parsed->root)) continue;
        std::string path = drive.nativeMount == "/" ? std::string() : drive.nativeMount;
        for (const std::string_view name : parsed->names)
            path.append("/").append(NameToNative(name));
        return path.empty() ? "/" : path;
    }
    return {};
}

} // namespace tarvix::platform
