#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class OptionVariables : public OptionsFixture {
  protected:
    std::size_t LineOf(const std::string& name) {
        const auto& items = Window().lstMain.Items();
        const auto found = std::ranges::find(items, name);
        return static_cast<std::size_t>(found - items.begin());
    }
    bool Lists(const std::string& name) { return LineOf(name) < Window().lstMain.Items().size(); }
};

TEST_F(OptionVariables, EachLineHasItsFolderAndAMark) {
    GivenOptions("Include Music 00\r\n");
    Start();
    Inside([&] {
        ASSERT_TRUE(Lists("Music"));
        EXPECT_TRUE(Window().lstMain.IsSelected(LineOf("Music")));
        EXPECT_EQ(Window().variablePaths[LineOf("Music")], "C:\\home\\ann\\Music");
        EXPECT_FALSE(Window().lstMain.IsSelected(LineOf("Downloads")));
    });
}

TEST_F(OptionVariables, AMarkComesToItsLineOfTheFileAndBack) {
    Start();
    Accept([&] { SetNamed("lstMain", "Downloads"); });
    EXPECT_THAT(File(), HasSubstr("Include Downloads "));
    EXPECT_THAT(File(), HasSubstr("Exclude Music "));
    Accept([&] {
        EXPECT_EQ(ValueOf("lstMain"), "Downloads\r\n");
        SetNamed("lstMain", "downloads");
    });
    EXPECT_THAT(File(), HasSubstr("Exclude Downloads "));
}

TEST_F(OptionVariables, RebuildTakesNewOnesInKeepsTheMarksAndDropsWhatIsGone) {
    Start();
    Inside([&] {
        SetNamed("lstMain", "Music");
        Disk().AddFolder("C:\\srv\\new");
        machine.environment.Set("NEWONE", "C:\\srv\\new");
        machine.environment.Unset("Downloads");
        EXPECT_FALSE(Lists("NEWONE"));
        Click(Window().cmdRebuildEnvVar);
        EXPECT_TRUE(Lists("NEWONE"));
        EXPECT_FALSE(Lists("Downloads"));
        EXPECT_EQ(ValueOf("lstMain"), "Music\r\n");
        EXPECT_EQ(Window().variablePaths[LineOf("NEWONE")], "C:\\srv\\new");
        Click(Window().cmdApply);
        EXPECT_THAT(File(), HasSubstr("Include Music "));
        EXPECT_THAT(File(), HasSubstr("Exclude NEWONE "));
        EXPECT_THAT(File(), Not(HasSubstr("Downloads")));
    });
}

TEST_F(OptionVariables, ARebuiltTableCountsFromOkOn) {
    Start();
    const auto before = State().options.envVariables;
    Inside([&] {
        machine.environment.Unset("Downloads");
        Click(Window().cmdRebuildEnvVar);
        EXPECT_EQ(State().options.envVariables, before);
        Click(Window().cmdCancel);
    });
    EXPECT_EQ(State().options.envVariables, before);
    Inside([&] { EXPECT_TRUE(Lists("Downloads")); });
}

} // namespace
} // namespace tarvix::testing
