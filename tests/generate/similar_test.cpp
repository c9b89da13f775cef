#include "generate/list_request.h"
#include "generate/similar_patterns.h"
#include "tests/generate/generate_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

// ---- the words of names ----

struct PatternRow {
    std::string name;
    std::string all;
    std::string firstAndLast;
    std::string firstAndSecond;
};

TEST(SimilarPatterns, AreMadeOfTheSignificantWords) {
    const std::vector<PatternRow> rows{
        {"Beat It Now.mp3", "*Beat*It*Now*", "*Beat*Now*", "*Beat*It*"},
        {"1987-042 The Bad Song (Live).mp3", "*Bad*Song*(Live*", "*Bad*(Live*", "*Bad*Son*"},
        {"The Bad Song 1987-042.mp3", "*Bad*Song*", "*Bad*Song*", "*Bad*Song*"},
        {"Beat.mp3", "***", "***", "***"},
        {"The 12.mp3", "***", "***", "***"},
        {"A BC DE.mp3", "*A BC*DE*", "*A BC*DE*", "*A BC*DE*"},
        {"Artist - Title.mp3", "*Artist*Title*", "*Artist*Title*", "*Artist*Title*"},
        {"Song 123 More.mp3", "*Song*123*More*", "*Song*More*", "*Song*123*"},
        {"Song 1999 More.mp3", "*Song*More*", "*Song*More*", "*Song*More*"},
        {"Song (1999) More.mp3", "*Song*(1999)*More*", "*Song*More*", "*Song*(1999)*"},
        {"One Two Three Four", "*One*Two*Three*Four*", "*One*Four*", "*One*Three*"},
        {"Größe über alles.flac", "*Größe*über*alles*", "*Größe*alles*", "*Größe*über*"},
    };
    for (const PatternRow& row : rows) {
        EXPECT_THAT(generate::SimilarPatterns(generate::SimilarBaseName(row.name)),
                    ElementsAre(row.all, row.firstAndLast, row.firstAndSecond))
            << row.name;
    }
}

TEST(SimilarNames, LoseExtensionAndYearRank) {
    EXPECT_EQ(generate::SimilarBaseName("1987-042 Bad.mp3"), "Bad");
    EXPECT_EQ(generate::SimilarBaseName("Bad 1987-042.mp3"), "Bad ");
    EXPECT_EQ(generate::SimilarBaseName("Bad.Song.mp3"), "Bad.Song");
    EXPECT_EQ(generate::SimilarBaseName("Bad"), "Bad");
}

TEST(SizeWindows, AreKeptFromOverflowing) {
    EXPECT_EQ(generate::CutDeviation("400000"), "400000");
    EXPECT_EQ(generate::CutDeviation("2147483648"), "2147483648");
    EXPECT_EQ(generate::CutDeviation("2147483649"), "214748364");
    EXPECT_EQ(generate::CutDeviation("12345678901"), "1234567890");
}

// ---- the comments of a playlist ----

class SimilarComments : public GenerateFixture {
  protected:
    std::string Playlist(const std::string& deviation = "400000",
                         const std::string& folder = "C:\\m") {
        return Write(Form().mnuPathNamesM3u, "C:\\d\\s.m3u", {"OK", folder},
                     [this, deviation](fields::FrmDialog& form) {
                         form.chkComments.Value = 0;
                         Set(form.chkFindSimilar, "1");
                         Set(form.txtDeviation, deviation);
                     });
    }
};

TEST_F(SimilarComments, StandBehindTheEntryWithBothSizes) {
    Disk().AddFileOfSize("C:\\t\\1987-042 Beat It Now.mp3", 1234567);
    Disk().AddFileOfSize("C:\\m\\Beat It Now.mp3", 1234000);
    Disk().AddFileOfSize("C:\\m\\x\\beat it (now).mp3", 1634567);
    Disk().AddFileOfSize("C:\\m\\x\\Beat it right Now.mp3", 1634568);
    Disk().AddFileOfSize("C:\\m\\x\\Beat nothing.mp3", 1234567);
    Find();
    EXPECT_EQ(Playlist(), Data("similar.m3u"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(),
              "Wrote 1 entry and 2 possible duplicates to C:\\d\\s.m3u");
}

TEST_F(SimilarComments, InDriveFormHaveDrivePaths) {
    InDriveForm();
    Disk().AddFileOfSize("C:\\t\\Beat It.mp3", 7);
    Disk().AddFileOfSize("C:\\m\\My Beat It.mp3", 8);
    Find();
    EXPECT_THAT(Playlist(),
                HasSubstr("C:\\t\\Beat It.mp3\r\n# Possible Duplicate - C:\\m\\My Beat It.mp3 - "
                          "0,000,000,008 ~ 0,000,000,007\r\n"));
}

TEST_F(SimilarComments, WithADeviationOfZeroTakeTheSameSizeAlone) {
    Disk().AddFileOfSize("C:\\t\\Beat It.mp3", 100);
    Disk().AddFileOfSize("C:\\m\\Beat It a.mp3", 100);
    Disk().AddFileOfSize("C:\\m\\Beat It b.mp3", 101);
    Find();
    EXPECT_THAT(Playlist("0"), AllOf(HasSubstr("Beat It a.mp3"), Not(HasSubstr("Beat It b.mp3"))));
}

TEST_F(SimilarComments, NeverNameTheEntryItselfNorAPlaylist) {
    Disk().AddFileOfSize("C:\\m\\Beat It.mp3", 100);
    Disk().AddFileOfSize("C:\\m\\Beat It.m3u", 100);
    Disk().AddFileOfSize("C:\\m\\Beat It.M3U8.mp3", 100);
    Find(0, "*.mp3", "C:\\m");
    EXPECT_THAT(Playlist(), Not(HasSubstr("# Possible")));
}

TEST_F(SimilarComments, TakeEveryFileForANameWithoutWordsAndTheSizeDecides) {
    Disk().AddFileOfSize("C:\\t\\Beat.mp3", 100);
    Disk().AddFileOfSize("C:\\m\\other.txt", 100);
    Disk().AddFileOfSize("C:\\m\\sub\\third.ogg", 103);
    Find();
    EXPECT_THAT(Playlist("2"), AllOf(HasSubstr("/m/other.txt - "), Not(HasSubstr("third.ogg"))));
}

TEST_F(SimilarComments, LookAtTheFirstTwentyAloneEvenWhenTheirSizesDiffer) {
    Disk().AddFileOfSize("C:\\t\\Beat It.mp3", 100);
    for (int i = 10; i < 30; ++i)
        Disk().AddFileOfSize("C:\\m\\Beat It " + std::to_string(i) + ".mp3", 5'000'000);
    Disk().AddFileOfSize("C:\\m\\Beat It 99.mp3", 100);
    Find();
    EXPECT_THAT(Playlist(), Not(HasSubstr("# Possible")));
    Disk().AddFileOfSize("C:\\m\\Beat It 29.mp3", 100);
    EXPECT_THAT(Playlist(), HasSubstr("Beat It 29.mp3"));
}

TEST_F(SimilarComments, OfATooLongPathAreAskedAboutInDriveForm) {
    const std::string folder = "C:\\m\\" + std::string(125, 'f') + "\\" + std::string(125, 'g');
    const std::string name = "Beat It Now again.mp3"; // a path of 276 characters
    Disk().AddFileOfSize("C:\\t\\Beat It Now.mp3", 100);
    Disk().AddFileOfSize(folder + "\\" + name, 100);
    InDriveForm();
    Find();
    EXPECT_THAT(Playlist(), Not(HasSubstr("# Possible"))); // skipped
    EXPECT_TRUE(WasTold("was about to be added as a possible duplicate to the playlist."));
}

TEST_F(SimilarComments, NeverStandInAMultiplePathList) {
    Disk().AddFileOfSize("C:\\t\\Beat It.mp3", 100);
    Disk().AddFileOfSize("C:\\m\\Beat It.mp3", 100);
    Find();
    const auto withSimilar = [this](fields::FrmDialog& form) { Set(form.chkFindSimilar, "1"); };
    EXPECT_EQ(Write(Form().mnuPathNamesMPL, "C:\\d\\p.mpl", {"OK"}, withSimilar),
              "/t/Beat It.mp3\r\n*EOF\r\n");
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, "C:\\d\\q.mpl", {"OK"}, withSimilar),
              "/t/Beat It.mp3\r\n*EOF\r\n");
}

TEST_F(SimilarComments, LeaveTheTrashOut) {
    Disk().AddFileOfSize("C:\\t\\Beat It.mp3", 100);
    Disk().AddFileOfSize("C:\\$Recycle.Bin\\Beat It.mp3", 100);
    Find();
    EXPECT_THAT(Playlist("0", "C:\\"), Not(HasSubstr("Recycle")));
}

TEST_F(SimilarComments, WithoutAFolderNothingIsWritten) {
    Disk().AddFile("C:\\t\\Beat It.mp3");
    Disk().AddFile("C:\\d\\s.m3u", "old");
    Find();
    EXPECT_EQ(Playlist("0", ""), "old");
    EXPECT_EQ(prompts.Records().back().title, "Select folder for duplicate search.");
}

TEST_F(SimilarComments, OfAPathWithALineBreakStandAsAnAddress) {
    Disk().AddFileOfSize("C:\\t\\Beat It.mp3", 1);
    Disk().AddNative("C:\\m", "Beat It\n.mp3", "x");
    Find();
    EXPECT_THAT(Playlist(), HasSubstr("# Possible Duplicate - file:///m/Beat%20It%0A.mp3 - "));
}

TEST_F(SimilarComments, TellFoldersThatCouldNotBeRead) {
    Disk().AddFile("C:\\t\\Beat It.mp3");
    Disk().AddFile("C:\\m\\closed\\Beat It.mp3");
    machine.faults.FailPath("C:\\m\\closed", platform::kPermissionDenied, "Open");
    Find();
    Playlist();
    EXPECT_TRUE(WasTold("1 folder below C:\\m could not be read, so files of similar names in "
                        "there are not found."));
}

TEST_F(SimilarComments, StopAtOnceAndLeaveTheOldFile) {
    Disk().AddFile("C:\\t\\Beat It.mp3");
    Disk().AddFile("C:\\m\\a\\Beat It.mp3");
    Disk().AddFile("C:\\d\\s.m3u", "old");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesM3u, "C:\\d\\s.m3u", {"OK", "C:\\m"},
                    [this](fields::FrmDialog& form) {
                        Set(form.chkFindSimilar, "1");
                        S().yielder.After(1, [this] { State().blnStopAction = true; });
                    }),
              "old");
}

} // namespace
} // namespace tarvix::testing
