#include "platform/folder_ahead.h"
#include "tests/machine/memory_file_system.h"
#include "tests/platform/linux_disk.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvix::platform {
namespace {

bool EndsInB(std::string_view name) {
    return name.ends_with('b');
}

class FolderAheadTest : public ::testing::Test {
  protected:
    LinuxDisk disk_;
    FileSystem& files_ = disk_.Files();
    std::string folder_ = disk_.Root() + "\\d";

    // Names of a hundred bytes, so that the disk gives them in several blocks; each file is as
    // large as its number.
    static std::string NameOf(int number) {
        const std::string digits = std::to_string(number);
        return std::string(94, 'n') + std::string(5 - digits.size(), '0') + digits;
    }
    void MakeFiles(int count) {
        for (int i = 0; i < count; ++i)
            disk_.MakeFile("d\\" + NameOf(i) + (i % 3 == 0 ? "b" : "a"),
                           std::string(static_cast<std::size_t>(i), 'x'));
    }
};

TEST_F(FolderAheadTest, ManyFilesHaveTheirOwnFactsInTheOrderOfTheNames) {
    constexpr int kFiles = 2500;
    MakeFiles(kFiles);
    disk_.MakeFile("d\\folder b\\x", "");
    for (int round = 0; round < 5; ++round) {
        FolderAhead ahead(files_, folder_, {.wants = EndsInB, .facts = true});
        FolderVisit visit;
        ASSERT_TRUE(ahead.TakeNames(visit));
        ASSERT_TRUE(visit.names);
        ASSERT_EQ(visit.names->Size(), kFiles + 1U);
        ASSERT_EQ(visit.wanted.size(), 834U);
        for (std::size_t place = 0; place < visit.wanted.size(); ++place) {
            const std::size_t number = place * 3;
            const std::string name((*visit.names)[visit.wanted[place]].name);
            ASSERT_EQ(name, NameOf(static_cast<int>(number)) + "b");
            const BriefFacts facts = ahead.FactsAt(place);
            ASSERT_TRUE(facts.isKnown) << place;
            ASSERT_EQ(facts.size, number);
        }
        EXPECT_FALSE(ahead.FactsAt(visit.wanted.size()).isKnown);
    }
}

TEST_F(FolderAheadTest, FactsMayBeAskedForInAnyOrder) {
    MakeFiles(1500);
    FolderAhead ahead(files_, folder_, {.wants = EndsInB, .facts = true});
    for (std::size_t place = 500; place-- > 0;) {
        const BriefFacts facts = ahead.FactsAt(place);
        ASSERT_TRUE(facts.isKnown);
        ASSERT_EQ(facts.size, place * 3);
    }
}

TEST_F(FolderAheadTest, NamesThatAreKnownHaveTheirFacts) {
    MakeFiles(900);
    auto names = std::make_shared<FolderListing>();
    ASSERT_TRUE((*files_.Open(folder_))->List(*names));
    std::vector<std::uint32_t> wanted;
    for (std::uint32_t i = 1; i < 900; i += 2)
        wanted.push_back(i);
    std::filesystem::remove(disk_.Native("d\\" + NameOf(5) + "a"));
    FolderAhead ahead(files_, folder_, names, wanted);
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        const BriefFacts facts = ahead.FactsAt(place);
        ASSERT_EQ(facts.isKnown, wanted[place] != 5);
        ASSERT_EQ(facts.size, facts.isKnown ? wanted[place] : 0U);
    }
}

TEST_F(FolderAheadTest, WithoutFactsThereAreNone) {
    MakeFiles(4);
    FolderAhead ahead(files_, folder_, {.wants = EndsInB});
    FolderVisit visit;
    ASSERT_TRUE(ahead.TakeNames(visit));
    EXPECT_EQ(visit.wanted, (std::vector<std::uint32_t>{0, 3}));
    EXPECT_FALSE(ahead.FactsAt(0).isKnown);
}

TEST_F(FolderAheadTest, AFolderThatIsMissingHasNoNames) {
    FolderAhead ahead(files_, disk_.Root() + "\\none", {.wants = EndsInB, .facts = true});
    FolderVisit visit;
    EXPECT_TRUE(ahead.TakeNames(visit));
    EXPECT_FALSE(visit.names);
    EXPECT_FALSE(ahead.FactsAt(0).isKnown);
}

TEST_F(FolderAheadTest, WhatIsNeverTakenIsDropped) {
    MakeFiles(1500);
    for (int round = 0; round < 20; ++round) {
        const FolderAhead ahead(files_, folder_, {.wants = EndsInB, .facts = true});
        std::this_thread::sleep_for(std::chrono::microseconds(round * 100));
    }
}

TEST(FolderAheadAlone, ADiskThatIsOnlyVisitedGivesItsNames) {
    MemoryFileSystem files;
    files.AddFile("C:\\t\\1b");
    FolderAhead ahead(files, "C:\\t", {.wants = EndsInB, .facts = true});
    FolderVisit visit;
    ASSERT_TRUE(ahead.TakeNames(visit));
    ASSERT_TRUE(visit.names);
    EXPECT_EQ(visit.wanted, std::vector<std::uint32_t>{0});
    EXPECT_FALSE(ahead.FactsAt(0).isKnown);
}

TEST_F(FolderAheadTest, ACallerThatGivesUpGetsNothing) {
    class Held : public MemoryFileSystem, public VisitedFiles {
      public:
        class Visitor : public FolderVisitor {
          public:
            void Visit(const std::string&, const VisitWish&, const std::atomic<bool>& isDropped,
                       FolderVisit&) override {
                while (!isDropped)
                    std::this_thread::yield();
            }
        };
        std::unique_ptr<FolderVisitor> NewVisitor() override { return std::make_unique<Visitor>(); }
    };
    Held files;
    FolderAhead ahead(files, "C:\\t", {.wants = EndsInB, .facts = true});
    int asked = 0;
    ahead.WhileWaiting([&asked] { return ++asked < 3; });
    FolderVisit visit;
    EXPECT_FALSE(ahead.TakeNames(visit));
    EXPECT_EQ(asked, 3);
}

} // namespace
} // namespace tarvix::platform
