#include "shortcuts/formats/utf7.h"
#include "shortcuts/formats/values.h"
#include "tests/shortcuts/shortcut_files.h"

namespace tarvix::shortcuts {
namespace {

Values ReadUrl(std::string_view text) {
    return Read(Kind::kUrl, text);
}

std::string EditUrl(std::string_view text, Field field, std::string value) {
    Edits edits;
    edits[field] = std::move(value);
    const Edited edited = Edit(Kind::kUrl, text, edits);
    return edited ? *edited : "refused: " + edited.error();
}

constexpr std::string_view kPlain = "[InternetShortcut]\r\nURL=http://a/\r\nfoo=bar\r\n";

TEST(InternetShortcuts, OfNoLengthHaveNothing) {
    EXPECT_EQ(ReadUrl(""), Values{});
}

TEST(InternetShortcuts, ThatTheDataHasHaveHotKeyAndIcon) {
    const Values values = ReadUrl(testing::ShortcutBytes("url/handmade/h01_full.url"));
    EXPECT_EQ(values, (Values{"http://example.com/x", "", "", "1652", "", "",
                              "C:\\windows\\system32\\shell32.dll,4"}));
}

TEST(InternetShortcuts, TakeTheLastHotKeyAndIconLines) {
    const Values values =
        ReadUrl("[InternetShortcut]\nHotKey=1\nhotkey=2\nICONFILE=a\niconfile=b\n");
    EXPECT_EQ(values[kHotKey], "2");
    EXPECT_EQ(values[kIcon], "b,");
}

TEST(InternetShortcuts, WithAnIndexAloneShowItBehindAComma) {
    EXPECT_EQ(ReadUrl("[InternetShortcut]\r\nIconIndex=-3\r\n")[kIcon], ",-3");
}

TEST(InternetShortcuts, OfEachEncodingAreRead) {
    EXPECT_EQ(ReadUrl("[InternetShortcut]\r\nURL=http://a/\xC3\xA9\r\n")[kTarget],
              "http://a/\u00E9");
    EXPECT_EQ(ReadUrl("[InternetShortcut]\r\nURL=http://a/\xE9\r\n")[kTarget], "http://a/\u00E9");
    const std::string wide("\xFF\xFE[\0I\0n\0t\0e\0r\0n\0e\0t\0S\0h\0o\0r\0t\0c\0u\0t\0]\0\r\0\n\0"
                           "U\0R\0L\0=\0\x0D\x54\r\0\n\0",
                           56);
    EXPECT_EQ(ReadUrl(wide)[kTarget], "\u540D");
    std::string swapped = wide;
    for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) {
        std::swap(swapped[i], swapped[i + 1]);
    }
    EXPECT_EQ(ReadUrl(swapped)[kTarget], "\u540D");
    EXPECT_EQ(ReadUrl(EditUrl(swapped, kTarget, "http://\u540D/"))[kTarget], "http://\u540D/");
    EXPECT_EQ(EditUrl(wide, kTarget, "x").substr(0, 44), wide.substr(0, 44));
}

TEST(InternetShortcuts, TakeTheUnicodeTwinFirst) {
    const std::string text = "[InternetShortcut]\r\nURL=http://a/?\r\n[InternetShortcut.A]\r\n"
                             "URL=http://a/?\r\n[InternetShortcut.W]\r\nURL=http://a/+VA0-\r\n";
    EXPECT_EQ(ReadUrl(text)[kTarget], "http://a/\u540D");
    EXPECT_EQ(EditUrl(text, kTarget, "http://b/"),
              "[InternetShortcut]\r\nURL=http://b/\r\n[InternetShortcut.A]\r\n"
              "[InternetShortcut.W]\r\nURL=http://b/\r\n");
}

TEST(InternetShortcuts, KeepAllLinesButTheOneThatIsSet) {
    EXPECT_EQ(EditUrl(kPlain, kTarget, "ftp://b/\u00E9"),
              "[InternetShortcut]\r\nURL=ftp://b/\xC3\xA9\r\nfoo=bar\r\n");
    EXPECT_EQ(EditUrl("; x\n[a]\nURL=no\n[internetshortcut]\nurl = http://a/\n\n[b]\nk\n", kTarget,
                      "http://b/"),
              "; x\n[a]\nURL=no\n[internetshortcut]\nurl =http://b/\n\n[b]\nk\n");
}

TEST(InternetShortcuts, GetALineForWhatTheyLack) {
    EXPECT_EQ(EditUrl(kPlain, kHotKey, "1601"), std::string(kPlain) + "HotKey=1601\r\n");
    EXPECT_EQ(EditUrl(kPlain, kIcon, "C:\\a,b.ico,2"),
              std::string(kPlain) + "IconIndex=2\r\nIconFile=C:\\a,b.ico\r\n");
    EXPECT_EQ(EditUrl(kPlain, kIcon, "x.ico"), std::string(kPlain) + "IconFile=x.ico\r\n");
    EXPECT_EQ(EditUrl(kPlain, kHotKey, ""), kPlain);
    EXPECT_EQ(EditUrl("[InternetShortcut]\r\nURL=a", kHotKey, "1"),
              "[InternetShortcut]\r\nURL=a\r\nHotKey=1\r\n");
}

TEST(InternetShortcuts, GetItInTheirOwnSection) {
    EXPECT_EQ(EditUrl("[InternetShortcut]\r\nURL=a\r\n\r\n[x]\r\ny=z\r\n", kHotKey, "1"),
              "[InternetShortcut]\r\nURL=a\r\nHotKey=1\r\n\r\n[x]\r\ny=z\r\n");
}

TEST(InternetShortcuts, KeepTheOldIconForAnEmptyOne) {
    const std::string text = testing::ShortcutBytes("url/handmade/h01_full.url");
    EXPECT_EQ(EditUrl(text, kIcon, ""), text);
}

TEST(InternetShortcuts, KeepACodePageAndGetATwinForWhatItLacks) {
    const std::string text = "[InternetShortcut]\r\nURL=http://a/\xE9\r\nk=\xE8\r\n";
    EXPECT_EQ(EditUrl(text, kTarget, "http://a/\u00FC"),
              "[InternetShortcut]\r\nURL=http://a/\xFC\r\nk=\xE8\r\n");
    EXPECT_EQ(EditUrl(text, kTarget, "http://a/\u540D"),
              "[InternetShortcut]\r\nURL=http://a/?\r\nk=\xE8\r\n"
              "[InternetShortcut.W]\r\nURL=http://a/+VA0-\r\n");
}

TEST(InternetShortcuts, OfMoreThan500LinesLoseNone) {
    std::string text(kPlain);
    for (int i = 0; i < 900; ++i) {
        text += "k" + std::to_string(i) + "=v\r\n";
    }
    EXPECT_EQ(EditUrl(text, kHotKey, "5"), text + "HotKey=5\r\n");
}

// What random bytes have shown.
TEST(InternetShortcuts, ThatEndInATwinGetASectionForWhatTheyLack) {
    EXPECT_EQ(EditUrl("[InternetShortcut.A]\r\nIconIndex=4\r\nIconFile=a\r\n", kIcon, "b,7"),
              "[InternetShortcut.A]\r\n[InternetShortcut]\r\nIconIndex=7\r\nIconFile=b\r\n");
    const std::string wide = EditUrl("[InternetShortcut.W]\r\nURL=x\r\n", kHotKey, "1601");
    EXPECT_EQ(wide, "[InternetShortcut.W]\r\nURL=x\r\n[InternetShortcut]\r\nHotKey=1601\r\n");
    EXPECT_EQ(ReadUrl(wide)[kHotKey], "1601");
}

TEST(InternetShortcuts, LoseOnlyTheTwinOfWhatIsSet) {
    const std::string text =
        EditUrl("[InternetShortcut.W]\r\nA=1\r\n[InternetShortcut.A]\r\nURL=x\r\n"
                "IconFile=\x80\r\n[InternetShortcut]\r\nURL=y\r\n",
                kTarget, "http://\u540D/");
    EXPECT_EQ(ReadUrl(text)[kTarget], "http://\u540D/");
    EXPECT_NE(text.find("\r\n[InternetShortcut.A]\r\nIconFile=\x80\r\n[InternetShortcut]\r\n"),
              std::string::npos)
        << text;
}

TEST(InternetShortcuts, ThatEndInHalfALineKeepIt) {
    EXPECT_EQ(EditUrl("[InternetShortcut]\nURL=a\nHotKey=1\r", kIcon, "x,1"),
              "[InternetShortcut]\nURL=a\nHotKey=1\r\r\nIconIndex=1\nIconFile=x\n");
    const std::string wide("\xFE\xFF\0[\0a\0]\0\n\0", 11);
    EXPECT_EQ(EditUrl(wide, kHotKey, "1"),
              std::string("\xFE\xFF\0[\0a\0]\0\n\0H\0o\0t\0K\0e\0y\0=\0001\0\n\0", 29));
}

TEST(InternetShortcuts, RefuseWhatTheyCannotHold) {
    EXPECT_EQ(EditUrl(kPlain, kArguments, "x"),
              "refused: A .url file has only a target, a hot key and an icon.");
    EXPECT_EQ(EditUrl(kPlain, kTarget, " "), "refused: A shortcut can't be without a target.");
    EXPECT_EQ(EditUrl(kPlain, kHotKey, "1\nURL=evil"),
              "refused: A value of a .url file can't hold a line break.");
}

TEST(Utf7, GoesBothWays) {
    for (const auto& [text, coded] :
         std::initializer_list<std::pair<std::string, std::string>>{{"a+b", "a+-b"},
                                                                    {"\u540D", "+VA0-"},
                                                                    {"C:\\x~", "C:+AFw-x+AH4-"},
                                                                    {"\U0001F600.", "+2D3eAA-."}}) {
        EXPECT_EQ(ToUtf7(text), coded);
        EXPECT_EQ(FromUtf7(coded), text);
    }
}

} // namespace
} // namespace tarvix::shortcuts
