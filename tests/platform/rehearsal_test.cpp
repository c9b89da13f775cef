#include "platform/dir.h"
#include "platform/rehearsal/rehearsal_trash.h"
#include "platform/short_names.h"
#include "tests/machine/memory_trash.h"
#include "text/paths.h"

#include <gtest/gtest.h>

#include <random>

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

template <class T>
int Number(const Result<T>& result) {
    return result ? 0 : result.error().number;
}

void Collect(FileSystem& files, const std::string& folder, List& out) {
    FolderListing listing;
    const auto opened = files.Open(folder);
    ASSERT_TRUE(opened) << folder;
    ASSERT_TRUE((*opened)->List(listing));
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        const std::string path = text::JoinPath(folder, listing[i].name);
        const auto facts = files.Facts(path);
        const auto inFolder = (*opened)->Facts(listing[i].name);
        ASSERT_TRUE(facts) << path;
        ASSERT_TRUE(inFolder) << path;
        EXPECT_EQ(facts->attributes, inFolder->attributes) << path;
        EXPECT_EQ(facts->IsFolder(), listing[i].isFolder) << path;
        out.push_back(path + " " + std::to_string(facts->attributes) + " " +
                      std::to_string(facts->size));
        if (!facts->IsFolder()) out.back() += " " + *files.ReadBytes(path, 0, 100);
        if (facts->IsFolder()) Collect(files, path, out);
    }
}

// All objects of two drives, in `Dir` order, with what is known of them.
List TreeOf(FileSystem& files) {
    List out;
    for (const char* drive : {"C:\\", "E:\\"})
        Collect(files, drive, out);
    return out;
}

void Fill(MemoryFileSystem& disk) {
    disk.AddDrive("E:");
    disk.AddDrive("R:", DriveType::kCdRom);
    disk.AddFile("R:\\rom.txt", "rom");
    for (const char* folder : {"C:\\a", "C:\\a\\b", "C:\\B", "E:\\a", "E:\\a\\Long folder name"}) {
        for (const char* name : {"x.txt", "X.txt", ".y", "Long name 1.txt"}) {
            const std::string path = text::JoinPath(folder, name);
            disk.AddFile(path, path);
        }
    }
    disk.AddFile("C:\\a\\r", "kept").attributes |= kReadOnly;
    disk.AddFolder("C:\\empty");
}

class RehearsalTest : public testing::Test {
  protected:
    RehearsalTest() { Fill(disk); }

    void ExpectDiskUntouched() {
        MemoryFileSystem fresh;
        Fill(fresh);
        EXPECT_EQ(TreeOf(disk), TreeOf(fresh));
        EXPECT_TRUE(disk.Calls().made.empty());
        EXPECT_TRUE(disk.Calls().removed.empty());
        EXPECT_TRUE(disk.Calls().recycled.empty());
    }
    int Recycle(const std::string& path) { return Number(trash.Recycle(std::vector{path}, {})); }
    bool Exists(std::string_view path) { return files.Facts(path).has_value(); }

    MemoryFileSystem disk;
    RehearsalFileSystem files{disk};
    MemoryTrash bin{disk};
    RehearsalTrash trash{files, bin};
};
} // namespace

TEST_F(RehearsalTest, ChangesNothingAndRecordsInOrder) {
    ASSERT_TRUE(files.CreateFolder("C:\\new"));
    ASSERT_TRUE(files.CopyFile("C:\\a\\x.txt", "C:\\new\\x.txt", false, {}));
    ASSERT_TRUE(files.SetAttributes("C:\\new\\x.txt", kReadOnly));
    ASSERT_TRUE(files.MoveFile("C:\\a\\X.txt", "E:\\X.txt", {}));
    ASSERT_TRUE(files.MoveFolder("C:\\a\\b", "C:\\new\\b"));
    ASSERT_TRUE(files.CopyFolder("C:\\new", "C:\\newer", false, {}));
    ASSERT_TRUE(files.DeleteFile("C:\\B\\x.txt", false));
    ASSERT_TRUE(files.RemoveFolder("C:\\empty"));
    ASSERT_EQ(Recycle("E:\\a"), 0);
    ASSERT_TRUE(files.CreateTextFile("C:\\t", false));
    using enum TreeChange;
    const std::vector<RehearsedStep> expected{
        {kCreateFolder, "C:\\new", ""},
        {kCopyFile, "C:\\a\\x.txt", "C:\\new\\x.txt"},
        {kSetAttributes, "C:\\new\\x.txt", ""},
        {kMoveFile, "C:\\a\\X.txt", "E:\\X.txt"},
        {kMoveFolder, "C:\\a\\b", "C:\\new\\b"},
        {kCopyFolder, "C:\\new", "C:\\newer"},
        {kDeleteFile, "C:\\B\\x.txt", ""},
        {kRemoveFolder, "C:\\empty", ""},
        {kRecycle, "E:\\a", ""},
        {kWriteText, "C:\\t", ""},
    };
    ASSERT_EQ(files.Steps().Size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(files.Steps()[i].operation, expected[i].operation) << i;
        EXPECT_EQ(files.Steps()[i].from, expected[i].from) << i;
        EXPECT_EQ(files.Steps()[i].to, expected[i].to) << i;
    }
    ExpectDiskUntouched();
}

TEST_F(RehearsalTest, WhatFailsIsNotRecorded) {
    EXPECT_EQ(Number(files.CopyFile("C:\\a\\x.txt", "C:\\a\\X.TXT", false, {})), kAlreadyExists);
    EXPECT_EQ(Number(files.MoveFile("C:\\missing", "C:\\x", {})), kFileNotFound);
    EXPECT_EQ(Number(files.MoveFolder("C:\\a", "E:\\b")), kPermissionDenied);
    EXPECT_EQ(Number(files.MoveFolder("C:\\a", "C:\\a\\b\\c")), kPathFileAccess);
    EXPECT_EQ(Number(files.CopyFile("C:\\a\\x.txt", "R:\\x.txt", false, {})), kPermissionDenied);
    EXPECT_EQ(Recycle("R:\\rom.txt"), kPermissionDenied);
    EXPECT_EQ(Recycle("C:\\a\\z"), kFileNotFound);
    EXPECT_EQ(files.Steps().Size(), 0u);
    ExpectDiskUntouched();
}

TEST_F(RehearsalTest, AMovedFolderTakesItsContentAndWhatWasChangedInItBefore) {
    ASSERT_TRUE(files.MoveFile("C:\\a\\b\\x.txt", "C:\\a\\b\\renamed", {}));
    ASSERT_EQ(Recycle("C:\\a\\b\\.y"), 0);
    ASSERT_TRUE(files.MoveFolder("C:\\a", "C:\\moved"));
    ASSERT_TRUE(files.MoveFolder("C:\\moved\\b", "C:\\inner"));
    EXPECT_FALSE(Exists("C:\\a"));
    EXPECT_TRUE(Exists("C:\\moved\\x.txt"));
    EXPECT_FALSE(Exists("C:\\moved\\b"));
    EXPECT_EQ(*files.ReadBytes("C:\\inner\\RENAMED", 0, 100), "C:\\a\\b\\x.txt");
    EXPECT_FALSE(Exists("C:\\inner\\.y"));
    EXPECT_EQ(*files.TruePath("c:\\INNER\\long NAME 1.TXT"), "C:\\inner\\Long name 1.txt");
}

TEST_F(RehearsalTest, ACopyOfACopyIsReadThroughToTheFirst) {
    ASSERT_TRUE(files.CopyFile("C:\\a\\x.txt", "E:\\1", false, {}));
    ASSERT_TRUE(files.CopyFile("E:\\1", "E:\\2", false, {}));
    ASSERT_TRUE(files.DeleteFile("E:\\1", false));
    ASSERT_TRUE(files.DeleteFile("C:\\a\\x.txt", false));
    EXPECT_EQ(*files.ReadBytes("E:\\2", 5, 3), "x.t");
    EXPECT_EQ(files.Facts("E:\\2")->size, 10u);
}

TEST_F(RehearsalTest, ShortNamesFollowTheChanges) {
    const std::string shortName = ShortNameOf("Long name 1.txt");
    EXPECT_TRUE(Exists("C:\\a\\" + shortName));
    ASSERT_TRUE(files.MoveFile("C:\\a\\Long name 1.txt", "C:\\a\\Long name 2.txt", {}));
    EXPECT_FALSE(Exists("C:\\a\\" + shortName));
    EXPECT_EQ(*files.TruePath("C:\\a\\" + ShortNameOf("Long name 2.txt")),
              "C:\\a\\Long name 2.txt");
    EXPECT_EQ(*files.ShortPath("C:\\a\\Long name 2.txt"),
              "C:\\a\\" + ShortNameOf("Long name 2.txt"));
}

TEST_F(RehearsalTest, TheExistenceTestAndTheEnumerationSeeTheChanges) {
    ASSERT_TRUE(files.MoveFile("C:\\a\\b\\x.txt", "C:\\empty\\New.TXT", {}));
    ASSERT_EQ(Recycle("C:\\B"), 0);
    EXPECT_EQ(DirName(files, "C:\\empty\\new.txt", kDirFiles), "New.TXT");
    EXPECT_EQ(DirName(files, "C:\\B", kDirAll), "");
    Dir dir(files);
    EXPECT_EQ(dir.First("C:\\empty\\*", kDirAll), "New.TXT");
    EXPECT_EQ(dir.Next(), "");
}

TEST_F(RehearsalTest, AFolderOpenedBeforeAChangeShowsItToo) {
    const auto opened = files.Open("C:\\empty");
    ASSERT_TRUE(opened);
    ASSERT_TRUE(files.CopyFile("C:\\a\\x.txt", "C:\\empty\\x.txt", false, {}));
    FolderListing listing;
    ASSERT_TRUE((*opened)->List(listing));
    EXPECT_EQ(listing.Size(), 1u);
    EXPECT_TRUE((*opened)->Facts("x.txt"));
}

TEST_F(RehearsalTest, UntilTheFirstChangeTheRealDiskIsSeenAsItIs) {
    EXPECT_FALSE(Exists("C:\\late"));
    EXPECT_EQ(Number(files.CopyFile("C:\\late", "C:\\later", false, {})), kFileNotFound);
    disk.AddFile("C:\\late", "1");
    EXPECT_TRUE(Exists("C:\\late"));
    EXPECT_TRUE(files.CopyFile("C:\\late", "C:\\later", false, {}));
}

TEST_F(RehearsalTest, ClearStartsAgain) {
    ASSERT_EQ(Recycle("C:\\a"), 0);
    files.Clear();
    EXPECT_TRUE(Exists("C:\\a\\x.txt"));
    EXPECT_EQ(files.Steps().Size(), 0u);
}

TEST_F(RehearsalTest, ATextThatIsWrittenCanBeReadAndAddedTo) {
    {
        const auto stream = files.CreateTextFile("C:\\list.txt", false);
        ASSERT_TRUE(stream);
        ASSERT_TRUE((*stream)->Write("one\r\n"));
    }
    {
        const auto stream = files.OpenAsTextStream("C:\\list.txt", OpenMode::kAppend);
        ASSERT_TRUE((*stream)->Write("two\r\n"));
        ASSERT_TRUE((*stream)->Close());
    }
    {
        const auto stream = files.OpenAsTextStream("C:\\a\\x.txt", OpenMode::kAppend);
        ASSERT_TRUE((*stream)->Write("!"));
    }
    ASSERT_TRUE(files.MoveFile("C:\\list.txt", "C:\\moved.txt", {}));
    const auto stream = files.OpenAsTextStream("C:\\moved.txt", OpenMode::kRead);
    EXPECT_EQ(*(*stream)->ReadLine(), "one");
    EXPECT_EQ(*(*stream)->ReadLine(), "two");
    EXPECT_TRUE((*stream)->AtEndOfStream());
    EXPECT_EQ(files.Facts("C:\\moved.txt")->size, 10u);
    EXPECT_EQ(*files.ReadBytes("C:\\a\\x.txt", 0, 100), "C:\\a\\x.txt!");
    ExpectDiskUntouched();
}

TEST_F(RehearsalTest, WhatTheObserverOfACopyMakesIsSeen) {
    const auto rival = [&](const CopyProgress&) {
        return files.CreateFolder("C:\\empty\\x.txt").has_value();
    };
    EXPECT_EQ(Number(files.CopyFile("C:\\a\\x.txt", "C:\\empty\\x.txt", false, rival)),
              kAlreadyExists);
    EXPECT_TRUE(files.Facts("C:\\empty\\x.txt")->IsFolder());
}

TEST_F(RehearsalTest, AFolderCopyThatFailsHalfwayShowsWhatItCopied) {
    int calls = 0;
    const auto once = [&](const CopyProgress&) { return ++calls < 2; };
    EXPECT_EQ(Number(files.CopyFolder("C:\\a", "C:\\empty", false, once)), kInterrupted);
    EXPECT_EQ(files.Steps().Size(), 1u);
    EXPECT_TRUE(Exists("C:\\empty\\.y"));
    EXPECT_FALSE(Exists("C:\\empty\\x.txt"));
}

TEST_F(RehearsalTest, AMountInACopiedFolderIsSkipped) {
    disk.AddFolder("C:\\a\\b").isBoundary = true;
    EXPECT_EQ(Number(files.CopyFolder("C:\\a", "C:\\copy", false, {})), kPathFileAccess);
    EXPECT_FALSE(Exists("C:\\copy\\b"));
    EXPECT_TRUE(Exists("C:\\copy\\x.txt"));
}

TEST_F(RehearsalTest, WhatLiesInAFolderOfAStrangeNameIsCopiedWithIt) {
    auto strange = disk.Node("C:\\B")->Detach();
    disk.Node("C:\\a")->Attach(std::move(strange), "B?", "B\xE1");
    ASSERT_TRUE(files.CopyFolder("C:\\a", "C:\\copy", false, {}));
    const std::string road = "C:\\copy\\" + ShortNameOf("B?");
    EXPECT_EQ(*files.TruePath(road + "\\x.txt"), "C:\\copy\\B?\\x.txt");
    EXPECT_EQ(*files.ReadBytes(road + "\\x.txt", 0, 100), "C:\\B\\x.txt");
}

// Whatever is done in whatever order: the rehearsal says what the disk would have said.
class RehearsalPropertyTest : public testing::TestWithParam<unsigned> {
  protected:
    RehearsalPropertyTest() : random_(GetParam()) {
        Fill(real_);
        Fill(below_);
    }

    std::size_t Pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    std::string Path() {
        static const List kDrives{"C:", "c:", "E:", "C:", "R:"};
        static const List kNames{"a",  "A", "b",     "B",  "x.txt", "X.txt", "x.TXT",
                                 ".y", "r", "empty", "n1", "N1",    "n2",    "Long name 1.txt"};
        std::string path = kDrives[Pick(kDrives.size())];
        for (std::size_t depth = Pick(3) + 1; depth > 0; --depth)
            path += "\\" + kNames[Pick(kNames.size())];
        return path;
    }
    int Change(FileSystem& files, Trash& trash, std::size_t kind, const std::string& from,
               const std::string& to, bool flag) {
        switch (kind) {
        case 0:
            return Number(files.CopyFile(from, to, flag, {}));
        case 1:
            return Number(files.CopyFolder(from, to, flag, {}));
        case 2:
            return Number(files.MoveFile(from, to, {}));
        case 3:
            return Number(files.MoveFolder(from, to));
        case 4:
            return Number(files.DeleteFile(from, flag));
        case 5:
            return Number(files.RemoveFolder(from));
        case 6:
            return Number(files.CreateFolder(to));
        case 7:
            return Number(files.SetAttributes(from, flag ? kReadOnly | kSystem : kArchive));
        case 8:
            return Number(trash.Recycle(std::vector{from}, {}));
        default:
            return Write(files, to, flag);
        }
    }
    static int Write(FileSystem& files, const std::string& path, bool flag) {
        const auto stream = files.CreateTextFile(path, flag);
        if (!stream) return stream.error().number;
        return Number((*stream)->Write("written"));
    }

    std::mt19937 random_;
    MemoryFileSystem real_;
    MemoryTrash bin_{real_};
    MemoryFileSystem below_;
    RehearsalFileSystem rehearsed_{below_};
    MemoryTrash belowBin_{below_};
    RehearsalTrash rehearsedBin_{rehearsed_, belowBin_};
};

TEST_P(RehearsalPropertyTest, GivesTheResultsOfTheRealDisk) {
    int changed = 0;
    for (int i = 0; i < 300; ++i) {
        const std::size_t kind = Pick(10);
        // Deleting is rarer, so that something is left to work on.
        if ((kind == 4 || kind == 8) && Pick(3) != 0) continue;
        const std::string from = Path();
        const std::string to = Path();
        const bool flag = Pick(2) == 0;
        const int expected = Change(real_, bin_, kind, from, to, flag);
        const int number = Change(rehearsed_, rehearsedBin_, kind, from, to, flag);
        ASSERT_EQ(number, expected) << "step " << i << " kind " << kind << " from " << from
                                    << " to " << to << " flag " << flag;
        changed += number == 0 ? 1 : 0;
        const std::string asked = Path();
        const auto facts = real_.Facts(asked);
        const auto rehearsed = rehearsed_.Facts(asked);
        ASSERT_EQ(Number(rehearsed), Number(facts)) << asked;
        if (facts) {
            ASSERT_EQ(rehearsed->attributes, facts->attributes) << asked;
            ASSERT_EQ(*rehearsed_.TruePath(asked), *real_.TruePath(asked));
            ASSERT_EQ(*rehearsed_.ShortPath(asked), *real_.ShortPath(asked));
        }
    }
    EXPECT_GT(changed, 10);
    EXPECT_EQ(TreeOf(rehearsed_), TreeOf(real_));
    MemoryFileSystem fresh;
    Fill(fresh);
    EXPECT_EQ(TreeOf(below_), TreeOf(fresh));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RehearsalPropertyTest, testing::Range(1u, 61u));

} // namespace tarvix::platform
