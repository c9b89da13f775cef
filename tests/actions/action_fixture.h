#pragma once

#include "session/user_input.h"
#include "tests/support/program_fixture.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::testing {

// Whole requests to the action window, on a machine with the folders C:\t and C:\d.
class ActionFixture : public ProgramFixture {
  protected:
    using Fill = std::function<void(fields::FrmDialog&)>;

    fields::FrmDialog& Dialog() { return S().frmDialog; }
    session::ActionTotals& Totals() { return State().lastAction; }

    // Finds everything of a kind (optFilesVsDirs) below a folder and selects it.
    void Find(int kind = 0, std::string_view location = "C:\\t", std::string_view patterns = "*") {
        if (!isStarted_) Start();
        isStarted_ = true;
        WithSubfolders();
        LookForAllAttributes();
        if (Form().optFilesVsDirs.Chosen() != kind) Choose(Form().optFilesVsDirs, kind);
        Search(patterns, location);
        Click(Form().cmdSelectAll);
    }
    // Presses a start button, fills the window, presses OK and answers what comes in order; further
    // prompts get the safe answer. A window that still shows then is cancelled.
    void Do(fields::CommandButton& button, const Fill& fill,
            std::vector<std::string> answers = {}) {
        bool isDone = false;
        stayedOpen = isUsable = false;
        prompts.SetModalRunner([&](session::Session& session, fields::Form& form) {
            if (&form != &Dialog()) return Dismiss(session, form);
            if (std::exchange(isDone, true)) return false;
            fill(Dialog());
            for (std::string& answer : answers) {
                prompts.Queue(std::move(answer));
            }
            Click(Dialog().OKButton);
            stayedOpen = form.IsShown();
            isUsable = Dialog().OKButton.Enabled;
            if (stayedOpen) Click(Dialog().CancelButton);
            return true;
        });
        Click(button);
        prompts.SetModalRunner({});
    }
    void Copy(const Fill& fill, std::vector<std::string> answers = {"OK"}) {
        Do(Form().cmdCopySelected, fill, std::move(answers));
    }
    void Move(const Fill& fill, std::vector<std::string> answers = {"OK"}) {
        Do(Form().cmdMoveSelected, fill, std::move(answers));
    }
    // One location, one choice for duplicates.
    Fill To(const std::string& destination, const std::string& box = "chkSkipAll") {
        return [this, destination, box](fields::FrmDialog& form) {
            Set(form.cmbDir, destination);
            if (box != "chkAsk") Set(*form.Find(box), "1");
        };
    }
    void ExpectTotals(int done, int skipped, int failed) {
        EXPECT_EQ(Totals().done, done);
        EXPECT_EQ(Totals().skipped, skipped);
        EXPECT_EQ(Totals().failed, failed);
    }
    void ExpectLog(const std::vector<std::string>& entries) {
        const std::string log = LogText();
        for (const std::string& entry : entries) {
            EXPECT_TRUE(HasEntry(log, entry)) << entry << "\nin\n" << log;
        }
    }

    // Looks at each prompt form before it is answered.
    std::function<void(fields::Form&)> onForm;
    bool stayedOpen = false;
    bool isUsable = false;

  private:
    bool Dismiss(session::Session& session, fields::Form& form) {
        if (onForm) onForm(form);
        for (const char* name : {"cmdSkip", "cmdNo", "cmdOK"}) {
            fields::Control* button = form.Find(name);
            if (button != nullptr && session::UserClick(session, *button)) return true;
        }
        return false;
    }
    bool isStarted_ = false;
};

} // namespace tarvix::testing
