#include "platform/disk_names.h"

#include "platform/names.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::platform {

namespace {

// What a family of disks refuses in names.
struct Family {
    std::string_view name;
    std::string_view marks;       // that no name holds
    bool refusesControls = false; // characters below the blank
    bool refusesLastBlank = false;
    bool refusesDevices = false; // names that stand for devices there
    bool needsText = true;       // each name is UTF-8
};

struct FileSystemRow {
    std::string_view fileSystem;
    Family family;
};
constexpr std::string_view kMarks = "\"*/:<>?\\|";
constexpr Family kFat{
    .name = "FAT", .marks = kMarks, .refusesControls = true, .refusesLastBlank = true};
constexpr Family kExFat{.name = "exFAT", .marks = kMarks, .refusesControls = true};
constexpr Family kNtfs{.name = "NTFS"};
// The marks are carried there by other characters.
constexpr Family kShare{.name = "The share", .refusesDevices = true};
constexpr std::array kFamilies{
    FileSystemRow{"vfat", kFat},   FileSystemRow{"msdos", kFat}, FileSystemRow{"exfat", kExFat},
    FileSystemRow{"ntfs3", kNtfs}, FileSystemRow{"ntfs", kNtfs}, FileSystemRow{"cifs", kShare},
    FileSystemRow{"smb3", kShare},
};
constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
constexpr std::array<std::string_view, 2> kPorts{"COM", "LPT"};

// "con.txt" stands for the device as "CON" does.
bool IsDevice(std::string_view name) {
    const std::string base = text::Upper(name.substr(0, name.find('.')));
    if (std::ranges::find(kDevices, base) != kDevices.end()) return true;
    const bool isNumbered = base.size() == 4 && base[3] >= '1' && base[3] <= '9';
    return isNumbered && std::ranges::any_of(
                             kPorts, [&](std::string_view port) { return base.starts_with(port); });
}

std::string WhyNot(const Family& family, std::string_view native) {
    const auto refused = std::ranges::find_if(
        native, [&](char c) { return family.marks.find(c) != family.marks.npos; });
    if (refused != native.end()) return fmt::format("takes no {} in a name", *refused);
    const bool hasControl =
        std::ranges::any_of(native, [](char c) { return static_cast<unsigned char>(c) < 32; });
    if (family.refusesControls && hasControl) return "takes no control character in a name";
    if (family.refusesLastBlank && native.ends_with(' ')) return "takes no blank at a name's end";
    if (family.needsText && !text::IsValidUtf8(native)) return "takes no bytes that are no text";
    if (family.refusesDevices && IsDevice(native)) return "may take no name of a device";
    return {};
}

} // namespace

std::string WhyNoName(std::string_view fileSystem, std::string_view name) {
    const auto* const row = std::ranges::find(kFamilies, fileSystem, &FileSystemRow::fileSystem);
    if (row == kFamilies.end()) return {};
    const std::string why = WhyNot(row->family, NameToNative(name));
    return why.empty() ? why : fmt::format("{} {}", row->family.name, why);
}

} // namespace tarvix::platform
