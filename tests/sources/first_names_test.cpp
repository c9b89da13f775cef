#include "actions/request/first_names.h"
#include "actions/request/known_bytes.h"
#include "tests/sources/source_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// What the window shows of new names before anything is pressed.
class FirstNamesTest : public SourceFixture {
  protected:
    void AddPages(int count) {
        for (int i = 1; i <= count; ++i) {
            const std::string number = std::to_string(100 + i);
            Disk().AddFile("C:\\t\\" + number + ".htm", "<title>Page " + number + "</title>");
        }
    }
    std::vector<std::string> OfTitles() {
        return FirstNames(Form().mnuRenameSelFromTitle, [](fields::FrmDialog&) {});
    }
    std::vector<std::string> OfList(const std::string& content) {
        Disk().AddFile("C:\\list.txt", content);
        return FirstNames(Form().mnuRenameSelFromFile, List("C:\\list.txt"));
    }
    std::string Key(fields::MenuEntry& entry, const Fill& fill) {
        std::string key;
        LookInto(entry, [&](fields::FrmDialog& form) {
            fill(form);
            key = actions::FirstNamesKey(S());
        });
        return key;
    }
};

TEST_F(FirstNamesTest, TitlesAreShownWithWhatTheConflictCheckSays) {
    Disk().AddFile("C:\\t\\a.htm", "<title>T</title>");
    Disk().AddFile("C:\\t\\b.htm", "no title");
    Disk().AddFile("C:\\t\\c.htm", "<title>T</title>");
    Disk().AddFile("C:\\t\\T c.htm", "<title>X</title>");
    Find(0, "?.htm");
    EXPECT_THAT(OfTitles(), ElementsAre("C:\\t\\a.htm > C:\\t\\T a.htm: rename",
                                        "C:\\t\\b.htm > : left alone: no title in its page",
                                        "C:\\t\\c.htm > C:\\t\\T c_.htm: duplicate: rename"));
}

TEST_F(FirstNamesTest, AFolderWithoutAPageSaysSo) {
    Disk().AddFolder("C:\\t\\Empty");
    Find(3);
    EXPECT_THAT(OfTitles(), ElementsAre("C:\\t\\Empty > : left alone: no web page found"));
}

TEST_F(FirstNamesTest, APageWhoseTitleIsFarBehindSaysHowFarItWasLookedAt) {
    Disk().AddFile("C:\\t\\a.htm", std::string(1 << 20, ' ') + "<title>T</title>");
    Find();
    EXPECT_THAT(OfTitles(), ElementsAre("C:\\t\\a.htm > : left alone: no title in the first "
                                        "megabyte of its page"));
}

TEST_F(FirstNamesTest, WhatIsStillReadSaysSoAndTheRestIsShown) {
    AddPages(3);
    Find();
    actions::KnownBytes known;
    std::vector<std::string> shown;
    const auto look = [&] {
        shown.clear();
        for (const auto& row : actions::FirstNamesOf(S(), &known).rows)
            shown.push_back(row.object + " > " + row.newPath + ": " + row.verdict);
    };
    LookInto(Form().mnuRenameSelFromTitle, [&](fields::FrmDialog&) {
        look();
        EXPECT_THAT(shown,
                    ElementsAre("C:\\t\\101.htm > : reading...", "C:\\t\\102.htm > : reading...",
                                "C:\\t\\103.htm > : reading..."));
        EXPECT_THAT(known.TakeLacking(), ElementsAre(actions::FilePart{"C:\\t\\101.htm", 0},
                                                     actions::FilePart{"C:\\t\\102.htm", 0},
                                                     actions::FilePart{"C:\\t\\103.htm", 0}));
        known.Take({"C:\\t\\102.htm", 0}, "<title>Two</title>");
        known.Take({"C:\\t\\103.htm", 0}, platform::Failure(platform::kDeviceError, "broken"));
        look();
        EXPECT_THAT(shown, ElementsAre("C:\\t\\101.htm > : reading...",
                                       "C:\\t\\102.htm > C:\\t\\Two 102.htm: rename",
                                       "C:\\t\\103.htm > : failed"));
        known.Take({"C:\\t\\101.htm", 0}, "<title>One</title>");
        look();
        EXPECT_EQ(shown[0], "C:\\t\\101.htm > C:\\t\\One 101.htm: rename");
    });
    EXPECT_EQ(shown.size(), 3U);
}

TEST_F(FirstNamesTest, APageOfLinksThatIsStillReadIsNoRefusal) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Disk().AddFile("C:\\links.htm", "<a href=\"a.txt\">New</a>");
    Find();
    actions::KnownBytes known;
    actions::FirstNames first;
    LookInto(Form().mnuRenameSelFromHTMLSearch, [&](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\links.htm");
        first = actions::FirstNamesOf(S(), &known);
        EXPECT_EQ(first.note, "Reading...");
        EXPECT_THAT(known.TakeLacking(), ElementsAre(actions::FilePart{"C:\\links.htm", 0}));
        known.Take({"C:\\links.htm", 0}, "<a href=\"a.txt\">New</a>");
        first = actions::FirstNamesOf(S(), &known);
    });
    EXPECT_EQ(first.note, "");
    ASSERT_EQ(first.rows.size(), 1U);
    EXPECT_EQ(first.rows[0].newPath, "C:\\t\\New.txt");
}

TEST_F(FirstNamesTest, TwentyOfManyAreShown) {
    AddPages(45);
    Find();
    const auto shown = OfTitles();
    ASSERT_EQ(shown.size(), 21U);
    EXPECT_EQ(shown[0], "C:\\t\\101.htm > C:\\t\\Page 101 101.htm: rename");
    EXPECT_EQ(shown[19], "C:\\t\\120.htm > C:\\t\\Page 120 120.htm: rename");
    EXPECT_EQ(shown[20], "The first 20 of 45 objects. Preview shows all of them.");
}

TEST_F(FirstNamesTest, WhereTheNamesTakeTooLongNoneAreShown) {
    AddPages(3);
    Find();
    machine.clock.SetStep(1'000'000'000);
    EXPECT_THAT(OfTitles(), ElementsAre("It takes a while to find the names here: press Preview to "
                                        "see them."));
}

TEST_F(FirstNamesTest, AListThatEndsEarlyHasNoNameForTheRest) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Disk().AddFile("C:\\t\\b.txt", "2");
    Disk().AddFile("C:\\t\\c.txt", "3");
    Disk().AddFile("C:\\t\\x.txt", "4");
    Find(0, "?.txt");
    EXPECT_THAT(OfList("x\r\nb\r\n*EOF\r\n"),
                ElementsAre("C:\\t\\a.txt > C:\\t\\x_.txt: duplicate: rename",
                            "C:\\t\\b.txt > C:\\t\\b.txt: unchanged",
                            "C:\\t\\c.txt > : no new name", "C:\\t\\x.txt > : no new name"));
}

TEST_F(FirstNamesTest, FoldersStandInTheOrderOfTheListThoughTheyComeLast) {
    Disk().AddFile("C:\\t\\one\\z.txt", "1");
    Disk().AddFile("C:\\t\\two.txt", "2");
    Find(2, "one|two.txt");
    EXPECT_THAT(OfList("1\r\n2\r\n*EOF\r\n"), ElementsAre("C:\\t\\one > C:\\t\\1: rename",
                                                          "C:\\t\\two.txt > C:\\t\\2.txt: rename"));
}

TEST_F(FirstNamesTest, AListWithoutItsMarkIsToldInOneLineAndLeft) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Find();
    EXPECT_THAT(OfList("x"),
                ElementsAre("*EOF missing from end of text file. Ending Object renaming. Adding "
                            "*EOF mark for next usage."));
    EXPECT_EQ(Disk().Content("C:\\list.txt"), "x");
}

TEST_F(FirstNamesTest, WithoutAListItSaysWhatIsMissing) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Find();
    EXPECT_THAT(FirstNames(Form().mnuRenameSelFromFile, List("")),
                ElementsAre("You did not select an existing file name."));
    EXPECT_THAT(FirstNames(Form().mnuRenameSelFromHTMLSearch, List("C:\\no.htm")),
                ElementsAre("You did not select an existing html file name."));
}

TEST_F(FirstNamesTest, WholeNamesMayChangePlaces) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Disk().AddFile("C:\\t\\b.txt", "2");
    Disk().AddFile("C:\\list.txt", "b.txt\r\na.txt\r\n*EOF\r\n");
    Find();
    EXPECT_THAT(
        FirstNames(Form().mnuRenameSelFromFile, Whole("C:\\list.txt")),
        ElementsAre("C:\\t\\a.txt > C:\\t\\b.txt: rename", "C:\\t\\b.txt > C:\\t\\a.txt: rename"));
}

TEST_F(FirstNamesTest, WholeNamesAreCheckedTogetherBeyondTheFirstTwenty) {
    std::string list;
    for (int i = 10; i < 40; ++i) {
        const std::string name = std::to_string(i);
        Disk().AddFile("C:\\t\\" + name, "x");
        list += i == 39 ? "10\r\n" : "n" + name + "\r\n";
    }
    Disk().AddFile("C:\\list.txt", list + "*EOF\r\n");
    Find();
    const auto shown = FirstNames(Form().mnuRenameSelFromFile, Whole("C:\\list.txt"));
    ASSERT_EQ(shown.size(), 21U);
    EXPECT_EQ(shown[0], "C:\\t\\10 > C:\\t\\n10: rename");
    EXPECT_EQ(shown[20], "The first 20 of 30 objects. Preview shows all of them.");
    Disk().AddFile("C:\\list.txt", "n10\r\n*EOF\r\n");
    EXPECT_THAT(FirstNames(Form().mnuRenameSelFromFile, Whole("C:\\list.txt")),
                ElementsAre(HasSubstr("The list has 1 line for 30 objects")));
}

TEST_F(FirstNamesTest, OfThousandsOfWholeNamesPreviewIsPointedOut) {
    for (int i = 0; i < 1'001; ++i)
        Disk().AddFile("C:\\t\\" + std::to_string(1'000 + i), "x");
    Disk().AddFile("C:\\list.txt", "*EOF\r\n");
    Find();
    EXPECT_THAT(FirstNames(Form().mnuRenameSelFromFile, Whole("C:\\list.txt")),
                ElementsAre("The names of 1,001 objects are checked together: press Preview."));
}

TEST_F(FirstNamesTest, PrefixesAndLinks) {
    Disk().AddFile("C:\\t\\a.txt", "an Offer");
    Disk().AddFile("C:\\t\\b.txt", "nothing");
    Disk().AddFile("C:\\t\\c.txt", "");
    Disk().AddFile("C:\\p.txt", "offer\r\n*EOF\r\n");
    Disk().AddFile("C:\\p.htm", "<a href=\"b.txt\">Bee</a>");
    Find();
    EXPECT_THAT(FirstNames(Form().mnuRenameSelFromSelfSearch, List("C:\\p.txt")),
                ElementsAre("C:\\t\\a.txt > C:\\t\\(offer) a.txt: rename",
                            "C:\\t\\b.txt > : unchanged",
                            "C:\\t\\c.txt > : left alone: an empty file"));
    EXPECT_THAT(FirstNames(Form().mnuRenameSelFromHTMLSearch, List("C:\\p.htm")),
                ElementsAre("C:\\t\\a.txt > : unchanged", "C:\\t\\b.txt > C:\\t\\Bee.txt: rename",
                            "C:\\t\\c.txt > : unchanged"));
}

TEST_F(FirstNamesTest, CopiesWithTheNamesOfTheirFolders) {
    Disk().AddFile("C:\\t\\Rock\\Album\\cover.jpg", "1");
    Disk().AddFile("C:\\t\\Rock\\Live\\cover.jpg", "2");
    Disk().AddFolder("C:\\d");
    Disk().AddFile("C:\\d\\Live.jpg", "there");
    Find();
    EXPECT_THAT(FirstNames(Form().mnuTools_FolderSummary,
                           [this](fields::FrmDialog& form) {
                               Set(form.cmbDir, "C:\\d");
                               Set(form.txtFolderTree, "1");
                               Set(form.chkSkipAll, "1");
                           }),
                ElementsAre("C:\\t\\Rock\\Album\\cover.jpg > C:\\d\\Album.jpg: copy",
                            "C:\\t\\Rock\\Live\\cover.jpg > C:\\d\\Live.jpg: duplicate: skip"));
}

TEST_F(FirstNamesTest, TypedTextsShowWhatTheyMakeOfNames) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Disk().AddFile("C:\\t\\b.txt", "2");
    Disk().AddFile("C:\\t\\x b.txt", "3");
    Find(0, "?.txt");
    std::vector<std::string> shown;
    prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
        if (&form != &Dialog() || !shown.empty()) return false;
        const actions::FirstNames untyped = actions::FirstNamesOf(S());
        EXPECT_TRUE(untyped.rows.empty());
        EXPECT_EQ(untyped.note, "They show as soon as a text is typed.");
        Set(Dialog().chkAddBeg, "1");
        Set(Dialog().txtAdd, "x ");
        for (const auto& row : actions::FirstNamesOf(S()).rows)
            shown.push_back(row.object + " > " + row.newPath + ": " + row.verdict);
        Click(Dialog().CancelButton);
        return true;
    });
    Click(Form().cmdRenameSelected);
    prompts.SetModalRunner({});
    EXPECT_THAT(
        shown,
        ElementsAre("C:\\t\\a.txt > C:\\t\\x a.txt: rename",
                    "C:\\t\\b.txt > C:\\t\\b.txt: left alone: another object has that name"));
}

TEST_F(FirstNamesTest, TheKeyFollowsWhatTheNamesDependOn) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    Find();
    const std::string none = Key(Form().mnuRenameSelFromFile, List(""));
    EXPECT_NE(none, "");
    EXPECT_NE(Key(Form().mnuRenameSelFromFile, List("C:\\list.txt")), none);
    EXPECT_NE(Key(Form().mnuRenameSelFromFile, Whole("")), none);
    State().strAction = "Copy";
    EXPECT_EQ(actions::FirstNamesKey(S()), "");
}

} // namespace
} // namespace tarvix::testing
