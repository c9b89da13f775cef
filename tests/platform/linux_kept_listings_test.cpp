#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_native_paths.h"
#include "platform/names.h"
#include "platform/read_ahead.h"
#include "tests/platform/linux_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <random>
#include <sys/wait.h>
#include <thread>

namespace tarvix::platform {
namespace {

namespace fs = std::filesystem;

// Every name below a folder with its kind, as a crawl comes by them.
std::vector<std::string> Crawl(FileSystem& files, const std::string& root) {
    std::vector<std::string> found;
    std::deque<std::string> folders{root};
    ReadAhead ahead(files, {.wants = [](std::string_view) { return true; }, .folderFacts = true});
    ahead.OrderVisit(root);
    for (; !folders.empty(); folders.pop_front()) {
        FolderVisit visit;
        EXPECT_TRUE(ahead.TakeVisit(visit));
        if (!visit.names) continue;
        found.push_back(folders.front() + " " + std::to_string(visit.wanted.size()) + " " +
                        std::to_string(visit.folder.inode));
        for (std::size_t i = 0; i < visit.names->Size(); ++i) {
            const FolderEntry entry = (*visit.names)[i];
            const std::string path = folders.front() + "\\" + std::string(entry.name);
            found.push_back(path + (entry.isFolder ? " folder" : "") +
                            (entry.isLink ? " link" : ""));
            if (!entry.IsWalkable()) continue;
            ahead.OrderVisit(path);
            folders.push_back(path);
        }
    }
    return found;
}

// What others do in a tree, at random.
class Others {
  public:
    explicit Others(fs::path root) : root_(std::move(root)) {}

    void Change() {
        std::error_code ignored;
        const fs::path folder = AnyFolder();
        const fs::path object = folder / Name();
        switch (random_() % 8) {
        case 0:
        case 1:
            fs::create_directory(object, ignored);
            break;
        case 2:
        case 3:
            std::ofstream(object) << "x";
            break;
        case 4:
            fs::remove_all(object, ignored);
            break;
        case 5:
            fs::rename(object, AnyFolder() / Name(), ignored);
            break;
        case 6:
            fs::create_symlink(AnyFolder(), object, ignored);
            break;
        default: // a folder in the place of another one
            fs::rename(object, folder / (Name() + ".old"), ignored);
            fs::create_directory(object, ignored);
        }
    }

  private:
    std::string Name() { return "n" + std::to_string(random_() % 6); }
    fs::path AnyFolder() {
        std::vector<fs::path> folders{root_};
        for (const auto& entry : fs::recursive_directory_iterator(root_)) {
            if (entry.is_directory() && !entry.is_symlink()) folders.push_back(entry.path());
        }
        return folders[random_() % folders.size()];
    }

    fs::path root_;
    std::mt19937 random_{17};
};

// Folders are dated in steps of some milliseconds: what is read sooner behind a change isn't kept.
void AwaitNextDate() {
    std::this_thread::sleep_for(std::chrono::milliseconds(25));
}

class KeptListingsTest : public ::testing::Test {
  protected:
    TemporaryFolder folder_;
    Mounts mounts_{{}, {}};
    LinuxFileSystem keeping_{mounts_};
    LinuxFileSystem fresh_{mounts_};
    std::string root_ = mounts_.Now()->ToDrive(folder_.Path());
};

TEST_F(KeptListingsTest, ACrawlIsThatOfAFreshOneWhateverOthersDo) {
    const KeptListings kept(keeping_);
    Others others(folder_.Path());
    for (int round = 0; round < 60; ++round) {
        for (int i = 0; i < 12; ++i)
            others.Change();
        AwaitNextDate();
        const auto expected = Crawl(fresh_, root_);
        ASSERT_EQ(Crawl(keeping_, root_), expected) << "round " << round;
        ASSERT_EQ(Crawl(keeping_, root_), expected) << "round " << round;
    }
    EXPECT_GT(keeping_.ListingsGiven(), 500U);
    EXPECT_EQ(fresh_.ListingsGiven(), 0U);
}

TEST_F(KeptListingsTest, AFolderThatStandsIsNotOpenedAgain) {
    for (int i = 0; i < 40; ++i) {
        fs::create_directory(folder_.Path() + "/d" + std::to_string(i));
        std::ofstream(folder_.Path() + "/d" + std::to_string(i) + "/f") << "x";
    }
    AwaitNextDate();
    const KeptListings kept(keeping_);
    const auto first = Crawl(keeping_, root_);
    EXPECT_EQ(keeping_.ListingsGiven(), 0U);
    EXPECT_EQ(Crawl(keeping_, root_), first);
    EXPECT_GE(keeping_.ListingsGiven(), 41U);
}

TEST_F(KeptListingsTest, RightsThatWereTakenAwayAreSeen) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may read all";
    const std::string locked = folder_.Path() + "/locked";
    fs::create_directory(locked);
    fs::create_directory(folder_.Path() + "/open");
    AwaitNextDate();
    const KeptListings kept(keeping_);
    Crawl(keeping_, root_);
    fs::permissions(locked, fs::perms::none);
    EXPECT_EQ(Crawl(keeping_, root_), Crawl(fresh_, root_));
    fs::permissions(locked, fs::perms::all);
}

TEST_F(KeptListingsTest, FactsAreReadAnewForWhatMatches) {
    fs::create_directory(folder_.Path() + "/a");
    fs::create_directory(folder_.Path() + "/b");
    std::ofstream(folder_.Path() + "/b/f") << "x";
    AwaitNextDate();
    const KeptListings kept(keeping_);
    const auto sizeNow = [this] {
        ReadAhead ahead(keeping_, {.wants = [](std::string_view) { return true; }, .facts = true});
        for (const char* name : {"\\a", "\\b"})
            ahead.OrderVisit(root_ + name);
        FolderVisit visit;
        EXPECT_TRUE(ahead.TakeVisit(visit));
        EXPECT_TRUE(ahead.TakeVisit(visit));
        return visit.facts.size() == 1 ? visit.facts[0].size : 0;
    };
    EXPECT_EQ(sizeNow(), 1U);
    std::ofstream(folder_.Path() + "/b/f") << "four";
    EXPECT_EQ(sizeNow(), 4U);
}

// The names of a large folder, which somebody has in use, without a wish to keep any.
class NamesInUseTest : public KeptListingsTest {
  protected:
    void SetUp() override {
        for (int i = 0; i < 1200; ++i)
            Make("f" + std::to_string(i));
        Make("odd:name");
        Make("no text \xFF");
        AwaitNextDate();
        names_ = VisitorOf(keeping_)->OpenInParts(root_)->NamesInParts({});
        ASSERT_EQ(names_->Size(), 1202U);
    }
    void Make(const std::string& name) const { std::ofstream(folder_.Path() + "/" + name) << "x"; }
    bool IsThere(std::string_view nativeName) {
        return keeping_.Facts(root_ + "\\" + NameToDrive(nativeName)).has_value();
    }

    std::shared_ptr<const FolderListing> names_;
};

TEST_F(NamesInUseTest, AreNotReadAgain) {
    EXPECT_TRUE(IsThere("F7"));
    EXPECT_TRUE(IsThere("ODD:NAME"));
    EXPECT_TRUE(IsThere("No Text \xFF"));
    EXPECT_FALSE(IsThere("f1200"));
    EXPECT_TRUE(keeping_.KnownFree(root_ + "\\f1200"));
    EXPECT_EQ(keeping_.ListingsGiven(), 1U);
}

TEST_F(NamesInUseTest, AreReadOnceTheFolderChanged) {
    Make("late");
    EXPECT_TRUE(IsThere("LATE"));
    fs::remove(folder_.Path() + "/f7");
    EXPECT_FALSE(IsThere("F7"));
    EXPECT_EQ(keeping_.ListingsGiven(), 0U);
}

TEST_F(NamesInUseTest, AreForgottenWhenNobodyHasThem) {
    names_.reset();
    EXPECT_TRUE(IsThere("F7"));
    EXPECT_EQ(keeping_.ListingsGiven(), 0U);
}

TEST_F(NamesInUseTest, TellOfAbandonedCopies) {
    EXPECT_EQ(keeping_.RemoveAbandoned(root_), std::vector<std::string>());
    EXPECT_EQ(keeping_.ListingsGiven(), 1U);
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    const std::string part = ".tarvix-" + std::to_string(child) + "-1.part";
    Make(part);
    AwaitNextDate();
    names_ = VisitorOf(keeping_)->OpenInParts(root_)->NamesInParts({});
    EXPECT_EQ(keeping_.RemoveAbandoned(root_), std::vector{root_ + "\\" + part});
    EXPECT_EQ(keeping_.ListingsGiven(), 2U);
    EXPECT_EQ(keeping_.RemoveAbandoned(root_), std::vector<std::string>());
}

} // namespace
} // namespace tarvix::platform
