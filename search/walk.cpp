#include "search/walk.h"

#include "search/request.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <utility>

namespace tarvix::search {

namespace {
enum Kind : int { kFiles = 0, kEmptyFiles = 1, kAllObjects = 2, kFolders = 3, kEmptyFolders = 4 };

bool LiesUnder(std::string_view folder, std::string_view location) {
    return text::EqualNoCase(folder, location) ||
           text::Upper(folder).starts_with(text::Upper(location) + "\\");
}
} // namespace

Walk::Walk(session::Session& session)
    : session_(session), counters_(session), list_(session, counters_), filters_(session),
      find_(session, counters_, list_, filters_, BuildSelectedAttributesVariable(session)),
      kind_(session.frmSearch.optFilesVsDirs.Chosen()) {}

Outcome Walk::YieldAndTest() {
    session_.Yield();
    if (session_.state.blnStopClicked) return Outcome::kStopped;
    return session_.state.blnSkipSearch ? Outcome::kSkipped : Outcome::kDone;
}

Outcome Walk::Run() {
    for (int index = 1; index <= session_.state.intSearchFolderCount; ++index) {
        const Outcome outcome = RunLocation(index);
        if (outcome != Outcome::kDone) return outcome;
    }
    counters_.ShowSeen();
    return Outcome::kDone;
}

void Walk::SetVirtualStoreFlags() {
    auto& state = session_.state;
    const bool isOwn = LiesUnder(state.strProgramFolder, folder_);
    const bool isData = LiesUnder(state.strDataFolder, folder_);
    state.blnScanVirtualStore =
        state.intOSVersion > 6000 && state.blnDataInVirtualStore && (isOwn || isData);
    state.blnScanVirtualStoreOwn = state.blnScanVirtualStore && isOwn;
}

Outcome Walk::RunLocation(int index) {
    auto& state = session_.state;
    const auto& location = state.searchFolders[static_cast<std::size_t>(index)];
    state.intFolderIndex = index;
    list_.Erase();
    blnListBuilt2_ = false;
    if (location.folder.empty()) return Outcome::kDone;
    folder_ = text::StripTrailingSlash(location.folder);
    find_.SetLocation(folder_);
    SetVirtualStoreFlags();
    for (int string = 1; string <= state.intSearchForCount; ++string) {
        const Outcome outcome = RunString(string);
        if (outcome != Outcome::kDone) return outcome;
    }
    return Outcome::kDone;
}

Outcome Walk::RunString(int index) {
    auto& state = session_.state;
    auto& form = session_.frmSearch;
    const std::string& searchString = state.strSearchFor[static_cast<std::size_t>(index)];
    const bool isNot = form.chkNot.Value == 1;
    session::LogTimed(session_, " Start portion of search for " + std::string(KindText(kind_)) +
                                    " with " + searchString + " in " + folder_);
    state.intSearchForIndex = index;
    state.strCurrentSearchFor = searchString;
    form.lblSearchFor.Caption =
        "Current search string - " + std::string(isNot ? "Not " : "") + searchString;
    state.blnLikeChars = searchString.find_first_of("[#") != searchString.npos;
    form.lblCurrentFolder.Caption = "Current search folder - " + folder_;
    find_.SetString(searchString, isNot);
    if (const Outcome outcome = YieldAndTest(); outcome != Outcome::kDone) return outcome;
    if (const Outcome outcome = RunRoot(); outcome != Outcome::kDone) return outcome;
    const bool isRepeat = form.chkRepeatSearch.Value == 1;
    form.lblStatus.Caption = isRepeat ? "Repeat searching" : "Searching";
    if (form.chkIncludeSubFolders.Value == 1) return RunSubFolders(index == 1);
    return form.chkSize.Value == 0 ? RunOneLevel(index == 1) : Outcome::kDone;
}

Outcome Walk::RunRoot() {
    Outcome outcome = Outcome::kDone;
    if (kind_ == kFiles || kind_ == kAllObjects) outcome = find_.FindFilesAtRoot();
    if (kind_ == kEmptyFiles) outcome = find_.FindEmptyFilesAtRoot();
    return outcome == Outcome::kDone ? YieldAndTest() : outcome;
}

Outcome Walk::RunSubFolders(bool isFirst) {
    auto& state = session_.state;
    if (isFirst) list_.BuildSubFoldersArray(folder_);
    if (state.blnLikeChars && !blnListBuilt2_) {
        list_.BuildSecond();
        blnListBuilt2_ = true;
    }
    if (const Outcome outcome = YieldAndTest(); outcome != Outcome::kDone) return outcome;
    counters_.SetRefreshCounters();
    std::size_t i = 1;
    switch (kind_) {
    case kFiles:
        return find_.FindFilesInSubFolders(i);
    case kAllObjects:
        return state.blnLikeChars ? find_.FindFilesAndFoldersInSubFoldersLikeOp(i)
                                  : find_.FindFilesAndFoldersInSubFolders(i);
    case kEmptyFolders:
        state.lngRefreshEvery = 0;
        return state.blnLikeChars ? find_.FindEmptyFoldersInSubFoldersLikeOp(i)
                                  : find_.FindEmptyFoldersInSubFolders(i);
    case kFolders:
        counters_.SetRefreshCountersFolders(list_.HighFolder());
        return state.blnLikeChars ? find_.FindFoldersInSubFoldersLikeOp(i)
                                  : find_.FindFoldersInSubFolders(i);
    default:
        state.lngRefreshEvery = 0;
        return find_.FindEmptyFilesInSubFolders(i);
    }
}

Outcome Walk::RunOneLevel(bool isFirst) {
    auto& state = session_.state;
    if (isFirst) {
        const auto& columns = session_.blnListItems;
        const bool countsShow =
            columns[results::kFilesInFolder] || columns[results::kFoldersInFolder];
        if (countsShow) {
            list_.BuildSubFoldersArray(folder_);
        } else {
            list_.BuildSubFoldersArrayLevelOne(folder_);
        }
    }
    if (state.blnLikeChars) {
        list_.BuildSecond();
        blnListBuilt2_ = true;
    }
    counters_.SetRefreshCounters();
    std::size_t i = 1;
    switch (kind_) {
    case kFolders:
        counters_.SetRefreshCountersFolders(list_.HighFolder());
        return find_.FindFoldersInSubFolders(i);
    case kAllObjects:
        return find_.FindFoldersInSubFolders(i);
    case kEmptyFolders:
        state.lngRefreshEvery = 0;
        return find_.FindEmptyFoldersInSubFolders(i);
    default:
        return Outcome::kDone;
    }
}

} // namespace tarvix::search
