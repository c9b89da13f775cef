// Names from lists, titles, links, prefixes, folders and an editor, by the real program on real
// files.
#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <map>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;

using Contents = std::map<std::string, std::string>;

class NameSources : public Trees {
  protected:
    ~NameSources() override {
        unsetenv("EDITOR");
        unsetenv("VISUAL");
    }
    Contents In(const fs::path& folder) const {
        Contents contents;
        for (const auto& entry : fs::directory_iterator(Root() / folder))
            contents[entry.path().filename().string()] = ReadAll(entry.path());
        return contents;
    }
    void Done(const std::vector<std::string>& arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err << outcome.out;
    }
    // A program that edits by this shell command; the list is "$1".
    void UseEditor(const std::string& command) {
        AddFile("editor", "#!/bin/sh\n" + command + "\n");
        fs::permissions(Root() / "editor", fs::perms::owner_all);
        unsetenv("VISUAL");
        setenv("EDITOR", (Root() / "editor").c_str(), 1);
    }
};

TEST_F(NameSources, TitlesOfPagesInTheirEncodings) {
    AddFile("p/a.htm", "<title>Tom &amp; J\xC3\xA9r\xC3\xB4me: 1/2</title>");
    AddFile("p/b.html", "<meta charset=windows-1251><title>\xCF\xF0\xE8\xE2\xE5\xF2</title>");
    AddFile("p/c.htm", "<meta charset=Shift_JIS><title>\x93\xFA\x96{</title>");
    AddFile("p/d.htm", "<title>caf\xE9</title>");
    AddFile("p/e.mp3", "song");
    AddFile("p/e.htm", "<TITLE>Three\n lines\n of it</TITLE>");
    Done({"rename", "*", "--in", "p", "--from-title", "--yes"});
    std::vector<std::string> names;
    for (const auto& [name, content] : In("p"))
        names.push_back(name);
    EXPECT_THAT(names, ::testing::UnorderedElementsAre(
                           "Tom & Jérôme 12 a.htm", "Привет b.html", "日本 c.htm", "café d.htm",
                           "Three lines of it e.mp3", "Three lines of it e.htm"));
}

TEST_F(NameSources, AListOfNamesWithOddOnes) {
    AddFile("p/a.txt", "a");
    AddFile("p/b\xFF.txt", "b");
    AddFile("p/c\n.txt", "c");
    AddFile("list.txt", "one: two?\nx\ny\n*EOF\n");
    Done({"rename", "*", "--in", "p", "--from-list", "list.txt", "--yes"});
    EXPECT_EQ(In("p"), (Contents{{"one: two?.txt", "a"}, {"x.txt", "b"}, {"y.txt", "c"}}));
}

TEST_F(NameSources, TheEditorGetsEveryNameAndLeavesWhatWasNotChanged) {
    for (const char* name :
         {"a.txt", "b\xFF.txt", "c\n.txt", " d", "e ", "*EOF", "\\x", "-n", "   "})
        AddFile(fs::path("p") / name, name);
    UseEditor("sed -i 's/^a[.]txt/A new: one?.md/' \"$1\"");
    const Outcome outcome = Run({"rename", "*", "--in", "p", "--edit", "--yes"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Renamed 1 of 9 objects; 8 unchanged."));
    Contents expected;
    for (const char* name : {"b\xFF.txt", "c\n.txt", " d", "e ", "*EOF", "\\x", "-n", "   "})
        expected[name] = name;
    expected["A new: one?.md"] = "a.txt";
    EXPECT_EQ(In("p"), expected);
}

TEST_F(NameSources, NamesChangePlacesInTheEditor) {
    for (const char* name : {"a", "b", "c", "d"})
        AddFile(fs::path("p") / name, name);
    UseEditor("printf 'b\\nc\\na\\nD\\n' > \"$1\"");
    const Outcome outcome = Run({"rename", "*", "--in", "p", "--edit"}, "y\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(In("p"), (Contents{{"b", "a"}, {"c", "b"}, {"a", "c"}, {"D", "d"}}));
    for (const auto& entry : fs::directory_iterator(DataFolder()))
        EXPECT_THAT(entry.path().filename().string(), ::testing::Not(HasSubstr("Rename List")));
}

TEST_F(NameSources, AnEditorThatFailsOrCannotStartRenamesNothing) {
    AddFile("p/a", "a");
    UseEditor("echo b > \"$1\"; exit 3");
    Outcome outcome = Run({"rename", "*", "--in", "p", "--edit", "--yes"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("ended with 3. Nothing was renamed."));
    EXPECT_THAT(outcome.err, HasSubstr("The list is kept: "));
    setenv("EDITOR", "/none/such", 1);
    outcome = Run({"rename", "*", "--in", "p", "--edit", "--yes"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("ended with 127. Nothing was renamed."));
    EXPECT_EQ(In("p"), (Contents{{"a", "a"}}));
}

TEST_F(NameSources, AListWithAnotherNumberOfLinesRenamesNothing) {
    AddFile("p/a", "a");
    AddFile("p/b", "b");
    UseEditor("echo x >> \"$1\"");
    const Outcome outcome = Run({"rename", "*", "--in", "p", "--edit", "--yes"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("The list has 3 lines for 2 objects"));
    EXPECT_EQ(In("p"), (Contents{{"a", "a"}, {"b", "b"}}));
}

TEST_F(NameSources, LinksAndPrefixes) {
    AddFile("p/01%20x.mp3", "1");
    AddFile("p/02.mp3", "2");
    AddFile("links.html", "<a href='http://x/02.mp3?dl=1'>Caf&eacute; <b>noir</b></a>");
    Done({"rename", "*.mp3", "--in", "p", "--from-links", "links.html", "--yes"});
    EXPECT_EQ(In("p"), (Contents{{"01%20x.mp3", "1"}, {"Café noir.mp3", "2"}}));
    AddFile("q/mail", "Subject: an Offer");
    AddFile("prefixes.txt", "offer\n*EOF\n");
    Done({"rename", "*", "--in", "q", "--prefix-from", "prefixes.txt", "--yes"});
    EXPECT_EQ(In("q"), (Contents{{"(offer) mail", "Subject: an Offer"}}));
}

TEST_F(NameSources, CopiesNamedAfterTheirFolders) {
    AddFile("m/Rock/One/cover.jpg", "1");
    AddFile("m/Rock/Two/cover.jpg", "2");
    AddFolder("out");
    Done({"copy", "cover.jpg", "--in", "m", "--to", "out", "--name-from-folders", "2", "--yes",
          "--answer", "OK"}); // where a folder above has a dot in its name, it is asked about
    EXPECT_EQ(In("out"), (Contents{{"Rock One.jpg", "1"}, {"Rock Two.jpg", "2"}}));
}

TEST_F(NameSources, ANameThatIsTooLongForTheDiskIsToldBefore) {
    AddFile("p/a", "a");
    UseEditor("head -c 300 /dev/zero | tr '\\0' x > \"$1\"");
    const Outcome outcome = Run({"rename", "*", "--in", "p", "--edit", "--yes"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("is too long for a name."));
    EXPECT_EQ(In("p"), (Contents{{"a", "a"}}));
}

} // namespace
} // namespace tarvix::endtoend
