#include "session/prompt_id.h"
#include "session/session.h"
#include "session/unattended_prompts.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::session {
namespace {

struct UnattendedPromptsTest : ::testing::Test {
    platform::MemoryPlatform machine;
    UnattendedPrompts prompts;
    Session session{machine.platform, prompts};
};

TEST_F(UnattendedPromptsTest, EveryStyleGetsItsSafeAnswer) {
    EXPECT_EQ(prompts.MsgBox({.style = kOkOnly, .title = "", .text = ""}), kOk);
    EXPECT_EQ(prompts.MsgBox({.style = kOkCancel, .title = "", .text = ""}), kCancel);
    EXPECT_EQ(prompts.MsgBox({.style = kYesNoCancel, .title = "", .text = ""}), kCancel);
    EXPECT_EQ(prompts.MsgBox({.style = kYesNo, .title = "", .text = ""}), kNo);
    EXPECT_EQ(prompts.MsgBox({.style = kRetryCancel, .title = "", .text = ""}), kCancel);
}

TEST_F(UnattendedPromptsTest, AFormIsCancelledThroughItsOwnButton) {
    bool cancelled = false;
    session.events.On("frmDialog.CancelButton_Click", [&](Session& s, const EventArgs&) {
        cancelled = true;
        s.frmDialog.Hide();
    });
    session.ShowModal(PromptId::kActionWindow);
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(prompts.Records().at(0).answer, "CancelButton");
}

TEST_F(UnattendedPromptsTest, ANoticeWithoutCancelGetsItsOk) {
    session.ShowModal(PromptId::kForeignName);
    EXPECT_FALSE(session.forms.frmForChar.IsShown());
    EXPECT_EQ(prompts.Records().at(0).answer, "cmdOK");
}

TEST_F(UnattendedPromptsTest, AFormThatRefusesItsButtonsIsHidden) {
    session.forms.frmForChar.cmdOK.Enabled = false;
    session.ShowModal(PromptId::kForeignName);
    EXPECT_FALSE(session.forms.frmForChar.IsShown());
}

TEST_F(UnattendedPromptsTest, PromptsAreRecordedInOrder) {
    prompts.MsgBox({.style = kYesNo, .title = "A", .text = "first"});
    prompts.InputBox({.title = "B", .text = "second"}, "preset");
    ASSERT_EQ(prompts.Records().size(), 2U);
    EXPECT_EQ(prompts.Records()[0].text, "first");
    EXPECT_EQ(prompts.Records()[0].answer, "No");
    EXPECT_EQ(prompts.Records()[1].kind, PromptKind::kInput);
    EXPECT_EQ(prompts.Records()[1].answer, "");
}

} // namespace
} // namespace tarvix::session
