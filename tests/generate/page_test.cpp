#include "generate/list_request.h"
#include "generate/page.h"
#include "tests/generate/generate_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// A shell link that names its target in an environment block.
std::string ShellLink(std::string_view target) {
    std::string link("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20);
    link += std::string("\0\x02\0\0", 4);
    link.resize(0x4C);
    std::string block("\x14\x03\0\0\x01\0\0\xA0", 8);
    block += target;
    block.resize(8 + 260 + 520);
    return link + block + std::string(4, '\0');
}

class Pages : public GenerateFixture {
  protected:
    Pages() {
        Disk().AddFile("C:\\t\\a b.txt");
        Disk().AddFile("C:\\t\\b.lnk", ShellLink("C:\\Program Files\\x.exe"));
        Disk().AddFile("C:\\t\\site.url",
                       "[InternetShortcut]\r\nURL=http://example.com/?a=1&b=2\r\n");
    }
    std::string Page(const std::string& file, const std::string& text,
                     std::vector<std::string> answers = {"OK"}) {
        prompts.Queue(text);
        return Write(Form().mnuTools_CreateHtml, file, std::move(answers));
    }
};

TEST_F(Pages, InDriveFormStandByteForByte) {
    InDriveForm();
    Disk().AddFile("C:\\t\\sub\\c.txt");
    Find();
    EXPECT_EQ(Page("C:\\d\\Links.htm", "PN"), Data("page_drive.htm"));
}

TEST_F(Pages, InNativeFormHaveAddressesAndEscapedTexts) {
    Disk().AddNative("C:\\t\\sub", "c#?%<.txt");
    Disk().AddFile("C:\\t\\sub\\Ä.txt");
    Find();
    EXPECT_EQ(Page("C:\\d\\Links & more.htm", "PN"), Data("page_native.htm"));
}

TEST_F(Pages, BelowTheirFolderAreRelative) {
    Disk().AddNative("C:\\A\\b", "c#.txt");
    Disk().AddFile("C:\\A\\x.txt");
    Find(0, "*", "C:\\A\\b|C:\\A");
    Click(Form().cmdSelectNone);
    Find(0, "*", "C:\\A");
    const std::string page = Page("C:\\A\\Page.htm", "R");
    EXPECT_THAT(page, HasSubstr("\t<a href=\"b/c%23.txt\">\r\n\t\tb/c#.txt</a><br>\r\n\r\n"));
    EXPECT_THAT(page, HasSubstr("\t<a href=\"x.txt\">\r\n\t\tx.txt</a><br>\r\n\r\n"));
}

TEST_F(Pages, InDriveFormBelowTheirFolderAreRelativeInAnyCase) {
    InDriveForm();
    Disk().AddFile("C:\\A\\b\\c.txt");
    Find(0, "*", "C:\\A");
    EXPECT_THAT(Page("C:\\a\\Page.htm", "R"),
                HasSubstr("\t<a href=\"b\\c.txt\">\r\n\t\tb\\c.txt</a><br>\r\n\r\n"));
}

TEST_F(Pages, TheTitleLosesFourCharactersWhateverTheyAre) {
    Find();
    EXPECT_THAT(Page("C:\\d\\Links.html", "N"), HasSubstr("<TITLE>Links.</TITLE>"));
    EXPECT_THAT(Page("C:\\d\\Links.htm", "N"), HasSubstr("<TITLE>Links</TITLE>"));
}

TEST_F(Pages, TheTextIsWhatWasChosen) {
    InDriveForm();
    Find();
    const std::string names = Page("C:\\d\\n.htm", "N");
    EXPECT_THAT(names, HasSubstr("\t\ta b.txt</a>"));
    EXPECT_THAT(names, HasSubstr("\t\tb</a>"));
    EXPECT_THAT(names, HasSubstr("\t\tsite</a>"));
    const std::string paths = Page("C:\\d\\p.htm", "P");
    EXPECT_THAT(paths, HasSubstr("\t\tC:\\t</a>"));
    EXPECT_THAT(paths, HasSubstr("\t\tfile:///C:/Program%20Files/x.exe</a>"));
    const std::string folders = Page("C:\\d\\f.htm", "F");
    EXPECT_THAT(folders, HasSubstr("\t\tt</a>"));
    EXPECT_THAT(folders, HasSubstr("\t\tProgram%20Files</a>"));
}

TEST_F(Pages, AFolderNamedLikeAShortcutIsAFolder) {
    InDriveForm();
    Disk().AddFolder("C:\\t\\site2.url");
    Find(3);
    EXPECT_THAT(Page("C:\\d\\n.htm", "P"),
                HasSubstr("<a href=\"C:\\t\\site2.url\">\r\n\t\tC:\\t\\site2.url</a>"));
}

TEST_F(Pages, AShortcutWithoutATargetIsAFileLikeOthers) {
    Disk().AddFile("C:\\t\\broken.lnk", "no link at all");
    Find();
    EXPECT_THAT(Page("C:\\d\\n.htm", "N"),
                HasSubstr("<a href=\"file:///t/broken.lnk\">\r\n\t\tbroken.lnk</a>"));
}

TEST_F(Pages, NeverHaveTheMarkOfTheEnd) {
    Find();
    Dialog().chkAddEOF.Value = 1;
    EXPECT_THAT(Page("C:\\d\\n.htm", "N"), Not(HasSubstr("*EOF")));
}

TEST_F(Pages, AreProposedInTheDeepestFolderThatHoldsAll) {
    Disk().AddFile("C:\\t\\sub\\x\\1.txt");
    Disk().AddFile("C:\\t\\sub\\xy\\2.txt");
    Find(0, "?.txt");
    Page("C:\\d\\n.htm", "N");
    EXPECT_EQ(proposed, "C:\\t\\sub\\New Web Page.htm");
    Find();
    Page("C:\\d\\n.htm", "N");
    EXPECT_EQ(proposed, "C:\\t\\New Web Page.htm");
}

TEST_F(Pages, OfObjectsOnTwoDrivesAreProposedInTheFirstLocation) {
    Disk().AddDrive("E:");
    Disk().AddFile("E:\\x.txt");
    Find(0, "*", "C:\\t|E:\\");
    Page("C:\\d\\n.htm", "N");
    EXPECT_TRUE(WasTold("All selected objects do not reside in one location"));
    EXPECT_EQ(proposed, "C:\\t\\New Web Page.htm");
}

TEST_F(Pages, WithoutAnAnswerNothingHappens) {
    Find();
    prompts.Queue("");
    Do(Form().mnuTools_CreateHtml, {});
    EXPECT_FALSE(wasShown);
}

TEST(PageTexts, AreReadFromLettersAndWords) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"n", "N"},      {"Name Only", "N"}, {"path\\name", "PN"}, {"path only", "P"},
        {"Parent", "F"}, {"relative", "R"},  {"'name only'", "N"}, {"'path\\name'", "PN"},
        {"'Path", "P"},  {"'parent", "F"},   {"'r", "R"},          {"p", "P"},
        {"pn", "PN"},    {"f", "F"},         {"x", "PN"},          {"PAT", "PN"},
    };
    for (const auto& [answer, text] : rows) {
        EXPECT_EQ(generate::ReadPageText(answer), text) << answer;
    }
}

TEST(FileAddresses, LoseATrailingBackslashAndTheirBlanks) {
    EXPECT_EQ(generate::ToFileUrl("C:\\My Docs\\a b\\"), "file:///C:/My%20Docs/a%20b");
}

} // namespace
} // namespace tarvix::testing
