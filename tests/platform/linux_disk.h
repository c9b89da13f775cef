#pragma once

#include "platform/linux/linux_platform.h"
#include "platform/names.h"
#include "tests/platform/conformance.h"

#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A fresh folder below TMPDIR, removed at the end with all that is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        const char* const base = std::getenv("TMPDIR");
        path_ = std::string(base == nullptr ? "/tmp" : base) + "/Tarvix test XXXXXX";
        if (::mkdtemp(path_.data()) == nullptr) std::abort();
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

// The home folder that the tests of this program live in, so that what they throw away goes there.
const std::string& TestHome();

// One object in the trash folder at `trash`, as its info file tells of it.
struct TrashedObject {
    std::string path; // native, where it was; relative in the trash of another file system
    std::string date;
    std::string held; // where it lies now
    std::string info; // its info file
};
std::vector<TrashedObject> ReadTrash(const std::string& trash);
// The trash of the home folder.
std::string HomeTrash();

// The machine, with a folder of its own as drive T:.
class LinuxDisk : public Disk {
  public:
    explicit LinuxDisk(CopyRoads roads = {}, StoreClock clock = {})
        : platform_(Options(roads, std::move(clock))) {}

    FileSystem& Files() override { return platform_.Parts().files; }
    Trash& Bin() override { return platform_.Parts().trash; }
    Platform Parts() { return platform_.Parts(); }
    std::string Root() const override { return "T:\\Test root"; }
    // The native path of a path below the root folder.
    std::string Native(std::string_view path) const;

    void MakeFile(std::string_view path, std::string_view content) override;
    void MakeFolder(std::string_view path) override;
    void MakeLink(std::string_view path, std::string_view target) override;
    void SetModified(std::string_view path, FileTime modified) override;
    void SetReadOnly(std::string_view path) override;
    bool MakeFifo(std::string_view path) override;
    bool MakeBadName(std::string_view folder, std::string_view nativeName) override;
    bool MakeUnreadable(std::string_view path) override;
    bool SetExtendedAttribute(std::string_view path, std::string_view name,
                              std::string_view value) override;
    std::optional<std::string> Content(std::string_view path) override;
    std::optional<std::string> ExtendedAttribute(std::string_view path,
                                                 std::string_view name) override;
    std::vector<std::string> Names(std::string_view folder) override;
    std::vector<std::string> Trashed() override;
    bool Restore(std::string_view path) override;
    bool LoseTrashed(std::string_view path) override;
    bool ExchangeTrashed(std::string_view path, std::string_view content) override;
    bool SetLocked(std::string_view folder, bool isLocked) override;

  private:
    LinuxOptions Options(CopyRoads roads, StoreClock clock);

    TemporaryFolder folder_;
    LinuxPlatform platform_;
};

} // namespace tarvix::platform
