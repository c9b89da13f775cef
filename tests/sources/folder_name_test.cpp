#include "tests/sources/source_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FolderNameTest : public SourceFixture {
  protected:
    FolderNameTest() {
        Disk().AddFile("C:\\t\\Rock\\Album\\cover.jpg", "1");
        Disk().AddFile("C:\\t\\Rock\\Album\\back.jpg", "2");
        Disk().AddFile("C:\\t\\Rock\\Live\\cover", "3");
        Disk().AddFolder("C:\\d");
    }
    Fill To(const std::string& levels, const char* box = "chkRename") {
        return [this, levels, box](fields::FrmDialog& form) {
            EXPECT_EQ(form.lblFolderTree.Caption.Get(), "Number of folder names to use: ");
            EXPECT_EQ(form.txtFolderTree.ToolTipText.Get(),
                      "Start folder count form the right, but name will be in correct path order.");
            Set(form.cmbDir, "C:\\d");
            Set(form.txtFolderTree, levels);
            Set(*form.Find(box), "1");
        };
    }
    std::vector<std::string> Copies() {
        std::vector<std::string> names;
        for (const std::string& path : Disk().AllFiles())
            if (path.starts_with("C:\\d\\")) names.push_back(path.substr(5));
        return names;
    }
};

TEST_F(FolderNameTest, TheLastFoldersBecomeTheName) {
    Find(0, "cover*");
    Do(Form().mnuTools_FolderSummary, To("2"));
    EXPECT_THAT(Copies(), ElementsAre("Rock Album.jpg", "Rock Live"));
    EXPECT_EQ(Disk().Content("C:\\t\\Rock\\Album\\cover.jpg"), "1");
    ExpectLog({" User clicked the on the 'Summarize Objects' menu item which opened the Action "
               "form. "});
    EXPECT_TRUE(WasTold("Are you sure you want to Copy Files and Rename as Folder Name to: C:\\d"));
    EXPECT_FALSE(Names().empty()) << "a copy leaves the list";
}

TEST_F(FolderNameTest, TheSecondOneOfAFolderIsMadeUniqueFromItsNewName) {
    Find();
    Do(Form().mnuTools_FolderSummary, To("2"));
    EXPECT_THAT(Copies(), ElementsAre("Rock Album.jpg", "Rock Album_.jpg", "Rock Live"));
}

TEST_F(FolderNameTest, ADotOfAFolderIsNoExtension) {
    Disk().AddFile("C:\\t\\Vol. 1\\one", "a");
    Disk().AddFile("C:\\t\\Vol. 1\\two", "b");
    Find(0, "one|two");
    Do(Form().mnuTools_FolderSummary, To("1"));
    EXPECT_THAT(Copies(), ElementsAre("Vol. 1", "Vol. 1_"));
}

TEST_F(FolderNameTest, DuplicatesMayBeSkipped) {
    Find();
    Do(Form().mnuTools_FolderSummary, To("1", "chkSkipAll"));
    EXPECT_THAT(Copies(), ElementsAre("Album.jpg", "Live"));
    EXPECT_EQ(Totals().duplicates, 1);
}

TEST_F(FolderNameTest, MoreNamesThanFoldersGiveTheWholePath) {
    Find(0, "cover.jpg");
    Do(Form().mnuTools_FolderSummary, To("99"));
    EXPECT_THAT(Copies(), ElementsAre("C  t Rock Album.jpg"));
}

TEST_F(FolderNameTest, WithoutANumberNothingIsCopied) {
    Find();
    Do(Form().mnuTools_FolderSummary, To("0"));
    EXPECT_TRUE(WasTold("Must have a selected more than one Folder name to use."));
    EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(FolderNameTest, ThePreviewTellsTheNames) {
    Find(0, "*.jpg");
    EXPECT_THAT(
        Foretell(Form().mnuTools_FolderSummary, To("2")),
        ElementsAre("C:\\d\\Rock Album.jpg - copy", "C:\\d\\Rock Album_.jpg - duplicate: rename"));
}

} // namespace
} // namespace tarvix::testing
