#include "session/paths/ask_long_path.h"
#include "tests/session/log_session.h"

#include <functional>
#include <optional>
#include <string_view>

namespace tarvix::testing {
namespace {

using session::AskLongPath;

constexpr std::string_view kFrom = "C:\\from\\a.txt";    // 13 characters
constexpr std::string_view kTo = "C:\\to\\somewhere\\ä"; // 17 characters

class AskLong : public LogSession {
  protected:
    // Asks from the action window; without an answer nobody may be asked.
    void Ask(std::string_view routine, const char* answer, bool creatingFile = false) {
        if (answer) prompts.Queue(answer);
        AskLongPath(session, kFrom, kTo, routine, "frmDialog", creatingFile);
    }
    std::string Text() { return session.forms.frmAsk259.lblMain.Caption; }
    // "continue all, skip all, continue, skip", 1 for what can be pressed.
    std::string Enabled() {
        const auto& form = session.forms.frmAsk259;
        std::string text;
        for (const fields::CommandButton* button :
             {&form.cmdContinueAll, &form.cmdSkipAll, &form.cmdContinue, &form.cmdSkip}) {
            text += button->Enabled ? '1' : '0';
        }
        EXPECT_TRUE(form.cmdCancel.Enabled);
        return text;
    }
    // The entries of the action log without their times and underlining.
    std::vector<std::string> Entries() {
        std::vector<std::string> entries;
        const std::string log = ActionLog();
        const std::string time = "11/15/2026 19:54:52";
        for (std::size_t at = log.find(time); at != log.npos; at = log.find(time, at + 1)) {
            const std::size_t begin = at + time.size();
            entries.push_back(log.substr(begin, log.find("\r\n--", begin) - begin));
        }
        return entries;
    }
    std::string LastEntry() {
        const auto entries = Entries();
        return entries.empty() ? "" : entries.back();
    }
};

constexpr std::string_view kShort = "\r\n\r\nThe program can continue and attempt to use the short "
                                    "path. What would you like to do?";

std::string MessageA(std::string_view routine) {
    return "\r\n\r\nRoutine - " + std::string(routine) +
           " is attempting to search with this: \r\n\r\nC:\\from\\a.txt\r\n\r\nIt contains 13 "
           "characters. That search string may be to long to used in this situation. What would "
           "you like to do?";
}

std::string MessageD(std::string_view routine) {
    return "Routine - " + std::string(routine) +
           " is attempting to copy\\move\\rename this object: \r\n\r\nC:\\from\\a.txt\r\n\r\nto: "
           "\r\n\r\nC:\\to\\somewhere\\ä\r\n\r\nThe new location\\name is 17 characters in "
           "length. " +
           std::string(kShort);
}

struct Routine {
    std::string_view name;
    bool creatingFile;
    std::function<std::string(std::string_view)> message;
    std::string_view enabled;
};

const Routine kRoutines[] = {
    {"FindFilesAtRoot", false, MessageA, "0000"},
    {"FindFilesInSubFolders", false, MessageA, "0101"},
    {"RenameAsTitle", false, MessageA, "1111"},
    {"SpecialRuleConvert", false, MessageA, "1111"},
    {"CopyToTextFile", true,
     [](std::string_view) {
         return "\r\n\r\nThe file: C:\\to\\somewhere\\ä\r\n\r\nwas about to be created. The path "
                "is 17 characters in length. " +
                std::string(kShort);
     },
     "0011"},
    {"CopyToTextFile", false,
     [](std::string_view) {
         return "\r\n\r\nThe file: C:\\to\\somewhere\\ä\r\n\r\nwas about to be added as a possible "
                "duplicate to the playlist. The path is 17 characters in length. " +
                std::string(kShort);
     },
     "1111"},
    {"DetermineIfDuplicateExists", false, MessageD, "1111"},
    {"CopyObject", false, MessageD, "1111"},
    {"MoveObject", false, MessageD, "1111"},
    {"RenameObjForDuplicate", false, MessageD, "1111"},
    {"RenameOnly", false, MessageD, "1111"},
    {"RenameObjForDuplicateLocal", false, MessageD, "1111"},
    {"RenameFromHTMLSearch", false, MessageD, "1111"},
    {"RenameFromSelfSearch", false, MessageD, "1111"},
    {"RenameFromTextFile", false, MessageD, "1111"},
};

TEST_F(AskLong, EachRoutineHasItsMessageAndItsButtons) {
    for (const Routine& routine : kRoutines) {
        SCOPED_TRACE(std::string(routine.name) + (routine.creatingFile ? " creating" : ""));
        State().bytPathChoice = 0;
        Ask(routine.name, "cmdCancel", routine.creatingFile);
        EXPECT_EQ(Text(), routine.message(routine.name));
        EXPECT_EQ(Enabled(), routine.enabled);
        EXPECT_EQ(State().bytPathChoice, 6);
        EXPECT_TRUE(State().blnPathLimitHit);
    }
    EXPECT_EQ(Prompts().size(), std::size(kRoutines));
}

TEST_F(AskLong, AnyOtherRoutineHasNoMessageAndTheButtonsAsTheyStand) {
    Ask("FindFilesInSubFolders", "cmdSkip");
    Ask("Elsewhere", "cmdSkip");
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(Enabled(), "0101");
    EXPECT_EQ(Entries().size(), 1U) << "of the first routine only";
}

TEST_F(AskLong, ThePromptHasItsTextsAndSkipFocused) {
    const auto& form = session.forms.frmAsk259;
    Ask("CopyObject", "cmdSkip");
    EXPECT_EQ(form.Caption,
              "Skip or Continue with objects exceeding 259 characters in their path.");
    EXPECT_EQ(form.lblNote.Caption.Get(), "Some applications may not be able to work with files so "
                                          "deep in the folder structure.");
    EXPECT_EQ(form.cmdSkip.Caption.Get(), "&Skip this object only.");
    EXPECT_EQ(form.cmdContinue.Caption.Get(), "C&ontinue with this object only.");
    EXPECT_EQ(form.cmdSkipAll.Caption.Get(), "S&kip all object paths exceeding 259 characters.");
    EXPECT_EQ(form.cmdContinueAll.Caption.Get(),
              "Co&ntinue all object paths exceeding 259 characters.");
    EXPECT_EQ(form.cmdCancel.Caption.Get(),
              "&Cancel   (the action for objects not yet processed).");
    EXPECT_EQ(form.Focus, &form.cmdSkip);
}

struct Button {
    const char* name;
    int choice;
    bool continues;
    bool stands; // without a further prompt
};

constexpr Button kButtons[] = {{"cmdSkip", 0, false, false},
                               {"cmdContinue", 1, true, false},
                               {"cmdSkipAll", 3, false, true},
                               {"cmdContinueAll", 4, true, true},
                               {"cmdCancel", 6, false, true}};

TEST_F(AskLong, EachButtonHasItsValueAndSomeStand) {
    for (const Button& button : kButtons) {
        SCOPED_TRACE(button.name);
        State().bytPathChoice = 0;
        Ask("CopyObject", button.name);
        EXPECT_EQ(State().bytPathChoice, button.choice);
        EXPECT_EQ(session::ContinuesLongPath(session), button.continues);
        const std::size_t before = Prompts().size();
        Ask("CopyObject", button.stands ? nullptr : "cmdContinueAll");
        EXPECT_EQ(Prompts().size() - before, button.stands ? 0U : 1U);
    }
}

TEST_F(AskLong, SkipAllAndContinueAllAreLoggedAsTheyArePressed) {
    Ask("Elsewhere", "cmdSkipAll");
    State().bytPathChoice = 0;
    Ask("Elsewhere", "cmdContinueAll");
    State().bytPathChoice = 0;
    Ask("Elsewhere", "cmdCancel");
    EXPECT_EQ(Entries(), (std::vector<std::string>{
                             " User selected to skip all actions that would exceed 259 characters.",
                             " User selected to continue all actions that would exceed 259 "
                             "characters."}));
}

// The lines of a decision of one routine: continue, skip, cancel.
struct Lines {
    std::string_view routine;
    std::string_view lines[3];
};

const Lines kLines[] = {
    {"FindFilesInSubFolders",
     {" User selected to find duplicates by searching with this: \r\nC:\\from\\a.txt\r\nEven "
      "though "
      "it contains 13 characters. ",
      " User selected to skip finding duplicates by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. ",
      " User selected to cancel all duplicate finding by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. "}},
    {"FindFilesAtRoot",
     {" User selected to find duplicates by searching with this: \r\nC:\\from\\a.txt\r\nEven "
      "though "
      "it contains 13 characters. ",
      " User selected to skip finding duplicates by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. ",
      " User selected to cancel all duplicate finding by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. "}},
    {"RenameAsTitle",
     {" User selected to find html, to Rename as Title, by searching with this: "
      "\r\nC:\\from\\a.txt\r\nEven though it contains 13 characters. ",
      " User selected to skip finding html, to Rename as Title, by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. ",
      " User selected to cancel all finding htmls, and not Rename as Title, by not searching with "
      "this: \r\nC:\\from\\a.txt\r\nSince it contains 13 characters. "}},
    {"SpecialRuleConvert",
     {" User selected to find destination folder by searching with this: "
      "\r\nC:\\from\\a.txt\r\nEven though it contains 13 characters. ",
      " User selected to skip finding destination folder by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. ",
      " User selected to cancel all finding destination folders by not searching with this: "
      "\r\nC:\\from\\a.txt\r\nSince it contains 13 characters. "}},
    {"CopyToTextFile",
     {" User selected to use C:\\to\\somewhere\\ä even though the long path exceeds 259 characters",
      " User selected to skip using C:\\to\\somewhere\\ä Since the long path exceeds 259 "
      "characters",
      " User selected to cancel using C:\\to\\somewhere\\ä Since the long path exceeds 259 "
      "characters"}},
    {"CopyObject",
     {" User selected to copy\\move\\rename C:\\from\\a.txt -- to -- C:\\to\\somewhere\\ä even "
      "though the long path exceeds 259 characters",
      " User selected to skip the action from C:\\from\\a.txt -- to -- C:\\to\\somewhere\\ä since "
      "the new long path would exceeds 259 characters",
      " User selected to cancel all actions where a new long path would exceeds 259 characters"}},
};

TEST_F(AskLong, EachDecisionHasTheLineOfItsRoutine) {
    constexpr std::pair<int, int> kKinds[] = {{4, 0}, {3, 1}, {6, 2}};
    for (const Lines& lines : kLines) {
        for (const auto& [choice, line] : kKinds) {
            SCOPED_TRACE(std::string(lines.routine) + " " + std::to_string(choice));
            State().bytPathChoice = static_cast<std::uint8_t>(choice);
            Ask(lines.routine, nullptr);
            EXPECT_EQ(LastEntry(), lines.lines[line]);
        }
    }
}

TEST_F(AskLong, ADecisionForOneObjectIsLoggedLikeOneForAll) {
    Ask("CopyObject", "cmdContinue");
    EXPECT_EQ(LastEntry(), kLines[5].lines[0]);
    Ask("CopyObject", "cmdSkip");
    EXPECT_EQ(LastEntry(), kLines[5].lines[1]);
}

TEST_F(AskLong, AllRoutinesOfThePlaceGroupAreLoggedButOne) {
    State().bytPathChoice = 3;
    std::size_t logged = 0;
    for (const Routine& routine : kRoutines) {
        if (routine.message("x") != MessageD("x")) continue;
        Ask(routine.name, nullptr);
        if (routine.name != "RenameObjForDuplicate") ++logged;
        EXPECT_EQ(Entries().size(), logged) << routine.name;
    }
    EXPECT_EQ(logged, 8U);
}

TEST_F(AskLong, RenameObjForDuplicateGetsThePromptAndNoLine) {
    Ask("RenameObjForDuplicate", "cmdCancel");
    EXPECT_EQ(Prompts().size(), 1U);
    EXPECT_TRUE(Entries().empty());
}

TEST_F(AskLong, AChoiceOutsideTheTableStandsAndLogsNothing) {
    for (const std::uint8_t choice : {2, 5, 7}) {
        State().bytPathChoice = choice;
        Ask("CopyObject", nullptr);
        EXPECT_EQ(State().bytPathChoice, choice);
    }
    EXPECT_TRUE(Entries().empty());
}

TEST_F(AskLong, InAutomaticModeEveryObjectIsSkippedUnaskedWithALineForEach) {
    State().options.blnAutoMode = true;
    Ask("CopyObject", nullptr);
    Ask("MoveObject", nullptr);
    EXPECT_TRUE(Prompts().empty());
    EXPECT_EQ(State().bytPathChoice, 3);
    EXPECT_EQ(Entries(), (std::vector<std::string>(2, std::string(kLines[5].lines[1]))));
}

TEST_F(AskLong, ASearchIsToldLoggedAndStopped) {
    prompts.Queue("OK");
    AskLongPath(session, kFrom, "", "FindFilesInSubFolders", "frmSearch");
    const std::string told = "\r\n\r\nRoutine - FindFilesInSubFolders is attempting to search with "
                             "this: \r\n\r\nC:\\from\\a.txt\r\n\r\nIt contains 13 characters. That "
                             "search string is to long to used.";
    ASSERT_EQ(Prompts().size(), 1U);
    EXPECT_EQ(Prompts()[0].text, told);
    EXPECT_EQ(LastEntry(), " " + told);
    EXPECT_TRUE(State().blnStopClicked);
    EXPECT_FALSE(State().blnPathLimitHit);
    EXPECT_EQ(State().bytPathChoice, 0);
}

TEST_F(AskLong, ASearchInAutomaticModeIsStoppedAndLoggedWithoutAPrompt) {
    State().options.blnAutoMode = true;
    AskLongPath(session, kFrom, "", "FindFilesAtRoot", "frmSearch");
    EXPECT_TRUE(Prompts().empty());
    EXPECT_TRUE(State().blnStopClicked);
    EXPECT_EQ(Entries().size(), 1U);
}

} // namespace
} // namespace tarvix::testing
