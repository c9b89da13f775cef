#include "session/text_viewer.h"
#include "session/unattended_prompts.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TextViewer : public ProgramFixture {
  protected:
    TextViewer() { Start(); }
    std::vector<std::string>& Opened() { return machine.launcher.opened; }
};

TEST_F(TextViewer, TheActionLogOfThisRunIsShownByTheDesktop) {
    Click(Form().mnuToolViewActionLog);
    EXPECT_THAT(Opened(), ElementsAre("C:\\home\\ann\\tarvix\\TXAction 11.15.26 19.54.52.log"));
    EXPECT_THAT(machine.launcher.commands, IsEmpty());
}

TEST_F(TextViewer, TheEditorOfTheSettingsComesFirst) {
    State().platformSettings.editor = "kate --new";
    Click(Form().mnuToolViewActionLog);
    EXPECT_EQ(Opened().size(), 1U);
    EXPECT_THAT(machine.launcher.commands, ElementsAre("kate --new"));
}

TEST_F(TextViewer, AnyLogIsPickedWithItsTitle) {
    Disk().AddFile("C:\\home\\ann\\tarvix\\TXProgramError.log");
    prompts.Queue("C:\\home\\ann\\tarvix\\TXProgramError.log");
    Click(Form().mnuToolViewAnyActionLog);
    EXPECT_THAT(Opened(), ElementsAre("C:\\home\\ann\\tarvix\\TXProgramError.log"));
    EXPECT_EQ(prompts.Records()[0].title, "Select Action Log file.");
}

TEST_F(TextViewer, APickThatWasCancelledOpensNothing) {
    Click(Form().mnuToolViewAnyActionLog);
    EXPECT_THAT(Opened(), IsEmpty());
    EXPECT_EQ(prompts.Records().size(), 1U);
}

TEST_F(TextViewer, ALogThatIsGoneIsTold) {
    prompts.Queue("C:\\tmp\\TXAction none.log");
    prompts.Queue("No");
    Click(Form().mnuToolViewAnyActionLog);
    EXPECT_THAT(Opened(), IsEmpty());
    EXPECT_EQ(prompts.Records()[1].title, "File not found");
}

// Remembers what a picker was to offer.
class Picker : public session::UnattendedPrompts {
  public:
    std::string PickFile(const session::Prompt& prompt, std::string_view filters) override {
        offered = filters;
        return session::UnattendedPrompts::PickFile(prompt, filters);
    }
    std::string offered;
};

TEST(TextViewerPicker, OffersLogsFirstAndThenTheProgramsOtherFiles) {
    platform::MemoryPlatform machine;
    Picker picker;
    session::Session session{machine.platform, picker};
    session::AddLogViewEvents(session.events);
    session.Raise(session.frmSearch.mnuToolViewAnyActionLog, "Click");
    EXPECT_EQ(picker.offered, "Action Logs (TXAction*.log)|TXAction*.log|"
                              "Error Logs (TXProgramError*.log)|TXProgramError*.log|"
                              "Option Files (TXOptionFile*.*)|TXOptionFile*.*|"
                              "History Files (*HistoryFile*.*)|*HistoryFile*.*|"
                              "All Files (*.*)|*.*|"
                              "Text Files (*.txt)|*.txt|"
                              "Playlist Files (*.m3u)|*.m3u|"
                              "Multiple Path List Files (*.mpl)|*.mpl|"
                              "(*.txt;*.m3u;*.mpl)|*.txt;*.m3u;*.mpl|");
}

} // namespace
} // namespace tarvix::testing
