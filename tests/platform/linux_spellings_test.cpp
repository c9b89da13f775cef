// One object asked for by many spellings, in any order.

#include "tests/platform/linux_disk.h"

#include <random>

namespace tarvix::platform {

namespace {
struct Spelling {
    std::string path;
    std::string truePath; // empty for a failure
    int number = 0;
};

class LinuxSpellingsTest : public testing::Test {
  protected:
    LinuxSpellingsTest() {
        std::filesystem::create_directories(folder_.Path() + "/sub/\u00C9t\u00E9");
        for (const char* name : {"/top.txt", "/sub/File.txt", "/sub/a:b", "/sub/\u00C9t\u00E9/x"})
            std::ofstream(folder_.Path() + name) << name;
    }
    static LinuxOptions Options(std::vector<ExtraDrive> drives) {
        LinuxOptions options;
        options.extraDrives = std::move(drives);
        options.hasDesktop = false;
        return options;
    }
    void Expect(FileSystem& files, const Spelling& spelling) {
        const auto truePath = files.TruePath(spelling.path);
        ASSERT_EQ(NumberOf(truePath), spelling.number) << spelling.path;
        ASSERT_EQ(truePath.value_or(""), spelling.truePath) << spelling.path;
        const auto facts = files.Facts(spelling.path);
        ASSERT_EQ(NumberOf(facts), spelling.number) << spelling.path;
        if (!facts || facts->IsFolder()) return;
        ASSERT_EQ(facts->size, SizeOf(spelling.truePath)) << spelling.path;
    }
    static std::uint64_t SizeAt(FileSystem& files, std::string_view path) {
        const auto facts = files.Facts(path);
        return facts ? facts->size : 0;
    }
    // Each file holds its own path below the folder.
    static std::uint64_t SizeOf(std::string_view truePath) {
        if (truePath.ends_with("File.txt")) return 13;
        if (truePath.ends_with("top.txt")) return 8;
        return truePath.ends_with("\\x") ? 12 : 8;
    }

    TemporaryFolder folder_;
};

// U: is the folder "sub" of T:.
const std::vector<Spelling> kSpellings = {
    {"T:\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"t:\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\sub\\FILE.TXT", "T:\\sub\\File.txt"},
    {"T:\\SUB\\file.txt", "T:\\sub\\File.txt"},
    {"T:\\sub\\\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\sub\\.\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\.\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\sub\\none\\..\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\none\\..\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\..\\..\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\sub\\..\\top.txt", "T:\\top.txt"},
    {"T:\\sub\\..\\..\\top.txt", "T:\\top.txt"},
    {"T:\\top.txt\\..\\sub\\File.txt", "T:\\sub\\File.txt"},
    {"T:\\sub\\File.txt\\", "T:\\sub\\File.txt"},
    {"T:\\sub\\File.txt\\.", "T:\\sub\\File.txt"},
    {"T:\\sub\\a\uF03Ab", "T:\\sub\\a\uF03Ab"},
    {"T:\\sub\\A\uF03AB", "T:\\sub\\a\uF03Ab"},
    {"T:\\sub\\\u00C9t\u00E9\\x", "T:\\sub\\\u00C9t\u00E9\\x"},
    {"T:\\sub\\\u00E9T\u00C9\\X", "T:\\sub\\\u00C9t\u00E9\\x"},
    {"U:\\File.txt", "U:\\File.txt"},
    {"u:\\FILE.txt", "U:\\File.txt"},
    {"U:\\..\\File.txt", "U:\\File.txt"},
    {"U:\\\u00C9t\u00E9\\x", "U:\\\u00C9t\u00E9\\x"},
    {"T:\\top.txt", "T:\\top.txt"},
    {"T:\\\\top.txt", "T:\\top.txt"},
    {"T:\\TOP.TXT", "T:\\top.txt"},
    {"t:\\top.txt", "T:\\top.txt"},
    {"T:\\sub", "T:\\sub"},
    {"T:\\SUB\\", "T:\\sub"},
    {"T:\\sub\\x\\..", "T:\\sub"},
    {"T:", "T:\\"},
    {"T:\\", "T:\\"},
    {"T:\\sub\\..", "T:\\"},
    {"C:\\proc", "C:\\proc"},
    {"C:\\PROC", "C:\\proc"},
    {"c:\\none\\..\\proc", "C:\\proc"},
    {"C:\\", "C:\\"},
    {"U:\\top.txt", "", kFileNotFound},
    {"T:\\File.txt", "", kFileNotFound},
    {"T:\\sub\\top.txt", "", kFileNotFound},
    {"T:\\none\\File.txt", "", kPathNotFound},
    {"C:\\sub\\File.txt", "", kPathNotFound},
    {"T:\\sub\\a:b", "", kBadFileName},
    {"T:\\sub\\File?txt", "", kBadFileName},
    {"T:\\su:b\\File.txt", "", kBadFileName},
    {"T:\\sub/File.txt", "", kBadFileName},
    {"T:sub\\File.txt", "", kBadFileName},
    {"sub\\File.txt", "", kBadFileName},
    {"\\File.txt", "", kBadFileName},
    {"Q:\\File.txt", "", kPathNotFound},
};
} // namespace

TEST_F(LinuxSpellingsTest, EachAskedOnce) {
    for (const Spelling& spelling : kSpellings) {
        LinuxPlatform machine(Options({{'T', folder_.Path()}, {'U', folder_.Path() + "/sub"}}));
        Expect(machine.Parts().files, spelling);
    }
}

TEST_F(LinuxSpellingsTest, EachAskedTwiceInARow) {
    LinuxPlatform machine(Options({{'T', folder_.Path()}, {'U', folder_.Path() + "/sub"}}));
    for (const Spelling& spelling : kSpellings) {
        Expect(machine.Parts().files, spelling);
        Expect(machine.Parts().files, spelling);
    }
}

TEST_F(LinuxSpellingsTest, EachBehindEachOther) {
    LinuxPlatform machine(Options({{'T', folder_.Path()}, {'U', folder_.Path() + "/sub"}}));
    for (const Spelling& first : kSpellings) {
        for (const Spelling& second : kSpellings) {
            Expect(machine.Parts().files, first);
            Expect(machine.Parts().files, second);
        }
    }
}

TEST_F(LinuxSpellingsTest, MixedWhileBusy) {
    LinuxPlatform machine(Options({{'T', folder_.Path()}, {'U', folder_.Path() + "/sub"}}));
    const ManyChanges many(machine.Parts().files);
    std::mt19937 random(5);
    for (int round = 0; round < 3000; ++round)
        Expect(machine.Parts().files, kSpellings[random() % kSpellings.size()]);
}

TEST_F(LinuxSpellingsTest, TwoMachinesInOneThreadKeepTheirOwnDrives) {
    TemporaryFolder other;
    std::ofstream(other.Path() + "/top.txt") << "another content";
    LinuxPlatform one(Options({{'T', folder_.Path()}}));
    LinuxPlatform two(Options({{'T', other.Path()}}));
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(SizeAt(one.Parts().files, "T:\\top.txt"), 8u);
        EXPECT_EQ(SizeAt(two.Parts().files, "T:\\top.txt"), 15u);
        EXPECT_EQ(one.Parts().files.TruePath("T:\\SUB\\File.txt").value_or("none"),
                  "T:\\sub\\File.txt");
        EXPECT_FALSE(two.Parts().files.Facts("T:\\sub\\File.txt"));
    }
}

TEST_F(LinuxSpellingsTest, ADriveThatComesAndGoesLeadsWhereItLeadsNow) {
    // Mounted and not: all as the table tells, since the drives are made from that alone.
    std::string name = folder_.Path();
    name.replace(name.find(' '), 1, "\\040");
    name.replace(name.find(' '), 1, "\\040");
    const std::string root = "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n";
    const std::string with = root + "2 1 8:2 / " + name + " rw - cifs //server/share rw\n";
    std::string text = with;
    LinuxOptions options = Options({});
    options.readMounts = [&text] { return text; };
    LinuxPlatform machine(std::move(options));
    FileSystem& files = machine.Parts().files;
    const auto drives = files.Drives();
    ASSERT_EQ(drives.size(), 2u);
    const std::string drive = drives[1].path.substr(0, 2);
    for (int round = 0; round < 3; ++round) {
        text = with;
        files.Drives();
        EXPECT_EQ(files.TruePath(drive + "\\sub\\FILE.TXT").value_or("none"),
                  drive + "\\sub\\File.txt");
        EXPECT_EQ(SizeAt(files, drive + "\\sub\\File.txt"), 13u);
        EXPECT_EQ(SizeAt(files, drive + "\\top.txt"), 8u);
        text = root;
        files.Drives();
        EXPECT_EQ(NumberOf(files.Facts(drive + "\\sub\\File.txt")), kPathNotFound);
        EXPECT_EQ(NumberOf(files.Facts(drive + "\\top.txt")), kPathNotFound);
        EXPECT_FALSE(files.KnownFree(drive + "\\sub\\new"));
    }
}

} // namespace tarvix::platform
