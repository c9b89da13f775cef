#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// One search and what it prints, the temporary folder shown as ROOT.
struct Line {
    std::vector<std::string> arguments;
    std::string out;
    int exitCode = 0;
};

class SearchTest : public Trees {
  protected:
    void Check(const std::vector<Line>& lines) {
        for (const Line& line : lines) {
            std::vector<std::string> words{"search"};
            words.insert(words.end(), line.arguments.begin(), line.arguments.end());
            const Outcome outcome = Run(words);
            const std::string shown = ::testing::PrintToString(line.arguments);
            EXPECT_EQ(outcome.exitCode, line.exitCode) << shown << "\n" << outcome.err;
            EXPECT_EQ(Shown(outcome.out), line.out) << shown;
        }
    }
};

TEST_F(SearchTest, Basic) {
    MakeBasic();
    Check({
        {{"*.mp3", "--in", "basic"},
         "ROOT/basic/a.mp3\nROOT/basic/sub/c.mp3\nROOT/basic/sub/D.MP3\n"},
        {{"*.mp3", "--in", "basic", "--no-subfolders"}, "ROOT/basic/a.mp3\n"},
        {{"A.MP3", "--in", "basic"}, "ROOT/basic/a.mp3\n"},
        {{"d", "--in", "basic"}, "ROOT/basic/sub/D.MP3\nROOT/basic/sub/none.dat\n"},
        {{"?.txt", "--in", "basic"}, "ROOT/basic/b.txt\nROOT/basic/sub/below/e.txt\n"},
        {{"*.mp3|*.dat", "--in", "basic/sub"},
         "ROOT/basic/sub/c.mp3\nROOT/basic/sub/D.MP3\nROOT/basic/sub/none.dat\n"},
        {{"*.mp3", "*.dat", "--in", "basic/sub/below|basic/vacant"}, ""},
        {{"*", "--in", "basic", "--kind", "empty-files"}, "ROOT/basic/sub/none.dat\n"},
        {{"*", "--in", "basic", "--kind", "empty-folders"}, "ROOT/basic/vacant\n"},
        {{"*", "--in", "basic", "--kind", "folders"},
         "ROOT/basic/sub/below\nROOT/basic/sub\nROOT/basic/vacant\n"},
        {{"b*", "--in", "basic", "--kind", "all"}, "ROOT/basic/b.txt\nROOT/basic/sub/below\n"},
        {{"*.mp3", "--in", "basic", "--not"},
         "ROOT/basic/b.txt\nROOT/basic/sub/below/e.txt\nROOT/basic/sub/none.dat\n"},
        {{"*.mp3", "--in", "basic", "--one-each"}, "ROOT/basic/a.mp3\nROOT/basic/sub/c.mp3\n"},
        {{"*", "--in", "basic", "--size-at-least", "2K"}, "ROOT/basic/sub/c.mp3\n"},
        {{"*", "--in", "basic", "--size-range", "5..10"}, "ROOT/basic/a.mp3\nROOT/basic/b.txt\n"},
        {{"*", "--in", "basic", "--before", "2025-03-04 05:06:06"}, ""},
        {{"a*", "--in", "basic", "--before", "2025-03-04 05:06:07"}, "ROOT/basic/a.mp3\n"},
        {{"a*", "--in", "basic", "--between", "2025-03-04..2025-03-04"}, "ROOT/basic/a.mp3\n"},
        {{"a*", "--in", "basic", "--since", "2025-03-05"}, ""},
        {{"a*", "--in", "basic", "--since", "this year"}, "ROOT/basic/a.mp3\n"},
        {{"a*", "--in", "basic", "--since", "last 7 days"}, ""},
        {{"a*", "--in", "basic", "--between", "2025-03"}, "ROOT/basic/a.mp3\n"},
        {{"a*", "--in", "basic", "--between", "last month"}, ""},
        {{"a*", "--in", "basic", "--between", "2025-03-01..yesterday"}, "ROOT/basic/a.mp3\n"},
        {{"*", "--in", "basic", "--size-at-least", "1.5 kB"}, "ROOT/basic/sub/c.mp3\n"},
        {{"*", "--in", "basic", "--size-at-least", "3 GiB"}, ""},
        {{"*", "--in", "basic", "--size-range", "2 K..3000000000"}, "ROOT/basic/sub/c.mp3\n"},
    });
}

// Their facts are read in portions on a second thread.
TEST_F(SearchTest, ManyFilesInOneFolderKeepTheirOwnSizes) {
    std::string all;
    std::string some;
    for (int size = 1000; size < 4000; ++size) {
        const std::string name = "f" + std::to_string(size);
        AddFile("many/" + name, std::string(static_cast<std::size_t>(size), 'x'));
        std::string shown = std::to_string(size);
        shown.insert(1, ",");
        const std::string line = name + "\t000,000,00" + shown + "\n";
        all += line;
        if (size >= 1500 && size <= 3333) some += line;
    }
    AddFile("many/sub/below", "12345");
    Check({
        {{"*", "--in", "many", "--no-subfolders", "--columns", "Name,SizeSubItem"}, all},
        {{"*", "--in", "many", "--columns", "Name,SizeSubItem"}, "below\t000,000,000,005\n" + all},
        {{"f*", "--in", "many", "--size-range", "1500..3333", "--columns", "Name,SizeSubItem"},
         some},
    });
}

TEST_F(SearchTest, LocationsComeInEveryForm) {
    MakeBasic();
    const std::string root = Root().string();
    std::string drive = "C:" + root + "/basic/sub/below";
    std::ranges::replace(drive, '/', '\\');
    for (const std::string& location :
         {root + "/basic/sub/below", "file://" + root + "/basic/sub/below", drive,
          std::string("basic/../basic/./sub/below/")}) {
        Check({{{"*", "--in", location}, "ROOT/basic/sub/below/e.txt\n"}});
    }
}

TEST_F(SearchTest, ADriveOfItsOwn) {
    MakeBasic();
    ASSERT_EQ(Run({"options", "set", "PathForm", "drive"}).exitCode, 0);
    const Outcome outcome = Run({"--drive", "X=basic/sub", "search", "e.txt", "--in", "X:\\below",
                                 "--columns", "PathNameSubItem,NativePath"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(Shown(outcome.out), "X:\\below\\e.txt\tROOT/basic/sub/below/e.txt\n");
}

TEST_F(SearchTest, LinksAreListedAndNeverWalked) {
    MakeLinks();
    Check({
        {{"*", "--in", "links"}, "ROOT/links/real/file.txt\n"},
        {{"*", "--in", "links", "--alias", "any"},
         "ROOT/links/dangling.txt\nROOT/links/real/file.txt\nROOT/links/to-file.txt\n"},
        {{"*", "--in", "links", "--alias", "yes", "--kind", "folders"}, "ROOT/links/to-folder\n"},
        {{"*", "--in", "links/to-folder"}, "ROOT/links/to-folder/file.txt\n"},
    });
}

TEST_F(SearchTest, LoopsEnd) {
    MakeLoops();
    Check({
        {{"file*", "--in", "loops", "--any-attribute"}, "ROOT/loops/in/file.txt\n"},
        {{"*", "--in", "loops", "--any-attribute", "--kind", "folders"},
         "ROOT/loops/in\nROOT/loops/in/up\n"},
        {{"*", "--in", "loops", "--alias", "yes"},
         "ROOT/loops/one\nROOT/loops/self\nROOT/loops/two\n"},
    });
}

TEST_F(SearchTest, WeirdNamesArriveByteForByte) {
    MakeWeird();
    Check({
        {{"colon*", "--in", "weird"}, "ROOT/weird/colon:1.txt\n"},
        {{"hash#*", "--in", "weird"}, "ROOT/weird/hash#1.txt\n"},
        {{"[brackets].txt", "--in", "weird"}, "ROOT/weird/[brackets].txt\n"},
        {{"--in", "weird", "--", "-dash*"}, "ROOT/weird/-dash.txt\n"},
        {{"tab*", "--in", "weird", "--columns", "Name"}, "tab\\there.txt\n"},
        {{"line*", "--in", "weird", "--print0"}, std::string("ROOT/weird/line\nend.txt\0", 24)},
        {{"größe*", "--in", "weird"}, "ROOT/weird/Größe.txt\n"},
        {{"inside*", "--in", "weird/folder: odd|one"}, "ROOT/weird/folder: odd|one/inside.txt\n"},
    });
}

TEST_F(SearchTest, DeepPathsAreFoundAndPrintedInFull) {
    MakeDeep();
    const Outcome outcome = Run({"search", "*.txt", "--in", "deep"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 12);
    EXPECT_THAT(outcome.out, HasSubstr("/a folder with a rather long name 12/file.txt\n"));
}

TEST_F(SearchTest, EmptyTreesHaveNoFiles) {
    MakeEmpty();
    Check({
        {{"*", "--in", "empty"}, ""},
        {{"*", "--in", "empty", "--kind", "empty-folders"}, "ROOT/empty/a/b\nROOT/empty/c\n"},
    });
}

TEST_F(SearchTest, AttributesTellKindsApart) {
    MakeKinds();
    Check({
        {{"*", "--in", "kinds"}, "ROOT/kinds/plain.txt\n"},
        {{"*", "--in", "kinds", "--hidden", "yes"}, "ROOT/kinds/.hidden.txt\n"},
        {{"*", "--in", "kinds", "--read-only", "yes"}, "ROOT/kinds/locked.txt\n"},
        {{"*", "--in", "kinds", "--64", "yes"}, "ROOT/kinds/pipe.txt\n"},
    });
}

TEST_F(SearchTest, OutputFormats) {
    MakeBasic();
    Check({
        {{"b.txt", "--in", "basic", "--tsv", "--columns",
          "Name,SizeSubItem,DateSubItem,ExtSubItem"},
         "Name\tSize\tDate\tExt\nb.txt\t000,000,000,010\t2025/03/04 05:06:07\ttxt\n"},
        {{"b.txt", "--in", "basic", "--json", "--columns", "Name,SizeSubItem"},
         "{\"Name\":\"b.txt\",\"SizeSubItem\":\"000,000,000,010\","
         "\"NativePath\":\"ROOT/basic/b.txt\",\"Bytes\":10}\n"},
        {{"*.txt", "--in", "basic", "--sort", "SizeSubItem:desc"},
         "ROOT/basic/b.txt\nROOT/basic/sub/below/e.txt\n"},
    });
}

TEST_F(SearchTest, LoadsNothingOfTheDesktop) {
    AddFile("tree/a.txt");
    beforeProgram = [] { setenv("LD_DEBUG", "libs", 1); };
    const Outcome outcome = Run({"search", "*", "--in", (Root() / "tree").string()});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.err, HasSubstr("calling init"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("libgio")));
}

} // namespace
} // namespace tarvix::endtoend
