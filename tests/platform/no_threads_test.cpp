// All is done as ever where no thread can be had.

#include "platform/linux/move_queue.h"
#include "platform/read_ahead.h"
#include "platform/start_thread.h"
#include "tests/machine/no_threads.h"
#include "tests/platform/linux_disk.h"

namespace tarvix::platform {

namespace {
class NoThreadsTest : public testing::Test {
  protected:
    static constexpr int kFiles = 40;

    void SetUp() override {
        for (int i = 0; i < kFiles; ++i)
            disk.MakeFile("from\\" + std::to_string(i), Text(i));
        disk.MakeFolder("to");
    }
    FileSystem& files() { return disk.Files(); }
    std::string At(std::string_view path) const { return disk.Root() + "\\" + std::string(path); }
    static std::string Text(int number) { return "content " + std::to_string(number); }
    void ExpectAllIn(const std::string& folder) {
        for (int i = 0; i < kFiles; ++i)
            EXPECT_EQ(disk.Content(folder + "\\" + std::to_string(i)), Text(i)) << i;
    }

    LinuxDisk disk{{.aheadAge = 0, .sizeAfter = 0}};
    NoThreads none;
};
} // namespace

TEST_F(NoThreadsTest, NoneIsStarted) {
    std::thread thread;
    EXPECT_FALSE(StartThread(thread, [] {}));
    EXPECT_FALSE(thread.joinable());
}

TEST_F(NoThreadsTest, FilesAreCopiedThoughNoneIsReadAhead) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < kFiles; ++i)
        paths.push_back(At("from\\" + std::to_string(i)));
    const std::string to = At("to");
    files().CopySoon(std::vector<PlannedCopy>(1, {.from = paths[0], .toFolder = to}));
    for (std::size_t i = 0; i < kFiles; ++i) {
        const std::string target = to + "\\" + std::to_string(i);
        EXPECT_EQ(NumberOf(files().CopyFile(paths[i], target, false, {})), 0) << target;
    }
    ExpectAllIn("to");
}

TEST_F(NoThreadsTest, AFolderIsCopiedByOneThread) {
    std::uint64_t bytes = 0;
    const CopyObserver observer = [&bytes](const CopyProgress& progress) {
        bytes = progress.bytesDone;
        return true;
    };
    ASSERT_EQ(NumberOf(files().CopyFolder(At("from"), At("to\\copy"), false, observer)), 0);
    ExpectAllIn("to\\copy");
    EXPECT_GT(bytes, 0U);
}

TEST_F(NoThreadsTest, AMoveIsNotTakenOn) {
    MoveQueue queue([](ReadyMove&) { return MoveEnd::kMade; });
    EXPECT_FALSE(queue.Add({}));
    EXPECT_TRUE(queue.IsEmpty());
    EXPECT_EQ(queue.Take(MoveWait::kAll).made, 0U);
}

TEST_F(NoThreadsTest, FoldersAreVisited) {
    ReadAhead ahead(files(), {.wants = [](std::string_view) { return true; }, .facts = true});
    ahead.OrderVisit(At("from"));
    FolderVisit visit;
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_EQ(visit.facts.size(), kFiles);
}

} // namespace tarvix::platform
