#include "launch/custom/action_readers.h"
#include "launch/custom/expand.h"
#include "platform/applications.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/linux_platform.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>
#include <unistd.h>

namespace tarvix::custom {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

// Names that a careless program would trip over.
const Words kNames{"plain.txt",
                   "a blank.txt",
                   "quote'\".txt",
                   "100%f %% %F.txt",
                   "line\nbreak.txt",
                   "-rf",
                   "$(touch gone) `touch gone`; touch gone",
                   "bad\xE9.txt"};

// A data home and a settings home of its own, with programs that write down what they were given.
class RealActions : public ::testing::Test {
  protected:
    RealActions() {
        std::string made = (fs::temp_directory_path() / "tarvix-menu-XXXXXX").string();
        root = mkdtemp(made.data());
        for (const char* folder : {"data", "config", "out", "objects"})
            fs::create_directories(root / folder);
        setenv("XDG_DATA_HOME", (root / "data").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
        setenv("XDG_DATA_DIRS", (root / "none").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (root / "none").c_str(), 1);
        recorder = root / "recorder";
        Write(recorder,
              "#!/bin/sh\nprintf '%s\\0' \"$@\" > '" + Out("arguments").string() + "'\npwd > '" +
                  Out("folder").string() + "'\nenv -0 > '" + Out("variables").string() + "'\nmv '" +
                  Out("arguments").string() + "' '" + Out("done").string() + "'\n",
              true);
    }
    ~RealActions() override {
        for (const char* name :
             {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_DIRS"})
            unsetenv(name);
        fs::remove_all(root);
    }

    fs::path Out(const char* name) const { return root / "out" / name; }

    static void Write(const fs::path& path, const std::string& text, bool mayRun = false) {
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        fs::permissions(path, mayRun ? fs::perms::owner_all : fs::perms(0600));
    }

    static std::string Read(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static Words Pieces(const std::string& text, char end) {
        Words pieces;
        std::string piece;
        for (const char c : text) {
            if (c == end) {
                pieces.push_back(piece);
                piece.clear();
            } else {
                piece += c;
            }
        }
        return pieces;
    }

    std::string Object(const std::string& name) const { return (root / "objects" / name).string(); }

    Chosen All() const {
        std::vector<ChosenObject> objects;
        for (const std::string& name : kNames) {
            std::ofstream(Object(name)) << "x";
            objects.push_back({Object(name), "text/plain"});
        }
        return ChosenFrom(std::move(objects));
    }

    // Runs the entry of that label and gives what its program got.
    Words Run(const std::string& label, const Chosen& chosen) {
        fs::remove(Out("done"));
        platform::LinuxPlatform machine;
        for (const CustomEntry& entry : AllEntries(desktop, chosen)) {
            if (entry.label != label) continue;
            auto processes = Expand(entry.command, chosen);
            EXPECT_TRUE(processes) << processes.error();
            if (!processes) return {};
            const auto started =
                machine.Parts().applications.Start({.name = label, .processes = *processes});
            EXPECT_TRUE(started) << started.error().description;
            return Recorded();
        }
        ADD_FAILURE() << "there is no entry " << label;
        return {};
    }

    Words Recorded() const {
        for (int i = 0; i < 1000 && !fs::exists(Out("done")); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_FALSE(fs::exists(root / "objects" / "gone")) << "a name was read as a command";
        return Pieces(Read(Out("done")), '\0');
    }

    std::string Variable(const std::string& name) const {
        for (const std::string& variable : Pieces(Read(Out("variables")), '\0')) {
            if (variable.starts_with(name + "=")) return variable.substr(name.size() + 1);
        }
        return "none";
    }

    Words Paths() const {
        Words paths;
        for (const std::string& name : kNames)
            paths.push_back(Object(name));
        return paths;
    }

    fs::path root;
    fs::path recorder;
    platform::LinuxDesktop desktop{"/nonexistent"};
};

TEST_F(RealActions, AFileManagerActionGetsEveryNameAsItIs) {
    Write(root / "data/file-manager/actions/a.desktop",
          "[Desktop Entry]\nType=Action\nName=All of them\nProfiles=p;\n[X-Action-Profile p]\n"
          "Exec=" +
              recorder.string() + " %c %F\n");
    Words wanted = Paths();
    wanted.insert(wanted.begin(), "8");
    EXPECT_EQ(Run("All of them", All()), wanted);
    EXPECT_EQ(Read(Out("folder")), (root / "objects").string() + "\n");
}

TEST_F(RealActions, AShellInAnActionNeverReadsANameAsACommand) {
    Write(root / "data/file-manager/actions/a.desktop",
          "[Desktop Entry]\nName=By a shell\nProfiles=p;\n[X-Action-Profile p]\n"
          "Exec=sh -c '" +
              recorder.string() + " %F \"%B\"'\n");
    Words wanted = Paths();
    std::string names;
    for (const std::string& name : kNames)
        names.append(names.empty() ? "" : " ").append(name);
    wanted.push_back(names);
    EXPECT_EQ(Run("By a shell", All()), wanted);
}

TEST_F(RealActions, AServiceMenuGetsAddresses) {
    Write(root / "data/kio/servicemenus/a.desktop",
          "[Desktop Entry]\nType=Service\nMimeType=all/allfiles;\nActions=x;\n"
          "[Desktop Action x]\nName=Addresses\nExec=" +
              recorder.string() + " %U\n",
          true);
    const Words got = Run("Addresses", All());
    ASSERT_EQ(got.size(), kNames.size());
    EXPECT_TRUE(got[1].ends_with("/a%20blank.txt")) << got[1];
    EXPECT_TRUE(got[4].ends_with("/line%0Abreak.txt")) << got[4];
    EXPECT_TRUE(got[7].ends_with("/bad%E9.txt")) << got[7];
}

TEST_F(RealActions, ANemoActionRunsTheProgramBesideIt) {
    fs::create_directories(root / "data/nemo/actions");
    fs::copy_file(recorder, root / "data/nemo/actions/go it");
    fs::rename(root / "data/nemo/actions/go it", root / "data/nemo/actions/go");
    Write(root / "data/nemo/actions/a.nemo_action",
          "[Nemo Action]\nName=Beside\nExec=<go %F>\nSelection=any\nExtensions=any;\n");
    EXPECT_EQ(Run("Beside", All()), Paths());
}

TEST_F(RealActions, AThunarCommandIsAShellsAndStillSafe) {
    Write(
        root / "config/Thunar/uca.xml",
        "<?xml version=\"1.0\"?><actions><action><icon/><name>By Thunar</name><command>" +
            recorder.string() +
            " %F &amp;&amp; true</command><patterns>*</patterns><text-files/></action></actions>");
    EXPECT_EQ(Run("By Thunar", All()), Paths());
}

TEST_F(RealActions, AScriptGetsNamesAndVariables) {
    fs::create_directories(root / "data/nautilus/scripts/more");
    fs::copy_file(recorder, root / "data/nautilus/scripts/more/take");
    Write(root / "data/nautilus/scripts/not-a-program", "text");
    Write(root / "data/nautilus/scripts/.hidden", "#!/bin/sh\n", true);
    const Chosen all = All();
    ASSERT_EQ(AllEntries(desktop, all).size(), 1U);
    Words wanted = kNames;
    wanted[5] = "./-rf";
    EXPECT_EQ(Run("take", all), wanted);
    EXPECT_EQ(Read(Out("folder")), (root / "objects").string() + "\n");
    std::string paths;
    for (const std::string& path : Paths())
        paths += path + "\n";
    EXPECT_EQ(Variable("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS"), paths);
    EXPECT_EQ(Variable("NAUTILUS_SCRIPT_CURRENT_URI"), "file://" + (root / "objects").string());
}

TEST_F(RealActions, FilesThatAreTooLargeOrNoFilesAreNotThere) {
    const fs::path folder = root / "data/file-manager/actions";
    Write(folder / "large.desktop", std::string(300 * 1024, '#'));
    Write(folder / "a.desktop", "[Desktop Entry]\n");
    fs::create_directories(folder / "folder.desktop");
    fs::create_symlink(folder / "missing", folder / "broken.desktop");
    const auto files =
        desktop.ActionFiles(platform::DesktopFolder::kData, "file-manager/actions", ".desktop");
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].name, "a.desktop");
    EXPECT_FALSE(files[0].mayRun && files[0].name != "a.desktop");
}

TEST_F(RealActions, ConditionsAskTheMachine) {
    EXPECT_TRUE(desktop.TellsTrue("echo true"));
    EXPECT_FALSE(desktop.TellsTrue("echo truth"));
    EXPECT_FALSE(desktop.TellsTrue("/nonexistent/program"));
    EXPECT_FALSE(desktop.TellsTrue("sleep 30"));
    EXPECT_TRUE(desktop.HasProgram("sh"));
    EXPECT_FALSE(desktop.HasProgram("no such program"));
    EXPECT_FALSE(desktop.HasProgram(""));
    EXPECT_FALSE(desktop.IsRunning("no such program"));
    EXPECT_TRUE(desktop.IsKindOf("text/x-python", "text/plain"));
    EXPECT_TRUE(desktop.Has(recorder.string(), platform::FileRight::kRun));
    EXPECT_FALSE(desktop.Has((root / "missing").string(), platform::FileRight::kRead));
    EXPECT_TRUE(desktop.Has(recorder.string(), platform::FileRight::kOwner));
}

} // namespace
} // namespace tarvix::custom
