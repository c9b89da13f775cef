#include "launch/custom/action_readers.h"
#include "launch/custom/conditions.h"
#include "launch/custom/expand.h"
#include "tests/machine/memory_desktop.h"

#include <gtest/gtest.h>

namespace tarvix::custom {
namespace {

using platform::ActionFile;
using platform::FileRight;
using platform::MemoryDesktop;
using Words = std::vector<std::string>;

Chosen Objects(std::vector<ChosenObject> objects) {
    return ChosenFrom(std::move(objects));
}

const Chosen kPicture = Objects({{"/p/a b.jpg", "image/jpeg"}});
const Chosen kTwoPictures = Objects({{"/p/a.jpg", "image/jpeg"}, {"/p/-r %f\n.jpg", "image/jpeg"}});
const Chosen kMixed = Objects({{"/p/a.jpg", "image/jpeg"}, {"/q/d", "inode/directory", true}});

// One action with one profile, so that a test adds what it is about.
ActionFile Action(std::string name, const std::string& action, const std::string& profile) {
    return {"/actions/" + name + ".desktop", name + ".desktop",
            "[Desktop Entry]\nType=Action\nName=" + name + "\nProfiles=one;\n" + action +
                "\n[X-Action-Profile one]\n" + profile + "\n"};
}

Words Labels(const std::vector<CustomEntry>& entries) {
    Words labels;
    for (const CustomEntry& entry : entries)
        labels.push_back(entry.label);
    return labels;
}

class CustomEntries : public ::testing::Test {
  protected:
    bool Shows(const std::string& profile, const Chosen& chosen, const std::string& action = "") {
        const std::vector<ActionFile> files{Action("Do", action, "Exec=x\n" + profile)};
        return !FileManagerEntries(desktop, files, chosen).empty();
    }

    MemoryDesktop desktop;
};

TEST_F(CustomEntries, GlobsFitByteForByte) {
    EXPECT_TRUE(FitsGlob("*.jpg", "a.jpg", true));
    EXPECT_FALSE(FitsGlob("*.jpg", "a.JPG", true));
    EXPECT_TRUE(FitsGlob("*.jpg", "a.JPG", false));
    EXPECT_TRUE(FitsGlob("a?c*", "abcdef", true));
    EXPECT_FALSE(FitsGlob("a?c", "ac", true));
    EXPECT_TRUE(FitsGlob("*", "", true));
    EXPECT_FALSE(FitsGlob(std::string(200, '*') + "x", std::string(5'000, 'a'), true));
}

TEST_F(CustomEntries, AnActionShowsByItsTypes) {
    EXPECT_TRUE(Shows("MimeTypes=image/*;", kPicture));
    EXPECT_TRUE(Shows("MimeTypes=image/jpeg;", kTwoPictures));
    EXPECT_FALSE(Shows("MimeTypes=image/*;", kMixed));
    EXPECT_TRUE(Shows("MimeTypes=image/*;inode/directory;", kMixed));
    EXPECT_TRUE(Shows("MimeTypes=*;", kMixed));
    EXPECT_TRUE(Shows("MimeTypes=all/all;", kMixed));
    EXPECT_FALSE(Shows("MimeTypes=all/allfiles;", kMixed));
    EXPECT_FALSE(Shows("MimeTypes=*;!image/jpeg;", kPicture));
    EXPECT_TRUE(Shows("MimeTypes=!text/plain;", kPicture));
    desktop.kinds.insert({"image/jpeg", "x/base"});
    EXPECT_TRUE(Shows("MimeTypes=x/base;", kPicture));
}

TEST_F(CustomEntries, AnActionShowsByNamesCountFoldersAndSchemes) {
    EXPECT_TRUE(Shows("Basenames=a*.jpg;", kPicture));
    EXPECT_FALSE(Shows("Basenames=A*.jpg;", kPicture));
    EXPECT_TRUE(Shows("Basenames=A*.jpg;\nMatchcase=false", kPicture));
    EXPECT_FALSE(Shows("Basenames=*;!a*;", kPicture));
    EXPECT_TRUE(Shows("SelectionCount==1", kPicture));
    EXPECT_FALSE(Shows("SelectionCount=>1", kPicture));
    EXPECT_TRUE(Shows("SelectionCount=<3", kTwoPictures));
    EXPECT_FALSE(Shows("SelectionCount=much", kPicture));
    EXPECT_TRUE(Shows("Folders=/p;", kPicture));
    EXPECT_FALSE(Shows("Folders=/pp;", kPicture));
    EXPECT_TRUE(Shows("Folders=/*;", kPicture));
    EXPECT_FALSE(Shows("Folders=/*;!/p;", kPicture));
    EXPECT_TRUE(Shows("Schemes=file;", kPicture));
    EXPECT_FALSE(Shows("Schemes=sftp;", kPicture));
}

TEST_F(CustomEntries, AnActionShowsByWhatTheMachineHas) {
    desktop.programs = {"there"};
    desktop.onBus = {"org.x"};
    desktop.running = {"player"};
    desktop.saysTrue = {"test it"};
    desktop.names = {"XFCE"};
    desktop.missing.insert({"/p/a b.jpg", FileRight::kWrite});
    EXPECT_TRUE(Shows("TryExec=there", kPicture));
    EXPECT_FALSE(Shows("TryExec=missing", kPicture));
    EXPECT_TRUE(Shows("ShowIfRegistered=org.x", kPicture));
    EXPECT_FALSE(Shows("ShowIfRegistered=org.y", kPicture));
    EXPECT_TRUE(Shows("ShowIfRunning=player", kPicture));
    EXPECT_FALSE(Shows("ShowIfRunning=other", kPicture));
    EXPECT_TRUE(Shows("ShowIfTrue=test it", kPicture));
    EXPECT_FALSE(Shows("ShowIfTrue=test that", kPicture));
    EXPECT_TRUE(Shows("OnlyShowIn=GNOME;XFCE;", kPicture));
    EXPECT_FALSE(Shows("OnlyShowIn=GNOME;", kPicture));
    EXPECT_FALSE(Shows("NotShowIn=XFCE;", kPicture));
    EXPECT_TRUE(Shows("Capabilities=Owner;Readable;", kPicture));
    EXPECT_FALSE(Shows("Capabilities=Writable;", kPicture));
    EXPECT_TRUE(Shows("Capabilities=!Writable;", kPicture));
    EXPECT_FALSE(Shows("Capabilities=Unknown;", kPicture));
}

TEST_F(CustomEntries, HiddenDisabledAndForeignActionsDoNotShow) {
    EXPECT_TRUE(Shows("", kPicture));
    EXPECT_FALSE(Shows("", kPicture, "Hidden=true"));
    EXPECT_FALSE(Shows("", kPicture, "Enabled=false"));
    EXPECT_FALSE(Shows("", kPicture, "TargetContext=false"));
    EXPECT_FALSE(Shows("ExecuteAs=root", kPicture));
}

TEST_F(CustomEntries, TheFirstProfileThatFitsCounts) {
    const std::vector<ActionFile> files{
        {"/a.desktop", "a.desktop",
         "[Desktop Entry]\nName=A\nName[de]=Ah\nProfiles=missing;text;picture;last;\n"
         "[X-Action-Profile text]\nMimeTypes=text/*;\nExec=t\n"
         "[X-Action-Profile picture]\nMimeTypes=image/*;\nExec=p\nExecutionMode=Terminal\n"
         "[X-Action-Profile last]\nExec=l\n"}};
    desktop.languages = {"de_DE", "de"};
    const auto entries = FileManagerEntries(desktop, files, kPicture);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].label, "Ah");
    EXPECT_EQ(entries[0].command.line, "p");
    EXPECT_TRUE(entries[0].command.inTerminal);
    EXPECT_FALSE(entries[0].command.showsOutput);
}

TEST_F(CustomEntries, AMenuHoldsItsItemsAndOnlyOnce) {
    const std::vector<ActionFile> files{
        Action("one", "", "Exec=1"),
        Action("two", "", "Exec=2"),
        Action("three", "", "Exec=3"),
        {"/m.desktop", "m.desktop",
         "[Desktop Entry]\nType=Menu\nName=More\nItemsList=two;SEPARATOR;one;gone;\n"}};
    const auto entries = FileManagerEntries(desktop, files, kPicture);
    EXPECT_EQ(Labels(entries), (Words{"three", "two", "one"}));
    EXPECT_TRUE(entries[0].submenus.empty());
    EXPECT_EQ(entries[1].submenus, (Words{"More"}));
    EXPECT_FALSE(entries[1].startsGroup);
    EXPECT_TRUE(entries[2].startsGroup);
}

TEST_F(CustomEntries, MenusThatHoldEachOtherEnd) {
    const std::vector<ActionFile> files{
        Action("one", "", "Exec=1"),
        {"/t.desktop", "t.desktop", "[Desktop Entry]\nType=Menu\nName=Top\nItemsList=a;\n"},
        {"/a.desktop", "a.desktop", "[Desktop Entry]\nType=Menu\nName=A\nItemsList=b;one;\n"},
        {"/b.desktop", "b.desktop", "[Desktop Entry]\nType=Menu\nName=B\nItemsList=a;b;\n"}};
    const auto entries = FileManagerEntries(desktop, files, kPicture);
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(entries.back().submenus, (Words{"Top", "A"}));
    EXPECT_EQ(entries.back().label, "one");
}

TEST_F(CustomEntries, TheUsersFileCountsBeforeTheSystems) {
    const std::vector<ActionFile> files{Action("a", "", "Exec=mine"),
                                        Action("a", "", "Exec=other")};
    const auto entries = FileManagerEntries(desktop, files, kPicture);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].command.line, "mine");
}

TEST_F(CustomEntries, AServiceMenuShowsByTypesNumbersAndProtocol) {
    const auto shows = [this](const std::string& keys, const Chosen& chosen) {
        const std::vector<ActionFile> files{
            {"/s/a.desktop", "a.desktop",
             "[Desktop Entry]\nType=Service\n" + keys +
                 "\nActions=x;\n[Desktop Action x]\nName=X\nExec=x %F\n",
             true}};
        return !ServiceEntries(desktop, files, chosen).empty();
    };
    EXPECT_TRUE(shows("MimeType=image/*;", kPicture));
    EXPECT_TRUE(shows("MimeType=text/plain,image/jpeg", kPicture));
    EXPECT_FALSE(shows("", kPicture));
    EXPECT_FALSE(shows("MimeType=application/octet-stream;", kMixed));
    EXPECT_TRUE(shows("MimeType=application/octet-stream;", kPicture));
    EXPECT_FALSE(shows("MimeType=all/all;\nExcludeServiceTypes=image/*;", kPicture));
    EXPECT_TRUE(shows("MimeType=all/all;\nX-KDE-Protocol=file", kPicture));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-Protocol=!file", kPicture));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-Protocols=sftp,fish", kPicture));
    EXPECT_TRUE(shows("MimeType=all/all;\nX-KDE-Protocols=sftp,file", kPicture));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-RequiredNumberOfUrls=2,3", kPicture));
    EXPECT_TRUE(shows("MimeType=all/all;\nX-KDE-RequiredNumberOfUrls=2,3", kTwoPictures));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-MaxNumberOfUrls=1", kTwoPictures));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-MinNumberOfUrls=2", kPicture));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-ServiceTypes=Other", kPicture));
    EXPECT_TRUE(shows("MimeType=all/all;\nX-KDE-ServiceTypes=KonqPopupMenu/Plugin", kPicture));
    EXPECT_FALSE(shows("MimeType=all/all;\nX-KDE-GetActionMenu=a b c d", kPicture));
}

TEST_F(CustomEntries, AServiceMenuWithoutTheRightToRunIsNotTrusted) {
    const std::string bytes = "[Desktop Entry]\nMimeType=all/all;\nX-KDE-Submenu=Sub\n"
                              "Actions=x;_SEPARATOR_;y;z;\n[Desktop Action x]\nName=X\nExec=x\n"
                              "[Desktop Action y]\nName=Y\nExec=y\n[Desktop Action z]\nName=Z\n";
    std::vector<ActionFile> files{{"/a.desktop", "a.desktop", bytes},
                                  {"/b.desktop", "b.desktop", bytes, true},
                                  {"/c.desktop", "c.desktop", bytes, false, true}};
    const auto entries = ServiceEntries(desktop, files, kPicture);
    ASSERT_EQ(entries.size(), 6U);
    EXPECT_FALSE(entries[0].isTrusted);
    EXPECT_TRUE(entries[2].isTrusted);
    EXPECT_TRUE(entries[4].isTrusted);
    EXPECT_EQ(entries[0].submenus, (Words{"Sub"}));
    EXPECT_FALSE(entries[0].startsGroup);
    EXPECT_TRUE(entries[1].startsGroup);
}

TEST_F(CustomEntries, ANemoActionShowsBySelectionAndExtensions) {
    desktop.programs = {"gimp"};
    const auto shows = [this](const std::string& keys, const Chosen& chosen) {
        const std::vector<ActionFile> files{
            {"/n/a.nemo_action", "a.nemo_action", "[Nemo Action]\nName=X\nExec=x %F\n" + keys}};
        return !NemoEntries(desktop, files, chosen).empty();
    };
    EXPECT_TRUE(shows("Selection=s\nExtensions=any;", kPicture));
    EXPECT_FALSE(shows("Selection=s\nExtensions=any;", kTwoPictures));
    EXPECT_TRUE(shows("Selection=m\nExtensions=jpg;", kTwoPictures));
    EXPECT_FALSE(shows("Selection=none\nExtensions=any;", kPicture));
    EXPECT_TRUE(shows("Selection=2\nExtensions=JPG;", kTwoPictures));
    EXPECT_FALSE(shows("Extensions=png;", kPicture));
    EXPECT_FALSE(shows("Extensions=dir;", kMixed));
    EXPECT_TRUE(shows("Extensions=dir;jpg;", kMixed));
    EXPECT_FALSE(shows("Extensions=nodirs;", kMixed));
    EXPECT_FALSE(shows("", kPicture));
    EXPECT_TRUE(shows("Mimetypes=image/*;", kPicture));
    EXPECT_FALSE(shows("Extensions=any;\nActive=false", kPicture));
    EXPECT_TRUE(shows("Extensions=any;\nDependencies=gimp;", kPicture));
    EXPECT_FALSE(shows("Extensions=any;\nDependencies=!gimp;", kPicture));
    EXPECT_FALSE(shows("Extensions=any;\nConditions=desktop;", kPicture));
    EXPECT_FALSE(shows("Extensions=any;\nUriScheme=sftp", kPicture));
}

TEST_F(CustomEntries, ANemoProgramLiesBesideItsFile) {
    const std::vector<ActionFile> files{
        {"/n 1/a.nemo_action", "a.nemo_action",
         "[Nemo Action]\nName=_Turn %N\nExec=<turn.sh --all %F>\nExtensions=any;\n"}};
    const auto entries = NemoEntries(desktop, files, kPicture);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].label, "Turn a b.jpg");
    const auto processes = Expand(entries[0].command, kPicture);
    ASSERT_TRUE(processes);
    EXPECT_EQ(processes->front().arguments, (Words{"/n 1/turn.sh", "--all", "/p/a b.jpg"}));
    EXPECT_EQ(processes->front().folder, "/p");
}

TEST_F(CustomEntries, AThunarActionShowsBySortsPatternsAndRange) {
    const auto shows = [this](const std::string& keys, const Chosen& chosen) {
        const std::vector<ActionFile> files{
            {"/uca.xml", "uca.xml",
             "<actions><action><name>X</name><command>x %F</command>" + keys +
                 "</action></actions>"}};
        return !ThunarEntries(desktop, files, chosen).empty();
    };
    EXPECT_TRUE(shows("<patterns>*</patterns><image-files/>", kPicture));
    EXPECT_TRUE(shows("<patterns>*.png;*.JPG</patterns><image-files/>", kPicture));
    EXPECT_FALSE(shows("<patterns>*.png</patterns><image-files/>", kPicture));
    EXPECT_FALSE(shows("<patterns>*</patterns><text-files/><other-files/>", kPicture));
    EXPECT_FALSE(shows("<image-files/>", kMixed));
    EXPECT_TRUE(shows("<image-files/><directories/>", kMixed));
    EXPECT_TRUE(shows("<range>1-2</range><image-files/>", kTwoPictures));
    EXPECT_FALSE(shows("<range>3</range><image-files/>", kTwoPictures));
    EXPECT_FALSE(shows("<range>x</range><image-files/>", kPicture));
}

TEST_F(CustomEntries, AThunarActionForOneDoesNotShowForMany) {
    const std::vector<ActionFile> files{
        {"/uca.xml", "uca.xml",
         "<actions><action><name>A &amp; B</name><submenu>Tools/More</submenu>"
         "<command>x %f | y</command><image-files/></action></actions>"},
        {"/etc/uca.xml", "uca.xml", "<actions/>"}};
    EXPECT_TRUE(ThunarEntries(desktop, files, kTwoPictures).empty());
    const auto entries = ThunarEntries(desktop, files, kPicture);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].label, "A & B");
    EXPECT_EQ(entries[0].submenus, (Words{"Tools", "More"}));
    const auto processes = Expand(entries[0].command, kPicture);
    ASSERT_TRUE(processes);
    EXPECT_EQ(processes->front().arguments, (Words{"/bin/sh", "-c", "x \"${TARVIX_1}\" | y"}));
    EXPECT_EQ(processes->front().variables.front().second, "/p/a b.jpg");
}

TEST_F(CustomEntries, BytesOfAnyKindAddNothing) {
    const std::string junk("\xFF\x00[Desktop Entry\n=\n[]\n]x[\nName", 30);
    const std::vector<ActionFile> files{{"/a.desktop", "a.desktop", junk},
                                        {"/b.desktop", ".desktop", "[Desktop Entry]\nName=x"}};
    EXPECT_TRUE(FileManagerEntries(desktop, files, kPicture).empty());
    EXPECT_TRUE(ServiceEntries(desktop, files, kPicture).empty());
    EXPECT_TRUE(NemoEntries(desktop, files, kPicture).empty());
    EXPECT_TRUE(ThunarEntries(desktop, files, kPicture).empty());
}

EntryCommand FileManager(std::string line) {
    return {.dialect = Dialect::kFileManager, .line = std::move(line), .name = "Do"};
}

Words Arguments(const EntryCommand& command, const Chosen& chosen, std::size_t process = 0) {
    const auto processes = Expand(command, chosen);
    if (!processes || processes->size() <= process) return {"none"};
    return (*processes)[process].arguments;
}

TEST(Expanding, CapitalCodesRunOnceForAll) {
    EXPECT_EQ(Arguments(FileManager("x %F %c"), kTwoPictures),
              (Words{"x", "/p/a.jpg", "/p/-r %f\n.jpg", "2"}));
    EXPECT_EQ(Expand(FileManager("x %F"), kTwoPictures)->size(), 1U);
    EXPECT_EQ(Expand(FileManager("x"), kTwoPictures)->size(), 1U);
}

TEST(Expanding, SmallCodesRunOnceForEach) {
    EXPECT_EQ(Arguments(FileManager("x %f"), kTwoPictures, 0), (Words{"x", "/p/a.jpg"}));
    EXPECT_EQ(Arguments(FileManager("x %f"), kTwoPictures, 1), (Words{"x", "/p/-r %f\n.jpg"}));
    EXPECT_EQ(Expand(FileManager("x %f %F"), kTwoPictures)->size(), 2U);
    EXPECT_EQ(Expand(FileManager("x %F %f"), kTwoPictures)->size(), 1U);
    EXPECT_EQ(Expand(FileManager("x %O %f"), kTwoPictures)->size(), 1U);
    EXPECT_EQ(Expand(FileManager("x %o"), kTwoPictures)->size(), 2U);
}

TEST(Expanding, AllCodesOfFileManagerActions) {
    EXPECT_EQ(Arguments(FileManager("x %b %d %f %m %u %w %x %s %%"), kPicture),
              (Words{"x", "a b.jpg", "/p", "/p/a b.jpg", "image/jpeg", "file:///p/a%20b.jpg", "a b",
                     "jpg", "file", "%"}));
    EXPECT_EQ(Arguments(FileManager("x %B %W"), kTwoPictures),
              (Words{"x", "a.jpg", "-r %f\n.jpg", "a", "-r %f\n"}));
}

TEST(Expanding, AnActionBeginsInItsFolder) {
    EntryCommand command = FileManager("x %f");
    command.folder = "%d/below";
    EXPECT_EQ(Expand(command, kPicture)->front().folder, "/p/below");
    command.folder.clear();
    EXPECT_EQ(Expand(command, kMixed)->front().folder, "/");
}

TEST(Expanding, OutputStaysInFrontOfTheUser) {
    EntryCommand command = FileManager("ls %f");
    command.showsOutput = true;
    EXPECT_EQ(Arguments(command, kPicture),
              (Words{"/bin/sh", "-c", "\"$@\"; printf '\\n[Enter]'; read -r _", "sh", "ls",
                     "/p/a b.jpg"}));
}

TEST(Expanding, ServiceMenusHaveTheirOwnCodes) {
    const EntryCommand command{.dialect = Dialect::kService,
                               .line = "x %i %c %k %F %U %d %n",
                               .file = "/s/a.desktop",
                               .name = "Do it",
                               .icon = "star"};
    EXPECT_EQ(Arguments(command, kPicture),
              (Words{"x", "--icon", "star", "Do it", "/s/a.desktop", "/p/a b.jpg",
                     "file:///p/a%20b.jpg", "/p", "a b.jpg"}));
    EXPECT_EQ(Arguments({.dialect = Dialect::kService, .line = "a %f && b"}, kPicture),
              (Words{"/bin/sh", "-c", "a \"${TARVIX_1}\" && b"}));
}

TEST(Expanding, ALineThatCannotBeReadIsTold) {
    EntryCommand command = FileManager("x 'open");
    command.file = "/a.desktop";
    const auto processes = Expand(command, kPicture);
    ASSERT_FALSE(processes);
    EXPECT_EQ(processes.error(), "The command of \"Do\" in /a.desktop can't be read: x 'open");
}

Chosen Many(std::size_t count, std::size_t length) {
    std::vector<ChosenObject> objects;
    for (std::size_t i = 0; i < count; ++i)
        objects.push_back({"/p/" + std::string(length, 'x') + std::to_string(i), "text/plain"});
    return ChosenFrom(std::move(objects));
}

TEST(Expanding, MoreThanTheSystemTakesIsRefused) {
    const auto all = Expand(FileManager("x %F"), Many(10'000, 200));
    ASSERT_FALSE(all);
    EXPECT_EQ(all.error(),
              "10000 objects are too many to be handed over at once. Select fewer of them.");
    const auto each = Expand(FileManager("x %f"), Many(201, 1));
    ASSERT_FALSE(each);
    EXPECT_EQ(each.error(), "\"Do\" would be started 201 times at once; 200 is the most. Select "
                            "fewer objects.");
    EXPECT_FALSE(Expand({.dialect = Dialect::kThunar, .line = "x %F"}, Many(5'001, 1)));
    EXPECT_FALSE(
        Expand({.dialect = Dialect::kScript, .line = "/s", .prefix = "NEMO"}, Many(1'000, 200)));
}

std::string VariableOf(const platform::PlannedProcess& process, std::string_view name) {
    for (const auto& [variable, value] : process.variables) {
        if (variable == name) return value;
    }
    return "none";
}

TEST(Expanding, AScriptGetsNamesInOneFolder) {
    const EntryCommand command{.dialect = Dialect::kScript, .line = "/s/go", .prefix = "NAUTILUS"};
    const auto processes = Expand(command, kTwoPictures);
    ASSERT_TRUE(processes);
    const auto& process = processes->front();
    EXPECT_EQ(process.arguments, (Words{"/s/go", "a.jpg", "./-r %f\n.jpg"}));
    EXPECT_EQ(process.folder, "/p");
    EXPECT_EQ(VariableOf(process, "NAUTILUS_SCRIPT_SELECTED_FILE_PATHS"),
              "/p/a.jpg\n/p/-r %f\n.jpg\n");
    EXPECT_EQ(VariableOf(process, "NAUTILUS_SCRIPT_SELECTED_URIS"),
              "file:///p/a.jpg\nfile:///p/-r%20%25f%0A.jpg\n");
    EXPECT_EQ(VariableOf(process, "NAUTILUS_SCRIPT_CURRENT_URI"), "file:///p");
    EXPECT_EQ(VariableOf(process, "NAUTILUS_SCRIPT_WINDOW_GEOMETRY"), "none");
}

TEST(Expanding, AScriptGetsWholePathsFromSeveralFolders) {
    const EntryCommand command{.dialect = Dialect::kScript, .line = "/s/go", .prefix = "CAJA"};
    const auto processes = Expand(command, kMixed);
    ASSERT_TRUE(processes);
    const auto& process = processes->front();
    EXPECT_EQ(process.arguments, (Words{"/s/go", "/p/a.jpg", "/q/d"}));
    EXPECT_EQ(process.folder, "/");
    EXPECT_EQ(VariableOf(process, "CAJA_SCRIPT_NEXT_PANE_CURRENT_URI"), "");
    EXPECT_EQ(VariableOf(process, "NAUTILUS_SCRIPT_SELECTED_FILE_PATHS"), "/p/a.jpg\n/q/d\n");
}

} // namespace
} // namespace tarvix::custom
