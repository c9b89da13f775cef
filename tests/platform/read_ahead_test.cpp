#include "platform/read_ahead.h"
#include "tests/machine/memory_file_system.h"
#include "tests/platform/linux_disk.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace tarvix::platform {
namespace {

std::string NamesOf(const FolderVisit& visit) {
    if (!visit.names) return "unread";
    std::string names;
    for (std::size_t i = 0; i < visit.names->Size(); ++i)
        names += std::string((*visit.names)[i].name) + ' ';
    return names;
}

bool EndsInB(std::string_view name) {
    return name.ends_with('b');
}

class ReadAheadTest : public ::testing::Test {
  protected:
    LinuxDisk disk_;
    FileSystem& files_ = disk_.Files();
    std::string At(int number) { return disk_.Root() + "\\d" + std::to_string(number); }
    void MakeFolders(int count) {
        for (int i = 0; i < count; ++i) {
            const std::string folder = "d" + std::to_string(i);
            disk_.MakeFile(folder + "\\" + std::to_string(i) + "b", "xyz");
            disk_.MakeFile(folder + "\\a", "");
        }
    }
};

TEST_F(ReadAheadTest, ResultsComeInTheOrderOfTheOrders) {
    MakeFolders(150);
    ReadAhead ahead(files_, {.wants = EndsInB, .facts = true, .folderFacts = true});
    for (int i = 149; i >= 0; --i)
        ahead.OrderVisit(At(i));
    for (int i = 149; i >= 0; --i) {
        FolderVisit visit;
        ASSERT_TRUE(ahead.TakeVisit(visit));
        ASSERT_EQ(NamesOf(visit), std::to_string(i) + "b a ");
        ASSERT_EQ(visit.wanted, std::vector<std::uint32_t>{0});
        ASSERT_EQ(visit.facts.size(), 1U);
        ASSERT_TRUE(visit.facts[0].isKnown);
        ASSERT_EQ(visit.facts[0].size, 3U);
        ASSERT_TRUE(visit.folder.isKnown);
        ASSERT_EQ(visit.folder.attributes & kFolder, std::uint32_t{kFolder});
    }
}

TEST_F(ReadAheadTest, AFolderThatIsMissingComesUnread) {
    MakeFolders(2);
    ReadAhead ahead(files_);
    ahead.OrderVisit(At(0));
    ahead.OrderVisit(At(7));
    ahead.OrderVisit(At(1));
    FolderVisit visit;
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_EQ(NamesOf(visit), "0b a ");
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_EQ(NamesOf(visit), "unread");
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_EQ(NamesOf(visit), "1b a ");
}

TEST_F(ReadAheadTest, FactsAreThoseOfAFolderThatIsOpened) {
    MakeFolders(3);
    ReadAhead ahead(files_, {.wants = [](std::string_view) { return true; }, .facts = true});
    for (int i = 0; i < 3; ++i)
        ahead.OrderVisit(At(i));
    for (int i = 0; i < 3; ++i) {
        FolderVisit visit;
        ASSERT_TRUE(ahead.TakeVisit(visit));
        const auto folder = files_.Open(At(i));
        ASSERT_TRUE(folder);
        for (std::size_t k = 0; k < visit.wanted.size(); ++k) {
            const auto facts = (*folder)->Facts((*visit.names)[visit.wanted[k]].name);
            ASSERT_TRUE(facts);
            const BriefFacts expected = Brief(*facts);
            EXPECT_EQ(visit.facts[k].size, expected.size);
            EXPECT_EQ(visit.facts[k].device, expected.device);
            EXPECT_EQ(visit.facts[k].inode, expected.inode);
            EXPECT_EQ(visit.facts[k].changed, expected.changed);
            EXPECT_EQ(visit.facts[k].modified, expected.modified);
            EXPECT_EQ(visit.facts[k].created, expected.created);
            EXPECT_EQ(visit.facts[k].attributes, expected.attributes);
        }
    }
}

TEST_F(ReadAheadTest, NamesAloneBringNoMatches) {
    MakeFolders(1);
    ReadAhead ahead(files_, {.wants = EndsInB, .facts = true});
    ahead.OrderVisit(At(0), true);
    FolderVisit visit;
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_EQ(NamesOf(visit), "0b a ");
    EXPECT_TRUE(visit.wanted.empty());
    EXPECT_TRUE(visit.facts.empty());
}

TEST_F(ReadAheadTest, WhatIsNeverTakenIsDropped) {
    MakeFolders(100);
    ReadAhead ahead(files_, {.wants = EndsInB, .facts = true});
    for (int i = 0; i < 100; ++i)
        ahead.OrderVisit(At(i));
    FolderVisit visit;
    EXPECT_TRUE(ahead.TakeVisit(visit));
}

TEST(ReadAheadAlone, TheCallerDoesTheWorkWhereThereAreNoThreads) {
    MemoryFileSystem files;
    files.AddFile("C:\\t\\1b");
    ReadAhead ahead(files, {.wants = EndsInB, .facts = true});
    ahead.OrderVisit("C:\\t");
    ahead.OrderVisit("C:\\none");
    FolderVisit visit;
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_EQ(NamesOf(visit), "1b ");
    ASSERT_EQ(visit.facts.size(), 1U);
    EXPECT_TRUE(visit.facts[0].isKnown);
    ASSERT_TRUE(ahead.TakeVisit(visit));
    EXPECT_FALSE(visit.names);
}

// A disk that answers nothing until it is told to.
class HeldUpFiles : public MemoryFileSystem, public VisitedFiles {
  public:
    struct Gate {
        std::mutex mutex;
        std::condition_variable changed;
        bool isOpen = false;
        int inside = 0;
    };

    bool AllowsReadingThreads() const override { return true; }
    std::unique_ptr<FolderVisitor> NewVisitor() override { return std::make_unique<Visitor>(gate); }

    std::shared_ptr<Gate> gate = std::make_shared<Gate>();

  private:
    class Visitor : public FolderVisitor {
      public:
        explicit Visitor(std::shared_ptr<Gate> gate) : gate_(std::move(gate)) {}
        void Visit(const std::string&, const VisitWish&, const std::atomic<bool>&,
                   FolderVisit&) override {
            std::unique_lock lock(gate_->mutex);
            ++gate_->inside;
            gate_->changed.wait(lock, [this] { return gate_->isOpen; });
            --gate_->inside;
            gate_->changed.notify_all();
        }

      private:
        std::shared_ptr<Gate> gate_;
    };
};

TEST(ReadAheadAlone, ACallerThatGivesUpNeedNotWaitForTheDisk) {
    HeldUpFiles files;
    {
        ReadAhead ahead(files);
        int asked = 0;
        ahead.WhileWaiting([&asked] { return ++asked < 3; });
        ahead.OrderVisit("C:\\t");
        FolderVisit visit;
        EXPECT_FALSE(ahead.TakeVisit(visit));
        EXPECT_FALSE(visit.names);
        EXPECT_EQ(asked, 3);
    }
    std::unique_lock lock(files.gate->mutex);
    files.gate->isOpen = true;
    files.gate->changed.notify_all();
    files.gate->changed.wait(lock, [&files] { return files.gate->inside == 0; });
}

TEST(BriefFactsTest, TimesComeBackInFullSecondsAndSteps) {
    ObjectFacts facts;
    facts.attributes = kArchive | kReadOnly;
    facts.size = 12'345;
    facts.modified = -1;
    facts.created = FileTime{15'032'385'535} * 1'000'000'000 + 999'999'999;
    facts.identity = {7, 8, 10'239};
    const ObjectFacts back = Whole(Brief(facts));
    EXPECT_EQ(back.attributes, facts.attributes);
    EXPECT_EQ(back.size, 12'345U);
    EXPECT_TRUE(back.modified == -1'000'000'000);
    EXPECT_TRUE(back.created == FileTime{15'032'385'535} * 1'000'000'000);
    EXPECT_TRUE(back.accessed == kNoTime);
    EXPECT_EQ(back.identity.device, 7U);
    EXPECT_EQ(back.identity.inode, 8U);
    EXPECT_TRUE(back.identity.changed == 9216);
}

} // namespace
} // namespace tarvix::platform
