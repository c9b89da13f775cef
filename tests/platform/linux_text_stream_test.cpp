#include "tests/platform/linux_disk.h"

namespace tarvix::platform {

TEST(LinuxTextStream, AFileIsWrittenThroughOneStreamAtATime) {
    LinuxDisk disk;
    FileSystem& files = disk.Files();
    const std::string path = disk.Root() + "\\log.txt";
    auto first = files.CreateTextFile(path, true);
    ASSERT_TRUE(first);
    ASSERT_TRUE((*first)->Write("one"));
    EXPECT_EQ(NumberOf(files.CreateTextFile(path, true)), kPermissionDenied);
    EXPECT_EQ(NumberOf(files.OpenAsTextStream(path, OpenMode::kWrite)), kPermissionDenied);
    EXPECT_EQ(NumberOf(files.OpenAsTextStream(path, OpenMode::kAppend)), kPermissionDenied);
    EXPECT_TRUE(files.OpenAsTextStream(path, OpenMode::kRead));
    ASSERT_TRUE((*first)->Close());
    EXPECT_EQ(disk.Content("log.txt"), "one");
    auto second = files.OpenAsTextStream(path, OpenMode::kAppend);
    ASSERT_TRUE(second);
    second->reset();
    EXPECT_TRUE(files.OpenAsTextStream(path, OpenMode::kWrite));
    EXPECT_EQ(disk.Content("log.txt"), "");
}

} // namespace tarvix::platform
