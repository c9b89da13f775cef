#include "options/machine_page.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/event_table.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::options {

namespace {

using fields::FrmOptions;
using session::PlatformSettings;
using session::Session;

constexpr std::string_view kDrivesNote =
    "C: is /. Media and network shares get the next letters and keep them. A letter that is given "
    "here counts from the next start on.";

void ShowValue(fields::Control& control, const std::string& value) {
    if (control.Kind() == fields::ControlKind::kComboBox) {
        static_cast<fields::ComboBox&>(control).Text = value;
    } else {
        static_cast<fields::TextBox&>(control).Text = value;
    }
}

char LetterOf(const FrmOptions& form) {
    const std::string& text = form.cmbDriveLetter.Text;
    return text.empty() ? '\0' : text.front();
}

void ShowFolderOfLetter(FrmOptions& form) {
    const auto found = form.drives.find(LetterOf(form));
    form.txtDriveFolder.Text = found == form.drives.end() ? "" : found->second;
}

void cmbDriveLetter_Change(Session& session) {
    ShowFolderOfLetter(session.forms.frmOptions);
}

void TakeFolder(Session& session) {
    auto& form = session.forms.frmOptions;
    const std::string folder(text::Trim(form.txtDriveFolder.Text.Get()));
    const char letter = LetterOf(form);
    if (letter == '\0') return;
    if (folder.empty()) {
        form.drives.erase(letter);
    } else {
        form.drives[letter] = folder;
    }
    ShowDrives(session);
}

void cmdBrowseDrive_Click(Session& session) {
    auto& form = session.forms.frmOptions;
    const std::string folder = session.PickFolder(session::PromptId::kPickDriveFolder);
    if (folder.empty()) return;
    form.txtDriveFolder.Text = session.platform.paths.ToNative(folder);
    TakeFolder(session);
}

// A line begins with its letter.
void lstDrives_Click(Session& session, const session::EventArgs& args) {
    auto& form = session.forms.frmOptions;
    const auto line = static_cast<std::size_t>(args.index);
    if (args.index < 0 || line >= form.lstDrives.Items().size()) return;
    const char letter = form.lstDrives.Items()[line].front();
    if (letter < 'D') return;
    form.cmbDriveLetter.Text = fmt::format("{}:", letter);
    ShowFolderOfLetter(form);
}

void TellInvalid(Session& session, fields::Control& control, const std::string& sentence) {
    auto& form = session.forms.frmOptions;
    form.tbsOptions.Select(fields::kMachinePage, true);
    form.Focus = &control;
    session.MsgBox(session::PromptId::kOptionInvalid, sentence);
}

// "~/x" and addresses as the paths that they stand for.
std::string Absolute(const platform::NativePaths& paths, const std::string& typed) {
    const bool isPath = typed.starts_with('/') || !paths.IsNative(typed);
    return isPath ? typed : paths.ToNative(paths.ToDrive(typed));
}

bool ReadDrives(Session& session, PlatformSettings& settings) {
    auto& form = session.forms.frmOptions;
    settings.drives.clear();
    for (const auto& [letter, folder] : form.drives) {
        const std::string native = Absolute(session.platform.paths, folder);
        if (session::SetSetting(settings, fmt::format("Drive {}:", letter), native)) continue;
        form.cmbDriveLetter.Text = fmt::format("{}:", letter);
        ShowFolderOfLetter(form);
        TellInvalid(session, form.txtDriveFolder,
                    fmt::format("\"{}\" is no folder for drive {}:. Give its path from / on.",
                                folder, letter));
        return false;
    }
    return true;
}

} // namespace

void MakeMachineFields(FrmOptions& form) {
    if (!form.machine.empty()) return;
    for (const session::SettingFacts& facts : session::AllSettingFacts()) {
        if (!facts.isRemembered) form.AddMachineField(facts.key, facts.choices);
    }
    form.lblDrives.Caption = std::string(kDrivesNote);
}

void ShowMachine(FrmOptions& form, const PlatformSettings& settings) {
    const auto listed = session::ListSettings(settings);
    for (const fields::MachineField& field : form.machine) {
        const auto found = std::ranges::find(listed, field.key, &session::NamedSetting::key);
        if (found != listed.end()) ShowValue(*field.control, found->value);
    }
    form.drives = settings.drives;
    ShowFolderOfLetter(form);
}

void ShowDrives(Session& session) {
    auto& form = session.forms.frmOptions;
    std::map<char, std::string> lines{{'C', "C:  /"}};
    for (const platform::DriveInfo& drive : session.files().Drives()) {
        if (drive.path.empty() || drive.path.front() == 'C') continue;
        lines[drive.path.front()] = fmt::format("{}  {}", drive.path, drive.nativeMount);
    }
    for (const auto& [letter, folder] : form.drives) {
        lines[letter] = fmt::format("{}:  {}", letter, folder);
    }
    std::vector<std::string> items;
    for (const auto& [letter, line] : lines) {
        items.push_back(line);
    }
    form.lstDrives.SetItems(std::move(items));
}

bool ReadMachine(Session& session, PlatformSettings& settings) {
    for (const fields::MachineField& field : session.forms.frmOptions.machine) {
        const std::string value = field.control->ValueText();
        if (session::SetSetting(settings, field.key, text::Trim(value))) continue;
        TellInvalid(session, *field.control,
                    fmt::format("\"{}\" is no value for {}.", value, field.key));
        return false;
    }
    return ReadDrives(session, settings);
}

void AddMachineEvents(session::EventTable& events) {
    events.On("frmOptions.cmbDriveLetter_Change", cmbDriveLetter_Change);
    events.On("frmOptions.txtDriveFolder_Change", TakeFolder);
    events.On("frmOptions.cmdBrowseDrive_Click", cmdBrowseDrive_Click);
    events.On("frmOptions.lstDrives_Click", lstDrives_Click);
}

} // namespace tarvix::options
