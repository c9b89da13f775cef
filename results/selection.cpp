#include "results/selection.h"

#include "results/result_list.h"
#include "session/lifecycle_events.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "shortcuts/formats/values.h"
#include "text/format.h"

#include <algorithm>
#include <concepts>
#include <new>
#include <utility>

namespace tarvix::results {

namespace {

struct Totals {
    std::int64_t files = 0;
    std::int64_t folders = 0;
    std::uint64_t bytes = 0;
    bool hasShortcuts = false;

    void Add(const ResultRow& row) {
        if (row.isFolder) {
            ++folders;
            return;
        }
        ++files;
        bytes += row.size;
        hasShortcuts = hasShortcuts || shortcuts::KindOf(row.name) != shortcuts::Kind::kNone;
    }
};

void ShowTotals(session::Session& session, const Totals& totals) {
    auto& form = session.frmSearch;
    form.lblTotalSize.Caption =
        totals.files == 0
            ? "00,000,000,000"
            : text::Format(static_cast<std::int64_t>(totals.bytes), "#,###,###,###,##0");
    form.lblNumOfFilesSelected.Caption = std::to_string(totals.files);
    form.lblNumOfDirsSelected.Caption = std::to_string(totals.folders);
    form.cmdEditTargets.Visible = totals.hasShortcuts;
    if (session.state.blnPlayListMode) {
        session.events.Raise(session, lifecycle::kPlayListSelection);
    }
}

// Sets each row's state by `rule`, spacers always unselected.
void SelectRows(ResultList& rows, std::predicate<const ResultRow&> auto rule) {
    for (ResultRow& row : rows.Added())
        row.selected = rule(row);
    rows.UnselectSpacers();
}

constexpr std::string_view kAllSelected = " User selected all files and folders";

void RunSelectCommand(session::Session& session, std::string_view word, std::string_view logText,
                      std::predicate<const ResultRow&> auto rule) {
    session.frmSearch.lblStatus.Caption = std::string(word);
    session.Repaint();
    if (!logText.empty()) session::LogTimed(session, logText);
    SelectRows(*session.rows, rule);
    BuildFileArray(session);
    session.frmSearch.lblStatus.Caption = "";
}

void FillEntry(const ResultList& rows, Selection& tables, std::size_t at, const ResultRow& row,
               bool takesLongPaths) {
    // The full path names the object with more certainty than its short form could.
    const auto [folder, separator, name] = RowPathPieces(*row.folder, row.name, row.isFolder);
    const std::string_view kept = tables.texts.Keep({folder, separator, name});
    tables.strSelActualPath[at] = kept;
    tables.strSelName[at] = kept.ends_with(row.name) ? kept.substr(kept.size() - row.name.size())
                                                     : tables.texts.Keep(row.name);
    const bool opensAsItIs = takesLongPaths || kept.size() <= session::kLongPath;
    tables.strSelPath[at] = opensAsItIs ? kept : tables.texts.Keep(OpenablePath(std::string(kept)));
    tables.strSelRelPath[at] =
        kept.substr(std::min<std::size_t>(row.folder->searchPrefix, kept.size()));
    tables.blnSelIsFile[at] = !row.isFolder;
    tables.blnSelNoDate[at] = row.date == kNoDate;
    if (tables.sightings.empty()) return;
    // Made in its place, as a copy would wait for the stores of the one that is copied.
    new (&tables.sightings[at]) platform::Sighting(rows.SightingOf(row));
}

struct Sizes {
    std::size_t count = 0;
    std::size_t bytes = 0; // of their paths, and a few more
};

// Spacers that are selected are unselected.
Sizes CountSelected(ResultList& rows) {
    Sizes sizes;
    rows.UnselectSpacers();
    for (const ResultRow& row : std::as_const(rows).Added()) {
        if (!row.selected) continue;
        ++sizes.count;
        sizes.bytes += row.folder->longPath.size() + 1 + row.name.size();
    }
    return sizes;
}

// The tables keep what room they have, as they are mostly filled again with much the same. Rows
// that nobody acts on need no sightings.
void Resize(Selection& tables, const Sizes& sizes, bool keepsSightings) {
    tables.texts.Restart(sizes.bytes);
    for (auto* table : {&tables.strSelName, &tables.strSelPath, &tables.strSelRelPath,
                        &tables.strSelActualPath}) {
        const bool isMuchSmaller = sizes.count < table->size() / 2;
        table->resize(sizes.count);
        if (isMuchSmaller) table->shrink_to_fit();
    }
    tables.sightings.resize(keepsSightings ? sizes.count : 0);
    if (tables.sightings.empty()) tables.sightings.shrink_to_fit();
    tables.blnSelIsFile.resize(sizes.count);
    tables.blnSelNoDate.resize(sizes.count);
}

} // namespace

void BuildFileArray(session::Session& session) {
    ResultList& rows = *session.rows;
    Selection& tables = *session.selection;
    const Sizes sizes = CountSelected(rows);
    Resize(tables, sizes, !rows.TakesNamesAlone());
    tables.isRenamed = false;
    Totals totals;
    std::size_t next = 0;
    const bool takesLongPaths = session.state.platformSettings.longestPath == session::kAnyLength;
    for (std::size_t i = 0; next < sizes.count; ++i) {
        const ResultRow& row = rows.At(i);
        if (!row.selected) continue;
        FillEntry(rows, tables, next++, row, takesLongPaths);
        totals.Add(row);
    }
    tables.lngSelTop = static_cast<std::int64_t>(next) - 1;
    tables.lngSelBytes = static_cast<std::int64_t>(totals.bytes);
    ShowTotals(session, totals);
}

std::int64_t CountSelection(session::Session& session) {
    Totals totals;
    for (const ResultRow& row : std::as_const(*session.rows).Added()) {
        if (row.selected) totals.Add(row);
    }
    ShowTotals(session, totals);
    return totals.files + totals.folders;
}

void cmdSelectAll_Click(session::Session& session) {
    RunSelectCommand(session, "Selecting", kAllSelected, [](const ResultRow&) { return true; });
}

std::int64_t SelectAllRows(session::Session& session) {
    session::LogTimed(session, kAllSelected);
    SelectRows(*session.rows, [](const ResultRow&) { return true; });
    return CountSelection(session);
}

void cmdSelectAllDirs_Click(session::Session& session) {
    RunSelectCommand(session, "Selecting", " User selected all folders",
                     [](const ResultRow& row) { return row.isFolder; });
}

void cmdSelectAllFiles_Click(session::Session& session) {
    RunSelectCommand(session, "Selecting", " User selected all files.",
                     [](const ResultRow& row) { return !row.isFolder; });
}

void cmdSelectNone_Click(session::Session& session) {
    session.selection->intSelAnchor = -1;
    session.selection->strSelAnchorName.clear();
    RunSelectCommand(session, "De-Selecting", "", [](const ResultRow&) { return false; });
}

void cmdSelectReverse_Click(session::Session& session) {
    RunSelectCommand(session, "Selecting", " User selected to reverse current selection.",
                     [](const ResultRow& row) { return !row.selected; });
}

void lstMain_ItemClick(session::Session& session, std::size_t row) {
    if (row < session.rows->Count()) {
        ResultRow& clicked = session.rows->At(row);
        if (clicked.IsSpacer()) {
            clicked.selected = false;
        } else {
            session.selection->intSelAnchor = static_cast<std::int64_t>(row);
            session.selection->strSelAnchorName = clicked.name;
        }
    }
    CountSelection(session);
}

void ClearList(session::Session& session) {
    auto& form = session.frmSearch;
    session.rows->Clear();
    session.rows->ShowLongPaths(session.state.platformSettings.longestPath == session::kAnyLength);
    *session.selection = Selection{};
    for (fields::Label* counter :
         {&form.lblNumOfFilesSelected, &form.lblNumOfDirsSelected, &form.lblNumOfFilesFound,
          &form.lblNumOfDirsFound, &form.lblNumOfFilesAttrib, &form.lblNumOfDirsAttrib,
          &form.lblTotalSize}) {
        counter->ForeColor = fields::kBlack;
        counter->Caption = "0";
    }
    auto& state = session.state;
    state.blnDeepFolderTold = false;
    state.lngSeenFiles = state.lngSeenFolders = state.lngFilesFound = state.lngFoldersFound = 0;
    for (fields::Control* hidden : std::initializer_list<fields::Control*>{
             &form.fraSelection, &form.fraStandardAction, &form.cmdDeleteSelected,
             &form.cmdRenameSelected, &form.cmdDoVersionSort, &form.cmdEditTargets}) {
        hidden->Visible = false;
    }
    for (fields::MenuEntry* entry :
         {&form.mnuRun, &form.mnuActions, &form.mnuTools_CreateMPLfromCombo,
          &form.mnuTools_DeleteFolderContentsOnly, &form.mnuTools_FolderSummary,
          &form.mnuTools_NameVersionSort, &form.mnuTools_RemoveUnAndMove, &form.mnuTools_BypassMPL,
          &form.mnuTools_NewSearchFor}) {
        entry->Enabled = false;
    }
    session.forms.frmOutcome.Hide();
    form.cmdOutcome.Visible = false;
    form.lblStatus.Caption = "";
    session.Yield();
}

} // namespace tarvix::results
