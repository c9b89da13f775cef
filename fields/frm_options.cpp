#include "fields/frm_options.h"

#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::fields {

namespace {

constexpr int kColumns = 24;
constexpr int kSortColumns = 25;
constexpr int kFolders = 19;

std::array<Frame, kPageCount> MakePages(Form& form) {
    return {Frame{form, "fraGeneral", "Set General Options"},
            Frame{form, "fraDefaults", "Set Defaults at Open"},
            Frame{form, "fraList", "Set Options for File/Folder List"},
            Frame{form, "fraSort", "Set Options for File/Folder List Sort"},
            Frame{form, "fraSystemHidden",
                  "Set Options for Copy\\Move\\Delete of System\\Hidden Attributes"},
            Frame{form, "fraLogging", "Set Options for Logging"},
            Frame{form, "fraLinks", "Set Options for Editting Link Files"},
            Frame{form, "fraWeb", "Set Web Browsing Options"},
            Frame{form, "fraMachine", "Set Options of this Machine"}};
}

std::vector<std::string> NoCaptions(int count) {
    return std::vector<std::string>(static_cast<std::size_t>(count));
}

} // namespace

CheckArray::CheckArray(Form& form, const std::string& name, int first,
                       const std::vector<std::string>& captions)
    : first_(first) {
    int index = first;
    for (const std::string& caption : captions) {
        boxes_.push_back(std::make_unique<CheckBox>(form, name, caption, 0, false, index++));
    }
}

FrmOptions::FrmOptions()
    : Form("frmOptions"), pages(MakePages(*this)),
      optDefSearchFolder(*this, "optDefSearchFolder", NoCaptions(kFolders)),
      folders(static_cast<std::size_t>(kFolders)),
      chkList(*this, "chkList", 1, NoCaptions(kColumns)),
      optQuickList(*this, "optQuickList",
                   {"All", "&Explorer details view default", "Explorer and &Version",
                    "Tar&vix Columns", "S&imple", "Explorer and Att&ributes",
                    "Explorer, Ext, Year, Levels and &Search for Entries",
                    "S&hortcut Editting Mode", "Shortcut Editting Mode (Web)",
                    "L&oad Pla&ylist Mode"},
                   -1),
      optSortBy(*this, "optSortBy", NoCaptions(kSortColumns)),
      chkAutoPara(*this, "chkAutoPara", 0,
                  {"Error Exception = Safest Option (skip)", "Overwrite Exception = Overwrite All",
                   "Overwrite Exception = Overwrite None", "Delete Exceptions =  Delete All",
                   "Delete Exceptions =  Delete None"}) {
    Caption = "Options";
    tbsOptions.SetItems({"General", "Defaults at Open", "List", "Sort", "System and Hidden",
                         "Logging", "Link Files", "Web", "This Machine"});
    tbsOptions.Select(kGeneralPage, true);
    chkErrorLog.Enabled = chkSaveAtClose.Enabled = chkIncludeNameInCopyToTextFile.Enabled = false;
    for (const char* size : {"R - Normal", "N - Minimized", "X - Maximimed"}) {
        cmbDefSize.AddItem(size);
    }
    for (char letter = 'D'; letter <= 'Z'; ++letter) {
        cmbDriveLetter.AddItem(fmt::format("{}:", letter));
    }
    cmbDriveLetter.Text = "D:";
}

int FrmOptions::Page() const {
    int page = 0;
    while (page + 1 < kPageCount && !tbsOptions.IsSelected(static_cast<std::size_t>(page)))
        ++page;
    return page;
}

MachineField& FrmOptions::AddMachineField(std::string_view key, std::string_view choices) {
    if (choices.empty()) {
        machine.push_back(
            {std::string(key), std::make_unique<TextBox>(*this, fmt::format("txt{}", key))});
        return machine.back();
    }
    auto box = std::make_unique<ComboBox>(*this, fmt::format("cmb{}", key), false);
    for (const std::string_view choice : text::Split(choices, '|')) {
        box->AddItem(std::string(choice));
    }
    machine.push_back({std::string(key), std::move(box)});
    return machine.back();
}

} // namespace tarvix::fields
