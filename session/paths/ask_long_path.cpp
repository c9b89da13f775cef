#include "session/paths/ask_long_path.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarvix::session {

namespace {

enum class Message { kSearch, kCreate, kPlaylist, kPlace };

// Which message a routine asks with and which buttons, besides Cancel, it offers.
struct Asking {
    std::string_view routine;
    bool creatingFile; // only told apart for "CopyToTextFile"
    Message message;
    bool continueAll;
    bool skipAll;
    bool continueOne;
    bool skipOne;
};

constexpr std::array kAskings{
    Asking{"FindFilesAtRoot", false, Message::kSearch, false, false, false, false},
    Asking{"FindFilesInSubFolders", false, Message::kSearch, false, true, false, true},
    Asking{"RenameAsTitle", false, Message::kSearch, true, true, true, true},
    Asking{"SpecialRuleConvert", false, Message::kSearch, true, true, true, true},
    Asking{"CopyToTextFile", true, Message::kCreate, false, false, true, true},
    Asking{"CopyToTextFile", false, Message::kPlaylist, true, true, true, true},
    Asking{"DetermineIfDuplicateExists", false, Message::kPlace, true, true, true, true},
    Asking{"CopyObject", false, Message::kPlace, true, true, true, true},
    Asking{"MoveObject", false, Message::kPlace, true, true, true, true},
    Asking{"RenameObjForDuplicate", false, Message::kPlace, true, true, true, true},
    Asking{"RenameOnly", false, Message::kPlace, true, true, true, true},
    Asking{"RenameObjForDuplicateLocal", false, Message::kPlace, true, true, true, true},
    Asking{"RenameFromHTMLSearch", false, Message::kPlace, true, true, true, true},
    Asking{"RenameFromSelfSearch", false, Message::kPlace, true, true, true, true},
    Asking{"RenameFromTextFile", false, Message::kPlace, true, true, true, true},
};

const Asking* FindAsking(std::string_view routine, bool creatingFile) {
    const auto found = std::ranges::find_if(kAskings, [&](const Asking& asking) {
        return asking.routine == routine &&
               (routine != "CopyToTextFile" || asking.creatingFile == creatingFile);
    });
    return found == kAskings.end() ? nullptr : &*found;
}

// How the log tells the decision of one routine. `oldText` follows, and how long it is.
struct SearchLines {
    std::string_view routine;
    std::string_view continued;
    std::string_view skipped;
    std::string_view cancelled;
};

constexpr SearchLines kDuplicateLines{
    "", " User selected to find duplicates by searching with this: ",
    " User selected to skip finding duplicates by not searching with this: ",
    " User selected to cancel all duplicate finding by not searching with this: "};

constexpr std::array kSearchLines{
    SearchLines{"FindFilesAtRoot", kDuplicateLines.continued, kDuplicateLines.skipped,
                kDuplicateLines.cancelled},
    SearchLines{"FindFilesInSubFolders", kDuplicateLines.continued, kDuplicateLines.skipped,
                kDuplicateLines.cancelled},
    SearchLines{
        "RenameAsTitle",
        " User selected to find html, to Rename as Title, by searching with this: ",
        " User selected to skip finding html, to Rename as Title, by not searching with this: ",
        " User selected to cancel all finding htmls, and not Rename as Title, by not searching "
        "with this: "},
    SearchLines{
        "SpecialRuleConvert", " User selected to find destination folder by searching with this: ",
        " User selected to skip finding destination folder by not searching with this: ",
        " User selected to cancel all finding destination folders by not searching with this: "},
};

// The routines whose decision is logged as one on a place. One is spelt otherwise than its callers
// spell it, and so goes without a line.
constexpr std::array<std::string_view, 9> kPlaceLineRoutines{
    "DetermineIfDuplicateExists", "CopyObject",           "MoveObject",
    "RenameObjectForDuplicate",   "RenameOnly",           "RenameObjForDuplicateLocal",
    "RenameFromHTMLSearch",       "RenameFromSelfSearch", "RenameFromTextFile"};

struct Question {
    std::string oldText; // as they are shown
    std::string newPath;
    std::size_t oldLength; // characters of what is counted
    std::size_t newLength;
    std::string_view routine;
    bool creatingFile;
};

std::string MessageOf(Message message, const Question& question) {
    constexpr std::string_view kShort = "The program can continue and attempt to use the short "
                                        "path. What would you like to do?";
    if (message == Message::kSearch) {
        return fmt::format(
            "\r\n\r\nRoutine - {} is attempting to search with this: \r\n\r\n{}\r\n\r\nIt contains "
            "{} characters. That search string may be to long to used in this situation. What "
            "would you like to do?",
            question.routine, question.oldText, question.oldLength);
    }
    if (message == Message::kPlace) {
        return fmt::format(
            "Routine - {} is attempting to copy\\move\\rename this object: \r\n\r\n{}"
            "\r\n\r\nto: \r\n\r\n{}\r\n\r\nThe new location\\name is {} characters "
            "in length. \r\n\r\n{}",
            question.routine, question.oldText, question.newPath, question.newLength, kShort);
    }
    return fmt::format("\r\n\r\nThe file: {}\r\n\r\n{} The path is {} characters in length. "
                       "\r\n\r\n{}",
                       question.newPath,
                       message == Message::kCreate
                           ? "was about to be created."
                           : "was about to be added as a possible duplicate to the playlist.",
                       question.newLength, kShort);
}

void SetUp(fields::FrmAsk259& form, const Question& question) {
    const Asking* asking = FindAsking(question.routine, question.creatingFile);
    form.lblMain.Caption = asking ? MessageOf(asking->message, question) : std::string();
    if (!asking) return;
    form.cmdContinueAll.Enabled = asking->continueAll;
    form.cmdSkipAll.Enabled = asking->skipAll;
    form.cmdContinue.Enabled = asking->continueOne;
    form.cmdSkip.Enabled = asking->skipOne;
}

// continue, skip or cancel; -1 for a decision that has no line.
int KindOf(int choice) {
    switch (choice) {
    case kPathContinue:
    case kPathContinueAll:
        return 0;
    case kPathSkip:
    case kPathSkipAll:
        return 1;
    case kPathCancel:
        return 2;
    default:
        return -1;
    }
}

std::string SearchLine(const SearchLines& lines, int kind, const Question& question) {
    const std::array texts{lines.continued, lines.skipped, lines.cancelled};
    return fmt::format("{}\r\n{}\r\n{} it contains {} characters. ",
                       texts[static_cast<std::size_t>(kind)], question.oldText,
                       kind == 0 ? "Even though" : "Since", question.oldLength);
}

std::string FileLine(int kind, std::string_view newPath) {
    constexpr std::array<std::string_view, 3> kVerbs{"use ", "skip using ", "cancel using "};
    return fmt::format(" User selected to {}{} {} the long path exceeds 259 characters",
                       kVerbs[static_cast<std::size_t>(kind)], newPath,
                       kind == 0 ? "even though" : "Since");
}

std::string PlaceLine(int kind, const Question& question) {
    if (kind == 2) {
        return " User selected to cancel all actions where a new long path would exceeds 259 "
               "characters";
    }
    return fmt::format(" User selected to {} {} -- to -- {} {} exceeds 259 characters",
                       kind == 0 ? "copy\\move\\rename" : "skip the action from", question.oldText,
                       question.newPath,
                       kind == 0 ? "even though the long path" : "since the new long path would");
}

void LogDecision(Session& session, const Question& question) {
    const int kind = KindOf(session.state.bytPathChoice);
    if (kind < 0) return;
    const auto lines = std::ranges::find(kSearchLines, question.routine, &SearchLines::routine);
    if (lines != kSearchLines.end()) {
        LogTimed(session, SearchLine(*lines, kind, question));
    } else if (question.routine == "CopyToTextFile") {
        LogTimed(session, FileLine(kind, question.newPath));
    } else if (std::ranges::count(kPlaceLineRoutines, question.routine) > 0) {
        LogTimed(session, PlaceLine(kind, question));
    }
}

// One sentence a search, however many folders it passes over.
void PassDeepFolder(Session& session, const Question& question, std::string_view told) {
    LogTimed(session, text::Concat({" ", told}));
    if (std::exchange(session.state.blnDeepFolderTold, true)) return;
    TellUnlessAuto(
        session, PromptId::kSearchTooLong,
        fmt::format("A folder is too deep to be searched and was left out: "
                    "\r\n\r\n{}\r\n\r\nIts path and what is looked for have {} characters, "
                    "and LongestPath allows 259. The action log names the others.",
                    question.oldText, question.oldLength));
}

// A search is never asked about: it ends, or goes on without the folder.
void RefuseLongSearch(Session& session, const Question& question) {
    const std::string told = fmt::format(
        "\r\n\r\nRoutine - {} is attempting to search with this: \r\n\r\n{}\r\n\r\nIt contains {} "
        "characters. That search string is to long to used.",
        question.routine, question.oldText, question.oldLength);
    if (session.platform.traits.passesDeepFolders) return PassDeepFolder(session, question, told);
    TellAndLog(session, PromptId::kSearchTooLong, told);
    session.state.blnStopClicked = true;
}

void Choose(Session& session, std::uint8_t choice) {
    session.state.bytPathChoice = choice;
    if (choice == kPathSkipAll) {
        LogTimed(session, " User selected to skip all actions that would exceed 259 characters.");
    } else if (choice == kPathContinueAll) {
        LogTimed(session,
                 " User selected to continue all actions that would exceed 259 characters.");
    }
    session.forms.frmAsk259.Hide();
}

} // namespace

void AskLongPath(Session& session, std::string_view oldText, std::string_view newPath,
                 std::string_view routine, std::string_view moduleName, bool creatingFile) {
    auto& state = session.state;
    const Question question{session.Shown(oldText),
                            session.Shown(newPath),
                            text::Length(oldText),
                            text::Length(newPath),
                            routine,
                            creatingFile};
    if (moduleName != "frmDialog") return RefuseLongSearch(session, question);
    state.blnPathLimitHit = true;
    if (state.options.blnAutoMode) state.bytPathChoice = kPathSkipAll;
    auto& form = session.forms.frmAsk259;
    SetUp(form, question);
    if (state.bytPathChoice < 2) {
        state.bytPathChoice = kPathSkip;
        form.Focus = &form.cmdSkip;
        session.ShowModal(PromptId::kAskLongPath);
    }
    LogDecision(session, question);
}

bool ContinuesLongPath(const Session& session) {
    return KindOf(session.state.bytPathChoice) == 0;
}

void AddAskLongPathEvents(EventTable& events) {
    constexpr std::pair<const char*, PathChoice> kButtons[] = {
        {"frmAsk259.cmdSkip_Click", kPathSkip},
        {"frmAsk259.cmdContinue_Click", kPathContinue},
        {"frmAsk259.cmdSkipAll_Click", kPathSkipAll},
        {"frmAsk259.cmdContinueAll_Click", kPathContinueAll},
        {"frmAsk259.cmdCancel_Click", kPathCancel},
    };
    for (const auto& [event, choice] : kButtons) {
        events.On(event, [choice](Session& session, const EventArgs&) { Choose(session, choice); });
    }
}

} // namespace tarvix::session
