#include "shortcuts/formats/values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvix::shortcuts {
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

std::string TargetOfShellLink(std::string_view bytes) {
    return Read(Kind::kLnk, bytes)[kTarget];
}

std::string TargetOfInternetShortcut(std::string_view bytes) {
    return Read(Kind::kUrl, bytes)[kTarget];
}

TEST(LinkTargets, ComeFromTheIdList) {
    EXPECT_EQ(TargetOfShellLink(Header('\x81') + std::string(kIdList)), "C:\\A\\\u540D.TXT");
}

TEST(LinkTargets, ComeFromTheLinkInfo) {
    EXPECT_EQ(TargetOfShellLink(Header('\x82') + std::string(kLinkInfo)), "C:\\A\\\u540D.TXT");
}

TEST(LinkTargets, OfACutOrForeignFileAreEmptyOrWhatIsThere) {
    const std::string whole =
        Header('\x83') + std::string(kIdList) + std::string(kLinkInfo) + std::string(4, '\0');
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string target = TargetOfShellLink(whole.substr(0, length));
        EXPECT_TRUE(target.empty() || target.starts_with("C:\\")) << length << " " << target;
    }
    EXPECT_EQ(TargetOfShellLink(whole), "C:\\A\\\u540D.TXT");
    EXPECT_THAT(TargetOfShellLink("MZ" + whole), IsEmpty());
}

TEST(LinkTargets, OnANetworkComeFromShareAndSuffix) {
    std::string info(kUncInfo);
    EXPECT_THAT(TargetOfShellLink(Header('\x82') + info), ::testing::StartsWith("\\\\srv\\share"));
}

TEST(LinkTargets, OfInternetShortcutsStandBehindTheirKeyInAnyCase) {
    EXPECT_EQ(TargetOfInternetShortcut("[InternetShortcut]\r\nurl=http://a/b\r\n"), "http://a/b");
    EXPECT_THAT(TargetOfInternetShortcut("[InternetShortcut]\r\n"), IsEmpty());
}

} // namespace
} // namespace tarvix::shortcuts
