#include "text/readable_size.h"

#include <gtest/gtest.h>

using tarvix::text::ReadableSize;

TEST(ReadableSize, BytesStandAsTheyAre) {
    EXPECT_EQ(ReadableSize(0), "0 bytes");
    EXPECT_EQ(ReadableSize(1), "1 byte");
    EXPECT_EQ(ReadableSize(999), "999 bytes");
}

TEST(ReadableSize, BelowAHundredOfAUnitThereIsOneDigitBehindThePoint) {
    EXPECT_EQ(ReadableSize(1000), "1.0 kB");
    EXPECT_EQ(ReadableSize(11'612), "11.6 kB");
    EXPECT_EQ(ReadableSize(99'949), "99.9 kB");
    EXPECT_EQ(ReadableSize(99'950), "100 kB");
    EXPECT_EQ(ReadableSize(116'400), "116 kB");
}

TEST(ReadableSize, RoundingGoesOnToTheNextUnit) {
    EXPECT_EQ(ReadableSize(999'499), "999 kB");
    EXPECT_EQ(ReadableSize(999'500), "1.0 MB");
    EXPECT_EQ(ReadableSize(1'250'000'000), "1.3 GB");
    EXPECT_EQ(ReadableSize(2'000'000'000'000), "2.0 TB");
    EXPECT_EQ(ReadableSize(18'446'744'073'709'551'615ULL), "18.4 EB");
}
