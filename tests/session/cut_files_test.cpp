// The program's own files with parts missing, bytes changed and other line ends.
#include "session/remembered/histories.h"
#include "session/remembered/options_file.h"
#include "session/remembered/platform_file.h"
#include "session/settings/option_values.h"
#include "tests/support/program_fixture.h"
#include "text/characters.h"

#include <algorithm>
#include <functional>
#include <random>

namespace tarvix::testing {
namespace {

const std::string kFolder = "C:\\home\\ann\\tarvix\\";
const std::string kOptions = kFolder + "TXOptionFile.txt";
const std::string kFolders = kFolder + "TXFSFolderHistoryFile.txt";
const std::string kPlatform = kFolder + "TXPlatform.txt";
constexpr int kVariants = 400;

class CutFiles : public ProgramFixture {
  protected:
    CutFiles() {
        Start();
        auto& options = State().options;
        options.blnSort = options.blnAllowAll = true;
        options.bytHidden = 1;
        options.strDefSearchFolder[7] = "C:\\a|C:\\b";
        options.strDefSearchFolderTitle[7] = " Mine ";
        optionText = session::OptionFileText(S());
        for (int i = 0; i < 12; ++i) {
            const std::string entry = "C:\\folder " + std::to_string(i);
            entries.push_back(entry);
            historyText += entry + "\r\n11/" + std::to_string(i + 1) + "/2026 7:54:52 PM\r\n";
        }
        historyText += "*EOF";
        session::PlatformSettings settings;
        settings.drives = {{'E', "/srv/collection"}};
        settings.editor = "gedit";
        settings.searchWindow = {1, 2, 1120, 720, true};
        settings.columnWidths[3] = 77;
        platformText = session::PlatformSettingsText(settings);
    }

    // Reads and saves the text as that file, and reads it again.
    void Options(const std::string& text) {
        Disk().AddFile(kOptions, text);
        session::OpenOptionFile(S());
        session::SaveOptionFile(S());
        const std::string saved = *Disk().Content(kOptions);
        if (State().blnOptionFileUnread) {
            ASSERT_EQ(saved, text) << "what was not read whole is never replaced";
            return;
        }
        const std::size_t told = prompts.Records().size();
        session::OpenOptionFile(S());
        ASSERT_EQ(prompts.Records().size(), told) << "the save mends what was read:\n" << text;
        ASSERT_EQ(session::OptionFileText(S()), saved);
    }
    void History(const std::string& text) {
        Form().cmbDir.ClearItems();
        State().intFirstHistoryRow = 0;
        State().datFolderHistory.clear();
        Disk().AddFile(kFolders, text);
        session::OpenFolderHistoryFile2(S());
        ASSERT_FALSE(State().blnEnded);
        session::SaveFolderHistoryFile2(S());
        const std::string saved = *Disk().Content(kFolders);
        ASSERT_TRUE(saved.ends_with("*EOF")) << saved;
        const std::size_t told = prompts.Records().size();
        session::OpenFolderHistoryFile2(S());
        ASSERT_EQ(prompts.Records().size(), told) << saved;
    }
    void Platform(const std::string& text) {
        Disk().AddFile(kPlatform, text);
        session::OpenPlatformFile(S());
        session::SavePlatformFile(S());
        const auto saved = State().platformSettings;
        ASSERT_TRUE(Disk().Content(kPlatform)->ends_with("*EOF"));
        session::OpenPlatformFile(S());
        ASSERT_EQ(State().platformSettings, saved);
    }
    static void EveryCut(const std::string& text, const std::function<void(std::string)>& act) {
        for (std::size_t length = 0; length <= text.size() && !HasFatalFailure(); ++length)
            act(text.substr(0, length));
    }
    // The same variants in every run.
    static void Changed(const std::string& text, const std::function<void(std::string)>& act) {
        std::mt19937 random(20261115); // NOLINT: repeatable on purpose
        for (int i = 0; i < kVariants && !HasFatalFailure(); ++i) {
            std::string changed = text;
            for (unsigned n = 1 + random() % 6; n > 0; --n)
                changed[random() % changed.size()] = static_cast<char>(random() % 256);
            act(changed);
        }
    }

    std::string optionText, historyText, platformText;
    std::vector<std::string> entries;
};

TEST_F(CutFiles, OptionsCutAtEveryByteAreFilledInAndMended) {
    EveryCut(optionText, [this](const std::string& text) {
        Options(text);
        const auto& options = State().options;
        EXPECT_TRUE(options.blnSkipNTFS);
        EXPECT_TRUE(options.blnFileLog);
        EXPECT_EQ(options.bytArchive, 2);
        EXPECT_FALSE(options.strDefSearchFolder[0].empty());
    });
}

TEST_F(CutFiles, OptionsWithBytesChangedAreMended) {
    Changed(optionText, [this](const std::string& text) {
        Options(text);
        const auto& options = State().options;
        EXPECT_LE(options.bytHidden, 2);
        EXPECT_LE(options.bytFilesVsDirs, 4);
        EXPECT_LE(options.bytSortBy, 26);
    });
}

TEST_F(CutFiles, OptionsWithOtherLineEndsOrAMarkInFrontAreTheSame) {
    for (const std::string& text : {text::Replace(optionText, "\r\n", "\n"),
                                    "\xEF\xBB\xBF" + optionText, optionText + "\r\n"}) {
        Options(text);
        EXPECT_EQ(*Disk().Content(kOptions), optionText);
    }
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(CutFiles, OptionsOfForeignBytesAreReadAsText) {
    Options(text::Replace(optionText, " Mine ",
                          "\xFC"
                          "bung"));
    EXPECT_EQ(State().options.strDefSearchFolderTitle[7], "\xC3\xBC"
                                                          "bung");
}

TEST_F(CutFiles, AHistoryCutAtEveryByteKeepsItsWholeEntries) {
    EveryCut(historyText, [this](const std::string& text) {
        History(text);
        for (const auto& item : Form().cmbDir.Items())
            EXPECT_TRUE(std::ranges::find(entries, item.text) != entries.end()) << item.text;
        const auto whole = static_cast<std::size_t>(std::ranges::count(text, '\n')) / 2;
        EXPECT_GE(Form().cmbDir.Items().size(), whole);
    });
}

TEST_F(CutFiles, AHistoryWithBytesChangedIsMended) {
    Changed(historyText, [this](const std::string& text) {
        History(text);
        EXPECT_LE(Form().cmbDir.Items().size(), entries.size() + 6);
    });
}

TEST_F(CutFiles, AHistoryWithOtherLineEndsOrAMarkInFrontIsTheSame) {
    const std::string plain = text::Replace(historyText, "\r\n", "\n");
    for (const std::string& text : {plain, "\xEF\xBB\xBF" + historyText, historyText + "\r\n"}) {
        History(text);
        EXPECT_EQ(Form().cmbDir.Items().size(), entries.size());
    }
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(CutFiles, MachineSettingsCutAtEveryByteAreMended) {
    EveryCut(platformText, [this](const std::string& text) {
        Platform(text);
        EXPECT_EQ(State().platformSettings.latestYear, 2025);
    });
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(CutFiles, MachineSettingsWithBytesChangedAreMended) {
    Changed(platformText, [this](const std::string& text) { Platform(text); });
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(CutFiles, MachineSettingsWithOtherLineEndsOrAMarkInFrontAreTheSame) {
    for (const std::string& text :
         {text::Replace(platformText, "\r\n", "\n"), "\xEF\xBB\xBF" + platformText}) {
        Platform(text);
        EXPECT_EQ(session::PlatformSettingsText(State().platformSettings), platformText);
    }
}

TEST_F(CutFiles, AListOfFoldersWithBytesChangedIsReadToItsEnd) {
    const std::string list = "C:\\a\r\n/home/ann/Music\r\nfile:///srv/x%20y\r\n~\r\n*EOF";
    Changed(list, [this](const std::string& text) {
        Disk().AddFile("C:\\home\\ann\\l.mpl", text);
        Click(Form().optBrowse[2]);
        prompts.Queue("C:\\home\\ann\\l.mpl");
        Click(Form().cmdBrowse);
        EXPECT_EQ(Form().cmbDir.Text.Get().find('\n'), std::string::npos);
    });
}

} // namespace
} // namespace tarvix::testing
