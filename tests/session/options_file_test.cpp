#include "results/columns.h"
#include "session/product.h"
#include "session/remembered/options_file.h"
#include "session/settings/option_values.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kFile = "C:\\home\\ann\\tarvix\\TXOptionFile.txt";
const std::string kBackup = "C:\\home\\ann\\tarvix\\TXOptionFile.bak";

class OptionsFile : public ProgramFixture {
  protected:
    // A file of the running version with these lines, ended as a saved one is.
    void Given(const std::string& lines) {
        Disk().AddFile(kFile, Head(std::string(session::ProductVersion())) + lines + "*EOF");
    }
    static std::string Head(const std::string& version) {
        return "Tarvix Settings - Version\r\n" + version +
               "\r\nDO NOT EDIT WHILE TARVIX IS RUNNING, edits will be lost at close.\r\n";
    }
    const session::Options& Read(const std::string& lines) {
        Given(lines);
        Start();
        return State().options;
    }
    std::string Saved() {
        program.Stop();
        return Disk().Content(kFile).value_or("");
    }
    // What the fields hold when the file has none of their lines.
    void ExpectLineMissingValues() {
        const auto& options = State().options;
        EXPECT_FALSE(options.blnAllowAll);
        EXPECT_TRUE(options.blnAutoOptions);
        EXPECT_TRUE(options.blnSkipNTFS);
        EXPECT_EQ(options.bytArchive, 2);
        EXPECT_EQ(options.byt512, 0);
        EXPECT_EQ(options.strDefSearchFolder[0], "%UserProfile%\\Documents");
        EXPECT_TRUE(options.blnListItems[results::kYearRank]);
        EXPECT_TRUE(options.blnErrorLog);
        EXPECT_TRUE(options.blnFileLog);
        EXPECT_FALSE(options.blnAutoMode);
        EXPECT_FLOAT_EQ(options.sngDefWebSeconds, 8);
        EXPECT_EQ(options.strDefWebSize, "R");
        EXPECT_FALSE(options.blnAskWebTime);
        EXPECT_FALSE(options.blnAskWebSize);
        EXPECT_EQ(Form().cmbDir.Text.Get(), "%UserProfile%\\Documents");
    }
};

// ---- no file ----

TEST_F(OptionsFile, WithoutAFileTheValuesAreThoseOfNoFile) {
    Start();
    const auto& options = State().options;
    EXPECT_FALSE(State().blnOptionFileFound);
    EXPECT_TRUE(options.blnAutoOptions);
    EXPECT_TRUE(options.blnSkipNTFS);
    EXPECT_EQ(options.bytArchive, 2);
    EXPECT_EQ(options.strDefSearchFolder[0], "%UserProfile%\\Documents");
    EXPECT_EQ(options.strDefSearchFolderTitle[0], "");
    EXPECT_EQ(options.strDefWebSize, "R - Normal");
    EXPECT_TRUE(options.blnAskWebTime);
    EXPECT_TRUE(options.blnAskWebSize);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "%UserProfile%\\Documents");
    EXPECT_TRUE(Form().chkIncludeSubFolders.Enabled);
    EXPECT_FALSE(Disk().Exists(kBackup));
}

TEST_F(OptionsFile, AnOldSystemHasItsOwnDocumentsFolder) {
    Disk().AddFolder("C:\\home\\ann\\My Documents");
    State().intOSVersion = 5001;
    session::OpenOptionFile(S());
    EXPECT_EQ(State().options.strDefSearchFolder[0], "%UserProfile%\\My Documents");
}

TEST_F(OptionsFile, TheDesktopsDocumentsFolderStandsInForAMissingOne) {
    Disk().Node("C:\\home\\ann\\Documents")->Detach();
    Disk().AddFolder("C:\\home\\ann\\Dokumente");
    machine.environment.Set("Documents", "C:\\home\\ann\\Dokumente");
    Start();
    EXPECT_EQ(State().options.strDefSearchFolder[0], "%Documents%");
}

// ---- the layout ----

TEST_F(OptionsFile, IsWrittenByteForByte) {
    for (const char* name :
         {"AppData", "Desktop", "Documents", "Downloads", "LocalAppData", "Music", "Pictures",
          "ProgramData", "ProgramFiles", "ProgramFiles(x86)", "Public", "SystemDrive", "Temp",
          "UserProfile", "Videos"}) {
        machine.environment.Unset(name);
    }
    Disk().AddFolder("C:\\usr");
    Start();
    auto& options = State().options;
    options.strDefSearchFolder[3] = "C:\\a|C:\\b";
    options.strDefSearchFolderTitle[3] = " Two ";
    options.blnListItems[results::kOs] = false;
    options.sngDefWebSeconds = 2.5F;
    options.envVariables[0].blnEnvVarInclude = true;
    const std::string expected = Head(std::string(session::ProductVersion())) +
                                 "blnAllowAll = False\r\n"
                                 "blnAllowUserSelectSubfolders = False\r\n"
                                 "blnDefaultToIncludeSubfolders = False\r\n"
                                 "blnAutoOptions = True\r\n"
                                 "blnSkipNTFS = True\r\n"
                                 "bytFilesVsDirs = 0\r\n"
                                 "bytReadOnly = 0\r\n"
                                 "bytSystem = 0\r\n"
                                 "bytHidden = 0\r\n"
                                 "bytArchive = 2\r\n"
                                 "byt64 = 0\r\n"
                                 "byt128 = 0\r\n"
                                 "byt256 = 0\r\n"
                                 "byt512 = 0\r\n"
                                 "bytAlias = 0\r\n"
                                 "bytCompressed = 0\r\n"
                                 "strDefSearchFolder(0) = %UserProfile%\\Documents[\r\n"
                                 "strDefSearchFolder(1) = [\r\n"
                                 "strDefSearchFolder(2) = [\r\n"
                                 "strDefSearchFolder(3) = C:\\a|C:\\b[ Two \r\n"
                                 "strDefSearchFolder(4) = [\r\n"
                                 "strDefSearchFolder(5) = [\r\n"
                                 "strDefSearchFolder(6) = [\r\n"
                                 "strDefSearchFolder(7) = [\r\n"
                                 "strDefSearchFolder(8) = [\r\n"
                                 "strDefSearchFolder(9) = [\r\n"
                                 "strDefSearchFolder(10) = [\r\n"
                                 "strDefSearchFolder(11) = [\r\n"
                                 "strDefSearchFolder(12) = [\r\n"
                                 "strDefSearchFolder(13) = [\r\n"
                                 "strDefSearchFolder(14) = [\r\n"
                                 "strDefSearchFolder(15) = [\r\n"
                                 "strDefSearchFolder(16) = [\r\n"
                                 "strDefSearchFolder(17) = [\r\n"
                                 "strDefSearchFolder(18) = [\r\n"
                                 "blnListItems (SizeSubItem) = True\r\n"
                                 "blnListItems (DateSubItem) = True\r\n"
                                 "blnListItems (TypeSubItem) = True\r\n"
                                 "blnListItems (ExtSubItem) = True\r\n"
                                 "blnListItems (VersionSubItem) = True\r\n"
                                 "blnListItems (ExeTypeSubItem) = True\r\n"
                                 "blnListItems (OSSubItem) = False\r\n"
                                 "blnListItems (AttributesSubItem) = True\r\n"
                                 "blnListItems (PathSubItem) = True\r\n"
                                 "blnListItems (PathNameSubItem) = True\r\n"
                                 "blnListItems (PathNameNoSrchSubItem) = True\r\n"
                                 "blnListItems (TargetPathOfLinkSubItem) = True\r\n"
                                 "blnListItems (TargetArgumentsOfLink) = True\r\n"
                                 "blnListItems (WorkingDirOfLinkSubItem) = True\r\n"
                                 "blnListItems (HotKeyOfLink) = True\r\n"
                                 "blnListItems (WindowStyleOfLink) = True\r\n"
                                 "blnListItems (DescriptionOfLink) = True\r\n"
                                 "blnListItems (IconPathNameOfLinkSubItem) = True\r\n"
                                 "blnListItems (PathNameLengthSubItem) = True\r\n"
                                 "blnListItems (FilesInFolder) = True\r\n"
                                 "blnListItems (FoldersInFolder) = True\r\n"
                                 "blnListItems (PathLevels) = True\r\n"
                                 "blnListItems (YRYearRank) = True\r\n"
                                 "blnListItems (SearchForEntry) = True\r\n"
                                 "blnLockColumnWidths = False\r\n"
                                 "bytSortBy = 0\r\n"
                                 "blnSort = False\r\n"
                                 "blnListDupsWhenSearchStringsNotExclusive = False\r\n"
                                 "blnNoContextMenuWarning = False\r\n"
                                 "blnNoColumnWarning = False\r\n"
                                 "blnErrorLog = True\r\n"
                                 "blnFileLog = True\r\n"
                                 "blnAutoMode = False\r\n"
                                 "sngDefWebSeconds = 2.5\r\n"
                                 "strDefWebSize = R - Normal\r\n"
                                 "blnAskWebTime = True\r\n"
                                 "blnAskWebSize = True\r\n"
                                 "blnAutoEnvVar = False\r\n"
                                 "blnRemoveEnvVar = False\r\n"
                                 "Include windir 00\r\n"
                                 "*EOF";
    EXPECT_EQ(Saved(), expected);
}

TEST_F(OptionsFile, HasTheColumnsOfTheListByTheirIndex) {
    for (std::size_t i = 1; i < session::kColumnNames.size(); ++i) {
        EXPECT_EQ(session::kColumnNames[i], results::kColumns[i].key);
    }
}

TEST_F(OptionsFile, WhatIsSavedIsReadAgain) {
    Start();
    session::Options& options = State().options;
    options.blnAllowAll = options.blnSort = options.blnLockColumnWidths = true;
    options.blnAutoOptions = options.blnErrorLog = false;
    options.bytFilesVsDirs = 4;
    options.bytHidden = 1;
    options.byt64 = 2;
    options.bytSortBy = 24;
    options.strDefSearchFolder[18] = "%Temp%\\x (y)";
    options.strDefSearchFolderTitle[18] = "Last [one]";
    options.blnListItems[results::kSize] = false;
    options.sngDefWebSeconds = 0.1F;
    options.strDefWebSize = "X - Maximimed";
    const session::Options before = options;
    program.Stop();
    app::Program next(machine.platform, prompts);
    next.Start("");
    const session::Options& after = next.Session().state.options;
    for (const auto& key : session::kOptionKeys) {
        EXPECT_EQ(session::OptionLines(before, key), session::OptionLines(after, key)) << key.key;
    }
    EXPECT_EQ(before.envVariables, after.envVariables);
    EXPECT_TRUE(prompts.Records().empty());
}

// ---- reading ----

TEST_F(OptionsFile, LinesMayStandInAnyOrder) {
    const auto& options = Read("blnSort = True\r\nbytHidden = 1\r\nblnAllowAll = True\r\n");
    EXPECT_TRUE(options.blnSort);
    EXPECT_EQ(options.bytHidden, 1);
    EXPECT_TRUE(options.blnAllowAll);
}

TEST_F(OptionsFile, TheEndMarkInTheMiddleEndsTheReading) {
    const auto& options = Read("blnSort = True\r\n*EOF\r\nblnAllowAll = True\r\n");
    EXPECT_TRUE(options.blnSort);
    EXPECT_FALSE(options.blnAllowAll);
}

TEST_F(OptionsFile, KeysDifferInCase) {
    EXPECT_FALSE(Read("BLNSORT = True\r\n").blnSort);
}

TEST_F(OptionsFile, UnknownLinesAreIgnoredWithoutAWord) {
    EXPECT_TRUE(Read("nonsense\r\n\r\n = \r\nblnNew = 7\r\nblnSort = True\r\n").blnSort);
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(OptionsFile, WordsAreTakenInAnyCaseAndNumbersToo) {
    const auto& options = Read("blnSort = tRUE\r\nblnAllowAll = -1\r\nblnSkipNTFS = 0\r\n"
                               "blnErrorLog = FALSE\r\n");
    EXPECT_TRUE(options.blnSort);
    EXPECT_TRUE(options.blnAllowAll);
    EXPECT_FALSE(options.blnSkipNTFS);
    EXPECT_FALSE(options.blnErrorLog);
}

TEST_F(OptionsFile, TheCharacterBehindTheEqualSignIsPassedOver) {
    EXPECT_EQ(Read("strDefWebSize =xN - Minimized\r\n").strDefWebSize, "N - Minimized");
}

TEST_F(OptionsFile, AHalfIsRoundedToTheEvenNeighbour) {
    const auto& options = Read("bytHidden = 1.5\r\nbytSystem = 0.5\r\n");
    EXPECT_EQ(options.bytHidden, 2);
    EXPECT_EQ(options.bytSystem, 0);
}

TEST_F(OptionsFile, AnAttributeShowsOnItsBoxAtOnce) {
    Read("bytHidden = 1\r\nbytArchive = 0\r\nbytAlias = 2\r\n");
    EXPECT_EQ(Form().chkHidden.Value.Get(), 1);
    EXPECT_EQ(Form().chkHidden.ForeColor.Get(), fields::kRed);
    EXPECT_EQ(Form().chkArchive.Value.Get(), 0);
    EXPECT_EQ(Form().chkArchive.ForeColor.Get(), fields::kBlue);
    EXPECT_EQ(Form().chkAlias.Value.Get(), 2);
}

TEST_F(OptionsFile, TheKindOfObjectsAndTheSortShow) {
    Given("bytFilesVsDirs = 3\r\nbytSortBy = 2\r\nblnSort = True\r\n");
    program.Start("");
    EXPECT_EQ(Form().optFilesVsDirs.Chosen(), 3);
    EXPECT_EQ(Form().lstMain.SortKey.Get(), 2);
    EXPECT_EQ(Form().lstMain.SortOrder.Get(), fields::SortDirection::kDescending);
}

TEST_F(OptionsFile, SubfoldersAreSetAndLockedAtOnce) {
    Read("blnAllowUserSelectSubfolders = False\r\nblnDefaultToIncludeSubfolders = True\r\n");
    EXPECT_FALSE(Form().chkIncludeSubFolders.Enabled);
    EXPECT_EQ(Form().chkIncludeSubFolders.Value.Get(), 1);
}

TEST_F(OptionsFile, SubfoldersAreUnlockedByTheirLine) {
    Read("blnAllowUserSelectSubfolders = True\r\n");
    EXPECT_TRUE(Form().chkIncludeSubFolders.Enabled);
}

// ---- columns ----

TEST_F(OptionsFile, AColumnLineSetsItsColumn) {
    const auto& options = Read("blnListItems (SizeSubItem) = True\r\n"
                               "blnListItems (DateSubItem) = False\r\n");
    EXPECT_TRUE(options.blnListItems[results::kSize]);
    EXPECT_FALSE(options.blnListItems[results::kDate]);
    EXPECT_FALSE(options.blnListItems[results::kType]) << "its line is missing, the key is not";
    EXPECT_TRUE(S().blnListItems[results::kSize]);
}

TEST_F(OptionsFile, AnUnknownColumnIsIgnoredButItsKeyCountsAsMet) {
    const auto& options = Read("blnListItems (NoSuchColumn) = False\r\n");
    for (std::size_t i = 1; i < options.blnListItems.size(); ++i) {
        EXPECT_FALSE(options.blnListItems[i]) << i;
    }
}

TEST_F(OptionsFile, WithoutAColumnLineAllShow) {
    const auto& options = Read("blnSort = True\r\n");
    EXPECT_TRUE(options.blnListItems[results::kSize]);
    EXPECT_TRUE(options.blnListItems[results::kSearchForEntry]);
    EXPECT_FALSE(options.blnListItems[results::kShortPath]);
}

// ---- default search folders ----

TEST_F(OptionsFile, AFolderWithoutABracketStaysEmpty) {
    const auto& options = Read("strDefSearchFolder(3) = C:\\x\r\n");
    EXPECT_EQ(options.strDefSearchFolder[3], "");
    EXPECT_EQ(options.strDefSearchFolderTitle[3], "");
}

TEST_F(OptionsFile, AnEmptyFirstFolderBecomesTheDocumentsFolderWithoutATitle) {
    const auto& options = Read("strDefSearchFolder(0) = [Docs\r\n");
    EXPECT_EQ(options.strDefSearchFolder[0], "%UserProfile%\\Documents");
    EXPECT_EQ(options.strDefSearchFolderTitle[0], "");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "%UserProfile%\\Documents");
}

TEST_F(OptionsFile, TheFirstFolderIsTheLocationAtStart) {
    Read("strDefSearchFolder(0) = C:\\home\\ann\\Music[ Mine\r\n");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music");
    EXPECT_EQ(State().options.strDefSearchFolderTitle[0], " Mine");
}

TEST_F(OptionsFile, AFolderMayHoldBracketsOfTheOtherKindAndEqualSigns) {
    const auto& options = Read("strDefSearchFolder(4) = C:\\a (b)=c[t [x]\r\n");
    EXPECT_EQ(options.strDefSearchFolder[4], "C:\\a (b)=c");
    EXPECT_EQ(options.strDefSearchFolderTitle[4], "t [x]");
}

TEST_F(OptionsFile, WithoutAFolderLineTheFirstIsTheDocumentsFolder) {
    EXPECT_EQ(Read("blnSort = True\r\n").strDefSearchFolder[0], "%UserProfile%\\Documents");
}

TEST_F(OptionsFile, AFolderIndexBeyondTheTableEndsTheReading) {
    const auto& options = Read("strDefSearchFolder(99) = C:\\x[t\r\nblnSort = True\r\n");
    EXPECT_FALSE(options.blnSort);
    EXPECT_TRUE(WasTold("OpenOptionFile has not proceeded as expected."));
}

// ---- missing lines ----

TEST_F(OptionsFile, MissingLinesAreFilledIn) {
    Read("");
    ExpectLineMissingValues();
}

TEST_F(OptionsFile, AMissingWebSizeIsTheLetterAlone) {
    EXPECT_EQ(Read("").strDefWebSize, "R");
}

TEST_F(OptionsFile, AMissingByt64ClearsByt512AndRepaintsItsOwnBox) {
    const auto& options = Read("byt512 = 1\r\n");
    EXPECT_EQ(options.byt512, 0);
    EXPECT_EQ(options.byt64, 0);
    EXPECT_EQ(Form().chk512.Value.Get(), 1) << "the box keeps what was read";
    EXPECT_EQ(Form().chk64.Value.Get(), 0);
    EXPECT_EQ(Form().chk64.ForeColor.Get(), fields::kBlue);
}

TEST_F(OptionsFile, WithByt64ThereByt512Stays) {
    EXPECT_EQ(Read("byt64 = 0\r\nbyt512 = 1\r\n").byt512, 1);
}

// ---- short files ----

TEST_F(OptionsFile, AnEmptyFileLeavesTheValuesOfMissingLines) {
    Disk().AddFile(kFile, "");
    Start();
    EXPECT_TRUE(State().blnOptionFileFound);
    ExpectLineMissingValues();
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(OptionsFile, AFileOfOneLineHasNoSecondLine) {
    Disk().AddFile(kFile, "blnSort = True");
    Start();
    ExpectLineMissingValues();
    EXPECT_FALSE(State().options.blnSort);
}

TEST_F(OptionsFile, AFileWithoutItsEndMarkIsReadToItsEnd) {
    Disk().AddFile(kFile, Head(std::string(session::ProductVersion())) + "blnSort = True\r\n");
    Start();
    EXPECT_TRUE(State().options.blnSort);
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(OptionsFile, AnEndMarkInTheFirstTwoLinesNamesTheCopyAndKeepsTheDefaults) {
    Disk().AddFile(kFile, "*EOF\r\n*EOF\r\n");
    Start();
    ExpectLineMissingValues();
    EXPECT_TRUE(WasTold("TXOptionFile_*EOF.txt was created."));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\tarvix\\TXOptionFile_\xEF\x80\xAA"
                              "EOF.txt"));
}

// ---- versions ----

TEST_F(OptionsFile, AnotherVersionIsCopiedUnderItsOwnNumberWithTheMessage) {
    const std::string old = Head("6.3.11") + "blnSort = True\r\n*EOF";
    Disk().AddFile(kFile, old);
    Start();
    EXPECT_THAT(Told(), ElementsAre("Since you have upgraded Tarvix or possibly editted your "
                                    "options manually, a backup named:\r\n\r\n"
                                    "C:\\home\\ann\\tarvix\\TXOptionFile_6.3.11.txt was created."));
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\tarvix\\TXOptionFile_6.3.11.txt"), old);
    EXPECT_TRUE(State().options.blnSort) << "the old file is read all the same";
    EXPECT_THAT(Saved(), HasSubstr("\r\n" + std::string(session::ProductVersion()) + "\r\n"));
}

TEST_F(OptionsFile, ACopyOfThatVersionIsOverwritten) {
    Disk().AddFile("C:\\home\\ann\\tarvix\\TXOptionFile_1.0.0.txt", "older");
    Disk().AddFile(kFile, Head("1.0.0") + "*EOF");
    Start();
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\tarvix\\TXOptionFile_1.0.0.txt"),
              Head("1.0.0") + "*EOF");
}

TEST_F(OptionsFile, AVersionLineCannotLeadOutOfTheDataFolder) {
    Disk().AddFile("C:\\home\\ann\\mine.txt", "kept");
    Disk().AddFile(kFile, "x\r\n\\..\\..\\mine\r\n*EOF");
    Start();
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\mine.txt"), "kept");
    EXPECT_TRUE(State().blnStarted);
}

TEST_F(OptionsFile, ACopyThatCannotBeMadeLeavesTheFileAlone) {
    const std::string old = Head("1.0.0") + "blnSort = True\r\n*EOF";
    Disk().AddFile(kFile, old);
    machine.faults.FailCall("CopyFile", 1, platform::kDiskFull);
    Start();
    EXPECT_TRUE(WasTold("OpenOptionFile has not proceeded as expected."));
    EXPECT_EQ(Saved(), old);
}

// ---- the backup ----

TEST_F(OptionsFile, EachStartCopiesTheFileAsItWasRead) {
    Disk().AddFile(kBackup, "from an earlier start");
    Given("blnSort = True\r\n");
    const std::string asRead = *Disk().Content(kFile);
    Start();
    EXPECT_EQ(Disk().Content(kBackup), asRead);
}

// ---- failures ----

TEST_F(OptionsFile, AValueThatIsNoneEndsTheReadingAndTheRestIsFilledIn) {
    const auto& options = Read("blnSort = True\r\nbytArchive = much\r\nblnAllowAll = True\r\n");
    EXPECT_TRUE(options.blnSort);
    EXPECT_EQ(options.bytArchive, 2);
    EXPECT_FALSE(options.blnAllowAll);
    EXPECT_EQ(TimesTold("OpenOptionFile has not proceeded as expected."), 1U);
    EXPECT_EQ(prompts.Records().front().title, "Client Error Message");
    EXPECT_TRUE(WasTold("ERROR CODE:  13"));
    EXPECT_TRUE(WasTold("Search Folder or Destination: " + kFile));
}

TEST_F(OptionsFile, ANumberTooLargeForItsKeyIsAnOverflow) {
    EXPECT_EQ(Read("bytHidden = 3\r\n").bytHidden, 0);
    EXPECT_TRUE(WasTold("ERROR CODE:  6"));
}

TEST_F(OptionsFile, ALineThatEndsAtItsEqualSignHasAnEmptyValue) {
    EXPECT_EQ(Read("strDefWebSize =\r\nblnSort = True\r\n").strDefWebSize, "");
    EXPECT_TRUE(State().options.blnSort);
}

TEST_F(OptionsFile, AFileThatCannotBeOpenedIsToldAndLeftAlone) {
    Given("blnSort = True\r\n");
    const std::string before = *Disk().Content(kFile);
    machine.faults.FailPath(kFile, platform::kPermissionDenied, "OpenAsTextStream");
    Start();
    EXPECT_TRUE(WasTold("Permission denied on "));
    machine.faults.ClearFaults();
    EXPECT_EQ(Saved(), before);
}

TEST_F(OptionsFile, AFileThatCannotBeLookedAtIsToldAndLeftAlone) {
    Given("blnSort = True\r\n");
    const std::string before = *Disk().Content(kFile);
    machine.faults.FailPath(kFile, platform::kPermissionDenied, "Facts");
    Start();
    EXPECT_TRUE(WasTold("Permission denied on "));
    machine.faults.ClearFaults();
    EXPECT_EQ(Saved(), before);
}

TEST_F(OptionsFile, AFileThatWasNotReadWholeIsNeverReplaced) {
    Given("bytArchive = much\r\nblnAllowAll = True\r\n");
    const std::string before = *Disk().Content(kFile);
    Start();
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(*Disk().Content(State().strErrorLogFile),
                HasSubstr(" Routine : SaveOptionFile\r\n"));
}

TEST_F(OptionsFile, ASaveThatFailsAtAnyCallLeavesTheOldFileUnharmed) {
    Given("blnSort = True\r\n");
    Start();
    const std::string before = *Disk().Content(kFile);
    const std::string after = session::OptionFileText(S());
    machine.faults.ResetCounts();
    session::SaveOptionFile(S());
    const std::size_t calls = machine.faults.Count();
    ASSERT_GT(calls, 3U);
    for (std::size_t call = 1; call <= calls; ++call) {
        for (const int error : {platform::kDiskFull, platform::kPermissionDenied}) {
            Disk().AddFile(kFile, before);
            machine.faults.ResetCounts();
            machine.faults.ClearFaults();
            machine.faults.FailCall(call, error);
            session::SaveOptionFile(S());
            const auto now = Disk().Content(kFile);
            EXPECT_TRUE(now == before || now == after) << "call " << call;
        }
    }
}

TEST_F(OptionsFile, AFullDiskIsToldAndTheOldFileStands) {
    Given("blnSort = True\r\n");
    Start();
    const std::string before = *Disk().Content(kFile);
    machine.faults.FailAll("Write", platform::kDiskFull);
    session::SaveOptionFile(S());
    EXPECT_EQ(Disk().Content(kFile), before);
    EXPECT_TRUE(WasTold("unexpected error 61 "));
    EXPECT_FALSE(Disk().Exists(kFile + ".tmp"));
}

TEST_F(OptionsFile, ADataFolderThatCannotBeWrittenIsTold) {
    Given("blnSort = True\r\n");
    Start();
    const std::string before = *Disk().Content(kFile);
    machine.faults.FailAll("CreateTextFile", platform::kPermissionDenied);
    session::SaveOptionFile(S());
    EXPECT_EQ(Disk().Content(kFile), before);
    EXPECT_TRUE(WasTold("unexpected error 70 "));
}

TEST_F(OptionsFile, AReadOnlyFileIsReplaced) {
    Given("blnSort = True\r\n");
    Disk().Node(kFile)->attributes |= platform::kReadOnly;
    Start();
    EXPECT_THAT(Saved(), HasSubstr("blnSort = True\r\n"));
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(OptionsFile, WhatAnotherSaveIsWritingBesideItIsNotTouched) {
    Disk().UseClock([this] { return machine.clock.NowAsFileTime(); });
    Disk().AddFile(kFile + ".tmp", "another copy is writing this");
    Start();
    EXPECT_THAT(Saved(), HasSubstr("blnSort = False\r\n"));
    EXPECT_EQ(Disk().Content(kFile + ".tmp"), "another copy is writing this");
    EXPECT_FALSE(Disk().Exists(kFile + ".tmp1"));
}

TEST_F(OptionsFile, HandEditsMadeWhileTheProgramRunsAreLostAtClose) {
    Given("blnSort = True\r\n");
    Start();
    Given("blnSort = False\r\n");
    EXPECT_THAT(Saved(), HasSubstr("blnSort = True\r\n"));
}

// ---- variables ----

TEST_F(OptionsFile, AVariableLineHasItsNameAndItsPlace) {
    Disk().AddFolder("C:\\v");
    machine.environment.Set("my var", "C:\\v");
    machine.environment.Set("other", "C:\\v");
    const auto& options = Read("Include my var 00\r\n");
    ASSERT_FALSE(options.envVariables.empty());
    EXPECT_EQ(options.envVariables[0], (session::EnvVariable{true, "my var", "C:\\v"}));
}

TEST_F(OptionsFile, GapsBetweenThePlacesAreClosed) {
    Disk().AddFolder("C:\\v");
    machine.environment.Set("my var", "C:\\v");
    const auto& options = Read("Exclude my var 07\r\nblnSort = True\r\n");
    EXPECT_TRUE(options.blnSort);
    EXPECT_EQ(options.envVariables[0], (session::EnvVariable{false, "my var", "C:\\v"}))
        << "gaps are closed";
}

TEST_F(OptionsFile, AVariableThatIsGoneDisappears) {
    for (const auto& entry : Read("Include NoMore 00\r\n").envVariables) {
        EXPECT_NE(entry.strEnvVarName, "NoMore");
    }
}

TEST_F(OptionsFile, AVariableWrittenWithItsSignsIsKnown) {
    Disk().AddFolder("C:\\usr");
    const auto& options = Read("Include %windir% 03\r\n");
    ASSERT_FALSE(options.envVariables.empty());
    EXPECT_EQ(options.envVariables[0], (session::EnvVariable{true, "windir", "C:\\usr"}));
}

} // namespace
} // namespace tarvix::testing
