#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class ToolFields : public OptionsFixture {
  protected:
    platform::MemoryApplications& desk = machine.applications;
};

TEST_F(ToolFields, EachProgramTellsWhetherItIsFound) {
    desk.AddProgram("vlc");
    Start();
    Inside([&] {
        EXPECT_EQ(ValueOf("lblFoundPlayer"), "Found: VLC");
        EXPECT_TRUE(Named("cmdTestPlayer").Enabled);
        for (const char* key : {"Editor", "SecondPlayer", "HexEditor", "Terminal"}) {
            EXPECT_EQ(ValueOf("lblFound" + std::string(key)), "No such program is installed.")
                << key;
            EXPECT_FALSE(Named("cmdTest" + std::string(key)).Enabled) << key;
        }
    });
}

TEST_F(ToolFields, WhatIsTypedCountsBeforeItIsApplied) {
    desk.AddProgram("myhex");
    Start();
    Inside([&] {
        SetNamed("txtHexEditor", "myhe");
        EXPECT_EQ(ValueOf("lblFoundHexEditor"), "Not found: myhe is not installed here.");
        SetNamed("txtHexEditor", "myhex -r");
        EXPECT_EQ(ValueOf("lblFoundHexEditor"), "Found: myhex");
        Click(Named("cmdTestHexEditor"));
        ASSERT_EQ(desk.started.size(), 1U);
        EXPECT_THAT(desk.started[0], HasSubstr("myhex -r"));
        EXPECT_EQ(State().platformSettings.hexEditor, "") << "nothing was applied";
    });
    EXPECT_EQ(State().platformSettings.hexEditor, "");
}

TEST_F(ToolFields, AProgramThatCantBeStartedIsToldOf) {
    desk.AddProgram("bad");
    desk.refusing.insert("bad");
    Start();
    Inside([&] {
        SetNamed("txtEditor", "bad");
        Click(Named("cmdTestEditor"));
    });
    ASSERT_EQ(prompts.Records().size(), 2U);
    EXPECT_THAT(prompts.Records()[1].text, StartsWith("Editor could not be started: "));
    EXPECT_THAT(desk.started, IsEmpty());
}

TEST_F(ToolFields, ResetShowsWhatIsFoundThen) {
    Start();
    Inside([&] {
        SetNamed("txtEditor", "kate");
        EXPECT_THAT(ValueOf("lblFoundEditor"), StartsWith("Not found: kate"));
        SetNamed("tbsOptions", "This Machine");
        Click(Window().cmdReset);
        EXPECT_EQ(ValueOf("txtEditor"), "");
        EXPECT_EQ(ValueOf("lblFoundEditor"), "No such program is installed.");
    });
}

} // namespace
} // namespace tarvix::testing
