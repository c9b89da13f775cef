#include "shortcuts/formats/values.h"

#include <gtest/gtest.h>

namespace tarvix::shortcuts {
namespace {

constexpr std::string_view kEditor = "# made by hand\n"
                                     "[Desktop Entry]\n"
                                     "Type=Application\n"
                                     "Name=Editor\n"
                                     "Name[de]=Schreiber\n"
                                     "Comment=Write\\stexts\n"
                                     "Comment[de]=Texte schreiben\n"
                                     "Exec=\"/opt/my editor/run\" --new %F\n"
                                     "Path=/srv/work\n"
                                     "Icon=editor\n"
                                     "Terminal=false\n"
                                     "X-Unknown=1\n"
                                     "\n"
                                     "[Desktop Action new]\n"
                                     "Exec=/opt/other\n"
                                     "Comment=other\n";

std::string EditEntry(std::string_view text, Field field, std::string value) {
    Edits edits;
    edits[field] = std::move(value);
    const Edited edited = Edit(Kind::kDesktop, text, edits);
    return edited ? *edited : "refused: " + edited.error();
}

std::string With(std::string_view line, std::string_view other) {
    std::string text(kEditor);
    return text.replace(text.find(line), line.size(), other);
}

TEST(DesktopEntries, FillTheSameColumns) {
    EXPECT_EQ(Read(Kind::kDesktop, kEditor), (Values{"/opt/my editor/run", "--new %F", "/srv/work",
                                                     "", "Normal", "Write texts", "editor"}));
    EXPECT_EQ(Read(Kind::kDesktop, "[Desktop Entry]\nType=Link\nURL=https://a/\nIcon=x\n"),
              (Values{"https://a/", "", "", "", "", "", "x"}));
    EXPECT_EQ(Read(Kind::kDesktop, "[Desktop Entry]\nType=Directory\nIcon=x\n"),
              (Values{"", "", "", "", "", "", "x"}));
    EXPECT_EQ(Read(Kind::kDesktop, "no entry\n"), Values{});
}

TEST(DesktopEntries, KeepAllLinesButTheOneThatIsSet) {
    EXPECT_EQ(EditEntry(kEditor, kTarget, "/usr/bin/ed"),
              With("\"/opt/my editor/run\"", "/usr/bin/ed"));
    EXPECT_EQ(EditEntry(kEditor, kArguments, ""), With("run\" --new %F", "run\""));
    EXPECT_EQ(EditEntry(kEditor, kStartIn, "/tmp"), With("Path=/srv/work", "Path=/tmp"));
    EXPECT_EQ(EditEntry(kEditor, kDescription, "two\nlines"), With("Write\\stexts", "two\\nlines"));
    EXPECT_EQ(EditEntry(kEditor, kIcon, "/a,b.png"), With("Icon=editor", "Icon=/a,b.png"));
    EXPECT_EQ(EditEntry(kEditor, kWindowStyle, "Terminal"),
              With("Terminal=false", "Terminal=true"));
    EXPECT_EQ(EditEntry(kEditor, kWindowStyle, "Sideways"), kEditor);
}

TEST(DesktopEntries, QuoteAProgramThatNeedsIt) {
    const std::string text = EditEntry("[Desktop Entry]\nExec=a\n", kTarget, "/a b/$x\\y%z");
    EXPECT_EQ(text, "[Desktop Entry]\nExec=\"/a b/\\\\$x\\\\\\\\y%%z\"\n");
    EXPECT_EQ(Read(Kind::kDesktop, text)[kTarget], "/a b/$x\\y%z");
}

TEST(DesktopEntries, GetALineForWhatTheyLack) {
    EXPECT_EQ(EditEntry("[Desktop Entry]\r\nExec=a\r\n\r\n[b]\r\n", kDescription, "x"),
              "[Desktop Entry]\r\nExec=a\r\nComment=x\r\n\r\n[b]\r\n");
}

TEST(DesktopEntries, TakeTheLastOfEqualKeys) {
    EXPECT_EQ(Read(Kind::kDesktop, "[Desktop Entry]\nIcon=a\nIcon=b\n")[kIcon], "b");
    EXPECT_EQ(EditEntry("[Desktop Entry]\nIcon=a\nIcon=b\n", kIcon, "c"),
              "[Desktop Entry]\nIcon=a\nIcon=c\n");
}

// What told its encoding is what is replaced.
TEST(DesktopEntries, InACodePageKeepTheirLettersWhenTheyTurnIntoUtf8) {
    const std::string text = "[Desktop Entry]\nPath=\xC3\xA9\nComment=\xE9\n";
    EXPECT_EQ(Read(Kind::kDesktop, text)[kStartIn], "\u00C3\u00A9");
    const std::string edited = EditEntry(text, kDescription, "x");
    EXPECT_EQ(edited, "[Desktop Entry]\nPath=\xC3\x83\xC2\xA9\nComment=x\n");
    EXPECT_EQ(Read(Kind::kDesktop, edited)[kStartIn], "\u00C3\u00A9");
    EXPECT_EQ(EditEntry(text, kIcon, "\u540D"),
              "refused: The file is in an old encoding that lacks a letter of the new value.");
}

TEST(DesktopEntries, RefuseWhatTheyCannotHold) {
    EXPECT_EQ(EditEntry(kEditor, kHotKey, "CTRL+A"), "refused: A desktop entry has no hot key.");
    EXPECT_EQ(EditEntry(kEditor, kWindowStyle, "Maximized"),
              "refused: A desktop entry can't say Maximized: its window is Normal or Terminal.");
    EXPECT_EQ(EditEntry(kEditor, kTarget, ""), "refused: A shortcut can't be without a target.");
    EXPECT_EQ(EditEntry(kEditor, kTarget, "A=b"),
              "refused: The program of a desktop entry can't have a \"=\" in its path.");
    EXPECT_EQ(EditEntry("x", kIcon, "y"),
              "refused: It is no desktop entry; nothing of it was changed.");
}

} // namespace
} // namespace tarvix::shortcuts
