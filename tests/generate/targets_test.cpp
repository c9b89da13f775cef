#include "results/link_target.h"
#include "tests/generate/generate_fixture.h"

namespace tarvix::testing {
namespace {

// C:\A\名.TXT.
constexpr std::string_view kIdList{"\x8F\0"
                                   "\x14\0\x1F\x50\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\0"
                                   "\x2B\x30\x30\x9D"
                                   "\x19\0\x2F\x43\x3A\x5C\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                   "\x2A\0\x31\0\0\0\0\0\0\0\0\0\x10\0\x41\0"
                                   "\x1A\0\x03\0\x04\0\xEF\xBE\0\0\0\0\0\0\0\0\x14\0\0\0\x41\0\0\0"
                                   "\x10\0"
                                   "\x36\0\x32\0\0\0\0\0\0\0\0\0\x20\0\x4E\x2E\x54\x58\x54\0"
                                   "\x22\0\x03\0\x04\0\xEF\xBE\0\0\0\0\0\0\0\0\x14\0\0\0\x0D\x54"
                                   "\x2E\0\x54\0\x58\0\x54\0\0\0\x14\0\0\0",
                                   0x91};
std::string Header(char flags) {
    std::string link("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20);
    link += flags;
    link.resize(0x4C);
    return link;
}

class TargetLists : public GenerateFixture {
  protected:
    TargetLists() {
        Disk().AddFile("C:\\A\\\u540D.TXT");
        Disk().AddFile("C:\\t\\1.lnk", Header('\x81') + std::string(kIdList));
        Disk().AddFile("C:\\t\\2.txt", "no shortcut");
        Disk().AddFile("C:\\t\\3.url", "[InternetShortcut]\nURL=http://example.com/\n");
    }
};

TEST_F(TargetLists, HaveABlankLineForWhatIsNoShortcut) {
    Find();
    EXPECT_EQ(Write(Form().mnuTools_TargetPaths, "C:\\d\\t.txt"),
              "/A/\u540D.TXT\r\n\r\nhttp://example.com/\r\n*EOF\r\n");
}

TEST_F(TargetLists, InDriveFormHaveDrivePaths) {
    InDriveForm();
    Find();
    EXPECT_EQ(Write(Form().mnuTools_TargetPaths, "C:\\d\\t.txt"),
              "C:\\A\\\u540D.TXT\r\n\r\nhttp://example.com/\r\n*EOF\r\n");
}

TEST_F(TargetLists, SpellATargetAsTheDiskDoes) {
    InDriveForm();
    EXPECT_EQ(results::NormalizeTargetPath(S(), "\"c:\\a\\\u540D.txt\""), "C:\\A\\\u540D.TXT");
    EXPECT_EQ(results::NormalizeTargetPath(S(), "c:\\gone\\x.txt"), "c:\\gone\\x.txt");
    EXPECT_EQ(results::NormalizeTargetPath(S(), "http://a/b"), "http://a/b");
}

} // namespace
} // namespace tarvix::testing
