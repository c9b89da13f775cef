#include "tests/sources/source_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class LinkTest : public SourceFixture {
  protected:
    void Rename(const std::string& page, int kind = 0) {
        Disk().AddFile("C:\\p.htm", page);
        Find(kind);
        Do(Form().mnuRenameSelFromHTMLSearch, List("C:\\p.htm"));
    }
};

TEST_F(LinkTest, TheTextOfTheLinkIsTheNewNameWithTheOldExtension) {
    Disk().AddFile("C:\\t\\01.mp3", "1");
    Disk().AddFile("C:\\t\\02.mp3", "2");
    Disk().AddFile("C:\\t\\03.mp3", "3");
    Rename("<A HREF=\"http://x/01.mp3\">Intro: part 1/2</A><a href='02.mp3'>Mr. Smith</a>");
    EXPECT_THAT(Files(), ElementsAre("03.mp3", "Intro- part 1-2.mp3", "Mr. Smith.mp3"));
    ExpectTotals(2, 1, 0);
    ExpectLog(
        {" User clicked the on the 'Rename Objects based on Html link' menu item which opened "
         "the Action form. ",
         " User selected to rename all files based on a search within this file: C:\\p.htm",
         " Was unable to rename C:\\t\\03.mp3 since no link to it was found in the html "
         "file."});
}

TEST_F(LinkTest, ATextWithAnExtensionKeepsThat) {
    Disk().AddFile("C:\\t\\get1", "1");
    Disk().AddFile("C:\\t\\x.tmp", "2");
    Rename("<a href=get1>Song.mp3</a> <a href=x.tmp>Film.avi</a>");
    EXPECT_THAT(Files(), ElementsAre("Film.avi", "Song.mp3"));
}

TEST_F(LinkTest, FoldersTakeLinksToo) {
    Disk().AddFolder("C:\\t\\a.b");
    Rename("<a href='x/a.b/'>Album one</a>", 3);
    EXPECT_THAT(Folders(), ElementsAre("Album one"));
}

TEST_F(LinkTest, ANameThatIsTakenGoesToTheRuleForDuplicates) {
    Disk().AddFile("C:\\t\\1.mp3", "1");
    Disk().AddFile("C:\\t\\2.mp3", "2");
    Rename("<a href=1.mp3>Download</a><a href=2.mp3>Download</a>");
    EXPECT_EQ(Content("Download.mp3"), "1");
    EXPECT_EQ(Content("Download_.mp3"), "2");
}

TEST_F(LinkTest, APageThatCannotBeReadIsTold) {
    Disk().AddFile("C:\\t\\1.mp3", "1");
    machine.faults.FailPath("C:\\p.htm", platform::kPermissionDenied, "ReadBytes");
    Rename("<a href=1.mp3>x</a>");
    EXPECT_THAT(Told(), Contains("File system object or network unavailable."));
    EXPECT_THAT(Files(), ElementsAre("1.mp3"));
}

TEST_F(LinkTest, APageThatIsNoneIsRefused) {
    Disk().AddFile("C:\\t\\1.mp3", "1");
    Find();
    Do(Form().mnuRenameSelFromHTMLSearch, List("C:\\gone.htm"));
    EXPECT_THAT(Told(), Contains("You did not select an existing html file name.\r\n\r\n"));
    EXPECT_TRUE(stayedOpen);
}

TEST_F(LinkTest, ThePreviewRenamesNothing) {
    Disk().AddFile("C:\\t\\1.mp3", "1");
    Disk().AddFile("C:\\p.htm", "<a href=1.mp3>x</a>");
    Find();
    EXPECT_THAT(Foretell(Form().mnuRenameSelFromHTMLSearch, List("C:\\p.htm")),
                ElementsAre("C:\\t\\x.mp3 - rename"));
}

} // namespace
} // namespace tarvix::testing
