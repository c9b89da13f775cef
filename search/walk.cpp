#include "search/walk.h"

#include "platform/try.h"
#include "search/find_family.h"
#include "search/folder_list.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::search {

namespace {

constexpr std::size_t kFirst = 1; // of a list; the root is walked by itself before

class Walker {
  public:
    Walker(session::Session& session, const SearchRequest& request);
    WalkEnd Run();

  private:
    WalkEnd RunLocation(const SearchLocation& location, int intFolderIndex);
    WalkEnd RunString(const std::string& searchString, int intSearchForIndex);
    void ShowString(const std::string& searchString);
    WalkEnd RunRoot();
    WalkEnd RunSubFolders(bool isFirst);
    WalkEnd FindInSubFolders();
    WalkEnd RunOneLevel(bool isFirst);
    WalkEnd YieldAndTest();

    session::Session& session_;
    const SearchRequest& request_;
    results::Counters counters_;
    FolderList list_;
    Filters filters_;
    FindFamily find_;
    std::string folder_;
    results::StoreScan scan_;
    bool blnLikeChars_ = false; // the search string in hand holds "[" or "#"
    bool blnListBuilt2_ = false;
};

Walker::Walker(session::Session& session, const SearchRequest& request)
    : session_(session), request_(request),
      counters_(session, request.size.choice != SizeChoice::kNone,
                request.date.choice != DateChoice::kNone),
      list_(session, counters_, request), filters_(session, request),
      find_(session, counters_, list_, filters_, request) {}

WalkEnd Walker::YieldAndTest() {
    session_.Yield();
    return TestFlags(session_.state);
}

WalkEnd Walker::Run() {
    int index = 0;
    for (const SearchLocation& location : request_.locations.folders) {
        TX_TRY(RunLocation(location, ++index));
    }
    counters_.ShowSeen();
    return {};
}

WalkEnd Walker::RunLocation(const SearchLocation& location, int intFolderIndex) {
    list_.Erase();
    blnListBuilt2_ = false;
    if (location.folder.empty()) return {};
    folder_ = text::StripTrailingSlash(location.folder);
    find_.SetLocation(folder_, intFolderIndex);
    scan_ = results::StoreScanOf(session_.state, folder_);
    int index = 0;
    for (const std::string& searchString : request_.strings.strings) {
        TX_TRY(RunString(searchString, ++index));
    }
    return {};
}

void Walker::ShowString(const std::string& searchString) {
    auto& form = session_.frmSearch;
    session::LogTimed(session_,
                      fmt::format(" Start portion of search for {} with {} in {}",
                                  KindText(request_.kind), searchString, session_.Shown(folder_)));
    form.lblSearchFor.Caption =
        fmt::format("Current search string - {}{}", request_.isNot ? "Not " : "", searchString);
    form.lblCurrentFolder.Caption =
        fmt::format("Current search folder - {}", session_.Shown(folder_));
}

WalkEnd Walker::RunString(const std::string& searchString, int intSearchForIndex) {
    ShowString(searchString);
    blnLikeChars_ = searchString.find_first_of("[#") != searchString.npos;
    find_.SetString(searchString, results::RowSource(intSearchForIndex, scan_));
    TX_TRY(YieldAndTest());
    TX_TRY(RunRoot());
    session_.frmSearch.lblStatus.Caption = request_.isRepeat ? "Repeat searching" : "Searching";
    const bool isFirst = intSearchForIndex == 1;
    if (request_.subfolders) return RunSubFolders(isFirst);
    // No folder passes a test of its size.
    return request_.size.choice == SizeChoice::kNone ? RunOneLevel(isFirst) : WalkEnd{};
}

WalkEnd Walker::RunRoot() {
    if (request_.kind == Kind::kFiles || request_.kind == Kind::kAllObjects) {
        TX_TRY(find_.FindFilesAtRoot());
    } else if (request_.kind == Kind::kEmptyFiles) {
        TX_TRY(find_.FindEmptyFilesAtRoot());
    }
    return YieldAndTest();
}

WalkEnd Walker::RunSubFolders(bool isFirst) {
    if (isFirst) list_.BuildSubFoldersArray(folder_);
    if (blnLikeChars_ && !blnListBuilt2_) {
        list_.BuildSecond();
        blnListBuilt2_ = true;
    }
    TX_TRY(YieldAndTest());
    counters_.SetRefreshCounters();
    return FindInSubFolders();
}

WalkEnd Walker::FindInSubFolders() {
    switch (request_.kind) {
    case Kind::kFiles:
        return find_.FindFilesInSubFolders(kFirst);
    case Kind::kAllObjects:
        return blnLikeChars_ ? find_.FindFilesAndFoldersInSubFoldersLikeOp(kFirst)
                             : find_.FindFilesAndFoldersInSubFolders(kFirst);
    case Kind::kEmptyFolders:
        counters_.SetRefreshEvery(0);
        return blnLikeChars_ ? find_.FindEmptyFoldersInSubFoldersLikeOp(kFirst)
                             : find_.FindEmptyFoldersInSubFolders(kFirst);
    case Kind::kFolders:
        counters_.SetRefreshCountersFolders(list_.HighFolder());
        return blnLikeChars_ ? find_.FindFoldersInSubFoldersLikeOp(kFirst)
                             : find_.FindFoldersInSubFolders(kFirst);
    case Kind::kEmptyFiles:
        counters_.SetRefreshEvery(0);
        return find_.FindEmptyFilesInSubFolders(kFirst);
    }
    return {};
}

WalkEnd Walker::RunOneLevel(bool isFirst) {
    if (isFirst && request_.showsContents) {
        list_.BuildSubFoldersArray(folder_);
    } else if (isFirst) {
        list_.BuildSubFoldersArrayLevelOne(folder_);
    }
    if (blnLikeChars_) {
        list_.BuildSecond();
        blnListBuilt2_ = true;
    }
    counters_.SetRefreshCounters();
    switch (request_.kind) {
    case Kind::kFolders:
        counters_.SetRefreshCountersFolders(list_.HighFolder());
        return find_.FindFoldersInSubFolders(kFirst);
    case Kind::kAllObjects:
        return find_.FindFoldersInSubFolders(kFirst);
    case Kind::kEmptyFolders:
        counters_.SetRefreshEvery(0);
        return find_.FindEmptyFoldersInSubFolders(kFirst);
    case Kind::kFiles:
    case Kind::kEmptyFiles:
        break;
    }
    return {};
}

} // namespace

WalkEnd Walk(session::Session& session, const SearchRequest& request) {
    return Walker(session, request).Run();
}

} // namespace tarvix::search
