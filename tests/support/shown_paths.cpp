#include "tests/support/shown_paths.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "text/characters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace tarvix::testing {

namespace {

using session::PromptId;

// Quote what was typed or what stands in a damaged file, as it is.
constexpr PromptId kQuoting[]{PromptId::kDestinationNoPath, PromptId::kUnexpectedError};

struct Wanted {
    std::string_view suite;
    PromptId id;
};
constexpr Wanted kWanted[]{
    {"session", PromptId::kOptionsBackedUp},
    {"session", PromptId::kDataFolderUnwritable},
    {"session", PromptId::kFileNotFound},
    {"session", PromptId::kPermissionDenied},
    {"session", PromptId::kUnexpectedError},
    {"session", PromptId::kOutsideError},
    {"session", PromptId::kEndMarkMissing},
    {"session", PromptId::kLogUnwritable},
    {"search", PromptId::kBadNameInSearch},
    {"search", PromptId::kListUnreadable},
    {"search", PromptId::kLocationReplaced},
    {"search", PromptId::kLocationsWrong},
    {"search", PromptId::kSearchTooLong},
    {"search", PromptId::kForeignName},
    {"search", PromptId::kTrailingSpaces},
    {"search", PromptId::kFakeFolder},
    {"actions", PromptId::kFileNotFound},
    {"actions", PromptId::kBadNameInAction},
    {"actions", PromptId::kPathNotFound},
    {"actions", PromptId::kDestinationReplaced},
    {"actions", PromptId::kDestinationIsFile},
    {"actions", PromptId::kNamePartInvalid},
    {"actions", PromptId::kFoldersPlaceIsFile},
    {"actions", PromptId::kConfirmCopyOrMove},
    {"actions", PromptId::kConfirmCopyOrMoveWarned},
    {"actions", PromptId::kConfirmWrite},
    {"actions", PromptId::kDuplicate},
    {"actions", PromptId::kAskLongPath},
    {"actions", PromptId::kOverrideProtected},
    {"actions", PromptId::kOverrideRecycleFailure},
    {"actions", PromptId::kProtectedCopied},
    {"actions", PromptId::kDuplicateNotRecycled},
    {"actions", PromptId::kOverwriteNotRecycled},
    {"actions", PromptId::kOverwriteNotUndone},
    {"actions", PromptId::kReplaceOverlaps},
    {"actions", PromptId::kWriteOverlaps},
    {"actions", PromptId::kDuplicateUnshortened},
    {"actions", PromptId::kDeepFolder},
    {"actions", PromptId::kRenameNoName},
    {"actions", PromptId::kRenameTakenGoOn},
    {"actions", PromptId::kChangedSinceSearch},
    {"actions", PromptId::kRuleReport},
    {"generate", PromptId::kTextFileIsFolder},
    {"generate", PromptId::kListLeftOut},
    {"generate", PromptId::kSimilarUnreadable},
    {"generate", PromptId::kFoldersPlaceMissing},
    {"generate", PromptId::kFoldersNotMade},
    {"batch", PromptId::kOutsideError},
    {"batch", PromptId::kListMarkMissing},
};

bool IsAnyOf(PromptId id, std::span<const PromptId> ids) {
    return std::ranges::find(ids, id) != ids.end();
}

bool HasDrivePath(std::string_view text) {
    for (std::size_t at = text.find(":\\"); at != text.npos; at = text.find(":\\", at + 1)) {
        // What no disk can hold stays as it was typed.
        const std::string_view path = text.substr(at, text.find_first_of("\r\n'", at) - at);
        if (path.find('/') != path.npos) continue;
        const bool isLetter = at > 0 && std::string_view("CDEFGZ").contains(text[at - 1]);
        const bool isAlone = at < 2 || !std::isalnum(static_cast<unsigned char>(text[at - 2]));
        if (isLetter && isAlone) return true;
    }
    return text.find("\\\\") != text.npos;
}

class Judge : public ::testing::EmptyTestEventListener {
  public:
    void Note(const session::PromptRecord& prompt) {
        if (prompt.text.find('/') != prompt.text.npos) raised_.insert(prompt.id);
        if (!IsAnyOf(prompt.id, kQuoting)) Note(prompt.text);
    }
    void Note(std::string_view text) {
        if (!HasDrivePath(text)) return;
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        std::cerr << test->test_suite_name() << "." << test->name() << " shows:\n" << text << "\n";
        isWrong_ = true;
    }
    void OnTestProgramEnd(const ::testing::UnitTest&) override {
        for (const Wanted& wanted : kWanted) {
            if (wanted.suite != std::getenv("TARVIX_SHOWN_PATHS")) continue;
            if (raised_.contains(wanted.id)) continue;
            std::cerr << "no test raises prompt " << static_cast<int>(wanted.id)
                      << " with a path\n";
            isWrong_ = true;
        }
        std::exit(isWrong_ ? 1 : 0);
    }

  private:
    std::set<PromptId> raised_;
    bool isWrong_ = false;
};

// The one of this process, in the place of what prints the other failures.
Judge& TheJudge() {
    static Judge* const judge = [] {
        auto& listeners = ::testing::UnitTest::GetInstance()->listeners();
        delete listeners.Release(listeners.default_result_printer());
        auto* made = new Judge;
        listeners.Append(made);
        return made;
    }();
    return *judge;
}

} // namespace

bool JudgesShownPaths() {
    return std::getenv("TARVIX_SHOWN_PATHS") != nullptr;
}

void JudgeShown(const session::Session& session,
                const std::vector<session::PromptRecord>& prompts) {
    if (!JudgesShownPaths()) return;
    for (const session::PromptRecord& prompt : prompts) {
        TheJudge().Note(prompt);
    }
    // Such lists are written as they are shown.
    if (!session.state.platformSettings.listsAreNative) return;
    for (const fields::Form* form : session.forms.all) {
        for (const fields::Control* control : form->Controls()) {
            TheJudge().Note(control->CaptionText());
            TheJudge().Note(control->ToolTipText.Get());
        }
    }
}

} // namespace tarvix::testing
