#include "results/link_target.h"
#include "tests/generate/generate_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::IsEmpty;

// The smallest link that says all: C:\A\名.TXT by its ID list, and by its link info.
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
constexpr std::string_view kLinkInfo{
    "\x5A\0\0\0\x24\0\0\0\x01\0\0\0\x24\0\0\0\x35\0\0\0\0\0\0\0\x40\0\0\0\x42\0\0\0\x58\0\0\0"
    "\x11\0\0\0\x03\0\0\0\xCD\xAB\x34\x12\x10\0\0\0\0"
    "C:\\A\\?.TXT\0\0\0"
    "C\0:\0\\\0A\0\\\0\x0D\x54.\0T\0X\0T\0\0\0\0\0",
    0x5A};
constexpr std::string_view kUncInfo{
    "\x3F\0\0\0\x1C\0\0\0\x02\0\0\0\0\0\0\0\0\0\0\0\x1C\0\0\0\x3C\0\0\0"
    "\x20\0\0\0\x02\0\0\0\x14\0\0\0\0\0\0\0\0\0\x02\0"
    "\\\\srv\\share\0"
    "a\\b",
    0x3F};

std::string Header(char flags) {
    std::string link("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20);
    link += flags;
    link.resize(0x4C);
    return link;
}

TEST(LinkTargets, ComeFromTheIdList) {
    EXPECT_EQ(results::TargetOfShellLink(Header('\x81') + std::string(kIdList)),
              "C:\\A\\\u540D.TXT");
}

TEST(LinkTargets, ComeFromTheLinkInfo) {
    EXPECT_EQ(results::TargetOfShellLink(Header('\x82') + std::string(kLinkInfo)),
              "C:\\A\\\u540D.TXT");
}

TEST(LinkTargets, OfACutOrForeignFileAreEmptyOrWhatIsThere) {
    const std::string whole =
        Header('\x83') + std::string(kIdList) + std::string(kLinkInfo) + std::string(4, '\0');
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string target = results::TargetOfShellLink(whole.substr(0, length));
        EXPECT_TRUE(target.empty() || target.starts_with("C:\\")) << length << " " << target;
    }
    EXPECT_EQ(results::TargetOfShellLink(whole), "C:\\A\\\u540D.TXT");
    EXPECT_THAT(results::TargetOfShellLink("MZ" + whole), IsEmpty());
}

TEST(LinkTargets, OnANetworkComeFromShareAndSuffix) {
    std::string info(kUncInfo);
    EXPECT_THAT(results::TargetOfShellLink(Header('\x82') + info),
                ::testing::StartsWith("\\\\srv\\share"));
}

TEST(LinkTargets, OfInternetShortcutsStandBehindTheirKeyInAnyCase) {
    EXPECT_EQ(results::TargetOfInternetShortcut("[InternetShortcut]\r\nurl=http://a/b\r\n"),
              "http://a/b");
    EXPECT_THAT(results::TargetOfInternetShortcut("[InternetShortcut]\r\n"), IsEmpty());
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
