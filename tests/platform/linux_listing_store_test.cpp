#include "platform/linux/linux_open_folder.h"
#include "platform/linux/linux_platform.h"
#include "platform/linux/listing_store.h"
#include "platform/linux/system_calls.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>

namespace tarvix::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kHour = 3'600'000'000'000;

// A folder on the disk, looked at an hour later.
class ListingStoreTest : public ::testing::Test {
  protected:
    ListingStoreTest() {
        std::string pattern = (fs::temp_directory_path() / "tarvix-XXXXXX").string();
        root_ = mkdtemp(pattern.data());
        Add("a");
        Add("b");
        store_->Want(true);
    }
    ~ListingStoreTest() override {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    void Add(const std::string& name) { std::ofstream(root_ / name) << "x"; }
    std::string Names() {
        auto fd = OpenAt({AT_FDCWD, root_.c_str()}, O_RDONLY | O_DIRECTORY);
        EXPECT_TRUE(fd);
        LinuxOpenFolder folder(std::move(*fd), drives_, root_.string(), "C:\\x", store_);
        FolderListing listing;
        EXPECT_TRUE(folder.List(listing));
        std::string names;
        for (std::size_t i = 0; i < listing.Size(); ++i) {
            names += std::string(listing[i].name) + (listing[i].isFolder ? "/ " : " ");
        }
        return names;
    }
    std::uint64_t Given() const { return store_->Given(); }

    fs::path root_;
    std::int64_t ahead_ = kHour;
    std::shared_ptr<ListingStore> store_ =
        std::make_shared<ListingStore>([this] { return RealNow() + ahead_; });
    Mounts mounts_{{}, {}};
    std::shared_ptr<const DriveTable> drives_ = mounts_.Now();
};

TEST_F(ListingStoreTest, AFolderThatStandsIsReadOnce) {
    EXPECT_EQ(Names(), "a b ");
    EXPECT_EQ(Given(), 0U);
    EXPECT_EQ(Names(), "a b ");
    EXPECT_EQ(Names(), "a b ");
    EXPECT_EQ(Given(), 2U);
}

TEST_F(ListingStoreTest, WhatIsAddedTakenAwayOrRenamedIsSeen) {
    EXPECT_EQ(Names(), "a b ");
    Add("c");
    EXPECT_EQ(Names(), "a b c ");
    fs::remove(root_ / "a");
    EXPECT_EQ(Names(), "b c ");
    fs::rename(root_ / "b", root_ / "d");
    EXPECT_EQ(Names(), "c d ");
    fs::remove(root_ / "c");
    fs::create_directory(root_ / "c");
    EXPECT_EQ(Names(), "c/ d ");
    EXPECT_EQ(Given(), 0U);
}

TEST_F(ListingStoreTest, AFolderThatChangedJustNowIsNotKept) {
    ahead_ = -kHour;
    Names();
    Names();
    EXPECT_EQ(Given(), 0U);
}

TEST(DateStep, IsLongForADateOfWholeSecondsAlone) {
    EXPECT_EQ(DateStep(1'700'000'000'000'000'000), 2'000'000'000);
    EXPECT_EQ(DateStep(1'700'000'000'000'000'001), 20'000'000);
}

TEST_F(ListingStoreTest, AFolderWithALinkIsNotKept) {
    fs::create_directory(root_ / "t");
    fs::create_directory_symlink(root_ / "t", root_ / "l");
    EXPECT_EQ(Names(), "a b l/ t/ ");
    fs::rename(root_ / "t", root_.string() + ".t");
    EXPECT_EQ(Names(), "a b l ");
    fs::remove(root_.string() + ".t");
    EXPECT_EQ(Given(), 0U);
}

TEST_F(ListingStoreTest, NothingIsKeptUnlessSomebodyWantsIt) {
    Names();
    store_->Want(false);
    Names();
    store_->Want(true);
    Names();
    EXPECT_EQ(Given(), 0U);
    Names();
    EXPECT_EQ(Given(), 1U);
}

TEST_F(ListingStoreTest, AnotherTableOfDrivesReadsAnew) {
    Names();
    Mounts others({}, {});
    drives_ = others.Now();
    Names();
    EXPECT_EQ(Given(), 0U);
}

TEST_F(ListingStoreTest, AnotherFolderInThePlaceOfOneIsRead) {
    Names();
    fs::rename(root_, root_.string() + ".old");
    fs::create_directory(root_);
    Add("z");
    EXPECT_EQ(Names(), "z ");
    fs::remove_all(root_.string() + ".old");
}

} // namespace
} // namespace tarvix::platform
