#include "generate/playlist_edit.h"

#include "generate/playlist_plan.h"
#include "platform/file_system.h"
#include "platform/rehearsal/rehearsal_file_system.h"
#include "platform/try.h"
#include "results/result_list.h"
#include "results/selection.h"
#include "session/attempt.h"
#include "session/lifecycle_events.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

platform::SeenObject SeenRow(const results::ResultList& rows, std::size_t row,
                             const std::string& path, platform::Same same) {
    return {path, rows.SightingOf(rows.At(row)), same};
}

// Gives the file itself its new path, and never replaces anything: 58.
platform::Result<void> GiveName(platform::FileSystem& files, const platform::SeenObject& seen,
                                const std::string& to) {
    TX_TRY_ASSIGN(const platform::Look look, platform::LookAtSeenFile(files, seen));
    return files.MoveFileTo(look, {to, nullptr}, {});
}

// While it lives the stop button shows and only it acts.
class Stoppable {
  public:
    explicit Stoppable(Session& session) : session_(session) {
        session.state.blnRecycling = true;
        session.state.blnStopAction = false;
        session.frmSearch.cmdStop.Visible = true;
    }
    ~Stoppable() {
        session_.state.blnRecycling = false;
        session_.frmSearch.cmdStop.Visible = false;
    }
    Stoppable(const Stoppable&) = delete;
    Stoppable& operator=(const Stoppable&) = delete;

  private:
    Session& session_;
};

class PlaylistEdit {
  public:
    explicit PlaylistEdit(Session& session) : session_(session), rows_(*session.rows) {}

    void Run(const PlaylistPlan& plan);
    // What was done, for the status line.
    std::string Summary() const;

  private:
    void Rename(const PlaylistRename& rename);
    void NoteRenamed(std::size_t row, const std::string& from, const std::string& to);
    void Delete(const std::vector<std::size_t>& deletions);
    bool DeleteOne(std::size_t row, std::size_t index);
    void ShowGone(std::size_t row);

    Session& session_;
    results::ResultList& rows_;
    std::int64_t toRename_ = 0;
    std::int64_t renamed_ = 0;
    std::int64_t toDelete_ = 0;
    std::int64_t deleted_ = 0;
};

void PlaylistEdit::Run(const PlaylistPlan& plan) {
    const Stoppable stoppable(session_);
    session_.state.lastAction = {};
    toDelete_ = static_cast<std::int64_t>(plan.deletions.size());
    toRename_ = std::ranges::count_if(
        plan.renames, [](const PlaylistRename& rename) { return !rename.newName.empty(); });
    session_.state.lastAction.wanted = toRename_ + toDelete_;
    for (const PlaylistRename& rename : plan.renames) {
        rows_.At(rename.row).selected = false;
        if (rename.newName.empty()) continue;
        session_.Yield();
        if (session_.state.blnStopAction) return;
        Rename(rename);
    }
    Delete(plan.deletions);
}

void PlaylistEdit::Rename(const PlaylistRename& rename) {
    const std::string from = rows_.FullPath(rename.row);
    std::string to = text::JoinPath(text::ParentFolder(from), rename.newName);
    if (session::ExceedsLimit(session_, to, session::kLongestNewPath)) {
        to = session::GetShortPathNameReturnCodes(session_, to).path;
    }
    const auto seen = SeenRow(rows_, rename.row, from, platform::Same::kObject);
    const auto isTaken = [](const platform::PlatformError& error) {
        return error.number == platform::kAlreadyExists ? std::optional(session::kRecoverySkip)
                                                        : std::nullopt;
    };
    const auto named = session::Attempt(
        session_,
        {.routine = "cmdEditPlayList_Click",
         .moduleName = "frmSearch",
         .object = from,
         .path = from,
         .searchOrDestination = to,
         .objectType = session::ObjectType::kFile},
        [&] { return GiveName(session_.files(), seen, to); }, isTaken);
    if (named) return NoteRenamed(rename.row, from, to);
    auto& totals = session_.state.lastAction;
    ++totals.failed;
    totals.errors.push_back(session_.Shown(named.result.error()));
    if (named.ErrorNumber() != platform::kAlreadyExists) return;
    session::TellAndLog(session_, PromptId::kPlayListTaken,
                        fmt::format("Could not rename: \r\n\r\n{}\r\n\r\n as: \r\n\r\n{}\r\n\r\n"
                                    "That File name already exists",
                                    session_.Shown(from), session_.Shown(to)));
}

// It is the same file, which the disk noted as changed.
void PlaylistEdit::NoteRenamed(std::size_t row, const std::string& from, const std::string& to) {
    ++renamed_;
    ++session_.state.lastAction.done;
    session::LogTimed(
        session_, fmt::format(" Renamed {} -- to -- {}", session_.Shown(from), session_.Shown(to)));
    rows_.Rename(row, text::FileNameOf(to));
    results::ResultRow& renamed = rows_.At(row);
    renamed.marks &= static_cast<std::uint8_t>(~results::kReplacement);
    if (const auto facts = session_.files().Facts(to)) {
        renamed.identity = rows_.Identities().Pack(facts->identity, false);
    }
}

void PlaylistEdit::Delete(const std::vector<std::size_t>& deletions) {
    results::BuildFileArray(session_);
    session_.forms.frmOverrideDialog.Answer = session_.forms.frmOverrideRecycleFail.Answer = 0;
    for (std::size_t index = 0; index < deletions.size(); ++index) {
        session_.Yield();
        if (session_.state.blnStopAction) break;
        const std::string path = session_.Shown(session_.selection->strSelPath[index]);
        const bool isGone = DeleteOne(deletions[index], index);
        session::LogTimed(session_, fmt::format(" {} {} to recycle bin.",
                                                isGone ? "Deleted" : "Was unable to delete", path));
        if (isGone) ShowGone(deletions[index]);
    }
    session_.forms.frmOverrideDialog.Answer = session_.forms.frmOverrideRecycleFail.Answer = 0;
}

// The playlist is about files: a folder in it stays. What was missing already is nothing to ask
// about.
bool PlaylistEdit::DeleteOne(std::size_t row, std::size_t index) {
    auto& totals = session_.state.lastAction;
    if (rows_.At(row).isFolder || rows_.At(row).Has(results::kNotRead)) {
        ++totals.skipped;
        return false;
    }
    const std::int64_t before = totals.done;
    session_.events.Raise(session_, lifecycle::kRecycleSelected, {static_cast<int>(index)});
    const bool isGone = totals.done > before;
    deleted_ += isGone ? 1 : 0;
    return isGone;
}

// As it would show when it was loaded again.
void PlaylistEdit::ShowGone(std::size_t row) {
    results::ResultRow& gone = rows_.At(row);
    gone.marks |= results::kNotRead;
    gone.selected = false;
    gone.size = 0;
    gone.date = results::kNoDate;
}

std::string PlaylistEdit::Summary() const {
    std::string told;
    const auto add = [&told](std::string_view what, std::int64_t done, std::int64_t wanted) {
        if (wanted == 0) return;
        told += fmt::format("{}{} {} of {} {}", told.empty() ? "" : ", ", what,
                            text::Format(done, "#,##0"), text::Format(wanted, "#,##0"),
                            wanted == 1 ? "file" : "files");
    };
    add("Renamed", renamed_, toRename_);
    add("recycled", deleted_, toDelete_);
    if (told.empty()) return "Nothing was renamed: no green file needs a Year-Rank.";
    told.front() = told.front() == 'r' ? 'R' : told.front();
    told += '.';
    return told;
}

// ---- the preview ----

// What an error of a rehearsed step means.
std::string VerdictOf(const platform::PlatformError& error) {
    switch (error.number) {
    case platform::kAlreadyExists:
        return "name is taken";
    case platform::kFileNotFound:
    case platform::kPathNotFound:
        return "gone";
    case platform::kChangedSinceSearch:
        return "changed since it was loaded";
    default:
        return "failed";
    }
}

class PlaylistPreview {
  public:
    explicit PlaylistPreview(Session& session)
        : session_(session), rows_(*session.rows), rehearsal_(session.files()) {}

    std::vector<fields::PreviewRow> Run(const PlaylistPlan& plan) {
        for (const PlaylistRename& rename : plan.renames)
            Rename(rename);
        for (const std::size_t row : plan.deletions)
            Delete(row);
        return std::move(shown_);
    }

  private:
    void Rename(const PlaylistRename& rename) {
        const std::string from = rows_.FullPath(rename.row);
        if (rename.newName.empty()) return Add(from, "", "stays: needs no Year-Rank, or gets none");
        const std::string to = text::JoinPath(text::ParentFolder(from), rename.newName);
        const auto seen = SeenRow(rows_, rename.row, from, platform::Same::kObject);
        const auto named = GiveName(rehearsal_, seen, to);
        Add(from, to, named ? "rename" : VerdictOf(named.error()));
    }
    void Delete(std::size_t row) {
        const std::string path = rows_.FullPath(row);
        if (rows_.At(row).isFolder) return Add(path, "", "stays: a folder");
        const auto look = platform::LookAtSeenFile(
            rehearsal_, SeenRow(rows_, row, path, platform::Same::kContent));
        if (!look) return Add(path, "", VerdictOf(look.error()));
        const bool isProtected =
            (look->facts.attributes & (platform::kHidden | platform::kSystem)) != 0;
        if (isProtected) return Add(path, "", "hidden or system: ask");
        (void)rehearsal_.TakeAway(path);
        Add(path, "", "recycle");
    }
    void Add(const std::string& path, const std::string& newPath, std::string verdict) {
        session_.Yield();
        shown_.push_back({session_.Shown(path), newPath.empty() ? "" : session_.Shown(newPath),
                          std::move(verdict)});
    }

    Session& session_;
    const results::ResultList& rows_;
    platform::RehearsalFileSystem rehearsal_;
    std::vector<fields::PreviewRow> shown_;
};

// "1  rename,   2  recycle", in the order in which they first come.
std::string CountsOf(const std::vector<fields::PreviewRow>& shown) {
    std::vector<std::pair<std::string, std::int64_t>> counts;
    for (const fields::PreviewRow& row : shown) {
        auto found = std::ranges::find(counts, row.verdict,
                                       [](const auto& pair) -> const auto& { return pair.first; });
        if (found == counts.end()) found = counts.insert(counts.end(), {row.verdict, 0});
        ++found->second;
    }
    std::string told;
    for (const auto& [verdict, count] : counts) {
        told += fmt::format("{}{}  {}", told.empty() ? "" : ",   ", verdict,
                            text::Format(count, "#,##0"));
    }
    return told;
}

// What is marked; nothing, and said so, when nothing is.
std::optional<PlaylistPlan> MarkedPlan(Session& session) {
    PlaylistPlan plan = ReadPlan(*session.rows);
    if (!plan.IsEmpty()) return plan;
    session.MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
    return std::nullopt;
}

} // namespace

void cmdEditPlayList_Click(Session& session) {
    const auto plan = MarkedPlan(session);
    if (!plan) return;
    PlaylistEdit edit(session);
    edit.Run(*plan);
    if (session.state.blnStopAction) {
        session::LogTimed(session, " User stopped the renaming and deleting by the playlist.");
    }
    results::BuildFileArray(session);
    session.frmSearch.lblStatus.Caption = edit.Summary();
    session.MsgBox(PromptId::kRebuildPlayList,
                   "If Tarvix built this originally, rebuild it, to see the changes that were made "
                   "to the files.\r\nReloading it will cause renamed or deleted files to show as "
                   "no file size.\r\n\r\nPlaylist should still work as a playlist, except deleted "
                   "or renamed files will not play.");
}

void cmdPreviewPlayList_Click(Session& session) {
    const auto plan = MarkedPlan(session);
    if (!plan) return;
    auto& form = session.forms.frmPreview;
    form.rows = PlaylistPreview(session).Run(*plan);
    form.lblMain.Caption = CountsOf(form.rows);
    form.Focus = &form.cmdOK;
    session.ShowModal(PromptId::kPreview);
    form.rows.clear();
}

} // namespace tarvix::generate
