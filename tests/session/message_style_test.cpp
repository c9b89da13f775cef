#include "session/message_style.h"
#include "session/prompt_service.h"

#include <gtest/gtest.h>

namespace tarvix::session {
namespace {

TEST(MessageStyle, EnterAnswersNoWhereAYesOrNoNamesNoDefault) {
    EXPECT_EQ(FocusedAnswer(kYesNo), kNo);
    EXPECT_EQ(FocusedAnswer(kYesNo | kQuestion), kNo);
    EXPECT_EQ(FocusedAnswer(kYesNo | kSecondDefault), kNo);
}

TEST(MessageStyle, EnterElseGivesTheDefaultOfTheStyle) {
    EXPECT_EQ(FocusedAnswer(kOkOnly), kOk);
    EXPECT_EQ(FocusedAnswer(kOkCancel), kOk);
    EXPECT_EQ(FocusedAnswer(kOkCancel | kSecondDefault), kCancel);
    EXPECT_EQ(FocusedAnswer(kYesNoCancel), kYes);
    EXPECT_EQ(FocusedAnswer(kYesNoCancel | kThirdDefault), kCancel);
    EXPECT_EQ(FocusedAnswer(kAbortRetryIgnore | kSecondDefault), kRetry);
}

TEST(MessageStyle, TheIconIsApartFromTheButtons) {
    EXPECT_EQ(IconOf(kYesNo), 0);
    EXPECT_EQ(IconOf(kYesNo | kCritical), kCritical);
    EXPECT_EQ(IconOf(kOkCancel | kQuestion | kSecondDefault), kQuestion);
    EXPECT_EQ(IconOf(kExclamation), kExclamation);
    EXPECT_EQ(IconOf(kYesNoCancel | kInformation | kThirdDefault), kInformation);
}

} // namespace
} // namespace tarvix::session
