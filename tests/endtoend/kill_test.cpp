#include "tests/endtoend/cli_process.h"
#include "tests/endtoend/program_path.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <optional>
#include <random>
#include <set>
#include <sys/mount.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tarvix::endtoend {
namespace {

// The program is killed at any moment; what existed before is then at its source, at its
// destination or in the trash.
class KillTest : public CliProcess {
  protected:
    using Clock = std::chrono::steady_clock;

    KillTest() { MakeSecondDisk(); }
    ~KillTest() override {
        if (hasDisk_) ::umount2(SecondDisk().c_str(), MNT_DETACH);
    }

    // A file system of its own, where it may be mounted; else a plain folder.
    fs::path SecondDisk() const { return Root() / "disk"; }
    void MakeSecondDisk() {
        AddFolder("disk");
        hasDisk_ = ::mount("tmpfs", SecondDisk().c_str(), "tmpfs", 0, "size=64m") == 0;
    }

    // Every file's content is its own, and long enough to take a while.
    void MakeTree() {
        for (const char* folder : {"t", "d", "new", "home", "disk/d", "disk/new"}) {
            fs::remove_all(Root() / folder);
        }
        AddFolder("home");
        for (const char* folder : {"t", "t/sub", "t/sub/deep", "d", "d/sub", "disk/d"}) {
            for (int i = 0; i < 12; ++i) {
                const std::string path = std::string(folder) + "/f" + std::to_string(i) + ".dat";
                std::string content = path + "\n";
                content.resize(static_cast<std::size_t>(1 + i * i * 512), 'x');
                content += path;
                AddFile(path, content);
                contents_.insert(content);
            }
        }
    }

    static bool IsData(const fs::path& file) { return file.extension() == ".dat"; }

    std::set<std::string> ContentsBelow(const fs::path& folder) {
        std::set<std::string> contents;
        const auto options = fs::directory_options::skip_permission_denied;
        for (const auto& entry : fs::recursive_directory_iterator(folder, options)) {
            if (entry.is_regular_file() && !entry.is_symlink()) {
                contents.insert(ReadAll(entry.path()));
            }
        }
        return contents;
    }

    // Runs a script and kills the program after `delay`; gives how long it took to its end, or
    // nothing when it was killed.
    std::optional<Clock::duration> RunKilled(const std::string& script, Clock::duration delay) {
        std::ofstream(Root() / "script", std::ios::binary) << script;
        // Options that were saved may keep the box for subfolders from being set.
        fs::remove(DataFolder() / "TXOptionFile.txt");
        const std::string data = DataFolder().string();
        const pid_t child = fork();
        if (child == 0) {
            ::setenv("XDG_DATA_HOME", (Root() / "home").c_str(), 1);
            const int nothing =
                ::open((Root() / "streams").c_str(), O_CREAT | O_RDWR | O_TRUNC, 0600);
            for (const int stream : {0, 1, 2}) {
                ::dup2(nothing, stream);
            }
            const std::string program = ProgramPath();
            ::execl(program.c_str(), program.c_str(), "--data-folder", data.c_str(), "run",
                    (Root() / "script").c_str(), nullptr);
            ::_exit(127);
        }
        const auto begun = Clock::now();
        int status = 0;
        while (::waitpid(child, &status, WNOHANG) == 0) {
            if (Clock::now() - begun < delay) {
                std::this_thread::sleep_for(std::chrono::microseconds(200));
                continue;
            }
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            return {};
        }
        // An earlier round may have left nothing to select, which ends a script.
        EXPECT_TRUE(WIFEXITED(status)) << script.substr(0, 400) << ReadAll(Root() / "streams");
        worked_ += WEXITSTATUS(status) < 2 ? 1 : 0;
        return Clock::now() - begun;
    }

    std::string FindAll(const std::string& folder, int kind) {
        return "set cmbSearchFor = *\nset cmbDir = " + (Root() / folder).string() +
               "\nset chkIncludeSubFolders = 1\nclick optFilesVsDirs(" + std::to_string(kind) +
               ")\nclick cmdSearch\nclick cmdSelectAll\n";
    }
    template <class Container>
    const auto& One(const Container& of) {
        return of[dice_() % std::size(of)];
    }

    std::string AnyScript() {
        constexpr std::array kFolders{"t", "t/sub", "d", "disk/d", "new/deep", "disk/new"};
        constexpr std::array kFrom{"t", "d", "t/sub", "disk/d"};
        constexpr std::array kDuplicates{"chkSkipAll", "chkRename", "chkOverWrite"};
        const int what = static_cast<int>(dice_() % 10);
        std::string script = FindAll(One(kFrom), what < 9 ? 0 : 3);
        if (what == 0) return script + "answer Yes\nclick cmdDeleteSelected\n";
        if (what == 1) {
            return script + "click cmdRenameSelected\nset txtAdd = y\nanswer OK\nclick OKButton\n";
        }
        const bool moves = what > 5;
        script += moves ? "click cmdMoveSelected\n" : "click cmdCopySelected\n";
        script += "set cmbDir = " + (Root() / One(kFolders)).string() + "\n";
        if (dice_() % 2 == 0) script += "click optStructure(2)\n";
        script +=
            "set " + std::string(moves ? kDuplicates[dice_() % 2] : One(kDuplicates)) + " = 1\n";
        for (int i = 0; i < 200; ++i) {
            script += "answer OK\n";
        }
        return script + "click OKButton\n";
    }

    void ExpectNothingLost(const std::string& when) {
        const auto left = ContentsBelow(Root());
        for (const std::string& content : contents_) {
            ASSERT_TRUE(left.contains(content))
                << content.substr(0, content.find('\n')) << " is lost " << when;
        }
    }
    // Whatever bears a name of ours is whole.
    void ExpectNothingBroken(const std::string& when) {
        for (const auto& entry : fs::recursive_directory_iterator(Root())) {
            if (!entry.is_regular_file() || !IsData(entry.path())) continue;
            ASSERT_TRUE(contents_.contains(ReadAll(entry.path()))) << entry.path() << " " << when;
        }
    }

    std::mt19937 dice_;
    int worked_ = 0; // runs that came to their end

  private:
    bool hasDisk_ = false;
    std::set<std::string> contents_;
};

TEST_F(KillTest, NothingIsLostWheneverTheProgramIsKilled) {
    // The first run is there to tell how long one takes; a run that came to its end tells better.
    const int wanted = std::getenv("TARVIX_NIGHTLY") != nullptr ? 200 : 10;
    dice_.seed(std::getenv("TARVIX_NIGHTLY") != nullptr ? std::random_device()() : 4711);
    MakeTree();
    auto whole = RunKilled(AnyScript(), std::chrono::minutes(1)).value_or(Clock::duration());
    int killed = 0;
    for (int round = 0; round < 4 * wanted && killed < wanted; ++round) {
        if (round % 10 == 0) MakeTree();
        const std::string script = AnyScript();
        const auto ended = RunKilled(script, whole * (10 + dice_() % 90) / 100);
        killed += ended ? 0 : 1;
        if (ended && worked_ > 0) whole = std::min(whole, *ended);

        const std::string when =
            "in round " + std::to_string(round) + " after\n" + script.substr(0, 400);
        ASSERT_NO_FATAL_FAILURE(ExpectNothingLost(when));
        ASSERT_NO_FATAL_FAILURE(ExpectNothingBroken(when));
    }
    EXPECT_GT(killed, 0);
    EXPECT_GT(worked_, 0);
}

} // namespace
} // namespace tarvix::endtoend
