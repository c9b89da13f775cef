#include "launch/class_command.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class ClassCommands : public ProgramFixture {
  protected:
    ClassCommands() { Start(); }
    void Set(const char* key, const char* value) { machine.registry.SetClassDefault(key, value); }
    std::string CommandFor(const char* path, bool isFolder = false) {
        return launch::FindClassCommand(S(), path, isFolder).command;
    }
};

TEST(StripCommandArguments, CutsThePlaceOfTheArgumentAndWhatFollows) {
    const auto strip = launch::StripCommandArguments;
    EXPECT_EQ(strip("C:\\ed.exe %1"), "C:\\ed.exe");
    EXPECT_EQ(strip("\"C:\\My Ed\\ed.exe\" \"%1\" /p"), "\"C:\\My Ed\\ed.exe\"");
    EXPECT_EQ(strip("C:\\explorer.exe /idlist,%I,%L"), "C:\\explorer.exe");
    EXPECT_EQ(strip("C:\\explorer.exe /e,/idlist"), "C:\\explorer.exe /e,/idlist");
    EXPECT_EQ(strip("ed --new  "), "ed --new");
    EXPECT_EQ(strip(std::string("ed\0\0", 4)), "ed");
    EXPECT_EQ(strip("ed /x \"%1\" %1"), "ed /x \"%1\"");
    EXPECT_EQ(strip(""), "");
}

TEST_F(ClassCommands, AnExtensionHasAClassAndThatAVerb) {
    Set(".abc", "abcfile");
    Set("abcfile\\shell", "edit");
    Set("abcfile\\shell\\edit\\command", "editor --edit \"%1\"");
    Set("abcfile\\shell\\open\\command", "editor --open \"%1\"");
    EXPECT_EQ(CommandFor("C:\\tmp\\a.ABC"), "editor --edit");
}

TEST_F(ClassCommands, WithoutAVerbItIsOpen) {
    Set(".abc", "abcfile");
    Set("abcfile\\shell\\open\\command", "editor --open %1");
    EXPECT_EQ(CommandFor("C:\\tmp\\a.abc"), "editor --open");
}

TEST_F(ClassCommands, AFolderRowUsesTheClassFolder) {
    Set("Folder\\shell\\open\\command", "manager /idlist,%I");
    Set(".d", "dfile");
    Set("dfile\\shell\\open\\command", "wrong %1");
    EXPECT_EQ(CommandFor("C:\\tmp\\some.d", true), "manager");
}

TEST_F(ClassCommands, AFileWithoutExtensionTakesTheAlternateClass) {
    EXPECT_EQ(launch::FindAlternateFileType(S()), "Applications\\notepad.exe");
    State().blnStarShell = true;
    EXPECT_EQ(launch::FindAlternateFileType(S()), "*");
    Set("*\\shell\\open\\command", "any %1");
    EXPECT_EQ(CommandFor("C:\\tmp\\README"), "any");
    State().blnUnknownShell = true;
    EXPECT_EQ(launch::FindAlternateFileType(S()), "Unknown");
    Set("Unknown\\shell\\open\\command", "ask %1");
    EXPECT_EQ(CommandFor("C:\\tmp\\README"), "ask");
    EXPECT_EQ(CommandFor("C:\\tmp\\a.nobody"), "ask");
}

TEST_F(ClassCommands, ACommandThatIsItsArgumentStartsTheFileItself) {
    Set(".bat", "batfile");
    for (const char* command : {"\"%1\" %*", "%1 %*"}) {
        Set("batfile\\shell\\open\\command", command);
        const auto found = launch::FindClassCommand(S(), "C:\\tmp\\a.bat", false);
        EXPECT_TRUE(found.startsItself) << command;
        EXPECT_EQ(found.command, "");
    }
}

TEST_F(ClassCommands, AClassWithoutACommandHasNone) {
    Set(".abc", "abcfile");
    EXPECT_EQ(CommandFor("C:\\tmp\\a.abc"), "");
    EXPECT_EQ(CommandFor("C:\\tmp\\a"), "");
}

} // namespace
} // namespace tarvix::testing
