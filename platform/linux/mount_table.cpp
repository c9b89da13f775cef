#include "platform/linux/mount_table.h"

#include "platform/names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <sys/sysmacros.h>

namespace tarvix::platform {

namespace {
constexpr std::array<std::string_view, 27> kPseudo{
    "proc",       "sysfs",       "devtmpfs",       "devpts",   "cgroup",  "cgroup2",
    "tracefs",    "debugfs",     "securityfs",     "configfs", "fusectl", "bpf",
    "mqueue",     "hugetlbfs",   "pstore",         "efivarfs", "autofs",  "binfmt_misc",
    "rpc_pipefs", "nsfs",        "selinuxfs",      "smackfs",  "resctrl", "nfsd",
    "fuse.lxcfs", "fuse.portal", "fuse.gvfsd-fuse"};

constexpr std::array<std::string_view, 14> kNetwork{
    "cifs", "smb3", "smbfs",      "nfs",         "nfs4",           "ncpfs", "afs",
    "9p",   "ceph", "fuse.sshfs", "fuse.rclone", "fuse.glusterfs", "davfs", "fuse.davfs"};

// Folders whose mounts are the system's own, whatever they hold.
constexpr std::array<std::string_view, 3> kSystemFolders{"/dev", "/proc", "/sys"};

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsOctal(std::string_view digits) {
    return digits.size() == 3 && digits[0] < '4' &&
           std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '7'; });
}

// "\040" and the like as the bytes that they stand for.
std::string Decoded(std::string_view field) {
    std::string out;
    out.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && IsOctal(field.substr(i + 1, 3))) {
            out += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                     (field[i + 3] - '0'));
            i += 3;
        } else {
            out += field[i];
        }
    }
    return out;
}

std::string_view NextField(std::string_view& line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view field = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return field;
}

std::optional<std::uint64_t> ParseDevice(std::string_view field) {
    unsigned major = 0;
    unsigned minor = 0;
    const char* const end = field.data() + field.size();
    const auto [colon, error] = std::from_chars(field.data(), end, major);
    if (error != std::errc() || colon == end || *colon != ':') return std::nullopt;
    const auto [rest, minorError] = std::from_chars(colon + 1, end, minor);
    if (minorError != std::errc() || rest != end) return std::nullopt;
    return makedev(major, minor);
}

bool HasReadOnly(std::string_view options) {
    return options == "ro" || options.starts_with("ro,");
}

std::optional<Mount> ParseLine(std::string_view line) {
    Mount mount;
    NextField(line); // its number
    NextField(line); // its parent's number
    const auto device = ParseDevice(NextField(line));
    if (!device) return std::nullopt;
    mount.device = *device;
    NextField(line); // which part of the file system is mounted
    mount.point = Decoded(NextField(line));
    mount.isReadOnly = HasReadOnly(NextField(line));
    for (std::string_view optional = NextField(line); optional != "-"; optional = NextField(line)) {
        if (line.empty()) return std::nullopt;
    }
    mount.fileSystem = Decoded(NextField(line));
    mount.source = Decoded(NextField(line));
    if (!mount.point.starts_with('/') || mount.fileSystem.empty()) return std::nullopt;
    return mount;
}

std::string UncFrom(std::string_view server, std::string_view below) {
    std::string unc = "\\\\";
    unc += server;
    while (!below.empty()) {
        const std::size_t end = std::min(below.find_first_of("/\\"), below.size());
        if (end > 0) {
            unc += '\\';
            AppendNameToDrive(unc, below.substr(0, end));
        }
        below.remove_prefix(std::min(end + 1, below.size()));
    }
    return unc;
}
} // namespace

std::vector<Mount> ParseMountInfo(std::string_view text) {
    std::vector<Mount> mounts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        auto mount = ParseLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!mount) continue;
        std::erase_if(mounts, [&](const Mount& other) { return other.point == mount->point; });
        mounts.push_back(std::move(*mount));
    }
    return mounts;
}

bool IsPseudo(const Mount& mount) {
    if (Contains(kPseudo, mount.fileSystem)) return true;
    return std::any_of(kSystemFolders.begin(), kSystemFolders.end(),
                       [&](std::string_view folder) { return IsAtOrBelow(mount.point, folder); });
}

bool IsNetwork(const Mount& mount) {
    return Contains(kNetwork, mount.fileSystem);
}

bool IsOptical(const Mount& mount) {
    if (mount.fileSystem == "iso9660") return true;
    return mount.fileSystem == "udf" && (mount.isReadOnly || mount.source.starts_with("/dev/sr"));
}

bool FoldsCase(const Mount& mount) {
    constexpr std::array<std::string_view, 10> kFolding{
        "vfat", "msdos", "exfat", "ntfs", "ntfs3", "cifs", "smb3", "smbfs", "hfs", "hfsplus"};
    return Contains(kFolding, mount.fileSystem);
}

bool KeepsNumbers(const Mount& mount) {
    constexpr std::array<std::string_view, 8> kLosing{"vfat", "msdos", "exfat", "cifs",
                                                      "smb3", "smbfs", "davfs", "fuseblk"};
    return !Contains(kLosing, mount.fileSystem) && !mount.fileSystem.starts_with("fuse.");
}

DosAttributes DosAttributesOf(const Mount& mount) {
    constexpr std::array<std::pair<std::string_view, DosAttributes>, 9> kKinds{{
        {"vfat", DosAttributes::kFat},
        {"msdos", DosAttributes::kFat},
        {"exfat", DosAttributes::kFat},
        {"ntfs", DosAttributes::kNtfs},
        {"ntfs3", DosAttributes::kNtfs},
        {"fuseblk", DosAttributes::kNtfs},
        {"fuse.ntfs-3g", DosAttributes::kNtfs},
        {"cifs", DosAttributes::kCifs},
        {"smb3", DosAttributes::kCifs},
    }};
    for (const auto& [name, kind] : kKinds) {
        if (name == mount.fileSystem) return kind;
    }
    return DosAttributes::kNone;
}

std::string UncOf(const Mount& mount) {
    const std::string_view source = mount.source;
    if (!IsNetwork(mount)) return {};
    if (source.starts_with("//")) {
        const std::size_t end = source.find('/', 2);
        if (end == source.npos || end == 2 || end + 1 == source.size()) return {};
        return UncFrom(source.substr(2, end - 2), source.substr(end + 1));
    }
    if (!mount.fileSystem.starts_with("nfs")) return {};
    const std::size_t colon = source.find(":/");
    if (colon == source.npos || colon == 0 || colon + 2 == source.size()) return {};
    return UncFrom(source.substr(0, colon), source.substr(colon + 2));
}

bool IsAtOrBelow(std::string_view path, std::string_view folder) {
    if (folder == "/") return path.starts_with('/');
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace tarvix::platform
