#include "tests/sources/source_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class PrefixTest : public SourceFixture {
  protected:
    void Rename(const std::string& prefixes, int kind = 0) {
        Disk().AddFile("C:\\p.txt", prefixes);
        Find(kind);
        Do(Form().mnuRenameSelFromSelfSearch, List("C:\\p.txt"));
    }
};

TEST_F(PrefixTest, ThePrefixStandsInParenthesesAndABlankBeforeTheOldName) {
    Disk().AddFile("C:\\t\\mail 1.eml", "From: ann@x\r\nSubject: INVOICE 7");
    Disk().AddFile("C:\\t\\mail 2.tar.gz", "nothing");
    Rename("Offer\r\nInvoice\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("(Invoice) mail 1.eml", "mail 2.tar.gz"));
    ExpectTotals(1, 1, 0);
    EXPECT_EQ(Totals().unchanged, 1);
    ExpectLog({" User clicked the on the 'Rename by adding prefix' menu item which opened the "
               "Action form. ",
               " User selected to rename all files based on a search of itself for prefixes within "
               "this file: C:\\p.txt"});
}

TEST_F(PrefixTest, TheNoteComesFirst) {
    Disk().AddFile("C:\\t\\a", "x");
    Rename("x\r\n*EOF");
    EXPECT_EQ(Told().front(),
              "You MUST have already created a file of possible prefixes \r\nto search for within "
              "the files to be renamed.\r\n\r\nIf the text prefix is found within the file, it "
              "will be renamed \r\nwith that prefix in parentheses. ex - (Prefix)old "
              "filename.ext");
}

TEST_F(PrefixTest, TheFirstLineThatIsFoundCounts) {
    Disk().AddFile("C:\\t\\a", "two and one");
    Rename("one\r\ntwo\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("(one) a"));
}

TEST_F(PrefixTest, ABlankLineIsPassedOverAndWhatNoNameMayHoldIsReplaced) {
    Disk().AddFile("C:\\t\\a", "Re: what?");
    Rename("\r\nRe: what?\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("(Re- what!) a"));
}

TEST_F(PrefixTest, FoldersAndEmptyFilesAreToldOnceAndLoggedEach) {
    Disk().AddFile("C:\\t\\empty", "");
    Disk().AddFile("C:\\t\\full", "x");
    Disk().AddFolder("C:\\t\\sub");
    Rename("x\r\n*EOF", 2);
    EXPECT_EQ(TimesTold("nothing to search. "), 1U);
    EXPECT_TRUE(WasTold("For this action, you will get no more warnings about names like this."));
    EXPECT_TRUE(WasTold("Turning on 'Automatic Mode' will stop this message completely."));
    ExpectLog({" You have selected to rename a folder object or an empty file, C:\\t\\empty "
               "nothing to search. ",
               " You have selected to rename a folder object or an empty file, C:\\t\\sub "
               "nothing to search. "});
    ExpectTotals(1, 2, 0);
}

TEST_F(PrefixTest, InAutomaticModeTheWarningIsOnlyLogged) {
    Disk().AddFile("C:\\t\\empty", "");
    Find();
    State().options.blnAutoMode = true;
    Rename("x\r\n*EOF");
    EXPECT_EQ(TimesTold("nothing to search. "), 0U);
}

TEST_F(PrefixTest, AListWithoutLinesOrMarkIsRefused) {
    Disk().AddFile("C:\\t\\a", "x");
    Rename("");
    EXPECT_THAT(Told(), Contains("List of Prefixes for renaming, File is empty."));
    Rename("x");
    EXPECT_TRUE(WasTold("*EOF missing from end of text file."));
    EXPECT_EQ(Disk().Content("C:\\p.txt"), "x\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("a"));
}

TEST_F(PrefixTest, ANameThatIsTakenGoesToTheRuleForDuplicates) {
    Disk().AddFile("C:\\t\\a.txt", "x");
    Disk().AddFile("C:\\t\\(x) a.txt", "-");
    Rename("x\r\n*EOF");
    EXPECT_THAT(Files(), ElementsAre("(x) a.txt", "(x) a_.txt"));
}

TEST_F(PrefixTest, ThePreviewReadsAndRenamesNothing) {
    Disk().AddFile("C:\\t\\a.txt", "x");
    Disk().AddFile("C:\\t\\b.txt", "-");
    Disk().AddFile("C:\\p.txt", "x\r\n*EOF");
    Find();
    EXPECT_THAT(Foretell(Form().mnuRenameSelFromSelfSearch, List("C:\\p.txt")),
                ElementsAre("C:\\t\\(x) a.txt - rename", " - unchanged"));
}

} // namespace
} // namespace tarvix::testing
