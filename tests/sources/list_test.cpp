#include "tests/sources/source_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ListTest : public SourceFixture {
  protected:
    ListTest() {
        for (const char* name : {"a.txt", "b.txt", "c"})
            Disk().AddFile(std::string("C:\\t\\") + name, name);
    }
    void Write(const std::string& text) { Disk().AddFile("C:\\list.txt", text); }
    void Rename(const std::string& text, int kind = 0) {
        Write(text);
        Find(kind);
        Do(Form().mnuRenameSelFromFile, List("C:\\list.txt"));
    }
    static std::string End(const std::string& first, const std::string& old,
                           const std::string& name) {
        return first + "\r\n\r\nThe last object named was: \r\n\r\nC:\\t\\" + old +
               "\r\n\r\n to: \r\n\r\n" + name +
               "\r\n\r\nFiles are always processed completely before processing folders.";
    }
};

TEST_F(ListTest, LineByLineTheNamesWithoutExtensions) {
    Rename("one\r\ntwo\r\nthree\r\n*EOF\r\n");
    EXPECT_THAT(Files(), ElementsAre("one.txt", "three", "two.txt"));
    EXPECT_EQ(Content("two.txt"), "b.txt");
    EXPECT_THAT(Told(),
                Contains(End("All objects renamed. No extra names to use. ", "c", "three")));
    ExpectTotals(3, 0, 0);
    EXPECT_FALSE(stayedOpen);
    ExpectLog({" User clicked the on the 'Rename Objects based on list' menu item which opened the "
               "Action form. ",
               " User selected to rename all files based on a list within this file: "
               "C:\\list.txt"});
}

TEST_F(ListTest, ALineWithAnExtensionGivesASecondOne) {
    Rename("one.txt\r\nb\r\nc\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("b.txt", "c", "one.txt.txt"));
}

TEST_F(ListTest, LineKGoesWithObjectKInBothPasses) {
    Disk().AddFolder("C:\\t\\bb");
    Find(2);
    const std::vector<std::string> names = Names();
    ASSERT_THAT(names, ::testing::UnorderedElementsAre("a.txt", "b.txt", "bb", "c"));
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i)
        list += "n" + std::to_string(i) + "\r\n";
    Write(list + "*EOF");
    Do(Form().mnuRenameSelFromFile, List("C:\\list.txt"));
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string newName =
            "n" + std::to_string(i) + (names[i].ends_with(".txt") ? ".txt" : "");
        if (names[i] == "bb") {
            EXPECT_THAT(Folders(), ElementsAre(newName));
        } else {
            EXPECT_EQ(Content(newName), names[i]);
        }
    }
}

TEST_F(ListTest, FilesComeBeforeFolders) {
    Disk().AddFile("C:\\t\\sub\\d.txt", "d");
    Disk().AddFile("C:\\none.txt", "");
    Find(2);
    std::string list;
    for (std::size_t i = 0; i < Names().size(); ++i)
        list += "n" + std::to_string(i) + "\r\n";
    Write(list + "*EOF");
    Do(Form().mnuRenameSelFromFile, List("C:\\list.txt"));
    ExpectTotals(5, 0, 0);
    EXPECT_THAT(Folders(), ElementsAre(::testing::StartsWith("n")));
}

TEST_F(ListTest, ABlankLineStopsTheRun) {
    Rename("one\r\n  \r\nthree\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("b.txt", "c", "one.txt"));
    EXPECT_THAT(Told(),
                Contains(End("There was a blank line in the rename file. ", "a.txt", "one.txt")));
    ExpectTotals(1, 0, 0);
}

TEST_F(ListTest, ABlankLineBehindTheLastObjectStopsNothing) {
    Rename("one\r\ntwo\r\nthree\r\n\r\n*EOF");
    EXPECT_THAT(Told(),
                Contains(End("All objects renamed. No extra names to use. ", "c", "three")));
}

TEST_F(ListTest, MoreObjectsThanNames) {
    Rename("one\r\ntwo\r\n*EOF");
    EXPECT_THAT(Told(), Contains(End("There were more objects to rename than names in the list. ",
                                     "b.txt", "two.txt")));
    EXPECT_TRUE(Disk().Exists("C:\\t\\c"));
}

TEST_F(ListTest, MoreNamesThanObjects) {
    Rename("one\r\ntwo\r\nthree\r\nfour\r\n*EOF");
    EXPECT_THAT(Told(), Contains(End("There were more names in the list than objects to rename. ",
                                     "c", "three")));
}

TEST_F(ListTest, AListWithoutItsMarkRenamesNothingAndGetsIt) {
    Rename("one\r\ntwo\r\nthree");
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
    EXPECT_TRUE(WasTold("*EOF missing from end of text file. Ending Object renaming. Adding *EOF "
                        "mark for next usage."));
    EXPECT_EQ(Disk().Content("C:\\list.txt"), "one\r\ntwo\r\nthree\r\n*EOF");
    EXPECT_FALSE(Names().empty()) << "the list of what was found stands";
    Find();
    Do(Form().mnuRenameSelFromFile, List("C:\\list.txt"));
    EXPECT_THAT(Files(), ElementsAre("one.txt", "three", "two.txt"));
}

TEST_F(ListTest, AListThatHasGoneIsTold) {
    Write("one\r\n*EOF");
    Find();
    Do(Form().mnuRenameSelFromFile, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\list.txt");
        S().yielder.After(1, [] {});
        machine.faults.FailPath("C:\\list.txt", platform::kPermissionDenied, "OpenAsTextStream");
    });
    EXPECT_TRUE(WasTold("File not found."));
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
}

TEST_F(ListTest, ALineEqualToTheOwnNameLeavesIt) {
    Rename("a\r\nb\r\nthree\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "three"));
    ExpectTotals(1, 2, 0);
    EXPECT_EQ(Totals().unchanged, 2);
}

TEST_F(ListTest, ANameThatIsTakenGoesToTheRuleForDuplicates) {
    Rename("b\r\na\r\nc\r\n*EOF");
    EXPECT_EQ(Content("b_.txt"), "a.txt");
    EXPECT_EQ(Content("a.txt"), "b.txt");
    ExpectTotals(2, 1, 0);
}

TEST_F(ListTest, ANameInAnotherCaseIsNoDuplicate) {
    Rename("A\r\nb\r\nC\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("A.txt", "b.txt", "C"));
}

TEST_F(ListTest, NoLineLeadsToAnotherFolder) {
    Rename("..\\x\r\nd/e\r\n..\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
    EXPECT_TRUE(WasTold("No file can have such a name."));
    ExpectTotals(0, 3, 0);
}

TEST_F(ListTest, WithoutATextForDuplicatesAnUnderscoreIsUsed) {
    Write("b\r\nb\r\nc\r\n*EOF");
    Find();
    Do(Form().mnuRenameSelFromFile, [this](fields::FrmDialog& form) {
        form.txtRename.Text = "";
        Set(form.cmbDir, "C:\\list.txt");
    });
    EXPECT_EQ(Content("b_.txt"), "a.txt");
}

TEST_F(ListTest, ALongNewPathIsAskedAbout) {
    Rename(std::string(255, 'x') + "\r\nb\r\nc\r\n*EOF");
    EXPECT_THAT(LogText(), HasSubstr(" User selected to skip the action from C:\\t\\a.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
}

TEST_F(ListTest, ACancelAtALongPathEndsTheRoutine) {
    Write(std::string(255, 'x') + "\r\ntwo\r\nthree\r\n*EOF");
    Find();
    Do(Form().mnuRenameSelFromFile, List("C:\\list.txt"), {"OK", "cmdCancel"});
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
    EXPECT_FALSE(WasTold("The last object named was"));
}

TEST_F(ListTest, ThePreviewTellsNamesAndDuplicates) {
    Write("b\r\nb\r\nthree\r\n*EOF");
    Find();
    EXPECT_THAT(Foretell(Form().mnuRenameSelFromFile, List("C:\\list.txt")),
                ElementsAre("C:\\t\\b_.txt - duplicate: rename", "C:\\t\\b.txt - unchanged",
                            "C:\\t\\three - rename"));
    EXPECT_EQ(refusal, "");
}

TEST_F(ListTest, ThePreviewOfAListWithoutItsMarkSaysSoAndLeavesIt) {
    Write("one");
    Find();
    EXPECT_THAT(Foretell(Form().mnuRenameSelFromFile, List("C:\\list.txt")), ElementsAre());
    EXPECT_THAT(refusal, HasSubstr("*EOF missing from end of text file."));
    EXPECT_EQ(Disk().Content("C:\\list.txt"), "one");
}

TEST_F(ListTest, ThePresentNamesAreWrittenAndShownForEditing) {
    Disk().AddFile("C:\\t\\.profile", "p");
    Find();
    Do(Form().mnuRenameSelFromFile, [this](fields::FrmDialog& form) {
        Click(form.cmdEditNames);
        const std::string list = form.cmbDir.Text;
        EXPECT_THAT(list, HasSubstr("\\Rename List.txt"));
        EXPECT_EQ(Disk().Content(list), ".profile\r\na\r\nb\r\nc\r\n*EOF\r\n");
        Disk().AddFile(list, ".profile\r\na\r\nx\r\nc\r\n*EOF\r\n");
        Click(form.cmdEditNames);
        EXPECT_THAT(form.cmbDir.Text.Get(), HasSubstr("\\Rename List 2.txt"));
        Set(form.cmbDir, list);
    });
    EXPECT_THAT(Files(), ElementsAre(".profile", "a.txt", "c", "x.txt"));
    EXPECT_EQ(Totals().unchanged, 3);
}

// ---- whole names, which may change places ----

TEST_F(ListTest, WholeNamesChangePlaces) {
    Write("b.txt\na.txt\nd.md\n");
    Find();
    EXPECT_THAT(Foretell(Form().mnuRenameSelFromFile, Whole("C:\\list.txt")),
                ::testing::UnorderedElementsAre("C:\\t\\b.txt - rename", "C:\\t\\a.txt - rename",
                                                "C:\\t\\d.md - rename"));
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "d.md"));
    EXPECT_EQ(Content("b.txt"), "a.txt");
    EXPECT_EQ(Content("a.txt"), "b.txt");
    EXPECT_EQ(Content("d.md"), "c");
    ExpectTotals(3, 0, 0);
}

TEST_F(ListTest, ARingOfThreeAndAChain) {
    Disk().AddFile("C:\\t\\d", "d");
    Disk().AddFile("C:\\t\\e", "e");
    Write("b.txt\r\nc\r\na.txt\r\ne\r\nf\r\n*EOF\r\n");
    Find();
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_EQ(Content("b.txt"), "a.txt");
    EXPECT_EQ(Content("c"), "b.txt");
    EXPECT_EQ(Content("a.txt"), "c");
    EXPECT_EQ(Content("e"), "d");
    EXPECT_EQ(Content("f"), "e");
    ExpectTotals(5, 0, 0);
}

TEST_F(ListTest, AnotherNumberOfLinesRenamesNothing) {
    Write("x\ny\n");
    Find();
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_TRUE(WasTold("Nothing was renamed.\r\n\r\nThe list has 2 lines for 3 objects"));
    EXPECT_TRUE(stayedOpen);
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
}

TEST_F(ListTest, ABlankLineAmongWholeNamesRenamesNothing) {
    Write("x\n\ny\n");
    Find();
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_TRUE(
        WasTold("Line 2 of the list is blank: the object C:\\t\\b.txt needs a name there."));
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
}

TEST_F(ListTest, NamesThatClashRenameNothing) {
    Disk().AddFile("C:\\t\\other.md", "o");
    Write("x\nX\nother.md\n");
    Find(0, "a.txt|b.txt|c");
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_TRUE(WasTold("C:\\t\\a.txt and C:\\t\\b.txt would both be called X."));
    EXPECT_TRUE(WasTold("C:\\t\\other.md exists already, so C:\\t\\c can't get that name."));
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c", "other.md"));
}

TEST_F(ListTest, ARingThatCannotBeClosedIsTakenBack) {
    Write("b.txt\na.txt\nc\n");
    Find();
    State().options.blnAutoMode = true;
    machine.faults.FailPath("C:\\t\\b.txt", platform::kPathFileAccess, "MoveFile");
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_EQ(Content("a.txt"), "a.txt");
    EXPECT_EQ(Content("b.txt"), "b.txt");
    EXPECT_THAT(Files(), ElementsAre("a.txt", "b.txt", "c"));
    EXPECT_EQ(Totals().done, 0);
    EXPECT_EQ(Totals().failed, 1);
}

TEST_F(ListTest, FoldersAndWhatLiesInThemChangePlaces) {
    Disk().AddFile("C:\\t\\p\\in.txt", "in p");
    Disk().AddFile("C:\\t\\q\\in.txt", "in q");
    Find(2, "p|q|in*");
    std::string list;
    for (const std::string& name : Names())
        list += (name == "p" ? "q" : name == "q" ? "p" : "out.txt") + std::string("\n");
    Write(list);
    Do(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    EXPECT_EQ(Content("q\\out.txt"), "in p");
    EXPECT_EQ(Content("p\\out.txt"), "in q");
    ExpectTotals(4, 0, 0);
}

TEST_F(ListTest, AStopLeavesNoRingHalfDone) {
    Write("b.txt\na.txt\nd\n");
    Find();
    Do(Form().mnuRenameSelFromFile, [this](fields::FrmDialog& form) {
        Whole("C:\\list.txt")(form);
        S().yielder.After(3, [this] { State().blnStopAction = true; });
    });
    EXPECT_THAT(Files(), Not(Contains(HasSubstr("renaming"))));
}

} // namespace
} // namespace tarvix::testing
