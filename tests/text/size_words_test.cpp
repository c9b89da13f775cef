#include "text/size_words.h"

#include <gtest/gtest.h>

namespace tarvix::text {
namespace {

struct Size {
    const char* typed;
    std::int64_t bytes;
};

TEST(ParseSize, TakesBytesAndUnits) {
    for (const Size& size :
         {Size{"0", 0}, Size{"4096", 4096}, Size{" 12 ", 12}, Size{"12 bytes", 12}, Size{"1 B", 1},
          Size{"20K", 20480}, Size{"20k", 20480}, Size{"20 kB", 20000}, Size{"20KiB", 20480},
          Size{"1.6 MB", 1600000}, Size{"1.6 mib", 1677721}, Size{"3GB", 3000000000},
          Size{"10M", 10485760}, Size{"1.5 GiB", 1610612736}, Size{"0.5k", 512},
          Size{"2T", 2199023255552}, Size{"007", 7},
          Size{"9223372036854775807", 9223372036854775807}}) {
        EXPECT_EQ(ParseSize(size.typed), size.bytes) << size.typed;
    }
}

TEST(ParseSize, RefusesWhatIsNoSize) {
    for (const char* typed : {"",
                              " ",
                              "K",
                              "-1",
                              "+1",
                              "1.5",
                              "1.5 B",
                              ".5K",
                              "5.K",
                              "1.2.3K",
                              "10 X",
                              "10KK",
                              "10iB",
                              "0x10",
                              "1,5G",
                              "1e3",
                              "20 K B",
                              "nan",
                              "9223372036854775808",
                              "9000000T"}) {
        EXPECT_EQ(ParseSize(typed), std::nullopt) << typed;
    }
}

} // namespace
} // namespace tarvix::text
