#include "search/find_family.h"

#include "platform/try.h"
#include "search/left_out.h"
#include "search/unread.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace tarvix::search {

namespace {
constexpr std::size_t kWorthReadingAhead = 1024; // files
} // namespace

FindFamily::FindFamily(session::Session& session, results::Counters& counters, FolderList& list,
                       Filters& filters, const SearchRequest& request)
    : session_(session), counters_(counters), list_(list), filters_(filters), request_(request),
      readsLinks_(results::WantsLinks(session, request.target)), linkReader_(session),
      readsFacts_(!request.namesAlone) {
    const platform::VisitWish wish = WishFor(request.strings.strings);
    list_.Want(WishBelow(wish), wish);
}

// For all strings at once, so that each folder is visited once. Where one file of a folder is
// wanted, facts are read one by one.
platform::VisitWish FindFamily::WishFor(const std::vector<std::string>& strings) const {
    platform::VisitWish wish;
    const bool takesFiles = request_.kind != Kind::kFolders && request_.kind != Kind::kEmptyFolders;
    if (!takesFiles) return wish;
    auto matches = std::make_shared<std::vector<NameMatch>>();
    for (const std::string& searchString : strings)
        matches->emplace_back(searchString, request_.isNot);
    wish.wants = [matches = std::shared_ptr<const std::vector<NameMatch>>(std::move(matches))](
                     std::string_view name) {
        return IsListable(name) && std::ranges::any_of(*matches, [name](const NameMatch& match) {
                   return match.CheckNameMatch(name);
               });
    };
    wish.facts = readsFacts_ && !(request_.oneEach && request_.kind == Kind::kFiles);
    return wish;
}

// The same for the folders below a location.
platform::VisitWish FindFamily::WishBelow(platform::VisitWish wish) const {
    const bool takesFolders = request_.kind == Kind::kFolders || request_.kind == Kind::kAllObjects;
    if (!request_.subfolders) wish = {};
    wish.folderFacts = takesFolders && readsFacts_;
    return wish;
}

void FindFamily::SetLocation(std::string_view folder, int intFolderIndex) {
    location_ = folder;
    match_.reset();
    earlier_.clear();
    intFolderIndex_ = intFolderIndex;
    rowFolderIndex_ = openedIndex_ = heldIndex_ = SIZE_MAX;
    opened_.reset();
}

void FindFamily::SetString(std::string_view searchString, results::RowSource source) {
    searchString_ = searchString;
    source_ = std::move(source);
    if (match_) earlier_.push_back(std::move(match_));
    match_ = std::make_unique<NameMatch>(searchString, request_.isNot);
}

WalkEnd FindFamily::Test() const {
    return TestFlags(session_.state);
}

void FindFamily::ShowCurrent(std::size_t index) {
    session_.frmSearch.lblCurrentFolder.Caption =
        text::Concat({"Current search folder - ", shown_.Of(list_.At(index).strFolderLong)});
}

const results::RowFolder* FindFamily::RowFolderOf(std::size_t index) {
    if (rowFolderIndex_ == index) return rowFolder_;
    results::RowFolder folder;
    folder.longPath = list_.At(index).strFolderLong;
    if (session::ExceedsLimit(session_, folder.longPath, session::kLongPath)) {
        folder.mixedPath = session::MixPath(folder.longPath, list_.At(index).Short());
    }
    folder.searchPrefix = static_cast<std::uint32_t>(location_.size() + 1);
    folder.searchFolderIndex = intFolderIndex_;
    folder.filesInFolder = list_.At(index).intFilesInFolder;
    folder.foldersInFolder = list_.At(index).intFoldersInFolder;
    rowFolder_ = session_.rows->AddFolder(std::move(folder));
    rowFolderIndex_ = index;
    return rowFolder_;
}

platform::Result<platform::OpenFolder*> FindFamily::Opened(std::size_t index) {
    if (openedIndex_ != index) {
        openedIndex_ = SIZE_MAX;
        TX_TRY_ASSIGN(opened_, session_.files().Open(list_.At(index).strFolderLong));
        openedIndex_ = index;
    }
    return opened_.get();
}

platform::Result<platform::ObjectFacts> FindFamily::FactsNow(std::size_t index,
                                                             std::string_view name) {
    TX_TRY_ASSIGN(platform::OpenFolder* const folder, Opened(index));
    return folder->Facts(name);
}

// Those that could not be read ahead are read once more, to know why.
std::optional<platform::ObjectFacts>
FindFamily::FactsOrNote(std::size_t index, std::string_view name, std::string_view routine) {
    const std::string& folder = list_.At(index).strFolderLong;
    auto facts = ReadOrNote(session_, {.path = text::JoinPath(folder, name)},
                            {.routine = routine,
                             .moduleName = "frmSearch",
                             .object = name,
                             .path = folder,
                             .searchOrDestination = location_,
                             .objectType = session::ObjectType::kFile},
                            [&] { return FactsNow(index, name); });
    return facts ? std::optional(*facts) : std::nullopt;
}

// An object counts once, however many strings find it. Where one file of a folder is wanted, what
// else is in it was never asked for.
void FindFamily::NoteLeftOut(std::string_view name, const platform::ObjectFacts& facts,
                             bool testsSize) {
    const bool isNoted = std::ranges::any_of(
        earlier_, [name](const auto& match) { return match->CheckNameMatch(name); });
    if (isNoted || request_.oneEach || !filters_.PassesElse(facts, testsSize)) return;
    CountLeftOut(session_.state.leftOut, request_.attributes, facts);
}

// Whether a file passes every test; if so it has its row.
bool FindFamily::TryFile(std::size_t index, std::string_view name,
                         const platform::ObjectFacts& facts, Files which) {
    if (!readsFacts_) return AddFile(index, name, facts, {});
    if (which == Files::kEmpty && facts.size != 0) return false;
    if (!filters_.CheckAttributes(facts)) {
        NoteLeftOut(name, facts, which == Files::kAny);
        return false;
    }
    TestedFacts tested;
    if (!filters_.GetFacts(facts, list_.At(index).strFolderLong, name, tested)) return false;
    const bool passes =
        which == Files::kEmpty ? filters_.CheckDate(tested) : filters_.CheckSizeAndDate(tested);
    return passes && AddFile(index, name, facts, tested);
}

// The row of a file that passed; false for a shortcut whose target doesn't.
bool FindFamily::AddFile(std::size_t index, std::string_view name,
                         const platform::ObjectFacts& facts, const TestedFacts& tested) {
    std::optional<results::LinkCells> links;
    if (readsLinks_ && !TryLink(index, name, links)) return false;
    results::AddFileRow(session_, counters_, source_, RowFolderOf(index),
                        {.name = name,
                         .size = facts.size,
                         .date = tested.seconds,
                         .attributes = facts.attributes,
                         .identity = facts.identity,
                         .isNameAlone = !readsFacts_,
                         .links = links ? &*links : nullptr,
                         .isNameHeld = HoldsNames(index)});
    return true;
}

// A shortcut is read for its columns; false when its target doesn't pass.
bool FindFamily::TryLink(std::size_t index, std::string_view name,
                         std::optional<results::LinkCells>& links) {
    if (shortcuts::KindOf(name) == shortcuts::Kind::kNone) return true;
    const std::string path = text::JoinPath(list_.At(index).strFolderLong, name);
    return linkReader_.FoundFileMeetsLinkTargetCriteria(path, request_.target, links.emplace());
}

bool FindFamily::IsSpecTooLong(std::size_t index, std::string_view routine) {
    const std::string& folder = list_.At(index).Short();
    const std::string_view spec = request_.isNot ? std::string_view("*") : searchString_;
    const bool isSurelyShort = folder.size() + 1 + spec.size() <= session::kLongPath;
    if (isSurelyShort) return false;
    const std::string whole = text::Concat({folder, "\\", spec});
    if (!session::ExceedsLimit(session_, whole, session::kLongPath)) return false;
    session::AskLongPath(session_, whole, "", routine, "frmSearch");
    return true;
}

WalkEnd FindFamily::WalkFiles(std::size_t index, Files which, bool oneEach,
                              std::string_view routine) {
    if (IsSpecTooLong(index, routine)) return Test();
    ShowCurrent(index);
    session_.Yield();
    TX_TRY(Test());
    const platform::FolderListing& names = list_.NamesOf(index);
    FindCandidates(index);
    // A walk that stops at the first match, or soon, would read too much.
    const bool isMany = found_.size() >= kWorthReadingAhead && !oneEach;
    if (readsFacts_ && factsAt_.empty() && isMany && list_.ReadFactsOf(index, found_)) {
        factsAt_.resize(found_.size());
        std::iota(factsAt_.begin(), factsAt_.end(), 0U);
    }
    std::size_t next = 0;
    for (std::uint32_t at = 0; at < names.Size(); ++at) {
        const platform::FolderEntry entry = names[at];
        if (entry.isFolder) continue;
        if (next < found_.size() && found_[next] == at) {
            auto facts = VisitFacts(index, next);
            TX_TRY(Test());
            if (!facts) facts = FactsOrNote(index, entry.name, routine);
            ++next;
            if (facts && TryFile(index, entry.name, *facts, which) && oneEach) return Test();
        }
        session_.Yield();
        TX_TRY(Test());
    }
    if (IsLastString()) list_.DropFactsTo(index);
    return {};
}

// Where most names of a folder are listed the list keeps them all, and rows need no copies. An
// object that two strings find may have two rows, whose names are told apart by where they lie.
bool FindFamily::HoldsNames(std::size_t index) {
    const auto& names = list_.At(index).visit.names;
    const bool mayFail = request_.size.choice != SizeChoice::kNone ||
                         request_.date.choice != DateChoice::kNone || request_.oneEach ||
                         request_.strings.strings.size() > 1;
    if (mayFail || !names || 2 * found_.size() < names->Size()) return false;
    if (heldIndex_ != index) session_.rows->Hold(names);
    heldIndex_ = index;
    return true;
}

bool FindFamily::IsLastString() const {
    return source_.intSearchForIndex == static_cast<int>(request_.strings.strings.size());
}

// What the folder's visit found, if it was visited with facts.
std::optional<platform::ObjectFacts> FindFamily::VisitFacts(std::size_t index,
                                                            std::size_t next) const {
    if (!readsFacts_) return platform::ObjectFacts{};
    if (factsAt_.empty()) return std::nullopt;
    const platform::BriefFacts facts = list_.FactsOf(index, factsAt_[next]);
    return facts.isKnown ? std::optional(platform::Whole(facts)) : std::nullopt;
}

void FindFamily::FindCandidates(std::size_t index) {
    const CrawlFolder& folder = list_.At(index);
    const bool isSingle = folder.isVisited && request_.strings.strings.size() == 1;
    found_ = isSingle ? folder.visit.wanted : MatchingNames(list_, *match_, index);
    factsAt_.clear();
    if (!folder.hasFacts) return;
    std::uint32_t place = 0;
    for (const std::uint32_t at : found_) {
        while (folder.visit.wanted[place] != at)
            ++place;
        factsAt_.push_back(place);
    }
}

// A link or a mount that isn't entered is never empty: what it leads to isn't known. Nor is a
// folder that can't be read.
bool FindFamily::IsEmptyFolder(std::size_t index) {
    return list_.At(index).isWalkable && list_.HasNothing(index);
}

WalkEnd FindFamily::WalkFolder(std::size_t index, Folders which) {
    ShowCurrent(index);
    session_.Yield();
    TX_TRY(Test());
    const CrawlFolder& folder = list_.At(index);
    const std::string_view name = text::FolderOwnName(folder.strFolderLong);
    if (!match_->CheckNameMatch(name)) return {};
    if (!IsNameValid(session_, name, folder.strFolderLong, true)) return {};
    if (which == Folders::kEmpty && !IsEmptyFolder(index)) return {};
    const auto facts = FolderFacts(index, name);
    if (!facts) return {};
    if (readsFacts_ && !filters_.CheckAttributes(*facts)) {
        NoteLeftOut(name, *facts, false);
        return {};
    }
    TestedFacts tested;
    if (readsFacts_) {
        const std::string above = text::ParentFolder(folder.strFolderLong);
        if (!filters_.GetFacts(*facts, above, name, tested)) return {};
        if (!filters_.CheckDate(tested)) return {};
    }
    results::AddFolderToListBox(session_, counters_, source_, RowFolderOf(index),
                                {.name = name,
                                 .date = tested.seconds,
                                 .attributes = facts->attributes,
                                 .identity = facts->identity,
                                 .wasEmpty = which == Folders::kEmpty,
                                 .isNameAlone = !readsFacts_});
    return Test();
}

// Those that its visit took, or else read now.
std::optional<platform::ObjectFacts> FindFamily::FolderFacts(std::size_t index,
                                                             std::string_view name) {
    if (!readsFacts_) return platform::ObjectFacts{.attributes = platform::kFolder};
    const CrawlFolder& folder = list_.At(index);
    if (folder.visit.folder.isKnown) return platform::Whole(folder.visit.folder);
    auto facts =
        ReadOrNote(session_, {.path = folder.strFolderLong, .isFolder = true},
                   {.routine = "FindFoldersInSubFolders",
                    .moduleName = "frmSearch",
                    .object = name,
                    .path = folder.strFolderLong,
                    .searchOrDestination = location_,
                    .objectType = session::ObjectType::kFolder},
                   [&] { return platform::GetFolder(session_.files(), folder.strFolderLong); });
    return facts ? std::optional(*facts) : std::nullopt;
}

WalkEnd FindFamily::ForEach(std::size_t i, auto&& walk) {
    WalkEnd end;
    for (; i < list_.Count(); ++i) {
        end = walk(i);
        if (!end) break;
    }
    return end;
}

WalkEnd FindFamily::WalkRoot(Files which, std::string_view routine) {
    if (list_.Count() == 0) list_.BuildRootOnly(location_);
    const bool oneEach = which == Files::kAny && request_.oneEach;
    return WalkFiles(0, which, oneEach, routine);
}

WalkEnd FindFamily::FindFilesAtRoot() {
    return WalkRoot(Files::kAny, "FindFilesAtRoot");
}

WalkEnd FindFamily::FindEmptyFilesAtRoot() {
    return WalkRoot(Files::kEmpty, "FindEmptyFilesAtRoot");
}

// Room for the files that fit a string, as many as may pass the tests.
void FindFamily::MakeRoom(std::size_t i) {
    std::size_t most = 0;
    for (; i < list_.Count(); ++i)
        most += list_.At(i).visit.wanted.size();
    session_.rows->Reserve(most);
}

WalkEnd FindFamily::FindFilesInSubFolders(std::size_t i) {
    MakeRoom(i);
    const bool oneEach = request_.oneEach;
    return ForEach(i, [&](std::size_t index) {
        return WalkFiles(index, Files::kAny, oneEach, "FindFilesInSubFolders");
    });
}

WalkEnd FindFamily::FindEmptyFilesInSubFolders(std::size_t i) {
    return ForEach(i, [&](std::size_t index) {
        return WalkFiles(index, Files::kEmpty, false, "FindEmptyFilesInSubFolders");
    });
}

WalkEnd FindFamily::FindFoldersInSubFolders(std::size_t i) {
    return ForEach(i, [&](std::size_t index) { return WalkFolder(index, Folders::kAny); });
}

WalkEnd FindFamily::FindFoldersInSubFoldersLikeOp(std::size_t i) {
    return FindFoldersInSubFolders(i);
}

WalkEnd FindFamily::FindEmptyFoldersInSubFolders(std::size_t i) {
    return ForEach(i, [&](std::size_t index) { return WalkFolder(index, Folders::kEmpty); });
}

WalkEnd FindFamily::FindEmptyFoldersInSubFoldersLikeOp(std::size_t i) {
    return FindEmptyFoldersInSubFolders(i);
}

WalkEnd FindFamily::FindFilesAndFoldersInSubFolders(std::size_t i) {
    return ForEach(i, [&](std::size_t index) -> WalkEnd {
        TX_TRY(WalkFolder(index, Folders::kAny));
        return WalkFiles(index, Files::kAny, false, "FindFilesAndFoldersInSubFolders");
    });
}

WalkEnd FindFamily::FindFilesAndFoldersInSubFoldersLikeOp(std::size_t i) {
    TX_TRY(FindFoldersInSubFolders(i));
    return ForEach(i, [&](std::size_t index) {
        return WalkFiles(index, Files::kAny, false, "FindFilesAndFoldersInSubFoldersLikeOp");
    });
}

} // namespace tarvix::search
