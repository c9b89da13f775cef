#include "session/product.h"
#include "session/remembered/histories.h"
#include "session/remembered/history_rows.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using text::DateTime;

const std::string kFolder = "C:\\home\\ann\\tarvix\\";
const std::string kSearchFile = kFolder + "TXFSSearchHistoryFile.txt";
const std::string kFolderFile = kFolder + "TXFSFolderHistoryFile.txt";
const std::string kDestFile = kFolder + "TXFDFolderHistoryFile.txt";
const std::string kFix = "Would you like to fix it manually, and try again?";

class Histories : public ProgramFixture {
  protected:
    Histories() { Disk().AddFolder("C:\\home\\ann\\tarvix"); }

    static std::string Pair(const std::string& entry, const std::string& stamp) {
        return entry + "\r\n" + stamp + "\r\n";
    }
    // `count` folders used one minute after the other, the first one longest ago.
    static std::string Pairs(int count, const std::string& prefix = "C:\\f") {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += Pair(prefix + std::to_string(1000 + i), Minute(i));
        }
        return text;
    }
    static std::string Minute(int minute) {
        return text::DefaultDateText(
            text::FromSeconds(text::ToSeconds({2026, 1, 1, 12, 0, 0}) + minute * 60));
    }
    static std::vector<std::string> Texts(const fields::ComboBox& box) {
        std::vector<std::string> texts;
        for (const auto& item : box.Items())
            texts.push_back(item.text);
        return texts;
    }
    // The rows of history, without the fixed ones.
    std::vector<std::string> Folders() {
        auto texts = Texts(Form().cmbDir);
        texts.erase(texts.begin(), texts.begin() + State().intFirstHistoryRow);
        return texts;
    }
    std::vector<std::string> Searches() {
        auto texts = Texts(Form().cmbSearchFor);
        texts.erase(texts.begin(), texts.begin() + 3);
        return texts;
    }
    std::vector<std::string> Destinations() { return Texts(S().frmDialog.cmbDir); }
    DateTime FolderStamp(const std::string& text) {
        const auto texts = Texts(Form().cmbDir);
        const auto row = std::ranges::find(texts, text) - texts.begin();
        return State().datFolderHistory.at(static_cast<std::size_t>(row));
    }
    void UseFolder(const std::string& folder) {
        Form().cmbDir.Text = folder;
        session::UpdateFolderHistory(S());
    }
    void UseSearch(const std::string& text) {
        Form().cmbSearchFor.Text = text;
        session::UpdateSearchHistory(S());
    }
    std::string SavedFolders() {
        session::SaveFolderHistoryFile2(S());
        return Disk().Content(kFolderFile).value_or("");
    }
};

// ---- reading ----

TEST_F(Histories, MissingFilesAreMadeEmpty) {
    Start();
    EXPECT_EQ(Disk().Content(kFolderFile), "");
    EXPECT_EQ(Disk().Content(kDestFile), "");
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(Histories, EntriesAreReadIntoTheirBoxesInTheOrderOfTheirTexts) {
    Disk().AddFile(kFolderFile,
                   Pair("C:\\b", "11/15/2026 7:54:52 PM") + Pair("c:\\A", "1/2/2026") + "*EOF");
    Disk().AddFile(kSearchFile, Pair("*.mp3|*.flac", "11/15/2026 7:54:52 PM") + "*EOF");
    Disk().AddFile(kDestFile, Pair("D:\\copies", "11/15/2026 7:54:52 PM") + "*EOF");
    Start();
    EXPECT_THAT(Folders(), ElementsAre("c:\\A", "C:\\b"));
    EXPECT_EQ(FolderStamp("C:\\b"), (DateTime{2026, 11, 15, 19, 54, 52}));
    EXPECT_EQ(FolderStamp("c:\\A"), (DateTime{2026, 1, 2, 0, 0, 0}));
    EXPECT_THAT(Searches(), ElementsAre("*.mp3|*.flac"));
    EXPECT_THAT(Destinations(), ElementsAre("D:\\copies"));
}

TEST_F(Histories, AFileOfFourBytesIsNotReadAndIsRewrittenAtExit) {
    Disk().AddFile(kFolderFile, "*EOF");
    Disk().AddFile(kDestFile, "junk");
    Start();
    EXPECT_TRUE(prompts.Records().empty());
    program.Stop();
    EXPECT_EQ(Disk().Content(kDestFile), "*EOF");
}

TEST_F(Histories, ASearchFileOfThirteenBytesIsNotRead) {
    Disk().AddFile(kSearchFile, "a/b/c/d/e/f/g");
    Start();
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(Histories, ADuplicateIsDroppedWithItsStampSoThatTheFirstOneWins) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + Pair("C:\\A", Minute(2)) + "*EOF");
    Start();
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    EXPECT_EQ(FolderStamp("C:\\a"), *text::ParseDate(Minute(1)));
}

TEST_F(Histories, AnEntryEqualToADefaultFolderIsDropped) {
    Disk().AddFile(kFolder + "TXOptionFile.txt",
                   "Tarvix Settings - Version\r\n" + std::string(session::ProductVersion()) +
                       "\r\nstrDefSearchFolder(2) = |C:\\a||C:\\b[ Both \r\n*EOF");
    Disk().AddFile(kFolderFile, Pair("c:\\A|C:\\b", Minute(1)) + Pair(" both ", Minute(2)) +
                                    Pair("C:\\a", Minute(3)) + "*EOF");
    Start();
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
}

TEST_F(Histories, AStandingSearchTextIsDropped) {
    Disk().AddFile(kSearchFile, Pair("*.LNK", Minute(1)) + Pair("  *.mpl", Minute(2)) +
                                    Pair("*.txt", Minute(3)) + "*EOF");
    Start();
    EXPECT_THAT(Searches(), ElementsAre("*.txt"));
}

TEST_F(Histories, AZeroTimeInThePlaceOfAnEntryIsPassedOver) {
    Disk().AddFile(kFolderFile, "12:00:00 AM\r\n" + Pair("C:\\a", Minute(1)) + "*EOF");
    Start();
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(Histories, NothingIsReadBehindTheEndMark) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + "*EOF\r\n" + Pair("C:\\b", Minute(2)));
    Start();
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
}

TEST_F(Histories, BlankAndOverlongEntriesAreNotTaken) {
    Disk().AddFile(kFolderFile, Pair("  ", Minute(1)) + Pair(std::string(1024, 'x'), Minute(2)) +
                                    Pair(std::string(1023, 'y'), Minute(3)) + "*EOF");
    Start();
    EXPECT_THAT(Folders(), ElementsAre(std::string(1023, 'y')));
}

TEST_F(Histories, LinesMayEndInLineFeedsAndAMarkMayStandInFront) {
    Disk().AddFile(kFolderFile, "\xEF\xBB\xBF"
                                "C:\\\xC3\xA9\n11/15/2026 7:54:52 PM\n*EOF\n");
    Start();
    EXPECT_THAT(Folders(), ElementsAre("C:\\\xC3\xA9"));
    EXPECT_EQ(SavedFolders(), Pair("C:\\\xC3\xA9", "11/15/2026 7:54:52 PM") + "*EOF");
}

// ---- bounds ----

TEST_F(Histories, WithTwoHundredRowsAnEntryOlderThanEveryRowIsNotAdded) {
    Disk().AddFile(kFolderFile, Pairs(200) + Pair("C:\\old", "1/1/2020") + "*EOF");
    Start();
    EXPECT_EQ(Folders().size(), 200U);
    EXPECT_THAT(Folders(), Not(Contains("C:\\old")));
}

TEST_F(Histories, WithTwoHundredRowsALaterEntryIsAddedAndWithOneMoreReplacesTheOldest) {
    Disk().AddFile(kFolderFile, Pairs(200) + Pair("C:\\new1", "2/1/2026") +
                                    Pair("C:\\new2", "2/2/2026") + "*EOF");
    Start();
    EXPECT_EQ(Folders().size(), 201U);
    EXPECT_THAT(Folders(), Contains("C:\\new2"));
    EXPECT_THAT(Folders(), Not(Contains("C:\\f1000")));
    EXPECT_THAT(Folders(), Contains("C:\\f1001"));
}

TEST_F(Histories, AtTwoHundredAndOneRowsANewFolderRemovesTheOldest) {
    Disk().AddFile(kFolderFile, Pairs(200) + "*EOF");
    Start();
    session::ShowTitledFolders(S(), {});
    UseFolder("C:\\x1");
    EXPECT_EQ(Folders().size(), 201U);
    EXPECT_THAT(Folders(), Contains("C:\\f1000"));
    UseFolder("C:\\x2");
    EXPECT_EQ(Folders().size(), 201U);
    EXPECT_THAT(Folders(), Contains("C:\\x2"));
    EXPECT_THAT(Folders(), Not(Contains("C:\\f1000")));
}

TEST_F(Histories, TheDestinationListHoldsTwoHundred) {
    Disk().AddFile(kDestFile, Pairs(200) + "*EOF");
    Start();
    S().frmDialog.cmbDir.Text = "C:\\new";
    session::UpdateDestHistory(S());
    EXPECT_EQ(Destinations().size(), 200U);
    EXPECT_THAT(Destinations(), Contains("C:\\new"));
    EXPECT_THAT(Destinations(), Not(Contains("C:\\f1000")));
}

TEST_F(Histories, AReadDestinationReplacesTheOldestAtTwoHundred) {
    Disk().AddFile(kDestFile, Pairs(200) + Pair("C:\\new", "2/1/2026") + "*EOF");
    Start();
    EXPECT_EQ(Destinations().size(), 200U);
    EXPECT_THAT(Destinations(), Contains("C:\\new"));
    EXPECT_THAT(Destinations(), Not(Contains("C:\\f1000")));
}

TEST_F(Histories, TheSearchListHoldsTwoHundredAndOneRowsWithItsFixedOnes) {
    Disk().AddFile(kSearchFile, Pairs(210, "x") + "*EOF");
    Start();
    EXPECT_EQ(Form().cmbSearchFor.Items().size(), 201U);
    EXPECT_THAT(Searches(), Contains("x1209"));
    EXPECT_EQ(Form().cmbSearchFor.Items()[2].text, "  *.url");
}

// ---- use ----

TEST_F(Histories, ASearchAddsItsTextAndItsFolder) {
    Disk().AddFile("C:\\t\\a.txt");
    Start();
    Search("*.txt", "C:\\t\\|");
    EXPECT_THAT(Folders(), ElementsAre("C:\\t"));
    EXPECT_THAT(Searches(), ElementsAre("*.txt"));
    EXPECT_EQ(FolderStamp("C:\\t"), (DateTime{2026, 11, 15, 19, 54, 52}));
    program.Stop();
    EXPECT_EQ(Disk().Content(kFolderFile), Pair("C:\\t", "11/15/2026 7:54:52 PM") + "*EOF");
    EXPECT_EQ(Disk().Content(kSearchFile), Pair("*.txt", "11/15/2026 7:54:52 PM") + "*EOF");
}

TEST_F(Histories, AUsedRowIsDatedAnew) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + "*EOF");
    Start();
    UseFolder("|c:\\A\\|");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    EXPECT_EQ(FolderStamp("C:\\a"), S().Now());
    EXPECT_EQ(Form().cmbDir.Text.Get(), "|c:\\A\\|") << "the box keeps what was typed";
}

TEST_F(Histories, VariablesAndNativePathsAreKeptAsDrivePaths) {
    Start();
    UseFolder("%Temp%\\x");
    UseFolder("/srv/data|~/Videos");
    EXPECT_THAT(Folders(), ElementsAre("C:\\srv\\data|C:\\home\\ann\\Videos", "C:\\tmp\\x"));
}

TEST_F(Histories, ADefaultFolderOrItsTitleAddsNoRow) {
    Start();
    State().options.strDefSearchFolder[5] = "%Temp%\\y|";
    State().options.strDefSearchFolderTitle[5] = " Mine ";
    UseFolder("C:\\tmp\\y");
    UseFolder(" mine ");
    UseFolder("C:\\home\\ann\\Documents");
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(Histories, ATextOf1023CharactersIsAddedAndOneOf1024IsNot) {
    Start();
    UseSearch(std::string(1023, 'a'));
    UseSearch(std::string(1024, 'b'));
    EXPECT_THAT(Searches(), ElementsAre(std::string(1023, 'a')));
}

TEST_F(Histories, AnEmptyTextIsNotAdded) {
    Start();
    UseSearch("");
    UseSearch("    ");
    UseFolder("");
    EXPECT_THAT(Searches(), IsEmpty());
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(Histories, APickedStandingEntryBehavesAsIfTyped) {
    Start();
    UseSearch("  *.lnk");
    UseSearch("*.URL");
    EXPECT_THAT(Searches(), IsEmpty());
    UseSearch("  *.txt  ");
    EXPECT_THAT(Searches(), ElementsAre("*.txt"));
}

TEST_F(Histories, WhatCouldNotBeReadAgainIsNotAdded) {
    Start();
    for (const char* text : {"a/b", "*EOF", "12:00:00 AM", "a\r\nb"})
        UseSearch(text);
    EXPECT_THAT(Searches(), IsEmpty());
}

TEST_F(Histories, ARefusedSearchAddsNothing) {
    Start();
    Click(Form().chkSize);
    Search("*.txt", "C:\\");
    EXPECT_THAT(Searches(), IsEmpty());
    EXPECT_THAT(Folders(), IsEmpty());
}

// ---- saving ----

TEST_F(Histories, TwoCopiesClosingOneAfterTheOtherLoseNoEntry) {
    Disk().AddFile(kFolderFile, Pair("C:\\old", Minute(1)) + "*EOF");
    Start();
    app::Program other(machine.platform, prompts);
    other.Start("");
    UseFolder("C:\\mine");
    UseSearch("mine*");
    S().frmDialog.cmbDir.Text = "C:\\to mine";
    session::UpdateDestHistory(S());
    other.Session().frmSearch.cmbDir.Text = "C:\\theirs";
    session::UpdateFolderHistory(other.Session());
    other.Session().frmSearch.cmbSearchFor.Text = "theirs*";
    session::UpdateSearchHistory(other.Session());
    other.Session().frmDialog.cmbDir.Text = "C:\\to theirs";
    session::UpdateDestHistory(other.Session());
    program.Stop();
    other.Stop();
    const std::string now = "11/15/2026 7:54:52 PM";
    EXPECT_EQ(Disk().Content(kFolderFile), Pair("C:\\mine", now) + Pair("C:\\old", Minute(1)) +
                                               Pair("C:\\theirs", now) + "*EOF");
    EXPECT_EQ(Disk().Content(kSearchFile), Pair("mine*", now) + Pair("theirs*", now) + "*EOF");
    EXPECT_EQ(Disk().Content(kDestFile),
              Pair("C:\\to mine", now) + Pair("C:\\to theirs", now) + "*EOF");
}

TEST_F(Histories, TheFirstDefaultFolderIsNoReasonToDropWhatAnotherCopyWrote) {
    Start();
    State().options.strDefSearchFolder[0] = "C:\\a";
    State().options.strDefSearchFolder[1] = "C:\\b";
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + Pair("C:\\b", Minute(1)) + "*EOF");
    EXPECT_EQ(SavedFolders(), Pair("C:\\a", Minute(1)) + "*EOF");
}

TEST_F(Histories, ADamagedFileFoundAtSavingBringsNoQuestion) {
    Start();
    UseFolder("C:\\mine");
    Disk().AddFile(kFolderFile, "http://example.org\r\n");
    EXPECT_EQ(SavedFolders(), Pair("C:\\mine", "11/15/2026 7:54:52 PM") + "*EOF");
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(Histories, AFileThatIsGoneIsMadeAtSaving) {
    Start();
    Disk().Node(kFolderFile)->Detach();
    EXPECT_EQ(SavedFolders(), "*EOF");
}

TEST_F(Histories, ASaveThatFailsAtAnyCallLeavesTheOldFileUnharmed) {
    const std::string before = Pairs(3) + "*EOF";
    Disk().AddFile(kFolderFile, before);
    Start();
    UseFolder("C:\\z");
    const std::string after = Pairs(3) + Pair("C:\\z", "11/15/2026 7:54:52 PM") + "*EOF";
    machine.faults.ResetCounts();
    EXPECT_EQ(SavedFolders(), after);
    const std::size_t calls = machine.faults.Count();
    for (std::size_t call = 1; call <= calls; ++call) {
        for (const int error : {platform::kDiskFull, platform::kPermissionDenied}) {
            Disk().AddFile(kFolderFile, before);
            machine.faults.ResetCounts();
            machine.faults.ClearFaults();
            machine.faults.FailCall(call, error);
            const std::string now = SavedFolders();
            EXPECT_TRUE(now == before || now == after) << "call " << call << "\n" << now;
        }
    }
}

TEST_F(Histories, AFolderThatCannotBeWrittenIsToldAndMayBeRetried) {
    Disk().AddFile(kFolderFile, Pairs(2) + "*EOF");
    Start();
    UseFolder("C:\\z");
    machine.faults.ResetCounts();
    machine.faults.FailCall("CreateTextFile", 1, platform::kPermissionDenied);
    prompts.Queue("Retry");
    EXPECT_EQ(SavedFolders(), Pairs(2) + Pair("C:\\z", "11/15/2026 7:54:52 PM") + "*EOF");
    EXPECT_TRUE(WasTold("Permission denied on " + kFolderFile));
}

TEST_F(Histories, AFullDiskIsToldAndTheOldFileStands) {
    Disk().AddFile(kFolderFile, Pairs(2) + "*EOF");
    Start();
    UseFolder("C:\\z");
    machine.faults.FailAll("Write", platform::kDiskFull);
    EXPECT_EQ(SavedFolders(), Pairs(2) + "*EOF");
    EXPECT_TRUE(WasTold("SaveFolderHistoryFile2 has not proceeded as expected."));
}

// ---- damage ----

TEST_F(Histories, AWebAddressMakesTheFileDamagedAndEachFileHasItsQuestion) {
    const std::string damaged = Pair("http://example.org", Minute(1)) + "*EOF";
    for (const std::string& file : {kSearchFile, kFolderFile, kDestFile})
        Disk().AddFile(file, damaged);
    Start();
    EXPECT_THAT(Told(),
                ElementsAre("Your 'Search For' History file is corrupted. " + kFix,
                            "Your 'Search Folder' History file is corrupted. " + kFix,
                            "Your 'Destination Folder' History file is corrupted. " + kFix));
    EXPECT_EQ(prompts.Records().front().style, 36);
}

TEST_F(Histories, NoSendsTheDamagedFileToTheTrashAndBeginsItAnew) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + Pair("a/b", Minute(1)) + "*EOF");
    prompts.Queue("No");
    Start();
    EXPECT_EQ(Disk().Content(kFolderFile), "");
    EXPECT_THAT(machine.bin.Paths(), ElementsAre(kFolderFile));
    EXPECT_TRUE(State().blnStarted);
}

TEST_F(Histories, YesEndsTheProgramAtOnceAndLeavesTheFile) {
    const std::string damaged = Pair("a/b", Minute(1)) + "*EOF";
    Disk().AddFile(kFolderFile, damaged);
    prompts.Queue("Yes");
    Start();
    program.Stop();
    EXPECT_TRUE(State().blnEnded);
    EXPECT_FALSE(State().blnStarted);
    EXPECT_FALSE(Form().IsShown());
    EXPECT_EQ(Disk().Content(kFolderFile), damaged);
    EXPECT_FALSE(Disk().Exists(kFolder + "TXOptionFile.txt"));
}

TEST_F(Histories, AStampWithoutASlashMakesTheFileDamaged) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", "12:00:00 AM") + "*EOF");
    Start();
    EXPECT_TRUE(WasTold("Your 'Search Folder' History file is corrupted. "));
}

TEST_F(Histories, AStampThatIsNoDateIsAnUnexpectedErrorAndTheSaveKeepsTheOthers) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + Pair("C:\\b", "99/99/2026") +
                                    Pair("C:\\c", Minute(2)) + "*EOF");
    Start();
    EXPECT_THAT(Told(), ElementsAre(::testing::HasSubstr(
                            "OpenFolderHistoryFile2 has not proceeded as expected.")));
    EXPECT_TRUE(WasTold("ERROR CODE:  13"));
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    EXPECT_EQ(SavedFolders(), Pair("C:\\a", Minute(1)) + Pair("C:\\c", Minute(2)) + "*EOF");
}

TEST_F(Histories, AMissingEndMarkIsToldAndMendedByTheNextSave) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)));
    Start();
    EXPECT_THAT(Told(), ElementsAre("*EOF missing from end of text file: \r\n\r\n" + kFolderFile +
                                    "\r\n\r\n, system files will be corrected upon proper program "
                                    "exit."));
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    EXPECT_EQ(SavedFolders(), Pair("C:\\a", Minute(1)) + "*EOF");
    EXPECT_EQ(prompts.Records().size(), 1U);
}

TEST_F(Histories, AFileThatCannotBeOpenedIsAskedAboutAndNotLost) {
    Disk().AddFile(kFolderFile, Pairs(2) + "*EOF");
    machine.faults.FailPath(kFolderFile, platform::kPermissionDenied, "OpenAsTextStream");
    Start();
    EXPECT_TRUE(WasTold("Permission denied on " + kFolderFile));
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(Histories, AFileThatCannotBeReadIsNeverReplaced) {
    for (const char* operation : {"OpenAsTextStream", "Facts"}) {
        Disk().AddFile(kFolderFile, Pairs(2) + "*EOF");
        app::Program next(machine.platform, prompts);
        machine.faults.FailPath(kFolderFile, platform::kPermissionDenied, operation);
        next.Start("");
        machine.faults.ClearFaults();
        next.Stop();
        EXPECT_EQ(Disk().Content(kFolderFile), Pairs(2) + "*EOF") << operation;
    }
}

TEST_F(Histories, ADamagedFileThatCannotBeRecycledIsAskedAboutAndKept) {
    const std::string damaged = Pair("a/b", Minute(1)) + "*EOF";
    Disk().AddFile(kFolderFile, damaged);
    machine.bin.SetHasTrash("C:", false);
    prompts.Queue("No");
    prompts.Queue("cmdNo");
    Start();
    EXPECT_EQ(prompts.Records().back().form, "frmOverrideRecycleFail");
    EXPECT_EQ(SavedFolders(), damaged);
}

// ---- fixed rows ----

TEST_F(Histories, TitlesStandAboveTheHistoryAndStampsFollowTheirRows) {
    Disk().AddFile(kFolderFile, Pair("C:\\a", Minute(1)) + Pair("C:\\b", Minute(2)) + "*EOF");
    Start();
    session::ShowTitledFolders(S(), {" One ", " Two "});
    EXPECT_EQ(State().intFirstHistoryRow, 2);
    EXPECT_THAT(Texts(Form().cmbDir), ElementsAre(" One ", " Two ", "C:\\a", "C:\\b"));
    EXPECT_EQ(FolderStamp("C:\\b"), *text::ParseDate(Minute(2)));
    session::ShowTitledFolders(S(), {" Three "});
    EXPECT_THAT(Texts(Form().cmbDir), ElementsAre(" Three ", "C:\\a", "C:\\b"));
    EXPECT_EQ(FolderStamp("C:\\a"), *text::ParseDate(Minute(1)));
    UseFolder(" Three ");
    EXPECT_TRUE(State().datFolderHistory[0].IsZero()) << "a fixed row is not dated";
    EXPECT_EQ(SavedFolders(), Pair("C:\\a", Minute(1)) + Pair("C:\\b", Minute(2)) + "*EOF");
}

// ---- pieces ----

TEST(RemoveCharAt, TakesACharacterOutOrPutsABlankInItsPlace) {
    std::string text = "a\xC3\xA9z";
    EXPECT_FALSE(session::RemoveCharAt(2, text, true));
    EXPECT_EQ(text, "a z");
    EXPECT_FALSE(session::RemoveCharAt(2, text, false));
    EXPECT_EQ(text, "az");
}

TEST(RemoveCharAt, CutsTheEnds) {
    std::string text = "abc";
    EXPECT_FALSE(session::RemoveCharAt(1, text, true));
    EXPECT_EQ(text, "bc");
    EXPECT_FALSE(session::RemoveCharAt(2, text, true));
    EXPECT_EQ(text, "b");
}

TEST(RemoveCharAt, HasNothingToDoBesideTheText) {
    std::string text = "abc";
    EXPECT_TRUE(session::RemoveCharAt(0, text, false));
    EXPECT_TRUE(session::RemoveCharAt(4, text, false));
    EXPECT_EQ(text, "abc");
    text.clear();
    EXPECT_TRUE(session::RemoveCharAt(1, text, false));
}

} // namespace
} // namespace tarvix::testing
