#include "shortcuts/formats/hot_key.h"

#include <gtest/gtest.h>

namespace tarvix::shortcuts {
namespace {

TEST(HotKeys, AreTextsWithModifiersInOneOrder) {
    EXPECT_EQ(HotKeyText(0), "");
    EXPECT_EQ(HotKeyText(0x0641), "CTRL+ALT+A");
    EXPECT_EQ(HotKeyText(0x0F70), "CTRL+ALT+SHIFT+EXT+F1");
    EXPECT_EQ(HotKeyText(0x0087), "F24");
    EXPECT_EQ(HotKeyText(0x0260), "CTRL+NUM0");
    EXPECT_EQ(HotKeyText(0x02BB), "CTRL+=");
    EXPECT_EQ(HotKeyText(0x02E1), "CTRL+0xE1");
}

TEST(HotKeys, AreTakenInAnyOrderAndCase) {
    EXPECT_EQ(ParseHotKey("alt + ctrl+a"), 0x0641);
    EXPECT_EQ(ParseHotKey("Shift+Control+f12"), 0x037B);
    EXPECT_EQ(ParseHotKey("  "), 0);
    EXPECT_EQ(ParseHotKey("CTRL+NUM+"), 0x026B);
    EXPECT_EQ(ParseHotKey("CTRL+0xe1"), 0x02E1);
}

TEST(HotKeys, ThatAreNoneAreRefused) {
    for (const char* text : {"CTRL+", "CTRL+[", "]", "HYPER+A", "F25", "F0", "AB", "0x0", "0x100",
                             "CTRL A", "NUM10", "+", "F99999999999"}) {
        EXPECT_FALSE(ParseHotKey(text)) << text;
    }
}

TEST(HotKeys, OfEveryNumberComeBackButBrackets) {
    for (unsigned number = 1; number < 0x1000; ++number) {
        const unsigned key = number & 0xFF;
        if (key == 0 || key == 0xDB || key == 0xDD) continue;
        const std::string text = HotKeyText(static_cast<std::uint16_t>(number));
        EXPECT_EQ(ParseHotKey(text), number) << text;
    }
}

TEST(WindowStyles, HaveThreeNames) {
    EXPECT_EQ(WindowStyleText(1), "Normal");
    EXPECT_EQ(WindowStyleText(3), "Maximized");
    EXPECT_EQ(WindowStyleText(7), "Minimized");
    EXPECT_EQ(WindowStyleText(2), "");
    EXPECT_EQ(WindowStyleText(8), "");
    EXPECT_EQ(WindowStyleText(0xFFFFFFFF), "");
    EXPECT_EQ(ParseWindowStyle("Maximized"), 3U);
    EXPECT_FALSE(ParseWindowStyle("maximized"));
    EXPECT_FALSE(ParseWindowStyle(""));
}

} // namespace
} // namespace tarvix::shortcuts
