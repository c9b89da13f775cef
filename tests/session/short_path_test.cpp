#include "session/paths/short_path.h"
#include "tests/support/program_fixture.h"
#include "text/characters.h"

namespace tarvix::testing {
namespace {

using session::GetShortPathNameReturnCodes;
using session::MixPath;

class ShortPath : public ProgramFixture {
  protected:
    static std::string Level(std::size_t width, char c = 'd') {
        return "\\" + std::string(width, c);
    }
};

TEST_F(ShortPath, APathWithinTheLimitStaysWithStatus3) {
    const std::string path = "C:" + Level(244); // need not exist
    ASSERT_EQ(path.size(), 247U);
    const auto result = GetShortPathNameReturnCodes(S(), path);
    EXPECT_EQ(result.path, path);
    EXPECT_EQ(result.status, 3);
}

TEST_F(ShortPath, ALongFolderPortionIsShortenedToStatus3) {
    const std::string folder = "C:" + Level(100) + Level(100);
    Disk().AddFile(folder + Level(60), "x");
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(60));
    EXPECT_EQ(result.status, 3);
    EXPECT_LE(result.path.size(), 247U);
    EXPECT_TRUE(result.path.ends_with(Level(60))) << "the last name stays";
    EXPECT_EQ(Disk().Content(result.path), "x");
}

TEST_F(ShortPath, OverTheLimitButBelow260IsStatus2) {
    const std::string name = Level(240);
    Disk().AddFile("C:" + Level(12) + name, "x");
    const std::string path = "C:" + Level(12) + name; // 2 + 13 + 241: too long by its name
    const auto result = GetShortPathNameReturnCodes(S(), path);
    EXPECT_EQ(result.status, 2);
    EXPECT_GT(result.path.size(), 247U);
    EXPECT_LE(result.path.size(), 259U);
    EXPECT_EQ(Disk().Content(result.path), "x");
}

TEST_F(ShortPath, AWholePathStillOver259AfterShorteningIsStatus1) {
    const std::string path = "C:" + Level(20) + Level(20, 'e') + Level(253);
    Disk().AddFile(path, "x");
    const auto result = GetShortPathNameReturnCodes(S(), path, true);
    EXPECT_EQ(result.status, 1);
    EXPECT_GT(result.path.size(), 259U);
}

TEST_F(ShortPath, AWholePathHasItsLastNameShortenedToo) {
    const std::string path = "C:" + Level(12) + Level(240);
    Disk().AddFile(path, "x");
    const auto result = GetShortPathNameReturnCodes(S(), path, true);
    EXPECT_EQ(result.status, 3);
    EXPECT_LE(result.path.size(), 30U);
    EXPECT_EQ(Disk().Content(result.path), "x");
}

TEST_F(ShortPath, APathOf500CharactersIsReturnedAsItStandsWithStatus0) {
    const std::string path = "C:" + Level(248) + Level(248);
    ASSERT_EQ(path.size(), 500U);
    const auto result = GetShortPathNameReturnCodes(S(), path);
    EXPECT_EQ(result.path, path);
    EXPECT_EQ(result.status, 0);
}

TEST_F(ShortPath, APathOf499CharactersIsTried) {
    const std::string path = "C:" + Level(100) + Level(200) + Level(194);
    ASSERT_EQ(path.size(), 499U);
    Disk().AddFile(path, "x");
    const auto result = GetShortPathNameReturnCodes(S(), path);
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(Disk().Content(result.path), "x");
}

TEST_F(ShortPath, WithoutASeparatorBeforeColumn248ThereIsNoShortPath) {
    const std::string path = std::string(248, 'd') + "\\x";
    const auto result = GetShortPathNameReturnCodes(S(), path);
    EXPECT_EQ(result.path, path);
    EXPECT_EQ(result.status, 0);
}

TEST_F(ShortPath, OnlyLimitsUpTo247AreHonoured) {
    const std::string folder = "C:" + Level(60);
    Disk().AddFile(folder + Level(30), "x");
    EXPECT_EQ(GetShortPathNameReturnCodes(S(), folder + Level(30), false, 254).path,
              folder + Level(30));
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(30), false, 79);
    EXPECT_EQ(result.status, 3);
    EXPECT_LE(result.path.size(), 79U);
    EXPECT_EQ(Disk().Content(result.path), "x");
    const std::string longer = "C:" + Level(100) + Level(150);
    Disk().AddFile(longer, "y");
    EXPECT_LE(GetShortPathNameReturnCodes(S(), longer, false, 254).path.size(), 247U);
}

TEST_F(ShortPath, FoldersThatAreMissingOnTheWayAreMade) {
    Start();
    const std::string folder = "C:" + Level(100) + Level(100, 'e');
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(60));
    EXPECT_EQ(result.status, 3);
    EXPECT_TRUE(Disk().Exists(folder));
    EXPECT_TRUE(HasEntry(LogText(), " Created " + folder));
}

TEST_F(ShortPath, AFolderThatCannotBeSeenIsNotMade) {
    const std::string folder = "C:" + Level(100) + Level(100, 'e');
    machine.faults.FailPath(folder, platform::kPermissionDenied, "Facts");
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(60));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(machine.faults.Count("CreateFolder"), 0U);
}

TEST_F(ShortPath, ALongNameInADrivesRootKeepsOneSeparator) {
    const std::string path = "C:" + Level(250);
    Disk().AddFile(path, "x");
    const auto result = GetShortPathNameReturnCodes(S(), path);
    EXPECT_EQ(result.path, path);
    EXPECT_EQ(result.status, 2);
}

TEST_F(ShortPath, CharactersCountNotBytes) {
    std::string path = "C:\\";
    for (int i = 0; i < 244; ++i) {
        path += "ä";
    }
    EXPECT_EQ(GetShortPathNameReturnCodes(S(), path).status, 3);
}

// ---- mixed paths ----

TEST(MixPath, APathWithinTheLimitStaysLong) {
    EXPECT_EQ(MixPath("C:\\first long\\second long", "C:\\FIRSTL~1\\SECOND~1"),
              "C:\\first long\\second long");
}

TEST(MixPath, StopsAsSoonAsTheResultIsNotOverTheLimit) {
    constexpr const char* kLong = "C:\\a long first folder\\a long second folder\\name.txt";
    constexpr const char* kShort = "C:\\ALONGF~1\\ALONGS~1\\NAME.TXT";
    EXPECT_EQ(MixPath(kLong, kShort, 52),
              "C:\\a long first folder\\a long second folder\\name.txt");
    EXPECT_EQ(MixPath(kLong, kShort, 51), "C:\\ALONGF~1\\a long second folder\\name.txt");
    EXPECT_EQ(MixPath(kLong, kShort, 41), "C:\\ALONGF~1\\a long second folder\\name.txt");
    EXPECT_EQ(MixPath(kLong, kShort, 40), "C:\\ALONGF~1\\ALONGS~1\\name.txt");
}

TEST(MixPath, LimitsOf0AndOver259CountAs259) {
    const std::string name(240, 'n');
    const std::string longPath = "C:\\a long first folder\\" + name;
    const std::string shortPath = "C:\\ALONGF~1\\" + name;
    ASSERT_EQ(longPath.size(), 263U);
    EXPECT_EQ(MixPath(longPath, shortPath), shortPath);
    EXPECT_EQ(MixPath(longPath, shortPath, 300), shortPath);
    EXPECT_EQ(MixPath(longPath.substr(0, 259), shortPath.substr(0, 248), 300),
              longPath.substr(0, 259));
}

TEST(MixPath, GivesTheShortFormWhenNoneFits) {
    EXPECT_EQ(MixPath("C:\\long folder\\name", "C:\\LONGFO~1\\NAME", 5), "C:\\LONGFO~1\\NAME");
}

TEST_F(ShortPath, AFolderThatIsMissingIsMadeUnasked) {
    Start();
    const std::string folder = "C:" + Level(100) + Level(100);
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(60));
    EXPECT_EQ(result.status, 3);
    EXPECT_TRUE(Disk().Exists(folder));
    EXPECT_TRUE(Told().empty());
}

TEST_F(ShortPath, AnyOtherErrorIsAskedAboutAndTriedAgainWhenTheUserSaysSo) {
    Start();
    const std::string folder = "C:" + Level(100) + Level(100);
    Disk().AddFolder(folder);
    machine.faults.ResetCounts();
    machine.faults.FailCall("Facts", 1, platform::kPermissionDenied);
    prompts.Queue("Retry");
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(60));
    EXPECT_EQ(result.status, 3);
    ASSERT_EQ(Told().size(), 1U);
    EXPECT_TRUE(
        Told()[0].starts_with("GetShortPathNameReturnCodes has not proceeded as expected."));
}

TEST_F(ShortPath, AnErrorThatStandsLeavesThePathWithStatus0AndARecord) {
    Start();
    const std::string folder = "C:" + Level(100) + Level(100);
    Disk().AddFolder(folder);
    machine.faults.FailPath(folder, platform::kPermissionDenied, "Facts");
    prompts.Queue("Cancel");
    const auto result = GetShortPathNameReturnCodes(S(), folder + Level(60));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.path, folder + Level(60));
    EXPECT_NE(Disk()
                  .Content(State().strErrorLogFile)
                  .value_or("")
                  .find(" Routine : GetShortPathNameReturnCodes\r\n Module Module1\r\n"),
              std::string::npos);
}

} // namespace
} // namespace tarvix::testing
