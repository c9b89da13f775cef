#include "batch/ask_page_show.h"
#include "platform/error.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class PageShow : public testing::ProgramFixture {
  protected:
    void SetUp() override { Start(); }
    void List(std::string_view lines) { Disk().AddFile("C:\\lists\\pages.txt", lines); }
    void Begin(const std::vector<std::string>& answers) {
        for (const std::string& answer : answers) {
            prompts.Queue(answer);
        }
        Click(Form().mnuTools_BrowserUseText);
    }
    void BeginPlain(const std::string& seconds = "1") {
        Begin({"OK", seconds, "R", "C:\\lists\\pages.txt"});
    }
    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            S().Raise(Form().Timer1, "Timer");
        }
    }
    void TickAPage() { Tick(10); }
    const std::vector<std::string>& Pages() { return machine.launcher.pages; }
};

TEST_F(PageShow, ThePagesOpenInTurnAndEachIsClosedBeforeTheNext) {
    List("http://a\r\nhttp://b\r\n*EOF");
    BeginPlain();
    EXPECT_THAT(Pages(), ElementsAre("http://a"));
    EXPECT_TRUE(Form().Timer1.Enabled);
    EXPECT_EQ(Form().State, fields::WindowState::kMinimized);
    Tick(9);
    EXPECT_THAT(Pages(), ElementsAre("http://a"));
    Tick();
    EXPECT_THAT(Pages(), ElementsAre("http://a", "close", "http://b"));
    TickAPage();
    EXPECT_THAT(Pages(), ElementsAre("http://a", "close", "http://b", "close", "close"));
    EXPECT_FALSE(Form().Timer1.Enabled);
    EXPECT_EQ(Form().State, fields::WindowState::kNormal);
    TickAPage();
    EXPECT_EQ(Pages().size(), 5U);
}

TEST_F(PageShow, ABrowserThatTakesItsTimeToEndIsWaitedForByShortTicks) {
    List("a\r\nb\r\n*EOF");
    BeginPlain();
    machine.launcher.closingLooks = 3;
    TickAPage();
    EXPECT_THAT(Pages(), ElementsAre("a", "close"));
    EXPECT_EQ(Form().Timer1.Interval.Get(), 20);
    Tick(2);
    EXPECT_THAT(Pages(), ElementsAre("a", "close"));
    Tick();
    EXPECT_THAT(Pages(), ElementsAre("a", "close", "b"));
    EXPECT_EQ(Form().Timer1.Interval.Get(), 100);
    TickAPage();
    EXPECT_FALSE(Form().Timer1.Enabled);
}

TEST_F(PageShow, ABrowserThatDoesNotEndIsWaitedForTwoSeconds) {
    List("a\r\nb\r\n*EOF");
    BeginPlain();
    machine.launcher.closingLooks = 1000;
    TickAPage();
    Tick(99);
    EXPECT_EQ(Pages().back(), "close");
    Tick();
    EXPECT_EQ(Pages().back(), "b");
}

TEST_F(PageShow, AShowThatTheUserEndsWaitsForNoBrowser) {
    List("a\r\nb\r\n*EOF");
    BeginPlain();
    machine.launcher.closingLooks = 3;
    TickAPage();
    Click(Form().mnuTools_BrowserUseText);
    EXPECT_FALSE(Form().Timer1.Enabled);
    Tick(5);
    EXPECT_THAT(Pages(), ElementsAre("a", "close", "close"));
}

TEST_F(PageShow, ARepeatedListStartsOverWithAShortTick) {
    List("a\r\nb\r\n*REPEAT");
    BeginPlain();
    TickAPage();
    TickAPage();
    EXPECT_THAT(Pages(), ElementsAre("a", "close", "b", "close"));
    EXPECT_TRUE(State().blnWebRepeating);
    Tick();
    EXPECT_THAT(Pages(), ElementsAre("a", "close", "b", "close", "close", "a"));
    TickAPage();
    EXPECT_EQ(Pages().back(), "b");
    EXPECT_TRUE(Form().Timer1.Enabled);
}

TEST_F(PageShow, HalfASecondIsRefusedAndOneAndAHalfAreFifteenTenthsOfATick) {
    List("a\r\n*EOF");
    Begin({"OK", "0.5", "OK", "1.5", "R", "C:\\lists\\pages.txt"});
    EXPECT_THAT(Told(), Contains("Must be a number between 1 and 655"));
    EXPECT_EQ(Form().Timer1.Interval.Get(), 150);
}

TEST_F(PageShow, SecondsAreANumberOrAskedForAgain) {
    List("a\r\n*EOF");
    Begin({"OK", "two", "OK", "656", "OK", "1/2", "OK", "1.2.3", "OK", "655", "R",
           "C:\\lists\\pages.txt"});
    EXPECT_THAT(Told(), Contains("Must be a number between 1 and 655.\r\n\r\nOnly numbers and "
                                 "decimal points are allowed, blank entry cancels browser "
                                 "operation."));
    EXPECT_EQ(Form().Timer1.Interval.Get(), 65500);
}

TEST_F(PageShow, AnEmptyAnswerCancels) {
    Begin({"OK", "", "OK"});
    EXPECT_EQ(Told().back(), "Canceled");
    Begin({"OK", "8", "", "OK"});
    EXPECT_EQ(Told().back(), "Canceled");
    Begin({"OK", "8", "R", "", "OK"});
    EXPECT_EQ(Told().back(), "Canceled");
    EXPECT_TRUE(Pages().empty());
    EXPECT_FALSE(Form().Timer1.Enabled);
}

TEST_F(PageShow, TheSizeIsOneLetterOrAskedForAgain) {
    List("a\r\n*EOF");
    Begin({"OK", "1", "max", "OK", "X", "C:\\lists\\pages.txt"});
    EXPECT_THAT(Told(), Contains("Must be x- MaX, n - MiN, or r - NoR"));
    EXPECT_THAT(machine.launcher.sizes, ElementsAre(platform::PageSize::kMaximized));
}

TEST_F(PageShow, WhatTheOptionsSayIsNotAskedFor) {
    State().options.blnAskWebTime = State().options.blnAskWebSize = false;
    State().options.sngDefWebSeconds = 8;
    State().options.strDefWebSize = "N - Minimized";
    List("a\r\n*EOF");
    Begin({"OK", "C:\\lists\\pages.txt"});
    EXPECT_EQ(Form().Timer1.Interval.Get(), 800);
    EXPECT_THAT(machine.launcher.sizes, ElementsAre(platform::PageSize::kMinimized));
}

TEST_F(PageShow, WhereABrowserTakesNoSizeTheNoticeSaysSo) {
    machine.launcher.browser.takesSize = false;
    List("a\r\n*EOF");
    BeginPlain();
    EXPECT_TRUE(WasTold("It opens its windows in a size of its own, whatever size is chosen"));
    EXPECT_THAT(Told().front(), Not(HasSubstr("MaXimized")));
    EXPECT_THAT(Pages(), ElementsAre("a"));
}

TEST_F(PageShow, TheSetUpTellsWhetherPagesAreClosed) {
    Begin({"OK", "", "OK"});
    EXPECT_TRUE(WasTold("Each page gets a browser of its own, which is ended before the next"));
    machine.launcher.browser.endsPages = false;
    Begin({"OK", "", "OK"});
    EXPECT_TRUE(WasTold("so no page is closed"));
}

TEST_F(PageShow, WithoutABrowserNothingBegins) {
    machine.launcher.browser.name = "";
    Begin({"OK"});
    EXPECT_TRUE(WasTold("This desktop has no default browser"));
}

TEST_F(PageShow, AListWithoutAnAddressIsEmptyAndAskedForAgain) {
    for (const char* lines : {"*EOF", "", "*REPEAT\r\n", "\r\n\r\n*EOF"}) {
        List(lines);
        Begin({"OK", "1", "R", "C:\\lists\\pages.txt", "OK", "", "OK"});
        EXPECT_THAT(Told(), Contains("File is empty")) << lines;
        EXPECT_TRUE(Pages().empty()) << lines;
        EXPECT_FALSE(Form().Timer1.Enabled) << lines;
    }
}

TEST_F(PageShow, OnePageWithoutAMarkIsShownAndThenTheShowEnds) {
    List("a");
    BeginPlain();
    TickAPage();
    EXPECT_THAT(Pages(), ElementsAre("a", "close", "close"));
    EXPECT_FALSE(Form().Timer1.Enabled);
    EXPECT_FALSE(WasTold("error"));
}

TEST_F(PageShow, AListWithoutAMarkEndsBehindItsLastPageAndThatIsTold) {
    List("a\r\nb");
    BeginPlain();
    TickAPage();
    EXPECT_EQ(Pages().back(), "b");
    EXPECT_FALSE(WasTold("error 62"));
    prompts.Queue("OK");
    TickAPage();
    EXPECT_TRUE(WasTold("unexpected error 62"));
    EXPECT_FALSE(Form().Timer1.Enabled);
}

TEST_F(PageShow, PathsReachTheBrowserInNativeFormAndAllElseAsItStands) {
    List("C:\\home\\ann\\a b.htm\r\nwww.example.org/?q=1#x\r\n/srv/c.htm\r\n*EOF");
    BeginPlain();
    TickAPage();
    TickAPage();
    EXPECT_THAT(Pages(), ElementsAre("/home/ann/a b.htm", "close", "www.example.org/?q=1#x",
                                     "close", "/srv/c.htm"));
}

TEST_F(PageShow, APageThatCannotBeShownIsLoggedAndTheShowGoesOn) {
    List("a\r\nb\r\nc\r\n*EOF");
    BeginPlain();
    machine.launcher.refusal = platform::kPermissionDenied;
    TickAPage();
    machine.launcher.refusal = 0;
    TickAPage();
    EXPECT_THAT(Pages(), ElementsAre("a", "close", "close", "c"));
    EXPECT_TRUE(State().blnPageNotOpened);
    EXPECT_THAT(LogText(), HasSubstr(" b can't be shown."));
}

TEST_F(PageShow, AFirstPageThatCannotBeShownIsToldAndNothingBegins) {
    List("a\r\n*EOF");
    machine.launcher.refusal = platform::kPermissionDenied;
    Begin({"OK", "1", "R", "C:\\lists\\pages.txt", "OK"});
    EXPECT_TRUE(WasTold("a can't be shown."));
    EXPECT_FALSE(Form().Timer1.Enabled);
    EXPECT_NE(Form().State, fields::WindowState::kMinimized);
}

TEST_F(PageShow, TheMenuEntryEndsAShowThatIsOn) {
    List("a\r\nb\r\n*REPEAT");
    BeginPlain();
    EXPECT_TRUE(Form().mnuTools_BrowserUseText.Checked);
    Click(Form().mnuTools_BrowserUseText);
    EXPECT_FALSE(Form().mnuTools_BrowserUseText.Checked);
    EXPECT_FALSE(Form().Timer1.Enabled);
    EXPECT_THAT(Pages(), ElementsAre("a", "close"));
}

TEST(NumericText, HoldsDigitsAndPointsAlone) {
    for (const char* text : {"1", "1.5", "655", ".5", "1.2.3", ".."}) {
        EXPECT_TRUE(batch::IsNumericText(text)) << text;
    }
    for (const char* text : {"", ".", "1/2", "-1", "1,5", "one", " 1"}) {
        EXPECT_FALSE(batch::IsNumericText(text)) << text;
    }
}

} // namespace
} // namespace tarvix
