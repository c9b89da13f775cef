#pragma once

#include "session/user_input.h"
#include "tests/support/program_fixture.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::testing {

// A file of the test data, written by hand.
inline std::string Data(const std::string& name) {
    std::ifstream in(TARVIX_TEST_DATA "/generate/" + name, std::ios::binary);
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

// Menu entries that write files, on a machine with the folder C:\d for them.
class GenerateFixture : public ProgramFixture {
  protected:
    using Fill = std::function<void(fields::FrmDialog&)>;

    GenerateFixture() { Disk().AddFolder("C:\\d"); }

    fields::FrmDialog& Dialog() { return S().frmDialog; }
    void InDriveForm() { listsAreNative = false; }

    // Finds everything of a kind (optFilesVsDirs) below C:\t, by name, and selects it.
    void Find(int kind = 0, std::string_view patterns = "*", std::string_view location = "C:\\t") {
        Begin();
        WithSubfolders();
        LookForAllAttributes();
        if (Form().optFilesVsDirs.Chosen() != kind) Choose(Form().optFilesVsDirs, kind);
        Search(patterns, location);
        Click(Form().cmdSelectAll);
    }
    void Begin() {
        if (!isStarted_) Start();
        isStarted_ = true;
        State().platformSettings.listsAreNative = listsAreNative;
    }
    // Clicks a menu entry, fills the window, presses OK and answers what comes in order. A window
    // that still shows then is cancelled.
    void Do(fields::MenuEntry& entry, const Fill& fill, std::vector<std::string> answers = {"OK"}) {
        bool isDone = false;
        stayedOpen = wasShown = false;
        prompts.SetModalRunner([&](session::Session& session, fields::Form& form) {
            if (&form != &Dialog()) return Dismiss(session, form);
            if (std::exchange(isDone, true)) return false;
            wasShown = true;
            proposed = Dialog().cmbDir.Text;
            if (fill) fill(Dialog());
            for (std::string& answer : answers) {
                prompts.Queue(std::move(answer));
            }
            Click(Dialog().OKButton);
            stayedOpen = form.IsShown();
            if (stayedOpen) Click(Dialog().CancelButton);
            return true;
        });
        Click(entry);
        prompts.SetModalRunner({});
    }
    // The same into one file, and its content.
    std::string Write(fields::MenuEntry& entry, const std::string& file,
                      std::vector<std::string> answers = {"OK"}, const Fill& fill = {}) {
        Do(
            entry,
            [&](fields::FrmDialog& form) {
                Set(form.cmbDir, file);
                if (fill) fill(form);
            },
            std::move(answers));
        return Disk().Content(file).value_or("(none)");
    }
    static Fill WithoutMark() {
        return [](fields::FrmDialog& form) { form.chkAddEOF.Value = 0; };
    }

    bool listsAreNative = true;
    bool stayedOpen = false;
    bool wasShown = false;
    std::string proposed; // what the window offered as the file

  private:
    bool Dismiss(session::Session& session, fields::Form& form) {
        for (const char* name : {"cmdSkip", "cmdNo", "cmdOK"}) {
            fields::Control* button = form.Find(name);
            if (button != nullptr && session::UserClick(session, *button)) return true;
        }
        return false;
    }
    bool isStarted_ = false;
};

} // namespace tarvix::testing
