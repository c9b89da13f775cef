#include "results/outcome_list.h"

#include "platform/error.h"
#include "text/characters.h"

#include <fmt/core.h>

namespace tarvix::results {

namespace {

// In a sentence, in place of the paths that it names.
constexpr std::string_view kSourceMark = "\x01";
constexpr std::string_view kPlaceMark = "\x02";

constexpr std::array<std::string_view, kOutcomeMarks> kMarkTexts{"failed",
                                                                 "changed since the search",
                                                                 "copied only",
                                                                 "not reached",
                                                                 "path too long",
                                                                 "protected",
                                                                 "no destination",
                                                                 "same place",
                                                                 "left alone",
                                                                 "was gone already",
                                                                 "skipped as duplicate",
                                                                 "unchanged",
                                                                 "deleted for good",
                                                                 "under a new name",
                                                                 "replaced",
                                                                 "copied",
                                                                 "moved",
                                                                 "renamed",
                                                                 "in the trash",
                                                                 "put back"};

bool NamesPath(std::string_view sentence) {
    return sentence.contains(kSourceMark) || sentence.contains(kPlaceMark);
}

// "PATH: Permission denied." has its reason behind the path; other sentences are told by number.
std::string ReasonOf(int number, std::string_view sentence) {
    constexpr std::string_view kColon = ": ";
    const bool isPlain = (sentence.starts_with(kSourceMark) || sentence.starts_with(kPlaceMark)) &&
                         sentence.substr(1).starts_with(kColon);
    if (isPlain && !NamesPath(sentence.substr(1))) {
        sentence.remove_prefix(1 + kColon.size());
        if (sentence.ends_with('.')) sentence.remove_suffix(1);
        return std::string(sentence);
    }
    const bool isTold = sentence.empty() || NamesPath(sentence);
    return isTold && number != 0 ? platform::ErrorText(number) : std::string(sentence);
}

std::string WithPaths(std::string_view sentence, std::string_view source, std::string_view place) {
    return text::Replace(text::Replace(sentence, kSourceMark, source), kPlaceMark, place);
}

} // namespace

std::string_view MarkText(OutcomeMark mark) {
    return kMarkTexts[static_cast<std::size_t>(mark)];
}

void OutcomeList::Begin(std::string_view action) {
    const std::uint64_t generation = generation_;
    *this = {};
    generation_ = generation + 1;
    action_ = action;
}

std::uint32_t OutcomeList::KeepFolder(std::string_view folder) {
    for (const std::uint32_t last : lastFolders_) {
        if (last != 0 && folders_[last - 1] == folder) return last;
    }
    const auto next = static_cast<std::uint32_t>(folders_.size() + 1);
    const auto [found, isNew] = folderNumbers_.try_emplace(std::string(folder), next);
    if (isNew) folders_.emplace_back(folder);
    lastFolders_ = {found->second, lastFolders_[0]};
    return found->second;
}

OutcomeList::Path OutcomeList::Keep(std::string_view path) {
    if (path.empty()) return {};
    const std::size_t slash = path.rfind('\\');
    const std::size_t split = slash == path.npos ? 0 : slash + 1;
    const Path kept{KeepFolder(path.substr(0, split)), static_cast<std::uint32_t>(names_.size()),
                    static_cast<std::uint32_t>(path.size() - split)};
    names_ += path.substr(split);
    return kept;
}

std::string OutcomeList::TextOf(const Path& path) const {
    if (path.folder == 0) return {};
    return text::Concat(
        {folders_[path.folder - 1], std::string_view(names_).substr(path.name, path.size)});
}

std::uint32_t OutcomeList::KeepFailure(const SettledObject& object) {
    if (object.error.empty() && object.errorNumber == 0) return 0;
    std::string sentence(object.error);
    // The longer one first: it may begin with the other.
    const bool placeFirst = object.shownPlace.size() > object.shownSource.size();
    for (const bool isPlace : {placeFirst, !placeFirst}) {
        const std::string_view path = isPlace ? object.shownPlace : object.shownSource;
        if (!path.empty()) {
            sentence = text::Replace(sentence, path, isPlace ? kPlaceMark : kSourceMark);
        }
    }
    const auto next = static_cast<std::uint32_t>(failures_.size() + 1);
    const std::string key = fmt::format("{} {}", object.errorNumber, sentence);
    const auto [found, isNew] = failureNumbers_.try_emplace(key, next);
    if (isNew) {
        std::string reason = ReasonOf(object.errorNumber, sentence);
        failures_.push_back({std::move(sentence), std::move(reason)});
    }
    return found->second;
}

void OutcomeList::Add(const SettledObject& object) {
    Row row;
    row.source = Keep(object.source);
    row.place = Keep(object.place);
    row.failure = KeepFailure(object);
    row.trashed = object.trashed;
    row.mark = object.mark;
    row.isFile = object.isFile;
    row.isPlaced = object.isPlaced;
    if (object.leaves && !object.isFile) {
        left_.insert_or_assign(std::string(object.source),
                               static_cast<std::uint32_t>(rows_.size()));
    }
    rows_.push_back(row);
    ++counts_[static_cast<std::size_t>(object.mark)];
    ++generation_;
}

std::string OutcomeList::Source(std::size_t at) const {
    return TextOf(rows_[at].source);
}

std::string OutcomeList::Place(std::size_t at) const {
    return TextOf(rows_[at].place);
}

std::string OutcomeList::Now(std::size_t at) const {
    const Row& row = rows_[at];
    if (row.mark == OutcomeMark::kRecycled || row.mark == OutcomeMark::kDeleted) return {};
    const bool isNotBack = action_ == kPutBackAction && !row.isPlaced;
    if (isNotBack) return {};
    if (row.isPlaced) return Follow(Place(at), static_cast<std::int64_t>(at));
    return Follow(Source(at), -1);
}

// The path in the innermost of its folders that has left since the row `after`.
std::string OutcomeList::Follow(std::string path, std::int64_t after) const {
    if (left_.empty()) return path;
    for (std::size_t end = path.rfind('\\'); end != path.npos && end > 0;
         end = path.rfind('\\', end - 1)) {
        const auto found = left_.find(path.substr(0, end));
        if (found == left_.end() || static_cast<std::int64_t>(found->second) <= after) continue;
        const auto row = static_cast<std::int64_t>(found->second);
        return Follow(TextOf(rows_[found->second].place), row) + path.substr(end);
    }
    return path;
}

std::string OutcomeList::Sentence(std::size_t at, std::string_view shownSource,
                                  std::string_view shownPlace) const {
    const std::uint32_t failure = rows_[at].failure;
    if (failure == 0) return {};
    return WithPaths(failures_[failure - 1].sentence, shownSource, shownPlace);
}

const std::string& OutcomeList::Reason(std::size_t at) const {
    static const std::string none;
    const std::uint32_t failure = rows_[at].failure;
    return failure == 0 ? none : failures_[failure - 1].reason;
}

} // namespace tarvix::results
