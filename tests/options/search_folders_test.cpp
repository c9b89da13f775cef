#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class SearchFolders : public OptionsFixture {
  protected:
    void Give(int index, std::string_view folder, std::string_view title) {
        Click(Window().optDefSearchFolder[index]);
        SetNamed("txtDefFolder", folder);
        SetNamed("txtDefFolderTitle", title);
    }
    std::vector<std::string> Offered() {
        std::vector<std::string> texts;
        for (const auto& item : Form().cmbDir.Items())
            texts.push_back(item.text);
        return texts;
    }
};

TEST_F(SearchFolders, AnEntryShowsItsTitleOrThatItHasNone) {
    Start();
    Inside([&] {
        EXPECT_EQ(Window().optDefSearchFolder[3].Caption.Get(), "(Untitled)");
        Give(3, "C:\\x", "Mine");
        EXPECT_EQ(Window().optDefSearchFolder[3].Caption.Get(), "Mine");
        SetNamed("txtDefFolderTitle", " ");
        EXPECT_EQ(Window().optDefSearchFolder[3].Caption.Get(), "(Untitled)");
        EXPECT_EQ(ValueOf("lblDefFolder"),
                  "Type in name for the search folder, will be displayed in brackets in drop down "
                  "list. (Title required to use.)");
    });
}

TEST_F(SearchFolders, TheBoxesShowTheChosenEntry) {
    GivenOptions("strDefSearchFolder(5) = C:\\five[Five\r\n");
    Start();
    Inside([&] {
        EXPECT_TRUE(Window().optDefSearchFolder[0].Value);
        EXPECT_EQ(ValueOf("txtDefFolder"), "%UserProfile%\\Documents");
        Click(Window().optDefSearchFolder[5]);
        EXPECT_EQ(ValueOf("txtDefFolder"), "C:\\five");
        EXPECT_EQ(ValueOf("txtDefFolderTitle"), "Five");
        Click(Window().optDefSearchFolder[6]);
        EXPECT_EQ(ValueOf("txtDefFolder"), "");
    });
}

TEST_F(SearchFolders, AFolderWithoutATitleIsntOffered) {
    Start();
    Accept([&] {
        Give(1, "C:\\home\\ann\\Music", "Music of mine");
        Give(2, "C:\\home\\ann\\Desktop", "");
    });
    EXPECT_THAT(Offered(), ::testing::Contains(" Music of mine"));
    Accept([&] { Give(1, "C:\\home\\ann\\Music", ""); });
    EXPECT_THAT(Offered(), Not(::testing::Contains(" Music of mine")));
    EXPECT_TRUE(FileHas("strDefSearchFolder(2) = C:\\home\\ann\\Desktop["));
}

TEST_F(SearchFolders, AListIsCleanedAndGetsItsFileTheFirstTimeOnly) {
    Disk().AddFolder("C:\\a");
    Disk().AddFolder("C:\\b");
    Start();
    Accept([&] { Give(1, " C:\\a | |C:\\b|", "Both"); });
    EXPECT_TRUE(FileHas("strDefSearchFolder(1) = C:\\a|C:\\b[Both"));
    const std::string list = Disk().Content(kData + "Both.mpl").value_or("");
    EXPECT_THAT(list, HasSubstr("\r\n*EOF"));
    EXPECT_THAT(LogText(), HasSubstr(" Tarvix selected to Create MPL From Default Search list: "
                                     "Both.mpl"));
}

TEST_F(SearchFolders, TheFileOfAListIsNeverWrittenOver) {
    Disk().AddFolder("C:\\a");
    Disk().AddFolder("C:\\b");
    Disk().AddFile(kData + "Both.mpl", "mine");
    Start();
    Accept([&] { Give(1, "C:\\a|C:\\b", "Both"); });
    EXPECT_EQ(Disk().Content(kData + "Both.mpl").value_or(""), "mine");
}

TEST_F(SearchFolders, AListWithoutATitleGetsNoFile) {
    Disk().AddFolder("C:\\a");
    Disk().AddFolder("C:\\b");
    Start();
    Accept([&] { Give(1, "C:\\a|C:\\b", ""); });
    EXPECT_FALSE(Disk().Exists(kData + ".mpl"));
}

TEST_F(SearchFolders, NativePathsAreTakenAndKeptInDriveForm) {
    Start();
    Accept([&] { Give(5, "%UserProfile%/Music", "Own"); });
    EXPECT_TRUE(FileHas("strDefSearchFolder(5) = %UserProfile%\\Music[Own"));
    Accept([&] { Give(4, "/srv/music|~/Music", "Music"); });
    EXPECT_TRUE(FileHas("strDefSearchFolder(4) = C:\\srv\\music|C:\\home\\ann\\Music[Music"));
}

TEST_F(SearchFolders, APathThatTheFileCantHoldIsRefused) {
    Start();
    const std::string before = File();
    Inside([&] {
        Give(7, "C:\\Music [live]", "Live");
        Click(Window().optDefSearchFolder[0]);
        Click(Window().cmdOK);
        EXPECT_TRUE(Window().IsShown());
        EXPECT_TRUE(Window().optDefSearchFolder[7].Value);
        EXPECT_EQ(Window().Page(), int{fields::kDefaultsPage});
    });
    EXPECT_TRUE(WasTold("can't have a \"[\" in its path"));
    EXPECT_EQ(State().options.strDefSearchFolder[7], "");
    EXPECT_EQ(File(), before);
}

TEST_F(SearchFolders, TheFirstOneIsNeverEmpty) {
    Start();
    Accept([&] { Give(0, "", ""); });
    EXPECT_TRUE(FileHas("strDefSearchFolder(0) = %UserProfile%\\Documents["));
}

TEST_F(SearchFolders, BrowsingFillsTheFolder) {
    Start();
    Accept([&] {
        Click(Window().optDefSearchFolder[2]);
        prompts.Queue("C:\\home\\ann\\Music");
        Click(Window().cmdBrowse);
        EXPECT_EQ(ValueOf("txtDefFolder"), "C:\\home\\ann\\Music");
        Click(Window().cmdBrowse); // cancelled
        EXPECT_EQ(ValueOf("txtDefFolder"), "C:\\home\\ann\\Music");
    });
    EXPECT_TRUE(FileHas("strDefSearchFolder(2) = C:\\home\\ann\\Music["));
}

TEST_F(SearchFolders, OnASystemOfOneWidthTheTwoWideTitlesDontAppear) {
    Disk().AddFolder("C:\\opt");
    Disk().AddFolder("C:\\usr\\local");
    Start();
    for (const std::string& title : Offered())
        EXPECT_THAT(title, Not(HasSubstr("64 & 32bit")));
    Accept([] {});
    EXPECT_THAT(Offered(), ::testing::Contains(" Current 'Program Files' Folder "));
    machine.environment.Set("ProgramW6432", "C:\\opt");
    Accept([] {});
    EXPECT_THAT(Offered(), ::testing::Contains(" 64 & 32bit 'Program Files' Folders "));
}

TEST_F(SearchFolders, APredefinedRowOfSeveralFoldersGetsItsFileTheFirstTimeOnly) {
    machine.environment.Set("ProgramW6432", "C:\\opt");
    Disk().AddFolder("C:\\opt");
    Disk().AddFolder("C:\\usr\\local");
    Start();
    const std::string file = kData + " 64 & 32bit 'Program Files' Folders .mpl";
    std::string found;
    for (const char* blank : {" ", "\xEF\x80\xA0"}) {
        const std::string name = kData + blank + "64 & 32bit 'Program Files' Folders" + " .mpl";
        if (Disk().Exists(name)) found = name;
    }
    ASSERT_NE(found, "") << file;
    Disk().AddFile(found, "kept");
    Accept([] {});
    EXPECT_EQ(Disk().Content(found).value_or(""), "kept");
}

} // namespace
} // namespace tarvix::testing
