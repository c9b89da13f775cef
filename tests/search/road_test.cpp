#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class SearchRoad : public ProgramFixture {};

TEST_F(SearchRoad, FindsMatchingFilesInSubfoldersAndCopiesThem) {
    Disk().AddFile("C:\\home\\ann\\Music\\a.mp3", "1");
    Disk().AddFile("C:\\home\\ann\\Music\\sub\\b.mp3", "22");
    Disk().AddFile("C:\\home\\ann\\Music\\sub\\c.txt", "333");
    Start();
    Click(Form().chkIncludeSubFolders);
    Search("*.mp3", "C:\\home\\ann\\Music");
    EXPECT_THAT(Paths(),
                ElementsAre("C:\\home\\ann\\Music\\a.mp3", "C:\\home\\ann\\Music\\sub\\b.mp3"));
    Click(Form().cmdSelectAll);
    EXPECT_EQ(Form().lblTotalSize.Caption.Get(), "3");
    prompts.SetModalRunner([this](session::Session&, fields::Form&) {
        Set(S().frmDialog.cmbDir, "C:\\home\\ann\\Copies\\Songs");
        prompts.Queue("OK");
        Click(S().frmDialog.OKButton);
        return true;
    });
    Click(Form().cmdCopySelected);
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\Copies\\Songs\\a.mp3"), "1");
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\Copies\\Songs\\b.mp3"), "22");
}

} // namespace
} // namespace tarvix::testing
