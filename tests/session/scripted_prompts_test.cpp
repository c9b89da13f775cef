#include "session/prompt_id.h"
#include "session/scripted_prompts.h"
#include "session/session.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::session {
namespace {

class ScriptedPromptsTest : public ::testing::Test {
  protected:
    ScriptedPromptsTest() {
        auto& date = session.forms.frmSelectDate;
        date.dtpEndDate.Visible = false;
        date.dtpEndTime.Visible = false;
        session.events.On("frmSelectDate.cmdOK_Click",
                          [](Session& s) { s.forms.frmSelectDate.Hide(); });
        session.events.On("frmSelectDate.cmdCancel_Click",
                          [](Session& s) { s.forms.frmSelectDate.Hide(); });
    }

    fields::FrmSelectDate& DateForm() { return session.forms.frmSelectDate; }

    // Why a queued answer was refused; empty when it was taken.
    template <class Act>
    std::string Refusal(Act act) {
        try {
            act();
        } catch (const PromptMisanswered& wrong) {
            return wrong.why;
        }
        return {};
    }

    platform::MemoryPlatform machine;
    ScriptedPrompts prompts;
    Session session{machine.platform, prompts};
};

TEST_F(ScriptedPromptsTest, AMessageTakesAButtonCaptionWithoutRegardToCaseOrAmpersand) {
    prompts.Queue("&yes");
    EXPECT_EQ(prompts.MsgBox({.style = kYesNo, .title = "Tarvix", .text = "Sure?"}), kYes);
    EXPECT_EQ(prompts.Records().at(0).answer, "Yes");
}

TEST_F(ScriptedPromptsTest, AButtonThatTheStyleDoesNotOfferIsRefusedNamingTheButtons) {
    prompts.Queue("OK");
    const auto why = Refusal(
        [&] { prompts.MsgBox({.style = kYesNoCancel, .title = "Tarvix", .text = "Sure?"}); });
    EXPECT_EQ(why, "The prompt has no button \"OK\". Its buttons are: Yes, No, Cancel.");
}

TEST_F(ScriptedPromptsTest, ATextThatIsNoButtonAtAllIsRefused) {
    prompts.Queue("perhaps");
    EXPECT_NE(Refusal([&] { prompts.MsgBox({.style = kYesNo, .title = "", .text = "Sure?"}); }),
              "");
}

TEST_F(ScriptedPromptsTest, AnUnqueuedPromptThrowsItsRecord) {
    try {
        prompts.MsgBox({.style = kOkCancel + kQuestion, .title = "Title", .text = "Go on?"});
        FAIL() << "nothing was thrown";
    } catch (const PromptUnanswered& unanswered) {
        EXPECT_EQ(unanswered.prompt.text, "Go on?");
        EXPECT_EQ(unanswered.prompt.title, "Title");
        EXPECT_EQ(unanswered.prompt.style, 33);
        EXPECT_EQ(unanswered.prompt.answer, "");
    }
}

TEST_F(ScriptedPromptsTest, TheSafeFallbackCancelsQuestionsAndInputs) {
    prompts.SetFallback(ScriptedPrompts::Fallback::kSafe);
    EXPECT_EQ(prompts.MsgBox({.style = kYesNo, .title = "", .text = ""}), kNo);
    EXPECT_EQ(prompts.MsgBox({.style = kOkCancel, .title = "", .text = ""}), kCancel);
    EXPECT_EQ(prompts.MsgBox({.style = kOkOnly, .title = "", .text = ""}), kOk);
    EXPECT_EQ(prompts.InputBox({.title = "", .text = "Name"}, "preset"), "");
    EXPECT_EQ(prompts.PickFile({.title = "File"}, ""), "");
}

TEST_F(ScriptedPromptsTest, InputsTakeTheQueuedText) {
    prompts.Queue("a name");
    EXPECT_EQ(prompts.InputBox({.title = "Title", .text = "Name"}, ""), "a name");
    EXPECT_EQ(prompts.Records().at(0).kind, PromptKind::kInput);
    EXPECT_EQ(prompts.Records().at(0).answer, "a name");
}

TEST_F(ScriptedPromptsTest, PickersTakeNativePathsOnceTheyKnowTheDrives) {
    prompts.SetPaths(machine.paths);
    prompts.Queue("/home/ann/Music");
    prompts.Queue("C:\\tmp\\a.mpl");
    EXPECT_EQ(prompts.PickFolder({.title = "Folder"}), "C:\\home\\ann\\Music");
    EXPECT_EQ(prompts.PickFile({.title = "File"}, ""), "C:\\tmp\\a.mpl");
}

TEST_F(ScriptedPromptsTest, AFormIsAnsweredByAControlName) {
    prompts.Queue("cmdCancel");
    session.ShowModal(PromptId::kSelectDate);
    EXPECT_EQ(prompts.Records().at(0).form, "frmSelectDate");
    EXPECT_EQ(prompts.Records().at(0).answer, "cmdCancel");
}

TEST_F(ScriptedPromptsTest, AFormIsAnsweredByAButtonCaption) {
    prompts.Queue("ok");
    session.ShowModal(PromptId::kSelectDate);
    EXPECT_EQ(prompts.Records().at(0).answer, "cmdOK");
}

TEST_F(ScriptedPromptsTest, ADateAnswerSetsBothHalvesAndPressesOk) {
    prompts.Queue("2026-03-04 05:06:07");
    session.ShowModal(PromptId::kSelectDate);
    EXPECT_EQ(DateForm().dtpStartDate.Text.Get(), "2026/03/04");
    EXPECT_EQ(DateForm().dtpStartTime.Text.Get(), "05:06:07");
    EXPECT_FALSE(DateForm().IsShown());
}

TEST_F(ScriptedPromptsTest, ADateRangeSetsFourPickers) {
    DateForm().dtpEndDate.Visible = true;
    DateForm().dtpEndTime.Visible = true;
    prompts.Queue("2026/01/02 thru 2026/03/04 23:59:59");
    session.ShowModal(PromptId::kSelectDate);
    EXPECT_EQ(DateForm().dtpStartDate.Text.Get(), "2026/01/02");
    EXPECT_EQ(DateForm().dtpStartTime.Text.Get(), "00:00:00");
    EXPECT_EQ(DateForm().dtpEndDate.Text.Get(), "2026/03/04");
    EXPECT_EQ(DateForm().dtpEndTime.Text.Get(), "23:59:59");
}

TEST_F(ScriptedPromptsTest, ADateRangeForOneDateIsRefused) {
    prompts.Queue("2026/01/02 thru 2026/03/04");
    EXPECT_EQ(Refusal([&] { session.ShowModal(PromptId::kSelectDate); }),
              "frmSelectDate.dtpEndDate is hidden.");
}

TEST_F(ScriptedPromptsTest, AnUnknownControlIsRefusedNamingTheButtons) {
    prompts.Queue("cmdMaybe");
    EXPECT_EQ(Refusal([&] { session.ShowModal(PromptId::kSelectDate); }),
              "frmSelectDate has no control or button \"cmdMaybe\". "
              "Its buttons are: cmdOK, cmdCancel.");
}

TEST_F(ScriptedPromptsTest, ADisabledButtonIsRefused) {
    DateForm().cmdOK.Enabled = false;
    prompts.Queue("cmdOK");
    EXPECT_EQ(Refusal([&] { session.ShowModal(PromptId::kSelectDate); }),
              "frmSelectDate.cmdOK is disabled.");
}

TEST_F(ScriptedPromptsTest, TheRunnerGoesOnInsideUntilTheFormHides) {
    int calls = 0;
    prompts.SetModalRunner([&](Session&, fields::Form& form) {
        if (++calls == 3) form.Hide();
        return true;
    });
    session.ShowModal(PromptId::kSelectDate);
    EXPECT_EQ(calls, 3);
}

TEST_F(ScriptedPromptsTest, ARunnerWithNothingMoreLeavesTheFormUnanswered) {
    prompts.SetModalRunner([](Session&, fields::Form&) { return false; });
    EXPECT_THROW(session.ShowModal(PromptId::kSelectDate), PromptUnanswered);
}

TEST_F(ScriptedPromptsTest, AQueuedAnswerComesBeforeTheRunner) {
    prompts.SetModalRunner([](Session&, fields::Form&) -> bool { throw 1; });
    prompts.Queue("cmdOK");
    EXPECT_NO_THROW(session.ShowModal(PromptId::kSelectDate));
}

TEST_F(ScriptedPromptsTest, WithoutAnswerAndRunnerAFormThrows) {
    EXPECT_THROW(session.ShowModal(PromptId::kSelectDate), PromptUnanswered);
}

TEST_F(ScriptedPromptsTest, TheSafeFallbackCancelsAForm) {
    prompts.SetFallback(ScriptedPrompts::Fallback::kSafe);
    session.ShowModal(PromptId::kSelectDate);
    EXPECT_FALSE(DateForm().IsShown());
    EXPECT_EQ(prompts.Records().at(0).answer, "cmdCancel");
}

} // namespace
} // namespace tarvix::session
