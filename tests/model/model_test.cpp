#include "tests/endtoend/cli_process.h"
#include "tests/model/model.h"
#include "tests/model/world.h"

#include <algorithm>
#include <cstdlib>
#include <grp.h>
#include <iterator>
#include <unistd.h>

namespace tarvix::model {
namespace {

namespace fs = std::filesystem;

constexpr int kNobody = 65534;

std::string Joined(const std::vector<std::string>& lines, const char* between) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : between) + line;
    }
    return text;
}

// "- " what is missing, "+ " what is too much.
std::string Difference(const std::vector<std::string>& expected,
                       const std::vector<std::string>& actual) {
    std::vector<std::string> missing, extra;
    std::ranges::set_difference(expected, actual, std::back_inserter(missing));
    std::ranges::set_difference(actual, expected, std::back_inserter(extra));
    std::string text;
    for (const auto& line : missing) {
        text += "  - " + line + "\n";
    }
    for (const auto& line : extra) {
        text += "  + " + line + "\n";
    }
    return text;
}

// Random requests on random trees, held against what the model makes of them.
class RandomRequests : public endtoend::CliProcess {
  protected:
    RandomRequests() {
        fs::permissions(Root(), fs::perms(0755));
        fs::create_directory(Root() / "home");
        setenv("XDG_DATA_HOME", (Root() / "home").c_str(), 1);
        setenv("HOME", (Root() / "home").c_str(), 1);
        isRoot_ = geteuid() == 0;
    }
    ~RandomRequests() override { unsetenv("XDG_DATA_HOME"); }

    // The user that the program of the next rounds is.
    void ActAs(int user) {
        if (!isRoot_ || user == 0) return;
        for (const char* folder : {"home", "data"}) {
            (void)!::chown((Root() / folder).c_str(), static_cast<uid_t>(user),
                           static_cast<gid_t>(user));
            for (const auto& entry : fs::recursive_directory_iterator(Root() / folder)) {
                (void)!::chown(entry.path().c_str(), static_cast<uid_t>(user),
                               static_cast<gid_t>(user));
            }
        }
        owner_ = user;
        beforeProgram = [user] {
            if (setgroups(0, nullptr) != 0 || setgid(static_cast<gid_t>(user)) != 0 ||
                setuid(static_cast<uid_t>(user)) != 0) {
                _exit(127);
            }
        };
    }
    // Whether that user may run the program at all.
    bool CanRun() { return Run({"--version"}).exitCode == 0; }

    void RunRounds(Verb verb, int normal) {
        const bool isNightly = std::getenv("TARVIX_NIGHTLY") != nullptr;
        const char* const only = std::getenv("TARVIX_MODEL_ROUND");
        const int rounds = isNightly ? 1000 : normal;
        for (int round = 0; round < rounds; ++round) {
            if (only != nullptr && std::atoi(only) != round) continue;
            RunRound(verb, round);
        }
        EXPECT_EQ(differences_, 0) << "of " << rounds << " rounds";
    }

  private:
    void RunRound(Verb verb, int round) {
        const Actor actor{.isRoot = isRoot_ && owner_ == 0};
        Dice dice(static_cast<unsigned>(round) * 3 + static_cast<unsigned>(verb));
        const auto tree = AnyTree(dice, verb, isRoot_ && owner_ != 0);
        const Request request = AnyRequest(dice, verb);
        const fs::path world = Root() / "w";
        fs::create_directory(world);
        MakeOnDisk(*tree, world, owner_);
        if (owner_ != 0) (void)!::chown(world.c_str(), kNobody, kNobody);
        const auto before = LinesOf(*tree);
        const Expected expected = Apply(*tree, world.string(), request, actor);
        const auto words = WordsOf(request, world.string(), expected.answers);
        const endtoend::Outcome outcome = Run(words);
        std::string told = Difference(LinesOf(*tree), LinesOnDisk(world, *tree)) +
                           Difference(expected.trashed, ContentsBelow(Root() / "home/Trash/files"));
        if (expected.exitCode >= 0 && outcome.exitCode != expected.exitCode) {
            told += "  exit " + std::to_string(outcome.exitCode) + " for " +
                    std::to_string(expected.exitCode) + "\n";
        }
        if (!told.empty() && ++differences_ <= 20) {
            ADD_FAILURE() << "round " << round << ": " << Shown(Joined(words, " ").substr(0, 300))
                          << "\n"
                          << Shown(told) << "before:\n  " << Joined(before, "\n  ") << "\n"
                          << Shown(outcome.out + outcome.err);
        }
        CleanUp(world);
    }
    void CleanUp(const fs::path& world) {
        fs::remove_all(world);
        fs::remove_all(Root() / "home/Trash");
        for (const auto& entry : fs::directory_iterator(DataFolder())) {
            if (entry.path().filename().string().starts_with("TXAction")) fs::remove(entry);
        }
    }

    bool isRoot_ = false;
    int owner_ = 0; // of what isn't foreign, when the test may choose
    int differences_ = 0;
};

TEST_F(RandomRequests, ACopyLeavesWhatTheModelSays) {
    RunRounds(Verb::kCopy, 12);
}

TEST_F(RandomRequests, AMoveLeavesWhatTheModelSays) {
    RunRounds(Verb::kMove, 12);
}

TEST_F(RandomRequests, ARenameLeavesWhatTheModelSays) {
    RunRounds(Verb::kRename, 12);
}

class RandomRequestsAmongOthers : public RandomRequests {
  protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "only root can make another user's objects";
        ActAs(kNobody);
        if (!CanRun()) GTEST_SKIP() << "another user may not run this program";
    }
};

TEST_F(RandomRequestsAmongOthers, ACopyLeavesWhatTheModelSays) {
    RunRounds(Verb::kCopy, 12);
}

TEST_F(RandomRequestsAmongOthers, AMoveLeavesWhatTheModelSays) {
    RunRounds(Verb::kMove, 12);
}

TEST_F(RandomRequestsAmongOthers, ARenameLeavesWhatTheModelSays) {
    RunRounds(Verb::kRename, 12);
}

} // namespace
} // namespace tarvix::model
