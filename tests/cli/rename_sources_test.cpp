#include "platform/native_paths.h"
#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class RenameSources : public CliFixture {
  protected:
    RenameSources() {
        for (const char* name : {"a.txt", "b.txt", "c.txt"})
            Add(name, name);
    }
    void Add(const std::string& name, std::string_view content) {
        Disk().AddFile("C:\\home\\ann\\L\\" + name, content);
    }
    int Rename(std::vector<std::string> more) {
        more.insert(more.begin(), {"rename", "*", "--in", "L"});
        return Run(more);
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const std::string& path : Disk().AllFiles())
            if (path.starts_with("C:\\home\\ann\\L\\")) names.push_back(path.substr(14));
        return names;
    }
    std::string Content(const std::string& name) {
        return Disk().Content("C:\\home\\ann\\L\\" + name).value_or("(none)");
    }
    // The editor gives the list this content, and ends well.
    void EditTo(const std::string& text) {
        edit = [this, text](const std::string& file) -> std::expected<void, std::string> {
            list = machine.paths.ToDrive(file);
            shown = Disk().Content(list).value_or("(none)");
            Disk().AddFile(list, text);
            return {};
        };
    }
    std::string list;  // that was edited last, drive path
    std::string shown; // as it was before
};

TEST_F(RenameSources, ByAList) {
    Disk().AddFile("C:\\home\\ann\\names.txt", "x\nb\nz\n*EOF\n");
    EXPECT_EQ(Rename({"--from-list", "names.txt", "--yes"}), kDone);
    EXPECT_EQ(Out(), "Renamed 2 of 3 objects; 1 unchanged.\n");
    EXPECT_EQ(Err(), "");
    EXPECT_THAT(Names(), ElementsAre("b.txt", "x.txt", "z.txt"));
}

TEST_F(RenameSources, WithoutYesNothingIsRenamed) {
    Disk().AddFile("C:\\home\\ann\\names.txt", "x\ny\nz\n*EOF\n");
    EXPECT_EQ(Rename({"--from-list", "names.txt"}), kUnanswered);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(RenameSources, AListThatIsTooShortIsTold) {
    Disk().AddFile("C:\\home\\ann\\names.txt", "x\n*EOF\n");
    EXPECT_EQ(Rename({"--from-list", "names.txt", "--yes"}), kSomeFailed);
    EXPECT_EQ(Out(), "Renamed 1 of 3 objects; 2 not reached.\n");
    EXPECT_THAT(Err(), HasSubstr("There were more objects to rename than names in the list."));
}

TEST_F(RenameSources, AListWithoutItsMarkIsABadRequest) {
    Disk().AddFile("C:\\home\\ann\\names.txt", "x\ny\nz\n");
    EXPECT_EQ(Rename({"--from-list", "names.txt", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("*EOF missing from end of text file."));
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
    EXPECT_EQ(Rename({"--from-list", "none.txt", "--yes"}), kBadRequest);
}

TEST_F(RenameSources, WholeNamesMayChangePlaces) {
    Disk().AddFile("C:\\home\\ann\\names.txt", "b.txt\na.txt\nc.md\n");
    EXPECT_EQ(Rename({"--from-list", "names.txt", "--whole-names", "--yes"}), kDone);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.md"));
    EXPECT_EQ(Content("a.txt"), "b.txt");
}

TEST_F(RenameSources, ByTitlesLinksAndPrefixes) {
    Add("p.htm", "<title>The page</title>");
    EXPECT_EQ(Run({"rename", "p.htm", "--in", "L", "--from-title", "--yes"}), kDone);
    EXPECT_EQ(Err(), "");
    Disk().AddFile("C:\\home\\ann\\links.htm", "<a href=a.txt>Alpha</a>");
    EXPECT_EQ(Run({"rename", "a.txt", "--in", "L", "--from-links", "links.htm", "--yes"}), kDone);
    Disk().AddFile("C:\\home\\ann\\prefixes.txt", "B.T\n*EOF\n");
    EXPECT_EQ(Run({"rename", "?.txt", "--in", "L", "--prefix-from", "prefixes.txt", "--yes"}),
              kDone);
    EXPECT_EQ(Out(), "Renamed 1 of 2 objects; 1 unchanged.\n");
    EXPECT_THAT(Names(), ElementsAre("(B.T) b.txt", "Alpha.txt", "c.txt", "The page p.htm"));
}

TEST_F(RenameSources, ADryRunTellsAndChangesNothing) {
    Disk().AddFile("C:\\home\\ann\\names.txt", "b\nb\nz\n*EOF\n");
    EXPECT_EQ(Rename({"--from-list", "names.txt", "--dry-run"}), kDone);
    EXPECT_EQ(Out(), "duplicate: rename\t/home/ann/L/a.txt\t/home/ann/L/b_.txt\n"
                     "unchanged\t/home/ann/L/b.txt\t/home/ann/L/b.txt\n"
                     "rename\t/home/ann/L/c.txt\t/home/ann/L/z.txt\n");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(RenameSources, OneSourceAtATime) {
    EXPECT_EQ(Rename({"--from-title", "--edit"}), kBadRequest);
    EXPECT_EQ(Rename({"--from-title", "--insert", "x"}), kBadRequest);
    EXPECT_EQ(Rename({"--from-list", "x", "--from-links", "y"}), kBadRequest);
    EXPECT_EQ(Rename({"--whole-names", "--insert", "x"}), kBadRequest);
    EXPECT_EQ(Rename({}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("Say what to do with the names"));
}

TEST_F(RenameSources, NamesGoThroughTheEditorAndBack) {
    EditTo("b.txt\na.txt\nsee.md\n");
    EXPECT_EQ(Rename({"--edit", "--yes"}), kDone);
    EXPECT_EQ(shown, "a.txt\r\nb.txt\r\nc.txt\r\n");
    EXPECT_EQ(Out(), "rename\t/home/ann/L/b.txt\t/home/ann/L/a.txt\n"
                     "rename\t/home/ann/L/a.txt\t/home/ann/L/b.txt\n"
                     "rename\t/home/ann/L/c.txt\t/home/ann/L/see.md\n"
                     "Renamed 3 of 3 objects.\n");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "see.md"));
    EXPECT_EQ(Content("a.txt"), "b.txt");
    EXPECT_EQ(Content("b.txt"), "a.txt");
    EXPECT_FALSE(Disk().Exists(list));
}

TEST_F(RenameSources, TheChangesAreShownAndAskedAbout) {
    EditTo("a.txt\nb.txt\nx.txt\n");
    in.str("n\n");
    EXPECT_EQ(Rename({"--edit"}), kBadRequest);
    EXPECT_EQ(Out(), "rename\t/home/ann/L/c.txt\t/home/ann/L/x.txt\n");
    EXPECT_THAT(Err(), HasSubstr("Rename 1 object as shown? [y/N] "));
    EXPECT_THAT(Err(), HasSubstr("Nothing was renamed."));
    EXPECT_THAT(Err(), HasSubstr("The list is kept: "));
    EXPECT_TRUE(Disk().Exists(list));
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
    in.clear();
    in.str("y\n");
    EXPECT_EQ(Rename({"--edit"}), kDone);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "x.txt"));
    in.clear();
    in.str("");
    EditTo("a\nb\nx\n");
    EXPECT_EQ(Rename({"--edit"}), kUnanswered);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "x.txt"));
}

TEST_F(RenameSources, AnEditorThatFailsRenamesNothing) {
    edit = [](const std::string&) { return std::unexpected("The editor \"x\" ended with 1."); };
    EXPECT_EQ(Rename({"--edit", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("The editor \"x\" ended with 1. Nothing was renamed."));
    edit = {};
    EXPECT_EQ(Rename({"--edit", "--yes"}), kBadRequest);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(RenameSources, AListWithAnotherNumberOfLinesRenamesNothing) {
    EditTo("x\ny\n");
    EXPECT_EQ(Rename({"--edit", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("The list has 2 lines for 3 objects"));
    EXPECT_THAT(Err(), HasSubstr("The list is kept: "));
    EditTo("x\nx\nz\n");
    EXPECT_EQ(Rename({"--edit", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("would both be called x."));
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(RenameSources, AListThatWasNotChangedIsNoWork) {
    EditTo("a.txt\r\nb.txt\r\nc.txt\r\n");
    EXPECT_EQ(Rename({"--edit"}), kDone);
    EXPECT_EQ(Out(), "Renamed 0 of 3 objects; 3 unchanged.\n");
    EXPECT_FALSE(Disk().Exists(list));
}

TEST_F(RenameSources, ACopyGetsItsNameFromItsFolders) {
    Disk().AddFile("C:\\home\\ann\\M\\Rock\\One\\cover.jpg", "1");
    Disk().AddFile("C:\\home\\ann\\M\\Rock\\One\\back.jpg", "2");
    EXPECT_EQ(Run({"copy", "*.jpg", "--in", "M", "--to", "/tmp/out", "--name-from-folders", "2",
                   "--on-duplicate", "rename", "--yes"}),
              kDone);
    EXPECT_EQ(Out(), "Copied 2 of 2 objects.\n");
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\out\\Rock One.jpg"));
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\out\\Rock One_.jpg"));
    EXPECT_EQ(Run({"copy", "*.jpg", "--in", "M", "--to", "/tmp/out", "--name-from-folders", "2",
                   "--structure", "backup", "--yes"}),
              kBadRequest);
}

} // namespace
} // namespace tarvix::cli
