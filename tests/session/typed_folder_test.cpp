#include "session/native_entry.h"
#include "session/typed_folder.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class TypedFolderTest : public ProgramFixture {
  protected:
    // "before + folder + begin", or "-" where no path is typed.
    std::string In(const fields::Control& control, std::string_view text) {
        const auto typed = session::TypedFolderIn(S(), control, text);
        return typed ? typed->before + " + " + typed->folder + " + " + typed->begin : "-";
    }
    fields::Control& Locations() { return Form().cmbDir; }
    fields::Control& Destination() { return S().frmDialog.cmbDir; }
    using Texts = std::vector<std::string>;
};

TEST_F(TypedFolderTest, TheLastPathOfAListIsTyped) {
    EXPECT_EQ(In(Locations(), "/home/an"), " + C:\\home + an");
    EXPECT_EQ(In(Locations(), "C:\\t|/home/ann/Mu"), "C:\\t| + C:\\home\\ann + Mu");
    EXPECT_EQ(In(Locations(), "C:\\t|"), "-");
    EXPECT_EQ(In(Locations(), "Music"), "-");
    EXPECT_EQ(In(Locations(), ""), "-");
}

TEST_F(TypedFolderTest, ABarOfTheDestinationSeparatesNothing) {
    EXPECT_EQ(In(Destination(), "C:\\a|b\\c"), " + C:\\a|b + c");
}

TEST_F(TypedFolderTest, BehindASlashAllOfAFolderIsOffered) {
    EXPECT_TRUE(In(Locations(), "/home/ann/").ends_with(" + "));
    const auto typed = session::TypedFolderIn(S(), Locations(), "C:\\home\\ann\\");
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->begin, "");
}

TEST_F(TypedFolderTest, NamesThatGoOnAreOfferedInEitherCaseAndHiddenOnesOnRequest) {
    const session::TypedFolder typed{"C:\\t|", "C:\\home", "mu"};
    EXPECT_EQ(session::FolderTexts(S(), Locations(), typed, {"Music", "mu", "Video", ".mu"}),
              (Texts{"C:\\t|C:\\home\\Music"}));
    const session::TypedFolder hidden{"", "C:\\home", ".c"};
    EXPECT_EQ(session::FolderTexts(S(), Locations(), hidden, {".cache", "cache"}),
              (Texts{"C:\\home\\.cache"}));
    const session::TypedFolder all{"", "C:\\home", ""};
    EXPECT_EQ(session::FolderTexts(S(), Locations(), all, {".cache", "a"}), (Texts{"C:\\home\\a"}));
}

TEST_F(TypedFolderTest, NoMoreThanTwoHundredAreOffered) {
    Texts names;
    for (int i = 0; i < 300; ++i)
        names.push_back("n" + std::to_string(i));
    const session::TypedFolder typed{"", "C:\\home", "n"};
    EXPECT_EQ(session::FolderTexts(S(), Locations(), typed, names).size(), 200U);
}

TEST_F(TypedFolderTest, ANameIsTypedInTheFormThatPathsAreShownIn) {
    EXPECT_EQ(session::NameShown(S(), "a\uF03Ab"), "a\uF03Ab");
    EXPECT_EQ(session::NameInDriveForm(S(), "a:b"), "a:b");
    State().platformSettings.showsNative = true;
    EXPECT_EQ(session::NameShown(S(), "a\uF03Ab"), "a:b");
    EXPECT_EQ(session::NameInDriveForm(S(), "a:b"), "a\uF03Ab");
}

} // namespace
} // namespace tarvix::testing
