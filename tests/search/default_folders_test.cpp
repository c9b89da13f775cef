#include "results/net_hood.h"
#include "search/default_folders.h"
#include "search/locations.h"
#include "session/product.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kFolder = "C:\\home\\ann\\tarvix\\";

class DefaultFolders : public ProgramFixture {
  protected:
    // The folders behind a title; nothing when the row is not there.
    std::optional<std::string> Row(std::string_view title) {
        const auto& options = State().options;
        for (std::size_t i = 0; i < options.strDefSearchFolderTitle.size(); ++i) {
            if (options.strDefSearchFolderTitle[i] == title) return options.strDefSearchFolder[i];
        }
        return std::nullopt;
    }
    std::vector<std::string> Shown() {
        std::vector<std::string> texts;
        for (int i = 0; i < State().intFirstHistoryRow; ++i)
            texts.push_back(Form().cmbDir.Items()[static_cast<std::size_t>(i)].text);
        return texts;
    }
    void GivenOptions(const std::string& lines) {
        Disk().AddFile(kFolder + "TXOptionFile.txt",
                       "x\r\n" + std::string(session::ProductVersion()) + "\r\n" + lines);
    }
};

TEST_F(DefaultFolders, RowsWhoseCandidatesExistAreShownInOrder) {
    Start();
    EXPECT_THAT(Shown(),
                ElementsAre(" All hard drives ", " All hard drives and CD/DVD's ",
                            " Drive Where Current Windows Folder Resides ",
                            " Current User Profile Folder ", " Current 'Documents' Folder ",
                            " Current User Profile Temp Folder ", " Tarvix Application Path "));
    EXPECT_EQ(Row(" All hard drives "), "C:\\");
    EXPECT_EQ(Row(" Current User Profile Folder "), "C:\\home\\ann");
    EXPECT_EQ(Row(" Current User Profile Temp Folder "), "C:\\tmp");
    EXPECT_EQ(Row(" Tarvix Application Path "), "C:\\home\\ann\\tarvix");
}

TEST_F(DefaultFolders, DrivesStandInTheirThreeRowsByType) {
    Disk().AddDrive("D:", platform::DriveType::kCdRom);
    Disk().AddDrive("E:", platform::DriveType::kRemovable);
    Disk().AddDrive("F:", platform::DriveType::kFixed);
    Disk().AddDrive("G:", platform::DriveType::kNetwork);
    Disk().AddDrive("H:", platform::DriveType::kFixed);
    Disk().SetReady("H:", false);
    Start();
    EXPECT_EQ(Row(" All hard drives "), "C:\\|F:\\");
    EXPECT_EQ(Row(" All hard drives and CD/DVD's "), "C:\\|D:\\|E:\\|F:\\");
    EXPECT_EQ(Row(" All CD/DVD's and Removables"), "D:\\|E:\\");
}

TEST_F(DefaultFolders, OnlyTheCandidatesThatExistAreKept) {
    Disk().AddFolder("C:\\home\\ann\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu");
    Start();
    EXPECT_EQ(Row(" Current User Profile Start Menu "),
              "C:\\home\\ann\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu");
    EXPECT_EQ(Row(" Current 'All Users' Profile Start Menu "), std::nullopt);
}

TEST_F(DefaultFolders, OnASystemOfOneWidthTheTwoTitlesOfBothDontAppear) {
    Disk().AddFolder("C:\\opt");
    Start();
    EXPECT_EQ(Row(" Current 'Program Files' Folder "), "C:\\opt");
    EXPECT_EQ(Row(" 64 & 32bit 'Program Files' Folders "), std::nullopt);
    EXPECT_EQ(Row(" 64 & 32bit 'Common Program Files' Folders "), std::nullopt);
}

TEST_F(DefaultFolders, OnASystemOfTwoWidthsBothFoldersStandInOneRow) {
    machine.environment.Set("ProgramW6432", "C:\\opt");
    Disk().AddFolder("C:\\opt");
    Disk().AddFolder("C:\\usr\\local");
    Start();
    EXPECT_EQ(Row(" 64 & 32bit 'Program Files' Folders "), "C:\\usr\\local|C:\\opt");
    EXPECT_EQ(Row(" Current 'Program Files' Folder "), std::nullopt);
}

TEST_F(DefaultFolders, TheSystemsVersionChoosesTitles) {
    Disk().AddFolder("C:\\home\\ann\\My Documents");
    Disk().AddFolder("C:\\Documents and Settings");
    Disk().AddFolder("C:\\Users");
    Start();
    EXPECT_EQ(Row(" 'Users' Folder "), "C:\\Users");
    EXPECT_EQ(Row(" Current 'My Documents' Folder "), std::nullopt);
    State().intOSVersion = 5001;
    search::BuildDefaultFolderList(S());
    EXPECT_EQ(Row(" Current 'My Documents' Folder "), "C:\\home\\ann\\My Documents");
    EXPECT_EQ(Row(" Documents and Settings Folder "), "C:\\Documents and Settings");
    EXPECT_EQ(Row(" 'Users' Folder "), std::nullopt);
}

TEST_F(DefaultFolders, TheVirtualStoreHasRowsOfItsOwn) {
    machine.environment.programFolder = "C:\\usr\\bin";
    Disk().AddFolder("C:\\usr\\bin");
    Start();
    const std::string store = "C:\\home\\ann\\.local\\share\\tarvix\\VirtualStore\\usr\\bin";
    EXPECT_EQ(Row(" Tarvix Application Path "), "C:\\usr\\bin");
    EXPECT_EQ(Row(" Tarvix Application Path Virtual Store "), store);
    EXPECT_EQ(Row(" Tarvix Application Path AND Virtual Store "), "C:\\usr\\bin|" + store);
}

TEST_F(DefaultFolders, AConfiguredFolderWithoutATitleIsNotOffered) {
    GivenOptions("strDefSearchFolder(1) = C:\\a[\r\nstrDefSearchFolder(2) = C:\\b[B\r\n"
                 "strDefSearchFolder(3) = C:\\c[ C \r\nstrDefSearchFolder(4) = [D\r\n");
    Start();
    const auto shown = Shown();
    EXPECT_EQ(shown[0], " B") << "a blank tells a title from a path";
    EXPECT_EQ(shown[1], " C ");
    EXPECT_EQ(shown[2], " All hard drives ");
}

TEST_F(DefaultFolders, APickedTitleIsSearched) {
    Disk().AddFile("C:\\b\\x.txt");
    Disk().AddFile("C:\\tmp\\y.txt");
    GivenOptions("strDefSearchFolder(2) = %Temp%|/b[Both\r\n");
    Start();
    Search("*.txt", " Both");
    EXPECT_THAT(Paths(), ElementsAre("C:\\tmp\\y.txt", "C:\\b\\x.txt"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\tmp|C:\\b");
    Search("*.txt", " Current User Profile Temp Folder ");
    EXPECT_THAT(Paths(), ElementsAre("C:\\tmp\\y.txt"));
}

TEST_F(DefaultFolders, PredefinedRowsAreNotSaved) {
    Start();
    program.Stop();
    EXPECT_THAT(*Disk().Content(kFolder + "TXOptionFile.txt"), Not(HasSubstr("All hard drives")));
}

// ---- list files ----

TEST_F(DefaultFolders, ARowOfSeveralFoldersGetsItsListTheFirstTimeOnly) {
    Disk().AddDrive("F:", platform::DriveType::kFixed);
    const std::string file = kFolder + " All hard drives .mpl";
    Start();
    EXPECT_EQ(Disk().Content(file), "/\r\n/media/f\r\n*EOF");
    EXPECT_TRUE(Disk().Exists(kFolder + " All hard drives and CD-DVD's .mpl"));
    EXPECT_TRUE(HasEntry(LogText(), " Tarvix selected to Create MPL From Default Search list:  All "
                                    "hard drives .mpl"));
    Disk().AddFile(file, "mine");
    app::Program(machine.platform, prompts).Start("");
    EXPECT_EQ(Disk().Content(file), "mine");
}

TEST_F(DefaultFolders, ARowOfOneFolderGetsNoList) {
    Start();
    EXPECT_FALSE(Disk().Exists(kFolder + " All hard drives .mpl"));
}

TEST_F(DefaultFolders, ListsHaveDrivePathsWhereToldSo) {
    Disk().AddDrive("F:", platform::DriveType::kFixed);
    Disk().AddFile(kFolder + "TXPlatform.txt", "ListPathForm = drive\r\n*EOF");
    Start();
    EXPECT_EQ(Disk().Content(kFolder + " All hard drives .mpl"), "C:\\\r\nF:\\\r\n*EOF");
}

TEST_F(DefaultFolders, WithoutFoldersNoListIsMadeAndThatIsLogged) {
    GivenOptions("strDefSearchFolder(2) = C:\\gone|C:\\away[Lost\r\n");
    Start();
    search::WriteDefaultSearchMPL(S(), "Lost");
    search::WriteDefaultSearchMPL(S(), "Unheard of");
    EXPECT_FALSE(Disk().Exists(kFolder + "Lost.mpl"));
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " Tarvix was unable to Create MPL From Default Search list: "
                              "Lost.mpl Folders are unavailable at this time."));
    EXPECT_THAT(log, HasSubstr("list: Unheard of.mpl Folders are unavailable"));
}

TEST_F(DefaultFolders, AListThatCannotBeWrittenEndsNothing) {
    Disk().AddDrive("F:", platform::DriveType::kFixed);
    machine.faults.FailPath(kFolder + " All hard drives .mpl.tmp", platform::kDiskFull);
    Start();
    EXPECT_TRUE(State().blnStarted);
    EXPECT_TRUE(prompts.Records().empty());
}

// ---- the network ----

class NetHood : public ProgramFixture {
  protected:
    NetHood() {
        Disk().AddDrive("\\\\nas\\music", platform::DriveType::kNetwork, "cifs");
        Disk().AddFile("\\\\nas\\music\\rock\\a.mp3");
    }
    static constexpr const char* kDesktop = "C:\\run\\user\\1000\\gvfs\\smb-share\xEF\x80\xBA"
                                            "domain=HOME,server=nas,share=music,user=ann";
};

TEST_F(NetHood, AnAddressBecomesItsShare) {
    EXPECT_EQ(results::ResolveNetHood(S(), "smb://nas/music/rock"), "\\\\nas\\music\\rock");
    EXPECT_EQ(results::ResolveNetHood(S(), "SMB://nas/music"), "\\\\nas\\music");
}

TEST_F(NetHood, TheDesktopsFolderBecomesItsShare) {
    EXPECT_EQ(results::ResolveNetHood(S(), kDesktop), "\\\\nas\\music");
    EXPECT_EQ(results::ResolveNetHood(S(), std::string(kDesktop) + "\\rock"),
              "\\\\nas\\music\\rock");
}

TEST_F(NetHood, AShareThatIsNotMountedStaysAsItWasPicked) {
    EXPECT_EQ(results::ResolveNetHood(S(), "smb://nas/other"), "smb://nas/other");
    EXPECT_EQ(results::ResolveNetHood(S(), "smb://"), "smb://");
    EXPECT_EQ(results::ResolveNetHood(S(), "C:\\x"), "C:\\x");
}

TEST_F(NetHood, APickedShareAndATypedAddressAreSearched) {
    Start();
    prompts.Queue(kDesktop);
    Click(Form().cmdBrowse);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "\\\\nas\\music");
    Search("*.mp3", "smb://nas/music/rock");
    EXPECT_THAT(Names(), ElementsAre("a.mp3"));
    Search("*.mp3", "\\\\nas\\music\\rock");
    EXPECT_THAT(Names(), ElementsAre("a.mp3"));
}

} // namespace
} // namespace tarvix::testing
