#include "fields/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvix::fields {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Lists : Form, ::testing::Test {
    Lists() : Form("frmLists") {}

    std::vector<Control*> ChangedBy(const auto& change) {
        TakeChanged();
        change();
        return TakeChanged();
    }

    ListBox one{*this, "lstOne"};
    ListBox many{*this, "lstMany", true};
    ComboBox box{*this, "cmbBox"};
};

TEST_F(Lists, NothingIsSelectedAtFirst) {
    many.SetItems({"a", "b"});
    EXPECT_THAT(many.Items(), ElementsAre("a", "b"));
    EXPECT_FALSE(many.IsSelected(0));
    EXPECT_FALSE(many.IsSelected(1));
    EXPECT_EQ(many.ValueText(), "");
}

TEST_F(Lists, ASingleListHasOneSelectedLineAtMost) {
    one.SetItems({"a", "b", "c"});
    one.Select(0, true);
    one.Select(2, true);
    EXPECT_EQ(one.ValueText(), "c\r\n");
    one.Select(2, false);
    EXPECT_EQ(one.ValueText(), "");
}

TEST_F(Lists, AMultipleListKeepsTheOthers) {
    many.SetItems({"a", "b", "c"});
    many.Select(0, true);
    many.Select(2, true);
    EXPECT_EQ(many.ValueText(), "a\r\nc\r\n");
    many.Select(0, false);
    EXPECT_EQ(many.ValueText(), "c\r\n");
    many.SelectNone();
    EXPECT_EQ(many.ValueText(), "");
}

TEST_F(Lists, NewLinesOfTheSameTextStaySelected) {
    many.SetItems({"a", "b", "c"});
    many.Select(0, true);
    many.Select(1, true);
    many.SetItems({"new", "b", "B", "c"});
    EXPECT_THAT(many.Items(), ElementsAre("new", "b", "B", "c"));
    EXPECT_EQ(many.ValueText(), "b\r\n");
    many.SetItems({});
    EXPECT_THAT(many.Items(), IsEmpty());
    many.SetItems({"b"});
    EXPECT_FALSE(many.IsSelected(0)) << "what was gone in between is a new line";
}

TEST_F(Lists, LinesAndSelectionAreChangesOfTheList) {
    EXPECT_THAT(ChangedBy([this] { many.SetItems({"a"}); }), ElementsAre(&many));
    EXPECT_THAT(ChangedBy([this] { many.Select(0, true); }), ElementsAre(&many));
    EXPECT_THAT(ChangedBy([this] { many.SelectNone(); }), ElementsAre(&many));
    EXPECT_THAT(ChangedBy([this] { box.AddItem("a"); }), ElementsAre(&box));
    EXPECT_THAT(ChangedBy([this] { box.RemoveItem(0); }), ElementsAre(&box));
    EXPECT_THAT(ChangedBy([this] { box.ClearItems(); }), ElementsAre(&box));
}

TEST_F(Lists, EntriesOfABoxAreAddedWhereTheyAreWanted) {
    box.AddItem("b", 2);
    box.InsertItem(0, "a", 1);
    box.InsertItem(2, "d");
    box.InsertItem(2, "c", 3);
    EXPECT_THAT(box.Items(), ElementsAre(ComboItem{"a", 1}, ComboItem{"b", 2}, ComboItem{"c", 3},
                                         ComboItem{"d", 0}));
    box.RemoveItem(1);
    EXPECT_THAT(box.Items(), ElementsAre(ComboItem{"a", 1}, ComboItem{"c", 3}, ComboItem{"d", 0}));
    box.ClearItems();
    EXPECT_THAT(box.Items(), IsEmpty());
}

TEST_F(Lists, TheTextOfABoxIsNotBoundToItsEntries) {
    box.AddItem("a", 7);
    box.Text = "a";
    EXPECT_EQ(box.ChosenData(), 7);
    box.ClearItems();
    EXPECT_EQ(box.Text.Get(), "a");
    EXPECT_EQ(box.ChosenData(), 0);
    box.AddItem("A", 7);
    EXPECT_EQ(box.ChosenData(), 0) << "the very text counts";
}

} // namespace
} // namespace tarvix::fields
