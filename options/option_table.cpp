#include "options/option_table.h"

#include "session/settings/option_keys.h"
#include "session/settings/platform_settings.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::options {

namespace {

using fields::Control;
using fields::FrmOptions;

constexpr std::string_view kAttributeTip =
    "Empty will not find any object with this attribute. Black check will only find objects with "
    "this attribute. Grey checked will find all objects regardless of this attribute.";
constexpr std::string_view kRunOnly = "Counts until Tarvix closes; no file keeps it.";

constexpr auto kRows = std::to_array<OptionRow>({
    {"chkAllowAll", fields::kGeneralPage, "blnAllowAll",
     "Opens what can do harm where it is not understood: each attribute box by itself, and the "
     "options below."},
    {"chkAllowUserSelectSubfolders", fields::kGeneralPage, "blnAllowUserSelectSubfolders",
     "Lets 'Include subfolders' be selected in the main window. Changed here in Expert Mode; the "
     "Options menu has it always."},
    {"chkDefaultToIncludeSubfolders", fields::kGeneralPage, "blnDefaultToIncludeSubfolders",
     "Tarvix opens with 'Include subfolders' checked. Changed here in Expert Mode; the Options "
     "menu has it always."},
    {"chkAutoOptions", fields::kGeneralPage, "blnAutoOptions",
     "Kept in the options file for other versions; this one acts the same with and without it. "
     "Changed in Expert Mode."},
    {"chkSkipNTFS", fields::kGeneralPage, "blnSkipNTFS",
     "A folder or file that may not be read is left out of the search without a question; what "
     "was left out is told at the end."},
    {"chkSaveAtClose", fields::kGeneralPage, "",
     "Options are always saved when Tarvix closes, so this can't be changed."},
    {"chkIncludeNameInCopyToTextFile", fields::kGeneralPage, "",
     "Lists of full paths always have the names; the list of folders alone is written beside "
     "them. This can't be changed."},

    {"optFilesVsDirs", fields::kDefaultsPage, "bytFilesVsDirs",
     "What is searched for when Tarvix opens."},
    {"optDefSearchFolder", fields::kDefaultsPage, "strDefSearchFolder",
     "A place that is offered in 'Search Location(s)' by its title: one folder, or several with "
     "| between them. The first one is where Tarvix opens."},
    {"optAttribDef", fields::kDefaultsPage, "",
     "Sets the ten attribute boxes that Tarvix opens with to a pattern."},
    {"chkReadOnly", fields::kDefaultsPage, "bytReadOnly", kAttributeTip},
    {"chkArchive", fields::kDefaultsPage, "bytArchive", kAttributeTip},
    {"chkSystem", fields::kDefaultsPage, "bytSystem", kAttributeTip},
    {"chkHidden", fields::kDefaultsPage, "bytHidden", kAttributeTip},
    {"chk64", fields::kDefaultsPage, "byt64", kAttributeTip},
    {"chk128", fields::kDefaultsPage, "byt128", kAttributeTip},
    {"chk256", fields::kDefaultsPage, "byt256", kAttributeTip},
    {"chk512", fields::kDefaultsPage, "byt512", kAttributeTip},
    {"chkAlias", fields::kDefaultsPage, "bytAlias", kAttributeTip},
    {"chkCompressed", fields::kDefaultsPage, "bytCompressed", kAttributeTip},

    {"chkList", fields::kListPage, "blnListItems", "Shows the column in the list."},
    {"optQuickList", fields::kListPage, "", "Checks the columns of this group and no others."},
    {"chkLockColumnWidths", fields::kListPage, "blnLockColumnWidths",
     "Columns keep their width: their edges can't be dragged."},
    {"chkNoColumnWarning", fields::kListPage, "blnNoColumnWarning",
     "Says nothing when a group of columns adds one that costs a search time."},
    {"chkNoContextMenuWarning", fields::kListPage, "blnNoContextMenuWarning",
     "Says nothing before the first context menu of a run, whose actions the list does not "
     "follow."},
    {"chkFastSearch", fields::kListPage, "blnListDupsWhenSearchStringsNotExclusive",
     "Searches for several patterns skip the test whether an object is in the list already; an "
     "object that two patterns match then stands there twice."},

    {"optSortBy", fields::kSortPage, "bytSortBy",
     "The column by which the list is sorted and grouped when a search has ended."},
    {"chkDesc", fields::kSortPage, "blnSort", "Sorts from the highest to the lowest."},

    {"chkAllowMove", fields::kSystemHiddenPage, "",
     "Moves system and hidden objects as any others. Without it they are copied and the original "
     "stays."},
    {"chkAllowOverwrite", fields::kSystemHiddenPage, "",
     "Overwrites system and hidden objects without asking about each; what is overwritten goes to "
     "the trash."},
    {"chkAllowDelete", fields::kSystemHiddenPage, "",
     "Deletes system and hidden objects without asking about each; they go to the trash."},

    {"chkErrorLog", fields::kLoggingPage, "blnErrorLog",
     "Errors are always written to the error log, so this can't be turned off."},
    {"chkFileLog", fields::kLoggingPage, "blnFileLog",
     "Writes each decision and each change of a file to the action log. Without it the log of "
     "this run is recycled when Tarvix closes."},
    {"chkAutoMode", fields::kLoggingPage, "blnAutoMode",
     "Asks nothing while an action runs: every decision gets its safe answer and a line in the "
     "log. Deletions ask all the same."},
    {"chkAllowAutoModeSystemHidden", fields::kLoggingPage, "",
     "Automatic mode answers for system and hidden objects as chosen below. Where nothing is "
     "chosen there it asks."},
    {"chkAutoPara", fields::kLoggingPage, "",
     "What automatic mode answers, if it may, where a system or hidden object would be "
     "overwritten or deleted. Errors get the safest answer in any case."},

    {"lstMain", fields::kLinksPage, "",
     "The variables that paths of shortcuts may be shown with, the first that fits before all "
     "others. The options file has them as Include and Exclude lines."},
    {"chkAutoEnvVar", fields::kLinksPage, "blnAutoEnvVar",
     "Shows paths of shortcuts with the marked variables in place of the folders that they stand "
     "for."},
    {"chkRemoveEnvVar", fields::kLinksPage, "blnRemoveEnvVar",
     "Shows working folders and icons of shortcuts with the folders that variables stand for."},

    {"txtDefTime", fields::kWebPage, "sngDefWebSeconds",
     "How many seconds a page of a list of pages stays, from 1 to 655."},
    {"cmbDefSize", fields::kWebPage, "strDefWebSize", "The size of the browser's window."},
    {"chkAskTime", fields::kWebPage, "blnAskWebTime",
     "Asks for the seconds at the start of each list of pages."},
    {"chkAskSize", fields::kWebPage, "blnAskWebSize",
     "Asks for the size at the start of each list of pages."},
    {"txtDriveFolder", fields::kMachinePage, "Drive",
     "The folder or mount that the letter stands for, from / on; empty for none."},
});

const fields::MachineField* FindMachine(const FrmOptions& form, const Control& control) {
    const auto found = std::ranges::find_if(form.machine, [&](const fields::MachineField& field) {
        return field.control.get() == &control;
    });
    return found == form.machine.end() ? nullptr : &*found;
}

std::string TipOf(const FrmOptions& form, const Control& control, std::string_view what) {
    const std::string key = KeyOf(form, control);
    if (!key.empty()) return fmt::format("{}\nKey: {}", what, key);
    const bool isOfRun = control.Enabled && (control.ArrayName() == "chkAutoPara" ||
                                             control.Name().starts_with("chkAllow"));
    return isOfRun ? fmt::format("{}\n{}", what, kRunOnly) : std::string(what);
}

} // namespace

const OptionRow* FindRow(const Control& control) {
    const auto found = std::ranges::find(kRows, control.ArrayName(), &OptionRow::control);
    return found == kRows.end() ? nullptr : &*found;
}

fields::OptionPage PageOf(const FrmOptions& form, const Control& control) {
    if (FindMachine(form, control) != nullptr) return fields::kMachinePage;
    const OptionRow* row = FindRow(control);
    return row == nullptr ? fields::kGeneralPage : row->page;
}

bool IsOption(const FrmOptions& form, const Control& control) {
    return FindMachine(form, control) != nullptr || FindRow(control) != nullptr;
}

std::string KeyOf(const FrmOptions& form, const Control& control) {
    if (const auto* field = FindMachine(form, control)) return field->key;
    const OptionRow* row = FindRow(control);
    if (row == nullptr) return {};
    const auto index = static_cast<std::size_t>(std::max(control.Index(), 0));
    if (row->control == "chkList") {
        return fmt::format("{} ({})", row->key, session::kColumnNames[index]);
    }
    if (row->control == "optDefSearchFolder") return fmt::format("{}({})", row->key, index);
    if (row->control == "txtDriveFolder") {
        return fmt::format("{} {}", row->key, form.cmbDriveLetter.Text.Get());
    }
    return std::string(row->key);
}

std::string NameOf(const FrmOptions& form, const Control& control) {
    if (const auto* field = FindMachine(form, control)) return field->key;
    if (control.ArrayName() == "optDefSearchFolder") {
        return fmt::format("Search folder {}: {}", control.Index(), control.CaptionText());
    }
    if (control.ArrayName() == "optSortBy") {
        return fmt::format("Sort by {}", control.CaptionText());
    }
    if (&control == &form.txtDefTime) return "Seconds for a page";
    if (&control == &form.cmbDefSize) return "Size of the browser's window";
    if (&control == &form.lstMain) return "Variables for paths";
    if (&control == &form.txtDriveFolder) return "Drive letters";
    return text::Replace(control.CaptionText(), "&", "");
}

void SetTips(FrmOptions& form) {
    for (Control* control : form.Controls()) {
        if (const OptionRow* row = FindRow(*control)) {
            control->ToolTipText = TipOf(form, *control, row->tip);
        }
    }
    for (const session::SettingFacts& facts : session::AllSettingFacts()) {
        const auto field = std::ranges::find(form.machine, facts.key, &fields::MachineField::key);
        if (field == form.machine.end()) continue;
        field->control->ToolTipText = fmt::format("{}\nKey: {}", facts.comment, facts.key);
    }
}

} // namespace tarvix::options
