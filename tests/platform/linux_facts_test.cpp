#include "tests/platform/linux_disk.h"

#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace tarvix::platform {

namespace {
class LinuxFactsTest : public testing::Test {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }
    std::uint32_t AttributesOf(std::string_view path) {
        const auto facts = files().Facts(At(path));
        EXPECT_TRUE(facts) << path;
        return facts ? facts->attributes : 0;
    }

    LinuxDisk disk_;
};
} // namespace

TEST_F(LinuxFactsTest, PlainObjects) {
    disk_.MakeFile("a.txt", "1");
    disk_.MakeFolder("folder");
    disk_.MakeFile(".hidden", "");
    EXPECT_EQ(AttributesOf("a.txt"), std::uint32_t{kArchive});
    EXPECT_EQ(AttributesOf("folder"), std::uint32_t{kFolder});
    EXPECT_EQ(AttributesOf(".hidden"), std::uint32_t{kArchive | kHidden});
}

TEST_F(LinuxFactsTest, ReadOnlyIsTheOwnersRight) {
    disk_.MakeFile("a.txt", "1");
    ASSERT_EQ(::chmod(disk_.Native("a.txt").c_str(), 0466), 0);
    EXPECT_NE(AttributesOf("a.txt") & kReadOnly, 0u);
    ASSERT_EQ(::chmod(disk_.Native("a.txt").c_str(), 0200), 0);
    EXPECT_EQ(AttributesOf("a.txt") & kReadOnly, 0u);
}

TEST_F(LinuxFactsTest, SettingReadOnlyTakesAllWritingRightsAndClearingGivesTheOwners) {
    disk_.MakeFile("a.txt", "1");
    ASSERT_EQ(::chmod(disk_.Native("a.txt").c_str(), 0775), 0);
    ASSERT_TRUE(files().SetAttributes(At("a.txt"), kReadOnly | kArchive));
    struct stat st {};
    ASSERT_EQ(::stat(disk_.Native("a.txt").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0555u);
    ASSERT_TRUE(files().SetAttributes(At("a.txt"), kHidden | kSystem));
    ASSERT_EQ(::stat(disk_.Native("a.txt").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0755u);
}

TEST_F(LinuxFactsTest, SettingAttributesOfALinkLeavesItsTarget) {
    disk_.MakeFile("a.txt", "1");
    disk_.MakeLink("link", "a.txt");
    ASSERT_TRUE(files().SetAttributes(At("link"), kReadOnly));
    EXPECT_EQ(AttributesOf("a.txt") & kReadOnly, 0u);
    EXPECT_EQ(AttributesOf("link") & kReadOnly, 0u);
}

TEST_F(LinuxFactsTest, ImmutableIsReadOnlyAndCannotBeDeleted) {
    disk_.MakeFile("a.txt", "1");
    const int fd = ::open(disk_.Native("a.txt").c_str(), O_RDONLY | O_CLOEXEC);
    int flags = 0;
    ASSERT_GE(fd, 0);
    if (::ioctl(fd, FS_IOC_GETFLAGS, &flags) != 0 ||
        ::ioctl(fd, FS_IOC_SETFLAGS, &(flags |= FS_IMMUTABLE_FL)) != 0) {
        ::close(fd);
        GTEST_SKIP() << "not on this disk or for this user";
    }
    EXPECT_NE(AttributesOf("a.txt") & kReadOnly, 0u);
    EXPECT_EQ(NumberOf(files().DeleteFile(At("a.txt"), false)), kPermissionDenied);
    EXPECT_EQ(NumberOf(files().DeleteFile(At("a.txt"), true)), kPermissionDenied);
    EXPECT_EQ(NumberOf(files().MoveFile(At("a.txt"), At("b.txt"), {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(files().SetAttributes(At("a.txt"), kReadOnly)), kPermissionDenied);
    EXPECT_EQ(disk_.Content("a.txt"), "1");
    flags &= ~FS_IMMUTABLE_FL;
    EXPECT_EQ(::ioctl(fd, FS_IOC_SETFLAGS, &flags), 0);
    ::close(fd);
}

TEST_F(LinuxFactsTest, OnlyFilesWithHolesAreSparse) {
    disk_.MakeFile("small", std::string(100, 'x'));
    disk_.MakeFile("full", std::string(100'000, 'x'));
    disk_.MakeFile("holes", "start");
    ASSERT_EQ(::truncate(disk_.Native("holes").c_str(), 10'000'000), 0);
    disk_.MakeFile("tiny hole", "");
    ASSERT_EQ(::truncate(disk_.Native("tiny hole").c_str(), 1000), 0);
    struct stat st {};
    ASSERT_EQ(::stat(disk_.Native("holes").c_str(), &st), 0);
    if (st.st_blocks * 512 >= st.st_size) GTEST_SKIP() << "no holes on this disk";
    EXPECT_EQ(AttributesOf("small") & kSparse, 0u);
    EXPECT_EQ(AttributesOf("full") & kSparse, 0u);
    EXPECT_NE(AttributesOf("holes") & kSparse, 0u);
    EXPECT_EQ(AttributesOf("tiny hole") & kSparse, 0u);
}

TEST_F(LinuxFactsTest, LinksFifosAndSockets) {
    disk_.MakeFile("a.txt", "12345");
    disk_.MakeFolder("folder");
    disk_.MakeLink("to file", "a.txt");
    disk_.MakeLink("to folder", "folder");
    disk_.MakeLink("to nothing", "missing");
    ASSERT_TRUE(disk_.MakeFifo("pipe"));
    EXPECT_EQ(AttributesOf("to file"), std::uint32_t{kAlias | kArchive});
    EXPECT_EQ(AttributesOf("to folder"), std::uint32_t{kAlias | kFolder});
    EXPECT_EQ(AttributesOf("to nothing"), std::uint32_t{kAlias | kArchive});
    EXPECT_EQ(AttributesOf("pipe"), std::uint32_t{kSpecial | kArchive});
    EXPECT_EQ(files().Facts(At("to file"))->size, 0u);
    const auto device = files().Facts("C:\\dev\\null");
    ASSERT_TRUE(device);
    EXPECT_NE(device->attributes & kSpecial, 0u);
}

TEST_F(LinuxFactsTest, DatesAreThoseOfTheDisk) {
    disk_.MakeFile("a.txt", "1");
    struct statx st {};
    ASSERT_EQ(::statx(AT_FDCWD, disk_.Native("a.txt").c_str(), 0, STATX_ALL, &st), 0);
    const auto facts = files().Facts(At("a.txt"));
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->modified, st.stx_mtime.tv_sec * 1'000'000'000 + st.stx_mtime.tv_nsec);
    EXPECT_EQ(facts->accessed, st.stx_atime.tv_sec * 1'000'000'000 + st.stx_atime.tv_nsec);
    const bool isKept = (st.stx_mask & STATX_BTIME) != 0;
    EXPECT_EQ(facts->created,
              isKept ? st.stx_btime.tv_sec * 1'000'000'000 + st.stx_btime.tv_nsec : kNoTime);
}

TEST_F(LinuxFactsTest, AFolderHeldOpenIsReadTwice) {
    disk_.MakeFile("folder\\a", "");
    const auto folder = files().Open(At("folder"));
    ASSERT_TRUE(folder);
    FolderListing listing;
    ASSERT_TRUE((*folder)->List(listing));
    EXPECT_EQ(listing.Size(), 1u);
    disk_.MakeFile("folder\\b", "");
    ASSERT_TRUE((*folder)->List(listing));
    EXPECT_EQ(listing.Size(), 2u);
    EXPECT_EQ(NumberOf((*folder)->Facts("A")), kFileNotFound);
    EXPECT_EQ(NumberOf((*folder)->Facts("a?")), kBadFileName);
    EXPECT_EQ(NumberOf((*folder)->Facts(std::string(300, 'x'))), kBadFileName);
}

TEST_F(LinuxFactsTest, AFolderOfManyNamesIsListedWhole) {
    for (int i = 0; i < 3000; ++i)
        disk_.MakeFile("many\\A name that is not short " + std::to_string(i), "");
    FolderListing listing;
    ASSERT_TRUE((*files().Open(At("many")))->List(listing));
    EXPECT_EQ(listing.Size(), 3000u);
}

} // namespace tarvix::platform
