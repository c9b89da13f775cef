#include "tests/actions/action_fixture.h"

namespace tarvix::testing {
namespace {

class DuplicateFacts : public ActionFixture {
  protected:
    // What the question about the only duplicate has, of two files with these contents.
    fields::DuplicateQuestion Ask(std::string_view here, std::string_view there) {
        Disk().AddFile("C:\\t\\a.mp3", here);
        Disk().AddFile("C:\\t\\b.mp3", "other");
        Disk().AddFile("C:\\d\\a.mp3", there);
        Find();
        S().platform.traits.hasNativePaths = true;
        State().platformSettings.showsNative = true;
        fields::DuplicateQuestion asked;
        onForm = [&](fields::Form& form) {
            if (&form == &S().forms.frmAsk) asked = S().forms.frmAsk.parts;
        };
        Copy(To("C:\\d", "chkAsk"));
        return asked;
    }
};

TEST_F(DuplicateFacts, SayWhichIsLargerAndWhatARenameWouldGive) {
    Disk().AddFile("C:\\d\\a_.mp3", "taken");
    const auto asked = Ask("longer", "long");
    EXPECT_EQ(asked.headline, "a.mp3 is already in /d");
    EXPECT_EQ(asked.position, "1 of 2");
    EXPECT_EQ(asked.thisOne.sizeNote, "larger");
    EXPECT_EQ(asked.existing.sizeNote, "");
    EXPECT_EQ(asked.content, "The contents differ.");
    EXPECT_EQ(asked.newName, "a__.mp3");
    EXPECT_EQ(asked.rest, "Cancel leaves this and the other 1 as they are.");
}

TEST_F(DuplicateFacts, TellEqualContentsFromEqualSizes) {
    EXPECT_EQ(Ask("abc", "abd").content, "The contents differ.");
}

TEST_F(DuplicateFacts, SayThatBothHoldTheSame) {
    const auto asked = Ask("abc", "abc");
    EXPECT_EQ(asked.content, "Both have the same content.");
    EXPECT_EQ(asked.thisOne.sizeNote, "");
    EXPECT_EQ(asked.existing.sizeNote, "");
}

TEST_F(DuplicateFacts, AreNotToldWhereTheToldWordsCount) {
    Disk().AddFile("C:\\t\\a.mp3", "a");
    Disk().AddFile("C:\\d\\a.mp3", "b");
    Find();
    fields::DuplicateQuestion asked;
    onForm = [&](fields::Form&) { asked = S().forms.frmAsk.parts; };
    Copy(To("C:\\d", "chkAsk"));
    EXPECT_EQ(asked.headline, "");
    EXPECT_EQ(asked.existing.name, "a.mp3");
}

} // namespace
} // namespace tarvix::testing
