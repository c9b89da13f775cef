#include "actions/sources/page_title.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::actions {
namespace {

using namespace std::string_literals;

class PageTitleTest : public ::testing::Test {
  protected:
    std::string Title(std::string_view page) {
        return TitleOf(machine.contentTypes, page).value_or("(none)");
    }
    platform::MemoryPlatform machine;
};

TEST_F(PageTitleTest, IsFoundInAnyCaseAndWithAttributes) {
    EXPECT_EQ(Title("<html><head><TITLE>One</TITLE>"), "One");
    EXPECT_EQ(Title("<title lang=\"de\">Zwei</Title>"), "Zwei");
    EXPECT_EQ(Title("<title>Three</title >"), "Three");
    EXPECT_EQ(Title("x"), "(none)");
    EXPECT_EQ(Title(""), "(none)");
    EXPECT_EQ(Title("<title>"), "(none)");
    EXPECT_EQ(Title("<title>open"), "(none)");
    EXPECT_EQ(Title("<title</title>"), "(none)");
    EXPECT_EQ(Title("<title></title>"), "");
}

TEST_F(PageTitleTest, SpreadOverThreeLinesIsJoinedWithNoSeparator) {
    EXPECT_EQ(Title("<title>One\r\nTwo\nThree</title>"), "OneTwoThree");
    EXPECT_EQ(Title("<title\n>A</ti\ntle>"), "A");
}

TEST_F(PageTitleTest, ReferencesAreDecoded) {
    EXPECT_EQ(Title("<title>Tom &amp; Jerry &#8211; caf&eacute;</title>"), "Tom & Jerry – café");
}

TEST_F(PageTitleTest, TheEncodingIsThatOfThePage) {
    EXPECT_EQ(Title("<title>caf\xC3\xA9</title>"), "café");
    EXPECT_EQ(Title("<title>caf\xE9 \x93x\x94</title>"), "café “x”");
    EXPECT_EQ(Title("\xEF\xBB\xBF<title>caf\xC3\xA9</title>"), "café");
    EXPECT_EQ(Title("<meta charset=\"iso-8859-1\"><title>caf\xE9</title>"), "café");
    EXPECT_EQ(Title("<title>caf\xE9</title><meta charset=utf-8>"), "café") << "it isn't that";
    EXPECT_EQ(Title("\xFF\xFE<\0t\0i\0t\0l\0e\0>\0\xE9\0<\0/\0t\0i\0t\0l\0e\0>\0"s), "é");
    EXPECT_EQ(Title("\xFE\xFF\0<\0t\0i\0t\0l\0e\0>\xD8\x3D\xDE\0\0<\0/\0t\0i\0t\0l\0e\0>"s), "😀");
}

TEST_F(PageTitleTest, ADeclaredCharacterSetIsAskedOfTheMachine) {
    machine.contentTypes.SetDecoder([](std::string_view bytes, std::string_view charset) {
        return "[" + std::string(charset) + ":" + std::string(bytes) + "]";
    });
    EXPECT_EQ(Title("<meta http-equiv=content-type content='text/html; charset=Koi8-R'>"
                    "<title>x</title>"),
              "[KOI8-R:x]");
    EXPECT_EQ(Title("<?xml version='1.0' encoding=\"Shift_JIS\"?><title>x</title>"),
              "[SHIFT_JIS:x]");
    machine.contentTypes.SetDecoder({});
    EXPECT_EQ(Title("<meta charset=nonsense><title>caf\xE9</title>"), "café");
}

TEST_F(PageTitleTest, OnlyTheFirstMegabyteIsRead) {
    std::string page(kTitleLimit + 100, ' ');
    page += "<title>late</title>";
    machine.disk.AddFile("C:\\a.htm", page);
    auto read = ReadTitle(machine.disk, machine.contentTypes, "C:\\a.htm");
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->title);
    EXPECT_FALSE(read->isWhole);
    page.replace(kTitleLimit - 200, 20, "<title>early</title>");
    machine.disk.AddFile("C:\\b.htm", page);
    read = ReadTitle(machine.disk, machine.contentTypes, "C:\\b.htm");
    EXPECT_EQ(read->title, "early");
    machine.disk.AddFile("C:\\c.htm", "none");
    read = ReadTitle(machine.disk, machine.contentTypes, "C:\\c.htm");
    EXPECT_FALSE(read->title);
    EXPECT_TRUE(read->isWhole);
    EXPECT_FALSE(ReadTitle(machine.disk, machine.contentTypes, "C:\\gone.htm"));
}

TEST_F(PageTitleTest, MayLieOverTheEndOfABlock) {
    for (std::size_t before : {65530U, 65535U, 65536U, 131066U}) {
        machine.disk.AddFile("C:\\a.htm", std::string(before, 'x') + "<title>Over</title>");
        const auto read = ReadTitle(machine.disk, machine.contentTypes, "C:\\a.htm");
        EXPECT_EQ(read->title, "Over") << before;
    }
}

} // namespace
} // namespace tarvix::actions
