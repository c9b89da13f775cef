#include "launch/custom/small_xml.h"

#include <gtest/gtest.h>

namespace tarvix::custom {
namespace {

TEST(SmallXml, ElementsTextsAndEntities) {
    const XmlElement root =
        ParseXml("<?xml version=\"1.0\"?><!-- a <b> --><r a='1'>\n"
                 "<n> a &amp;&#65;&#x42;&lt; </n><e/><c><![CDATA[<&>]]></c></r>");
    EXPECT_EQ(root.name, "r");
    ASSERT_EQ(root.children.size(), 3U);
    EXPECT_EQ(root.TextOf("n"), "a &AB<");
    EXPECT_NE(root.Find("e"), nullptr);
    EXPECT_EQ(root.TextOf("c"), "<&>");
    EXPECT_EQ(root.Find("x"), nullptr);
}

TEST(SmallXml, WhatIsBrokenIsPassedOver) {
    EXPECT_EQ(ParseXml("").name, "");
    EXPECT_EQ(ParseXml("no tag").name, "");
    EXPECT_EQ(ParseXml("<a><b>x</a>").TextOf("b"), "x");
    EXPECT_EQ(ParseXml("<a></z><b>x</b>").TextOf("b"), "x");
    EXPECT_EQ(ParseXml("<a>&nope; &</a>").text, "&nope; &");
    EXPECT_EQ(ParseXml("<a><![CDATA[x").text, "x");
    EXPECT_EQ(ParseXml("<").name, "");
}

TEST(SmallXml, DepthIsBounded) {
    std::string deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "<a>";
    const XmlElement root = ParseXml(deep);
    std::size_t depth = 0;
    for (const XmlElement* at = &root; at != nullptr; at = at->Find("a"))
        ++depth;
    EXPECT_EQ(depth, 16U);
}

} // namespace
} // namespace tarvix::custom
