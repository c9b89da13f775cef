#include "tests/machine/memory_file_system.h"
#include "tests/platform/conformance.h"

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;
} // namespace

TEST(MemoryFileSystem, AddMakesTheFoldersOnTheWay) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\a\\b\\c.txt", "text").modified = 5;
    disk.AddFolder("C:\\a\\empty");
    EXPECT_EQ(disk.AllFiles(), List{"C:\\a\\b\\c.txt"});
    EXPECT_EQ(disk.AllFolders(), (List{"C:\\a", "C:\\a\\b", "C:\\a\\empty"}));
    EXPECT_EQ(disk.Content("C:\\a\\b\\c.txt"), "text");
    EXPECT_EQ(disk.Facts("C:\\a\\b\\c.txt")->modified, 5);
    EXPECT_EQ(disk.Content("C:\\a"), std::nullopt);
}

TEST(MemoryFileSystem, AddReplacesAFileAndKeepsAFolder) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\a.txt", "old");
    disk.AddFile("C:\\a.txt", "new");
    disk.AddFile("C:\\folder\\b.txt");
    disk.AddFolder("C:\\folder");
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\a.txt", "C:\\folder\\b.txt"}));
    EXPECT_EQ(disk.Content("C:\\a.txt"), "new");
}

TEST(MemoryFileSystem, AddAfterItsFolderWasRemovedMakesTheFolderAgain) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\folder\\a.txt");
    ASSERT_TRUE(disk.DeleteFile("C:\\folder\\a.txt", false));
    ASSERT_TRUE(disk.RemoveFolder("C:\\folder"));
    disk.AddFile("C:\\folder\\b.txt");
    EXPECT_EQ(disk.AllFiles(), List{"C:\\folder\\b.txt"});
    ASSERT_TRUE(disk.MoveFolder("C:\\folder", "C:\\moved"));
    disk.AddFile("C:\\folder\\c.txt");
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\folder\\c.txt", "C:\\moved\\b.txt"}));
}

TEST(MemoryFileSystem, AFileOfATerabyteTakesNoMemory) {
    MemoryFileSystem disk;
    disk.AddFileOfSize("C:\\big", std::uint64_t{1} << 40).content = "head";
    EXPECT_EQ(disk.Facts("C:\\big")->size, std::uint64_t{1} << 40);
    EXPECT_EQ(*disk.ReadBytes("C:\\big", 2, 4), std::string("ad\0\0", 4));
    ASSERT_TRUE(disk.CopyFile("C:\\big", "C:\\copy", false, {}));
    EXPECT_EQ(disk.Facts("C:\\copy")->size, std::uint64_t{1} << 40);
}

TEST(MemoryFileSystem, ADiskThatIsFullGives61AndLeavesNothing) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\a", "12345");
    disk.SetCapacity("C:", 8);
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\a", "C:\\b", false, {})), kDiskFull);
    EXPECT_EQ(disk.AllFiles(), List{"C:\\a"});
    auto stream = disk.CreateTextFile("C:\\log", false);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("123456"));
    EXPECT_EQ(NumberOf((*stream)->Flush()), kDiskFull);
    EXPECT_EQ(NumberOf((*stream)->Close()), kDiskFull);
    disk.SetCapacity("C:", 10);
    EXPECT_TRUE(disk.CopyFile("C:\\a", "C:\\b", false, {}));
}

TEST(MemoryFileSystem, CopyTreeStopsWhereTheDiskIsFull) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\from\\a", "12345");
    disk.AddFile("C:\\from\\b", "12345");
    disk.AddFolder("C:\\to");
    disk.SetCapacity("C:", 16);
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\from", "C:\\to", false, {})), kDiskFull);
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\from\\a", "C:\\from\\b", "C:\\to\\a"}));
}

TEST(MemoryFileSystem, NothingIsWrittenToACdRom) {
    MemoryFileSystem disk;
    disk.AddDrive("R:", DriveType::kCdRom, "iso9660");
    disk.AddFile("R:\\a", "1");
    disk.AddFile("C:\\b", "2");
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\b", "R:\\b", true, {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\b", "R:\\a", true, {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.MoveFile("R:\\a", "C:\\a", {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.MoveFile("R:\\a", "R:\\c", {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.DeleteFile("R:\\a", true)), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.CreateFolder("R:\\f")), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.SetAttributes("R:\\a", 0)), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.CreateTextFile("R:\\t", true)), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.OpenAsTextStream("R:\\a", OpenMode::kAppend)), kPermissionDenied);
    EXPECT_TRUE(disk.CopyFile("R:\\a", "C:\\a", false, {}));
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\a", "C:\\b", "R:\\a"}));
}

TEST(MemoryFileSystem, WhatExistsOnACdRomIsToldBeforeThatNothingCanBeWritten) {
    MemoryFileSystem disk;
    disk.AddDrive("R:", DriveType::kCdRom, "iso9660");
    disk.AddFile("R:\\a", "1");
    disk.AddFile("R:\\folder\\b", "1");
    disk.AddFile("C:\\folder\\b", "2");
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\folder\\b", "R:\\a", false, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\folder\\b", "R:\\folder", true, {})), kPathFileAccess);
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\folder", "R:\\folder", false, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\folder", "R:\\new", false, {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.MoveFile("C:\\folder\\b", "R:\\a", {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(disk.MoveFile("R:\\a", "C:\\folder\\b", {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(disk.CreateFolder("R:\\folder")), kPathFileAccess);
    EXPECT_EQ(NumberOf(disk.CreateTextFile("R:\\a", false)), kAlreadyExists);
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\folder\\b", "R:\\a", "R:\\folder\\b"}));
}

TEST(MemoryFileSystem, NothingIsWrittenThroughALinkToACdRom) {
    MemoryFileSystem disk;
    disk.AddDrive("R:", DriveType::kCdRom, "iso9660");
    disk.AddFile("R:\\a", "1");
    disk.AddLink("C:\\link", "R:\\a");
    EXPECT_EQ(NumberOf(disk.OpenAsTextStream("C:\\link", OpenMode::kAppend)), kPermissionDenied);
    EXPECT_TRUE(disk.OpenAsTextStream("C:\\link", OpenMode::kRead));
}

TEST(MemoryFileSystem, CopyTreeSkipsAMountAndTellsOfItAfterTheRest) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\from\\a", "1");
    disk.AddFile("C:\\from\\mount\\b", "2");
    disk.AddFile("C:\\from\\z", "3");
    disk.AddFolder("C:\\from\\mount").isBoundary = true;
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\from", "C:\\to", false, {})), kPathFileAccess);
    EXPECT_EQ(disk.AllFolders(), (List{"C:\\from", "C:\\from\\mount", "C:\\to"}));
    EXPECT_EQ(disk.Content("C:\\to\\z"), "3");
}

TEST(MemoryFileSystem, ADriveThatIsNotReadyGives71AndAMissingOne76) {
    MemoryFileSystem disk;
    disk.AddDrive("E:", DriveType::kRemovable, "vfat");
    disk.SetReady("E:", false);
    EXPECT_EQ(NumberOf(disk.Facts("E:\\a")), kDiskNotReady);
    EXPECT_EQ(NumberOf(disk.Facts("Z:\\a")), kPathNotFound);
    EXPECT_EQ(NumberOf(disk.Open("Z:\\")), kPathNotFound);
}

TEST(MemoryFileSystem, DrivesAreTold) {
    MemoryFileSystem disk;
    disk.AddDrive("e:", DriveType::kRemovable, "vfat");
    disk.AddDrive("\\\\server\\share", DriveType::kNetwork, "cifs");
    const auto drives = disk.Drives();
    ASSERT_EQ(drives.size(), 3u);
    EXPECT_EQ(drives[0].path, "C:");
    EXPECT_EQ(drives[1].path, "E:");
    EXPECT_EQ(drives[1].type, DriveType::kRemovable);
    EXPECT_EQ(drives[1].nativeMount, "/media/e");
    EXPECT_EQ(drives[2].nativeMount, "/mnt/server/share");
}

TEST(MemoryFileSystem, SharesAreReachedByTheirPath) {
    MemoryFileSystem disk;
    disk.AddDrive("\\\\Server\\Share");
    disk.AddFile("\\\\server\\share\\Folder\\a.txt", "1");
    EXPECT_EQ(*disk.TruePath("\\\\server\\SHARE\\folder\\A.txt"),
              "\\\\server\\SHARE\\Folder\\a.txt");
}

TEST(MemoryFileSystem, MoveAcrossDrivesCopiesAFileAndRefusesAFolder) {
    MemoryFileSystem disk;
    disk.AddDrive("E:");
    disk.AddFile("C:\\a.txt", "1").modified = 7;
    disk.AddFile("C:\\folder\\b.txt", "2");
    ASSERT_TRUE(disk.MoveFile("C:\\a.txt", "E:\\a.txt", {}));
    EXPECT_EQ(disk.Facts("E:\\a.txt")->modified, 7);
    EXPECT_EQ(NumberOf(disk.MoveFolder("C:\\folder", "E:\\folder")), kPermissionDenied);
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\folder\\b.txt", "E:\\a.txt"}));
}

TEST(MemoryFileSystem, AnAbandonedMoveAcrossDrivesLeavesTheSource) {
    MemoryFileSystem disk;
    disk.AddDrive("E:");
    disk.AddFile("C:\\a.txt", "1");
    const auto no = [](const CopyProgress&) { return false; };
    EXPECT_EQ(NumberOf(disk.MoveFile("C:\\a.txt", "E:\\a.txt", no)), kInterrupted);
    EXPECT_EQ(disk.AllFiles(), List{"C:\\a.txt"});
}

TEST(MemoryFileSystem, WhatCannotBeReadIsNotCopied) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\from\\a").isUnreadable = true;
    disk.AddFile("C:\\from\\b");
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\from\\a", "C:\\c", false, {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\from", "C:\\to", false, {})), kPermissionDenied);
    EXPECT_EQ(NumberOf(disk.ReadBytes("C:\\from\\a", 0, 1)), kPermissionDenied);
    EXPECT_EQ(disk.AllFiles(), (List{"C:\\from\\a", "C:\\from\\b"}));
}

TEST(MemoryFileSystem, BoundariesAreListed) {
    MemoryFileSystem disk;
    disk.AddFolder("C:\\proc").isBoundary = true;
    FolderListing listing;
    ASSERT_TRUE((*disk.Open("C:\\"))->List(listing));
    EXPECT_TRUE(listing[0].isFolder && listing[0].isBoundary);
}

TEST(MemoryFileSystem, CopyTreeKeepsNamesThatCannotBeOpenedApart) {
    MemoryFileSystem disk;
    disk.AddUnopenable("C:\\from", "caf?", "caf\xE9", "1");
    disk.AddUnopenable("C:\\from", "caf?", "caf\xE8", "2");
    disk.AddNative("C:\\from", "plain:name", "3");
    ASSERT_TRUE(disk.CopyFolder("C:\\from", "C:\\to", false, {}));
    EXPECT_EQ(disk.Node("C:\\to")->Children().size(), 3u);
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\from", "C:\\to", false, {})), kAlreadyExists);
    EXPECT_EQ(disk.Content("C:\\to\\plain\uF03Aname"), "3");
}

TEST(MemoryFileSystem, RelativeLinksStartAtTheirFolder) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\a\\b\\file", "1");
    disk.AddLink("C:\\a\\link", "b");
    disk.AddLink("C:\\a\\b\\up", "..\\b");
    EXPECT_TRUE(disk.Exists("C:\\a\\link\\file"));
    EXPECT_TRUE(disk.Exists("C:\\a\\b\\up\\file"));
}

TEST(MemoryFileSystem, RecordsWhatWasDone) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\a", "1");
    (void)disk.Facts("C:\\a");
    (void)disk.Open("C:\\");
    (void)disk.ReadBytes("C:\\a", 0, 1);
    (void)disk.CopyFile("C:\\a", "C:\\b", false, {});
    (void)disk.CopyFile("C:\\a", "C:\\b", false, {});
    (void)disk.MoveFile("C:\\b", "C:\\c", {});
    (void)disk.DeleteFile("C:\\a", false);
    const MemoryCalls& calls = disk.Calls();
    EXPECT_EQ(calls.facts, 1u);
    EXPECT_EQ(calls.listed, List{"C:\\"});
    EXPECT_EQ(calls.read, List{"C:\\a"});
    EXPECT_EQ(calls.made, (List{"C:\\b", "C:\\c"}));
    EXPECT_EQ(calls.removed, (List{"C:\\b", "C:\\a"}));
}

TEST(MemoryFileSystem, NewObjectsAreDatedByTheClock) {
    MemoryFileSystem disk;
    FileTime now = 100;
    disk.UseClock([&] { return now; });
    ASSERT_TRUE(disk.CreateFolder("C:\\folder"));
    disk.AddFile("C:\\a");
    now = 200;
    ASSERT_TRUE(disk.CopyFile("C:\\a", "C:\\b", false, {}));
    EXPECT_EQ(disk.Facts("C:\\folder")->modified, 100);
    EXPECT_EQ(disk.Facts("C:\\b")->modified, 100);
    EXPECT_EQ(disk.Facts("C:\\b")->created, 200);
}

TEST(MemoryFileSystem, AFolderThatVanishesDuringACopyEndsItWith76) {
    MemoryFileSystem disk;
    disk.AddFile("C:\\from\\a", "1");
    disk.AddFolder("C:\\to");
    const auto vanish = [&](const CopyProgress&) {
        return disk.RemoveFolder("C:\\to").has_value();
    };
    EXPECT_EQ(NumberOf(disk.CopyFile("C:\\from\\a", "C:\\to\\a", false, vanish)), kPathNotFound);
    disk.AddFolder("C:\\to");
    EXPECT_EQ(NumberOf(disk.CopyFolder("C:\\from", "C:\\to", false, vanish)), kPathNotFound);
    EXPECT_EQ(disk.AllFiles(), List{"C:\\from\\a"});
}

TEST(MemoryFileSystem, HoldsAQuarterOfAMillionFiles) {
    MemoryFileSystem disk;
    for (int folder = 0; folder < 20'000; ++folder) {
        const std::string path = "C:\\music\\artist " + std::to_string(folder / 20) + "\\album " +
                                 std::to_string(folder) + "\\";
        for (int song = 0; song < 13; ++song) {
            disk.AddFileOfSize(path + "song " + std::to_string(song) + ".mp3", 1000);
        }
    }
    EXPECT_EQ(disk.AllFiles().size(), 260'000u);
    EXPECT_EQ(disk.Facts("C:\\music\\ARTIST 999\\album 19999\\song 12.mp3")->size, 1000u);
}

} // namespace tarvix::platform
