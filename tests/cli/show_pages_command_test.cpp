#include "platform/error.h"
#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ShowPagesCommandTest : public CliFixture {
  protected:
    int Show(std::string_view lines, const std::string& seconds = "1") {
        Disk().AddFile("C:\\lists\\p.txt", lines);
        return Run({"show-pages", "/lists/p.txt", "--seconds", seconds});
    }
};

TEST_F(ShowPagesCommandTest, WaitsForEachPageAndClosesItBeforeTheNext) {
    EXPECT_EQ(Show("http://a\nhttp://b\n*EOF\n", "2"), kDone) << Err();
    EXPECT_THAT(machine.launcher.pages,
                ElementsAre("http://a", "close", "http://b", "close", "close"));
    EXPECT_GE(machine.clock.slept, 4000);
    EXPECT_EQ(Out(), "Showed 2 pages.\n");
}

TEST_F(ShowPagesCommandTest, EndsAtTheFirstRepeat) {
    EXPECT_EQ(Show("http://a\n*REPEAT\n"), kDone);
    EXPECT_EQ(Out(), "Showed 1 page.\n");
    EXPECT_FALSE(machine.launcher.isPageOpen);
}

TEST_F(ShowPagesCommandTest, APageThatCannotBeOpenedGivesOne) {
    machine.clock.duringSleep = [this] { machine.launcher.refusal = platform::kPermissionDenied; };
    EXPECT_EQ(Show("http://a\nhttp://b\n*EOF\n"), kSomeFailed);
    EXPECT_EQ(Out(), "Showed 1 page.\n");
    machine.clock.duringSleep = {};
    EXPECT_EQ(Show("http://a\n*EOF\n"), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("http://a can't be shown."));
}

TEST_F(ShowPagesCommandTest, AnInterruptionEndsTheShowAndItsPage) {
    machine.clock.duringSleep = [this] { interrupted = 2; };
    EXPECT_EQ(Show("http://a\nhttp://b\n*EOF\n"), 130);
    EXPECT_THAT(machine.launcher.pages, ElementsAre("http://a", "close"));
}

TEST_F(ShowPagesCommandTest, SecondsLieBetweenOneAnd655) {
    for (const char* wrong : {"0.5", "656", "many", "-1"}) {
        EXPECT_EQ(Show("http://a\n*EOF\n", wrong), kBadRequest) << wrong;
    }
    EXPECT_TRUE(machine.launcher.pages.empty());
}

TEST_F(ShowPagesCommandTest, AListThatIsEmptyOrMissingIsABadRequest) {
    EXPECT_EQ(Show("*EOF\n"), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("The list /lists/p.txt holds no address."));
    EXPECT_EQ(Run({"show-pages", "/lists/none.txt", "--seconds", "1"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("/lists/none.txt"));
}

TEST_F(ShowPagesCommandTest, WithoutABrowserNothingBegins) {
    machine.launcher.browser.name = "";
    EXPECT_EQ(Show("http://a\n*EOF\n"), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("no default browser"));
}

TEST_F(ShowPagesCommandTest, AScriptGoesOnWhileItsShowDoes) {
    Disk().AddFile("C:\\lists\\p.txt", "http://a\nhttp://b\n*EOF\n");
    EXPECT_EQ(RunScript("answer OK\nanswer 1\nanswer R\nanswer /lists/p.txt\n"
                        "click mnuTools_BrowserUseText\n"),
              kDone)
        << Err();
    EXPECT_THAT(machine.launcher.pages,
                ElementsAre("http://a", "close", "http://b", "close", "close"));
}

} // namespace
} // namespace tarvix::cli
