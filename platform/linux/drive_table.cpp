#include "platform/linux/drive_table.h"

#include "platform/linux/system_calls.h"
#include "platform/names.h"
#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <functional>

namespace tarvix::platform {

namespace {
constexpr std::int64_t kRefreshAfter = 1'000'000'000; // nanoseconds
constexpr std::array<std::string_view, 3> kMediaFolders{"/media", "/run/media", "/mnt"};

bool IsMedia(const Mount& mount) {
    return std::any_of(kMediaFolders.begin(), kMediaFolders.end(),
                       [&](std::string_view folder) { return IsAtOrBelow(mount.point, folder); });
}

bool GetsLetter(const Mount& mount) {
    if (mount.point == "/" || IsPseudo(mount)) return false;
    return IsMedia(mount) || IsOptical(mount) || IsNetwork(mount);
}

DriveType TypeOf(const Mount& mount) {
    if (IsOptical(mount)) return DriveType::kCdRom;
    if (IsNetwork(mount)) return DriveType::kNetwork;
    if (mount.fileSystem == "tmpfs" || mount.fileSystem == "ramfs") return DriveType::kRamDisk;
    const bool isRemovable =
        IsAtOrBelow(mount.point, "/media") || IsAtOrBelow(mount.point, "/run/media");
    return isRemovable ? DriveType::kRemovable : DriveType::kFixed;
}

// The mount that a native path lies on.
const Mount* MountOf(const std::vector<Mount>& mounts, std::string_view native) {
    const Mount* best = nullptr;
    for (const Mount& mount : mounts) {
        if (!IsAtOrBelow(native, mount.point)) continue;
        if (best == nullptr || mount.point.size() > best->point.size()) best = &mount;
    }
    return best;
}

std::string WithoutFinalSlash(std::string_view native) {
    while (native.size() > 1 && native.ends_with('/'))
        native.remove_suffix(1);
    return std::string(native);
}

std::string_view AsPrefix(std::string_view native) {
    return native == "/" ? std::string_view() : native;
}

char UpperLetter(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
} // namespace

DriveTable::DriveTable(const std::vector<Mount>& mounts, const std::vector<ExtraDrive>& extraDrives,
                       const DriveTable* former) {
    AddDrive('C', "/", MountOf(mounts, "/"));
    AddExtras(mounts, extraDrives);
    AddMounts(mounts, former);
    for (const Mount& mount : mounts)
        NoteMount(mount);
    std::ranges::sort(points_);
    if (former != nullptr) {
        for (const auto& [point, letter] : former->letters_)
            letters_.try_emplace(point, letter);
    }
    std::sort(drives_.begin(), drives_.end(),
              [](const DriveInfo& a, const DriveInfo& b) { return a.path < b.path; });
}

void DriveTable::AddDrive(char letter, const std::string& native, const Mount* mount) {
    DriveInfo info{fmt::format("{}:", letter), native, DriveType::kFixed, {}, true};
    if (mount != nullptr) {
        info.type = TypeOf(*mount);
        info.fileSystem = mount->fileSystem;
    }
    drives_.push_back(std::move(info));
    letters_.emplace(native, letter);
}

void DriveTable::AddExtras(const std::vector<Mount>& mounts,
                           const std::vector<ExtraDrive>& extraDrives) {
    for (const auto& [given, folder] : extraDrives) {
        const char letter = UpperLetter(given);
        const std::string native = WithoutFinalSlash(folder);
        const bool isTaken =
            std::any_of(drives_.begin(), drives_.end(),
                        [&](const DriveInfo& drive) { return drive.path[0] == letter; });
        if (letter < 'A' || letter > 'Z' || isTaken || !native.starts_with('/')) continue;
        if (letters_.contains(native)) continue;
        AddDrive(letter, native, MountOf(mounts, native));
    }
}

void DriveTable::AddMounts(const std::vector<Mount>& mounts, const DriveTable* former) {
    for (const Mount& mount : mounts) {
        if (!GetsLetter(mount) || letters_.contains(mount.point)) continue;
        char letter = 0;
        if (former != nullptr) {
            const auto kept = former->letters_.find(mount.point);
            if (kept != former->letters_.end()) letter = kept->second;
        }
        if (letter == 0) letter = FreeLetter(former);
        if (letter != 0) AddDrive(letter, mount.point, &mount);
    }
}

char DriveTable::FreeLetter(const DriveTable* former) const {
    const auto isUsed = [](const DriveTable& table, char letter) {
        return std::any_of(table.letters_.begin(), table.letters_.end(),
                           [letter](const auto& entry) { return entry.second == letter; });
    };
    for (char letter = 'D'; letter <= 'Z'; ++letter) {
        if (!isUsed(*this, letter) && (former == nullptr || !isUsed(*former, letter))) {
            return letter;
        }
    }
    return 0;
}

void DriveTable::NoteMount(const Mount& mount) {
    points_.push_back(mount.point);
    const auto letter = letters_.find(mount.point);
    if (mount.point != "/" && (IsPseudo(mount) || letter != letters_.end())) {
        const std::size_t slash = mount.point.rfind('/');
        const std::string folder = slash == 0 ? "/" : mount.point.substr(0, slash);
        boundaries_[folder].insert(mount.point.substr(slash + 1));
        boundaryDevices_.insert(mount.device);
    }
    const DosAttributes kind = DosAttributesOf(mount);
    if (kind != DosAttributes::kNone) dosAttributes_.emplace(mount.device, kind);
    if (FoldsCase(mount)) folding_.insert(mount.device);
    if (!KeepsNumbers(mount)) losing_.insert(mount.device);
    const std::string unc = UncOf(mount);
    if (!unc.empty()) shares_.push_back({text::Upper(unc), mount.point});
}

std::optional<DriveTable::Base> DriveTable::BaseOf(const DrivePath& path) const {
    if (path.root.size() == 2) {
        const char letter = UpperLetter(path.root[0]);
        for (const DriveInfo& drive : drives_) {
            if (drive.path[0] == letter) return Base{std::string(AsPrefix(drive.nativeMount)), 0};
        }
        return std::nullopt;
    }
    // A share may be mounted from a folder below it: the longest that fits is taken.
    std::string unc = text::Upper(path.root);
    std::optional<Base> best;
    for (std::size_t taken = 0;; ++taken) {
        for (const Share& share : shares_) {
            if (share.unc == unc) best = Base{share.folder, taken};
        }
        if (taken == path.names.size()) return best;
        unc += '\\';
        text::AppendUpper(unc, path.names[taken]);
    }
}

std::string DriveTable::ToDrive(std::string_view native) const {
    const DriveInfo* best = &drives_.front();
    std::size_t length = 0;
    for (const DriveInfo& drive : drives_) {
        const std::string_view mount = AsPrefix(drive.nativeMount);
        if (mount.size() < length || !IsAtOrBelow(native, drive.nativeMount)) continue;
        best = &drive;
        length = mount.size();
    }
    std::string out = best->path;
    native.remove_prefix(length);
    while (!native.empty()) {
        const std::size_t end = std::min(native.find('/'), native.size());
        if (end > 0) {
            out += '\\';
            AppendNameToDrive(out, native.substr(0, end));
        }
        native.remove_prefix(std::min(end + 1, native.size()));
    }
    if (out.size() == best->path.size()) out += '\\';
    return out;
}

bool DriveTable::HoldsMount(std::string_view native) const {
    if (std::ranges::binary_search(points_, native, std::less<>())) return true;
    const std::string below = fmt::format("{}/", native);
    const auto next = std::ranges::lower_bound(points_, below);
    return next != points_.end() && next->starts_with(below);
}

const DriveTable::Names* DriveTable::BoundariesIn(const std::string& folder) const {
    const auto found = boundaries_.find(folder);
    return found == boundaries_.end() ? nullptr : &found->second;
}

bool DriveTable::IsBoundaryDevice(std::uint64_t device) const {
    return boundaryDevices_.contains(device);
}

DosAttributes DriveTable::DosAttributesAt(std::uint64_t device) const {
    if (dosAttributes_.empty()) return DosAttributes::kNone;
    const auto found = dosAttributes_.find(device);
    return found == dosAttributes_.end() ? DosAttributes::kNone : found->second;
}

Mounts::Mounts(std::vector<ExtraDrive> extraDrives, ReadText readText)
    : extraDrives_(std::move(extraDrives)), readText_(std::move(readText)) {
    if (!readText_) readText_ = [] { return ReadSystemText("/proc/self/mountinfo"); };
    Refresh();
}

void Mounts::Refresh() {
    readAt_ = SteadyNow();
    std::string now = readText_();
    if (table_ != nullptr && now == text_) return;
    text_ = std::move(now);
    table_ = std::make_shared<const DriveTable>(ParseMountInfo(text_), extraDrives_, table_.get());
    tableAt_ = table_.get();
}

std::shared_ptr<const DriveTable> Mounts::Now() {
    const std::scoped_lock lock(mutex_);
    if (SteadyTick() - readAt_ > kRefreshAfter) Refresh();
    return table_;
}

const DriveTable* Mounts::NowAt() {
    return SteadyTick() - readAt_ > kRefreshAfter ? Now().get() : tableAt_.load();
}

std::shared_ptr<const DriveTable> Mounts::Refreshed() {
    const std::scoped_lock lock(mutex_);
    Refresh();
    return table_;
}

} // namespace tarvix::platform
