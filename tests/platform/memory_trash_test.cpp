#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

class MemoryTrashTest : public testing::Test {
  protected:
    MemoryTrashTest() {
        machine.disk.AddFile("C:\\a\\1.txt", "one");
        machine.disk.AddFile("C:\\a\\2.txt", "two");
        machine.disk.AddFile("C:\\a\\3.txt", "three");
    }

    int Recycle(const List& paths) {
        const auto recycled = machine.platform.trash.Recycle(paths, {});
        return recycled ? 0 : recycled.error().number;
    }
    int Restore(std::string_view path) {
        const auto restored = machine.bin.Restore(path);
        return restored ? 0 : restored.error().number;
    }

    MemoryPlatform machine;
};
} // namespace

TEST_F(MemoryTrashTest, KeepsTheLastOfAPathOnTop) {
    ASSERT_EQ(Recycle({"C:\\a\\1.txt"}), 0);
    machine.disk.AddFile("C:\\a\\1.txt", "another");
    ASSERT_EQ(Recycle({"C:\\a\\1.txt"}), 0);
    ASSERT_EQ(Restore("c:\\a\\1.TXT"), 0);
    EXPECT_EQ(machine.disk.Content("C:\\a\\1.txt"), "another");
    EXPECT_EQ(machine.bin.Paths(), List{"C:\\a\\1.txt"});
}

TEST_F(MemoryTrashTest, RestoresNothingOverWhatIsThere) {
    ASSERT_EQ(Recycle({"C:\\a\\1.txt"}), 0);
    machine.disk.AddFile("C:\\a\\1.txt", "another");
    EXPECT_EQ(Restore("C:\\a\\1.txt"), kAlreadyExists);
    EXPECT_EQ(Restore("C:\\a\\missing"), kFileNotFound);
    EXPECT_EQ(machine.disk.Content("C:\\a\\1.txt"), "another");
    ASSERT_EQ(Recycle({"C:\\a"}), 0);
    EXPECT_EQ(Restore("C:\\a\\1.txt"), kPathNotFound);
    EXPECT_EQ(machine.bin.Items().size(), 2u);
}

TEST_F(MemoryTrashTest, ADriveWithoutATrashGives75AndKeepsItsObjects) {
    machine.disk.AddDrive("E:");
    machine.disk.AddFile("E:\\x", "1");
    machine.bin.SetHasTrash("e:", false);
    EXPECT_EQ(Recycle({"E:\\x"}), kPathFileAccess);
    EXPECT_TRUE(machine.disk.Exists("E:\\x"));
    EXPECT_EQ(Recycle({"C:\\a\\1.txt"}), 0);
    machine.bin.SetHasTrash("E:", true);
    EXPECT_EQ(Recycle({"E:\\x"}), 0);
}

TEST_F(MemoryTrashTest, ACdRomRefuses) {
    machine.disk.AddDrive("E:", DriveType::kCdRom);
    machine.disk.AddFile("E:\\x", "1");
    EXPECT_EQ(Recycle({"E:\\x"}), kPermissionDenied);
    EXPECT_TRUE(machine.disk.Exists("E:\\x"));
}

TEST_F(MemoryTrashTest, RefusesThePathItWasToldTo) {
    machine.bin.Refuse("C:\\A\\2.TXT", kPermissionDenied);
    EXPECT_EQ(Recycle({"C:\\a\\1.txt", "C:\\a\\2.txt", "C:\\a\\3.txt"}), kPermissionDenied);
    EXPECT_EQ(machine.disk.AllFiles(), (List{"C:\\a\\2.txt", "C:\\a\\3.txt"}));
    machine.bin.Refuse("C:\\a\\2.txt", 0);
    EXPECT_EQ(Recycle({"C:\\a\\2.txt"}), 0);
    EXPECT_EQ(machine.disk.Calls().recycled, (List{"C:\\a\\1.txt", "C:\\a\\2.txt"}));
}

TEST_F(MemoryTrashTest, FaultsCountEachObjectAsOneCall) {
    machine.faults.FailCall("Recycle", 2, kDeviceError);
    EXPECT_EQ(Recycle({"C:\\a\\1.txt", "C:\\a\\2.txt", "C:\\a\\3.txt"}), kDeviceError);
    EXPECT_EQ(machine.faults.Count("Recycle"), 2u);
    EXPECT_EQ(machine.faults.Calls().back().path, "C:\\a\\2.txt");
    EXPECT_EQ(machine.bin.Paths(), List{"C:\\a\\1.txt"});
    machine.faults.FailPath("C:\\a\\3.txt", kPermissionDenied, "Recycle");
    EXPECT_EQ(Recycle({"C:\\a\\2.txt", "C:\\a\\3.txt"}), kPermissionDenied);
    EXPECT_EQ(machine.disk.AllFiles(), List{"C:\\a\\3.txt"});
}

TEST_F(MemoryTrashTest, FaultsAskTheObserverBeforeEachObject) {
    std::vector<std::size_t> told;
    const auto observer = [&](std::size_t done) {
        told.push_back(done);
        return done < 2;
    };
    const List paths{"C:\\a\\1.txt", "C:\\a\\2.txt", "C:\\a\\3.txt"};
    const auto recycled = machine.platform.trash.Recycle(paths, observer);
    ASSERT_FALSE(recycled);
    EXPECT_EQ(recycled.error().number, kInterrupted);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(machine.faults.Count("Recycle"), 2u);
}

} // namespace tarvix::platform
