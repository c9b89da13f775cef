#include "platform/error.h"
#include "tests/machine/memory_environment.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

TEST(ExpandVariables, ReplacesWhatIsSet) {
    MemoryEnvironment environment;
    environment.Set("Name", "value");
    environment.Set("Empty", "");
    environment.Set("Sign", "100%Name%");
    const struct {
        const char* text;
        const char* expanded;
    } table[] = {
        {"", ""},
        {"no variable", "no variable"},
        {"%Name%", "value"},
        {"%NAME%\\a", "value\\a"},
        {"a%name%b%Name%c", "avaluebvaluec"},
        {"%Empty%x", "x"},
        {"%Missing%", "%Missing%"},
        {"%Missing%Name%", "%Missingvalue"},
        {"100% of %Name%", "100% of value"},
        {"%Name", "%Name"},
        {"%", "%"},
        {"%%", "%%"},
        {"%%Name%%", "%value%"},
        {"%Sign%", "100%Name%"},
        {"ä%Name%ö", "ävalueö"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(ExpandVariables(environment, row.text), row.expanded) << row.text;
    }
}

TEST(MemoryEnvironment, IsTheHomeOfAnn) {
    MemoryEnvironment environment;
    EXPECT_EQ(environment.Get("USERPROFILE"), "C:\\home\\ann");
    EXPECT_EQ(environment.ProgramFolder(), "C:\\home\\ann\\tarvix");
    EXPECT_FALSE(environment.DataFolder());
    for (const char* name : {"SystemDrive", "Temp", "windir", "ProgramFiles", "ProgramFiles(x86)",
                             "ProgramData", "Public", "AppData", "LocalAppData"}) {
        EXPECT_TRUE(environment.Get(name)) << name;
    }
}

TEST(MemoryEnvironment, SetReplacesWithoutRegardToCase) {
    MemoryEnvironment environment;
    environment.Set("Some", "1");
    environment.Set("SOME", "2");
    EXPECT_EQ(environment.Get("some"), "2");
    environment.Unset("sOME");
    EXPECT_FALSE(environment.Get("Some"));
}

TEST(MemoryEnvironment, ProtectedFoldersEndAtTheirName) {
    MemoryEnvironment environment;
    EXPECT_TRUE(environment.IsProtectedFolder("C:\\usr"));
    EXPECT_TRUE(environment.IsProtectedFolder("c:\\USR\\bin"));
    EXPECT_FALSE(environment.IsProtectedFolder("C:\\usrlocal"));
    EXPECT_FALSE(environment.IsProtectedFolder("C:\\home\\ann\\tarvix"));
}

TEST(ErrorText, OfKnownAndOtherNumbers) {
    EXPECT_STREQ(ErrorText(kFileNotFound), "File not found");
    EXPECT_STREQ(ErrorText(kPermissionDenied), "Permission denied");
    EXPECT_STREQ(ErrorText(kPathNotFound), "Path not found");
    EXPECT_STREQ(ErrorText(9999), "Unknown error");
}

} // namespace tarvix::platform
