#include "session/native_entry.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class NativeEntry : public ProgramFixture {
  protected:
    std::string Entry(const fields::Control& control, std::string_view typed) {
        return session::EntryInDriveForm(machine.platform.paths, control, typed);
    }
    std::string ShownIn(const fields::Control& control, std::string_view text) {
        State().platformSettings.showsNative = true;
        return session::EntryShown(S(), control, text);
    }
    fields::Control& Locations() { return Form().cmbDir; }
    fields::Control& Destination() { return S().frmDialog.cmbDir; }
};

TEST_F(NativeEntry, EachNativePathOfAListIsTakenInDriveForm) {
    const auto form = [this](std::string_view list) {
        return session::DriveForm(machine.platform.paths, list);
    };
    EXPECT_EQ(form("/home/ann"), "C:\\home\\ann");
    EXPECT_EQ(form("C:\\t|/home/ann|/tmp"), "C:\\t|C:\\home\\ann|C:\\tmp");
    EXPECT_EQ(form("|/tmp|"), "|C:\\tmp|");
    EXPECT_EQ(form("some rule"), "some rule");
    EXPECT_EQ(form(""), "");
}

TEST_F(NativeEntry, ABlankInFrontOfABarIsNoPartOfAPathAndOneAtTheEndIs) {
    EXPECT_EQ(Entry(Locations(), "/tmp |/srv/p "), "C:\\tmp|C:\\srv\\p\uF020");
}

TEST_F(NativeEntry, BothBoxesOfPathsAreBroughtIntoDriveForm) {
    EXPECT_TRUE(session::TakesPaths(Locations()));
    EXPECT_TRUE(session::TakesPaths(Destination()));
    EXPECT_FALSE(session::TakesPaths(Form().cmbSearchFor));
    EXPECT_EQ(Entry(Locations(), "/home/ann|C:\\t"), "C:\\home\\ann|C:\\t");
    EXPECT_EQ(Entry(Destination(), "/tmp"), "C:\\tmp");
    EXPECT_EQ(Entry(Locations(), "C:\\home|E:\\x"), "C:\\home|E:\\x");
}

TEST_F(NativeEntry, TheDestinationIsOnePathWhateverMarksAreInIt) {
    EXPECT_EQ(Entry(Destination(), "/tmp/|2,2|/*1*"), "C:\\tmp\\\uF07C2,2\uF07C\\\uF02A1\uF02A");
    EXPECT_EQ(ShownIn(Destination(), "C:\\tmp\\|2,2|\\*1*"), "/tmp/|2,2|/*1*");
    EXPECT_EQ(ShownIn(Destination(), "C:\\tmp\\x"), "/tmp/x");
}

TEST_F(NativeEntry, BoxesShowNativePathsAndLeaveWhatIsNone) {
    EXPECT_EQ(ShownIn(Locations(), "C:\\home\\ann|C:\\t"), "/home/ann|/t");
    EXPECT_EQ(ShownIn(Locations(), "  All drives"), "  All drives");
    EXPECT_EQ(ShownIn(Locations(), "%UserProfile%\\x"), "%UserProfile%\\x");
    EXPECT_EQ(ShownIn(Locations(), ""), "");
}

TEST_F(NativeEntry, APathThatABoxCannotHoldIsShownAsAnAddress) {
    for (const char* path :
         {"C:\\tmp\\a\uF07Cb", "C:\\tmp\\p\uF020", "C:\\tmp\\a\uF00Ab", "C:\\tmp\\caf\uF0E9"}) {
        const std::string shown = ShownIn(Locations(), path);
        EXPECT_TRUE(shown.starts_with("file:///tmp/")) << shown;
        EXPECT_EQ(Entry(Locations(), shown), path);
    }
    EXPECT_EQ(ShownIn(Locations(), "C:\\tmp\\a\uF07Cb"), "file:///tmp/a%7Cb");
    EXPECT_EQ(ShownIn(Locations(), "C:\\tmp\\a\uF03Ab"), "/tmp/a:b");
}

TEST_F(NativeEntry, InDriveFormBoxesShowWhatTheirFieldsHold) {
    EXPECT_EQ(session::EntryShown(S(), Locations(), "C:\\home\\ann"), "C:\\home\\ann");
}

} // namespace
} // namespace tarvix::testing
