#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class DateType : public ProgramFixture {
  protected:
    DateType() {
        auto& node = Disk().AddFile("C:\\t\\a.txt");
        node.modified = machine.clock.FromLocal({2001, 1, 1, 1, 1, 1});
        node.created = machine.clock.FromLocal({2002, 2, 2, 2, 2, 2});
        node.accessed = machine.clock.FromLocal({2003, 3, 3, 3, 3, 3});
        Start();
    }
    std::string DateBy(int kind) {
        Click(Form().mnuSearch_DateType[static_cast<std::size_t>(kind)]);
        Search("*", "C:\\t");
        return Cells(results::kDate).at(0);
    }
};

TEST_F(DateType, TheMenuChoosesWhichDateIsListed) {
    EXPECT_EQ(DateBy(1), "2002/02/02 02:02:02");
    EXPECT_EQ(DateBy(2), "2003/03/03 03:03:03");
    EXPECT_EQ(DateBy(0), "2001/01/01 01:01:01");
}

TEST_F(DateType, WithoutACreationTimeEveryKindIsTheModifiedDate) {
    Disk().Node("C:\\t\\a.txt")->created = platform::kNoTime;
    EXPECT_EQ(DateBy(1), "2001/01/01 01:01:01");
    EXPECT_EQ(DateBy(2), "2001/01/01 01:01:01");
}

TEST_F(DateType, UncheckingTheDateBoxGoesBackToTheModifiedDate) {
    Click(Form().chkDate);
    Click(Form().mnuSearch_DateType[2]);
    EXPECT_EQ(Form().lblDateType.Caption.Get(), "Date = Last Accessed Date");
    Click(Form().chkDate);
    EXPECT_EQ(Form().lblDateType.Caption.Get(), "Date = Modified Date");
    EXPECT_TRUE(Form().mnuSearch_DateType[0].Checked);
    EXPECT_FALSE(Form().mnuSearch_DateType[2].Checked);
}

} // namespace
} // namespace tarvix::testing
