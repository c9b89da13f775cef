#include "platform/linux/linux_content_types.h"
#include "tests/machine/memory_content_types.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarvix::platform {
namespace {

class LinuxContentTypesTest : public ::testing::Test {
  protected:
    LinuxContentTypesTest() {
        setenv("LC_ALL", "C", 1);
        unsetenv("LANGUAGE");
    }
    std::string Name(std::string_view path, std::uint32_t attributes = kArchive) {
        return types_.TypeName(path, {.attributes = attributes});
    }

    LinuxContentTypes types_;
};

TEST_F(LinuxContentTypesTest, CommonTypes) {
    EXPECT_EQ(Name("C:\\Music\\a.mp3"), "MP3 audio");
    EXPECT_EQ(Name("C:\\a.JPG"), "JPEG image");
    EXPECT_EQ(Name("\\\\server\\share\\a.zip"), "Zip archive");
    EXPECT_EQ(Name("a.html"), "HTML document");
}

TEST_F(LinuxContentTypesTest, UnknownTypesAreEmpty) {
    EXPECT_EQ(Name("C:\\a.qqqqq"), "");
    EXPECT_EQ(Name("C:\\noextension"), "");
    EXPECT_EQ(Name("C:\\endswithdot."), "");
    EXPECT_EQ(Name("C:\\"), "");
    EXPECT_EQ(Name(""), "");
}

TEST_F(LinuxContentTypesTest, TheWholeNameDecidesInAnyOrder) {
    EXPECT_EQ(Name("C:\\a.gz"), "Gzip archive");
    EXPECT_EQ(Name("C:\\a.tar.gz"), "Tar archive (gzip-compressed)");
    EXPECT_EQ(Name("C:\\b.gz"), "Gzip archive");
    EXPECT_EQ(Name("C:\\Makefile"), "Makefile build file");
}

TEST_F(LinuxContentTypesTest, FoldersOfThePathDoNotCount) {
    EXPECT_EQ(Name("C:\\songs.mp3\\noextension"), "");
    EXPECT_EQ(Name("C:\\songs.mp3\\a.zip"), "Zip archive");
}

TEST_F(LinuxContentTypesTest, FoldersAndSpecialFilesHaveNone) {
    EXPECT_EQ(Name("C:\\a.mp3", kFolder), "");
    EXPECT_EQ(Name("C:\\a.mp3", kFolder | kAlias), "");
    EXPECT_EQ(Name("C:\\a.mp3", kSpecial), "");
    EXPECT_EQ(Name("C:\\a.mp3", kAlias), "MP3 audio");
}

TEST_F(LinuxContentTypesTest, NamesOfOddCharacters) {
    EXPECT_EQ(Name("C:\\bad\xFF.mp3"), "MP3 audio");
    EXPECT_EQ(Name("C:\\a\xEF\x80\xBA"
                   "b.mp3"),
              "MP3 audio"); // a carried colon
    EXPECT_EQ(Name("C:\\" + std::string(5000, 'x') + ".mp3"), "MP3 audio");
}

TEST(MemoryContentTypes, NamesByExtension) {
    MemoryContentTypes types;
    types.SetTypeName("MP3", "Song");
    EXPECT_EQ(types.TypeName("C:\\a.mp3", {}), "Song");
    EXPECT_EQ(types.TypeName("C:\\a.zip", {}), "");
    EXPECT_EQ(types.TypeName("C:\\a.mp3", {.attributes = kFolder}), "");
    EXPECT_EQ(types.asked, 3u);
}

} // namespace
} // namespace tarvix::platform
