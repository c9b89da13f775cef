#include "tests/endtoend/cli_process.h"

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// What a run writes to a terminal.
class Terminal : public CliProcess {
  protected:
    Terminal() {
        for (int i = 0; i < 300; ++i)
            AddFile("in/d" + std::to_string(i % 30) + "/f" + std::to_string(i) + ".txt", "12345");
        master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        EXPECT_TRUE(master_ >= 0 && grantpt(master_) == 0 && unlockpt(master_) == 0);
    }
    ~Terminal() override { close(master_); }

    // Runs with these descriptors on the terminal; gives all that came to it. `signal` is on its
    // way from the beginning.
    std::string On(std::vector<int> descriptors, const std::vector<std::string>& arguments,
                   const char* kind = "xterm", int signal = 0) {
        const std::string name = ptsname(master_);
        const int slave = open(name.c_str(), O_RDWR | O_NOCTTY); // keeps what was written
        beforeProgram = [=] {
            setenv("TERM", kind, 1);
            for (const int descriptor : descriptors)
                dup2(slave, descriptor);
            if (signal == 0) return;
            sigset_t blocked;
            sigemptyset(&blocked);
            sigaddset(&blocked, signal);
            sigprocmask(SIG_BLOCK, &blocked, nullptr);
            raise(signal);
        };
        outcome = Run(arguments);
        std::string written;
        std::array<char, 4096> part{};
        for (ssize_t got = 0; (got = read(master_, part.data(), part.size())) > 0;)
            written.append(part.data(), static_cast<std::size_t>(got));
        close(slave);
        return written;
    }

    Outcome outcome;

  private:
    int master_ = -1;
};

constexpr int kOut = STDOUT_FILENO;
constexpr int kErr = STDERR_FILENO;

TEST_F(Terminal, ADumbOneGetsNoEscapes) {
    const std::string written =
        On({kErr}, {"copy", "*", "--in", "in", "--to", "out", "--yes"}, "dumb");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(written, "");
    EXPECT_EQ(
        On({kErr}, {"search", "*", "--in", "nope"}, "dumb"),
        "tarvix-cli: There is no folder \"nope\" to search: give --in folders that exist.\r\n");
    EXPECT_THAT(On({kErr}, {"search", "*", "--in", "nope"}), HasSubstr("\x1B[1;31m"));
}

TEST_F(Terminal, ProgressCountsObjectsAndBytesAndIsTakenOff) {
    const std::string written = On({kErr}, {"copy", "*", "--in", "in", "--to", "out", "--yes"});
    EXPECT_EQ(outcome.out, "Copied 300 of 300 objects.\n");
    EXPECT_THAT(written, HasSubstr("Copy: "));
    EXPECT_THAT(written, HasSubstr(" of 300 objects"));
    EXPECT_THAT(written, ::testing::EndsWith("\r\x1B[K"));
}

TEST_F(Terminal, ResultsBeginOnACleanLine) {
    const std::string written =
        On({kOut, kErr}, {"copy", "*", "--in", "in", "--to", "out", "--yes"});
    const std::size_t sum = written.find("Copied 300 of 300 objects.");
    ASSERT_NE(sum, std::string::npos) << written;
    EXPECT_EQ(written.substr(sum - 4, 4), "\r\x1B[K");
}

TEST_F(Terminal, NamesHaveTheirControlCharactersEscaped) {
    AddFile("odd/a\x1B[2Jb.txt");
    EXPECT_THAT(On({kOut}, {"search", "*", "--in", "odd"}), HasSubstr("/odd/a\\x1B[2Jb.txt\r\n"));
    beforeProgram = {};
    EXPECT_EQ(Shown(Run({"search", "*", "--in", "odd"}).out), "ROOT/odd/a\x1B[2Jb.txt\n");
}

TEST_F(Terminal, AnInterruptionSaysWhatItWaitsForAndThatAnotherEndsItAtOnce) {
    const std::vector<std::string> arguments{"copy", "*", "--in", "in", "--to", "out", "--yes"};
    const std::string written = On({kErr}, arguments, "xterm", SIGINT);
    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_THAT(written, HasSubstr("\r\nStopping "));
    EXPECT_THAT(written, HasSubstr("Ctrl+C again stops at once."));
    EXPECT_THAT(On({kErr}, arguments, "xterm", SIGTERM), Not(HasSubstr("Stopping")));
    EXPECT_EQ(outcome.exitCode, 143);
}

} // namespace
} // namespace tarvix::endtoend
