#pragma once

#include "actions/request/first_names.h"
#include "actions/request/preview.h"
#include "session/user_input.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::testing {

// Renames from other sources, from the menu entry to the end message, of all that lies below C:\t.
class SourceFixture : public ProgramFixture {
  protected:
    using Fill = std::function<void(fields::FrmDialog&)>;

    fields::FrmDialog& Dialog() { return S().frmDialog; }
    session::ActionTotals& Totals() { return State().lastAction; }

    // Files are listed by optFilesVsDirs(0), folders by (3), both by (2).
    void Find(int kind = 0, std::string_view patterns = "*") {
        if (!std::exchange(isStarted_, true)) Start();
        WithSubfolders();
        LookForAllAttributes();
        if (Form().optFilesVsDirs.Chosen() != kind) Choose(Form().optFilesVsDirs, kind);
        Search(patterns, "C:\\t");
        Click(Form().cmdSelectAll);
    }
    // Clicks a menu entry, fills the window, presses OK and answers its prompts in their order;
    // others get the safe answer. A window that still shows then is cancelled.
    void Do(fields::MenuEntry& entry, const Fill& fill, std::vector<std::string> answers = {"OK"}) {
        InWindow(entry, [&](fields::FrmDialog& form) {
            fill(form);
            for (std::string& answer : answers)
                prompts.Queue(std::move(answer));
            Click(form.OKButton);
        });
    }
    // The new names and verdicts, as foretold; nothing may have changed by that.
    std::vector<std::string> Foretell(fields::MenuEntry& entry, const Fill& fill) {
        std::vector<std::string> told;
        InWindow(entry, [&](fields::FrmDialog& form) {
            fill(form);
            const auto before = Disk().AllFiles();
            const auto result = actions::Preview(S());
            EXPECT_EQ(Disk().AllFiles(), before);
            refusal = result.refusal;
            for (const auto& found : result.entries)
                told.push_back(found.strNewPath + " - " + actions::VerdictText(found));
        });
        return told;
    }
    // The first names as the open window shows them: "old > new: verdict", then the note.
    std::vector<std::string> FirstNames(fields::MenuEntry& entry, const Fill& fill) {
        std::vector<std::string> shown;
        InWindow(entry, [&](fields::FrmDialog& form) {
            fill(form);
            const auto before = Disk().AllFiles();
            const actions::FirstNames first = actions::FirstNamesOf(S());
            EXPECT_EQ(Disk().AllFiles(), before);
            for (const auto& row : first.rows)
                shown.push_back(row.object + " > " + row.newPath + ": " + row.verdict);
            if (!first.note.empty()) shown.push_back(first.note);
        });
        return shown;
    }
    Fill List(const std::string& path) {
        return [this, path](fields::FrmDialog& form) { Set(form.cmbDir, path); };
    }
    // A list of whole names.
    Fill Whole(const std::string& path) {
        return [this, path](fields::FrmDialog& form) {
            Set(form.chkWholeNames, "1");
            Set(form.cmbDir, path);
        };
    }

    // What lies below C:\t, less that.
    std::vector<std::string> Files() { return Below(Disk().AllFiles()); }
    std::vector<std::string> Folders() { return Below(Disk().AllFolders()); }
    std::string Content(const std::string& name) {
        return Disk().Content("C:\\t\\" + name).value_or("(none)");
    }
    void ExpectTotals(int done, int skipped, int failed) {
        EXPECT_EQ(Totals().done, done);
        EXPECT_EQ(Totals().skipped, skipped);
        EXPECT_EQ(Totals().failed, failed);
    }
    void ExpectLog(const std::vector<std::string>& entries) {
        const std::string log = LogText();
        for (const std::string& entry : entries)
            EXPECT_TRUE(HasEntry(log, entry)) << entry << "\nin\n" << log;
    }

    std::string refusal; // of the last preview
    bool stayedOpen = false;

    // Opens the window, lets `act` do what it does, and cancels the window if it still shows.
    void LookInto(fields::MenuEntry& entry, const Fill& act) { InWindow(entry, act); }

  private:
    void InWindow(fields::MenuEntry& entry, const Fill& act) {
        bool isDone = false;
        stayedOpen = false;
        prompts.SetModalRunner([&](session::Session& session, fields::Form& form) {
            if (&form != &Dialog()) return Dismiss(session, form);
            if (std::exchange(isDone, true)) return false;
            act(Dialog());
            stayedOpen = form.IsShown();
            if (stayedOpen) Click(Dialog().CancelButton);
            return true;
        });
        Click(entry);
        prompts.SetModalRunner({});
    }
    static bool Dismiss(session::Session& session, fields::Form& form) {
        for (const char* name : {"cmdSkip", "cmdNo", "cmdOK"}) {
            fields::Control* button = form.Find(name);
            if (button != nullptr && session::UserClick(session, *button)) return true;
        }
        return false;
    }
    static std::vector<std::string> Below(const std::vector<std::string>& paths) {
        std::vector<std::string> below;
        for (const std::string& path : paths)
            if (path.starts_with("C:\\t\\")) below.push_back(path.substr(5));
        return below;
    }
    bool isStarted_ = false;
};

} // namespace tarvix::testing
