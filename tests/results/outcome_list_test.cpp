#include "platform/error.h"
#include "results/outcome_list.h"

#include <gtest/gtest.h>

namespace tarvix::results {
namespace {

SettledObject Moved(std::string_view source, std::string_view place, bool isFile = true) {
    return {.source = source,
            .place = place,
            .mark = OutcomeMark::kMoved,
            .isFile = isFile,
            .isPlaced = true,
            .leaves = true};
}

TEST(OutcomeList, KeepsWhereEachObjectWasAndIs) {
    OutcomeList list;
    list.Begin("Move");
    list.Add(Moved("C:\\t\\a.txt", "E:\\d\\a.txt"));
    list.Add({.source = "C:\\t\\b.txt", .place = "E:\\d\\b.txt", .mark = OutcomeMark::kSkipped});
    list.Add({.source = "C:\\x", .mark = OutcomeMark::kNotReached, .isFile = false});
    ASSERT_EQ(list.Count(), 3U);
    EXPECT_EQ(list.Action(), "Move");
    EXPECT_EQ(list.Source(0), "C:\\t\\a.txt");
    EXPECT_EQ(list.Now(0), "E:\\d\\a.txt");
    EXPECT_EQ(list.Place(1), "E:\\d\\b.txt");
    EXPECT_EQ(list.Now(1), "C:\\t\\b.txt");
    EXPECT_EQ(list.Now(2), "C:\\x");
    EXPECT_EQ(list.Place(2), "");
    EXPECT_FALSE(list.IsFile(2));
    EXPECT_EQ(list.CountOf(OutcomeMark::kMoved), 1);
    EXPECT_EQ(list.CountOf(OutcomeMark::kSkipped), 1);
    EXPECT_EQ(list.CountOf(OutcomeMark::kFailed), 0);
}

TEST(OutcomeList, FollowsFoldersThatLeftLater) {
    OutcomeList list;
    list.Begin("Rename");
    list.Add(Moved("C:\\t\\in\\a.txt", "C:\\t\\in\\b.txt"));
    list.Add({.source = "C:\\t\\in\\c.txt", .mark = OutcomeMark::kFailed});
    list.Add(Moved("C:\\t\\in", "C:\\t\\inner", false));
    list.Add(Moved("C:\\t", "C:\\top", false));
    EXPECT_EQ(list.Now(0), "C:\\top\\inner\\b.txt");
    EXPECT_EQ(list.Now(1), "C:\\top\\inner\\c.txt");
    EXPECT_EQ(list.Now(2), "C:\\top\\inner");
    EXPECT_EQ(list.Now(3), "C:\\top");
}

TEST(OutcomeList, FollowsNoFolderThatHadLeftBefore) {
    OutcomeList list;
    list.Begin("Move");
    list.Add(Moved("C:\\t\\in", "E:\\in", false));
    // The folder was made anew for it.
    list.Add(Moved("C:\\a.txt", "C:\\t\\in\\a.txt"));
    EXPECT_EQ(list.Now(1), "C:\\t\\in\\a.txt");
}

TEST(OutcomeList, WhatWentToTheTrashIsNowhereElse) {
    OutcomeList list;
    list.Begin("Delete");
    list.Add({.source = "C:\\a", .mark = OutcomeMark::kRecycled});
    list.Add({.source = "C:\\b", .mark = OutcomeMark::kDeleted});
    EXPECT_EQ(list.Now(0), "");
    EXPECT_EQ(list.Now(1), "");
}

TEST(OutcomeList, EqualFailuresHaveOneReasonAndSentencesOfTheirOwn) {
    OutcomeList list;
    list.Begin("Copy");
    for (const char* name : {"a", "b"}) {
        const std::string source = std::string("C:\\t\\") + name;
        const std::string shown = std::string("/t/") + name;
        const std::string sentence = shown + ": Permission denied.";
        list.Add({.source = source,
                  .mark = OutcomeMark::kFailed,
                  .errorNumber = platform::kPermissionDenied,
                  .error = sentence,
                  .shownSource = shown});
    }
    list.Add({.source = "C:\\t\\c",
              .mark = OutcomeMark::kFailed,
              .errorNumber = platform::kFileNotFound,
              .error = "/t/c is not there.",
              .shownSource = "/t/c"});
    EXPECT_EQ(list.Reason(0), "Permission denied");
    EXPECT_EQ(&list.Reason(0), &list.Reason(1));
    EXPECT_EQ(list.Sentence(1, "/t/b", ""), "/t/b: Permission denied.");
    EXPECT_EQ(list.Reason(2), platform::ErrorText(platform::kFileNotFound));
    EXPECT_EQ(list.Sentence(2, "/t/c", ""), "/t/c is not there.");
}

TEST(OutcomeList, ANewActionForgetsTheOldOne) {
    OutcomeList list;
    list.Begin("Copy");
    list.Add(Moved("C:\\a", "C:\\b"));
    const auto before = list.Generation();
    list.Begin("Delete");
    EXPECT_EQ(list.Count(), 0U);
    EXPECT_EQ(list.CountOf(OutcomeMark::kMoved), 0);
    EXPECT_GT(list.Generation(), before);
}

} // namespace
} // namespace tarvix::results
