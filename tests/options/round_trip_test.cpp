#include "session/settings/option_keys.h"
#include "tests/options/options_fixture.h"

#include <set>

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;

// A control, what is set in it, and the line that the file has then; another value and its line.
struct Trip {
    const char* control;
    const char* value;
    const char* line;
    const char* other;
    const char* otherLine;
};

const std::vector<Trip> kTrips{
    {"chkAllowAll", "1", "blnAllowAll = True", "0", "blnAllowAll = False"},
    {"chkAllowUserSelectSubfolders", "1", "blnAllowUserSelectSubfolders = True", "0",
     "blnAllowUserSelectSubfolders = False"},
    {"chkDefaultToIncludeSubfolders", "1", "blnDefaultToIncludeSubfolders = True", "0",
     "blnDefaultToIncludeSubfolders = False"},
    {"chkAutoOptions", "0", "blnAutoOptions = False", "1", "blnAutoOptions = True"},
    {"chkSkipNTFS", "0", "blnSkipNTFS = False", "1", "blnSkipNTFS = True"},
    {"chkReadOnly", "1", "bytReadOnly = 1", "2", "bytReadOnly = 2"},
    {"chkSystem", "1", "bytSystem = 1", "2", "bytSystem = 2"},
    {"chkHidden", "2", "bytHidden = 2", "0", "bytHidden = 0"},
    {"chkArchive", "0", "bytArchive = 0", "1", "bytArchive = 1"},
    {"chk64", "1", "byt64 = 1", "2", "byt64 = 2"},
    {"chk128", "2", "byt128 = 2", "1", "byt128 = 1"},
    {"chk256", "1", "byt256 = 1", "0", "byt256 = 0"},
    {"chk512", "2", "byt512 = 2", "0", "byt512 = 0"},
    {"chkAlias", "1", "bytAlias = 1", "2", "bytAlias = 2"},
    {"chkCompressed", "2", "bytCompressed = 2", "0", "bytCompressed = 0"},
    {"chkLockColumnWidths", "1", "blnLockColumnWidths = True", "0", "blnLockColumnWidths = False"},
    {"chkDesc", "1", "blnSort = True", "0", "blnSort = False"},
    {"chkFastSearch", "1", "blnListDupsWhenSearchStringsNotExclusive = True", "0",
     "blnListDupsWhenSearchStringsNotExclusive = False"},
    {"chkNoContextMenuWarning", "1", "blnNoContextMenuWarning = True", "0",
     "blnNoContextMenuWarning = False"},
    {"chkNoColumnWarning", "1", "blnNoColumnWarning = True", "0", "blnNoColumnWarning = False"},
    {"chkFileLog", "0", "blnFileLog = False", "1", "blnFileLog = True"},
    {"chkAutoMode", "1", "blnAutoMode = True", "0", "blnAutoMode = False"},
    {"txtDefTime", "12.5", "sngDefWebSeconds = 12.5", "30", "sngDefWebSeconds = 30"},
    {"cmbDefSize", "N - Minimized", "strDefWebSize = N - Minimized", "X - Maximimed",
     "strDefWebSize = X - Maximimed"},
    {"chkAskTime", "0", "blnAskWebTime = False", "1", "blnAskWebTime = True"},
    {"chkAskSize", "0", "blnAskWebSize = False", "1", "blnAskWebSize = True"},
    {"chkAutoEnvVar", "1", "blnAutoEnvVar = True", "0", "blnAutoEnvVar = False"},
    {"chkRemoveEnvVar", "1", "blnRemoveEnvVar = True", "0", "blnRemoveEnvVar = False"},
};

class OptionsRoundTrip : public OptionsFixture {
  protected:
    // Another program on the same disk, with its window open as it would stand.
    std::string ReadBack(const std::string& control) {
        std::string value;
        session::ScriptedPrompts quiet;
        quiet.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
        app::Program next(machine.platform, quiet);
        next.Start("");
        quiet.SetModalRunner([&](session::Session& session, fields::Form& form) {
            value = form.Find(control)->ValueText();
            session.forms.frmOptions.Hide();
            return true;
        });
        next.Session().events.Raise(next.Session(), "frmSearch.mnuOptions_Click");
        return value;
    }
};

TEST_F(OptionsRoundTrip, EachControlComesToItsKeyAndBack) {
    Start();
    Accept([&] { SetNamed("chkAllowAll", "1"); });
    for (const Trip& trip : kTrips) {
        for (const auto& [value, line] :
             {std::pair{trip.value, trip.line}, std::pair{trip.other, trip.otherLine}}) {
            Accept([&, set = std::string(value)] {
                if (std::string_view(trip.control) != "chkAllowAll") SetNamed("chkAllowAll", "1");
                SetNamed(trip.control, set);
            });
            EXPECT_TRUE(FileHas(line)) << trip.control << " " << value;
            EXPECT_EQ(ReadBack(trip.control), value) << trip.control;
        }
    }
}

TEST_F(OptionsRoundTrip, EachEntryOfAGroupComesToItsKeyAndBack) {
    Start();
    for (int index = 0; index < 5; ++index) {
        const std::string entry = "optFilesVsDirs(" + std::to_string(index) + ")";
        Accept([&] { SetNamed(entry, "1"); });
        EXPECT_TRUE(FileHas("bytFilesVsDirs = " + std::to_string(index)));
        EXPECT_EQ(ReadBack(entry), "1");
    }
    for (int index = 0; index <= 24; ++index) {
        const std::string entry = "optSortBy(" + std::to_string(index) + ")";
        Accept([&] { SetNamed(entry, "1"); });
        EXPECT_TRUE(FileHas("bytSortBy = " + std::to_string(index)));
        EXPECT_EQ(ReadBack(entry), "1");
    }
}

TEST_F(OptionsRoundTrip, EachColumnComesToItsLineAndBack) {
    Start();
    const std::vector<std::string> names{"SizeSubItem",
                                         "DateSubItem",
                                         "TypeSubItem",
                                         "ExtSubItem",
                                         "VersionSubItem",
                                         "ExeTypeSubItem",
                                         "OSSubItem",
                                         "PathSubItem",
                                         "PathNameSubItem",
                                         "AttributesSubItem",
                                         "PathNameNoSrchSubItem",
                                         "TargetPathOfLinkSubItem",
                                         "TargetArgumentsOfLink",
                                         "WorkingDirOfLinkSubItem",
                                         "HotKeyOfLink",
                                         "WindowStyleOfLink",
                                         "DescriptionOfLink",
                                         "IconPathNameOfLinkSubItem",
                                         "PathNameLengthSubItem",
                                         "FilesInFolder",
                                         "FoldersInFolder",
                                         "PathLevels",
                                         "YRYearRank",
                                         "SearchForEntry"};
    for (int column = 1; column <= 24; ++column) {
        const std::string box = "chkList(" + std::to_string(column) + ")";
        const std::string& name = names[static_cast<std::size_t>(column - 1)];
        Accept([&] { SetNamed(box, "0"); });
        EXPECT_TRUE(FileHas("blnListItems (" + name + ") = False")) << name;
        EXPECT_EQ(ReadBack(box), "0");
        Accept([&] { SetNamed(box, "1"); });
        EXPECT_TRUE(FileHas("blnListItems (" + name + ") = True")) << name;
    }
}

TEST_F(OptionsRoundTrip, EachOfTheNineteenFoldersComesToItsLineAndBack) {
    Start();
    Accept([&] {
        for (int index = 0; index < 19; ++index) {
            const std::string number = std::to_string(index);
            Click(Window().optDefSearchFolder[index]);
            SetNamed("txtDefFolder", "C:\\place" + number);
            SetNamed("txtDefFolderTitle", "Title " + number);
        }
    });
    Inside([&] {
        for (int index = 0; index < 19; ++index) {
            const std::string number = std::to_string(index);
            EXPECT_TRUE(FileHas("strDefSearchFolder(" + number + ") = C:\\place" + number +
                                "[Title " + number))
                << number;
            Click(Window().optDefSearchFolder[index]);
            EXPECT_EQ(ValueOf("txtDefFolder"), "C:\\place" + number);
            EXPECT_EQ(ValueOf("txtDefFolderTitle"), "Title " + number);
        }
    });
}

TEST_F(OptionsRoundTrip, NoKeyOfTheFileIsLeftOut) {
    std::set<std::string> driven{"bytFilesVsDirs", "bytSortBy", "strDefSearchFolder",
                                 "blnListItems", "blnErrorLog"};
    for (const Trip& trip : kTrips) {
        const std::string line = trip.line;
        driven.insert(line.substr(0, line.find(' ')));
    }
    for (const session::OptionKey& key : session::kOptionKeys) {
        EXPECT_TRUE(driven.contains(std::string(key.key))) << key.key;
    }
    EXPECT_EQ(driven.size(), session::kOptionKeys.size());
}

TEST_F(OptionsRoundTrip, TheErrorLogCantBeTurnedOff) {
    GivenOptions("blnErrorLog = False\r\n");
    Start();
    Accept([&] {
        EXPECT_FALSE(Window().chkErrorLog.Enabled);
        EXPECT_EQ(ValueOf("chkErrorLog"), "1");
        Window().chkErrorLog.Value = 0;
    });
    EXPECT_TRUE(FileHas("blnErrorLog = True"));
}

TEST_F(OptionsRoundTrip, OkWithoutAChangeWritesTheFileAsItWas) {
    Start();
    Accept([] {});
    const std::string first = File();
    EXPECT_THAT(first, HasSubstr("strDefWebSize = R - Normal\r\n"));
    Accept([] {});
    EXPECT_EQ(File(), first);
}

TEST_F(OptionsRoundTrip, AColumnThatIsNeverShownStaysTheSortColumn) {
    GivenOptions("bytSortBy = 25\r\n");
    Start();
    Accept([&] { EXPECT_EQ(Window().optSortBy.Chosen(), -1); });
    EXPECT_TRUE(FileHas("bytSortBy = 25"));
}

} // namespace
} // namespace tarvix::testing
