#include "options/quick_columns.h"

#include "results/columns.h"
#include "results/result_list.h"
#include "session/event_table.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace tarvix::options {

namespace {

using session::Session;
using Columns = std::vector<int>;

enum class Last { kChecked, kUnchecked, kKeeps }; // of the last column

struct QuickGroup {
    Columns columns; // those that are checked
    Last last = Last::kKeeps;
};

constexpr int kLastColumn = results::kSearchForEntry;

Columns AllColumns() {
    Columns all;
    for (int column = results::kSize; column < kLastColumn; ++column)
        all.push_back(column);
    return all;
}

// By the index of `optQuickList`.
const std::array<QuickGroup, 10>& QuickGroups() {
    using namespace results;
    static const std::array<QuickGroup, 10> groups{{
        {AllColumns(), Last::kChecked},
        {{kSize, kDate, kType, kPath}, Last::kUnchecked},
        {{kSize, kDate, kType, kVersion, kPath}, Last::kUnchecked},
        {{kSize, kDate, kExt, kPathNameNoSrch, kPathNameLength, kFilesInFolder, kFoldersInFolder,
          kPathLevels, kYearRank}},
        {{kPathName}},
        {{kSize, kDate, kType, kPath, kAttributes}},
        {{kSize, kDate, kType, kExt, kPathName, kPathLevels, kYearRank}},
        {{kSize, kDate, kType, kPath, kTargetPath, kTargetArguments, kWorkingDir, kHotKey,
          kWindowStyle, kDescription, kIconPath},
         Last::kUnchecked},
        {{kSize, kDate, kType, kPath, kTargetPath, kIconPath}, Last::kUnchecked},
        {{kSize, kDate, kPath, kPathName, kYearRank}, Last::kUnchecked},
    }};
    return groups;
}

constexpr std::array<int, 6> kSlowColumns{results::kType,          results::kVersion,
                                          results::kExeType,       results::kOs,
                                          results::kFilesInFolder, results::kFoldersInFolder};

using SlowStates = std::array<bool, kSlowColumns.size()>;

SlowStates SlowNow(const fields::FrmOptions& form) {
    SlowStates states{};
    for (std::size_t i = 0; i < states.size(); ++i) {
        states[i] = form.chkList[kSlowColumns[i]].Value == 1;
    }
    return states;
}

bool WasAdded(const SlowStates& before, const SlowStates& after) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (after[i] && !before[i]) return true;
    }
    return false;
}

void CheckColumns(fields::FrmOptions& form, const QuickGroup& group) {
    for (int column = form.chkList.First(); column < kLastColumn; ++column) {
        const bool isMeant = std::ranges::find(group.columns, column) != group.columns.end();
        form.chkList[column].Value = isMeant ? 1 : 0;
    }
    if (group.last != Last::kKeeps) {
        form.chkList[kLastColumn].Value = group.last == Last::kChecked ? 1 : 0;
    }
}

void PaintQuickList(fields::FrmOptions& form, int chosen) {
    for (int i = 0; i < form.optQuickList.Count(); ++i) {
        form.optQuickList[i].ForeColor = i == chosen ? fields::kRed : fields::kBlack;
    }
}

constexpr std::string_view kRestartSearch =
    "Since the search is currently active you will have to stop and restart it, to see column(s) "
    "you just selected.\r\n(To very slightly speed up searchs never select Version, OS, Exe Type, "
    "or Type.)";
constexpr std::string_view kSearchAgain =
    "You will need to perform the search again to see the column(s) information you just added. ";
// What a window leads with: only the counts are gathered by a search.
constexpr std::string_view kWhatIsTrue =
    "The columns show as soon as the options are applied. Files and Folders in this Folder are "
    "counted by the next search; the others read each file when its row is looked at.";

} // namespace

void AlertAboutColumnChange(Session& session) {
    if (session.state.options.blnNoColumnWarning) return;
    const bool isActive = session.state.blnSearching;
    session.MsgBox(session::PromptId::kColumnsAdded, isActive ? kRestartSearch : kSearchAgain,
                   isActive ? std::string_view() : kWhatIsTrue);
}

// Setting a box's value raises no click, so the choice that made it stays.
void optQuickList_Click(Session& session, const session::EventArgs& args) {
    auto& form = session.forms.frmOptions;
    if (args.index < 0 || args.index >= form.optQuickList.Count()) return;
    const SlowStates before = SlowNow(form);
    PaintQuickList(form, args.index);
    CheckColumns(form, QuickGroups()[static_cast<std::size_t>(args.index)]);
    ShowColumnNote(session);
    if (WasAdded(before, SlowNow(form))) AlertAboutColumnChange(session);
}

void chkList_Click(Session& session, const session::EventArgs& /*args*/) {
    auto& form = session.forms.frmOptions;
    form.optQuickList.Choose(-1);
    PaintQuickList(form, -1);
    ShowColumnNote(session);
}

void ShowColumnNote(Session& session) {
    auto& form = session.forms.frmOptions;
    const auto isAdded = [&](int column) {
        return form.chkList[column].Value == 1 &&
               !session.blnListItems[static_cast<std::size_t>(column)];
    };
    const bool isCounted = isAdded(results::kFilesInFolder) || isAdded(results::kFoldersInFolder);
    const bool hasRows = session.rows != nullptr && session.rows->Count() > 0;
    form.lblColumnNote.Caption =
        isCounted && hasRows ? "Files and Folders in this Folder are counted by the next search."
                             : "(To very slightly speed up searchs never select Version, OS, Exe "
                               "Type, or Type.)";
}

} // namespace tarvix::options
