#include "tests/support/listed_prompts.h"

#include "session/prompt_table.h"

#include <gtest/gtest.h>

namespace tarvix::testing {

void ExpectListed(const std::vector<session::PromptRecord>& prompts) {
    for (const session::PromptRecord& prompt : prompts) {
        ASSERT_LT(prompt.id, session::PromptId::kEnd) << prompt.text;
        const session::PromptFacts& facts = session::FactsOf(prompt.id);
        EXPECT_EQ(facts.kind, prompt.kind) << prompt.text;
        EXPECT_EQ(facts.style, prompt.style) << prompt.text;
        EXPECT_EQ(facts.form, prompt.form) << prompt.text;
        if (prompt.kind == session::PromptKind::kForm) continue; // its caption tells the title
        EXPECT_EQ(facts.title, prompt.title) << prompt.text;
    }
}

} // namespace tarvix::testing
