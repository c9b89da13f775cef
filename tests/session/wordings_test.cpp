#include "session/errors.h"
#include "session/plain_text.h"
#include "session/prompt_id.h"
#include "session/prompt_table.h"
#include "session/wordings.h"
#include "tests/session/log_session.h"

#include <array>

namespace tarvix::session {
namespace {

class Words : public testing::LogSession {
  protected:
    void BeNative() {
        session.platform.traits.hasNativePaths = true;
        State().platformSettings.showsNative = true;
    }
};

TEST_F(Words, ThoseOfThisMachineNameNoPartOfAnother) {
    BeNative();
    constexpr std::array kForeign{"Windows", "Explorer", "Microsoft", "CD",        "drive",
                                  "pc ",     "Recyc",    "recyc",     "partition", "C:"};
    for (int i = 0; i < static_cast<int>(Wording::kEnd); ++i) {
        const std::string_view here = Worded(session, static_cast<Wording>(i));
        for (const std::string_view word : kForeign)
            EXPECT_EQ(here.find(word), here.npos) << here;
    }
}

TEST_F(Words, AreToldOnAMachineWithDrives) {
    EXPECT_EQ(Worded(session, Wording::kBin), "recycle bin");
    EXPECT_EQ(Worded(session, Wording::kRecycleProgress, "2", "1,204"),
              "Recycling 2 of 1,204 objects");
    BeNative();
    EXPECT_EQ(Worded(session, Wording::kBin), "trash");
    EXPECT_EQ(Worded(session, Wording::kRecycleProgress, "2", "1,204"),
              "Moved 2 of 1,204 objects to the trash");
}

TEST_F(Words, AreToldWherePathsAreShownInDriveForm) {
    BeNative();
    State().platformSettings.showsNative = false;
    EXPECT_EQ(Worded(session, Wording::kBin), "recycle bin");
}

TEST_F(Words, DatesInPromptsAreThoseOfTheList) {
    const text::DateTime date{2026, 3, 4, 15, 6, 7};
    EXPECT_EQ(WordedDate(session, date), "3/4/2026 3:06:07 PM");
    BeNative();
    EXPECT_EQ(WordedDate(session, date), "2026/03/04 15:06:07");
}

TEST(WindowTitles, NameNoRoutine) {
    for (const PromptFacts& facts : AllPrompts()) {
        const std::string_view title = WindowTitle(facts.id, facts.title);
        for (const std::string_view word : {"Parse", "Client", "Automation"})
            EXPECT_EQ(title.find(word), title.npos) << title;
    }
    EXPECT_EQ(WindowTitle(PromptId::kLocationsWrong, "ParseSearchFolder"), "Search Location(s)");
    EXPECT_EQ(WindowTitle(PromptId::kPreviewRefused, "Preview"), "Preview");
}

TEST_F(Words, PlainTextLeadsWithTheObjectAndWhatCouldNotBeDone) {
    State().platformSettings.showsNative = true;
    EXPECT_EQ(PlainText(session,
                        {.routine = "CopyObject",
                         .object = "C:\\m\\a.mp3",
                         .path = "C:\\m\\a.mp3",
                         .searchOrDestination = "C:\\bk\\a.mp3"},
                        "There is no space left."),
              "/m/a.mp3 could not be copied to\r\n/bk/a.mp3\r\n\r\nThere is no space left.");
    EXPECT_EQ(PlainText(session,
                        {.routine = "FindFilesInSubFolders",
                         .object = kUnreadObject,
                         .path = "C:\\m\\sub",
                         .searchOrDestination = "C:\\m"},
                        ""),
              "/m/sub could not be read.");
    EXPECT_EQ(PlainText(session, {.routine = "SaveOptionFile", .searchOrDestination = "C:\\o.txt"},
                        "Full."),
              "/o.txt could not be saved.\r\n\r\nFull.");
}

} // namespace
} // namespace tarvix::session
