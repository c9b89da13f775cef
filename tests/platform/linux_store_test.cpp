// The store of folders: what it saves, counted in calls, and what it believes while another process
// changes the disk.

#include "platform/dir.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_trash.h"
#include "tests/platform/linux_disk.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace tarvix::platform {

namespace {
namespace fs = std::filesystem;

constexpr std::int64_t kMillisecond = 1'000'000;

// A file system on a folder of its own, with a clock that stands until it is told to go on.
class StoreWorld {
  public:
    explicit StoreWorld(CopyRoads roads = {.ahead = false})
        : files(mounts, roads, {[this] { return now += step; }, [this] { return now; }}) {}

    std::string Native(std::string_view name) const {
        return folder.Path() + "/" + std::string(name);
    }
    void MakeFolder(std::string_view name) const { fs::create_directories(Native(name)); }
    void MakeFile(std::string_view name, std::string_view content) const {
        std::ofstream(Native(name)) << content;
    }
    std::string Content(std::string_view name) const {
        std::ifstream file(Native(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::set<std::string> Names(std::string_view name) const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Native(name)))
            names.insert(entry.path().filename());
        return names;
    }

    std::int64_t now = 1;
    std::int64_t step = 0; // that it goes on by when it is asked for the exact time
    TemporaryFolder folder;
    Mounts mounts{{{'T', folder.Path()}}};
    LinuxFileSystem files;
};

// ---- what is saved ----

class LinuxStoreCounts : public testing::Test {
  protected:
    static constexpr int kObjects = 40;

    void SetUp() override {
        world.MakeFolder("from");
        world.MakeFolder("to");
        for (int i = 0; i < kObjects + 10; ++i)
            world.MakeFile("from/" + std::to_string(i), "content");
    }
    // As a loop settles an object: the duplicate test, a look at the source, and then the act.
    void Act(int number, bool isMove) {
        const std::string name = std::to_string(number);
        const Standing standing = WhatStands(world.files, "T:\\to\\" + name);
        ASSERT_TRUE(standing.IsFree());
        const auto look = world.files.LookAt("T:\\from\\" + name);
        ASSERT_TRUE(look);
        const auto done = isMove ? world.files.MoveFileTo(*look, standing.place, {})
                                 : world.files.CopyFileTo(*look, standing.place, {});
        ASSERT_EQ(NumberOf(done), 0) << name;
    }
    struct Counted {
        StoreCounts store;
        CallCounts calls;
    };
    // An object of "from" as a search sees it.
    SeenObject See(std::string_view path) {
        constexpr std::uint32_t kLocation = 7; // bytes of "T:\from"
        const auto facts = world.files.Facts(path);
        if (!facts) return {.path = path, .sighting = {}};
        return {path,
                {.identity = facts->identity,
                 .size = facts->size,
                 .attributes = facts->attributes,
                 .location = kLocation},
                Same::kObject};
    }
    Counted CountSeen(
        const std::function<Result<void>(const SeenObject& seen, const std::string& name)>& act) {
        for (int i = 0; i < kObjects + 10; ++i)
            paths.push_back("T:\\from\\" + std::to_string(i));
        std::vector<SeenObject> seen;
        for (const std::string& path : paths)
            seen.push_back(See(path));
        return CountCalls([&](int i) {
            ASSERT_EQ(NumberOf(act(seen[static_cast<std::size_t>(i)], std::to_string(i))), 0) << i;
        });
    }
    Counted Count(bool isMove) {
        return CountCalls([this, isMove](int i) { Act(i, isMove); });
    }
    // What the objects behind the first ten take, by which time both folders are known and held.
    Counted CountCalls(const std::function<void(int number)>& act) {
        for (int i = 0; i < 10; ++i)
            act(i);
        const StoreCounts store = world.files.Counts();
        const CallCounts calls = CallsOfThread();
        for (int i = 10; i < 10 + kObjects; ++i)
            act(i);
        Counted counted{world.files.Counts(), CallsOfThread()};
        counted.store.resolved -= store.resolved;
        counted.store.parsed -= store.parsed;
        counted.store.walked -= store.walked;
        counted.store.asked -= store.asked;
        counted.store.read -= store.read;
        counted.calls.looks -= calls.looks;
        counted.calls.opens -= calls.opens;
        return counted;
    }

    StoreWorld world;
    std::vector<std::string> paths; // that the seen objects point to
};
} // namespace

TEST_F(LinuxStoreCounts, AMoveTakesOneLook) {
    const ManyChanges many(world.files);
    const Counted counted = Count(true);
    EXPECT_EQ(counted.calls.looks, 40u); // at each source
    EXPECT_EQ(counted.calls.opens, 0u);
    EXPECT_EQ(counted.store.resolved, 80u); // source and target
    EXPECT_EQ(counted.store.parsed, 0u);
    EXPECT_EQ(counted.store.walked, 0u);
    EXPECT_EQ(counted.store.asked, 0u);
    EXPECT_EQ(counted.store.read, 0u);
}

TEST_F(LinuxStoreCounts, ACopyTakesALookAndAnOpenOfEachFile) {
    const ManyChanges many(world.files);
    const Counted counted = Count(false);
    // At each source, when it is open, and whether it changed while it was copied.
    EXPECT_EQ(counted.calls.looks, 120u);
    EXPECT_EQ(counted.calls.opens, 80u); // source and copy
    EXPECT_EQ(counted.store.resolved, 80u);
    EXPECT_EQ(counted.store.parsed, 0u);
    EXPECT_EQ(counted.store.walked, 0u);
    EXPECT_EQ(counted.store.asked, 0u);
    EXPECT_EQ(counted.store.read, 0u);
}

TEST_F(LinuxStoreCounts, AMoveOfASeenFileTakesALookBeforeAndAfterIt) {
    const ManyChanges many(world.files);
    const Counted counted = CountSeen([this](const SeenObject& seen, const std::string& name) {
        const Standing standing = WhatStands(world.files, "T:\\to\\" + name);
        const auto look = world.files.LookAtSeen(seen);
        return look ? world.files.MoveFileTo(*look, standing.place, {})
                    : Result<void>(std::unexpected(look.error()));
    });
    EXPECT_EQ(counted.calls.looks, 80u);
    EXPECT_EQ(counted.calls.opens, 0u);
    EXPECT_EQ(counted.store.walked, 0u);
    EXPECT_EQ(counted.store.parsed, 0u);
}

TEST_F(LinuxStoreCounts, ARenameOfASeenFileTakesALookBeforeAndAfterIt) {
    const ManyChanges many(world.files);
    const Counted counted = CountSeen([this](const SeenObject& seen, const std::string& name) {
        const Standing standing = WhatStands(world.files, "T:\\from\\" + name + " x");
        const auto look = world.files.LookAtSeen(seen);
        return look ? world.files.MoveFileTo(*look, standing.place, {})
                    : Result<void>(std::unexpected(look.error()));
    });
    EXPECT_EQ(counted.calls.looks, 80u);
    EXPECT_EQ(counted.calls.opens, 0u);
    EXPECT_EQ(counted.store.walked, 0u);
    EXPECT_EQ(counted.store.parsed, 0u);
}

TEST_F(LinuxStoreCounts, RecyclingASeenFileTakesALookBeforeAndAfterItAndOneNewFile) {
    const ManyChanges many(world.files);
    std::vector<SeenObject> seen;
    for (int i = 0; i < kObjects + 10; ++i)
        paths.push_back("T:\\from\\" + std::to_string(i));
    for (const std::string& path : paths)
        seen.push_back(See(path));
    LinuxTrash trash(world.files);
    CallCounts before;
    const auto recycled = trash.RecycleSeen(seen, [&before](std::size_t done) {
        if (done == 10) before = CallsOfThread();
        return true;
    });
    ASSERT_EQ(NumberOf(recycled), 0);
    EXPECT_EQ(CallsOfThread().looks - before.looks, 80u);
    EXPECT_EQ(CallsOfThread().opens - before.opens, 40u); // the texts that tell where they were
}

TEST_F(LinuxStoreCounts, WithoutHeldFoldersEachCallWalks) {
    const Counted counted = Count(true);
    EXPECT_EQ(counted.calls.looks, 40u);
    EXPECT_GE(counted.store.walked, 120u); // the look, and both ends of the move
}

TEST_F(LinuxStoreCounts, AHeldFolderIsLookedAtAgainWhenItsTimeIsOver) {
    const ManyChanges many(world.files);
    Count(true);
    const StoreCounts before = world.files.Counts();
    for (int i = 0; i < 4; ++i) {
        world.now += 2 * kMillisecond;
        EXPECT_EQ(NumberOf(world.files.Facts("T:\\to\\" + std::to_string(i))), 0);
    }
    EXPECT_EQ(world.files.Counts().asked, before.asked + 1);
    EXPECT_EQ(world.files.Counts().walked, before.walked);
}

TEST_F(LinuxStoreCounts, AFolderThatIsSeldomAskedForIsNeitherHeldNorLookedAt) {
    const ManyChanges many(world.files);
    Count(true);
    const StoreCounts before = world.files.Counts();
    const std::uint64_t opens = CallsOfThread().opens;
    for (int i = 0; i < 20; ++i) {
        world.now += 6 * kMillisecond;
        EXPECT_EQ(NumberOf(world.files.Facts("T:\\to\\" + std::to_string(i))), 0);
    }
    EXPECT_EQ(world.files.Counts().asked, before.asked);
    EXPECT_EQ(world.files.Counts().walked, before.walked + 40); // the look, and its marks
    EXPECT_EQ(CallsOfThread().opens, opens);
}

TEST_F(LinuxStoreCounts, NamesOfAFolderThatWeFillAreReadAgainAfterASecond) {
    const ManyChanges many(world.files);
    for (int i = 0; i < 10; ++i)
        Act(i, true);
    const std::uint64_t read = world.files.Counts().read;
    world.now += 900 * kMillisecond;
    Act(10, true);
    EXPECT_EQ(world.files.Counts().read, read);
    world.now += 200 * kMillisecond;
    Act(11, true);
    EXPECT_EQ(world.files.Counts().read, read + 1);
}

TEST_F(LinuxStoreCounts, NamesThatTakeLongToReadAreBelievedAHundredTimesAsLong) {
    const ManyChanges many(world.files);
    world.step = 15 * kMillisecond;
    Act(0, true);
    world.step = 0;
    for (int i = 1; i < 10; ++i)
        Act(i, true);
    const std::uint64_t read = world.files.Counts().read;
    world.now += 1'400 * kMillisecond;
    EXPECT_TRUE(world.files.KnownFree("T:\\to\\new"));
    Act(10, true);
    EXPECT_EQ(world.files.Counts().read, read);
    world.now += 200 * kMillisecond;
    Act(11, true);
    EXPECT_EQ(world.files.Counts().read, read + 1);
}

TEST_F(LinuxStoreCounts, AFolderThatWasMadeHereIsKnownToBeEmptyForASecond) {
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new")), 0);
    const std::uint64_t read = world.files.Counts().read;
    const std::uint64_t looks = CallsOfThread().looks;
    EXPECT_TRUE(world.files.KnownFree("T:\\new\\a"));
    world.now += 900 * kMillisecond;
    EXPECT_TRUE(world.files.KnownFree("T:\\new\\b"));
    EXPECT_EQ(CallsOfThread().looks, looks);
    world.MakeFile("new/b", "theirs");
    world.now += 200 * kMillisecond;
    EXPECT_FALSE(world.files.KnownFree("T:\\new\\B"));
    EXPECT_EQ(world.files.Counts().read, read + 1);
}

TEST_F(LinuxStoreCounts, AFolderIsKnownToBeMissingByTheNamesAroundIt) {
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new")), 0);
    const auto look = world.files.LookAt("T:\\from\\1");
    ASSERT_TRUE(look);
    CallCounts before = CallsOfThread();
    const Standing standing = WhatStands(world.files, "T:\\new\\a\\b\\1");
    ASSERT_TRUE(standing.IsFree());
    ASSERT_TRUE(standing.place.known);
    EXPECT_EQ(NumberOf(world.files.RemoveAbandoned("T:\\new\\a\\b")), kPathNotFound);
    EXPECT_EQ(CallsOfThread().looks, before.looks);
    EXPECT_EQ(CallsOfThread().opens, before.opens);
    EXPECT_EQ(NumberOf(world.files.CopyFileTo(*look, standing.place, {})), kPathNotFound);
    EXPECT_EQ(CallsOfThread().looks, before.looks + 1); // whether others made it since
    before = CallsOfThread();
    EXPECT_EQ(NumberOf(world.files.CreateFolder("T:\\new\\a\\b")), kPathNotFound);
    EXPECT_LE(CallsOfThread().looks, before.looks + 1);
    before = CallsOfThread();
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new\\a")), 0);
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new\\a\\b")), 0);
    EXPECT_EQ(CallsOfThread().looks, before.looks);
    // The source stands as it stood while folders are made.
    ASSERT_EQ(NumberOf(world.files.CopyFileTo(*look, standing.place, {})), 0);
    EXPECT_EQ(world.Content("new/a/b/1"), "content");
}

TEST_F(LinuxStoreCounts, AFolderThatOthersMadeWhereNoneWasKnownIsTaken) {
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new")), 0);
    const auto look = world.files.LookAt("T:\\from\\1");
    ASSERT_TRUE(look);
    const auto placeOf = [this](const std::string& path) {
        return WhatStands(world.files, path).place;
    };
    const FreePlace taken = placeOf("T:\\new\\theirs\\a");
    const FreePlace other = placeOf("T:\\new\\theirs\\b");
    const FreePlace empty = placeOf("T:\\new\\empty\\a");
    world.MakeFolder("new/theirs");
    world.MakeFolder("new/empty");
    world.MakeFile("new/theirs/A", "theirs");
    EXPECT_EQ(NumberOf(world.files.CopyFileTo(*look, taken, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(world.files.MoveFileTo(*look, taken, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(world.files.CreateFolder("T:\\new\\THEIRS")), kPathFileAccess);
    EXPECT_EQ(NumberOf(world.files.CopyFileTo(*look, other, {})), 0);
    EXPECT_EQ(NumberOf(world.files.MoveFileTo(*look, empty, {})), 0);
    EXPECT_EQ(world.Names("new/theirs"), (std::set<std::string>{"A", "b"}));
    EXPECT_EQ(world.Content("new/theirs/A"), "theirs");
    EXPECT_EQ(world.Names("new/empty"), (std::set<std::string>{"a"}));
    EXPECT_EQ(world.Names("new"), (std::set<std::string>{"theirs", "empty"}));
}

TEST_F(LinuxStoreCounts, NothingIsMovedToAFolderThatIsMissing) {
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new")), 0);
    const auto look = world.files.LookAt("T:\\from\\1");
    const auto folder = world.files.LookAt("T:\\to");
    ASSERT_TRUE(look && folder);
    const FreePlace place = WhatStands(world.files, "T:\\new\\none\\1").place;
    EXPECT_EQ(NumberOf(world.files.MoveFileTo(*look, place, {})), kPathNotFound);
    EXPECT_EQ(NumberOf(world.files.MoveFile("T:\\from\\1", place.path, {})), kPathNotFound);
    EXPECT_EQ(NumberOf(world.files.MoveFolderTo(*folder, place)), kPathNotFound);
    EXPECT_EQ(world.Content("from/1"), "content");
    EXPECT_TRUE(fs::is_directory(world.Native("to")));
}

TEST_F(LinuxStoreCounts, AFolderOfAnotherCaseIsNotMissing) {
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new")), 0);
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new\\Sub")), 0);
    EXPECT_FALSE(world.files.KnownFree("T:\\new\\sub\\x\\y"));
    EXPECT_TRUE(world.files.KnownFree("T:\\new\\other\\x\\y"));
    EXPECT_FALSE(world.files.KnownFree("T:\\new\\abcdef~1\\x"));
    const auto look = world.files.LookAt("T:\\from\\1");
    ASSERT_TRUE(look);
    const FreePlace place = WhatStands(world.files, "T:\\new\\SUB\\1").place;
    ASSERT_EQ(NumberOf(world.files.CopyFileTo(*look, place, {})), 0);
    EXPECT_EQ(world.Names("new/Sub"), (std::set<std::string>{"1"}));
}

TEST_F(LinuxStoreCounts, AMissingFolderIsFoundOutFromTheFolderAroundIt) {
    const auto looksAt = [this](std::string_view path) {
        const std::uint64_t before = CallsOfThread().looks;
        EXPECT_EQ(NumberOf(world.files.Facts(path)), kPathNotFound);
        return CallsOfThread().looks - before;
    };
    world.MakeFolder("1/2/3/4/5/6");
    const std::uint64_t shallow = looksAt("T:\\1\\none\\x");
    EXPECT_EQ(looksAt("T:\\1\\2\\3\\4\\5\\6\\none\\x"), shallow);
    world.MakeFile("1/2/3/4/5/File", "content");
    EXPECT_EQ(NumberOf(world.files.Facts("T:\\1\\2\\3\\4\\5\\file")), 0);
    world.MakeFile("1/2/3/4/5/6/Last", "content");
    fs::rename(world.Native("1/2/3"), world.Native("1/2/Three"));
    EXPECT_EQ(NumberOf(world.files.Facts("T:\\1\\2\\THREE\\4\\5\\6\\last")), 0);
}

TEST_F(LinuxStoreCounts, ALookThatIsTooOldIsTakenAnew) {
    const ManyChanges many(world.files);
    Count(true);
    const auto look = world.files.LookAt("T:\\to\\1");
    ASSERT_TRUE(look);
    std::uint64_t looks = CallsOfThread().looks;
    ASSERT_EQ(NumberOf(world.files.MoveFileTo(*look, {"T:\\to\\one", nullptr}, {})), 0);
    EXPECT_EQ(CallsOfThread().looks, looks);
    const auto other = world.files.LookAt("T:\\to\\2");
    world.now += 6 * kMillisecond;
    looks = CallsOfThread().looks;
    ASSERT_EQ(NumberOf(world.files.MoveFileTo(*other, {"T:\\to\\two", nullptr}, {})), 0);
    EXPECT_GT(CallsOfThread().looks, looks);
}

TEST(LinuxStoreAhead, AFileThatWasCopiedAheadIsOnlyNamed) {
    StoreWorld world({.aheadAge = 0});
    world.MakeFolder("from");
    world.MakeFolder("to");
    std::vector<std::string> paths;
    for (int i = 0; i < 20; ++i) {
        world.MakeFile("from/" + std::to_string(i), "content");
        paths.push_back("T:\\from\\" + std::to_string(i));
    }
    const ManyChanges many(world.files);
    ASSERT_FALSE(world.files.Facts("T:\\to\\none"));
    for (int i = 0; i < 10; ++i)
        ASSERT_TRUE(world.files.Facts("T:\\to"));
    std::vector<PlannedCopy> planned;
    for (const std::string& path : paths)
        planned.push_back({path, "T:\\to"});
    world.files.CopySoon(planned);
    // The copies are open files that were never named.
    const auto countReady = [&world] {
        int ready = 0;
        for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
            std::error_code none;
            const std::string target = fs::read_symlink(entry.path(), none);
            ready += target.starts_with(world.folder.Path()) && target.ends_with("(deleted)");
        }
        return ready;
    };
    for (int i = 0; i < 2000 && countReady() < 16; ++i)
        ::usleep(5'000);
    if (countReady() < 16) GTEST_SKIP() << "this disk holds no files without a name";
    ::usleep(50'000);
    const auto look = world.files.LookAt(paths[8]);
    ASSERT_TRUE(look);
    const FreePlace place = WhatStands(world.files, "T:\\to\\8").place;
    const CallCounts before = CallsOfThread();
    ASSERT_EQ(NumberOf(world.files.CopyFileTo(*look, place, {})), 0);
    EXPECT_LE(CallsOfThread().opens, before.opens + 1); // the target's folder, till it is held
    EXPECT_EQ(CallsOfThread().looks, before.looks);
    EXPECT_EQ(world.Content("to/8"), "content");
}

// ---- what is believed ----

TEST(LinuxStore, ANameThatOthersTookAwayWhileAFolderIsFilledIsNotGivenToACopy) {
    StoreWorld world;
    world.MakeFolder("f");
    world.MakeFile("source", "ours");
    world.MakeFile("f/Foo.txt", "theirs");
    ASSERT_FALSE(world.files.Facts("T:\\f\\none"));
    ASSERT_EQ(NumberOf(world.files.CopyFile("T:\\source", "T:\\f\\first", false, {})), 0);
    fs::rename(world.Native("f/Foo.txt"), world.Native("f/bar.txt"));
    ASSERT_EQ(NumberOf(world.files.CopyFile("T:\\source", "T:\\f\\foo.txt", false, {})), 0);
    EXPECT_EQ(world.Names("f"), (std::set<std::string>{"first", "bar.txt", "foo.txt"}));
    fs::rename(world.Native("f/bar.txt"), world.Native("f/Baz.txt"));
    ASSERT_EQ(NumberOf(world.files.MoveFile("T:\\f\\first", "T:\\f\\BAR.TXT", {})), 0);
    EXPECT_EQ(world.Names("f"), (std::set<std::string>{"BAR.TXT", "Baz.txt", "foo.txt"}));
}

TEST(LinuxStore, WhatOthersPutIntoAFolderThatWasMadeHereIsFoundAndNeverReplaced) {
    StoreWorld world;
    world.MakeFile("source", "ours");
    ASSERT_EQ(NumberOf(world.files.CreateFolder("T:\\new")), 0);
    world.MakeFile("new/Theirs", "theirs");
    EXPECT_EQ(NumberOf(world.files.CopyFile("T:\\source", "T:\\new\\Theirs", false, {})),
              kAlreadyExists);
    EXPECT_EQ(world.Content("new/Theirs"), "theirs");
    EXPECT_EQ(NumberOf(world.files.Facts("T:\\new\\THEIRS")), 0);
    EXPECT_EQ(NumberOf(world.files.CopyFile("T:\\source", "T:\\new\\theirs", false, {})),
              kAlreadyExists);
    // Another folder at its path is none of ours.
    fs::rename(world.Native("new"), world.Native("old"));
    world.MakeFolder("new");
    world.MakeFile("new/Other", "theirs");
    EXPECT_EQ(NumberOf(world.files.Facts("T:\\new\\other")), 0);
}

TEST(LinuxStore, ANameThatOthersPutInAnotherCaseInPlaceOfOneIsFound) {
    StoreWorld world;
    world.MakeFolder("f");
    world.MakeFile("source", "ours");
    world.MakeFile("f/Foo.txt", "theirs");
    ASSERT_FALSE(world.files.Facts("T:\\f\\none"));
    ASSERT_EQ(NumberOf(world.files.CopyFile("T:\\source", "T:\\f\\first", false, {})), 0);
    fs::rename(world.Native("f/Foo.txt"), world.Native("f/FOO.txt"));
    EXPECT_EQ(NumberOf(world.files.CopyFile("T:\\source", "T:\\f\\foo.txt", false, {})),
              kAlreadyExists);
    EXPECT_EQ(world.files.TruePath("T:\\f\\foo.txt").value_or("none"), "T:\\f\\FOO.txt");
    EXPECT_EQ(world.Names("f"), (std::set<std::string>{"first", "FOO.txt"}));
}

namespace {
// Another process, which does one plain system call for each order that it is given.
class OtherProcess {
  public:
    OtherProcess() {
        if (::pipe2(orders_, O_CLOEXEC) != 0 || ::pipe2(answers_, O_CLOEXEC) != 0) std::abort();
        child_ = ::fork();
        if (child_ == 0) Serve();
        ::close(orders_[0]);
        ::close(answers_[1]);
    }
    OtherProcess(const OtherProcess&) = delete;
    ~OtherProcess() {
        ::close(orders_[1]);
        ::waitpid(child_, nullptr, 0);
        ::close(answers_[0]);
    }

    void Do(char what, const std::string& path, const std::string& other = "") {
        Order order{};
        order.what = what;
        path.copy(order.path, sizeof order.path - 1);
        other.copy(order.other, sizeof order.other - 1);
        char done = 0;
        if (::write(orders_[1], &order, sizeof order) != sizeof order) std::abort();
        if (::read(answers_[0], &done, 1) != 1) std::abort();
    }

  private:
    struct Order {
        char what;
        char path[500];
        char other[500];
    };

    [[noreturn]] void Serve() {
        ::close(orders_[1]);
        Order order{};
        while (::read(orders_[0], &order, sizeof order) == sizeof order) {
            Obey(order);
            if (::write(answers_[1], "", 1) != 1) break;
        }
        ::_exit(0);
    }
    // What can't be done isn't.
    static void Obey(const Order& order) {
        int fd = -1;
        switch (order.what) {
        case 'c':
            fd = ::open(order.path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
            if (fd >= 0 && ::write(fd, order.other, ::strlen(order.other)) < 0) ::_exit(1);
            if (fd >= 0) ::close(fd);
            break;
        case 'r':
            ::syscall(SYS_renameat2, AT_FDCWD, order.path, AT_FDCWD, order.other, 1);
            break;
        case 'u':
            ::unlink(order.path);
            break;
        case 'm':
            ::mkdir(order.path, 0700);
            break;
        default:
            ::rmdir(order.path);
        }
    }

    int orders_[2];
    int answers_[2];
    pid_t child_ = 0;
};

using Tree = std::map<std::string, std::string>; // content by path; "/" for folders

Tree TreeOf(const StoreWorld& world) {
    Tree tree;
    for (const auto& entry : fs::recursive_directory_iterator(world.folder.Path())) {
        const std::string path = entry.path().native().substr(world.folder.Path().size() + 1);
        tree[path] = entry.is_directory() ? "/" : world.Content(path);
    }
    return tree;
}

// A store that lives on through a random play of our calls and another process's.
class Play {
  public:
    explicit Play(unsigned seed) : dice_(seed) {
        for (const char* folder : kFolders)
            world_.MakeFolder(folder);
        world_.MakeFolder("sources");
    }

    void Run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            log_ = "step " + std::to_string(step) + ":";
            if (dice_() % 8 == 0) isBusy_ ? many_.reset() : void(many_.emplace(world_.files));
            isBusy_ = many_.has_value();
            dice_() % 2 == 0 ? ChangeByOthers() : ChangeByUs();
            if (step % 25 == 0) ::usleep(30'000); // dates of folders grow old
            PassTime();
            Compare();
        }
    }

  private:
    static constexpr std::array<const char*, 3> kFolders{"f", "g", "f/Sub"};
    static constexpr std::array<const char*, 8> kNames{
        "foo.txt", "Foo.txt",           "FOO.TXT",           "bar",
        "Bar",     "A longer name.txt", "a LONGER name.txt", "A longer one.txt"};

    std::size_t Roll(std::size_t sides) { return dice_() % sides; }
    std::string Folder() { return kFolders[Roll(kFolders.size())]; }
    std::string Path() { return Folder() + "/" + kNames[Roll(kNames.size())]; }
    static std::string Drive(std::string path) {
        std::ranges::replace(path, '/', '\\');
        return "T:\\" + path;
    }

    void ChangeByOthers() {
        const std::string path = Path();
        const std::string other = Path();
        switch (Roll(8)) {
        case 0:
        case 1:
        case 2:
            log_ += " other makes " + path;
            return other_.Do('c', world_.Native(path), "other " + std::to_string(++contents_));
        case 3:
        case 4:
            log_ += " other renames " + path + " to " + other;
            return other_.Do('r', world_.Native(path), world_.Native(other));
        case 5:
            log_ += " other removes " + path;
            return other_.Do('u', world_.Native(path));
        case 6:
            log_ += " other makes the folder " + path;
            return other_.Do('m', world_.Native(path));
        default:
            ChangeFolderByOthers();
        }
    }

    void ChangeFolderByOthers() {
        const std::string path = Folder();
        switch (Roll(3)) {
        case 0:
            log_ += " other renames " + path;
            return other_.Do('r', world_.Native(path), world_.Native("away"));
        case 1:
            log_ += " other puts back " + path;
            return other_.Do('r', world_.Native("away"), world_.Native(path));
        default:
            log_ += " other makes the folder " + path;
            return other_.Do('m', world_.Native(path));
        }
    }

    void ChangeByUs() {
        const std::string path = Drive(Path());
        switch (Roll(6)) {
        case 0:
            log_ += " we delete " + path;
            return static_cast<void>(world_.files.DeleteFile(path, true));
        case 1:
            log_ += " we make the folder " + path;
            return static_cast<void>(world_.files.CreateFolder(path));
        case 2:
            log_ += " we remove the folder " + path;
            return static_cast<void>(world_.files.RemoveFolder(path));
        default:
            PlaceFile(Roll(2) == 0);
        }
    }

    // By the answers that a loop pays for, with others in between.
    void PlaceFile(bool isMove) {
        const std::string source = "sources/" + std::to_string(++contents_);
        const std::string content = "ours " + std::to_string(contents_);
        world_.MakeFile(source, content);
        const std::string target = Path();
        log_ += (isMove ? " we move to " : " we copy to ") + target;
        const Standing standing = WhatStands(world_.files, Drive(target));
        if (!standing.IsFree()) return;
        const auto look = world_.files.LookAt(Drive(source));
        ASSERT_TRUE(look) << log_;
        if (Roll(3) == 0) ChangeByOthers();
        PassTime();
        const Tree before = TreeOf(world_);
        const auto done = isMove ? world_.files.MoveFileTo(*look, standing.place, {})
                                 : world_.files.CopyFileTo(*look, standing.place, {});
        Tree expected = before;
        if (done) {
            // A folder that others renamed just now may still be reached by the name it had.
            const std::string name = target.substr(target.rfind('/') + 1);
            for (const auto& [path, text] : TreeOf(world_)) {
                if (before.contains(path)) continue;
                EXPECT_EQ(path.substr(path.rfind('/') + 1), name) << log_;
                expected[path] = content;
            }
            EXPECT_EQ(expected.size(), before.size() + 1) << log_;
            if (isMove) expected.erase(source);
        } else {
            // Only what stands there refuses it, or the folder that is missing.
            const bool isTaken = NumberOf(Fresh().Facts(Drive(target))) == 0;
            EXPECT_EQ(NumberOf(done), isTaken ? kAlreadyExists : kPathNotFound) << log_;
        }
        EXPECT_EQ(TreeOf(world_), expected) << log_;
    }

    LinuxFileSystem& Fresh() { return fresh_.emplace(world_.mounts); }

    void PassTime() {
        constexpr std::array<std::int64_t, 6> kSteps{0, 0, 1, 4, 25, 1100};
        const std::int64_t step = kSteps[Roll(kSteps.size())];
        world_.now += step * kMillisecond;
        if (step > 20) known_.clear(); // whatever was believed is looked at again
        if (step > 1000) free_.clear();
    }

    static std::string Answer(LinuxFileSystem& files, const std::string& path) {
        const auto facts = files.Facts(path);
        const auto spelled = files.TruePath(path);
        return std::to_string(NumberOf(facts)) + " " +
               (spelled ? *spelled : std::to_string(NumberOf(spelled)));
    }

    // No answer is one that a fresh file system wouldn't have given a moment ago: as long ago as is
    // written with the store.
    void Compare() {
        LinuxFileSystem& fresh = Fresh();
        for (const char* folder : kFolders) {
            for (const char* name : kNames) {
                const std::string path = Drive(std::string(folder) + "/" + name);
                const std::string answer = Answer(fresh, path);
                known_[path].insert(answer);
                if (!answer.starts_with("0 ")) free_.insert(path);
                EXPECT_TRUE(known_[path].contains(Answer(world_.files, path)))
                    << log_ << "\n"
                    << path << ": " << Answer(world_.files, path) << ", not " << answer;
                EXPECT_TRUE(!world_.files.KnownFree(path) || free_.contains(path))
                    << log_ << "\n"
                    << path << " is not free";
            }
        }
    }

    std::mt19937 dice_;
    StoreWorld world_;
    OtherProcess other_;
    std::optional<LinuxFileSystem> fresh_;
    std::optional<ManyChanges> many_;
    bool isBusy_ = false;
    int contents_ = 0;
    std::string log_;
    std::map<std::string, std::set<std::string>> known_; // answers that may still be believed
    std::set<std::string> free_;                         // paths that may be
};
} // namespace

class LinuxStorePlay : public testing::TestWithParam<unsigned> {};

TEST_P(LinuxStorePlay, NothingIsBelievedLongerThanIsWritten) {
    Play(GetParam()).Run(300);
}

INSTANTIATE_TEST_SUITE_P(Seeds, LinuxStorePlay, testing::Range(1u, 7u));

} // namespace tarvix::platform
