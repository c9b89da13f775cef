#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::HasSubstr;

class AutoPlaylistCommandTest : public CliFixture {
  protected:
    void SetUp() override {
        for (const char* name : {"1987-001 A.mp3", "1987-003 B.mp3", "1988-001 C.mp3"}) {
            Disk().AddFile(std::string("C:\\home\\ann\\Music\\") + name, name);
        }
        Disk().AddFolder("C:\\out");
        Disk().AddFile("C:\\lists\\s.txt", "1987\n1999\n*EOF\n");
    }
    void Folders(std::string_view lines) { Disk().AddFile("C:\\lists\\f.txt", lines); }
    int Local(std::vector<std::string> more = {}) {
        return RunWith({"--folders", "/lists/f.txt"}, std::move(more));
    }
    int Full(std::vector<std::string> more = {}) {
        return RunWith({"--to", "/out", "--in", "/home/ann/Music"}, std::move(more));
    }

  private:
    int RunWith(const std::vector<std::string>& place, const std::vector<std::string>& more) {
        std::vector<std::string> words{"auto-playlist", "--searches", "/lists/s.txt",
                                       "--any-attribute"};
        words.insert(words.end(), place.begin(), place.end());
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }
};

TEST_F(AutoPlaylistCommandTest, WritesOneForEachSearchThatFindsSomething) {
    EXPECT_EQ(Full(), kDone) << Err();
    EXPECT_EQ(Out(), "1987\tC:\\out\\1987_195452.m3u\t2 written\n"
                     "1999\tC:\\out\tnothing found\n"
                     "Wrote 1 playlist in 2 steps.\n");
    EXPECT_THAT(Disk().Content("C:\\out\\1987_195452.m3u").value_or(""),
                HasSubstr("\r\n/home/ann/Music/1987-001 A.mp3\r\n"));
}

TEST_F(AutoPlaylistCommandTest, WritesNamesBesideTheFilesOfEachFolder) {
    Folders("/home/ann/Music\n*EOF\n");
    EXPECT_EQ(Local({"--local", "--comments"}), kDone) << Err();
    EXPECT_THAT(Disk().Content("C:\\home\\ann\\Music\\1987_195452.m3u").value_or(""),
                HasSubstr("\r\n1987-001 A.mp3\r\n#002\r\n1987-003 B.mp3\r\n"));
}

TEST_F(AutoPlaylistCommandTest, SortsAsByAClickOnAColumnHead) {
    EXPECT_EQ(Full({"--sort", "Name:desc"}), kDone) << Err();
    EXPECT_THAT(Disk().Content("C:\\out\\1987_195452.m3u").value_or(""),
                HasSubstr("1987-003 B.mp3\r\n/home/ann/Music/1987-001 A.mp3\r\n"));
}

TEST_F(AutoPlaylistCommandTest, AMissingFolderGivesOneAndItsReason) {
    Folders("/gone\n/home/ann/Music\n*EOF\n");
    EXPECT_EQ(Local(), kSomeFailed);
    EXPECT_THAT(Out(), HasSubstr("left out: C:\\gone is no folder."));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\1987_195452.m3u"));
}

TEST_F(AutoPlaylistCommandTest, ADryRunCountsAndWritesNothing) {
    Folders("/gone\n/home/ann/Music\n*EOF\n");
    EXPECT_EQ(Local({"--dry-run"}), kDone);
    EXPECT_EQ(Out(), "0\t1987\t/gone\tis missing\n2\t1987\t/home/ann/Music\t\n"
                     "0\t1999\t/gone\tis missing\n0\t1999\t/home/ann/Music\t\n");
    EXPECT_FALSE(Disk().Exists("C:\\home\\ann\\Music\\1987_195452.m3u"));
}

TEST_F(AutoPlaylistCommandTest, WhereThePlaylistsGoIsSaidOnce) {
    Folders("/home/ann/Music\n*EOF\n");
    EXPECT_EQ(Run({"auto-playlist", "--searches", "/lists/s.txt"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("Say where the playlists go"));
    EXPECT_EQ(Local({"--to", "/out"}), kBadRequest);
    EXPECT_EQ(Local({"--in", "/out"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("leave --in out"));
    EXPECT_EQ(Full({"--local"}), kBadRequest);
    EXPECT_EQ(Local({"--local", "--full"}), kBadRequest);
}

TEST_F(AutoPlaylistCommandTest, ListsAreCheckedFirst) {
    Folders("/home/ann/Music\n");
    EXPECT_EQ(Local(), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("The list /lists/f.txt has no end: its last line must be *EOF."));
    Disk().AddFile("C:\\lists\\s.txt", "1987\n*EOF\n");
    EXPECT_EQ(Run({"auto-playlist", "--searches", "/lists/s.txt", "--to", "/no", "--in", "/out"}),
              kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("There is no folder \"/no\""));
}

} // namespace
} // namespace tarvix::cli
