#include "results/counters.h"

#include "session/prompt_id.h"
#include "session/session.h"

#include <algorithm>
#include <string>

namespace tarvix::results {

namespace {
constexpr const char* kLimitText =
    " You are about to run out of memory this application can use, stopping the search at 250,000 "
    "objects in the list.";
}

bool Counters::IsRefreshDue() {
    if (++sinceRefresh_ <= lngRefreshEvery_) return false;
    sinceRefresh_ = 0;
    return true;
}

void Counters::CountFileSeen() {
    ++session_.state.lngSeenFiles;
    if (IsRefreshDue()) {
        session_.frmSearch.lblNumOfFilesAttrib.Caption =
            std::to_string(session_.state.lngSeenFiles);
    }
    session_.Yield();
}

void Counters::CountFolderSeen() {
    ++session_.state.lngSeenFolders;
}

void Counters::CountFileFound() {
    auto& state = session_.state;
    ++state.lngFilesFound;
    if (IsRefreshDue()) {
        ShowFound();
        const auto seen = std::max(state.lngSeenFiles, state.lngFilesFound);
        session_.frmSearch.lblNumOfFilesAttrib.Caption = std::to_string(seen);
    }
    session_.Yield();
    CheckLimit();
}

void Counters::CountFolderFound() {
    ++session_.state.lngFoldersFound;
    if (IsRefreshDue()) ShowFound();
    session_.Yield();
    CheckLimit();
}

void Counters::CheckLimit() {
    auto& state = session_.state;
    if (state.lngFilesFound + state.lngFoldersFound != session::kObjectLimit) return;
    session_.MsgBox(session::PromptId::kObjectLimitReached, kLimitText);
    state.blnStopClicked = true;
}

void Counters::ShowSeen() {
    const auto& state = session_.state;
    const auto files = std::max(state.lngSeenFiles, state.lngFilesFound);
    session_.frmSearch.lblNumOfFilesAttrib.Caption = std::to_string(files);
    session_.frmSearch.lblNumOfDirsAttrib.Caption = std::to_string(state.lngSeenFolders);
}

void Counters::ShowFound() {
    const auto& state = session_.state;
    session_.frmSearch.lblNumOfFilesFound.Caption = std::to_string(state.lngFilesFound);
    session_.frmSearch.lblNumOfDirsFound.Caption = std::to_string(state.lngFoldersFound);
}

std::int64_t RefreshStep(std::int64_t seen, bool sizeTest, bool dateTest) {
    if (seen < 1000) return 0;
    if (seen < 10000) return sizeTest || dateTest ? 0 : 9;
    return sizeTest || dateTest ? 9 : 99;
}

void Counters::SetRefreshCounters() {
    SetRefreshCountersFolders(session_.state.lngSeenFiles);
}

void Counters::SetRefreshCountersFolders(std::int64_t highFolder) {
    lngRefreshEvery_ = RefreshStep(highFolder, sizeTest_, dateTest_);
}

} // namespace tarvix::results
