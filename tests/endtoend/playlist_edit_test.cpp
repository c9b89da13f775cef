#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;

// A home with a year of music, some of which it has twice.
class PlaylistEditTest : public Trees {
  protected:
    PlaylistEditTest() {
        beforeProgram = [home = Root().string()] { ::setenv("HOME", home.c_str(), 1); };
        AddFile("Music/Years/1987-001 Beat It Now.mp3", std::string(1000, 'a'));
        AddFile("Music/Years/1987-004 Größe über alles.mp3", std::string(500, 'b'));
        AddFile("Music/Old/Beat It Now.mp3", std::string(1200, 'c'));
        AddFile("Music/Old/x/beat it Now copy.mp3", std::string(1001, 'd'));
    }
    Outcome WritePlaylist() {
        return Run({"playlist", "1987", "--in", (Root() / "Music/Years").string(), "--similar",
                    (Root() / "Music/Old").string(), "--deviation", "50000", "--to",
                    (Root() / "Music/1987.m3u").string(), "--yes"});
    }
};

TEST_F(PlaylistEditTest, TheExampleOfTheDocumentsRenamesAndRecyclesByAPlaylist) {
    const Outcome written = WritePlaylist();
    ASSERT_EQ(written.exitCode, 0) << written.err;
    const std::string playlist = ReadAll(Root() / "Music/1987.m3u");
    EXPECT_THAT(Shown(playlist),
                HasSubstr("\r\nROOT/Music/Years/1987-001 Beat It Now.mp3\r\n"
                          "# Possible Duplicate - ROOT/Music/Old/Beat It Now.mp3 - 0,000,001,200 "
                          "~ 0,000,001,000\r\n"));
    const Outcome outcome = Run({"run", TARVIX_DOCS "/playlist-edit.txt"});
    ASSERT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "Name\tSize\tYear-Rank or Copyright\n"
              "\nMusic\t\t\n\nMusic\t\t\n\nMusic\t\t\n\n"
              "1987-001 Beat It Now.mp3\t0,000,001,000\t1987-001\n"
              "Beat It Now.mp3\t0,000,001,200\t\n"
              "beat it Now copy.mp3\t0,000,001,001\t\n\n"
              "1987-004 Größe über alles.mp3\t0,000,000,500\t1987-004\n"
              "1987.m3u: 2 entries and 2 possible duplicates. Double-click a file that stays: it "
              "turns green and gets the Year-Rank of the first of its group at the end of its "
              "name. Select what goes to the recycle bin. Marked now: 1 green, 1 to recycle.\n"
              "rename  1,   recycle  1\n"
              "Renamed 1 of 1 file, recycled 1 of 1 file.\n");
    EXPECT_EQ(ReadAll(Root() / "Music/Old/Beat It Now 1987-001.mp3"), std::string(1200, 'c'));
    EXPECT_FALSE(fs::exists(Root() / "Music/Old/Beat It Now.mp3"));
    EXPECT_FALSE(fs::exists(Root() / "Music/Old/x/beat it Now copy.mp3"));
    EXPECT_TRUE(fs::exists(Root() / "Music/Years/1987-001 Beat It Now.mp3"));
    EXPECT_EQ(ReadAll(Root() / "Music/1987.m3u"), playlist);
}

TEST_F(PlaylistEditTest, AMissingPlaylistIsToldAndNothingIsDone) {
    const Outcome outcome = RunScript("answer OK\nanswer OK\nanswer ~/none.m3u\nanswer OK\n"
                                      "click mnuTools_LoadPlayList\ndump lstMain Name\n"
                                      "click cmdEditPlayList\n");
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.out, "Name\n");
}

TEST_F(PlaylistEditTest, OutsideTheModeItsButtonIsRefused) {
    const Outcome outcome = RunScript("click cmdEditPlayList\n");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("cmdEditPlayList"));
}

} // namespace
} // namespace tarvix::endtoend
