#include "platform/error.h"
#include "results/outcome_groups.h"

#include <gmock/gmock.h>

#include <string>

namespace tarvix::results {
namespace {

using ::testing::ElementsAre;

void AddFailure(OutcomeList& list, const std::string& path, const std::string& error) {
    list.Add({.source = path,
              .mark = OutcomeMark::kFailed,
              .errorNumber = error.empty() ? 0 : platform::kPermissionDenied,
              .error = error,
              .shownSource = path});
}

std::vector<std::string> Lines(const OutcomeList& list) {
    std::vector<std::string> lines;
    for (const OutcomeGroup& group : GroupsOf(list))
        lines.push_back(group.text + " " + std::to_string(group.count));
    return lines;
}

TEST(OutcomeGroups, FailuresStandApartByTheirReasonAndFirst) {
    OutcomeList list;
    list.Begin("Move");
    list.Add({.source = "a", .mark = OutcomeMark::kMoved});
    AddFailure(list, "b", "b: Permission denied.");
    AddFailure(list, "c", "c: Permission denied.");
    AddFailure(list, "d", "d: No space left.");
    list.Add({.source = "e", .mark = OutcomeMark::kNewName});
    EXPECT_THAT(Lines(list), ElementsAre("Failed: Permission denied 2", "Failed: No space left 1",
                                         "Moved under a new name 1", "Moved 1"));
    EXPECT_THAT(ObjectsOf(list, nullptr), ElementsAre(1U, 2U, 3U, 4U, 0U));
}

TEST(OutcomeGroups, AGroupWithoutAReasonHoldsNoneThatHasOne) {
    OutcomeList list;
    list.Begin("Copy");
    AddFailure(list, "a", "a: Permission denied.");
    AddFailure(list, "b", "");
    const auto groups = GroupsOf(list);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[1].text, "Failed");
    EXPECT_EQ(groups[1].count, 1);
    EXPECT_THAT(ObjectsOf(list, &groups[0]), ElementsAre(0U));
    EXPECT_THAT(ObjectsOf(list, &groups[1]), ElementsAre(1U));
}

TEST(OutcomeGroups, TheVerbIsThatOfTheAction) {
    EXPECT_EQ(DoneVerb("Copy"), "Copied");
    EXPECT_EQ(DoneVerb("CopyRenameAsFolderName"), "Copied");
    EXPECT_EQ(DoneVerb("Move"), "Moved");
    EXPECT_EQ(DoneVerb("RenameFromList"), "Renamed");
    EXPECT_EQ(DoneVerb("Delete"), "");
    EXPECT_EQ(OutcomeWord(OutcomeMark::kNewName, "Move"), "Moved under a new name");
}

TEST(OutcomeGroups, VeryManyReasonsAreOneGroup) {
    OutcomeList list;
    list.Begin("Copy");
    for (int i = 0; i < 40; ++i) {
        const std::string path = "p" + std::to_string(i);
        AddFailure(list, path, path + ": Reason " + std::to_string(i) + ".");
    }
    const auto groups = GroupsOf(list);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].text, "Failed");
    EXPECT_EQ(groups[0].count, 40);
    EXPECT_EQ(ObjectsOf(list, &groups[0]).size(), 40U);
}

} // namespace
} // namespace tarvix::results
