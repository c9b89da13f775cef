#include "platform/linux/linux_platform.h"
#include "tests/launch/bus_world.h"
#include "tests/launch/desktop_world.h"

#include <gmock/gmock.h>

#include <optional>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LinuxBus : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!BusWorld::CanBe()) GTEST_SKIP() << "dbus-daemon is not installed";
    }
    void Serve(const std::vector<std::string>& names) { bus_.emplace(names); }
    std::string Add(const std::string& name) {
        const std::string native = world_.AddFile(name);
        drives_.push_back(parts_.paths.ToDrive(native));
        return "file://" + (world_.Root() / "files").string() + "/";
    }
    bool Open(const std::string& id) {
        const auto plan = desk_.PlanApplication(id, drives_, "C:\\tmp");
        return plan && desk_.Start(*plan);
    }

    DesktopWorld& world_ = DesktopWorld::Get();
    platform::LinuxPlatform machine_;
    platform::Platform parts_ = machine_.Parts();
    platform::Applications& desk_ = parts_.applications;
    std::vector<std::string> drives_;
    std::optional<BusWorld> bus_;
};

TEST_F(LinuxBus, AnActivatedApplicationIsHandedAddresses) {
    Serve({"org.tarvix.Activated"});
    const std::string base = Add("a b.txt");
    Add("c%.txt");
    ASSERT_TRUE(Open("org.tarvix.Activated.desktop"));
    drives_.clear();
    ASSERT_TRUE(Open("org.tarvix.Activated.desktop"));
    EXPECT_THAT(
        bus_->Calls(),
        ElementsAre("Open(['" + base + "a%20b.txt', '" + base + "c%25.txt'])", "Activate()"));
    EXPECT_TRUE(world_.IsQuiet());
}

TEST_F(LinuxBus, WhereTheBusCannotStartItItsLineDoes) {
    Serve({});
    const std::string base = Add("a.txt");
    ASSERT_TRUE(Open("org.tarvix.Activated.desktop"));
    EXPECT_THAT(world_.Take(1).at(0).arguments, ElementsAre("activated", base + "a.txt"));
}

TEST_F(LinuxBus, WithoutABusItsLineStartsIt) {
    const std::string base = Add("a.txt");
    ASSERT_TRUE(Open("org.tarvix.Activated.desktop"));
    EXPECT_THAT(world_.Take(1).at(0).arguments, ElementsAre("activated", base + "a.txt"));
}

TEST_F(LinuxBus, TheFileManagerShowsObjectsInTheirFolder) {
    Serve({"org.freedesktop.FileManager1"});
    const std::string base = Add("a b.txt");
    Add("c.txt");
    ASSERT_TRUE(desk_.ShowInFolder(drives_));
    EXPECT_THAT(bus_->Calls(),
                ElementsAre("ShowItems(['" + base + "a%20b.txt', '" + base + "c.txt'])"));
    EXPECT_TRUE(world_.IsQuiet());
}

TEST_F(LinuxBus, TheFileManagerShowsTheTrash) {
    Serve({"org.freedesktop.FileManager1"});
    ASSERT_TRUE(desk_.ShowTrash());
    EXPECT_THAT(bus_->Calls(), ElementsAre("ShowFolders(['trash:///'])"));
    EXPECT_TRUE(world_.IsQuiet());
}

TEST_F(LinuxBus, APlayerThatRunsTakesFilesAtTheEndOfItsList) {
    Serve({"org.mpris.MediaPlayer2.Recorder.instance7"});
    const std::string base = Add("2.mp3");
    Add("1.mp3");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(desk_.Enqueue("recorder --quiet", drives_).value_or(false), true);
    EXPECT_THAT(bus_->Tracks(),
                ElementsAre(base + "2.mp3", base + "1.mp3", base + "2.mp3", base + "1.mp3"));
    EXPECT_TRUE(world_.IsQuiet());
}

TEST_F(LinuxBus, APlayerThatRunsPlaysTheFirstAndKeepsTheOrder) {
    Serve({"org.mpris.MediaPlayer2.recorder"});
    const std::string base = Add("2.mp3");
    Add("1.mp3");
    EXPECT_EQ(desk_.PlayNow("recorder --quiet", drives_).value_or(false), true);
    EXPECT_THAT(bus_->Tracks(), ElementsAre(base + "2.mp3 (plays)", base + "1.mp3"));
    EXPECT_EQ(desk_.PlayNow("no-such-player", drives_).value_or(true), false);
}

TEST_F(LinuxBus, AnotherPlayerIsLeftAlone) {
    Serve({"org.mpris.MediaPlayer2.vlc"});
    Add("1.mp3");
    EXPECT_EQ(desk_.Enqueue("recorder", drives_).value_or(true), false);
    EXPECT_EQ(desk_.Enqueue("no-such-player", drives_).value_or(true), false);
    EXPECT_THAT(bus_->Tracks(), IsEmpty());
}

} // namespace
} // namespace tarvix::testing
