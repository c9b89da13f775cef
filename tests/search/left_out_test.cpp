#include "search/left_out.h"
#include "session/user_input.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

using search::LeftOutText;

class LeftOutOf : public ProgramFixture {
  protected:
    LeftOutOf() {
        Disk().AddFile("C:\\m\\plain.txt", "12345");
        Disk().AddFile("C:\\m\\kept.txt", "12345").attributes |= platform::kReadOnly;
        Disk().AddFile("C:\\m\\.hidden.txt", "12345").attributes |=
            platform::kReadOnly | platform::kHidden;
        Disk().AddFile("C:\\m\\other.mp3", "1").attributes |= platform::kHidden;
    }
    std::string Told() { return LeftOutText(State().leftOut); }
};

TEST_F(LeftOutOf, IsCountedByTheFirstBoxThatRefusesIt) {
    Start();
    Search("*.txt", "C:\\m");
    EXPECT_EQ(Names(), (std::vector<std::string>{"plain.txt"}));
    EXPECT_EQ(Told(), "Left out: 2 read only");
    EXPECT_TRUE(Form().cmdLeftOut.Visible);
    EXPECT_EQ(Form().cmdLeftOut.Caption.Get(), "Left out: 2 read only. Find them too");
}

TEST_F(LeftOutOf, IsNothingThatFailsAnotherTest) {
    Start();
    Set(Form().chkSize, "1");
    Set(Form().txtSize1, "6");
    Search("*", "C:\\m");
    EXPECT_EQ(Told(), "");
    EXPECT_FALSE(Form().cmdLeftOut.Visible);
}

TEST_F(LeftOutOf, CountsAnObjectOnceHoweverManyStringsFindIt) {
    Start();
    prompts.Queue("No");
    Search("*.txt|k*|o*", "C:\\m");
    EXPECT_EQ(Told(), "Left out: 2 read only, 1 hidden");
}

TEST_F(LeftOutOf, LacksWhatWasAskedForAndCountsNot) {
    Start();
    Set(Form().chkHidden, "1");
    Search("*", "C:\\m");
    EXPECT_EQ(Told(), "Left out: 1 read only");
}

TEST_F(LeftOutOf, IsFoundByTheButton) {
    Start();
    Search("*.txt", "C:\\m");
    Click(Form().cmdLeftOut);
    EXPECT_EQ(Form().chkReadOnly.Value, 2);
    EXPECT_EQ(Form().chkHidden.Value, 0);
    EXPECT_EQ(Names(), (std::vector<std::string>{"kept.txt", "plain.txt"}));
    EXPECT_EQ(Told(), "Left out: 1 hidden");
    Click(Form().cmdLeftOut);
    EXPECT_EQ(Names().size(), 3U);
    EXPECT_FALSE(Form().cmdLeftOut.Visible);
}

TEST_F(LeftOutOf, IsNotAskedForWhereOneFileOfEachFolderIsWanted) {
    Start();
    Set(Form().chkOneEach, "1");
    Search("*", "C:\\m");
    EXPECT_EQ(Told(), "");
}

TEST_F(LeftOutOf, CountsFoldersToo) {
    Disk().AddFolder("C:\\m\\sub").attributes |= platform::kHidden;
    Start();
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\m");
    EXPECT_EQ(Told(), "Left out: 1 hidden");
}

TEST_F(LeftOutOf, IsFoundByTheButtonForAnAttributeWithoutBox) {
    Disk().Node("C:\\m\\plain.txt")->attributes |= platform::kEncrypted;
    Disk().Node("C:\\m\\kept.txt")->attributes |= platform::kEncrypted;
    Start();
    Search("plain*|kept*", "C:\\m");
    EXPECT_EQ(Form().cmdLeftOut.Caption.Get(),
              "Left out: 2 with attributes that have no box. Find them too");
    Click(Form().cmdLeftOut);
    EXPECT_EQ(Names(), (std::vector<std::string>{"plain.txt"}));
    EXPECT_EQ(Told(), "Left out: 1 read only");
    Click(Form().cmdLeftOut);
    EXPECT_EQ(Names(), (std::vector<std::string>{"plain.txt", "kept.txt"}));
    EXPECT_EQ(Told(), "");
    Search("other*", "C:\\m");
    EXPECT_EQ(Told(), "Left out: 1 hidden");
}

TEST(LeftOutTexts, NameTheMostFirstWithThousands) {
    session::LeftOut leftOut;
    leftOut.byBox[0] = 648;
    leftOut.byBox[4] = 16'012;
    leftOut.byBox[8] = 1;
    EXPECT_EQ(LeftOutText(leftOut), "Left out: 16,012 links, 648 read only, 1 special file");
    leftOut = {};
    leftOut.byBox[4] = leftOut.byBox[2] = 1;
    EXPECT_EQ(LeftOutText(leftOut), "Left out: 1 system object, 1 link");
    EXPECT_EQ(LeftOutText({}), "");
}

} // namespace
} // namespace tarvix::testing
