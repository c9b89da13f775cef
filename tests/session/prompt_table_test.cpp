#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/session.h"
#include "session/tell.h"
#include "tests/session/log_session.h"

#include <algorithm>
#include <set>

namespace tarvix::session {
namespace {

TEST(PromptTable, EachIdHasItsRowAndNoMore) {
    ASSERT_EQ(AllPrompts().size(), static_cast<std::size_t>(PromptId::kEnd));
    for (const PromptFacts& facts : AllPrompts()) {
        EXPECT_EQ(FactsOf(facts.id).id, facts.id);
    }
}

TEST(PromptTable, EachModalFormIsOneOfTheProgramsAndStandsOnce) {
    const fields::Forms forms;
    std::set<std::string_view> seen;
    for (const PromptFacts& facts : AllPrompts()) {
        EXPECT_EQ(facts.form.empty(), facts.kind != PromptKind::kForm) << facts.title;
        if (facts.form.empty()) continue;
        EXPECT_NE(forms.Find(facts.form), nullptr) << facts.form;
        EXPECT_TRUE(seen.insert(facts.form).second) << facts.form;
    }
    EXPECT_EQ(seen.size(), 21U);
}

TEST(PromptTable, ANoticeHasOneButtonAndWhateverIsAskedHasMore) {
    for (const PromptFacts& facts : AllPrompts()) {
        if (facts.kind != PromptKind::kMessage || facts.role == PromptRole::kFirstRun) continue;
        EXPECT_EQ(ButtonsOf(facts.style).size() == 1, facts.role == PromptRole::kNotice)
            << static_cast<int>(facts.id);
    }
}

TEST(PromptTable, WhatIsConfirmedUnaskedIsTheActionThatWasAskedFor) {
    std::set<PromptId> confirmed;
    for (const PromptFacts& facts : AllPrompts()) {
        if (facts.role == PromptRole::kConfirmation) confirmed.insert(facts.id);
    }
    EXPECT_EQ(confirmed, (std::set{PromptId::kConfirmCopyOrMove, PromptId::kConfirmWrite,
                                   PromptId::kConfirmRename, PromptId::kConfirmDelete,
                                   PromptId::kConfirmBatchMove, PromptId::kConfirmPlaylists}));
}

TEST(PromptTable, WhatOnlyAsksForAnotherTryIsMarked) {
    std::set<PromptId> retries;
    for (const PromptFacts& facts : AllPrompts()) {
        if (facts.role == PromptRole::kTryAgain) retries.insert(facts.id);
    }
    EXPECT_EQ(retries, (std::set{PromptId::kFileNotFound, PromptId::kBadNameInSearch,
                                 PromptId::kPermissionDenied, PromptId::kDuplicateNotRecycled}));
}

using Tell = testing::LogSession;

TEST_F(Tell, ANoticeIsToldWithTheStyleAndTitleOfTheTable) {
    prompts.Queue("OK");
    TellUnlessAuto(session, PromptId::kPreviewRefused, "Nothing is selected.");
    ASSERT_EQ(Prompts().size(), 1U);
    EXPECT_EQ(Prompts()[0].id, PromptId::kPreviewRefused);
    EXPECT_EQ(Prompts()[0].style, 48);
    EXPECT_EQ(Prompts()[0].title, "Preview");
    EXPECT_EQ(Prompts()[0].text, "Nothing is selected.");
    EXPECT_EQ(ActionLog(), "");
}

TEST_F(Tell, InAutomaticModeNobodyIsTold) {
    State().options.blnAutoMode = true;
    TellUnlessAuto(session, PromptId::kDateTypeInvalid, "Error in date type");
    EXPECT_TRUE(Prompts().empty());
    EXPECT_EQ(ActionLog(), "");
}

TEST_F(Tell, TheLogStandsInForTheUserOrComesWithHim) {
    const std::string time = "11/15/2026 19:54:52";
    prompts.Queue("OK");
    TellOrLog(session, PromptId::kDeepFolder, " told");
    EXPECT_EQ(ActionLog(), "");
    prompts.Queue("OK");
    TellAndLog(session, PromptId::kRenameEmpty, "both");
    EXPECT_EQ(Prompts().size(), 2U);
    EXPECT_TRUE(ActionLog().starts_with(time + " both\r\n-"));

    State().options.blnAutoMode = true;
    TellOrLog(session, PromptId::kDeepFolder, " logged");
    TellAndLog(session, PromptId::kRenameEmpty, "logged too");
    EXPECT_EQ(Prompts().size(), 2U);
    EXPECT_TRUE(ActionLog().contains(time + " logged\r\n-"));
    EXPECT_TRUE(ActionLog().contains(time + " logged too\r\n-"));
}

} // namespace
} // namespace tarvix::session
