#include "batch/ask_move_batch.h"

#include "platform/try.h"
#include "session/errors.h"
#include "session/paths/end_mark.h"
#include "session/prompt_id.h"
#include "session/prompt_service.h"
#include "session/session.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::batch {

namespace {

using platform::Result;
using session::PromptId;
using session::Session;

constexpr std::string_view kRoutine = "mnuTools_AutomatedMove_Click";
constexpr std::string_view kFilters = "All Files (*.*)|*.*|Text Files (*.txt)|*.txt|";
constexpr int kFolders = 3; // of optFilesVsDirs

constexpr std::string_view kNotice =
    "You MUST have the correct search folder already in the 'Search Location(s):' box.\r\n\r\n"
    "Make sure you have selected 'files vs folders' and 'Include Subfolders' as you like.\r\n\r\n"
    "This option is always available for moving files. If you you want to move folders\r\n"
    "you MUST be sure to NOT have selected 'Include Subfolders'.\r\n\r\n"
    "Generally you will want the Search File and Destination File to have the same number of lines "
    "of text. Although you are allowed to use a *REPEAT mark instead of an *EOF mark at the end of "
    "the Destination File. Example: 16 searchs can be sent to 4 destinations.";

bool WantsMark(Session& session, const ListKind& kind, std::string_view path) {
    return session.MsgBox(
               PromptId::kListMarkMissing,
               fmt::format("In the selected {} File: \r\n\r\n{}\r\n\r\nThere is no 'End of File' "
                           "mark.(*EOF)\r\n\r\nWould you like it added, before continuing, or "
                           "cancel?",
                           kind.name, session.Shown(path))) == session::kOk;
}

// The list with a mark; nothing when the user doesn't want one.
Result<std::optional<ListLength>> MeasureMarked(Session& session, const ListKind& kind,
                                                const std::string& path) {
    TX_TRY_ASSIGN(ListLength length, MeasureList(session.files(), path, kind.marks));
    if (length.isMarked) return length;
    if (!WantsMark(session, kind, path)) return std::optional<ListLength>();
    TX_TRY(session::AddEndMark(session.files(), path));
    session::LogTimed(session, fmt::format(" {} file: {} was opened, it did not have *EOF.\r\n"
                                           "Added *EOF mark for immediate usage.",
                                           kind.name, session.Shown(path)));
    length.isMarked = true;
    return length;
}

bool StartsWith(std::string_view answer, char small) {
    return !answer.empty() && text::Lower(answer.substr(0, 1)) == std::string_view(&small, 1);
}

// Whether duplicates are renamed; nothing when the user cancelled.
std::optional<bool> AskDuplicates(Session& session) {
    const std::string answer =
        session.InputBox(PromptId::kBatchDuplicates, "Select S,or R for skip, or rename", "");
    const bool renames = StartsWith(answer, 'r');
    if (!renames && !StartsWith(answer, 's')) {
        session.MsgBox(PromptId::kBatchCancelled, "Cancelled");
        return {};
    }
    session::LogTimed(session,
                      fmt::format(" User selected to {} all duplicates for all search and moves.",
                                  renames ? "rename" : "skip"));
    return renames;
}

bool AskThenFiles(Session& session) {
    if (session.frmSearch.optFilesVsDirs.Chosen() != kFolders) return false;
    const std::string answer = session.InputBox(PromptId::kBatchThenFiles,
                                                "Should I repeat the task again for files?", "N");
    if (!StartsWith(answer, 'y')) return false;
    session::LogTimed(session, " User selected to use this search for files also.\r\n");
    return true;
}

bool AskEmptyFolders(Session& session) {
    const std::string answer = session.InputBox(
        PromptId::kBatchEmptyFolders,
        "Should I remove empty folders from the search folder after the sort is completed?", "Y");
    if (!StartsWith(answer, 'y')) return false;
    session::LogTimed(session, " User selected to delete all empty folders in search folder after "
                               "all else is done.\r\n");
    return true;
}

} // namespace

std::optional<PickedList> PickList(Session& session, const ListKind& kind) {
    const std::string path = session.PickFile(kind.picker, kFilters);
    if (path.empty()) return {};
    const auto length = MeasureMarked(session, kind, path);
    if (!length) {
        session::TellUnexpected(session, length.error(), kind.routine, path, "frmSearch");
        return {};
    }
    if (!*length) return {};
    session::LogTimed(session, fmt::format(" User selected to use this {} list file {}",
                                           text::Lower(kind.name), session.Shown(path)));
    return PickedList{path, **length};
}

std::optional<MoveBatch> AskMoveBatch(Session& session) {
    session.MsgBox(PromptId::kBatchMoveNotice, kNotice);
    const auto searches =
        PickList(session, {"Search", PromptId::kPickSearchList, ListMarks::kEnd, kRoutine});
    if (!searches) return {};
    session.state.strBatchFile = text::FileNameOf(searches->path);
    const auto destinations = PickList(session, {"Destination", PromptId::kPickDestinationList,
                                                 ListMarks::kEndOrRepeat, kRoutine});
    if (!destinations) return {};
    const auto renames = AskDuplicates(session);
    if (!renames) return {};
    if (!destinations->length.repeats && destinations->length.entries != searches->length.entries) {
        session.MsgBox(PromptId::kBatchListsDiffer,
                       "Destination and search list files MUST match in length! Start over.");
        return {};
    }
    MoveBatch batch{.searchList = searches->path,
                    .destinationList = destinations->path,
                    .renamesDuplicates = *renames};
    batch.thenFiles = AskThenFiles(session);
    batch.emptiesFolders = AskEmptyFolders(session);
    return batch;
}

} // namespace tarvix::batch
