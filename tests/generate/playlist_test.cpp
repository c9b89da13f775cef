#include "generate/playlist.h"
#include "generate/rank_comments.h"
#include "tests/generate/generate_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Playlists : public GenerateFixture {
  protected:
    // The comments and entries of a list of names, for a search.
    static std::string Commented(const std::string& searchFor,
                                 const std::vector<std::string>& names) {
        generate::RankComments ranks(searchFor);
        std::string out;
        for (const std::string& name : names) {
            ranks.AppendBefore(name, out);
            out += name + "\r\n";
        }
        ranks.AppendEnd(out);
        return out;
    }
    // "#FIRST" to "#LAST".
    static std::string Ranks(int first, int last) {
        std::string out;
        for (int rank = first; rank <= last; ++rank) {
            out += "#" +
                   std::string(rank < 10    ? "00"
                               : rank < 100 ? "0"
                                            : "") +
                   std::to_string(rank) + "\r\n";
        }
        return out;
    }
};

TEST_F(Playlists, OfAYearTellTheMissingRanks) {
    for (const char* name : {"1987-001 A.mp3", "1987-002 B.mp3", "1987-005 C.mp3"})
        Disk().AddFile(std::string("C:\\t\\") + name);
    Find(0, "*1987*");
    EXPECT_EQ(Write(Form().mnuNamesM3u, "C:\\t\\year.m3u"), Data("year.m3u"));
}

TEST_F(Playlists, WithFullPathsHoldTheHeaderAndThePaths) {
    Disk().AddFile("C:\\t\\a b.mp3");
    Disk().AddFile("C:\\t\\sub\\Ä.mp3");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesM3u, "C:\\d\\full.m3u"), Data("full.m3u"));
}

TEST_F(Playlists, InDriveFormHoldDrivePathsAsTold) {
    InDriveForm();
    Disk().AddFile("C:\\t\\a b.mp3");
    Disk().AddFile("C:\\t\\sub\\Ä.mp3");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesM3u, "C:\\d\\full.m3u"), Data("full_drive.m3u"));
}

TEST_F(Playlists, ReadByEveryPlayerHaveAddressesWherePlayersDiffer) {
    for (const char* name : {"plain, 100% & [x].mp3", "a#b.mp3", "q?.mp3", "p%20q.mp3", " lead.mp3",
                             "c:d.mp3", "back\\slash.mp3", "line\nbreak.mp3"})
        Disk().AddNative("C:\\t", name);
    Find();
    const std::string list = Write(Form().mnuNamesM3u, "C:\\t\\l.m3u");
    for (const char* entry :
         {"\r\nplain, 100% & [x].mp3\r\n", "\r\nfile:///t/a%23b.mp3\r\n",
          "\r\nfile:///t/q%3F.mp3\r\n", "\r\nfile:///t/p%2520q.mp3\r\n",
          "\r\nfile:///t/%20lead.mp3\r\n", "\r\nfile:///t/c%3Ad.mp3\r\n",
          "\r\nfile:///t/back%5Cslash.mp3\r\n", "\r\nfile:///t/line%0Abreak.mp3\r\n"}) {
        EXPECT_THAT(list, HasSubstr(entry));
    }
}

TEST_F(Playlists, AreRelativeToTheirOwnFolder) {
    Disk().AddFile("C:\\t\\a.mp3");
    Disk().AddFile("C:\\t\\sub\\b.mp3");
    Find();
    EXPECT_THAT(Write(Form().mnuPathNamesM3u, "C:\\t\\sub\\r.m3u", {"OK"},
                      [](fields::FrmDialog& form) { form.chkRelative.Value = 1; }),
                HasSubstr("\r\n../a.mp3\r\nb.mp3\r\n"));
}

TEST(RelativePaths, LeadFromTheFolderToTheFile) {
    EXPECT_EQ(generate::RelativePath("/a/b/c.mp3", "/a/b"), "c.mp3");
    EXPECT_EQ(generate::RelativePath("/a/b/c.mp3", "/a/x/y"), "../../b/c.mp3");
    EXPECT_EQ(generate::RelativePath("/a/b", "/a/b"), "../b");
    EXPECT_EQ(generate::RelativePath("/c.mp3", "/"), "c.mp3");
    EXPECT_EQ(generate::RelativePath("/a/bc/d", "/a/b"), "../bc/d");
}

TEST_F(Playlists, ListAFolderToo) {
    Disk().AddFolder("C:\\t\\album");
    Find(3);
    EXPECT_THAT(Write(Form().mnuPathNamesM3u, "C:\\d\\f.m3u"), HasSubstr("\r\n/t/album\r\n"));
}

TEST_F(Playlists, NeverEndInTheMark) {
    Disk().AddFile("C:\\t\\a.mp3");
    Find();
    for (const char* name : {"C:\\d\\x.m3u", "C:\\d\\x.m3u8"})
        EXPECT_THAT(Write(Form().mnuNamesM3u, name), Not(HasSubstr("*EOF"))) << name;
}

TEST_F(Playlists, OfABatchHaveFourHeaderLinesAndANameOfTheirOwn) {
    Disk().AddFile("C:\\t\\1987-001 A.mp3");
    Begin();
    State().blnAutoPlayList = State().blnAutoPlayListFull = State().blnAutoPlayListFullPaths = true;
    State().strAction = "Automated Playlist Gen Full";
    State().strPlaylistFolder = "C:\\d";
    State().options.blnAutoMode = true;
    Dialog().chkComments.Value = 0;
    LookForAllAttributes();
    Search("*1987-.*|*A.mp3", "C:\\t");
    State().blnAutoPlayList = false;
    EXPECT_EQ(Disk().Content("C:\\d\\1987-Amp3_195452.m3u"), Data("automated.m3u"));
    EXPECT_FALSE(Dialog().IsShown());
}

TEST_F(Playlists, GapsAreToldBetweenAndBehindTheEntries) {
    EXPECT_EQ(Commented("*1987*", {"1987-001 A.mp3", "1987-004 B.mp3"}),
              "1987-001 A.mp3\r\n#002\r\n#003\r\n1987-004 B.mp3\r\n" + Ranks(5, 100));
    EXPECT_EQ(Commented("1987", {"1987-002 A.mp3"}), "#001\r\n1987-002 A.mp3\r\n" + Ranks(3, 100));
    EXPECT_EQ(Commented("*1987-*", {"A 1987-003.mp3"}),
              "#001\r\n#002\r\nA 1987-003.mp3\r\n" + Ranks(4, 100));
}

TEST_F(Playlists, ARankOfZeroWritesNothingAndTheClosingStartsFromOne) {
    EXPECT_EQ(Commented("*1987*", {"1987-000 A.mp3"}), "1987-000 A.mp3\r\n" + Ranks(2, 100));
}

TEST_F(Playlists, AnObjectWithoutARankKeepsTheEarlierOne) {
    EXPECT_EQ(Commented("*1987*", {"1987-001 A.mp3", "Other.mp3", "1987-003 B.mp3"}),
              "1987-001 A.mp3\r\nOther.mp3\r\n#002\r\n1987-003 B.mp3\r\n" + Ranks(4, 100));
    EXPECT_EQ(Commented("*1987*", {"1987-001 A.mp3", "Top 1987-005 Song.mp3", "1987-003 B.mp3"}),
              "1987-001 A.mp3\r\nTop 1987-005 Song.mp3\r\n#002\r\n1987-003 B.mp3\r\n" +
                  Ranks(4, 100));
}

TEST_F(Playlists, ASearchForNoYearHasNoRankComments) {
    EXPECT_EQ(Commented("*rock*", {"1987-005 rock.mp3"}), "1987-005 rock.mp3\r\n");
    EXPECT_EQ(Commented("", {"1987-005 A.mp3"}), "1987-005 A.mp3\r\n");
    EXPECT_EQ(Commented("*3987*", {"3987-005 A.mp3"}), "3987-005 A.mp3\r\n");
}

TEST_F(Playlists, AnExtensionInUpperCaseGivesNoRank) {
    EXPECT_EQ(Commented("*1987*", {"1987-005 A.MP3"}), "1987-005 A.MP3\r\n");
}

TEST_F(Playlists, RanksOutOfOrderAndOfAHundredAreLeftAlone) {
    EXPECT_EQ(Commented("*1987*", {"1987-003 A.mp3", "1987-002 B.mp3"}),
              "#001\r\n#002\r\n1987-003 A.mp3\r\n1987-002 B.mp3\r\n" + Ranks(5, 100));
    EXPECT_EQ(Commented("*1987*", {"1987-100 A.mp3"}), "1987-100 A.mp3\r\n");
}

TEST_F(Playlists, TheLastRankOfNinetyNineHasNoClosing) {
    EXPECT_EQ(Commented("*1987*", {"1987-099 A.mp3"}), Ranks(1, 98) + "1987-099 A.mp3\r\n");
    EXPECT_EQ(Commented("*1987*", {"1987-098 A.mp3"}),
              Ranks(1, 97) + "1987-098 A.mp3\r\n#099\r\n#100\r\n");
}

} // namespace
} // namespace tarvix::testing
