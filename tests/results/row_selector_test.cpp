#include "results/row_selector.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Two groups: Anna, bert, a spacer, Carl, anton.
class RowSelector : public ProgramFixture {
  protected:
    RowSelector() {
        Start();
        auto& rows = program.Rows();
        const auto* folder = rows.AddFolder({.longPath = "C:\\t"});
        for (const char* name : {"Anna", "bert", "", "Carl", "anton"}) {
            rows.Add({.name = name, .folder = folder}, "01");
        }
    }
    std::vector<std::size_t> Selected() {
        std::vector<std::size_t> selected;
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            if (program.Rows().At(i).selected) selected.push_back(i);
        }
        return selected;
    }
    results::RowSelector selector{program.Rows()};
};

TEST_F(RowSelector, SelectsOneRowAlone) {
    selector.SelectOnly(0);
    selector.SelectOnly(3);
    EXPECT_THAT(Selected(), ElementsAre(3));
}

TEST_F(RowSelector, TurnsOneRowAndLeavesTheOthers) {
    selector.SelectOnly(0);
    selector.Toggle(3);
    EXPECT_THAT(Selected(), ElementsAre(0, 3));
    selector.Toggle(0);
    EXPECT_THAT(Selected(), ElementsAre(3));
}

TEST_F(RowSelector, ExtendsFromTheRowThatWasChosenLast) {
    selector.SelectOnly(1);
    selector.ExtendTo(4, false);
    EXPECT_THAT(Selected(), ElementsAre(1, 3, 4));
    selector.ExtendTo(0, false);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
}

TEST_F(RowSelector, ExtendingMayKeepTheOthers) {
    selector.SelectOnly(0);
    selector.Toggle(3);
    selector.ExtendTo(4, true);
    EXPECT_THAT(Selected(), ElementsAre(0, 3, 4));
}

TEST_F(RowSelector, ASpacerIsNeverSelected) {
    selector.SelectOnly(2);
    selector.Toggle(2);
    selector.ExtendTo(2, false);
    EXPECT_THAT(Selected(), IsEmpty());
    EXPECT_FALSE(selector.CanSelect(2));
    EXPECT_FALSE(selector.CanSelect(5)) << "there is no such row";
}

TEST_F(RowSelector, StepsOverSpacers) {
    EXPECT_EQ(selector.Neighbour(1, 1), 3U);
    EXPECT_EQ(selector.Neighbour(3, -1), 1U);
    EXPECT_EQ(selector.Neighbour(0, 100), 4U);
    EXPECT_EQ(selector.Neighbour(0, -1), std::nullopt);
    EXPECT_EQ(selector.Neighbour(4, 1), std::nullopt);
    EXPECT_EQ(selector.End(false), 0U);
    EXPECT_EQ(selector.End(true), 4U);
}

TEST_F(RowSelector, FindsTheNextNameThatBeginsSo) {
    EXPECT_EQ(selector.StartingWith("an", 0, true), 0U);
    EXPECT_EQ(selector.StartingWith("AN", 0, false), 4U);
    EXPECT_EQ(selector.StartingWith("an", 4, false), 0U) << "from the start again";
    EXPECT_EQ(selector.StartingWith("dora", 0, true), std::nullopt);
}

TEST_F(RowSelector, AnEmptyListHasNoRow) {
    program.Rows().Clear();
    EXPECT_EQ(selector.End(false), std::nullopt);
    EXPECT_EQ(selector.Neighbour(0, 1), std::nullopt);
}

} // namespace
} // namespace tarvix::testing
