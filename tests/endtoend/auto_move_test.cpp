#include "tests/endtoend/cli_process.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <map>
#include <sys/mount.h>
#include <unistd.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;

constexpr int kKinds = 20;
constexpr int kFiles = 400;

// A tree of files of many kinds, and a list that gives each kind a folder.
class AutoMove : public CliProcess {
  protected:
    AutoMove() {
        std::string searches;
        for (int kind = 0; kind < kKinds; ++kind) {
            searches += "*.k" + std::to_string(100 + kind) + "\n";
        }
        AddFile("searches.txt", searches + "*EOF\n");
        for (int i = 0; i < kFiles; ++i) {
            AddFile("in/d" + std::to_string(i % 7) + "/" + NameOf(i), ContentOf(i));
        }
    }
    ~AutoMove() override {
        if (isMounted_) ::umount2((Root() / "out").c_str(), MNT_DETACH);
    }
    static std::string NameOf(int i) {
        return "f" + std::to_string(i) + ".k" + std::to_string(100 + i % kKinds);
    }
    static std::string ContentOf(int i) { return "content " + std::to_string(i); }
    // A folder for each kind; `odd` in place of that of one kind.
    void Destinations(int kind = -1, const std::string& odd = "") {
        std::string lines;
        for (int i = 0; i < kKinds; ++i) {
            lines += i == kind ? odd : (Root() / "out" / ("k" + std::to_string(i))).string();
            lines += "\n";
        }
        AddFile("destinations.txt", lines + "*EOF\n");
    }
    Outcome Move() {
        return Run({"auto-move", "--in", "in", "--searches", "searches.txt", "--destinations",
                    "destinations.txt", "--yes"});
    }
    // The next run gets that signal as soon as the folder of a kind in the middle is there.
    void SignalInTheMiddle(int signal) {
        beforeProgram = [signal, middle = Root() / "out" / "k9"] {
            const pid_t program = getpid();
            if (fork() != 0) return;
            for (int i = 0; i < 20000 && !fs::exists(middle); ++i) {
                ::usleep(500);
            }
            ::kill(program, signal);
            ::_exit(0);
        };
    }
    void RunWhole() { beforeProgram = {}; }
    // Each file once, whole, in its place or where it was; gives how many have moved.
    int Moved() {
        std::map<std::string, std::vector<fs::path>> found;
        for (const char* folder : {"in", "out"}) {
            if (!fs::exists(Root() / folder)) continue;
            for (const auto& entry : fs::recursive_directory_iterator(Root() / folder)) {
                if (entry.is_regular_file()) {
                    found[entry.path().filename().string()].push_back(entry.path());
                }
            }
        }
        int moved = 0;
        EXPECT_EQ(found.size(), static_cast<std::size_t>(kFiles));
        for (int i = 0; i < kFiles; ++i) {
            const auto& places = found[NameOf(i)];
            EXPECT_EQ(places.size(), 1U) << NameOf(i);
            if (places.empty()) continue;
            EXPECT_EQ(ReadAll(places.front()), ContentOf(i)) << places.front();
            if (places.front().string().starts_with((Root() / "out").string())) ++moved;
        }
        return moved;
    }
    std::string Log() const {
        std::string text;
        for (const auto& entry : fs::directory_iterator(DataFolder())) {
            const bool isLog = entry.path().filename().string().starts_with("TXAction");
            if (isLog) text += ReadAll(entry.path());
        }
        return text;
    }
    bool FillDisk() {
        AddFolder("out");
        isMounted_ = ::mount("tmpfs", (Root() / "out").c_str(), "tmpfs", 0, "size=640k") == 0;
        return isMounted_;
    }

  private:
    bool isMounted_ = false;
};

TEST_F(AutoMove, OfManyLinesLeavesOutTheOneWhoseFolderCannotBeMade) {
    Destinations(7, "/proc/nowhere/k7");
    const Outcome moved = Move();
    EXPECT_EQ(moved.exitCode, 1);
    EXPECT_THAT(moved.out, HasSubstr("*.k107\t/proc/nowhere/k7\t0 moved, left out: Was unable to "
                                     "create destination folder /proc/nowhere/k7\n"));
    EXPECT_THAT(moved.out, HasSubstr("\nMoved 380 objects in 20 steps.\n"));
    EXPECT_EQ(Moved(), 380);
}

// Folders that stand for two seconds are read once for all searches.
TEST_F(AutoMove, FindsInOneRunWhatEachSearchAloneFinds) {
    AddLink("in/link", Root() / "in/d1");
    AddFile("in/d1/deep/er/x.k105");
    Destinations();
    ::sleep(3);
    const Outcome plan = Run({"auto-move", "--in", "in", "--searches", "searches.txt",
                              "--destinations", "destinations.txt", "--dry-run"});
    EXPECT_EQ(plan.exitCode, 0) << plan.err;
    std::string alone;
    for (int kind = 0; kind < kKinds; ++kind) {
        const std::string pattern = "*.k" + std::to_string(100 + kind);
        const std::string found = Run({"search", pattern, "--in", "in"}).out;
        alone += std::to_string(std::ranges::count(found, '\n')) + "\t" + pattern + "\t" +
                 (Root() / "out" / ("k" + std::to_string(kind))).string() + "\tis made\n";
    }
    EXPECT_EQ(plan.out, alone);
    EXPECT_THAT(plan.out, HasSubstr("21\t*.k105\t"));
}

TEST_F(AutoMove, ThatIsStoppedInTheMiddleLosesNothingAndCanBeTakenUpAgain) {
    Destinations();
    SignalInTheMiddle(SIGTERM);
    const Outcome stopped = Move();
    EXPECT_EQ(stopped.exitCode, 143);
    EXPECT_THAT(stopped.err, HasSubstr("The run was stopped before its end."));
    EXPECT_THAT(Log(), HasSubstr("Closed Log at"));
    EXPECT_LT(Moved(), kFiles);
    RunWhole();
    EXPECT_EQ(Move().exitCode, 0);
    EXPECT_EQ(Moved(), kFiles);
}

TEST_F(AutoMove, ThatIsKilledInTheMiddleLosesNothingAndItsLogTellsWhereItStood) {
    Destinations();
    SignalInTheMiddle(SIGKILL);
    Move();
    const int moved = Moved();
    EXPECT_LT(moved, kFiles);
    const std::string log = Log();
    int told = 0;
    for (std::size_t at = log.find(" Move "); at != log.npos; at = log.find(" Move ", at + 1)) {
        told += log.find(" -- to -- ", at) < log.find('\n', at) ? 1 : 0;
    }
    EXPECT_LE(std::abs(told - moved), 1) << "what was under work may not stand there yet";
    RunWhole();
    EXPECT_EQ(Move().exitCode, 0);
    EXPECT_EQ(Moved(), kFiles);
}

TEST_F(AutoMove, ToAFullDiskLosesNothingAndTellsWhatFailed) {
    if (!FillDisk()) GTEST_SKIP() << "no file system can be mounted here";
    Destinations();
    const Outcome moved = Move();
    EXPECT_EQ(moved.exitCode, 1);
    EXPECT_THAT(moved.out, HasSubstr(" failed"));
    EXPECT_LT(Moved(), kFiles);
    EXPECT_GT(Moved(), 0);
}

} // namespace
} // namespace tarvix::endtoend
