#include "tests/support/program_fixture.h"

#include "session/user_input.h"
#include "tests/support/listed_prompts.h"
#include "tests/support/shown_paths.h"

#include <algorithm>

namespace tarvix::testing {

ProgramFixture::ProgramFixture() {
    prompts.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
    if (JudgesShownPaths())
        State().platformSettings = session::UsualSettings(machine.platform.traits);
    // Files are made a year before the clock, so that their dates are plausible.
    Disk().UseClock([this] { return machine.clock.FromLocal({2025, 6, 1, 12, 0, 0}); });
    Disk().AddFile(machine.environment.programFolder + "\\TXFSSearchHistoryFile.txt", "*EOF");
}

ProgramFixture::~ProgramFixture() {
    ExpectListed(prompts.Records());
    JudgeShown(S(), prompts.Records());
}

void ProgramFixture::Start(std::string_view argument) {
    program.Start(argument);
    // A stable sort by a column that is the same everywhere keeps the order of the walk.
    Form().lstMain.SortKey = int{results::kSearchFolderIndex};
    Form().chkFastSort.Value = 1;
}

void ProgramFixture::Click(fields::Control& control) {
    const auto clicked = session::UserClick(S(), control);
    EXPECT_TRUE(clicked) << clicked.error();
}

void ProgramFixture::Set(fields::Control& control, std::string_view value) {
    const auto set = session::UserSet(S(), control, value);
    EXPECT_TRUE(set) << set.error();
}

void ProgramFixture::Search(std::string_view patterns, std::string_view locations) {
    Set(Form().cmbSearchFor, patterns);
    Set(Form().cmbDir, locations);
    Click(Form().cmdSearch);
}

void ProgramFixture::LookForAllAttributes() {
    for (fields::CheckBox* box : Form().attributeBoxes) {
        Set(*box, "2");
    }
}

void ProgramFixture::CopySelected(std::string_view destination) {
    const std::string typed(destination);
    bool done = false;
    prompts.SetModalRunner([this, typed, done](session::Session&, fields::Form& form) mutable {
        if (&form != &S().frmDialog || done) return false;
        done = true;
        Set(S().frmDialog.chkSkipAll, "1");
        Set(S().frmDialog.cmbDir, typed);
        prompts.Queue("OK");
        Click(S().frmDialog.OKButton);
        if (form.IsShown()) Click(S().frmDialog.CancelButton);
        return true;
    });
    Click(Form().cmdCopySelected);
    prompts.SetModalRunner({});
}

void ProgramFixture::CopyAll(std::string_view destination) {
    Click(Form().cmdSelectAll);
    CopySelected(destination);
}

std::vector<std::string> ProgramFixture::Cells(results::Column column) {
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
        cells.push_back(program.Rows().Cell(i, column));
    }
    return cells;
}

std::vector<std::string> ProgramFixture::Told() {
    std::vector<std::string> texts;
    for (const auto& record : prompts.Records()) {
        texts.push_back(record.text);
    }
    return texts;
}

bool ProgramFixture::WasTold(std::string_view part) {
    return std::ranges::any_of(
        Told(), [part](const std::string& text) { return text.find(part) != std::string::npos; });
}

std::size_t ProgramFixture::TimesTold(std::string_view part) {
    return static_cast<std::size_t>(std::ranges::count_if(
        Told(), [part](const std::string& text) { return text.find(part) != std::string::npos; }));
}

bool ProgramFixture::HasEntry(const std::string& log, std::string_view text) {
    const std::string entry = "\r\n11/15/2026 19:54:52" + std::string(text) + "\r\n-";
    return log.find(entry) != std::string::npos;
}

std::string ProgramFixture::LogText() {
    program.Stop();
    return Disk().Content(State().strActionLogFile).value_or("");
}

} // namespace tarvix::testing
