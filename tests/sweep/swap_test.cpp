#include "tests/sweep/sweep_world.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <random>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

// A second process exchanges folders for links, and files for others, while the program works. What
// the search never listed is never touched.
namespace tarvix::sweep {
namespace {

constexpr unsigned kExchange = 2; // RENAME_EXCHANGE

void Pause(std::mt19937& dice, unsigned mostMicroseconds) {
    ::usleep(dice() % mostMicroseconds);
}

// Puts a link to `outside` in the place of `folder` and the folder back again, until killed.
[[noreturn]] void SwapFolder(const fs::path& folder, const fs::path& outside, unsigned seed) {
    std::mt19937 dice(seed);
    const fs::path away = folder.parent_path().parent_path() / "away";
    while (true) {
        Pause(dice, 3000);
        if (::rename(folder.c_str(), away.c_str()) != 0) continue;
        if (::symlink(outside.c_str(), folder.c_str()) == 0) {
            Pause(dice, 3000);
            ::unlink(folder.c_str());
        }
        ::rename(away.c_str(), folder.c_str());
    }
}

std::string ReadAll(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Whether the search is over and its objects are selected, as the action log in a folder tells.
bool HasSelected(const fs::path& data) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(data, ignored)) {
        if (ReadAll(entry).contains("User selected all files")) return true;
    }
    return false;
}

// Exchanges two files for one another from the end of the search on, until killed.
[[noreturn]] void SwapFiles(const fs::path& one, const fs::path& other, const fs::path& data,
                            unsigned seed) {
    std::mt19937 dice(seed);
    while (!HasSelected(data))
        Pause(dice, 200);
    while (true) {
        Pause(dice, 400);
        ::syscall(SYS_renameat2, AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), kExchange);
    }
}

struct Command {
    const char* name;
    const char* words;
};
void PrintTo(const Command& command, std::ostream* out) {
    *out << command.name;
}
constexpr Command kCommands[] = {
    {"Copy", "copy *.dat --in ROOT/s --to ROOT/new --structure folder --yes"},
    {"Move", "move *.dat --in ROOT/s --to ROOT/new --structure folder --yes"},
    {"Rename", "rename *.dat --in ROOT/s --insert new_ --yes"},
    {"Delete", "delete *.dat --in ROOT/s --on-recycle-failure delete --yes"},
};

class SwapTest : public ::testing::TestWithParam<Command> {
  protected:
    static int Rounds() { return std::getenv("TARVIX_NIGHTLY") != nullptr ? 200 : 12; }

    void MakeOutside() {
        for (int i = 0; i < kFiles; ++i) {
            const std::string name = std::to_string(i) + ".dat";
            Write(world.Root() / "s/sub" / name, "inside " + name);
            Write(world.Root() / "outside" / name, Secret(i));
        }
    }
    static std::string Secret(int i) { return "outside " + std::to_string(i); }
    static void Write(const fs::path& file, const std::string& content) {
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
    }

    // Runs the command while `swap` goes on.
    void RunWhile(const auto& swap) {
        const pid_t swapper = ::fork();
        if (swapper == 0) swap();
        (void)world.RunFreely(GetParam().words);
        ::kill(swapper, SIGKILL);
        ::waitpid(swapper, nullptr, 0);
    }

    static constexpr int kFiles = 40;
    SweepWorld world;
};

TEST_P(SwapTest, NothingBehindALinkIsTouched) {
    for (int round = 0; round < Rounds(); ++round) {
        world.Reset();
        MakeOutside();
        RunWhile([&] {
            SwapFolder(world.Root() / "s/sub", world.Root() / "outside",
                       static_cast<unsigned>(round));
        });
        for (int i = 0; i < kFiles; ++i) {
            const fs::path file = world.Root() / "outside" / (std::to_string(i) + ".dat");
            ASSERT_EQ(ReadAll(file), Secret(i)) << "round " << round << "\n" << world.Listing();
        }
        for (const auto& entry : fs::recursive_directory_iterator(world.Root())) {
            if (!entry.is_regular_file() || entry.path().parent_path() == world.Root() / "outside")
                continue;
            ASSERT_FALSE(ReadAll(entry).starts_with("outside ")) << entry.path() << " " << round;
        }
    }
}

TEST_P(SwapTest, AFileThatTookAnothersPlaceIsNotTouched) {
    for (int round = 0; round < Rounds(); ++round) {
        world.Reset();
        MakeOutside();
        const fs::path inside = world.Root() / "s/sub/7.dat";
        const fs::path outside = world.Root() / "outside/7.dat";
        RunWhile([&] {
            SwapFiles(inside, outside, world.Root() / "data", static_cast<unsigned>(round));
        });
        const bool stands = ReadAll(inside) == Secret(7) || ReadAll(outside) == Secret(7);
        ASSERT_TRUE(stands) << "round " << round << "\n" << world.Listing();
    }
}

INSTANTIATE_TEST_SUITE_P(EachCommand, SwapTest, ::testing::ValuesIn(kCommands),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace tarvix::sweep
