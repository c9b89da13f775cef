#include "actions/place/action_run.h"
#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "results/selection.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// What is typed for a part of a name or for a place, and what is said of it.
class TypedTexts : public ActionFixture {
  protected:
    TypedTexts() {
        Disk().AddFile("C:\\t\\a.txt", "a");
        Disk().AddFile("C:\\t\\sub\\b.txt", "b");
        Disk().AddFolder("C:\\d");
        before_ = Objects();
    }
    void Rename(const Fill& fill, std::vector<std::string> answers = {"OK"}) {
        Do(Form().cmdRenameSelected, fill, std::move(answers));
    }
    Fill Inserting(const std::string& text) {
        return [this, text](fields::FrmDialog& form) { Set(form.txtAdd, text); };
    }
    Fill Replacing(const std::string& find, const std::string& replace) {
        return [this, find, replace](fields::FrmDialog& form) {
            Set(form.chkFindReplace, "1");
            Set(form.txtFind, find);
            Set(form.txtReplace, replace);
        };
    }
    // Files and folders below C:\t and C:\d; the program keeps its own elsewhere.
    std::vector<std::string> Objects() {
        auto paths = Disk().AllFiles();
        for (std::string& folder : Disk().AllFolders()) {
            paths.push_back(std::move(folder));
        }
        std::erase_if(paths, [](const std::string& path) {
            return !path.starts_with("C:\\t\\") && !path.starts_with("C:\\d\\");
        });
        return paths;
    }
    void ExpectUntouched() { EXPECT_EQ(Objects(), before_); }

  private:
    std::vector<std::string> before_;
};

// ---- parts of names ----

TEST_F(TypedTexts, AnInsertedTextThatNoNameCanHoldIsRefusedAtOk) {
    for (const char* text : {"..\\..\\x", "a/b", "x:y", "what?", "*", "a|b", "\"", "<", ">"}) {
        Find();
        Rename(Inserting(text));
        EXPECT_TRUE(stayedOpen) << text;
        EXPECT_TRUE(isUsable) << text;
    }
    EXPECT_THAT(Told(), Contains("\"..\\..\\x\" can't become part of a name, as no name may hold "
                                 "\\.\r\n\r\nType it without that character."));
    EXPECT_THAT(Told(), Contains("\"a/b\" can't become part of a name, as no name may hold /.\r\n"
                                 "\r\nType it without that character."));
    EXPECT_EQ(TimesTold("Are you sure"), 0U);
    ExpectUntouched();
}

TEST_F(TypedTexts, AReplacementThatNoNameCanHoldIsRefusedAtOk) {
    Find();
    Rename(Replacing("a", "..\\up"));
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(TimesTold("no name may hold \\."), 1U);
    ExpectUntouched();
}

TEST_F(TypedTexts, TheTextForDuplicatesIsRefusedWhereItMayBeUsed) {
    for (const char* box : {"chkRename", "chkAsk"}) {
        Find();
        Copy([&](fields::FrmDialog& form) {
            To("C:\\d", box)(form);
            Set(form.txtRename, "..\\up");
        });
        EXPECT_TRUE(stayedOpen) << box;
    }
    EXPECT_EQ(TimesTold("no name may hold \\."), 2U);
    ExpectUntouched();
    Find();
    Copy([&](fields::FrmDialog& form) {
        Set(form.txtRename, "..\\up");
        To("C:\\d")(form);
    });
    EXPECT_FALSE(stayedOpen) << "duplicates are skipped";
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "a");
}

TEST_F(TypedTexts, ANameMadeOfDotsAloneIsToldAndTheObjectStays) {
    Disk().AddFolder("C:\\t\\x");
    Find(2, "C:\\t", "x*");
    Rename(Replacing("x", ".."));
    EXPECT_THAT(Told(),
                Contains("Could not rename: \r\n\r\nC:\\t\\x\r\n\r\n as: \r\n\r\nC:\\t\\..\r\n"
                         "\r\nNo folder can have such a name."));
    EXPECT_TRUE(Disk().Exists("C:\\t\\x"));
    ExpectTotals(0, 1, 0);
}

TEST_F(TypedTexts, ARenameStaysInItsFolderWhateverIsAskedFor) {
    Find(0, "C:\\t", "a.txt");
    const actions::ActionRequest request{.strAction = "Rename"};
    actions::ActionRun run(S(), request);
    const actions::Object object = actions::ObjectAt(*S().selection, 0);
    for (const char* to : {"C:\\d\\a.txt", "C:\\t\\sub\\x.txt", "C:\\t\\..\\x.txt", "C:\\t\\..",
                           "C:\\t\\sub\\..\\..\\d\\a.txt"}) {
        const actions::Outcome outcome = actions::PlaceObject(
            S(), run, {.object = object, .place = {to, nullptr}, .verb = actions::Verb::kRename});
        EXPECT_EQ(outcome.kind, actions::OutcomeKind::kFailed) << to;
        EXPECT_THAT(outcome.error, HasSubstr("A rename can't give C:\\t\\a.txt another folder"));
    }
    ExpectUntouched();
    const actions::Outcome outcome = actions::PlaceObject(
        S(), run,
        {.object = object, .place = {"C:\\T\\x.txt", nullptr}, .verb = actions::Verb::kRename});
    EXPECT_EQ(outcome.kind, actions::OutcomeKind::kRenamed) << "the folder in another spelling";
}

// ---- places ----

TEST_F(TypedTexts, NoCharacterOfADestinationIsDropped) {
    for (const char* text : {"C:\\d/x/y", "C:\\d\\a\"b", "C:\\d\\a?", "C:\\d\\<a>"}) {
        Find();
        std::string kept;
        Copy([&](fields::FrmDialog& form) {
            To(text)(form);
            kept = form.cmbDir.Text.Get();
        });
        EXPECT_EQ(kept, text);
        EXPECT_TRUE(stayedOpen) << text;
    }
    EXPECT_THAT(Told(),
                Contains("C:\\d/x/y can't be used as a destination, as no folder in a path "
                         "with \\ between its folders can hold /.\r\n\r\nChange it, or type "
                         "the whole path with / between its folders."));
    Find();
    Copy(To("C:\\d\\a|b"));
    EXPECT_TRUE(stayedOpen);
    EXPECT_THAT(Told(), Contains("There is an asterick '*' or bar '|' in the destination path."));
    EXPECT_EQ(TimesTold("Are you sure"), 0U);
    ExpectUntouched();
}

TEST_F(TypedTexts, AColonStandsBehindADriveAlone) {
    Find();
    Copy(To("C:\\d\\a:b"));
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(TimesTold("a : can only stand behind the letter of a drive"), 1U);
}

TEST_F(TypedTexts, ANativePathMayHoldThemAll) {
    Find(0, "C:\\t", "a.txt");
    Copy(To("/d/a|b?"));
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(Disk().Content("C:\\d\\a\uF07Cb\uF03F\\a.txt"), "a");
}

TEST_F(TypedTexts, ARuleIsRefusedForWhatNoPathCanHold) {
    Find();
    Copy([this](fields::FrmDialog& form) {
        Click(form.optTo[3]);
        Set(form.cmbDir, "C:\\d/*4*");
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(TimesTold("can hold /."), 1U);
}

TEST_F(TypedTexts, ARuleNeverMakesAFolderOfDots) {
    Disk().AddFile("C:\\t\\...txt", "dots");
    Find(0, "C:\\t", "*..txt");
    Copy([this](fields::FrmDialog& form) {
        Click(form.optTo[3]);
        Set(form.cmbDir, "C:\\d\\x\\*6**7*");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_FALSE(Disk().Exists("C:\\d\\...txt"));
    ExpectTotals(0, 1, 0);
    EXPECT_EQ(TimesTold("1 - objects did not find a destination folder.\r\n\r\nThe last search "
                        "path that failed was: \r\n\r\nC:\\d\\x\\.."),
              1U);
    ExpectLog(
        {" With this object C:\\t\\...txt and this Special Rule C:\\d\\x\\*6**7* this path was "
         "created, C:\\d\\x\\.. No folder can be named . or .. Skipping this object."});
}

// ---- what a refusal leaves behind ----

TEST_F(TypedTexts, ARequestThatComesToNothingLeavesNoNewFoldersBehind) {
    const std::string place = "C:\\d\\" + std::string(120, 'x') + "\\" + std::string(100, 'y') +
                              "\\" + std::string(50, 'z');
    Find();
    Copy(To(place), {"OK", "Cancel"});
    EXPECT_EQ(TimesTold("Are you sure"), 1U);
    ExpectUntouched();
    Find();
    Copy(To("C:\\d\\" + std::string(120, 'x') + "\\" + std::string(300, 'y')), {"OK"});
    EXPECT_EQ(TimesTold("Was unable to calculate a short path"), 1U);
    ExpectUntouched();
    ExpectLog({" Removed C:\\d\\" + std::string(120, 'x')});
}

TEST_F(TypedTexts, FoldersThatAreUsedStay) {
    const std::string place = "C:\\d\\" + std::string(120, 'x') + "\\" + std::string(100, 'y') +
                              "\\" + std::string(50, 'z');
    Find(0, "C:\\t", "a.txt");
    Copy(To(place), {"OK", "OK"});
    EXPECT_EQ(Disk().Content(place + "\\a.txt"), "a");
}

// ---- one trouble, one question ----

TEST_F(TypedTexts, OneMissingObjectIsAskedAboutOnce) {
    for (const bool moves : {false, true}) {
        Find(0, "C:\\t", "*.txt");
        const auto asked = prompts.Records().size();
        Disk().Node("C:\\t\\a.txt")->Detach();
        if (moves) {
            Move(To("C:\\d"));
        } else {
            Copy(To("C:\\d"));
        }
        const auto told = Told();
        const auto missing = std::ranges::count_if(
            told, [](const std::string& text) { return text.contains("a.txt"); });
        EXPECT_EQ(missing, moves ? 2 : 1);
        EXPECT_EQ(Totals().failed, 1);
        EXPECT_GT(prompts.Records().size(), asked);
        Disk().AddFile("C:\\t\\a.txt", "a");
        Disk().Node("C:\\d\\b.txt")->Detach();
    }
}

TEST_F(TypedTexts, OneMissingObjectThatIsToGetANewNameIsAskedAboutOnce) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find(0, "C:\\t", "a.txt");
    Disk().Node("C:\\t\\a.txt")->Detach();
    Move(To("C:\\d", "chkRename"));
    const auto told = Told();
    EXPECT_EQ(std::ranges::count_if(
                  told, [](const std::string& text) { return text.contains("C:\\t\\a.txt"); }),
              1);
    ExpectTotals(0, 0, 1);
}

// ---- find and replace that is stopped ----

class StoppedRename : public TypedTexts {
  protected:
    StoppedRename() {
        for (const char* name : {"x1.txt", "x2.txt", "x3.txt"}) {
            Disk().AddFile(std::string("C:\\r\\") + name, name);
        }
        Disk().AddFile("C:\\r\\y2.txt", "old");
    }
};

TEST_F(StoppedRename, LeavesNoStaleRows) {
    Find(0, "C:\\r", "x*");
    Rename(Replacing("x", "y"), {"OK", "Cancel"});
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(Disk().Content("C:\\r\\y1.txt"), "x1.txt");
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(StoppedRename, SearchesAgainWhereTheSearchRepeats) {
    Find(0, "C:\\r", "*");
    Set(Form().chkRepeatSearch, "1");
    Rename(Replacing("x", "y"), {"OK", "Cancel"});
    EXPECT_THAT(Names(), ElementsAre("x2.txt", "x3.txt", "y1.txt", "y2.txt"));
}

TEST_F(StoppedRename, GoesOnWithTheNamesThatTheObjectsHaveByThen) {
    Find(0, "C:\\r", "x*");
    Rename(
        [this](fields::FrmDialog& form) {
            Replacing("x", "y")(form);
            prompts.Queue("OK");
            prompts.Queue("Cancel");
            Click(form.OKButton);
            Replacing("1", "9")(form);
        },
        {"OK"});
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(Disk().Content("C:\\r\\y9.txt"), "x1.txt");
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(StoppedRename, ThatChangedNothingLeavesTheList) {
    Find(0, "C:\\r", "x2.txt");
    Rename(Replacing("x", "y"), {"OK", "Cancel"});
    EXPECT_THAT(Names(), ElementsAre("x2.txt"));
}

// ---- the report of a rule ----

TEST_F(TypedTexts, TheReportOfARuleNamesItsOwnSetAndOnlyIfOneFailed) {
    const auto byRule = [this](const char* rule) {
        return [this, rule](fields::FrmDialog& form) {
            if (!form.optTo[3].Value) Click(form.optTo[3]);
            Set(form.cmbDir, rule);
            Set(form.chkSkipAll, "1");
        };
    };
    Find(0, "C:\\t", "a.txt");
    Copy(byRule("C:\\d\\|90,2|"));
    EXPECT_EQ(TimesTold("Search Set of the Special Rule. - *|90,2|*  If any"), 1U);
    Find(0, "C:\\t", "a.txt");
    Copy(byRule("C:\\d\\*99*"));
    EXPECT_EQ(TimesTold("Search Set of the Special Rule. example - |2,2|  If any"), 1U);
    Find(0, "C:\\t", "a.txt");
    Copy(byRule("C:\\d\\|6,1|"));
    EXPECT_EQ(TimesTold("1 - objects did not find a destination folder."), 1U);
    EXPECT_EQ(TimesTold("Search Set of the Special Rule. example - |2,2|  If any"), 2U);
}

} // namespace
} // namespace tarvix::testing
