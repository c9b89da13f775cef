// What needs a second disk, a full one, or another user.

#include "tests/platform/linux_disk.h"

#include <functional>
#include <sys/mount.h>
#include <sys/wait.h>

namespace tarvix::platform {

namespace {
// A second file system, empty, as drive S:.
class SecondDisk {
  public:
    explicit SecondDisk(const char* base) : path_(std::string(base) + "/Tarvix test XXXXXX") {
        isMade_ = ::mkdtemp(path_.data()) != nullptr;
    }
    ~SecondDisk() {
        if (isMounted_) ::umount2(path_.c_str(), MNT_DETACH);
        std::error_code ignored;
        if (isMade_) std::filesystem::remove_all(path_, ignored);
    }
    SecondDisk(const SecondDisk&) = delete;

    bool MountSmall() {
        isMounted_ = isMade_ && ::mount("tmpfs", path_.c_str(), "tmpfs", 0, "size=1m") == 0;
        return isMounted_;
    }
    bool IsApartFrom(const std::string& other) const {
        struct stat here {};
        struct stat there {};
        return isMade_ && ::stat(path_.c_str(), &here) == 0 && ::stat(other.c_str(), &there) == 0 &&
               here.st_dev != there.st_dev;
    }
    const std::string& Path() const { return path_; }
    std::size_t Count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path_), {}));
    }

  private:
    std::string path_;
    bool isMade_ = false;
    bool isMounted_ = false;
};

LinuxOptions WithDrives(const std::string& first, const std::string& second) {
    LinuxOptions options;
    options.extraDrives = {{'T', first}, {'S', second}};
    options.hasDesktop = false;
    return options;
}

void Write(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary) << content;
}

std::string Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::string TemporaryBase() {
    const char* const base = std::getenv("TMPDIR");
    return base == nullptr ? "/tmp" : base;
}
} // namespace

class LinuxFullDiskTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!second_.MountSmall()) GTEST_SKIP() << "no right to mount";
        machine_.emplace(WithDrives(first_.Path(), second_.Path()));
        Write(first_.Path() + "/big", std::string(4'000'000, 'x'));
    }
    FileSystem& files() { return machine_->Parts().files; }
    bool IsSourceWhole() const { return Read(first_.Path() + "/big").size() == 4'000'000; }

    TemporaryFolder first_;
    SecondDisk second_{TemporaryBase().c_str()};
    std::optional<LinuxPlatform> machine_;
};

TEST_F(LinuxFullDiskTest, CopyEndsWith61AndLeavesNothing) {
    const auto copied = files().CopyFile("T:\\big", "S:\\big", false, {});
    ASSERT_EQ(NumberOf(copied), kDiskFull);
    EXPECT_EQ(copied.error().description,
              "There is no space left on the drive that holds S:\\big.");
    EXPECT_EQ(second_.Count(), 0u);
    EXPECT_TRUE(IsSourceWhole());
}

TEST_F(LinuxFullDiskTest, OverwritingLeavesTheOldFile) {
    Write(second_.Path() + "/big", "old");
    EXPECT_EQ(NumberOf(files().CopyFile("T:\\big", "S:\\big", true, {})), kDiskFull);
    EXPECT_EQ(Read(second_.Path() + "/big"), "old");
    EXPECT_EQ(second_.Count(), 1u);
}

TEST_F(LinuxFullDiskTest, MoveLeavesTheSource) {
    EXPECT_EQ(NumberOf(files().MoveFile("T:\\big", "S:\\big", {})), kDiskFull);
    EXPECT_EQ(second_.Count(), 0u);
    EXPECT_TRUE(IsSourceWhole());
}

TEST_F(LinuxFullDiskTest, CopyOfATreeLeavesWholeFilesOnly) {
    std::filesystem::create_directory(first_.Path() + "/tree");
    Write(first_.Path() + "/tree/a", "small");
    Write(first_.Path() + "/tree/b", std::string(4'000'000, 'x'));
    std::filesystem::create_directory(second_.Path() + "/tree");
    EXPECT_EQ(NumberOf(files().CopyFolder("T:\\tree", "S:\\tree", false, {})), kDiskFull);
    EXPECT_EQ(Read(second_.Path() + "/tree/a"), "small");
    EXPECT_FALSE(std::filesystem::exists(second_.Path() + "/tree/b"));
}

TEST_F(LinuxFullDiskTest, AStreamTellsOfIt) {
    auto stream = files().CreateTextFile("S:\\log", false);
    ASSERT_TRUE(stream);
    const std::string line(1000, 'x');
    int number = 0;
    for (int i = 0; i < 4000 && number == 0; ++i)
        number = NumberOf((*stream)->Write(line));
    EXPECT_EQ(number, kDiskFull);
    EXPECT_EQ(NumberOf((*stream)->Close()), kDiskFull);
}

class LinuxAcrossDisksTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!second_.IsApartFrom(first_.Path())) GTEST_SKIP() << "no second disk here";
        machine_.emplace(WithDrives(first_.Path(), second_.Path()));
    }
    FileSystem& files() { return machine_->Parts().files; }

    TemporaryFolder first_;
    SecondDisk second_{"/dev/shm"};
    std::optional<LinuxPlatform> machine_;
};

TEST_F(LinuxAcrossDisksTest, AFileIsMovedWithItsTime) {
    Write(first_.Path() + "/a", "content");
    const timespec times[2] = {{1, 0}, {1'400'000'000, 5000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (first_.Path() + "/a").c_str(), times, 0), 0);
    ASSERT_TRUE(files().MoveFile("T:\\a", "S:\\b", {}));
    EXPECT_FALSE(std::filesystem::exists(first_.Path() + "/a"));
    EXPECT_EQ(Read(second_.Path() + "/b"), "content");
    EXPECT_EQ(files().Facts("S:\\b")->modified, 1'400'000'000'000'005'000);
    EXPECT_FALSE(files().Facts("T:\\A"));
    EXPECT_TRUE(files().Facts("S:\\B"));
}

TEST_F(LinuxAcrossDisksTest, AFileThatWeWroteToAfterALookIsMovedAsItIsNow) {
    Write(first_.Path() + "/new", "another content");
    for (int i = 0; i < 10; ++i) {
        const std::string name = "\\a" + std::to_string(i);
        Write(first_.Path() + "/a" + std::to_string(i), "content");
        ASSERT_TRUE(files().Facts("T:" + name));
        if (i % 2 == 0) {
            ASSERT_TRUE(files().CopyFile("T:\\new", "T:" + name, true, {}));
        } else {
            auto stream = files().OpenAsTextStream("T:" + name, OpenMode::kWrite);
            ASSERT_TRUE(stream);
            ASSERT_TRUE((*stream)->Write("another content"));
            ASSERT_TRUE((*stream)->Close());
        }
        EXPECT_EQ(NumberOf(files().MoveFile("T:" + name, "S:" + name, {})), 0) << i;
        EXPECT_EQ(Read(second_.Path() + "/a" + std::to_string(i)), "another content");
    }
}

TEST_F(LinuxAcrossDisksTest, ALinkIsMovedAsALink) {
    std::filesystem::create_symlink("/some/where", first_.Path() + "/a");
    ASSERT_TRUE(files().MoveFile("T:\\a", "S:\\a", {}));
    EXPECT_FALSE(std::filesystem::is_symlink(first_.Path() + "/a"));
    EXPECT_EQ(std::filesystem::read_symlink(second_.Path() + "/a"), "/some/where");
}

TEST_F(LinuxAcrossDisksTest, AFileIsNotMovedOntoAnother) {
    Write(first_.Path() + "/a", "content");
    Write(second_.Path() + "/A", "old");
    EXPECT_EQ(NumberOf(files().MoveFile("T:\\a", "S:\\a", {})), kAlreadyExists);
    EXPECT_EQ(Read(first_.Path() + "/a"), "content");
    EXPECT_EQ(Read(second_.Path() + "/A"), "old");
}

TEST_F(LinuxAcrossDisksTest, AFolderIsRefused) {
    std::filesystem::create_directory(first_.Path() + "/folder");
    Write(first_.Path() + "/folder/a", "content");
    EXPECT_EQ(NumberOf(files().MoveFolder("T:\\folder", "S:\\folder")), kPermissionDenied);
    EXPECT_EQ(Read(first_.Path() + "/folder/a"), "content");
    EXPECT_EQ(second_.Count(), 0u);
}

TEST_F(LinuxAcrossDisksTest, AnAbandonedMoveLeavesTheSource) {
    Write(first_.Path() + "/a", std::string(20'000'000, 'x'));
    const auto stop = [](const CopyProgress& progress) { return progress.bytesDone < 9'000'000; };
    EXPECT_EQ(NumberOf(files().MoveFile("T:\\a", "S:\\a", stop)), kInterrupted);
    EXPECT_EQ(Read(first_.Path() + "/a").size(), 20'000'000u);
    EXPECT_EQ(second_.Count(), 0u);
}

TEST_F(LinuxAcrossDisksTest, ASourceThatChangesMeanwhileStays) {
    Write(first_.Path() + "/a", std::string(20'000'000, 'x'));
    const auto change = [&](const CopyProgress& progress) {
        if (progress.bytesDone == progress.bytesTotal) Write(first_.Path() + "/a", "changed");
        return true;
    };
    EXPECT_EQ(NumberOf(files().MoveFile("T:\\a", "S:\\a", change)), kPermissionDenied);
    EXPECT_EQ(Read(first_.Path() + "/a"), "changed");
    EXPECT_EQ(second_.Count(), 0u);
}

TEST_F(LinuxAcrossDisksTest, HolesStayHoles) {
    Write(first_.Path() + "/a", "start");
    ASSERT_EQ(::truncate((first_.Path() + "/a").c_str(), 20'000'000), 0);
    ASSERT_TRUE(files().CopyFile("T:\\a", "S:\\a", false, {}));
    struct stat st {};
    ASSERT_EQ(::stat((second_.Path() + "/a").c_str(), &st), 0);
    EXPECT_EQ(st.st_size, 20'000'000);
    EXPECT_LT(st.st_blocks, 1000);
    EXPECT_TRUE(Read(second_.Path() + "/a") == Read(first_.Path() + "/a"));
}

class LinuxOtherUserTest : public testing::Test {
  protected:
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "not for this user";
        if (::chmod(disk_.Native("").c_str(), 0777) != 0 ||
            ::chmod(std::filesystem::path(disk_.Native("")).parent_path().c_str(), 0755) != 0) {
            GTEST_SKIP();
        }
    }
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }

    // What the call gives to a user who owns nothing here; -1 when that user can't come this far.
    int AsNobody(const std::function<int()>& call) {
        const pid_t child = ::fork();
        if (child == 0) {
            constexpr unsigned kNobody = 65534;
            const bool isNobody = ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0 &&
                                  ::access(disk_.Native("").c_str(), R_OK | W_OK | X_OK) == 0;
            ::_exit(isNobody ? call() : 255);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        const int result = WIFEXITED(status) ? WEXITSTATUS(status) : -2;
        return result == 255 ? -1 : result;
    }

    LinuxDisk disk_;
};

TEST_F(LinuxOtherUserTest, FilesOfOthersAreCopiedWithoutTheirOwnersRights) {
    disk_.MakeFile("a", "content");
    ASSERT_EQ(::chmod(disk_.Native("a").c_str(), 06755), 0);
    const int number =
        AsNobody([&] { return NumberOf(files().CopyFile(At("a"), At("b"), false, {})); });
    if (number < 0) GTEST_SKIP() << "the folder is out of reach";
    ASSERT_EQ(number, 0);
    struct stat st {};
    ASSERT_EQ(::stat(disk_.Native("b").c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, 65534u);
    EXPECT_EQ(st.st_mode & 07777, 0755u);
    EXPECT_EQ(disk_.Content("b"), "content");
}

TEST_F(LinuxOtherUserTest, WhatIsRefusedGives70AndLeavesNothing) {
    disk_.MakeFile("locked\\a", "content");
    disk_.MakeFile("secret", "content");
    disk_.MakeFile("hidden\\a", "content");
    ASSERT_EQ(::chmod(disk_.Native("secret").c_str(), 0600), 0);
    ASSERT_EQ(::chmod(disk_.Native("hidden").c_str(), 0700), 0);
    const struct {
        const char* what;
        std::function<int()> call;
    } rows[] = {
        {"open", [&] { return NumberOf(files().Open(At("hidden"))); }},
        {"facts", [&] { return NumberOf(files().Facts(At("hidden\\a"))); }},
        {"read", [&] { return NumberOf(files().ReadBytes(At("secret"), 0, 1)); }},
        {"copy from", [&] { return NumberOf(files().CopyFile(At("secret"), At("b"), false, {})); }},
        {"copy to",
         [&] { return NumberOf(files().CopyFile(At("locked\\a"), At("locked\\b"), false, {})); }},
        {"move", [&] { return NumberOf(files().MoveFile(At("locked\\a"), At("b"), {})); }},
        {"delete", [&] { return NumberOf(files().DeleteFile(At("locked\\a"), true)); }},
        {"attributes", [&] { return NumberOf(files().SetAttributes(At("secret"), kReadOnly)); }},
        {"folder", [&] { return NumberOf(files().CreateFolder(At("locked\\new"))); }},
        {"text", [&] { return NumberOf(files().CreateTextFile(At("locked\\t"), false)); }},
    };
    for (const auto& row : rows) {
        const int number = AsNobody(row.call);
        if (number < 0) GTEST_SKIP() << "the folder is out of reach";
        EXPECT_EQ(number, kPermissionDenied) << row.what;
    }
    EXPECT_EQ(disk_.Names("locked"), std::vector<std::string>{"a"});
    EXPECT_EQ(disk_.Names("").size(), 3u);
    EXPECT_EQ(disk_.Content("secret"), "content");
}

TEST_F(LinuxOtherUserTest, AnUnreadableSubfolderEndsTheCopyOfItsTree) {
    disk_.MakeFile("from\\a", "1");
    disk_.MakeFile("from\\b\\c", "2");
    ASSERT_EQ(::chmod(disk_.Native("from\\b").c_str(), 0700), 0);
    disk_.MakeFolder("to");
    ASSERT_EQ(::chmod(disk_.Native("to").c_str(), 0777), 0);
    const int number =
        AsNobody([&] { return NumberOf(files().CopyFolder(At("from"), At("to"), false, {})); });
    if (number < 0) GTEST_SKIP() << "the folder is out of reach";
    EXPECT_EQ(number, kPermissionDenied);
    EXPECT_EQ(disk_.Content("to\\a"), "1");
}

class LinuxForesightTest : public LinuxOtherUserTest {
  protected:
    // 0, or the number of the refusal, as nobody sees it.
    int Asked(const std::function<Result<void>(Foresight&)>& ask) {
        return AsNobody([&] {
            const auto told = ask(files().Foresee());
            return told ? 0 : told.error().number;
        });
    }
    void SetMode(std::string_view path, unsigned mode) {
        ASSERT_EQ(::chmod(disk_.Native(path).c_str(), mode), 0);
    }
};

TEST_F(LinuxForesightTest, AFileOfAnotherThatOnlyItsOwnerReads) {
    disk_.MakeFile("open", "x");
    disk_.MakeFile("closed", "x");
    SetMode("closed", 0600);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayRead(At("open")); }), 0);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayRead(At("closed")); }), 70);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayRead(At("none")); }), 53);
}

TEST_F(LinuxForesightTest, AFolderOfAnotherTakesNoNamesAndGivesNoneUp) {
    disk_.MakeFile("theirs\\a", "x");
    SetMode("theirs", 0755);
    disk_.MakeFile("all\\a", "x");
    SetMode("all", 0777);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayAddTo(At("theirs")); }), 70);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayTake(At("theirs\\a")); }), 70);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayAddTo(At("all")); }), 0);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayTake(At("all\\a")); }), 0);
}

TEST_F(LinuxForesightTest, AStickyFolderKeepsWhatIsOfAnother) {
    disk_.MakeFile("sticky\\a", "x");
    SetMode("sticky", 01777);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayAddTo(At("sticky")); }), 0);
    EXPECT_EQ(Asked([&](Foresight& f) { return f.MayTake(At("sticky\\a")); }), 70);
}

TEST(LinuxForesight, RoomIsThatOfTheDisk) {
    LinuxDisk disk;
    disk.MakeFile("a\\b", "x");
    auto& foresight = disk.Files().Foresee();
    const auto one = foresight.RoomIn(disk.Root());
    const auto other = foresight.RoomIn(disk.Root() + "\\a");
    ASSERT_EQ(one.has_value(), other.has_value());
    if (!one) GTEST_SKIP() << "this file system packs what it holds";
    EXPECT_EQ(one->disk, other->disk);
    const auto space = std::filesystem::space(disk.Native(""));
    // Others write and delete meanwhile.
    EXPECT_GT(one->bytes, space.available / 2);
    EXPECT_LE(one->bytes, space.capacity);
    EXPECT_FALSE(foresight.RoomIn(disk.Root() + "\\none"));
}

} // namespace tarvix::platform
