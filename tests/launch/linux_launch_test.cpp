#include "platform/linux/linux_platform.h"
#include "tests/launch/desktop_world.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace tarvix::testing {
namespace {

using platform::ProgramKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

// Applications of a desktop of its own, whose programs write down what they are given.
class LinuxLaunch : public ::testing::Test {
  protected:
    LinuxLaunch() { desk_.UseTerminal("recorder terminal --"); }

    std::string Drive(const std::string& native) { return parts_.paths.ToDrive(native); }
    std::string Add(const std::string& name, const std::string& text = "x") {
        const std::string native = world_.AddFile(name, text);
        natives_.push_back(native);
        drives_.push_back(Drive(native));
        return native;
    }
    // Opens what was added with an application; its failure's number.
    int Open(const std::string& id, const std::string& folder = "C:\\tmp") {
        const auto plan = desk_.PlanApplication(id, drives_, folder);
        if (!plan) return plan.error().number;
        const auto started = desk_.Start(*plan);
        return started ? 0 : started.error().number;
    }
    std::vector<std::string> Given(const std::string& id) {
        EXPECT_EQ(Open(id), 0) << id;
        return world_.Take(1).at(0).arguments;
    }

    DesktopWorld& world_ = DesktopWorld::Get();
    platform::LinuxPlatform machine_;
    platform::Platform parts_ = machine_.Parts();
    platform::Applications& desk_ = parts_.applications;
    std::vector<std::string> natives_;
    std::vector<std::string> drives_;
};

// ---- arguments ----

TEST_F(LinuxLaunch, NamesReachTheProgramByteForByte) {
    const std::vector<std::string> names{"with blank.txt",
                                         " lead and trail ",
                                         "it's \"quoted\".txt",
                                         "50% off %f %U.txt",
                                         "two\nlines.txt",
                                         "-rf",
                                         "$(id) `id`",
                                         "a\\b;c|d&e.txt",
                                         "caf\xE9.txt",
                                         "m\xC3\xB6re.txt",
                                         "*"};
    std::vector<std::string> expected{"many"};
    for (const std::string& name : names)
        expected.push_back(Add(name));
    expected.emplace_back("end");
    EXPECT_EQ(Given("many.desktop"), expected);
}

TEST_F(LinuxLaunch, TwoHundredFilesGoToOneProcess) {
    std::vector<std::string> expected{"many"};
    for (int i = 0; i < 200; ++i)
        expected.push_back(Add("track " + std::to_string(1000 + i) + ".txt"));
    expected.emplace_back("end");
    EXPECT_EQ(Given("many.desktop"), expected);
}

TEST_F(LinuxLaunch, ACodeForOneFileGivesEachAProcess) {
    const std::string first = Add("1.txt");
    const std::string second = Add("2.txt");
    EXPECT_EQ(Open("one.desktop"), 0);
    const auto records = world_.Take(2);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_THAT(records[0].arguments, ElementsAre("one", first));
    EXPECT_THAT(records[1].arguments, ElementsAre("one", second));
}

TEST_F(LinuxLaunch, AddressesArePercentEncoded) {
    Add("a b%\n\xE9.txt");
    const std::string base = "file://" + (world_.Root() / "files").string() + "/";
    EXPECT_THAT(Given("address.desktop"), ElementsAre("address", base + "a%20b%25%0A%E9.txt"));
    Add("c.txt");
    EXPECT_THAT(Given("addresses.desktop"),
                ElementsAre("addresses", base + "a%20b%25%0A%E9.txt", base + "c.txt"));
}

TEST_F(LinuxLaunch, CodesStandForNameIconAndEntry) {
    const std::string file = Add("a.txt");
    const std::string entry = (world_.Root() / "data/applications/codes.desktop").string();
    EXPECT_THAT(Given("codes.desktop"), ElementsAre("a \"b\" c", "--icon", "coded", "Coded Name",
                                                    entry, "100%", "x" + file + "y"));
}

TEST_F(LinuxLaunch, WithoutAnIconItsCodeIsNoArgument) {
    const std::string file = Add("a.txt");
    EXPECT_THAT(Given("plain.desktop"), ElementsAre("plain", file));
}

TEST_F(LinuxLaunch, ALineWithoutACodeGetsTheFileAtItsEnd) {
    const std::string file = Add("a.txt");
    EXPECT_THAT(Given("none.desktop"), ElementsAre("none", file));
}

TEST_F(LinuxLaunch, WithoutFilesTheCodesGiveNothing) {
    EXPECT_THAT(Given("many.desktop"), ElementsAre("many", "end"));
    EXPECT_THAT(Given("none.desktop"), ElementsAre("none"));
}

TEST_F(LinuxLaunch, ATerminalRunsWhatNeedsOne) {
    const std::string file = Add("a b.txt");
    EXPECT_THAT(Given("terminal.desktop"),
                ElementsAre("terminal", "--", "recorder", "inside", file));
}

// ---- where and how a program runs ----

TEST_F(LinuxLaunch, AProgramBeginsInItsFolder) {
    Add("a.txt");
    EXPECT_EQ(Open("one.desktop", "C:\\usr\\share"), 0);
    EXPECT_EQ(world_.Take(1).at(0).folder, "/usr/share");
    EXPECT_EQ(Open("path.desktop", "C:\\usr\\share"), 0);
    EXPECT_EQ(world_.Take(1).at(0).folder, fs::canonical(world_.Root()).string());
}

TEST_F(LinuxLaunch, AFolderThatIsGoneIsReplacedByTheHome) {
    Add("a.txt");
    EXPECT_EQ(Open("one.desktop", "C:\\no such folder"), 0);
    const std::string folder = world_.Take(1).at(0).folder;
    EXPECT_EQ(folder, parts_.paths.ToNative(*parts_.environment.Get("UserProfile")));
}

TEST_F(LinuxLaunch, NoDescriptorOfOursIsInherited) {
    Add("a.txt");
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0); // NOLINT: as a careless library opens them
    const int file = ::open("/etc/passwd", O_RDONLY);
    EXPECT_EQ(Open("one.desktop"), 0);
    EXPECT_THAT(world_.Take(1).at(0).descriptors,
                ElementsAre("/dev/null", "/dev/null", "/dev/null"));
    for (const int open : {ends[0], ends[1], file})
        ::close(open);
}

TEST_F(LinuxLaunch, VariablesPassOnButNotTheStartOfOurOwn) {
    Add("a.txt");
    EXPECT_EQ(Open("one.desktop"), 0);
    auto variables = world_.Take(1).at(0).variables;
    EXPECT_EQ(variables["XDG_DATA_HOME"], (world_.Root() / "data").string());
    EXPECT_EQ(variables["GIO_LAUNCHED_DESKTOP_FILE"],
              (world_.Root() / "data/applications/one.desktop").string());
    EXPECT_FALSE(variables.contains("DESKTOP_STARTUP_ID"));
    EXPECT_EQ(Open("notify.desktop"), 0);
    variables = world_.Take(1).at(0).variables;
    EXPECT_EQ(variables["DESKTOP_STARTUP_ID"].find("tarvix-"), 0U);
    EXPECT_NE(variables["DESKTOP_STARTUP_ID"].find("_TIME"), std::string::npos);
}

TEST_F(LinuxLaunch, AProgramHasASessionOfItsOwnAndNoParentOfOurs) {
    world_.AddFile("bin/where", "#!/bin/sh\nps -o sid=,ppid= -p $$ > \"$0.out\"\n");
    const std::string program = (world_.Root() / "files/bin/where").string();
    fs::permissions(program, fs::perms::owner_all);
    const auto plan = desk_.PlanProgram(Drive(program), "C:\\tmp");
    ASSERT_TRUE(plan);
    ASSERT_TRUE(desk_.Start(*plan));
    int session = 0;
    int parent = 0;
    for (int look = 0; look < 3000 && parent == 0; ++look) {
        ::usleep(10'000);
        std::ifstream(program + ".out") >> session >> parent;
    }
    EXPECT_NE(session, ::getsid(0));
    EXPECT_NE(parent, ::getpid());
    EXPECT_NE(parent, 0);
}

// ---- refusals ----

TEST_F(LinuxLaunch, WhatIsMissingStartsNothing) {
    drives_ = {"C:\\no such folder\\a.txt"};
    EXPECT_EQ(Open("one.desktop"), platform::kFileNotFound);
    drives_.clear();
    EXPECT_EQ(Open("nobody.desktop"), platform::kInvalidCall);
    EXPECT_EQ(Open("missing.desktop"), platform::kInvalidCall);
    EXPECT_EQ(Open("broken.desktop"), platform::kInvalidCall);
    EXPECT_TRUE(world_.IsQuiet());
}

TEST_F(LinuxLaunch, AProgramThatCannotRunIsTold) {
    const std::string native = Add("bad", "#!/no/such/interpreter\n");
    fs::permissions(native, fs::perms::owner_all);
    const auto plan = desk_.PlanProgram(Drive(native), "C:\\tmp");
    ASSERT_TRUE(plan);
    const auto started = desk_.Start(*plan);
    ASSERT_FALSE(started);
    EXPECT_EQ(started.error().number, platform::kPermissionDenied);
}

// ---- commands and programs ----

TEST_F(LinuxLaunch, ACommandHasItsWordsAndThenAllFiles) {
    const std::string first = Add("a b.txt");
    const std::string second = Add("-c.txt");
    const auto plan = desk_.PlanCommand("recorder --new 'two words'", drives_, "C:\\tmp");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->name, "recorder");
    ASSERT_TRUE(desk_.Start(*plan));
    EXPECT_THAT(world_.Take(1).at(0).arguments, ElementsAre("--new", "two words", first, second));
}

TEST_F(LinuxLaunch, ACommandMaySayWhereItsFilesStand) {
    const std::string file = Add("a b.txt");
    const auto plan = desk_.PlanCommand("recorder --file=%f --last", drives_, "C:\\tmp");
    ASSERT_TRUE(plan);
    EXPECT_THAT(plan->processes.at(0).arguments,
                ElementsAre("recorder", "--file=" + file, "--last"));
}

TEST_F(LinuxLaunch, ACommandWithoutItsProgramIsRefused) {
    for (const char* command : {"no-such-program", "/no/such"}) {
        const auto plan = desk_.PlanCommand(command, {}, "C:\\tmp");
        ASSERT_FALSE(plan) << command;
        EXPECT_EQ(plan.error().number, platform::kPermissionDenied) << command;
        EXPECT_FALSE(desk_.ProgramOf(command)) << command;
    }
    EXPECT_EQ(desk_.PlanCommand("'open", {}, "C:\\").error().number, platform::kInvalidCall);
    EXPECT_EQ(desk_.PlanCommand("", {}, "C:\\").error().number, platform::kInvalidCall);
    EXPECT_EQ(desk_.ProgramOf("recorder --x"), world_.Recorder().string());
}

TEST_F(LinuxLaunch, ProgramsAreToldByTheirFirstBytesAndRights) {
    const auto kind = [this](const std::string& name, const std::string& text, bool mayRun) {
        const std::string native = world_.AddFile("kinds/" + name, text);
        if (mayRun) fs::permissions(native, fs::perms::owner_all);
        return desk_.KindOf(Drive(native));
    };
    EXPECT_EQ(kind("script", "#!/bin/sh\n", true), ProgramKind::kNative);
    EXPECT_EQ(kind("binary",
                   "\x7F"
                   "ELF....",
                   true),
              ProgramKind::kNative);
    EXPECT_EQ(kind("locked", "#!/bin/sh\n", false), ProgramKind::kNoRight);
    EXPECT_EQ(kind("picture.jpg", "\xFF\xD8\xFF\xE0", true), ProgramKind::kNone);
    EXPECT_EQ(kind("setup.EXE", "MZ\x90", false), ProgramKind::kForeign);
    EXPECT_EQ(kind("empty", "", true), ProgramKind::kNone);
    EXPECT_EQ(desk_.KindOf(Drive(world_.Root().string())), ProgramKind::kNone);
    EXPECT_EQ(desk_.KindOf("C:\\no such"), ProgramKind::kNone);
}

TEST_F(LinuxLaunch, AnEntryIsTrustedByItsRightToRun) {
    const std::string native = world_.AddFile("own.desktop", "[Desktop Entry]\n");
    fs::permissions(native,
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_write);
    EXPECT_FALSE(desk_.IsTrusted(Drive(native)));
    fs::permissions(native, fs::perms::owner_all);
    EXPECT_TRUE(desk_.IsTrusted(Drive(native)));
    EXPECT_FALSE(desk_.IsTrusted("C:\\no such.desktop"));
}

// ---- types ----

TEST_F(LinuxLaunch, TypesHaveTheirApplications) {
    EXPECT_EQ(desk_.TypeOf(Drive(Add("a.txt"))), "text/plain");
    EXPECT_EQ(desk_.TypeOf(Drive(Add("noname", "\x89PNG\r\n\x1A\n"))), "image/png");
    EXPECT_EQ(desk_.TypeOf(Drive(world_.Root().string())), "inode/directory");
    EXPECT_EQ(desk_.TypeOf("C:\\no such file"), "");
    EXPECT_EQ(desk_.TypeOfName("b.PNG"), "image/png");
    EXPECT_EQ(desk_.TypeOfName("b.nobody-has-this"), "");
    EXPECT_EQ(desk_.DefaultFor("text/plain")->id, "one.desktop");
    EXPECT_FALSE(desk_.DefaultFor("x-nobody/x-has-this"));
}

TEST_F(LinuxLaunch, RecommendedAreThoseThatOpenAllTypes) {
    const auto ids = [this](const std::vector<std::string>& types) {
        std::vector<std::string> found;
        for (const auto& application : desk_.RecommendedFor(types))
            found.push_back(application.id);
        return found;
    };
    EXPECT_THAT(ids({"text/plain"}), ElementsAre("one.desktop", "many.desktop"));
    EXPECT_THAT(ids({"text/plain", "image/png"}), ElementsAre("many.desktop"));
    EXPECT_THAT(ids({"text/plain", "inode/directory"}), IsEmpty());
    EXPECT_THAT(ids({}), IsEmpty());
    const auto many = desk_.Find("many.desktop");
    ASSERT_TRUE(many);
    EXPECT_EQ(many->name, "Many Files");
    EXPECT_EQ(many->icon, "many-icon");
    EXPECT_TRUE(desk_.Find("terminal.desktop")->isTerminal);
}

TEST_F(LinuxLaunch, ClassesAnswerByTypesAndApplications) {
    const auto& registry = parts_.registry;
    EXPECT_EQ(registry.ClassDefault(".txt"), "text/plain");
    EXPECT_FALSE(registry.ClassDefault(".nobody-has-this"));
    EXPECT_EQ(registry.ClassDefault("text/plain\\shell"), "open");
    EXPECT_EQ(registry.ClassDefault("text/plain\\shell\\open\\command"), "'recorder' 'one' %1");
    EXPECT_EQ(registry.ClassDefault("Folder\\shell\\open\\command"), "'recorder' 'files' %1");
    EXPECT_FALSE(registry.ClassDefault("*\\shell"));
    EXPECT_FALSE(registry.ClassDefault("Unknown\\shell"));
    EXPECT_FALSE(registry.ClassDefault("Applications\\notepad.exe\\shell\\open\\command"));
}

TEST_F(LinuxLaunch, WithoutAFileManagerOnTheBusTheFolderIsOpened) {
    Add("one place/a.txt");
    Add("one place/b.txt");
    ASSERT_TRUE(desk_.ShowInFolder(drives_));
    EXPECT_THAT(
        world_.Take(1).at(0).arguments,
        ElementsAre("files", "file://" + (world_.Root() / "files").string() + "/one%20place"));
    const std::vector<std::string> gone{"C:\\no such\\a"};
    EXPECT_EQ(desk_.ShowInFolder(gone).error().number, platform::kFileNotFound);
}

// ---- the trash ----

TEST_F(LinuxLaunch, TheFileManagerThatTakesAddressesShowsTheTrash) {
    ASSERT_TRUE(desk_.ShowTrash());
    EXPECT_THAT(world_.Take(1).at(0).arguments, ElementsAre("files", "trash:///"));
}

TEST_F(LinuxLaunch, WhoIsSetForTheTrashShowsIt) {
    const DesktopWorld::Default bin("bin.desktop", "x-scheme-handler/trash");
    ASSERT_TRUE(desk_.ShowTrash());
    EXPECT_THAT(world_.Take(1).at(0).arguments, ElementsAre("bin", "--open", "trash:///"));
}

TEST_F(LinuxLaunch, WhereWhoIsSetForTheTrashTakesPathsAloneTheFileManagerShowsIt) {
    const DesktopWorld::Default paths("paths.desktop", "x-scheme-handler/trash");
    ASSERT_TRUE(desk_.ShowTrash());
    EXPECT_THAT(world_.Take(1).at(0).arguments, ElementsAre("files", "trash:///"));
}

TEST_F(LinuxLaunch, AFileManagerOfPathsAloneOpensTheFolderOfTheTrash) {
    const DesktopWorld::Default paths("paths.desktop", "inode/directory");
    std::filesystem::remove_all(world_.Root() / "data" / "Trash");
    EXPECT_EQ(desk_.ShowTrash().error().number, platform::kPathNotFound);
    std::filesystem::create_directories(world_.Root() / "data" / "Trash" / "files");
    ASSERT_TRUE(desk_.ShowTrash());
    EXPECT_THAT(world_.Take(1).at(0).arguments,
                ElementsAre("paths", (world_.Root() / "data/Trash/files").string()));
}

} // namespace
} // namespace tarvix::testing
