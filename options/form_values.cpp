#include "options/form_values.h"

#include "results/columns.h"
#include "session/settings/option_values.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::options {

namespace {

using fields::FrmOptions;
using session::Options;
using session::RunChoices;

struct BoxOption {
    fields::CheckBox FrmOptions::*box;
    bool Options::*option;
};
// The error log is always on: its box is shown and never read.
constexpr std::array kBoxOptions{
    BoxOption{&FrmOptions::chkAllowAll, &Options::blnAllowAll},
    BoxOption{&FrmOptions::chkAllowUserSelectSubfolders, &Options::blnAllowUserSelectSubfolders},
    BoxOption{&FrmOptions::chkDefaultToIncludeSubfolders, &Options::blnDefaultToIncludeSubfolders},
    BoxOption{&FrmOptions::chkAutoOptions, &Options::blnAutoOptions},
    BoxOption{&FrmOptions::chkSkipNTFS, &Options::blnSkipNTFS},
    BoxOption{&FrmOptions::chkLockColumnWidths, &Options::blnLockColumnWidths},
    BoxOption{&FrmOptions::chkDesc, &Options::blnSort},
    BoxOption{&FrmOptions::chkFastSearch, &Options::blnListDupsWhenSearchStringsNotExclusive},
    BoxOption{&FrmOptions::chkNoContextMenuWarning, &Options::blnNoContextMenuWarning},
    BoxOption{&FrmOptions::chkNoColumnWarning, &Options::blnNoColumnWarning},
    BoxOption{&FrmOptions::chkFileLog, &Options::blnFileLog},
    BoxOption{&FrmOptions::chkAutoMode, &Options::blnAutoMode},
    BoxOption{&FrmOptions::chkAskTime, &Options::blnAskWebTime},
    BoxOption{&FrmOptions::chkAskSize, &Options::blnAskWebSize},
    BoxOption{&FrmOptions::chkAutoEnvVar, &Options::blnAutoEnvVar},
    BoxOption{&FrmOptions::chkRemoveEnvVar, &Options::blnRemoveEnvVar},
};

struct GroupOption {
    fields::OptionGroup FrmOptions::*group;
    int Options::*option;
};
constexpr std::array kGroupOptions{
    GroupOption{&FrmOptions::optFilesVsDirs, &Options::bytFilesVsDirs},
    GroupOption{&FrmOptions::optSortBy, &Options::bytSortBy},
};

struct ChoiceOption {
    fields::CheckBox FrmOptions::*box;
    bool RunChoices::*choice;
};
constexpr std::array kChoiceOptions{
    ChoiceOption{&FrmOptions::chkAllowMove, &RunChoices::blnAllowMove},
    ChoiceOption{&FrmOptions::chkAllowOverwrite, &RunChoices::blnAllowOverwrite},
    ChoiceOption{&FrmOptions::chkAllowDelete, &RunChoices::blnAllowDelete},
    ChoiceOption{&FrmOptions::chkAllowAutoModeSystemHidden,
                 &RunChoices::blnAllowAutoModeSystemHidden},
};

// A group has no entry for the columns that are never shown.
void Choose(fields::OptionGroup& group, int index) {
    group.Choose(index < group.Count() ? index : -1);
}

void ShowFolders(FrmOptions& form, const Options& options) {
    for (std::size_t i = 0; i < form.folders.size(); ++i) {
        form.folders[i] = {options.strDefSearchFolder[i], options.strDefSearchFolderTitle[i]};
        form.optDefSearchFolder[static_cast<int>(i)].Caption = FolderCaption(form.folders[i]);
    }
}

// "R" and "R - Normal" are one size: its first letter counts.
void ShowWebSize(fields::ComboBox& box, const std::string& size) {
    const auto known = std::ranges::find_if(box.Items(), [&size](const fields::ComboItem& item) {
        return !size.empty() && item.text.front() == size.front();
    });
    box.Text = known == box.Items().end() ? size : known->text;
}

} // namespace

std::string FolderCaption(const fields::OfferedFolder& folder) {
    const auto title = text::Trim(folder.title);
    return title.empty() ? "(Untitled)" : std::string(title);
}

void ShowOptions(FrmOptions& form, const Options& options) {
    for (const auto& [box, option] : kBoxOptions) {
        (form.*box).Value = options.*option ? 1 : 0;
    }
    for (const auto& [box, option] : kAttributeOptions) {
        (form.*box).Value = options.*option;
    }
    for (const auto& [group, option] : kGroupOptions) {
        Choose(form.*group, options.*option);
    }
    for (int column = form.chkList.First(); column <= form.chkList.Last(); ++column) {
        form.chkList[column].Value = options.blnListItems[static_cast<std::size_t>(column)] ? 1 : 0;
    }
    form.chkErrorLog.Value = 1;
    form.txtDefTime.Text = fmt::format("{}", options.sngDefWebSeconds);
    ShowWebSize(form.cmbDefSize, options.strDefWebSize);
    ShowFolders(form, options);
}

void ReadOptions(const FrmOptions& form, Options& options) {
    for (const auto& [box, option] : kBoxOptions) {
        options.*option = (form.*box).Value == 1;
    }
    for (const auto& [box, option] : kAttributeOptions) {
        options.*option = (form.*box).Value;
    }
    for (const auto& [group, option] : kGroupOptions) {
        const int chosen = (form.*group).Chosen();
        if (chosen >= 0) options.*option = chosen;
    }
    for (int column = form.chkList.First(); column <= form.chkList.Last(); ++column) {
        options.blnListItems[static_cast<std::size_t>(column)] = form.chkList[column].Value == 1;
    }
    options.blnErrorLog = true;
    options.sngDefWebSeconds =
        session::ToSingle(form.txtDefTime.Text.Get()).value_or(options.sngDefWebSeconds);
    options.strDefWebSize = form.cmbDefSize.Text;
    for (std::size_t i = 0; i < form.folders.size(); ++i) {
        options.strDefSearchFolder[i] = form.folders[i].folder;
        options.strDefSearchFolderTitle[i] = form.folders[i].title;
    }
}

void ShowChoices(FrmOptions& form, const RunChoices& choices) {
    for (const auto& [box, choice] : kChoiceOptions) {
        (form.*box).Value = choices.*choice ? 1 : 0;
    }
    for (int i = form.chkAutoPara.First(); i <= form.chkAutoPara.Last(); ++i) {
        form.chkAutoPara[i].Value = choices.blnAutoPara[static_cast<std::size_t>(i)] ? 1 : 0;
    }
}

RunChoices ReadChoices(const FrmOptions& form) {
    RunChoices choices;
    for (const auto& [box, choice] : kChoiceOptions) {
        choices.*choice = (form.*box).Value == 1;
    }
    for (int i = form.chkAutoPara.First(); i <= form.chkAutoPara.Last(); ++i) {
        choices.blnAutoPara[static_cast<std::size_t>(i)] = form.chkAutoPara[i].Value == 1;
    }
    return choices;
}

void ShowVariables(FrmOptions& form, const std::vector<session::EnvVariable>& variables) {
    std::vector<std::string> names;
    form.variablePaths.clear();
    for (const session::EnvVariable& variable : variables) {
        names.push_back(variable.strEnvVarName);
        form.variablePaths.push_back(variable.strEnvVarPath);
    }
    form.lstMain.SetItems(std::move(names));
    for (std::size_t i = 0; i < variables.size(); ++i) {
        form.lstMain.Select(i, variables[i].blnEnvVarInclude);
    }
}

std::vector<session::EnvVariable> ReadVariables(const FrmOptions& form) {
    std::vector<session::EnvVariable> variables;
    const auto& names = form.lstMain.Items();
    for (std::size_t i = 0; i < names.size(); ++i) {
        variables.push_back({form.lstMain.IsSelected(i), names[i], form.variablePaths[i]});
    }
    return variables;
}

} // namespace tarvix::options
