#include "tests/support/program_fixture.h"
#include "text/characters.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class LongPaths : public ProgramFixture {
  protected:
    // "C:\t" and so many levels below it, each of `width` characters.
    static std::string Deep(int levels, std::size_t width) {
        std::string path = "C:\\t";
        for (int i = 0; i < levels; ++i) {
            const std::string number = std::to_string(i);
            path += "\\" + std::string(width - number.size(), 'd') + number;
        }
        return path;
    }
    void FindFiles(std::string_view pattern = "*.txt") {
        Start();
        WithSubfolders();
        Search(pattern, "C:\\t");
    }
};

TEST_F(LongPaths, APathOf259CharactersIsShownAsItIs) {
    const std::string folder = Deep(5, 49); // 254 characters
    const std::string path = folder + "\\.txt";
    ASSERT_EQ(path.size(), 259U);
    Disk().AddFile(folder + "\\.txt");
    Start();
    WithSubfolders();
    LookForAllAttributes();
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre(path));
    EXPECT_THAT(Cells(results::kPathNameLength), ElementsAre("259"));
}

TEST_F(LongPaths, APathOf260CharactersIsFoundAndShownInAFormThatOpens) {
    const std::string folder = Deep(5, 49);
    const std::string path = folder + "\\a.txt";
    ASSERT_EQ(path.size(), 260U);
    Disk().AddFile(path, "content");
    FindFiles();
    EXPECT_TRUE(Told().empty());
    EXPECT_THAT(Names(), ElementsAre("a.txt"));
    EXPECT_THAT(Cells(results::kPath), ElementsAre(folder)) << "the long folder";
    EXPECT_THAT(Cells(results::kPathNameLength), ElementsAre("260"));
    const std::string shown = Paths().at(0);
    EXPECT_LE(shown.size(), 259U);
    EXPECT_EQ(Disk().Content(shown), "content");
    EXPECT_TRUE(shown.ends_with(folder.substr(54) + "\\a.txt")) << "only what must be is short";
}

TEST_F(LongPaths, AFolderOver259CharactersShowsItsMixedForm) {
    const std::string folder = Deep(6, 49); // 304 characters
    Disk().AddFile(folder + "\\a.txt", "content");
    FindFiles();
    ASSERT_THAT(Names(), ElementsAre("a.txt"));
    const std::string shown = Cells(results::kPath).at(0);
    EXPECT_LE(shown.size(), 259U);
    EXPECT_TRUE(Disk().Exists(shown + "\\a.txt"));
    EXPECT_EQ(program.Rows().FullPath(0), folder + "\\a.txt");
}

TEST_F(LongPaths, APathOf3000CharactersIsFoundAndCopied) {
    const std::string folder = Deep(15, 199); // 3,004 characters
    Disk().AddFile(folder + "\\a.txt", "content");
    Disk().AddFile("C:\\t\\z.txt", "last");
    FindFiles();
    EXPECT_TRUE(Told().empty());
    ASSERT_THAT(Names(), ElementsAre("z.txt", "a.txt"));
    EXPECT_EQ(program.Rows().FullPath(1), folder + "\\a.txt");
    EXPECT_LE(Paths().at(1).size(), 259U);
    EXPECT_EQ(Disk().Content(Paths().at(1)), "content");
    CopyAll("C:\\copies");
    EXPECT_EQ(Disk().Content("C:\\copies\\a.txt"), "content");
}

TEST_F(LongPaths, OneThatNoShortFormBringsBelow260StopsTheSearchAndIsToldAndLogged) {
    Disk().AddFile(Deep(30, 99) + "\\a.txt"); // short forms of 12 characters a level
    Disk().AddFile("C:\\t\\z.txt");
    FindFiles();
    EXPECT_THAT(Names(), ElementsAre("z.txt")) << "what was found stays";
    ASSERT_EQ(Told().size(), 1U);
    const std::string told = Told()[0];
    EXPECT_TRUE(told.starts_with("\r\n\r\nRoutine - FindFilesInSubFolders is attempting to search "
                                 "with this: \r\n\r\nC:\\t\\"))
        << told;
    EXPECT_TRUE(told.ends_with(" characters. That search string is to long to used.")) << told;
    EXPECT_TRUE(HasEntry(LogText(), " " + told));
}

TEST_F(LongPaths, ASearchStringThatMakesTheSpecTooLongIsRefused) {
    Disk().AddFile("C:\\t\\z.txt");
    const std::string pattern = "*." + std::string(253, 'x'); // C:\t\ and 255 characters
    FindFiles(pattern);
    ASSERT_EQ(Told().size(), 1U);
    EXPECT_EQ(
        Told()[0],
        "\r\n\r\nRoutine - FindFilesAtRoot is attempting to search with this: \r\n\r\nC:\\t\\" +
            pattern + "\r\n\r\nIt contains 260 characters. That search string is to long to used.");
}

TEST_F(LongPaths, ASpecOf259CharactersIsNoRefusal) {
    Disk().AddFile("C:\\t\\z.txt");
    FindFiles("*." + std::string(252, 'x'));
    EXPECT_TRUE(Told().empty());
}

TEST_F(LongPaths, WithNotOnlyTheFolderCounts) {
    Disk().AddFile("C:\\t\\z.txt");
    Start();
    Set(Form().chkNot, "1");
    Search("*." + std::string(253, 'x'), "C:\\t");
    EXPECT_TRUE(Told().empty());
    EXPECT_THAT(Names(), ElementsAre("z.txt"));
}

TEST_F(LongPaths, ASearchMakesNoFolderEvenWhereOneVanishes) {
    const std::string folder = Deep(5, 60);
    Disk().AddFile(folder + "\\a.txt");
    Start();
    WithSubfolders();
    const std::string top = Deep(1, 60);
    std::shared_ptr<platform::TreeNode> gone;
    machine.faults.BeforeCall("List", 6, [&] { gone = Disk().Node(top)->Detach(); });
    Search("*.txt", "C:\\t");
    ASSERT_TRUE(gone);
    EXPECT_EQ(machine.faults.Count("CreateFolder"), 0U);
    EXPECT_FALSE(Disk().Exists(top));
}

} // namespace
} // namespace tarvix::testing
