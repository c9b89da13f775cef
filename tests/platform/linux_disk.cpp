#include "tests/platform/linux_disk.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
// GLib reads these once, when it is first asked, so they are set before any test runs.
const bool kHasTestHome = [] {
    ::setenv("HOME", TestHome().c_str(), 1);
    ::setenv("XDG_DATA_HOME", (TestHome() + "/share").c_str(), 1);
    return std::filesystem::create_directory(TestHome() + "/share");
}();

std::string WithoutPercents(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            out += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}
} // namespace

const std::string& TestHome() {
    static const TemporaryFolder folder;
    return folder.Path();
}

std::string HomeTrash() {
    return TestHome() + "/share/Trash";
}

std::vector<TrashedObject> ReadTrash(const std::string& trash) {
    std::vector<TrashedObject> objects;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(trash + "/info", none)) {
        if (entry.path().extension() != ".trashinfo") continue;
        TrashedObject object;
        object.info = entry.path();
        object.held = trash + "/files/" + entry.path().stem().native();
        std::ifstream file(object.info);
        std::string head;
        std::string line;
        std::getline(file, head);
        EXPECT_EQ(head, "[Trash Info]");
        while (std::getline(file, line)) {
            if (line.starts_with("Path=")) object.path = WithoutPercents(line.substr(5));
            if (line.starts_with("DeletionDate=")) object.date = line.substr(13);
        }
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(object.held)));
        objects.push_back(std::move(object));
    }
    return objects;
}

LinuxOptions LinuxDisk::Options(CopyRoads roads, StoreClock clock) {
    LinuxOptions options;
    options.extraDrives = {{'T', folder_.Path()}};
    options.hasDesktop = false;
    options.copyRoads = roads;
    options.storeClock = std::move(clock);
    std::filesystem::create_directory(folder_.Path() + "/Test root");
    return options;
}

std::string LinuxDisk::Native(std::string_view path) const {
    std::string native = folder_.Path() + "/Test root";
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        native += '/';
        native += NameToNative(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return native;
}

void LinuxDisk::MakeFile(std::string_view path, std::string_view content) {
    const std::string native = Native(path);
    std::filesystem::create_directories(std::filesystem::path(native).parent_path());
    std::ofstream(native, std::ios::binary) << content;
}

void LinuxDisk::MakeFolder(std::string_view path) {
    std::filesystem::create_directories(Native(path));
}

void LinuxDisk::MakeLink(std::string_view path, std::string_view target) {
    const std::string native = Native(path);
    std::filesystem::create_directories(std::filesystem::path(native).parent_path());
    std::filesystem::create_symlink(Native(target), native);
}

void LinuxDisk::SetModified(std::string_view path, FileTime modified) {
    constexpr FileTime kSecond = 1'000'000'000;
    const FileTime seconds = modified / kSecond - (modified % kSecond < 0 ? 1 : 0);
    const timespec times[2] = {
        {0, UTIME_OMIT},
        {static_cast<std::time_t>(seconds), static_cast<long>(modified - seconds * kSecond)}};
    ASSERT_EQ(::utimensat(AT_FDCWD, Native(path).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
}

void LinuxDisk::SetReadOnly(std::string_view path) {
    struct stat st {};
    ASSERT_EQ(::stat(Native(path).c_str(), &st), 0);
    ASSERT_EQ(::chmod(Native(path).c_str(), st.st_mode & 07555), 0);
}

bool LinuxDisk::MakeFifo(std::string_view path) {
    const std::string native = Native(path);
    std::filesystem::create_directories(std::filesystem::path(native).parent_path());
    return ::mkfifo(native.c_str(), 0600) == 0;
}

bool LinuxDisk::MakeBadName(std::string_view folder, std::string_view nativeName) {
    const std::string path = Native(folder) + "/" + std::string(nativeName);
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    return fd >= 0 && ::close(fd) == 0;
}

bool LinuxDisk::MakeUnreadable(std::string_view path) {
    // For the superuser nothing is unreadable.
    return ::geteuid() != 0 && ::chmod(Native(path).c_str(), 0) == 0;
}

bool LinuxDisk::SetExtendedAttribute(std::string_view path, std::string_view name,
                                     std::string_view value) {
    return ::setxattr(Native(path).c_str(), std::string(name).c_str(), value.data(), value.size(),
                      0) == 0;
}

std::optional<std::string> LinuxDisk::Content(std::string_view path) {
    const std::string native = Native(path);
    if (!std::filesystem::is_regular_file(std::filesystem::symlink_status(native))) {
        return std::nullopt;
    }
    std::ifstream file(native, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::optional<std::string> LinuxDisk::ExtendedAttribute(std::string_view path,
                                                        std::string_view name) {
    std::string value(1024, '\0');
    const ssize_t size =
        ::getxattr(Native(path).c_str(), std::string(name).c_str(), value.data(), value.size());
    if (size < 0) return std::nullopt;
    value.resize(static_cast<std::size_t>(size));
    return value;
}

std::vector<std::string> LinuxDisk::Names(std::string_view folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Native(folder)))
        names.push_back(NameToDrive(entry.path().filename().native()));
    return names;
}

std::vector<std::string> LinuxDisk::Trashed() {
    const std::string root = Native("") + "/";
    std::vector<std::string> paths;
    for (const TrashedObject& object : ReadTrash(HomeTrash())) {
        if (!object.path.starts_with(root)) continue; // of another test
        std::string path;
        for (const auto& name : std::filesystem::path(object.path.substr(root.size()))) {
            path += (path.empty() ? "" : "\\") + NameToDrive(name.native());
        }
        paths.push_back(std::move(path));
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

bool LinuxDisk::Restore(std::string_view path) {
    const std::string native = Native(path);
    for (const TrashedObject& object : ReadTrash(HomeTrash())) {
        if (object.path != native) continue;
        std::filesystem::rename(object.held, native);
        return std::filesystem::remove(object.info);
    }
    return false;
}

// As a file manager empties it.
bool LinuxDisk::LoseTrashed(std::string_view path) {
    const std::string native = Native(path);
    for (const TrashedObject& object : ReadTrash(HomeTrash())) {
        if (object.path != native) continue;
        return std::filesystem::remove_all(object.held) > 0 && std::filesystem::remove(object.info);
    }
    return false;
}

// The number of the file that goes may not be given to the one that comes.
bool LinuxDisk::ExchangeTrashed(std::string_view path, std::string_view content) {
    const std::string native = Native(path);
    for (const TrashedObject& object : ReadTrash(HomeTrash())) {
        if (object.path != native) continue;
        const std::string fresh = object.held + " (new)";
        std::ofstream(fresh, std::ios::binary) << content;
        std::filesystem::remove_all(object.held);
        std::filesystem::rename(fresh, object.held);
        return true;
    }
    return false;
}

bool LinuxDisk::SetLocked(std::string_view folder, bool isLocked) {
    // For the superuser nothing is locked.
    return ::geteuid() != 0 && ::chmod(Native(folder).c_str(), isLocked ? 0555 : 0755) == 0;
}

} // namespace tarvix::platform
