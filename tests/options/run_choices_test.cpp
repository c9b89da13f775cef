#include "session/settings/option_keys.h"
#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::vector<std::string> kOfThisRun{
    "chkAllowMove",   "chkAllowOverwrite", "chkAllowDelete", "chkAllowAutoModeSystemHidden",
    "chkAutoPara(0)", "chkAutoPara(1)",    "chkAutoPara(4)"};

class OptionsOfThisRun : public OptionsFixture {};

TEST_F(OptionsOfThisRun, AreNeverSaved) {
    Start();
    Accept([] {});
    const std::string before = File();
    const std::string machineBefore = MachineFile();
    Accept([&] {
        for (const std::string& name : kOfThisRun)
            SetNamed(name, "1");
    });
    EXPECT_EQ(File(), before);
    EXPECT_EQ(MachineFile(), machineBefore);
    program.Stop();
    EXPECT_EQ(File(), before);
    EXPECT_THAT(File(), Not(HasSubstr("AllowMove")));
    session::ScriptedPrompts quiet;
    app::Program next(machine.platform, quiet);
    EXPECT_EQ(next.Session().state.runChoices, session::RunChoices{});
}

TEST_F(OptionsOfThisRun, StayAsTheyAreSetUntilTheProgramCloses) {
    Start();
    Accept([&] {
        for (const std::string& name : kOfThisRun)
            SetNamed(name, "1");
    });
    EXPECT_TRUE(State().runChoices.blnAllowMove);
    EXPECT_TRUE(State().runChoices.blnAllowOverwrite);
    EXPECT_TRUE(State().runChoices.blnAllowDelete);
    EXPECT_TRUE(State().runChoices.blnAllowAutoModeSystemHidden);
    EXPECT_EQ(State().runChoices.blnAutoPara, (std::array{true, true, false, false, true}));
    Inside([&] {
        for (const std::string& name : kOfThisRun)
            EXPECT_EQ(ValueOf(name), "1") << name;
        EXPECT_EQ(ValueOf("lblAutoPara"),
                  "These options are NOT saved it will always default to 'None'.  It will stay as "
                  "you set it until you close the program.");
    });
}

TEST_F(OptionsOfThisRun, AllAndNoneExcludeEachOther) {
    Start();
    Inside([&] {
        SetNamed("chkAutoPara(1)", "1");
        SetNamed("chkAutoPara(3)", "1");
        SetNamed("chkAutoPara(2)", "1");
        EXPECT_EQ(ValueOf("chkAutoPara(1)"), "0");
        EXPECT_EQ(ValueOf("chkAutoPara(3)"), "1");
        SetNamed("chkAutoPara(4)", "1");
        EXPECT_EQ(ValueOf("chkAutoPara(3)"), "0");
        SetNamed("chkAutoPara(0)", "1");
        EXPECT_EQ(ValueOf("chkAutoPara(2)"), "1");
        SetNamed("chkAutoPara(2)", "0");
        EXPECT_EQ(ValueOf("chkAutoPara(1)"), "0");
    });
}

TEST_F(OptionsOfThisRun, BearTheirCaptions) {
    const auto& boxes = Window().chkAutoPara;
    EXPECT_EQ(boxes[0].Caption.Get(), "Error Exception = Safest Option (skip)");
    EXPECT_EQ(boxes[1].Caption.Get(), "Overwrite Exception = Overwrite All");
    EXPECT_EQ(boxes[2].Caption.Get(), "Overwrite Exception = Overwrite None");
    EXPECT_EQ(boxes[3].Caption.Get(), "Delete Exceptions =  Delete All");
    EXPECT_EQ(boxes[4].Caption.Get(), "Delete Exceptions =  Delete None");
}

} // namespace
} // namespace tarvix::testing
