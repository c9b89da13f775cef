#include "tests/endtoend/cli_process.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace tarvix::endtoend {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

class Signals : public CliProcess {
  protected:
    Signals() {
        for (int i = 0; i < 20; ++i) {
            AddFile("in/f" + std::to_string(i) + ".txt", "content " + std::to_string(i));
        }
    }
    // The next run begins with that signal on its way.
    void Send(int signal) {
        beforeProgram = [signal] {
            sigset_t blocked;
            sigemptyset(&blocked);
            sigaddset(&blocked, signal);
            sigprocmask(SIG_BLOCK, &blocked, nullptr);
            raise(signal);
        };
    }
    std::string Log() {
        for (const auto& entry : fs::directory_iterator(DataFolder())) {
            if (entry.path().filename().string().starts_with("TXAction")) {
                return ReadAll(entry.path());
            }
        }
        return {};
    }
    std::string MoveAll() {
        return "set cmbSearchFor = *\nset cmbDir = " + (Root() / "in").string() +
               "\nclick cmdSearch\nclick cmdSelectAll\nclick cmdMoveSelected\nset cmbDir = " +
               (Root() / "out").string() + "\nanswer OK\nclick OKButton\n";
    }
};

TEST_F(Signals, EachEndsACommandInOrderWithItsOwnExitCode) {
    const std::vector<std::pair<int, int>> cases{
        {SIGINT, 130}, {SIGTERM, 143}, {SIGHUP, 129}, {SIGPIPE, 141}, {SIGXFSZ, 153}};
    for (const auto& [signal, code] : cases) {
        Send(signal);
        const Outcome outcome = Run({"move", "*", "--in", "in", "--to", "out", "--yes"});
        EXPECT_EQ(outcome.exitCode, code) << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr("cut short, so nothing was moved."));
        EXPECT_THAT(Log(), HasSubstr("Closed Log at")) << signal;
        EXPECT_TRUE(fs::exists(Root() / "in/f0.txt"));
        EXPECT_FALSE(fs::exists(Root() / "out"));
        fs::remove(DataFolder() / "TXAction 11.15.25 19.54.52.log");
    }
}

TEST_F(Signals, AScriptEndsWithASentenceAndMovesNothing) {
    Send(SIGTERM);
    const Outcome outcome = RunScript(MoveAll());
    EXPECT_EQ(outcome.exitCode, 143);
    EXPECT_EQ(outcome.err, "tarvix-cli: line 1: The script was interrupted here. Nothing behind "
                           "this line is done.\n");
    EXPECT_FALSE(fs::exists(Root() / "out"));
}

TEST_F(Signals, AnIgnoredHangUpStaysIgnored) {
    beforeProgram = [] {
        std::signal(SIGHUP, SIG_IGN);
        raise(SIGHUP);
    };
    EXPECT_EQ(Run({"search", "*", "--in", "in"}).exitCode, 0);
}

TEST_F(Signals, AReaderThatGoesAwayEndsItWithoutAWord) {
    beforeProgram = [] {
        int ends[2];
        if (pipe(ends) != 0 || dup2(ends[1], STDOUT_FILENO) < 0) _exit(127);
        close(ends[0]);
        close(ends[1]);
    };
    const Outcome outcome = Run({"search", "*", "--in", "in"});
    EXPECT_EQ(outcome.exitCode, 141);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(Log(), HasSubstr("Closed Log at"));
}

TEST_F(Signals, AFileThatMayGrowNoFurtherEndsItAtTheNextObject) {
    AddFile("in/big.txt", std::string(300'000, 'x'));
    AddFile("in/zero.txt", "");
    beforeProgram = [] {
        const rlimit most{200'000, 200'000};
        setrlimit(RLIMIT_FSIZE, &most);
    };
    const Outcome outcome = Run({"copy", "*", "--in", "in", "--to", "out", "--yes"});
    EXPECT_EQ(outcome.exitCode, 153) << outcome.err;
    EXPECT_FALSE(fs::exists(Root() / "out/big.txt"));
    EXPECT_EQ(ReadAll(Root() / "in/big.txt").size(), 300'000U);
    EXPECT_THAT(Log(), HasSubstr("Closed Log at"));
}

TEST_F(Signals, ClosedDescriptorsNeverReachAFile) {
    beforeProgram = [] {
        for (const int descriptor : {0, 1, 2}) {
            close(descriptor);
        }
    };
    const Outcome outcome = Run({"copy", "*", "--in", "in", "--to", "out", "--yes"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(ReadAll(Root() / "out/f3.txt"), "content 3");
    EXPECT_THAT(Log(), Not(HasSubstr("Copied 20 of 20")));
    EXPECT_EQ(Run({"search", "*", "--in", "in"}).exitCode, 1) << "nobody got the results";
}

TEST_F(Signals, ARelativeDataHomeIsIgnored) {
    const fs::path home = AddFolder("home");
    beforeProgram = [home] {
        setenv("HOME", home.c_str(), 1);
        setenv("XDG_DATA_HOME", "relative", 1);
    };
    EXPECT_EQ(Run({"delete", "f1.txt", "--in", "in", "--yes"}).exitCode, 0);
    EXPECT_FALSE(fs::exists(Root() / "relative"));
    EXPECT_FALSE(fs::exists(Root() / "in/f1.txt"));
}

} // namespace
} // namespace tarvix::endtoend
