// What this machine does by itself, and what it does with the settings that take that back.
#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <array>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class SettingsTest : public Trees {
  protected:
    void Option(const std::string& key, const std::string& value) {
        const Outcome outcome = Run({"options", "set", key, value});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    }
    std::string Found(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "search");
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
        return Shown(outcome.out);
    }
    void Date(const fs::path& relative, std::time_t seconds) {
        const fs::path file = AddFile(relative);
        const std::array<timespec, 2> times{{{seconds, 0}, {seconds, 999'999'999}}};
        ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
    }
    std::string ActionLogs() const {
        std::string all;
        for (const auto& entry : fs::directory_iterator(DataFolder())) {
            if (entry.path().filename().string().starts_with("TXAction")) {
                all += ReadAll(entry.path());
            }
        }
        return all;
    }
};

// ---- LatestFileYear ----

constexpr std::time_t kIn2026 = 1'795'341'600; // 2026-11-22 10:00:00 UTC

TEST_F(SettingsTest, AFileOfThisYearHasItsOwnDate) {
    Date("d/old.tmp", 1'577'836'799); // 2019-12-31 23:59:59
    Date("d/new.tmp", kIn2026);
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--before", "2020-01-01"}), "ROOT/d/old.tmp\n");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--since", "2020-01-01"}), "ROOT/d/new.tmp\n");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--between", "2026-11-22..2026-11-22", "--columns",
                     "Name,DateSubItem"}),
              "new.tmp\t2026/11/22 10:00:00\n");
    EXPECT_THAT(ActionLogs(), Not(HasSubstr("bad Date")));
}

TEST_F(SettingsTest, DeleteBeforeADateLeavesAFileOfThisYear) {
    Date("d/new.tmp", kIn2026);
    const Outcome outcome =
        Run({"delete", "*.tmp", "--in", "d", "--before", "2020-01-01", "--yes"});
    EXPECT_TRUE(fs::exists(Root() / "d/new.tmp")) << outcome.out << outcome.err;
}

TEST_F(SettingsTest, TheFirstAndTheLastDateOfADiskAreListedAndSorted) {
    Date("d/first", -2'147'483'648);
    Date("d/last", 15'032'385'535);
    struct stat st {};
    ASSERT_EQ(stat((Root() / "d/last").c_str(), &st), 0);
    if (st.st_mtim.tv_sec != 15'032'385'535) GTEST_SKIP() << "the disk's dates end sooner";
    EXPECT_EQ(
        Found({"*", "--in", "d", "--sort", "DateSubItem:desc", "--columns", "Name,DateSubItem"}),
        "last\t2446/05/10 22:38:55\nfirst\t1901/12/13 20:45:52\n");
}

TEST_F(SettingsTest, WithALatestFileYearLaterDatesTakeTheFilters) {
    Date("d/new.tmp", kIn2026);
    Option("LatestFileYear", "2025");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--columns", "Name,DateSubItem"}),
              "new.tmp\t1980/01/01 00:00:00\n");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--before", "2020-01-01"}), "ROOT/d/new.tmp\n");
    EXPECT_THAT(ActionLogs(), HasSubstr("bad Date = Modified Date. The object is "));
}

} // namespace
} // namespace tarvix::endtoend
