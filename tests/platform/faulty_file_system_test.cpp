#include "tests/machine/faulty_file_system.h"
#include "tests/machine/memory_file_system.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

namespace {
class FaultyFileSystemTest : public testing::Test {
  protected:
    FaultyFileSystemTest() { disk.AddFile("C:\\a", "one\r\n"); }

    int Copy(const std::string& to) {
        const auto copied = files.CopyFile("C:\\a", to, false, {});
        return copied ? 0 : copied.error().number;
    }
    int Facts(const std::string& path) {
        const auto facts = files.Facts(path);
        return facts ? 0 : facts.error().number;
    }

    MemoryFileSystem disk;
    FaultyFileSystem files{disk};
};
} // namespace

TEST_F(FaultyFileSystemTest, HandsOnWhatIsNotToFail) {
    EXPECT_EQ(Copy("C:\\b"), 0);
    EXPECT_EQ(disk.Content("C:\\b"), "one\r\n");
    EXPECT_EQ(files.Drives().size(), 1u);
}

TEST_F(FaultyFileSystemTest, FailsTheNthCallOfAll) {
    files.FailCall(2, kDeviceError);
    EXPECT_EQ(Facts("C:\\a"), 0);
    EXPECT_EQ(Copy("C:\\b"), kDeviceError);
    EXPECT_FALSE(disk.Exists("C:\\b"));
    EXPECT_EQ(Copy("C:\\b"), 0);
}

TEST_F(FaultyFileSystemTest, FailsTheThirdCopyFile) {
    files.FailCall("CopyFile", 3, kPermissionDenied);
    EXPECT_EQ(Copy("C:\\1"), 0);
    EXPECT_EQ(Facts("C:\\a"), 0);
    EXPECT_EQ(Copy("C:\\2"), 0);
    EXPECT_EQ(Copy("C:\\3"), kPermissionDenied);
    EXPECT_EQ(Copy("C:\\4"), 0);
    EXPECT_EQ(files.Count("CopyFile"), 4u);
    EXPECT_EQ(files.Count("Facts"), 1u);
    EXPECT_EQ(files.Count("MoveFile"), 0u);
    EXPECT_EQ(files.Count(), 5u);
}

TEST_F(FaultyFileSystemTest, FailsEachCallOfAnOperation) {
    files.FailAll("Facts", kDeviceError);
    EXPECT_EQ(Facts("C:\\a"), kDeviceError);
    EXPECT_EQ(Facts("C:\\a"), kDeviceError);
    EXPECT_EQ(Copy("C:\\b"), 0);
    files.ClearFaults();
    EXPECT_EQ(Facts("C:\\a"), 0);
}

TEST_F(FaultyFileSystemTest, FailsAllThatTouchesAPath) {
    disk.AddFolder("C:\\folder");
    files.FailPath("C:\\Folder\\B", kPermissionDenied);
    EXPECT_EQ(Copy("C:\\folder\\b"), kPermissionDenied);
    EXPECT_EQ(Facts("C:\\folder\\b\\"), kPermissionDenied);
    EXPECT_EQ(Facts("C:\\folder"), 0);
}

TEST_F(FaultyFileSystemTest, FailsOneOperationOnAPath) {
    files.FailPath("C:\\a", kPermissionDenied, "DeleteFile");
    EXPECT_EQ(Facts("C:\\a"), 0);
    EXPECT_FALSE(files.DeleteFile("C:\\a", true));
    EXPECT_TRUE(disk.Exists("C:\\a"));
}

TEST_F(FaultyFileSystemTest, RunsAnActionBeforeACall) {
    disk.AddFolder("C:\\folder");
    files.BeforeCall("CopyFile", 2, [&] { (void)disk.DeleteFile("C:\\a", true); });
    EXPECT_EQ(Copy("C:\\folder\\1"), 0);
    EXPECT_EQ(Copy("C:\\folder\\2"), kFileNotFound);
    EXPECT_FALSE(disk.Exists("C:\\a"));
}

TEST_F(FaultyFileSystemTest, AnActionMayCallAndSetFaultsItself) {
    files.BeforeCall(1, [&] {
        (void)files.Facts("C:\\a");
        files.FailCall(3, kDeviceError);
    });
    EXPECT_EQ(Copy("C:\\1"), 0);
    EXPECT_EQ(Copy("C:\\2"), kDeviceError);
    EXPECT_EQ(files.Count(), 3u);
}

TEST_F(FaultyFileSystemTest, OpenedFoldersCountAndFail) {
    files.FailCall("List", 1, kDeviceError);
    files.FailCall("FolderFacts", 2, kFileNotFound);
    auto folder = files.Open("C:\\");
    ASSERT_TRUE(folder);
    FolderListing listing;
    EXPECT_FALSE((*folder)->List(listing));
    EXPECT_TRUE((*folder)->List(listing));
    EXPECT_TRUE((*folder)->Facts("a"));
    EXPECT_FALSE((*folder)->Facts("a"));
    EXPECT_EQ(files.Count(), 5u);
    EXPECT_EQ(files.Calls().back().path, "C:\\a");
}

TEST_F(FaultyFileSystemTest, TextStreamsCountAndFail) {
    files.FailCall("Write", 2, kDiskFull);
    auto stream = files.CreateTextFile("C:\\log", false);
    ASSERT_TRUE(stream);
    EXPECT_TRUE((*stream)->Write("1"));
    EXPECT_EQ((*stream)->Write("2").error().number, kDiskFull);
    EXPECT_TRUE((*stream)->Close());
    EXPECT_EQ(disk.Content("C:\\log"), "1");
    files.FailCall("ReadLine", 1, kDeviceError);
    auto reader = files.OpenAsTextStream("C:\\a", OpenMode::kRead);
    ASSERT_TRUE(reader);
    EXPECT_EQ((*reader)->ReadLine().error().number, kDeviceError);
    EXPECT_EQ(*(*reader)->ReadLine(), "one");
    EXPECT_TRUE((*reader)->AtEndOfStream());
}

TEST_F(FaultyFileSystemTest, ResetCountsFromOneAndKeepsFaults) {
    files.FailCall(2, kDeviceError);
    EXPECT_EQ(Facts("C:\\a"), 0);
    files.ResetCounts();
    EXPECT_EQ(Facts("C:\\a"), 0);
    EXPECT_EQ(Facts("C:\\a"), kDeviceError);
}

TEST_F(FaultyFileSystemTest, EveryCallIsCountedAndCanFail) {
    const std::vector<std::function<bool()>> calls{
        [&] { return files.Facts("C:\\a").has_value(); },
        [&] { return files.TruePath("C:\\a").has_value(); },
        [&] { return files.ShortPath("C:\\a").has_value(); },
        [&] { return files.Open("C:\\").has_value(); },
        [&] { return files.SetAttributes("C:\\a", 0).has_value(); },
        [&] { return files.CopyFile("C:\\a", "C:\\b", false, {}).has_value(); },
        [&] { return files.CreateFolder("C:\\f").has_value(); },
        [&] { return files.CopyFolder("C:\\f", "C:\\g", false, {}).has_value(); },
        [&] { return files.MoveFile("C:\\b", "C:\\c", {}).has_value(); },
        [&] { return files.MoveFolder("C:\\f", "C:\\h").has_value(); },
        [&] { return files.RemoveFolder("C:\\h").has_value(); },
        [&] { return files.ReadBytes("C:\\a", 0, 1).has_value(); },
        [&] { return files.CreateTextFile("C:\\t", false).has_value(); },
        [&] { return files.OpenAsTextStream("C:\\a", OpenMode::kRead).has_value(); },
        [&] { return files.DeleteFile("C:\\a", false).has_value(); },
    };
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const auto before = disk.AllFiles();
        files.ResetCounts();
        files.FailCall(1, kDeviceError);
        EXPECT_FALSE(calls[i]()) << i;
        EXPECT_EQ(disk.AllFiles(), before) << i;
        EXPECT_EQ(files.Count(), 1u) << i;
        files.ClearFaults();
        EXPECT_TRUE(calls[i]()) << i;
    }
}

} // namespace tarvix::platform
