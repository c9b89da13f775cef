#include "platform/object_facts.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using platform::kHidden;
using platform::kSystem;

// System and hidden objects after what the options of this run let happen.
class RunChoices : public ActionFixture {
  protected:
    RunChoices() {
        Disk().AddFile("C:\\t\\a.txt", "new").attributes |= kHidden;
        Disk().AddFile("C:\\t\\b.txt", "new").attributes |= kSystem;
        Disk().AddFolder("C:\\d");
    }
    session::RunChoices& Choices() { return State().runChoices; }
    void Let(int answer) {
        State().options.blnAutoMode = true;
        Choices().blnAllowAutoModeSystemHidden = true;
        Choices().blnAutoPara[static_cast<std::size_t>(answer)] = true;
    }
    void GivenOld() {
        Disk().AddFile("C:\\d\\a.txt", "old");
        Disk().AddFile("C:\\d\\b.txt", "old");
    }
    void Delete() {
        prompts.Queue("Yes");
        prompts.SetModalRunner([](session::Session& session, fields::Form& form) {
            return session::UserClick(session, *form.Find("cmdNo")).has_value();
        });
        S().events.Raise(S(), "frmSearch.cmdDeleteSelected_Click");
        prompts.SetModalRunner({});
    }
    bool WasAsked() { return WasTold("has the attribute(s) system or hidden"); }
};

TEST_F(RunChoices, MovesProtectedObjectsWhereThatIsAllowed) {
    Choices().blnAllowMove = true;
    Find();
    Move(To("C:\\d"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\b.txt"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_FALSE(WasAsked());
    ExpectLog({" Options selected override to: C:\\t\\a.txt"});
}

TEST_F(RunChoices, OverwritesWithoutAskingWhereThatIsAllowed) {
    GivenOld();
    Choices().blnAllowOverwrite = true;
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), "new");
    EXPECT_FALSE(WasAsked());
}

TEST_F(RunChoices, DeletesWithoutAskingWhereThatIsAllowed) {
    Choices().blnAllowDelete = true;
    Find();
    Delete();
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_EQ(machine.bin.Items().size(), 2U) << "to the trash";
    EXPECT_FALSE(WasAsked());
}

TEST_F(RunChoices, OneAllowsNothingElse) {
    GivenOld();
    Choices().blnAllowDelete = true;
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_TRUE(WasAsked());
    Choices() = {};
    Choices().blnAllowMove = Choices().blnAllowOverwrite = true;
    Find();
    Delete();
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
}

TEST_F(RunChoices, AutomaticModeOverwritesAllOrNoneAsChosen) {
    GivenOld();
    Find();
    Let(2);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    Choices().blnAutoPara = {};
    Let(1);
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_FALSE(WasAsked());
    ExpectLog({" Options selected do not override to: C:\\t\\a.txt",
               " Options selected override to: C:\\t\\a.txt"});
}

TEST_F(RunChoices, AutomaticModeDeletesAllOrNoneAsChosen) {
    Find();
    Let(4);
    Delete();
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
    Choices().blnAutoPara = {};
    Let(3);
    Find();
    Delete();
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_FALSE(WasAsked());
}

TEST_F(RunChoices, AutomaticModeAsksWhereItMayNotOrNothingIsChosen) {
    GivenOld();
    Find();
    State().options.blnAutoMode = true;
    Choices().blnAutoPara[1] = true;
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_TRUE(WasAsked());
    const std::size_t asked = TimesTold("has the attribute(s)");
    Choices().blnAllowAutoModeSystemHidden = true;
    Choices().blnAutoPara = {};
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_GT(TimesTold("has the attribute(s)"), asked);
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
}

TEST_F(RunChoices, WithoutAutomaticModeItsAnswersDontCount) {
    GivenOld();
    Find();
    Let(1);
    State().options.blnAutoMode = false;
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_TRUE(WasAsked());
}

} // namespace
} // namespace tarvix::testing
