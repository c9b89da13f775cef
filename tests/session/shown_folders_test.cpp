#include "session/paths/shown_folders.h"
#include "tests/session/log_session.h"

#include <array>
#include <string_view>

namespace tarvix::session {
namespace {

struct Place {
    std::string_view drive;
    std::string_view native;
};

constexpr std::array kPlaces{
    Place{"C:\\", "/"},
    Place{"C:\\home", "/home"},
    Place{"C:\\home\\ann", "/home/ann"},
    Place{"C:\\home\\a\uF03Ab", "/home/a:b"},
    Place{"C:\\home\\a\uF03Ab\\c\uF020", "/home/a:b/c "},
    Place{"C:\\home\\a\uF03Ab\\d\uF0E4", "/home/a:b/d\\xE4"},
    Place{"C:\\home\\ann\\e\uF009f", "/home/ann/e\u2409f"},
    Place{"Q:\\nowhere\\below\\it", "Q:\\nowhere\\below\\it"},
    Place{"Q:\\nowhere\\below\\other", "Q:\\nowhere\\below\\other"},
    Place{"no path", "no path"},
};

class ShownFoldersTest : public testing::LogSession {
  protected:
    ShownFolders shown{session};
};

TEST_F(ShownFoldersTest, AreNativeForOneParentAfterAnother) {
    State().platformSettings.showsNative = true;
    for (int round = 0; round < 2; ++round) {
        for (const Place& place : kPlaces) {
            EXPECT_EQ(shown.Of(place.drive), place.native);
            EXPECT_EQ(session.Shown(place.drive), place.native);
        }
    }
}

TEST_F(ShownFoldersTest, AreDrivePathsWhereTheseAreShown) {
    State().platformSettings.showsNative = false;
    for (const char* path : {"C:\\home\\ann", "C:\\home\\ann\\b", "C:\\home\\ann\\c"})
        EXPECT_EQ(shown.Of(path), path);
}

} // namespace
} // namespace tarvix::session
