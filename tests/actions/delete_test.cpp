#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr const char* kConfirm =
    "Are you sure you want delete all selected objects?\r\n\r\n"
    "This program will delete read-only objects\r\n\r\n"
    "This program will not allow deletion of system or hidden (files/folders).\r\n"
    "Unless you select to override at the prompt.\r\n\r\n"
    "BUT if you select to delete a folder that contains system or hidden files.\r\n"
    "They will be deleted unless the selected folder has the attribute\r\n"
    "system or hidden set. Again unless you override.\r\n\r\n"
    "Also when deleting objects across a network or a usb drive, they will NOT be placed in the "
    "recycle bin";
constexpr const char* kWarning =
    "ARE YOU REALLY SURE???\r\n\r\n"
    "Deleting at least one folder and many files with include subfolders selected, may have "
    "unexpected results!\r\n\r\n"
    "Files with HIDDEN or SYSTEM Attributes may get DELETED with out single file warnings!\r\n\r\n"
    "Also when deleting files across a network or a usb drive, they will NOT be placed in the "
    "recycle bin'\r\n\r\n";
constexpr const char* kPartial =
    " Was unable to delete some (or one) of the queued objects to the recycle bin.";
constexpr const char* kAll = " Deleted all queued objects to the recycle bin.";

class Delete : public ProgramFixture {
  protected:
    enum Kind { kFiles = 0, kAllObjects = 2, kFolders = 3, kEmptyFolders = 4 };

    // Lists everything of one kind below C:\t.
    void Find(Kind kind = kFiles, bool withSubfolders = true) {
        Start();
        if (withSubfolders) WithSubfolders();
        LookForAllAttributes();
        Choose(Form().optFilesVsDirs, kind);
        Search("*", "C:\\t");
    }
    void Answer(std::initializer_list<const char*> answers) {
        for (const char* answer : answers) {
            prompts.Queue(answer);
        }
    }
    // Deletes the rows with these names, all without any.
    void DeleteRows(std::initializer_list<std::string_view> names = {}) {
        if (names.size() == 0) Click(Form().cmdSelectAll);
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            for (const std::string_view name : names) {
                if (program.Rows().At(i).name == name) program.Rows().At(i).selected = true;
            }
        }
        Click(Form().cmdDeleteSelected);
    }
    void ExpectTotals(int done, int skipped, int failed) {
        EXPECT_EQ(State().lastAction.done, done);
        EXPECT_EQ(State().lastAction.skipped, skipped);
        EXPECT_EQ(State().lastAction.failed, failed);
    }
    std::vector<std::string> Trashed() { return machine.bin.Paths(); }
};

TEST_F(Delete, SendsTheWholeSelectionToTheBinAndLogsEverything) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Disk().AddFile("C:\\t\\s\\b.txt", "2");
    Find();
    Answer({"Yes"});
    DeleteRows();
    EXPECT_THAT(Told(), ElementsAre(kConfirm));
    EXPECT_EQ(prompts.Records()[0].style & 7, 4) << "Yes and No";
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\a.txt", "C:\\t\\s\\b.txt"));
    ExpectTotals(2, 0, 0);
    EXPECT_EQ(State().strAction, "Delete");
    EXPECT_FALSE(State().blnActionCancelled);
    const std::string log = LogText();
    for (const char* entry :
         {" User selected to delete all selected objects to the recycle bin at start.",
          " C:\\t\\a.txt is queued for the recycle bin.",
          " C:\\t\\s\\b.txt is queued for the recycle bin.", kAll}) {
        EXPECT_TRUE(HasEntry(log, entry)) << entry;
    }
    EXPECT_FALSE(HasEntry(log, kPartial));
}

TEST_F(Delete, TheQueueIsLoggedInOneWriteBeforeItsFirstObjectGoes) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"})
        Disk().AddFile(std::string("C:\\t\\") + name, name);
    Find();
    Answer({"Yes"});
    Click(Form().cmdSelectAll);
    machine.faults.ResetCounts();
    std::string logged;
    std::size_t writes = 0;
    machine.faults.BeforeCall("Recycle", 1, [&] {
        logged = LogText();
        writes = machine.faults.Count("Flush");
    });
    Click(Form().cmdDeleteSelected);
    EXPECT_EQ(writes, 2u); // that the user chose to delete, and the queue
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        const std::string entry =
            std::string(" C:\\t\\") + name + " is queued for the recycle bin.";
        EXPECT_TRUE(HasEntry(logged, entry)) << entry;
    }
}

TEST_F(Delete, OnlyWhatIsSelectedGoes) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Find();
    Answer({"Yes"});
    DeleteRows({"b.txt"});
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\b.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
}

TEST_F(Delete, WithNothingSelectedItSaysSo) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Click(Form().cmdDeleteSelected);
    EXPECT_THAT(Told(), ElementsAre("Nothing is selected."));
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(Delete, WithNothingSelectedAnAutomatedRunIsNotTold) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    State().blnAutoMove = true;
    S().events.Raise(S(), "frmSearch.cmdDeleteSelected_Click");
    State().blnAutoMove = false;
    State().blnAutoPlayList = true;
    S().events.Raise(S(), "frmSearch.cmdDeleteSelected_Click");
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Delete, NoLeavesEverythingInPlace) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Answer({"No"});
    DeleteRows();
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_TRUE(State().blnActionCancelled);
    EXPECT_FALSE(HasEntry(
        LogText(), " User selected to delete all selected objects to the recycle bin at start."));
}

struct WarningCase {
    const char* name;
    int kind;
    bool withSubfolders;
    std::vector<std::string_view> selected;
    bool warns;
};

class DeleteWarning : public Delete, public ::testing::WithParamInterface<WarningCase> {};

TEST_P(DeleteWarning, StandsInFrontOfTheQuestionWhereFoldersAndFilesMix) {
    for (const char* path : {"C:\\t\\d\\1.txt", "C:\\t\\e\\2.txt", "C:\\t\\f.txt"}) {
        Disk().AddFile(path);
    }
    Disk().AddFolder("C:\\t\\g");
    Disk().AddFolder("C:\\t\\h");
    const WarningCase& c = GetParam();
    Find(static_cast<Kind>(c.kind), c.withSubfolders);
    for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
        const bool isSelected = std::ranges::count(c.selected, program.Rows().At(i).name) > 0;
        program.Rows().At(i).selected = isSelected;
    }
    Answer({"No"});
    Click(Form().cmdDeleteSelected);
    EXPECT_THAT(Told(), ElementsAre((c.warns ? kWarning : std::string()) + kConfirm));
}

INSTANTIATE_TEST_SUITE_P(
    All, DeleteWarning,
    ::testing::Values(WarningCase{"OneFileAndOneFolder", 2, true, {"d", "f.txt"}, true},
                      WarningCase{"TwoFolders", 2, true, {"d", "e"}, true},
                      WarningCase{"TwoFoldersAndAFile", 2, true, {"d", "e", "f.txt"}, true},
                      WarningCase{"OneFolder", 2, true, {"d"}, false},
                      WarningCase{"FilesOnly", 2, true, {"1.txt", "f.txt"}, false},
                      WarningCase{"TwoFoldersFoundAsFolders", 3, true, {"d", "e"}, true},
                      WarningCase{"TwoEmptyFolders", 4, true, {"g", "h"}, false},
                      WarningCase{"TwoFoldersWithoutSubfolders", 2, false, {"d", "e"}, false},
                      WarningCase{
                          "AFileAndAFolderWithoutSubfolders", 2, false, {"d", "f.txt"}, false}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(Delete, AFolderWithAFileInItGoesOnceAndIsNoFailure) {
    Disk().AddFile("C:\\t\\d\\a.txt", "1");
    Find(kAllObjects);
    Answer({"Yes"});
    DeleteRows();
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\d"));
    ExpectTotals(2, 0, 0);
    EXPECT_TRUE(HasEntry(LogText(), kAll));
    ASSERT_TRUE(machine.bin.Restore("C:\\t\\d"));
    EXPECT_EQ(Disk().Content("C:\\t\\d\\a.txt"), "1");
}

TEST_F(Delete, AHiddenObjectWithNoIsSkippedAndLogged) {
    Disk().AddFile("C:\\t\\.h");
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Answer({"Yes", "cmdNo"});
    DeleteRows();
    EXPECT_EQ(Told()[1], "C:\\t\\.h\r\n has the attribute(s) system or hidden. \r\nFile was not "
                         "deleted. \r\n\r\nWould you like to delete anyway?");
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\a.txt"));
    ExpectTotals(1, 1, 0);
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " User selected do not override to: C:\\t\\.h"));
    EXPECT_TRUE(HasEntry(log, " User skipped delete of C:\\t\\.h"));
    EXPECT_FALSE(HasEntry(log, " C:\\t\\.h is queued for the recycle bin."));
}

TEST_F(Delete, AHiddenObjectWithYesIsQueuedWithTheOthers) {
    Disk().AddFile("C:\\t\\.h");
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Answer({"Yes", "cmdYes"});
    DeleteRows();
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\.h", "C:\\t\\a.txt"));
    EXPECT_TRUE(HasEntry(LogText(), " User selected override to: C:\\t\\.h"));
}

TEST_F(Delete, ASystemFolderIsAskedAboutAsAFolder) {
    Disk().AddFolder("C:\\t\\d").attributes = platform::kSystem;
    Find(kFolders);
    Answer({"Yes", "cmdNo"});
    DeleteRows();
    EXPECT_NE(Told()[1].find("\r\nFolder was not deleted. \r\n"), std::string::npos);
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_FALSE(HasEntry(LogText(), kAll)) << "nothing was queued";
}

TEST_F(Delete, AnAnswerForAllHiddenObjectsStandsUntilTheNextDelete) {
    for (const char* path : {"C:\\t\\.h", "C:\\t\\.i", "C:\\t\\.j"}) {
        Disk().AddFile(path);
    }
    Find();
    Answer({"Yes", "cmdNoToAll"});
    DeleteRows();
    EXPECT_EQ(TimesTold("has the attribute(s)"), 1U);
    ExpectTotals(0, 3, 0);
    Answer({"Yes", "cmdYesToAll"});
    DeleteRows();
    EXPECT_EQ(TimesTold("has the attribute(s)"), 2U);
    ExpectTotals(3, 0, 0);
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\.h", "C:\\t\\.i", "C:\\t\\.j"));
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " User selected do not override to all at: C:\\t\\.h"));
    EXPECT_TRUE(HasEntry(log, " User selected override to all at: C:\\t\\.h"));
}

TEST_F(Delete, ACancelInTheOverridePromptLeavesEverythingInPlace) {
    Disk().AddFile("C:\\t\\.h");
    Disk().AddFile("C:\\t\\A.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Find();
    ASSERT_THAT(Names(), ElementsAre(".h", "A.txt", "b.txt"));
    Answer({"Yes", "cmdCancel"});
    DeleteRows();
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_TRUE(State().blnActionCancelled);
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " User selected cancel to all in override form at: C:\\t\\.h"));
    EXPECT_TRUE(HasEntry(log, " User canceled delete of the objects"));
    EXPECT_FALSE(HasEntry(log, kAll));
    EXPECT_FALSE(HasEntry(log, kPartial));
}

TEST_F(Delete, ACancelOfTheRecycleFailureThatStandsLeavesEverythingInPlace) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Find();
    S().forms.frmOverrideRecycleFail.Answer = 4; // Cancel
    Answer({"Yes"});
    DeleteRows();
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_TRUE(State().blnActionCancelled);
    EXPECT_TRUE(HasEntry(LogText(), " User canceled delete of the objects"));
}

TEST_F(Delete, ACancelAfterOthersWereQueuedLeavesThemToo) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt").attributes = platform::kHidden;
    Find();
    Answer({"Yes", "cmdCancel"});
    DeleteRows();
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(Delete, AReadOnlyObjectGoesUnasked) {
    Disk().AddFile("C:\\t\\a.txt").attributes = platform::kReadOnly;
    Find();
    Answer({"Yes"});
    DeleteRows();
    EXPECT_THAT(Told(), ElementsAre(kConfirm));
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\a.txt"));
}

TEST_F(Delete, AutomaticModeIsOffForTheDeletionSoThatThePromptsAppear) {
    Disk().AddFile("C:\\t\\.h");
    Find();
    State().options.blnAutoMode = true;
    Answer({"Yes", "OK", "cmdNo"});
    DeleteRows();
    EXPECT_EQ(Told()[1], "Turning off automatic mode during delete.");
    EXPECT_EQ(TimesTold("has the attribute(s)"), 1U);
    EXPECT_TRUE(State().options.blnAutoMode) << "on again at the end";
}

TEST_F(Delete, AutomaticModeIsOnAgainAfterACancel) {
    Disk().AddFile("C:\\t\\.h");
    Find();
    State().options.blnAutoMode = true;
    Answer({"Yes", "OK", "cmdCancel"});
    DeleteRows();
    EXPECT_TRUE(State().options.blnAutoMode);
}

TEST_F(Delete, AutomaticModeIsUntouchedByANo) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    State().options.blnAutoMode = true;
    Answer({"No"});
    DeleteRows();
    EXPECT_THAT(Told(), ElementsAre(kConfirm));
    EXPECT_TRUE(State().options.blnAutoMode);
}

TEST_F(Delete, AnswersLiveForOneDeletion) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    machine.bin.SetHasTrash("C:", false);
    Find();
    Answer({"Yes", "cmdNoToAll"});
    DeleteRows();
    EXPECT_EQ(S().forms.frmOverrideRecycleFail.Answer, 0);
    Answer({"Yes", "cmdYesToAll"});
    DeleteRows();
    EXPECT_EQ(TimesTold("failed to be recycled"), 2U);
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\b.txt"));
}

TEST_F(Delete, OneObjectThatFailsIsAskedAboutWithoutThePartialLine) {
    Disk().AddFile("C:\\t\\a.txt");
    machine.bin.Refuse("C:\\t\\a.txt", 70);
    Find();
    Answer({"Yes", "cmdNo"});
    DeleteRows();
    EXPECT_EQ(TimesTold("C:\\t\\a.txt\r\n\r\n failed to be recycled. "), 1U);
    ExpectTotals(0, 0, 1);
    const std::string log = LogText();
    EXPECT_FALSE(HasEntry(log, kPartial));
    EXPECT_FALSE(HasEntry(log, kAll)) << "it is still there";
}

TEST_F(Delete, OneObjectThatIsDeletedForGoodIsAllThatWasQueued) {
    Disk().AddFile("C:\\t\\a.txt");
    machine.bin.Refuse("C:\\t\\a.txt", 70);
    Find();
    Answer({"Yes", "cmdYes"});
    DeleteRows();
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " Deleted C:\\t\\a.txt since recycle failed."));
    EXPECT_TRUE(HasEntry(log, kAll));
    EXPECT_FALSE(HasEntry(log, kPartial));
}

TEST_F(Delete, AFailureInTheMiddleCostsOnePromptAndTheRestGoes) {
    for (const char* path : {"C:\\t\\a.txt", "C:\\t\\b.txt", "C:\\t\\c.txt"}) {
        Disk().AddFile(path);
    }
    Find();
    machine.faults.FailCall("Recycle", 2, 70);
    Answer({"Yes", "cmdNo"});
    DeleteRows();
    EXPECT_EQ(TimesTold("failed to be recycled"), 1U);
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\a.txt", "C:\\t\\c.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\b.txt"));
    ExpectTotals(2, 0, 1);
    EXPECT_FALSE(State().blnActionCancelled);
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, kPartial));
    EXPECT_FALSE(HasEntry(log, kAll));
}

TEST_F(Delete, ACancelWhileRecyclingLeavesTheRestAndWhatWentStaysInTheBin) {
    for (const char* path : {"C:\\t\\a.txt", "C:\\t\\b.txt", "C:\\t\\c.txt"}) {
        Disk().AddFile(path);
    }
    machine.bin.Refuse("C:\\t\\b.txt", 70);
    Find();
    Answer({"Yes", "cmdCancel"});
    DeleteRows();
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\a.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\c.txt"));
    ExpectTotals(1, 1, 1);
    EXPECT_TRUE(State().blnActionCancelled);
}

TEST_F(Delete, AStopEndsTheRecyclingBeforeTheNextObject) {
    for (int i = 0; i < 9; ++i) {
        Disk().AddFile("C:\\t\\" + std::to_string(i));
    }
    Find();
    Answer({"Yes"});
    machine.faults.BeforeCall("Recycle", 3, [this] { Click(Form().cmdStop); });
    DeleteRows();
    EXPECT_EQ(Trashed().size(), 3U);
    ExpectTotals(3, 6, 0);
    EXPECT_TRUE(State().blnActionCancelled);
    EXPECT_FALSE(Form().cmdStop.Visible);
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " User stopped the delete of the objects."));
    EXPECT_FALSE(HasEntry(log, kAll));
    EXPECT_FALSE(HasEntry(log, " User selected to stop search."));
}

TEST_F(Delete, AStopWhileTheQueueIsBuiltRecyclesNothing) {
    for (int i = 0; i < 9; ++i) {
        Disk().AddFile("C:\\t\\" + std::to_string(i));
    }
    Find();
    Answer({"Yes"});
    Click(Form().cmdSelectAll);
    S().yielder.After(4, [this] { Click(Form().cmdStop); });
    Click(Form().cmdDeleteSelected);
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_TRUE(HasEntry(LogText(), " User canceled delete of the objects"));
}

TEST_F(Delete, TheBinItselfIsNeverDeleted) {
    Disk().AddDrive("E:");
    for (const char* path : {"E:\\RECYCLER\\f", "E:\\Recycled\\f", "E:\\$RECYCLE.BIN\\f"}) {
        Disk().AddFile(path);
    }
    Disk().AddFile("E:\\d\\Recycled\\f");
    Start();
    WithSubfolders();
    LookForAllAttributes();
    Choose(Form().optFilesVsDirs, kFolders);
    Search("*recyc*", "E:\\");
    ASSERT_EQ(Names().size(), 4U);
    Answer({"Yes"});
    DeleteRows();
    EXPECT_THAT(Trashed(), ElementsAre("E:\\d\\Recycled")) << "that is no bin";
    ExpectTotals(1, 3, 0);
    EXPECT_TRUE(
        HasEntry(LogText(), " Skipped delete of E:\\Recycled. Because it is the Recycle Bin."));
}

TEST_F(Delete, TheTrashOfTheDesktopIsNeverDeleted) {
    Disk().AddFile("C:\\home\\ann\\.local\\share\\Trash\\files\\f");
    Disk().AddFile("C:\\home\\ann\\.local\\share\\.Trash-1000\\files\\f");
    Start();
    LookForAllAttributes();
    Choose(Form().optFilesVsDirs, kFolders);
    Search("*trash*|*recyc*", "C:\\home\\ann\\.local\\share");
    ASSERT_THAT(Names(), UnorderedElementsAre(".Trash-1000", "Trash"));
    Answer({"Yes", "cmdYesToAll"});
    DeleteRows();
    EXPECT_THAT(Trashed(), IsEmpty());
    ExpectTotals(0, 2, 0);
}

TEST_F(Delete, TheStatusLineTellsAndGoesBack) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Form().lblStatus.Caption = "before";
    std::string during;
    machine.faults.BeforeCall("Recycle", 1, [&] { during = Form().lblStatus.Caption.Get(); });
    Answer({"Yes"});
    Click(Form().cmdSelectAll);
    const std::string before = Form().lblStatus.Caption.Get();
    Click(Form().cmdDeleteSelected);
    EXPECT_EQ(during, "Recycling: Everything selected at once.");
    EXPECT_EQ(Form().lblStatus.Caption.Get(), before);
}

TEST_F(Delete, InAutomaticModeTheStatusLineSaysDeleting) {
    Find();
    State().options.blnAutoMode = true;
    Click(Form().cmdDeleteSelected);
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Deleting");
}

TEST_F(Delete, TheSearchIsRepeatedAfterwardsWhenThatIsAskedFor) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Find();
    Set(Form().chkRepeatSearch, "1");
    Answer({"Yes"});
    DeleteRows({"a.txt"});
    EXPECT_THAT(Names(), ElementsAre("b.txt"));
}

TEST_F(Delete, AnObjectThatCannotBeReadIsNotDeleted) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Find();
    Click(Form().cmdSelectAll);
    machine.faults.FailPath("C:\\t\\a.txt", 75);
    Answer({"Yes"});
    Click(Form().cmdDeleteSelected);
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\b.txt"));
    EXPECT_TRUE(HasEntry(LogText(), " User skipped delete of C:\\t\\a.txt"));
}

// Empty folders found and deleted again and again, until none are found.
class DeleteEmptyFolders : public Delete {
  protected:
    void FindAndDelete() {
        Start();
        WithSubfolders();
        LookForAllAttributes();
        Set(Form().chkRepeatSearch, "1");
        Choose(Form().optFilesVsDirs, kEmptyFolders);
        Search("*", "C:\\t");
    }
};

TEST_F(DeleteEmptyFolders, LevelByLevelWithoutAConfirmation) {
    Disk().AddFolder("C:\\t\\a\\b\\c");
    Disk().AddFolder("C:\\t\\x");
    Disk().AddFile("C:\\t\\full\\f.txt");
    Answer({"Yes", "Yes"});
    FindAndDelete();
    EXPECT_THAT(Told(),
                ElementsAre(::testing::StartsWith("Would you like every empty folder"),
                            ::testing::StartsWith("Are you sure?,"),
                            "All empty folders, matching search criteria, have been deleted."));
    EXPECT_THAT(Trashed(),
                UnorderedElementsAre("C:\\t\\x", "C:\\t\\a\\b\\c", "C:\\t\\a\\b", "C:\\t\\a"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\full\\f.txt"));
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
}

TEST_F(DeleteEmptyFolders, InAutomaticModeNothingSaysThatItIsOff) {
    Disk().AddFolder("C:\\t\\a\\b");
    Start();
    State().options.blnAutoMode = true;
    Answer({"Yes", "Yes"});
    WithSubfolders();
    LookForAllAttributes();
    Set(Form().chkRepeatSearch, "1");
    Choose(Form().optFilesVsDirs, kEmptyFolders);
    Search("*", "C:\\t");
    EXPECT_FALSE(WasTold("Turning off automatic mode"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\a"));
    EXPECT_TRUE(State().options.blnAutoMode);
}

TEST_F(DeleteEmptyFolders, WhatCannotBeDeletedDoesNotRepeatForEver) {
    Disk().AddFolder("C:\\t\\a");
    machine.bin.SetHasTrash("C:", false);
    Answer({"Yes", "Yes", "cmdNo"});
    FindAndDelete();
    EXPECT_EQ(TimesTold("failed to be recycled"), 1U);
    EXPECT_TRUE(WasTold("No more of the empty folders could be deleted."));
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
    EXPECT_TRUE(Disk().Exists("C:\\t\\a"));
}

TEST_F(DeleteEmptyFolders, AHiddenFolderThatIsKeptDoesNotRepeatForEver) {
    Disk().AddFolder("C:\\t\\.a");
    Disk().AddFolder("C:\\t\\b");
    Answer({"Yes", "Yes", "cmdNo", "cmdNo"});
    FindAndDelete();
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\b"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\.a"));
    EXPECT_EQ(TimesTold("has the attribute(s)"), 2U) << "at each of two passes";
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
}

TEST_F(DeleteEmptyFolders, AStopDuringTheRecyclingEndsTheRepetition) {
    Disk().AddFolder("C:\\t\\a\\b");
    Disk().AddFolder("C:\\t\\c\\d");
    Answer({"Yes", "Yes"});
    machine.faults.BeforeCall("Recycle", 1, [this] { Click(Form().cmdStop); });
    FindAndDelete();
    EXPECT_THAT(Trashed(), ElementsAre("C:\\t\\a\\b"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\c\\d"));
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
    EXPECT_EQ(Told().size(), 2U) << "the user knows why it ended";
}

TEST_F(DeleteEmptyFolders, AFolderFilledBeforeItIsRecycledStaysWithWhatItHolds) {
    Disk().AddFolder("C:\\t\\a");
    Answer({"Yes", "Yes"});
    machine.faults.BeforeCall("Recycle", 1, [this] { Disk().AddFile("C:\\t\\a\\new", "1"); });
    FindAndDelete();
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_EQ(Disk().Content("C:\\t\\a\\new"), "1");
}

class TrashInACrawl : public Delete {
  protected:
    TrashInACrawl() {
        Disk().AddFile("C:\\home\\ann\\.local\\share\\Trash\\files\\old.txt");
        Disk().AddFile("C:\\home\\ann\\.local\\kept.txt");
        Disk().AddDrive("E:");
        Disk().AddFile("E:\\.Trash-1000\\files\\old.txt");
        Disk().AddFile("E:\\.Trash\\1000\\files\\old.txt");
        Disk().AddFile("E:\\$RECYCLE.BIN\\old.txt");
        Disk().AddFile("E:\\kept.txt");
    }
    void Crawl(std::string_view patterns, std::string_view location) {
        Start();
        WithSubfolders();
        LookForAllAttributes();
        Search(patterns, location);
    }
};

TEST_F(TrashInACrawl, IsLeftOut) {
    Crawl("*.txt", "C:\\home\\ann\\.local|E:");
    EXPECT_THAT(Names(), ElementsAre("kept.txt", "kept.txt"));
}

TEST_F(TrashInACrawl, IsTakenWhenTheSearchStringNamesARecycleFolder) {
    Crawl("*.txt|*recyc*", "E:");
    EXPECT_EQ(Names().size(), 4U);
}

TEST_F(TrashInACrawl, IsTakenWhenItIsTheLocation) {
    Crawl("*.txt", "C:\\home\\ann\\.local\\share\\Trash|E:\\.Trash-1000");
    EXPECT_THAT(Names(), ElementsAre("old.txt", "old.txt"));
}

TEST_F(TrashInACrawl, AnOrdinaryFolderOfThatNameIsCrawled) {
    Disk().AddFile("C:\\t\\Trash\\a.txt");
    Disk().AddFile("C:\\t\\.Trash-notes\\b.txt");
    Crawl("*.txt", "C:\\t");
    EXPECT_THAT(Names(), UnorderedElementsAre("a.txt", "b.txt"));
}

} // namespace
} // namespace tarvix::testing
