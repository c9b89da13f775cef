#include "tests/platform/linux_disk.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>

namespace tarvix::platform {

namespace {
class LinuxCopyTest : public testing::TestWithParam<CopyRoads> {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }
    Result<void> Copy(std::string_view from, std::string_view to, bool overwrite = false) {
        return files().CopyFile(At(from), At(to), overwrite, {});
    }
    struct stat StatOf(std::string_view path) const {
        struct stat st {};
        EXPECT_EQ(::lstat(disk_.Native(path).c_str(), &st), 0) << path;
        return st;
    }

    LinuxDisk disk_{GetParam()};
};

constexpr CopyRoads kPlainRoads{.unnamedParts = false,
                                .clones = false,
                                .kernelCopies = false,
                                .renameNoReplace = false,
                                .links = false};

// The data and holes of a file: where each part begins.
std::vector<off_t> Layout(const std::string& native) {
    std::vector<off_t> layout;
    const int fd = ::open(native.c_str(), O_RDONLY | O_CLOEXEC);
    off_t at = 0;
    while (true) {
        at = ::lseek(fd, at, layout.size() % 2 == 0 ? SEEK_DATA : SEEK_HOLE);
        if (at < 0) break;
        layout.push_back(at);
    }
    ::close(fd);
    return layout;
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Roads, LinuxCopyTest, testing::Values(CopyRoads{}, kPlainRoads),
                         [](const auto& made) { return made.index == 0 ? "All" : "Plain"; });

TEST_P(LinuxCopyTest, HolesStayHoles) {
    disk_.MakeFile("a.img", "start");
    const std::string native = disk_.Native("a.img");
    ASSERT_EQ(::truncate(native.c_str(), 30'000'000), 0);
    const int fd = ::open(native.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::pwrite(fd, "middle", 6, 12'000'000), 6);
    ::close(fd);
    const auto layout = Layout(native);
    if (layout.size() < 3) GTEST_SKIP() << "no holes on this disk";
    std::uint64_t last = 0;
    const auto observer = [&](const CopyProgress& progress) {
        last = progress.bytesDone;
        return true;
    };
    ASSERT_TRUE(files().CopyFile(At("a.img"), At("b.img"), false, observer));
    EXPECT_EQ(Layout(disk_.Native("b.img")), layout);
    EXPECT_EQ(StatOf("b.img").st_size, 30'000'000);
    EXPECT_TRUE(disk_.Content("a.img") == disk_.Content("b.img"));
    EXPECT_LE(last, 30'000'000u);
    EXPECT_NE(files().Facts(At("b.img"))->attributes & kSparse, 0u);
}

TEST_P(LinuxCopyTest, AFileThatIsAllHole) {
    disk_.MakeFile("a.img", "");
    ASSERT_EQ(::truncate(disk_.Native("a.img").c_str(), 5'000'000), 0);
    ASSERT_TRUE(Copy("a.img", "b.img"));
    EXPECT_EQ(StatOf("b.img").st_size, 5'000'000);
    EXPECT_EQ(StatOf("b.img").st_blocks, StatOf("a.img").st_blocks);
}

TEST_P(LinuxCopyTest, ContentOfManySizes) {
    for (const std::size_t size :
         {std::size_t{1}, std::size_t{4096}, std::size_t{131071}, std::size_t{131072},
          std::size_t{131073}, std::size_t{262144}, std::size_t{9'000'001}}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * 31 + i / 251 + 1);
        disk_.MakeFile("a", content);
        ASSERT_TRUE(Copy("a", "b", true)) << size;
        EXPECT_TRUE(disk_.Content("b") == content) << size;
    }
}

TEST_P(LinuxCopyTest, ModeAndTimesAreKept) {
    for (const unsigned mode : {0600u, 0644u, 0444u, 0755u, 0777u, 0000u, 02755u, 04711u, 01644u}) {
        disk_.MakeFile("a", "x");
        ASSERT_EQ(::chmod(disk_.Native("a").c_str(), mode), 0);
        if (::geteuid() != 0 && (mode & 0400) == 0) continue;
        const timespec times[2] = {{1'500'000'000, 123}, {1'400'000'000, 987'654'321}};
        ASSERT_EQ(::utimensat(AT_FDCWD, disk_.Native("a").c_str(), times, 0), 0);
        ASSERT_TRUE(Copy("a", "b"));
        const struct stat st = StatOf("b");
        EXPECT_EQ(st.st_mode & 07777, mode);
        EXPECT_EQ(st.st_mtim.tv_sec, 1'400'000'000);
        EXPECT_EQ(st.st_mtim.tv_nsec, 987'654'321);
        EXPECT_EQ(st.st_atim.tv_sec, 1'500'000'000);
        EXPECT_EQ(StatOf("a").st_atim.tv_sec, 1'500'000'000);
        ASSERT_TRUE(files().DeleteFile(At("a"), true));
        ASSERT_TRUE(files().DeleteFile(At("b"), true));
    }
}

TEST_P(LinuxCopyTest, OwnersAreKeptBySuperusers) {
    if (::geteuid() != 0) GTEST_SKIP() << "not for this user";
    disk_.MakeFile("a", "x");
    disk_.MakeLink("link", "a");
    ASSERT_EQ(::chown(disk_.Native("a").c_str(), 1234, 2345), 0);
    ASSERT_EQ(::lchown(disk_.Native("link").c_str(), 1234, 2345), 0);
    ASSERT_EQ(::chmod(disk_.Native("a").c_str(), 06755), 0);
    ASSERT_TRUE(Copy("a", "b"));
    ASSERT_TRUE(Copy("link", "link 2"));
    EXPECT_EQ(StatOf("b").st_uid, 1234u);
    EXPECT_EQ(StatOf("b").st_gid, 2345u);
    EXPECT_EQ(StatOf("b").st_mode & 07777, 06755u);
    EXPECT_EQ(StatOf("link 2").st_uid, 1234u);
}

TEST_P(LinuxCopyTest, LinksKeepTheirTextAndTime) {
    std::filesystem::create_symlink("../some where/else", disk_.Native("link"));
    disk_.SetModified("link", 1'300'000'000'000'000'000);
    ASSERT_TRUE(Copy("link", "copy"));
    EXPECT_EQ(std::filesystem::read_symlink(disk_.Native("copy")), "../some where/else");
    EXPECT_EQ(files().Facts(At("copy"))->modified, 1'300'000'000'000'000'000);
    disk_.MakeFile("file", "old");
    EXPECT_EQ(NumberOf(Copy("link", "file")), kAlreadyExists);
    EXPECT_EQ(disk_.Content("file"), "old");
    ASSERT_TRUE(Copy("link", "file", true));
    EXPECT_EQ(std::filesystem::read_symlink(disk_.Native("file")), "../some where/else");
    EXPECT_EQ(disk_.Names("").size(), 3u);
}

TEST_P(LinuxCopyTest, ManyAndLargeExtendedAttributesAreKept) {
    disk_.MakeFile("a", "x");
    if (!disk_.SetExtendedAttribute("a", "user.first", "1")) GTEST_SKIP() << "not on this disk";
    int kept = 1;
    for (int i = 0; i < 60; ++i) {
        const std::string name = "user.a long enough name to fill the list " + std::to_string(i);
        if (!disk_.SetExtendedAttribute("a", name, std::to_string(i))) break;
        ++kept;
    }
    ASSERT_TRUE(Copy("a", "b"));
    EXPECT_EQ(disk_.ExtendedAttribute("b", "user.first"), "1");
    for (int i = 0; i + 1 < kept; ++i) {
        const std::string name = "user.a long enough name to fill the list " + std::to_string(i);
        EXPECT_EQ(disk_.ExtendedAttribute("b", name), std::to_string(i));
    }
}

TEST_P(LinuxCopyTest, AccessListsAreKeptAndNotInherited) {
    disk_.MakeFile("with", "x");
    disk_.MakeFile("without", "x");
    disk_.MakeFolder("to");
    const auto run = [&](const std::string& options, std::string_view path) {
        const std::string command =
            "setfacl " + options + " '" + disk_.Native(path) + "' 2>/dev/null";
        return std::system(command.c_str()) == 0;
    };
    if (!run("-m u:1234:rw", "with")) GTEST_SKIP() << "no access lists here";
    ASSERT_TRUE(run("-d -m u:4321:rwx", "to"));
    ASSERT_EQ(::chmod(disk_.Native("without").c_str(), 0640), 0);
    ASSERT_TRUE(Copy("with", "to\\with"));
    ASSERT_TRUE(Copy("without", "to\\without"));
    constexpr const char* kList = "system.posix_acl_access";
    EXPECT_EQ(disk_.ExtendedAttribute("to\\with", kList), disk_.ExtendedAttribute("with", kList));
    EXPECT_EQ(disk_.ExtendedAttribute("to\\without", kList), std::nullopt);
    EXPECT_EQ(StatOf("to\\without").st_mode & 07777, 0640u);
    disk_.MakeFolder("folder");
    ASSERT_TRUE(files().CopyFolder(At("folder"), At("to\\folder"), false, {}));
    EXPECT_EQ(disk_.ExtendedAttribute("to\\folder", "system.posix_acl_default"), std::nullopt);
    EXPECT_EQ(StatOf("to\\folder").st_mode, StatOf("folder").st_mode);
}

TEST_P(LinuxCopyTest, OneFileUnderTwoNamesIsNotCopiedOntoItself) {
    disk_.MakeFile("a", "content");
    ASSERT_EQ(::link(disk_.Native("a").c_str(), disk_.Native("b").c_str()), 0);
    EXPECT_EQ(NumberOf(Copy("a", "b", true)), kPathFileAccess);
    EXPECT_EQ(disk_.Content("a"), "content");
    EXPECT_EQ(disk_.Content("b"), "content");
}

TEST_P(LinuxCopyTest, AMergedFolderKeepsItsOwnModeAndANewOneGetsTheSources) {
    disk_.MakeFile("from\\inner\\a", "1");
    disk_.MakeFolder("from\\new");
    disk_.MakeFolder("to\\inner");
    ASSERT_EQ(::chmod(disk_.Native("from\\inner").c_str(), 0700), 0);
    ASSERT_EQ(::chmod(disk_.Native("from\\new").c_str(), 02555), 0);
    ASSERT_EQ(::chmod(disk_.Native("to\\inner").c_str(), 0751), 0);
    ASSERT_TRUE(files().CopyFolder(At("from"), At("to"), false, {}));
    EXPECT_EQ(StatOf("to\\inner").st_mode & 07777, 0751u);
    EXPECT_EQ(StatOf("to\\new").st_mode & 07777, 02555u);
    EXPECT_EQ(disk_.Content("to\\inner\\a"), "1");
}

TEST_P(LinuxCopyTest, AKilledCopyLeavesNothingUnderTheFinalName) {
    disk_.MakeFile("a.bin", std::string(40'000'000, 'x'));
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const auto stop = [&](const CopyProgress& progress) {
            if (progress.bytesDone < 8'000'000) return true;
            if (::write(ends[1], "!", 1) != 1) ::_exit(1);
            while (true)
                ::pause();
        };
        static_cast<void>(files().CopyFile(At("a.bin"), At("b.bin"), true, stop));
        ::_exit(0);
    }
    char byte = 0;
    EXPECT_EQ(::read(ends[0], &byte, 1), 1);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    ::close(ends[1]);
    EXPECT_FALSE(files().Facts(At("b.bin")));
    EXPECT_EQ(disk_.Content("a.bin")->size(), 40'000'000u);
    for (const std::string& name : disk_.Names(""))
        EXPECT_TRUE(name == "a.bin" || name.starts_with(".tarvix-")) << name;
    if (GetParam().unnamedParts) {
        EXPECT_EQ(disk_.Names("").size(), 1u);
    }
}

TEST_P(LinuxCopyTest, DevicesAreNeverCopied) {
    EXPECT_EQ(NumberOf(files().CopyFile("C:\\dev\\null", At("b"), false, {})), kPathFileAccess);
    EXPECT_TRUE(disk_.Names("").empty());
}

TEST_P(LinuxCopyTest, FilesThatSayTheyAreEmptyAreReadAllTheSame) {
    if (!files().Facts("C:\\proc\\self\\mountinfo")) GTEST_SKIP() << "no /proc here";
    ASSERT_TRUE(files().CopyFile("C:\\proc\\self\\mountinfo", At("b"), false, {}));
    EXPECT_GT(disk_.Content("b")->size(), 0u);
}

// ---- sources ----

TEST_P(LinuxCopyTest, ACopyHasTheWholeModeAndItsSourceKeepsIt) {
    for (const unsigned mode : {0464u, 0575u, 04555u, 0444u, 0640u}) {
        disk_.MakeFile("a.txt", "1");
        ASSERT_EQ(::chmod(disk_.Native("a.txt").c_str(), mode), 0);
        ASSERT_TRUE(Copy("a.txt", "b.txt"));
        EXPECT_EQ(StatOf("a.txt").st_mode & 07777, mode);
        EXPECT_EQ(StatOf("b.txt").st_mode & 07777, mode);
        for (const char* name : {"a.txt", "b.txt"})
            ::unlink(disk_.Native(name).c_str());
    }
}

// ---- what killed runs leave ----

// A process that has been and gone.
pid_t GoneProcess() {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

TEST_P(LinuxCopyTest, CopiesOfKilledRunsAreTakenAway) {
    const std::string gone = std::to_string(GoneProcess());
    const std::string own = std::to_string(::getpid());
    disk_.MakeFile("to\\.tarvix-" + gone + "-1.part", "half");
    disk_.MakeFile("to\\.tarvix-" + gone + "-2.part\\sub\\a.txt", "half");
    disk_.MakeFile("to\\.tarvix-" + own + "-99.part", "in work");
    disk_.MakeFile("to\\.tarvix-notes.part", "a user's");
    disk_.MakeFile("to\\.tarvix-" + gone + "-1.part.txt", "a user's");
    disk_.MakeFile("outside\\b.txt", "kept");
    disk_.MakeLink("to\\.tarvix-" + gone + "-2.part\\link", "outside");
    ::chmod(disk_.Native("to\\.tarvix-" + gone + "-2.part\\sub").c_str(), 0555);
    auto removed = files().RemoveAbandoned(At("to"));
    ASSERT_TRUE(removed);
    std::sort(removed->begin(), removed->end());
    EXPECT_EQ(*removed, (std::vector{At("to\\.tarvix-" + gone + "-1.part"),
                                     At("to\\.tarvix-" + gone + "-2.part")}));
    auto names = disk_.Names("to");
    std::sort(names.begin(), names.end());
    std::vector<std::string> kept{".tarvix-" + gone + "-1.part.txt", ".tarvix-" + own + "-99.part",
                                  ".tarvix-notes.part"};
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(names, kept);
    EXPECT_EQ(disk_.Content("outside\\b.txt"), "kept");
}

TEST_P(LinuxCopyTest, WhatAnotherRunHoldsIsNotTakenAway) {
    const std::string name = "to\\.tarvix-" + std::to_string(GoneProcess()) + "-1.part";
    disk_.MakeFile(name, "in work elsewhere");
    const int fd = ::open(disk_.Native(name).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(fd, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(files().RemoveAbandoned(At("to")), std::vector<std::string>());
    ::close(fd);
    EXPECT_EQ(files().RemoveAbandoned(At("to")), std::vector{At(name)});
}

} // namespace tarvix::platform
