#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class ExpertMode : public OptionsFixture {
  protected:
    std::vector<fields::CheckBox*> Boxes() {
        auto& form = Window();
        return {&form.chkReadOnly, &form.chkArchive,   &form.chkSystem, &form.chkHidden,
                &form.chk64,       &form.chk128,       &form.chk256,    &form.chk512,
                &form.chkAlias,    &form.chkCompressed};
    }
    std::vector<int> Values() {
        std::vector<int> values;
        for (const fields::CheckBox* box : Boxes())
            values.push_back(box->Value);
        return values;
    }
    void ExpectLock(bool isExpert) {
        EXPECT_EQ(Window().chkAllowUserSelectSubfolders.Enabled, isExpert);
        EXPECT_EQ(Window().chkAutoOptions.Enabled, isExpert);
        EXPECT_EQ(Window().chkDefaultToIncludeSubfolders.Enabled, isExpert);
        EXPECT_EQ(Window().fraAttribDef.Enabled, !isExpert);
        EXPECT_EQ(Window().fraAttribDefExpert.Enabled, isExpert);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(Window().optAttribDef[i].Enabled, !isExpert);
        for (const fields::CheckBox* box : Boxes())
            EXPECT_EQ(box->Enabled, isExpert) << box->Name();
    }
};

TEST_F(ExpertMode, OpensTheThreeBoxesAndTheAttributes) {
    Start();
    Inside([&] {
        ExpectLock(false);
        Click(Window().chkAllowAll);
        ExpectLock(true);
        Click(Window().chkAllowAll);
        ExpectLock(false);
    });
}

TEST_F(ExpertMode, LeavingItClearsTheThreeBoxesAndFallsBackToThePattern) {
    GivenOptions("blnAllowAll = True\r\nblnAllowUserSelectSubfolders = True\r\n"
                 "blnDefaultToIncludeSubfolders = True\r\nblnAutoOptions = True\r\n"
                 "bytReadOnly = 1\r\nbytHidden = 2\r\n");
    Start();
    Inside([&] {
        EXPECT_EQ(ValueOf("chkAllowUserSelectSubfolders"), "1");
        EXPECT_EQ(Window().optAttribDef.Chosen(), -1);
        Click(Window().chkAllowAll);
        EXPECT_EQ(ValueOf("chkAllowUserSelectSubfolders"), "0");
        EXPECT_EQ(ValueOf("chkAutoOptions"), "0");
        EXPECT_EQ(ValueOf("chkDefaultToIncludeSubfolders"), "0");
        EXPECT_EQ(Window().optAttribDef.Chosen(), 2);
        EXPECT_THAT(Values(), ElementsAre(0, 2, 0, 0, 0, 0, 0, 0, 0, 0));
    });
}

TEST_F(ExpertMode, LoadingWithItOffClearsNoBox) {
    GivenOptions("blnAllowAll = False\r\nblnAllowUserSelectSubfolders = True\r\n"
                 "blnAutoOptions = True\r\nbytHidden = 1\r\n");
    Start();
    Accept([&] {
        ExpectLock(false);
        EXPECT_EQ(ValueOf("chkAllowUserSelectSubfolders"), "1");
        EXPECT_EQ(ValueOf("chkHidden"), "1");
    });
    EXPECT_TRUE(FileHas("blnAllowUserSelectSubfolders = True"));
    EXPECT_TRUE(FileHas("blnAutoOptions = True"));
    EXPECT_TRUE(FileHas("bytHidden = 1"));
}

TEST_F(ExpertMode, EachPatternSetsTheTenBoxes) {
    Start();
    Inside([&] {
        Click(Window().optAttribDef[0]);
        EXPECT_THAT(Values(), ElementsAre(2, 2, 2, 2, 2, 2, 2, 2, 2, 2));
        Click(Window().optAttribDef[1]);
        EXPECT_THAT(Values(), ElementsAre(2, 2, 0, 0, 0, 0, 0, 0, 0, 0));
        Click(Window().optAttribDef[2]);
        EXPECT_THAT(Values(), ElementsAre(0, 2, 0, 0, 0, 0, 0, 0, 0, 0));
    });
}

TEST_F(ExpertMode, WhereNothingIsLeftOutForHowItIsStoredThePatternsFindThatToo) {
    machine.platform.traits.hasNativePaths = true;
    S().platform.traits.hasNativePaths = true;
    Start();
    Inside([&] {
        Click(Window().optAttribDef[1]);
        EXPECT_THAT(Values(), ElementsAre(2, 2, 0, 0, 0, 2, 0, 2, 0, 2));
        Click(Window().optAttribDef[2]);
        EXPECT_THAT(Values(), ElementsAre(0, 2, 0, 0, 0, 2, 0, 2, 0, 2));
    });
}

TEST_F(ExpertMode, ThePatternThatTheBoxesAreInIsChosen) {
    GivenOptions("bytReadOnly = 2\r\nbyt64 = 0\r\n");
    Start();
    Inside([&] {
        EXPECT_EQ(Window().optAttribDef.Chosen(), 1);
        Click(Window().chkAllowAll);
        Click(Window().chkHidden);
        EXPECT_EQ(Window().optAttribDef.Chosen(), -1);
    });
}

TEST_F(ExpertMode, ABoxGoesThroughItsThreeStates) {
    Start();
    Inside([&] {
        Click(Window().chkAllowAll);
        Click(Window().chkAlias);
        EXPECT_EQ(ValueOf("chkAlias"), "1");
        Click(Window().chkAlias);
        EXPECT_EQ(ValueOf("chkAlias"), "2");
        Click(Window().chkAlias);
        EXPECT_EQ(ValueOf("chkAlias"), "0");
    });
}

TEST_F(ExpertMode, DecidesOnTheTipsOfTheList) {
    Start();
    Accept([&] { Click(Window().chkAllowAll); });
    EXPECT_EQ(Form().lstMain.Tip.Get(), "");
    Accept([&] { Click(Window().chkAllowAll); });
    EXPECT_EQ(Form().lstMain.Tip.Get(), "To adjust columns, click & drag just inside the right "
                                        "edge of the column head.");
}

} // namespace
} // namespace tarvix::testing
