#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr std::string_view kApplication = "[Desktop Entry]\nType=Application\nExec=/opt/old/a %U\n"
                                          "Icon=a\n";
constexpr std::string_view kAddress = "[InternetShortcut]\r\nURL=http://old/\r\n";

class LinksCommandTest : public CliFixture {
  protected:
    LinksCommandTest() {
        Disk().AddFile("C:\\home\\ann\\L\\a.desktop", kApplication);
        Disk().AddFile("C:\\home\\ann\\L\\b.url", kAddress);
        Disk().AddFile("C:\\home\\ann\\L\\c.txt", "text");
    }
    int Links(std::vector<std::string> words) {
        words.insert(words.begin(), "links");
        return Run(words);
    }
    void ReplaceInText(std::string_view from, std::string_view to) {
        std::string text = Disk().Content("C:\\tmp\\t.txt").value_or("");
        const std::size_t at = text.find(from);
        ASSERT_NE(at, text.npos) << text;
        Disk().AddFile("C:\\tmp\\t.txt", text.replace(at, from.size(), to));
    }
};

TEST_F(LinksCommandTest, ShowPrintsAllValues) {
    EXPECT_EQ(Links({"show", "a", "--in", "L", "--json"}), kDone);
    EXPECT_EQ(Out(), "{\"NativePath\":\"/home/ann/L/a.desktop\","
                     "\"TargetPathOfLinkSubItem\":\"/opt/old/a\",\"TargetArgumentsOfLink\":\"%U\","
                     "\"WorkingDirOfLinkSubItem\":\"\",\"HotKeyOfLink\":\"\","
                     "\"WindowStyleOfLink\":\"Normal\",\"DescriptionOfLink\":\"\","
                     "\"IconPathNameOfLinkSubItem\":\"a\"}\n");
}

TEST_F(LinksCommandTest, SetReplacesAndTellsEachChange) {
    EXPECT_EQ(Links({"set", "--in", "L", "--target-from", "old", "--target-to", "new"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/L/a.desktop: Target: /opt/old/a -> /opt/new/a\n"
                     "/home/ann/L/b.url: Target: http://old/ -> http://new/\n"
                     "Changed 2 of 2 shortcuts.\n");
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\L\\b.url"),
              "[InternetShortcut]\r\nURL=http://new/\r\n");
    EXPECT_EQ(machine.bin.Items().size(), 2U);
}

TEST_F(LinksCommandTest, SetRehearsesWithoutWriting) {
    EXPECT_EQ(Links({"set", "--in", "L", "--target", "x", "--dry-run"}), kDone);
    EXPECT_THAT(Out(), EndsWith("Would change 2 of 2 shortcuts.\n"));
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\L\\a.desktop"), kApplication);
}

TEST_F(LinksCommandTest, SetTellsWhatCannotBe) {
    EXPECT_EQ(Links({"set", "a", "--in", "L", "--hot-key", "CTRL+A"}), kSomeFailed);
    EXPECT_THAT(Err(), EndsWith("a.desktop: A desktop entry has no hot key.\n"));
    EXPECT_EQ(Out(), "Changed 0 of 1 shortcuts; 1 failed.\n");
}

TEST_F(LinksCommandTest, SetNeedsBothHalvesOfAReplacement) {
    EXPECT_EQ(Links({"set", "--in", "L", "--target-from", "a"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("--target-from and --target-to go together"));
    EXPECT_EQ(Links({"set", "--in", "L"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("Say what is to change"));
}

TEST_F(LinksCommandTest, EditAndApplySaveWhatWasChanged) {
    EXPECT_EQ(Links({"edit", "--in", "L", "--to", "/tmp/t.txt"}), kDone);
    EXPECT_EQ(Out(), "/tmp/t.txt\n");
    EXPECT_EQ(Disk().Content("C:\\tmp\\t.txt"),
              "Name = a.desktop\r\nTarget = /opt/old/a\r\nArguments = %U\r\nStart in = \r\n"
              "HotKey = \r\nWindow Style = Normal\r\nDescription = \r\nIcon = a\r\n"
              "Name = b.url\r\nTarget = http://old/\r\nHotKey = \r\nIcon = \r\n");
    ReplaceInText("Description = ", "Description = d");
    ReplaceInText("Name = b.url", "Name = n.url");
    EXPECT_EQ(Links({"apply", "/tmp/t.txt", "--dry-run"}), kDone);
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\L\\a.desktop"), kApplication);
    EXPECT_EQ(Links({"apply", "/tmp/t.txt"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/L/a.desktop: Description: (none) -> d\n"
                     "/home/ann/L/b.url: Name: b.url -> n.url\n"
                     "Changed 2 of 2 shortcuts.\n");
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\L\\a.desktop"),
              std::string(kApplication) + "Comment=d\n");
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\L\\n.url"), kAddress);
}

TEST_F(LinksCommandTest, ApplyingOnceMoreHasNothingToDo) {
    ASSERT_EQ(Links({"edit", "--in", "L", "--to", "/tmp/t.txt"}), kDone);
    ReplaceInText("Description = ", "Description = d");
    ReplaceInText("Name = b.url", "Name = n.url");
    ASSERT_EQ(Links({"apply", "/tmp/t.txt"}), kDone);
    EXPECT_EQ(Links({"apply", "/tmp/t.txt"}), kDone);
    EXPECT_EQ(Out(), "Changed 0 of 2 shortcuts.\n");
}

TEST_F(LinksCommandTest, ApplyLeavesWhatChangedSince) {
    ASSERT_EQ(Links({"edit", "--in", "L", "--to", "/tmp/t.txt"}), kDone);
    ReplaceInText("Target = http://old/", "Target = http://mine/");
    Disk().AddFile("C:\\home\\ann\\L\\b.url", "[InternetShortcut]\r\nURL=http://theirs/\r\n");
    EXPECT_EQ(Links({"apply", "/tmp/t.txt"}), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("b.url: It doesn't hold what was written"));
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\L\\b.url"),
              "[InternetShortcut]\r\nURL=http://theirs/\r\n");
}

TEST_F(LinksCommandTest, ApplyRefusesATextThatIsOutOfStep) {
    ASSERT_EQ(Links({"edit", "--in", "L", "--to", "/tmp/t.txt"}), kDone);
    ReplaceInText("Arguments = %U\r\n", "");
    EXPECT_EQ(Links({"apply", "/tmp/t.txt"}), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: Record 1 of 2 lacks a line or has another one in its place. "
                     "Nothing was saved.\n");
    EXPECT_EQ(Links({"apply", "/tmp/none.txt"}), kBadRequest);
}

TEST_F(LinksCommandTest, EditReplacesATextOnlyWithYes) {
    Disk().AddFile("C:\\tmp\\t.txt", "mine");
    EXPECT_EQ(Links({"edit", "--in", "L", "--to", "/tmp/t.txt"}), kUnanswered);
    EXPECT_EQ(Disk().Content("C:\\tmp\\t.txt"), "mine");
    EXPECT_EQ(Links({"edit", "--in", "L", "--to", "/tmp/t.txt", "--yes"}), kDone);
}

TEST_F(LinksCommandTest, CheckPrintsWhoseTargetIsMissing) {
    EXPECT_EQ(Links({"check", "--in", "L"}), kSomeFailed);
    EXPECT_EQ(Out(), "/home/ann/L/a.desktop\t/opt/old/a\n");
    Disk().AddFile("C:\\opt\\old\\a");
    EXPECT_EQ(Links({"check", "--in", "L"}), kDone);
    EXPECT_EQ(Out(), "");
}

TEST_F(LinksCommandTest, NeedsAWord) {
    EXPECT_EQ(Links({}), kBadRequest);
}

} // namespace
} // namespace tarvix::cli
