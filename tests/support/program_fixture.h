#pragma once

#include "app/program.h"
#include "session/scripted_prompts.h"
#include "tests/machine/memory_platform.h"
#include "tests/support/shown_paths.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::testing {

// A whole program on a machine in memory. Prompts without a queued answer get the safe one.
class ProgramFixture : public ::testing::Test {
  protected:
    ProgramFixture();
    ~ProgramFixture() override;

    platform::MemoryFileSystem& Disk() { return machine.disk; }
    session::Session& S() { return program.Session(); }
    fields::FrmSearch& Form() { return program.Session().frmSearch; }
    session::SessionState& State() { return program.Session().state; }

    // Starts a program that has run before. Rows then stand in the order of the walk, ungrouped.
    void Start(std::string_view argument = {});
    // What a user does; a refusal fails the test.
    void Click(fields::Control& control);
    void Set(fields::Control& control, std::string_view value);
    void Choose(fields::OptionGroup& group, int index) { Click(group[index]); }
    // Searches `patterns` in `locations`; the other criteria as they stand.
    void Search(std::string_view patterns, std::string_view locations);
    void LookForAllAttributes(); // every attribute box grey
    // As by the Options menu, so that they may be chosen again after a search.
    void WithSubfolders() {
        State().options.blnAllowUserSelectSubfolders = true;
        Form().chkIncludeSubFolders.Enabled = true;
        Set(Form().chkIncludeSubFolders, "1");
    }
    // Copies the selected rows to `destination`, confirmed, as a user would in the action window.
    void CopySelected(std::string_view destination);
    void CopyAll(std::string_view destination);

    // The cells of one column, in list order.
    std::vector<std::string> Cells(results::Column column);
    std::vector<std::string> Names() { return Cells(results::kName); }
    std::vector<std::string> Paths() { return Cells(results::kPathName); }
    // The texts of all message boxes and notices so far.
    std::vector<std::string> Told();
    bool WasTold(std::string_view part);
    std::size_t TimesTold(std::string_view part);
    // The action log as it stands on the disk after the program stopped.
    std::string LogText();
    // Whether that log holds an entry of the fixture's fixed time with exactly this text behind it.
    static bool HasEntry(const std::string& log, std::string_view text);

    platform::MemoryPlatform machine;
    const bool isJudged = machine.platform.traits.hasNativePaths = JudgesShownPaths();
    session::ScriptedPrompts prompts;
    app::Program program{machine.platform, prompts};
};

} // namespace tarvix::testing
