// What is kept of a folder's names while we rename in it: always what the disk holds.

#include "tests/platform/linux_disk.h"
#include "text/case.h"

#include <algorithm>
#include <map>
#include <random>

namespace tarvix::platform {

namespace {
class LinuxRenameTest : public testing::Test {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }
    Result<void> Move(std::string_view from, std::string_view to) {
        return files().MoveFile(At("f\\" + std::string(from)), At("f\\" + std::string(to)), {});
    }
    void Make(std::string_view name) { disk_.MakeFile("f\\" + std::string(name), name); }
    // Makes the folder's names known.
    void Know() { ASSERT_FALSE(files().Facts(At("f\\No such name in here"))); }
    // Each name, asked for in each case, leads to what it leads to for a machine that knows nothing
    // yet; what is free seems so to neither when it is taken.
    void ExpectAsOnDisk(const std::vector<std::string>& names) {
        LinuxOptions options;
        options.extraDrives = {{'T', std::filesystem::path(disk_.Native("")).parent_path()}};
        options.hasDesktop = false;
        LinuxPlatform fresh(std::move(options));
        for (const std::string& name : names) {
            for (const std::string& asked : {name, text::Upper(name), text::Lower(name)}) {
                const auto wanted = fresh.Parts().files.TruePath(At("f\\" + asked));
                const auto found = files().TruePath(At("f\\" + asked));
                EXPECT_EQ(found.value_or("none"), wanted.value_or("none")) << asked;
                EXPECT_EQ(NumberOf(found), NumberOf(wanted)) << asked;
                EXPECT_FALSE(wanted && files().KnownFree(At("f\\" + asked))) << asked;
            }
        }
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names = disk_.Names("f");
        std::sort(names.begin(), names.end());
        return names;
    }

    LinuxDisk disk_;
};

using List = std::vector<std::string>;
} // namespace

TEST_F(LinuxRenameTest, AChain) {
    Make("a");
    Know();
    ASSERT_TRUE(Move("a", "b"));
    ExpectAsOnDisk({"a", "b", "c"});
    ASSERT_TRUE(Move("b", "c"));
    ExpectAsOnDisk({"a", "b", "c"});
    ASSERT_TRUE(Move("C", "a"));
    ExpectAsOnDisk({"a", "b", "c"});
    EXPECT_EQ(Names(), List{"a"});
    EXPECT_EQ(disk_.Content("f\\a"), "a");
}

TEST_F(LinuxRenameTest, ASwapByThreeRenames) {
    Make("a");
    Make("b");
    Know();
    EXPECT_EQ(NumberOf(Move("a", "b")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Move("a", "B")), kAlreadyExists);
    ASSERT_TRUE(Move("a", "between"));
    ASSERT_TRUE(Move("b", "a"));
    ASSERT_TRUE(Move("between", "b"));
    ExpectAsOnDisk({"a", "b", "between"});
    EXPECT_EQ(Names(), (List{"a", "b"}));
    EXPECT_EQ(disk_.Content("f\\a"), "b");
    EXPECT_EQ(disk_.Content("f\\b"), "a");
}

TEST_F(LinuxRenameTest, AnotherCaseOfItself) {
    Make("song.txt");
    Know();
    for (const char* name : {"Song.txt", "SONG.TXT", "song.TXT", "song.txt"}) {
        ASSERT_TRUE(Move("song.txt", name)) << name;
        EXPECT_EQ(Names(), List{name});
        EXPECT_EQ(files().TruePath(At("f\\sOnG.tXt")).value_or("none"),
                  At("f\\" + std::string(name)));
        ExpectAsOnDisk({"song.txt"});
    }
    EXPECT_EQ(disk_.Content("f\\song.txt"), "song.txt");
}

TEST_F(LinuxRenameTest, AnotherCaseOfItselfBehindAnotherRename) {
    Make("a");
    Know();
    ASSERT_TRUE(Move("a", "b"));
    ASSERT_TRUE(Move("b", "B"));
    ASSERT_TRUE(Move("b", "A"));
    ASSERT_TRUE(Move("a", "a"));
    ExpectAsOnDisk({"a", "b"});
    EXPECT_EQ(Names(), List{"a"}); // from "A" to what was asked for
}

TEST_F(LinuxRenameTest, AFolderWithTwoNamesEqualButForCase) {
    Make("song");
    Make("Song");
    Make("other");
    Know();
    EXPECT_EQ(NumberOf(Move("other", "SONG")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Move("song", "SONG")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Move("song", "Song")), kAlreadyExists);
    ExpectAsOnDisk({"song", "other"});
    ASSERT_TRUE(Move("song", "tune"));
    ExpectAsOnDisk({"song", "tune", "other"});
    ASSERT_TRUE(Move("Song", "SONG"));
    ExpectAsOnDisk({"song", "tune", "other"});
    EXPECT_EQ(NumberOf(Move("tune", "song")), kAlreadyExists);
    EXPECT_EQ(Names(), (List{"SONG", "other", "tune"}));
    EXPECT_EQ(disk_.Content("f\\SONG"), "Song");
    EXPECT_EQ(disk_.Content("f\\tune"), "song");
}

TEST_F(LinuxRenameTest, NamesBeyondAscii) {
    Make("\u00E9t\u00E9");
    Make("stra\u00DFe");
    Know();
    ASSERT_TRUE(Move("\u00E9t\u00E9", "\u00C9T\u00C9"));
    ExpectAsOnDisk({"\u00E9t\u00E9", "\u00E8t\u00E8", "stra\u00DFe"});
    EXPECT_EQ(NumberOf(Move("stra\u00DFe", "\u00E9t\u00E9")), kAlreadyExists);
    ASSERT_TRUE(Move("\u00E9T\u00E9", "\u00E8t\u00E8"));
    ExpectAsOnDisk({"\u00E9t\u00E9", "\u00E8t\u00E8", "stra\u00DFe", "strasse"});
    ASSERT_TRUE(Move("stra\u00DFe", "strasse"));
    ExpectAsOnDisk({"\u00E9t\u00E9", "\u00E8t\u00E8", "stra\u00DFe", "strasse"});
    EXPECT_EQ(Names(), (List{"strasse", "\u00E8t\u00E8"}));
}

TEST_F(LinuxRenameTest, NamesWithReservedCharacters) {
    Make("a\uF03Ab");
    Know();
    ASSERT_TRUE(Move("a\uF03Ab", "A\uF03FB"));
    ExpectAsOnDisk({"a\uF03Ab", "a\uF03Fb", "ab"});
    ASSERT_TRUE(Move("a\uF03Fb", "a\uF05Cb"));
    ExpectAsOnDisk({"a\uF03Ab", "a\uF03Fb", "a\uF05Cb"});
    EXPECT_TRUE(std::filesystem::exists(disk_.Native("f") + "/a\\b"));
}

TEST_F(LinuxRenameTest, NamesThatAreNoTextStandAside) {
    Make("a");
    // The last lies where carried characters go.
    for (const char* name : {"/caf\xE9", "/caf\xE8", "/x\uF03Ay"})
        std::ofstream(disk_.Native("f") + name) << "theirs";
    Know();
    ASSERT_TRUE(Move("a", "caf\u00E9"));
    ExpectAsOnDisk({"a", "caf\u00E9", "caf\u00E8", "x\uF03Ay"});
    ASSERT_TRUE(Move("caf\u00E9", "X\uF03AY"));
    ExpectAsOnDisk({"a", "caf\u00E9", "x\uF03Ay"});
    ASSERT_TRUE(Move("x\uF03Ay", "b"));
    ExpectAsOnDisk({"a", "b", "x\uF03Ay"});
    EXPECT_EQ(NumberOf(Move("b", "caf\uF0E9")), kAlreadyExists);
    EXPECT_EQ(disk_.Content("f\\b"), "a");
    for (const char* name : {"/caf\xE9", "/caf\xE8", "/x\uF03Ay"})
        EXPECT_TRUE(std::filesystem::exists(disk_.Native("f") + name)) << name;
}

TEST_F(LinuxRenameTest, IntoAnotherFolderAndBack) {
    Make("a");
    disk_.MakeFile("g\\B", "in g");
    Know();
    ASSERT_FALSE(files().Facts(At("g\\No such name in here")));
    EXPECT_EQ(NumberOf(files().MoveFile(At("f\\a"), At("g\\b"), {})), kAlreadyExists);
    ASSERT_TRUE(files().MoveFile(At("f\\a"), At("g\\A"), {}));
    ExpectAsOnDisk({"a", "b"});
    EXPECT_EQ(files().TruePath(At("g\\a")).value_or("none"), At("g\\A"));
    ASSERT_TRUE(files().MoveFile(At("g\\b"), At("f\\a"), {}));
    ExpectAsOnDisk({"a", "b"});
    EXPECT_FALSE(files().Facts(At("g\\b")));
    EXPECT_EQ(disk_.Content("f\\a"), "in g");
    EXPECT_EQ(disk_.Content("g\\A"), "a");
}

TEST_F(LinuxRenameTest, FoldersTakeWhatIsKnownOfThemAlong) {
    disk_.MakeFile("f\\one\\x", "1");
    disk_.MakeFile("f\\two\\y", "2");
    Know();
    EXPECT_EQ(files().TruePath(At("f\\ONE\\X")).value_or("none"), At("f\\one\\x"));
    EXPECT_EQ(files().TruePath(At("f\\TWO\\Y")).value_or("none"), At("f\\two\\y"));
    ASSERT_TRUE(files().MoveFolder(At("f\\one"), At("f\\between")));
    ASSERT_TRUE(files().MoveFolder(At("f\\two"), At("f\\One")));
    ASSERT_TRUE(files().MoveFolder(At("f\\between"), At("f\\two")));
    ASSERT_TRUE(files().MoveFolder(At("f\\two"), At("f\\TWO")));
    ExpectAsOnDisk({"one", "two", "between", "one\\x", "one\\y", "two\\x", "two\\y"});
    EXPECT_EQ(Names(), (List{"One", "TWO"}));
    EXPECT_EQ(disk_.Content("f\\TWO\\x"), "1");
}

// Every file keeps its content through all of it; a rename is refused exactly when another file has
// a name like the new one.
TEST_F(LinuxRenameTest, RandomRenames) {
    const List names{"a", "A", "b", "B", "\u00E9", "\u00C9", "\u00E8", "c\uF03A", "C\uF03A", "d"};
    std::map<std::string, std::string> onDisk; // name to content
    for (const char* name : {"a", "b", "\u00E9", "c\uF03A"}) {
        Make(name);
        onDisk[name] = name;
    }
    std::mt19937 random(3);
    for (int round = 0; round < 1500; ++round) {
        const std::string& from = names[random() % names.size()];
        const std::string& to = names[random() % names.size()];
        auto source = onDisk.find(from);
        if (source == onDisk.end()) {
            source = std::find_if(onDisk.begin(), onDisk.end(), [&](const auto& entry) {
                return text::Upper(entry.first) == text::Upper(from);
            });
        }
        const bool isTaken = std::any_of(onDisk.begin(), onDisk.end(), [&](const auto& entry) {
            return text::Upper(entry.first) == text::Upper(to) &&
                   (source == onDisk.end() || entry.first != source->first);
        });
        if (round % 3 == 0) files().KnownFree(At("f\\" + to));
        if (round % 5 == 0) static_cast<void>(files().LookAt(At("f\\" + from)));
        const int number = NumberOf(Move(from, to));
        if (source == onDisk.end()) {
            ASSERT_EQ(number, kFileNotFound) << from << " to " << to;
        } else if (isTaken) {
            ASSERT_EQ(number, kAlreadyExists) << from << " to " << to;
        } else if (source->first != to) {
            ASSERT_EQ(number, 0) << from << " to " << to;
            const std::string content = source->second;
            onDisk.erase(source);
            onDisk[to] = content;
        }
        List left;
        for (const auto& [name, content] : onDisk) {
            ASSERT_EQ(disk_.Content("f\\" + name), content) << from << " to " << to;
            left.push_back(name);
        }
        ASSERT_EQ(Names(), left) << from << " to " << to;
        if (round % 50 == 0) ExpectAsOnDisk(names);
    }
}

} // namespace tarvix::platform
