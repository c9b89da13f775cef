#include "actions/sources/page_links.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::actions {
namespace {

using namespace std::string_literals;

class PageLinksTest : public ::testing::Test {
  protected:
    std::string Text(const std::string& page, std::string_view name) {
        machine.disk.AddFile("C:\\p.htm", page);
        const auto links =
            ReadLinks(machine.disk, machine.contentTypes, "C:\\p.htm", [] { return true; });
        return std::string(links->TextFor(name));
    }
    platform::MemoryPlatform machine;
};

TEST_F(PageLinksTest, ALinkIsFoundByTheLastNameOfItsTarget) {
    const std::string page = "<A HREF=\"http://x/y/a.mp3\">First song</A>\n"
                             "<a class=x href='b.mp3'>Second</a> <a\nhref=c.mp3>Third</a>";
    EXPECT_EQ(Text(page, "a.mp3"), "First song");
    EXPECT_EQ(Text(page, "B.MP3"), "Second");
    EXPECT_EQ(Text(page, "c.mp3"), "Third");
    EXPECT_EQ(Text(page, "y"), "First song");
    EXPECT_EQ(Text(page, "mp3"), "");
    EXPECT_EQ(Text(page, "aa.mp3"), "");
    EXPECT_EQ(Text(page, ""), "");
}

TEST_F(PageLinksTest, EscapesAndReferencesOfATargetAreDecoded) {
    EXPECT_EQ(Text("<a href=\"My%20Song%c3%a9.mp3\">x</a>", "My Songé.mp3"), "x");
    EXPECT_EQ(Text("<a href=\"Tom &amp; Jerry.avi\">x</a>", "Tom & Jerry.avi"), "x");
    EXPECT_EQ(Text("<a href=\"get.php?id=1&amp;file=a.mp3#top\">x</a>", "a.mp3"), "x");
    EXPECT_EQ(Text("<a href=\"a.mp3?dl=1\">x</a>", "a.mp3"), "x");
    EXPECT_EQ(Text("<a href=\"What?.mp3\">x</a>", "What?.mp3"), "x");
    EXPECT_EQ(Text("<a href=\"100%.mp3\">x</a>", "100%.mp3"), "x");
    EXPECT_EQ(Text("<a href=\"Albums/Abba/\">x</a>", "Abba"), "x");
}

TEST_F(PageLinksTest, TheTextIsWhatStandsBeforeTheEnd) {
    EXPECT_EQ(Text("<a href=a.b><b>Bold</b> &amp; <i>more</i></a>", "a.b"), "Bold & more");
    EXPECT_EQ(Text("<a href=a.b>\n   Two\n   lines </a>", "a.b"), "Two lines");
    EXPECT_EQ(Text("<a href=a.b><img src='x>y'></a><a href=a.b>Named</a>", "a.b"), "Named");
    EXPECT_EQ(Text("<a href=a.b>open <a href=c.d>next</a>", "a.b"), "open");
    EXPECT_EQ(Text("<a href=a.b>One</a><a href=a.b>Two</a>", "a.b"), "One");
    EXPECT_EQ(Text("<a data-href=a.b>One</a><a name=x>y</a>", "a.b"), "");
    EXPECT_EQ(Text("<a href=a.b>never ended", "a.b"), "");
    EXPECT_EQ(Text("<abbr href=a.b>x</abbr>", "a.b"), "");
}

TEST_F(PageLinksTest, LinksMayLieOverTheEndOfABlock) {
    for (std::size_t before : {65530U, 65536U - 3U, 65536U, 65536U * 2 - 10U}) {
        const std::string page = std::string(before, ' ') + "<a href=\"a.b\">Over</a>";
        EXPECT_EQ(Text(page, "a.b"), "Over") << before;
    }
}

TEST_F(PageLinksTest, WhatIsNoLinkIsPassedOver) {
    const std::string link = "<a href=a.b>Found</a>";
    EXPECT_EQ(Text("<a href=\"" + std::string(200'000, 'x') + link, "a.b"), "Found");
    EXPECT_EQ(Text("<a href=z>" + std::string(200'000, 'x') + link, "a.b"), "Found");
    std::string many;
    for (int i = 0; i < 100'000; ++i)
        many += "<a ";
    EXPECT_EQ(Text(many + ">" + link, "a.b"), "Found");
}

TEST_F(PageLinksTest, TwoByteCharactersAreRead) {
    std::string page = "\xFF\xFE";
    for (const char c : "<a href=\"a.b\">Wide</a>"s) {
        page += c;
        page += '\0';
    }
    EXPECT_EQ(Text(page, "a.b"), "Wide");
}

TEST_F(PageLinksTest, TheTextIsInTheEncodingOfThePage) {
    EXPECT_EQ(Text("<a href=a.b>caf\xE9</a>", "a.b"), "café");
    EXPECT_EQ(Text("<meta charset=utf-8><a href=a.b>caf\xC3\xA9</a>", "a.b"), "café");
}

} // namespace
} // namespace tarvix::actions
