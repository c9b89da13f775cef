#include "actions/sources/character_references.h"

#include <gtest/gtest.h>

namespace tarvix::actions {
namespace {

struct Case {
    const char* text;
    const char* decoded;
};

TEST(CharacterReferences, AreDecodedAsInPages) {
    for (const Case& c : {
             Case{"Tom &amp; Jerry", "Tom & Jerry"},
             Case{"&lt;b&gt; &quot;x&quot; &apos;", "<b> \"x\" '"},
             Case{"&#233;&#xE9;&#XE9;", "ééé"},
             Case{"caf&eacute;", "café"},
             Case{"&ndash;&mdash;&hellip;&euro;", "–—…€"},
             Case{"&copy 2025 &AMP;&amp", "© 2025 &&"},
             Case{"&notit;", "¬it;"},
             Case{"&notin;", "∉"},
             Case{"&#150;&#x80;", "–€"},
             Case{"&#0;&#xD800;&#1114112;&#99999999999;", "\uFFFD\uFFFD\uFFFD\uFFFD"},
             Case{"&#x1F600;", "😀"},
             Case{"&NotEqualTilde;", "≂̸"},
             Case{"R&D & &; &# &#; &#x; &nosuch; 100%", "R&D & &; &# &#; &#x; &nosuch; 100%"},
             Case{"", ""},
             Case{"&", "&"},
             Case{"&amp;amp;", "&amp;"},
         }) {
        EXPECT_EQ(DecodeReferences(c.text), c.decoded) << c.text;
    }
}

TEST(CharacterReferences, InAnAttributeAnOldNameMayBeAParameter) {
    const auto decoded = [](const char* text) {
        return DecodeReferences(text, ReferencePlace::kAttribute);
    };
    EXPECT_EQ(decoded("x.php?a=1&copy=2&amp;b=3"), "x.php?a=1&copy=2&b=3");
    EXPECT_EQ(decoded("x?a&lta"), "x?a&lta");
    EXPECT_EQ(decoded("a&copy b"), "a© b");
}

} // namespace
} // namespace tarvix::actions
