// What the conformance tests can't ask of every trash: the form of what lies there, the trash of
// other file systems, and the desktop's own tools.

#include "tests/platform/linux_disk.h"
#include "text/characters.h"

#include <ctime>
#include <functional>
#include <regex>
#include <sys/mount.h>
#include <sys/wait.h>

namespace tarvix::platform {

namespace {
int Shell(const std::string& command) {
    const int status = std::system((command + " > '" + TestHome() + "/out' 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Local(std::time_t time) {
    std::tm local{};
    ::localtime_r(&time, &local);
    std::string text(32, '\0');
    text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local));
    return text;
}

// A file system of its own in a folder, as drive S:.
class MountedFolder {
  public:
    MountedFolder() { std::filesystem::create_directory(Path()); }
    ~MountedFolder() {
        if (isMounted_) ::umount2(Path().c_str(), MNT_DETACH);
    }
    MountedFolder(const MountedFolder&) = delete;

    bool MountDisk() {
        const std::string image = "'" + folder_.Path() + "/image'";
        isMounted_ = ::geteuid() == 0 && Shell("truncate -s 16M " + image) == 0 &&
                     Shell("mkfs.ext4 -q " + image) == 0 &&
                     Shell("mount -o loop " + image + " '" + Path() + "'") == 0;
        return isMounted_;
    }
    bool MountMemory() {
        isMounted_ = ::mount("tmpfs", Path().c_str(), "tmpfs", 0, "size=1m") == 0;
        return isMounted_;
    }
    void Unmount() { isMounted_ = ::umount2(Path().c_str(), MNT_DETACH) != 0; }
    std::string Path() const { return folder_.Path() + "/mounted"; }
    std::string Trash() const { return Path() + "/.Trash-" + std::to_string(::getuid()); }

  private:
    TemporaryFolder folder_;
    bool isMounted_ = false;
};

class LinuxTrashTest : public testing::Test {
  protected:
    Result<void> Recycle(const std::string& path) {
        return disk.Bin().Recycle(std::vector{disk.Root() + "\\" + path}, {});
    }
    // What the home trash tells of a path of this test's disk.
    std::vector<TrashedObject> Found(std::string_view path) {
        std::vector<TrashedObject> objects = ReadTrash(HomeTrash());
        std::erase_if(objects,
                      [&](const auto& object) { return object.path != disk.Native(path); });
        return objects;
    }

    LinuxDisk disk;
};

class LinuxOtherTrashTest : public testing::Test {
  protected:
    void Start() {
        LinuxOptions options;
        options.extraDrives = {{'S', mounted.Path()}};
        options.hasDesktop = false;
        machine.emplace(std::move(options));
    }
    Result<void> Recycle(const std::string& path) {
        return machine->Parts().trash.Recycle(std::vector{path}, {});
    }
    void Write(const std::string& name) { std::ofstream(mounted.Path() + "/" + name) << name; }
    // The first is in a folder, which stays.
    void RecycleTwo() {
        std::filesystem::create_directory(mounted.Path() + "/folder");
        Write("folder/a b.txt");
        Write("c.txt");
        ASSERT_TRUE(Recycle("S:\\folder\\a b.txt"));
        ASSERT_TRUE(Recycle("S:\\c.txt"));
    }

    MountedFolder mounted;
    std::optional<LinuxPlatform> machine;
};
} // namespace

TEST_F(LinuxTrashTest, TheInfoFileTellsPathAndLocalTime) {
    disk.MakeFile("a b%c.txt", "1");
    const std::string before = Local(std::time(nullptr));
    ASSERT_TRUE(Recycle("a b%c.txt"));
    const std::string after = Local(std::time(nullptr));
    const auto found = Found("a b%c.txt");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(
        std::regex_match(found[0].date, std::regex("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d")));
    EXPECT_LE(before, found[0].date);
    EXPECT_GE(after, found[0].date);
    std::ifstream info(found[0].info);
    const std::string text(std::istreambuf_iterator<char>(info), {});
    EXPECT_NE(text.find("a%20b%25c.txt\n"), text.npos) << text;
}

TEST_F(LinuxTrashTest, TheTrashIsForItsOwnerAlone) {
    disk.MakeFile("a.txt", "1");
    ASSERT_TRUE(Recycle("a.txt"));
    struct stat st {};
    for (const char* part : {"", "/info", "/files"}) {
        ASSERT_EQ(::stat((HomeTrash() + part).c_str(), &st), 0);
        EXPECT_EQ(st.st_mode & 07777, 0700u) << part;
    }
}

TEST_F(LinuxTrashTest, NoInfoFileIsLeftOfWhatCouldNotGo) {
    if (::geteuid() != 0) GTEST_SKIP() << "no right to make a file immutable";
    disk.MakeFile("a.txt", "1");
    if (Shell("chattr +i '" + disk.Native("a.txt") + "'") != 0) GTEST_SKIP() << "not on this disk";
    EXPECT_EQ(NumberOf(Recycle("a.txt")), kPermissionDenied);
    EXPECT_EQ(Shell("chattr -i '" + disk.Native("a.txt") + "'"), 0);
    EXPECT_TRUE(Found("a.txt").empty());
    EXPECT_EQ(disk.Content("a.txt"), "1");
}

TEST_F(LinuxTrashTest, ATrashThatWasEmptiedMeanwhileIsMadeAgain) {
    disk.MakeFile("a.txt", "1");
    disk.MakeFile("b.txt", "2");
    ASSERT_TRUE(Recycle("a.txt"));
    std::filesystem::remove_all(HomeTrash());
    ASSERT_TRUE(Recycle("b.txt"));
    EXPECT_EQ(Found("b.txt").size(), 1u);
}

TEST_F(LinuxTrashTest, ANameThatOthersTookInTheTrashIsPassedOver) {
    disk.MakeFile("taken.txt", "mine");
    disk.MakeFile("first", "1");
    ASSERT_TRUE(Recycle("first"));
    const std::string stray = HomeTrash() + "/files/taken.txt";
    std::ofstream(stray) << "another's";
    ASSERT_TRUE(Recycle("taken.txt"));
    const auto found = Found("taken.txt");
    ASSERT_EQ(found.size(), 1u);
    std::ifstream file(found[0].held);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "mine");
    std::ifstream other(stray);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(other), {}), "another's");
    std::filesystem::remove(stray);
}

TEST_F(LinuxTrashTest, ObjectsOfOneNameAreToldApartWithoutEnd) {
    for (int i = 0; i < 40; ++i) {
        disk.MakeFile("cover.jpg", std::to_string(i));
        ASSERT_TRUE(Recycle("cover.jpg"));
    }
    EXPECT_EQ(Found("cover.jpg").size(), 40u);
}

TEST_F(LinuxTrashTest, ANameTooLongForItsInfoFileIsCutInTheTrashOnly) {
    std::string name(3, 'x');
    while (name.size() < 253)
        name += "\xC3\xA4";
    for (int i = 0; i < 2; ++i) {
        disk.MakeFile(name, "1");
        ASSERT_TRUE(Recycle(name));
    }
    const auto found = Found(name);
    ASSERT_EQ(found.size(), 2u);
    for (const TrashedObject& object : found) {
        EXPECT_TRUE(text::IsValidUtf8(std::filesystem::path(object.held).filename().native()));
    }
}

TEST_F(LinuxTrashTest, AFolderThatHoldsTheTrashIsRefused) {
    disk.MakeFile("a.txt", "1");
    ASSERT_TRUE(Recycle("a.txt"));
    LinuxOptions options;
    options.extraDrives = {{'S', std::filesystem::path(TestHome()).parent_path()}};
    options.hasDesktop = false;
    LinuxPlatform machine(std::move(options));
    const std::string home = "S:\\" + std::string(std::filesystem::path(TestHome()).filename());
    EXPECT_EQ(NumberOf(machine.Parts().trash.Recycle(std::vector{home}, {})), kPermissionDenied);
    EXPECT_EQ(Found("a.txt").size(), 1u);
}

TEST_F(LinuxTrashTest, ThePathToldIsTrueWhereALinkLiesOnTheWay) {
    disk.MakeFile("folder\\a.txt", "1");
    disk.MakeLink("link", "folder");
    ASSERT_TRUE(Recycle("link\\a.txt"));
    EXPECT_EQ(Found("folder\\a.txt").size(), 1u);
}

TEST_F(LinuxTrashTest, TheDesktopsToolListsAndRestoresIt) {
    const std::string gio = "timeout 20 dbus-run-session -- gio trash ";
    const std::string name = NameToDrive("what? 50%.txt");
    disk.MakeFile(name, "1");
    disk.MakeFile("folder\\b.txt", "2");
    ASSERT_TRUE(Recycle(name));
    ASSERT_TRUE(Recycle("folder"));
    if (Shell(gio + "--list") != 0) GTEST_SKIP() << "no desktop here";
    std::ifstream listed(TestHome() + "/out");
    std::string line;
    int restored = 0;
    std::vector<std::string> addresses;
    while (std::getline(listed, line)) {
        const std::size_t tab = line.find('\t');
        if (tab == line.npos || !line.substr(tab + 1).starts_with(disk.Native(""))) continue;
        addresses.push_back(line.substr(0, tab));
    }
    for (const std::string& address : addresses)
        restored += Shell(gio + "--restore '" + address + "'") == 0 ? 1 : 0;
    EXPECT_EQ(restored, 2);
    EXPECT_EQ(disk.Content(name), "1");
    EXPECT_EQ(disk.Content("folder\\b.txt"), "2");
    EXPECT_TRUE(Found(name).empty());
}

TEST_F(LinuxOtherTrashTest, AnotherDiskHasItsOwnTrash) {
    if (!mounted.MountDisk()) GTEST_SKIP() << "no right to mount";
    Start();
    RecycleTwo();
    auto objects = ReadTrash(mounted.Trash());
    std::sort(objects.begin(), objects.end(),
              [](const auto& a, const auto& b) { return a.path < b.path; });
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(objects[0].path, "c.txt");
    EXPECT_EQ(objects[1].path, "folder/a b.txt");
    EXPECT_FALSE(std::filesystem::exists(mounted.Path() + "/c.txt"));
}

TEST_F(LinuxOtherTrashTest, ASharedTrashFolderIsUsedWhereTheDiskHasOne) {
    if (!mounted.MountDisk()) GTEST_SKIP() << "no right to mount";
    Start();
    const std::string shared = mounted.Path() + "/.Trash";
    std::filesystem::create_directory(shared);
    ASSERT_EQ(::chmod(shared.c_str(), 01777), 0);
    Write("a.txt");
    ASSERT_TRUE(Recycle("S:\\a.txt"));
    EXPECT_EQ(ReadTrash(shared + "/" + std::to_string(::getuid())).size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(mounted.Trash()));
}

TEST_F(LinuxOtherTrashTest, ADiskInMemoryHasNoTrashAndKeepsItsObjects) {
    if (!mounted.MountMemory()) GTEST_SKIP() << "no right to mount";
    Start();
    Write("a.txt");
    EXPECT_EQ(NumberOf(Recycle("S:\\a.txt")), kPathFileAccess);
    EXPECT_TRUE(std::filesystem::exists(mounted.Path() + "/a.txt"));
}

TEST_F(LinuxOtherTrashTest, ADiskThatCanOnlyBeReadRefuses) {
    if (!mounted.MountDisk()) GTEST_SKIP() << "no right to mount";
    Start();
    Write("a.txt");
    ASSERT_EQ(Shell("mount -o remount,ro '" + mounted.Path() + "'"), 0);
    const int number = NumberOf(Recycle("S:\\a.txt"));
    EXPECT_TRUE(number == kPermissionDenied || number == kPathFileAccess) << number;
    EXPECT_TRUE(std::filesystem::exists(mounted.Path() + "/a.txt"));
}

TEST_F(LinuxTrashTest, AReadOnlyFolderIsTakenAndKeepsItsMode) {
    disk.MakeFile("sub\\a.txt", "1");
    ASSERT_EQ(::chmod(disk.Native("sub").c_str(), 0555), 0);
    ASSERT_TRUE(Recycle("sub"));
    const auto objects = ReadTrash(HomeTrash());
    const auto taken = std::find_if(objects.begin(), objects.end(), [this](const auto& object) {
        return object.path == disk.Native("sub");
    });
    ASSERT_NE(taken, objects.end());
    struct stat st {};
    ASSERT_EQ(::stat(taken->held.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0555u);
    ::chmod(taken->held.c_str(), 0755);
}

TEST_F(LinuxTrashTest, AFolderThatHoldsAMountStays) {
    disk.MakeFolder("sub\\inner");
    const std::string point = disk.Native("sub\\inner");
    if (::mount("tmpfs", point.c_str(), "tmpfs", 0, "size=1m") != 0) {
        GTEST_SKIP() << "nothing can be mounted here";
    }
    std::ofstream(point + "/a.txt") << "1";
    const auto fresh = std::make_unique<LinuxPlatform>(LinuxOptions{});
    const auto recycled = fresh->Parts().trash.Recycle(
        std::vector{fresh->Parts().paths.ToDrive(disk.Native("sub"))}, {});
    EXPECT_EQ(NumberOf(recycled), kPathFileAccess);
    EXPECT_TRUE(std::filesystem::exists(point + "/a.txt"));
    ::umount2(point.c_str(), MNT_DETACH);
}

// ---- putting back ----

TEST_F(LinuxTrashTest, TheInfoFileGoesWhenTheObjectIsBackAndNotBefore) {
    disk.MakeFile("a.txt", "1");
    ASSERT_TRUE(Recycle("a.txt"));
    disk.MakeFile("a.txt", "2");
    EXPECT_EQ(NumberOf(disk.Bin().PutBack(0)), kAlreadyExists);
    auto found = Found("a.txt");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(found[0].held));
    ASSERT_TRUE(disk.Files().DeleteFile(disk.Root() + "\\a.txt", false));
    ASSERT_TRUE(disk.Bin().PutBack(0));
    EXPECT_TRUE(Found("a.txt").empty());
    EXPECT_FALSE(std::filesystem::exists(found[0].held));
    EXPECT_EQ(disk.Content("a.txt"), "1");
}

TEST_F(LinuxTrashTest, ObjectsOfOneNameComeBackEachToItsFolder) {
    for (int i = 0; i < 12; ++i) {
        const std::string path = std::to_string(i) + "\\cover.jpg";
        disk.MakeFile(path, std::to_string(i));
        ASSERT_TRUE(Recycle(path));
    }
    for (std::size_t i = 12; i-- > 0;)
        ASSERT_TRUE(disk.Bin().PutBack(i)) << i;
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(disk.Content(std::to_string(i) + "\\cover.jpg"), std::to_string(i));
}

TEST_F(LinuxTrashTest, ANameThatWasCutInTheTrashComesBackWhole) {
    const std::string name(253, 'x');
    disk.MakeFile(name, "1");
    ASSERT_TRUE(Recycle(name));
    ASSERT_TRUE(disk.Bin().PutBack(0));
    EXPECT_EQ(disk.Content(name), "1");
}

TEST_F(LinuxTrashTest, AReadOnlyFolderComesBackAndKeepsItsMode) {
    disk.MakeFile("sub\\a.txt", "1");
    ASSERT_EQ(::chmod(disk.Native("sub").c_str(), 0555), 0);
    ASSERT_TRUE(Recycle("sub"));
    ASSERT_TRUE(disk.Bin().PutBack(0));
    struct stat st {};
    ASSERT_EQ(::stat(disk.Native("sub").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0555u);
    ::chmod(disk.Native("sub").c_str(), 0755);
}

TEST_F(LinuxTrashTest, ATrashThatIsGoneGivesNothingBackAndFailsCalmly) {
    disk.MakeFile("a.txt", "1");
    ASSERT_TRUE(Recycle("a.txt"));
    std::filesystem::remove_all(HomeTrash());
    EXPECT_EQ(NumberOf(disk.Bin().PutBack(0)), kFileNotFound);
    EXPECT_FALSE(disk.Content("a.txt"));
}

TEST_F(LinuxTrashTest, TheFailureNamesThePath) {
    disk.MakeFile("a.txt", "1");
    ASSERT_TRUE(Recycle("a.txt"));
    disk.MakeFile("a.txt", "2");
    const auto back = disk.Bin().PutBack(0);
    ASSERT_FALSE(back);
    EXPECT_EQ(back.error().path, disk.Root() + "\\a.txt");
}

TEST_F(LinuxOtherTrashTest, WhatLiesInTheTrashOfAnotherDiskComesBackThere) {
    if (!mounted.MountDisk()) GTEST_SKIP() << "no right to mount";
    Start();
    RecycleTwo();
    auto& trash = machine->Parts().trash;
    EXPECT_EQ(NumberOf(trash.PutBack(1)), 0);
    EXPECT_EQ(NumberOf(trash.PutBack(0)), 0);
    EXPECT_TRUE(std::filesystem::exists(mounted.Path() + "/folder/a b.txt"));
    EXPECT_TRUE(std::filesystem::exists(mounted.Path() + "/c.txt"));
    EXPECT_TRUE(ReadTrash(mounted.Trash()).empty());
    // A drive that is gone takes its trash along.
    ASSERT_TRUE(Recycle("S:\\c.txt"));
    mounted.Unmount();
    EXPECT_NE(NumberOf(trash.PutBack(2)), 0);
    EXPECT_FALSE(std::filesystem::exists(mounted.Path() + "/c.txt"));
}

} // namespace tarvix::platform
