#include "results/columns.h"
#include "search/search_request.h"
#include "session/prompt_id.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <functional>

namespace tarvix::testing {
namespace {

using search::DateChoice;
using search::DateKind;
using search::Kind;
using search::SearchRequest;
using search::SizeChoice;
using session::PromptId;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// How the boxes become a request.
class ReadRequest : public ProgramFixture {
  protected:
    SearchRequest Read() {
        auto request = search::ReadSearchRequest(S());
        EXPECT_TRUE(request);
        return request.value_or(SearchRequest{});
    }
    std::vector<PromptId> Refusals() {
        std::vector<PromptId> ids;
        const auto request = search::ReadSearchRequest(S());
        if (request) return ids;
        for (const search::Refusal& refusal : request.error()) {
            ids.push_back(refusal.id);
        }
        return ids;
    }
    void UseSize(std::string_view choice, std::string_view first, std::string_view second) {
        Form().chkSize.Value = 1;
        Form().cboSize.Text = std::string(choice);
        Form().txtSize1.Text = std::string(first);
        Form().txtSize2.Text = std::string(second);
    }
    void UseDate(std::string_view choice, std::optional<text::DateTime> first,
                 std::optional<text::DateTime> second) {
        Form().chkDate.Value = 1;
        Form().cboDate.Text = std::string(choice);
        Form().lblDate1.SetDate(first);
        Form().lblDate2.SetDate(second);
    }
    static constexpr text::DateTime kMay{2025, 5, 6, 7, 8, 9};
    static constexpr text::DateTime kJune{2025, 6, 7, 8, 9, 10};
    static constexpr text::DateTime kNever{};
};

TEST_F(ReadRequest, OfTheIdleForm) {
    Start();
    const SearchRequest request = Read();
    EXPECT_EQ(request.searchFor, "");
    EXPECT_THAT(request.strings.strings, ElementsAre("*"));
    EXPECT_THAT(request.locations.folders, IsEmpty());
    EXPECT_EQ(request.kind, Kind::kFiles);
    EXPECT_FALSE(request.subfolders);
    EXPECT_FALSE(request.isNot);
    EXPECT_FALSE(request.oneEach);
    EXPECT_FALSE(request.isRepeat);
    EXPECT_TRUE(request.showsContents);
    EXPECT_EQ(request.size, search::SizeTest{});
    EXPECT_EQ(request.date, search::DateTest{});
    EXPECT_EQ(request.dateKind, DateKind::kModified);
    EXPECT_EQ(request.attributes, (search::AttributeMasks{0, 32}));
    EXPECT_EQ(request.target, "");
    EXPECT_FALSE(request.IsRecycleAllowed());
}

TEST_F(ReadRequest, EachFlagHasItsBox) {
    struct Row {
        fields::CheckBox fields::FrmSearch::*box;
        bool SearchRequest::*flag;
    };
    Start();
    for (const Row& row :
         {Row{&fields::FrmSearch::chkIncludeSubFolders, &SearchRequest::subfolders},
          Row{&fields::FrmSearch::chkNot, &SearchRequest::isNot},
          Row{&fields::FrmSearch::chkOneEach, &SearchRequest::oneEach},
          Row{&fields::FrmSearch::chkRepeatSearch, &SearchRequest::isRepeat}}) {
        (Form().*row.box).Value = 1;
        const SearchRequest request = Read();
        (Form().*row.box).Value = 0;
        EXPECT_TRUE(request.*row.flag) << (Form().*row.box).Name();
        EXPECT_EQ(request.subfolders + request.isNot + request.oneEach + request.isRepeat, 1)
            << (Form().*row.box).Name();
    }
}

TEST_F(ReadRequest, EachKindHasItsOptionAndItsName) {
    Start();
    const std::pair<Kind, const char*> kinds[] = {{Kind::kFiles, "files"},
                                                  {Kind::kEmptyFiles, "empty files"},
                                                  {Kind::kAllObjects, "files and folders"},
                                                  {Kind::kFolders, "folders"},
                                                  {Kind::kEmptyFolders, "empty folders"}};
    int option = 0;
    for (const auto& [kind, name] : kinds) {
        Form().optFilesVsDirs.Choose(option++);
        EXPECT_EQ(Read().kind, kind);
        EXPECT_EQ(search::KindText(kind), name);
    }
}

TEST_F(ReadRequest, NotNeedsOneStringAndNoBatch) {
    Start();
    Form().chkNot.Value = 1;
    Form().cmbSearchFor.Text = "a|b";
    EXPECT_FALSE(Read().isNot);
    Form().cmbSearchFor.Text = "a|";
    EXPECT_TRUE(Read().isNot);
    for (bool session::SessionState::*batch :
         {&session::SessionState::blnAutoMove, &session::SessionState::blnAutoPlayList}) {
        State().*batch = true;
        EXPECT_FALSE(Read().isNot);
        State().*batch = false;
    }
}

TEST_F(ReadRequest, SizeTests) {
    struct Row {
        const char* choice;
        const char* first;
        const char* second;
        search::SizeTest test;
    };
    Start();
    for (const Row& row : {Row{"At Least", "20", "", {SizeChoice::kAtLeast, 20, 0}},
                           Row{"At Most", " 0 ", "x", {SizeChoice::kAtMost, 0, 0}},
                           Row{"Range", "7", "2147483647", {SizeChoice::kRange, 7, 2147483647}},
                           Row{"Range", "-3", "-3", {SizeChoice::kRange, -3, -3}}}) {
        UseSize(row.choice, row.first, row.second);
        EXPECT_EQ(Read().size, row.test) << row.choice;
    }
    Form().chkSize.Value = 0;
    EXPECT_EQ(Read().size, search::SizeTest{});
}

TEST_F(ReadRequest, DateTests) {
    struct Row {
        const char* choice;
        std::optional<text::DateTime> first;
        std::optional<text::DateTime> second;
        search::DateTest test;
    };
    Start();
    for (const Row& row :
         {Row{"Since", kMay, std::nullopt, {DateChoice::kSince, kMay, kNever}},
          Row{"Before", kMay, kJune, {DateChoice::kBefore, kMay, kJune}},
          Row{"Range", kMay, kJune, {DateChoice::kRange, kMay, kJune}},
          Row{"Range", std::nullopt, kJune, {DateChoice::kRange, kNever, kJune}}}) {
        UseDate(row.choice, row.first, row.second);
        EXPECT_EQ(Read().date, row.test) << row.choice;
    }
    Form().chkDate.Value = 0;
    EXPECT_EQ(Read().date, (search::DateTest{DateChoice::kNone, kNever, kJune}))
        << "the dates stay for what has none of its own";
}

TEST_F(ReadRequest, TheDateKindIsTheOneCheckedInTheMenu) {
    Start();
    const DateKind kinds[] = {DateKind::kModified, DateKind::kCreated, DateKind::kAccessed};
    for (std::size_t i = 0; i < 3; ++i) {
        Click(Form().mnuSearch_DateType[i]);
        Form().lblDateType.Caption = "any words";
        EXPECT_EQ(Read().dateKind, kinds[i]);
    }
    Form().mnuSearch_DateType[2].Checked = false;
    EXPECT_EQ(Read().dateKind, DateKind::kUnknown);
}

TEST_F(ReadRequest, SizesThatAreRefused) {
    struct Row {
        const char* choice;
        const char* first;
        const char* second;
        PromptId id;
    };
    Start();
    for (const Row& row : {Row{"", "1", "2", PromptId::kSizeChoiceInvalid},
                           Row{"range", "1", "2", PromptId::kSizeChoiceInvalid},
                           Row{"At Most", "", "2", PromptId::kFirstSizeInvalid},
                           Row{"At Least", "1.5", "2", PromptId::kFirstSizeInvalid},
                           Row{"Range", "x", "", PromptId::kSecondSizeInvalid},
                           Row{"Range", "x", "2", PromptId::kFirstSizeInvalid},
                           Row{"Range", "2", "1", PromptId::kSizesReversed}}) {
        UseSize(row.choice, row.first, row.second);
        EXPECT_THAT(Refusals(), ElementsAre(row.id)) << row.choice << " " << row.first;
    }
}

TEST_F(ReadRequest, DatesThatAreRefused) {
    struct Row {
        const char* choice;
        std::optional<text::DateTime> first;
        std::optional<text::DateTime> second;
        PromptId id;
    };
    Start();
    for (const Row& row : {Row{"", kMay, kJune, PromptId::kDateChoiceInvalid},
                           Row{"After", kMay, kJune, PromptId::kDateChoiceInvalid},
                           Row{"Since", std::nullopt, kJune, PromptId::kDateInvalid},
                           Row{"Before", std::nullopt, kJune, PromptId::kDateInvalid},
                           Row{"Range", kMay, std::nullopt, PromptId::kDateInvalid},
                           Row{"Range", kJune, kMay, PromptId::kDatesReversed}}) {
        UseDate(row.choice, row.first, row.second);
        EXPECT_THAT(Refusals(), ElementsAre(row.id)) << row.choice;
    }
}

TEST_F(ReadRequest, AllThatIsWrongIsToldSizeFirst) {
    Start();
    UseSize("Nearly", "2", "1");
    UseDate("Range", kJune, kMay);
    EXPECT_THAT(Refusals(), ElementsAre(PromptId::kSizeChoiceInvalid, PromptId::kDatesReversed));
    const auto request = search::ReadSearchRequest(S());
    ASSERT_FALSE(request);
    EXPECT_EQ(request.error()[0].text, "Nearly is not a valid selection for file size search.");
    EXPECT_EQ(request.error()[1].text, " When searching by date range the first box\r\n"
                                       "must be less than the second box.");
}

TEST_F(ReadRequest, ChangesNoFieldAndAsksNothing) {
    Start();
    Form().cmbSearchFor.Text = "  red|blue";
    Form().cmbDir.Text = "|C:\\nowhere|";
    Form().chkNot.Value = 1;
    UseSize("Range", "2", "1");
    Form().TakeChanged();
    EXPECT_FALSE(Refusals().empty());
    Form().chkSize.Value = 0;
    Form().TakeChanged();
    Read();
    EXPECT_THAT(Form().TakeChanged(), IsEmpty());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(ReadRequest, TargetLocationsAndColumns) {
    Start();
    for (const auto& [typed, target] :
         {std::pair{"c:\\Games", "C:\\GAMES"}, std::pair{"   ", ""}, std::pair{" x ", " X "}}) {
        Form().cboTargetPath.Text = typed;
        EXPECT_EQ(Read().target, target);
    }
    State().options.strDefSearchFolder.front() = "C:\\first\\";
    Form().cmbDir.Text = "   ";
    EXPECT_EQ(Read().searchIn, "C:\\first");
    Form().cmbDir.Text = "C:\\a|%Temp%";
    EXPECT_EQ(Read().searchIn, "C:\\a|%Temp%");
    for (const auto& [files, folders] : {std::pair{true, false}, std::pair{false, true}}) {
        S().blnListItems[results::kFilesInFolder] = files;
        S().blnListItems[results::kFoldersInFolder] = folders;
        EXPECT_TRUE(Read().showsContents);
    }
    S().blnListItems[results::kFoldersInFolder] = false;
    EXPECT_FALSE(Read().showsContents);
}

TEST_F(ReadRequest, ARecycleFolderIsAllowedByTheStringsOrTheLocations) {
    SearchRequest request;
    EXPECT_FALSE(request.IsRecycleAllowed());
    request.strings.blnRecycleAllowed = true;
    EXPECT_TRUE(request.IsRecycleAllowed());
    request.strings.blnRecycleAllowed = false;
    request.locations.blnRecycleAllowed = true;
    EXPECT_TRUE(request.IsRecycleAllowed());
}

// What is set while the walk runs counts for the next one only.
TEST_F(ReadRequest, AWalkReadsNoField) {
    for (const char* name : {"a.txt", "b.txt", "s\\c.txt", "s\\d.txt"}) {
        Disk().AddFile(std::string("C:\\t\\") + name, "12");
    }
    Start();
    WithSubfolders();
    std::function<void()> change = [&] {
        if (State().lngFilesFound == 0) return S().yielder.After(1, change);
        Form().chkIncludeSubFolders.Value = 0;
        Form().chkOneEach.Value = 1;
        Form().chkNot.Value = 1;
        Form().optFilesVsDirs.Choose(4);
        UseSize("At Most", "1", "");
        Form().chkRepeatSearch.Value = 1;
    };
    S().yielder.After(1, change);
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt", "d.txt"));
}

} // namespace
} // namespace tarvix::testing
