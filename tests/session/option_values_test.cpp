#include "session/settings/option_values.h"

#include <gtest/gtest.h>

namespace tarvix::session {
namespace {

TEST(OptionLine, IsCutAtTheFirstOfEachSeparator) {
    const auto line = SplitOptionLine("strDefSearchFolder(12) = C:\\a b=c[T [x] (y)");
    EXPECT_EQ(line.key, "strDefSearchFolder");
    EXPECT_EQ(line.paren, "12");
    EXPECT_EQ(line.folderValue, "C:\\a b=c");
    EXPECT_EQ(line.title, "T [x] (y)");
    EXPECT_EQ(line.value, "C:\\a b=c[T [x] (y)");
    EXPECT_EQ(line.rest, "= C:\\a b=c[T [x] (y)");
}

TEST(OptionLine, HasEmptyPartsWhereSeparatorsAreMissing) {
    const auto line = SplitOptionLine("word");
    EXPECT_EQ(line.key, "word");
    EXPECT_EQ(line.value, "");
    EXPECT_EQ(line.rest, "");
    EXPECT_EQ(line.folderValue, "");
    EXPECT_EQ(line.paren, "");
    EXPECT_FALSE(line.hasBracket);
}

TEST(OptionLine, BracketsInTheWrongOrderHoldNothing) {
    EXPECT_EQ(SplitOptionLine("blnListItems )Size( = True").paren, "");
}

TEST(OptionLine, AnEqualSignAtTheEndHasNoValue) {
    EXPECT_EQ(SplitOptionLine("blnSort =").value, "");
    EXPECT_EQ(SplitOptionLine("=").value, "");
}

TEST(OptionLine, CutsCharactersAndNotBytes) {
    EXPECT_EQ(SplitOptionLine("strDefWebSize =\xC3\xA9X").value, "X");
}

TEST(EnvVariableLine, OnlyTheLastThreeCharactersAreCut) {
    Options options;
    ASSERT_TRUE(TakeEnvVariable(options, SplitOptionLine("Exclude my var 07"), false));
    ASSERT_EQ(options.envVariables.size(), 8U);
    EXPECT_EQ(options.envVariables[7], (EnvVariable{false, "my var", ""}));
}

TEST(EnvVariableLine, WithoutAPlaceIsNoSuchLine) {
    Options options;
    EXPECT_EQ(TakeEnvVariable(options, SplitOptionLine("Include windir"), true).error().number, 13);
    EXPECT_EQ(TakeEnvVariable(options, SplitOptionLine("Include"), true).error().number, 13);
    EXPECT_TRUE(options.envVariables.empty());
}

TEST(OptionValue, BytesHaveTheirBounds) {
    EXPECT_EQ(ToByte("0"), 0);
    EXPECT_EQ(ToByte("255"), 255);
    EXPECT_EQ(ToByte(" 7 "), 7);
    EXPECT_EQ(ToByte("256").error().number, 6);
    EXPECT_EQ(ToByte("-1").error().number, 6);
    EXPECT_EQ(ToByte("1e999").error().number, 6);
    EXPECT_EQ(ToByte("").error().number, 13);
    EXPECT_EQ(ToByte("1x").error().number, 13);
    EXPECT_EQ(ToByte("nan").error().number, 13);
    EXPECT_EQ(ToByte("0x1").error().number, 13);
}

TEST(OptionValue, BooleansAreWordsOrNumbers) {
    EXPECT_EQ(ToBoolean("TRUE"), true);
    EXPECT_EQ(ToBoolean("false"), false);
    EXPECT_EQ(ToBoolean("-1"), true);
    EXPECT_EQ(ToBoolean("0"), false);
    EXPECT_EQ(ToBoolean("yes").error().number, 13);
    EXPECT_EQ(ToBoolean("").error().number, 13);
}

TEST(OptionValue, SinglesTakeFractions) {
    EXPECT_EQ(ToSingle("2.5"), 2.5F);
    EXPECT_EQ(ToSingle("655"), 655.0F);
    EXPECT_EQ(ToSingle("1e39").error().number, 6);
    EXPECT_EQ(ToSingle("8 seconds").error().number, 13);
}

} // namespace
} // namespace tarvix::session
