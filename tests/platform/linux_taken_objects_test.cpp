#include "platform/linux/taken_objects.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvix::platform {

TEST(TakenObjectsTest, EachIsKnownByItsNumber) {
    TakenObjects taken;
    const TrashStamp first{.device = 1, .number = 2, .time = 3, .kind = 4};
    const TrashStamp second{.device = 1, .number = 9, .isNumbered = false};
    taken.Add({.folder = "/a", .name = "x", .trash = "/t", .held = "x", .stamp = first});
    taken.Add({.folder = "/b", .name = "x", .trash = "/t", .held = "x.2", .stamp = second});
    taken.Add({.folder = "/a", .name = "", .trash = "/u", .held = "y", .stamp = first});
    ASSERT_EQ(taken.Count(), 3U);
    EXPECT_EQ(taken.At(0)->folder, "/a");
    EXPECT_EQ(taken.At(0)->name, "x");
    EXPECT_EQ(taken.At(0)->trash, "/t");
    EXPECT_EQ(taken.At(0)->held, "x");
    EXPECT_EQ(taken.At(0)->stamp, first);
    EXPECT_EQ(taken.At(1)->folder, "/b");
    EXPECT_EQ(taken.At(1)->name, "x");
    EXPECT_EQ(taken.At(1)->held, "x.2");
    EXPECT_EQ(taken.At(1)->stamp, second);
    EXPECT_EQ(taken.At(2)->folder, "/a");
    EXPECT_EQ(taken.At(2)->trash, "/u");
    EXPECT_EQ(taken.At(2)->held, "y");
    EXPECT_FALSE(taken.At(3).has_value());
}

TEST(TakenObjectsTest, ManyKeepTheirPlaces) {
    TakenObjects taken;
    for (int i = 0; i < 20'000; ++i) {
        const std::string folder = "/folder " + std::to_string(i % 700);
        const std::string name = "name " + std::to_string(i);
        const std::string held = i % 3 == 0 ? name + ".2" : name;
        taken.Add({.folder = folder, .name = name, .trash = "/t", .held = held, .stamp = {}});
    }
    ASSERT_EQ(taken.Count(), 20'000U);
    EXPECT_EQ(taken.At(19'998)->folder, "/folder 398");
    EXPECT_EQ(taken.At(19'998)->name, "name 19998");
    EXPECT_EQ(taken.At(19'998)->held, "name 19998.2");
    EXPECT_EQ(taken.At(1)->folder, "/folder 1");
    EXPECT_EQ(taken.At(1)->held, "name 1");
}

} // namespace tarvix::platform
