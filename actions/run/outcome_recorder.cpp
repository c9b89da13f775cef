#include "actions/run/outcome_recorder.h"

#include "actions/place/action_request.h"
#include "platform/error.h"
#include "results/outcome_list.h"
#include "results/selection.h"
#include "session/session.h"

#include <algorithm>
#include <utility>

namespace tarvix::actions {

namespace {

using results::OutcomeMark;
using session::Session;

OutcomeMark PlacedMark(const Outcome& outcome, bool isMove) {
    if (outcome.kind == OutcomeKind::kCopied && isMove) return OutcomeMark::kCopiedOnly;
    if (outcome.isNewName) return OutcomeMark::kNewName;
    if (outcome.kind == OutcomeKind::kMoved) return OutcomeMark::kMoved;
    return outcome.kind == OutcomeKind::kRenamed ? OutcomeMark::kRenamed : OutcomeMark::kCopied;
}

OutcomeMark MarkOf(const Outcome& outcome, bool isMove) {
    switch (outcome.kind) {
    case OutcomeKind::kCopied:
    case OutcomeKind::kMoved:
    case OutcomeKind::kRenamed:
        return PlacedMark(outcome, isMove);
    case OutcomeKind::kOverwrote:
    case OutcomeKind::kReplaced:
        return OutcomeMark::kReplaced;
    case OutcomeKind::kSkippedDuplicate:
        return OutcomeMark::kSkipped;
    case OutcomeKind::kOntoItself:
        return OutcomeMark::kOntoItself;
    case OutcomeKind::kNoDestination:
        return OutcomeMark::kNoDestination;
    case OutcomeKind::kLongPath:
        return OutcomeMark::kLongPath;
    case OutcomeKind::kProtected:
        return OutcomeMark::kProtected;
    case OutcomeKind::kUnchanged:
        return OutcomeMark::kUnchanged;
    case OutcomeKind::kChanged:
        return OutcomeMark::kChanged;
    case OutcomeKind::kFailed:
        return OutcomeMark::kFailed;
    case OutcomeKind::kStopped:
        return OutcomeMark::kNotReached;
    case OutcomeKind::kLeftAlone:
        break;
    }
    return OutcomeMark::kLeftAlone;
}

// Of an object that was not placed, where it would stand; a rename tells where it is instead.
bool TellsPlace(const Outcome& outcome, const ActionRequest& request) {
    return outcome.isPlaced || !request.strAction.starts_with("Rename");
}

std::uint32_t TrashedAs(const SettledEntry& entry) {
    return entry.end == RecycleEnd::kRecycled ? static_cast<std::uint32_t>(entry.number + 1)
                                              : results::kWithFolder;
}

} // namespace

OutcomeRecorder::OutcomeRecorder(Session& session, const ActionRequest& request)
    : session_(session), request_(request), settled_(session.selection->strSelPath.size()) {}

OutcomeRecorder::~OutcomeRecorder() {
    const auto places = static_cast<std::uint16_t>(std::max(1, request_.Places()));
    for (std::size_t index = 0; hasBegun_ && index < settled_.size(); ++index) {
        for (auto count = settled_[index]; count < places; ++count) {
            session_.outcomes->Add({.source = session_.selection->strSelPath[index],
                                    .mark = OutcomeMark::kNotReached,
                                    .isFile = session_.selection->blnSelIsFile[index]});
        }
    }
}

void OutcomeRecorder::Count(std::size_t index) {
    if (!std::exchange(hasBegun_, true)) session_.outcomes->Begin(request_.strAction);
    ++settled_[index];
}

void OutcomeRecorder::Settled(const Outcome& outcome) {
    Count(outcome.index);
    const auto& tables = *session_.selection;
    const std::string_view source = tables.strSelPath[outcome.index];
    const std::string_view place =
        TellsPlace(outcome, request_) ? std::string_view(outcome.strDestination) : "";
    const bool hasError = !outcome.error.empty();
    const std::string shownSource = hasError ? session_.Shown(source) : std::string();
    const std::string shownPlace = hasError ? session_.Shown(place) : std::string();
    session_.outcomes->Add(
        {.source = source,
         .place = place,
         .mark = MarkOf(outcome, request_.isMove),
         .isFile = tables.blnSelIsFile[outcome.index],
         .isPlaced = outcome.isPlaced,
         .leaves = outcome.kind == OutcomeKind::kMoved || outcome.kind == OutcomeKind::kRenamed,
         .errorNumber = outcome.errorNumber,
         .error = hasError ? outcome.error : outcome.why,
         .shownSource = shownSource,
         .shownPlace = shownPlace});
}

// What isn't there any more went with its folder, or others took it.
OutcomeMark OutcomeRecorder::GoneMark(std::string_view path) const {
    for (std::size_t end = path.rfind('\\'); end != path.npos && end > 0;
         end = path.rfind('\\', end - 1)) {
        if (recycledFolders_.contains(std::string(path.substr(0, end))))
            return OutcomeMark::kRecycled;
    }
    return OutcomeMark::kWasGone;
}

void OutcomeRecorder::Recycled(std::size_t index, const SettledEntry& entry) {
    const RecycleEnd end = entry.end;
    // It is asked about once more at the end of all.
    if (end == RecycleEnd::kChanged) return;
    Count(index);
    const auto& tables = *session_.selection;
    const std::string_view source = tables.strSelPath[index];
    OutcomeMark mark = OutcomeMark::kFailed;
    if (end == RecycleEnd::kRecycled) mark = OutcomeMark::kRecycled;
    if (end == RecycleEnd::kDeleted) mark = OutcomeMark::kDeleted;
    if (end == RecycleEnd::kWasGone) mark = GoneMark(source);
    if (end == RecycleEnd::kRecycled && !tables.blnSelIsFile[index]) {
        recycledFolders_.emplace(source);
    }
    const bool hasFailed = mark == OutcomeMark::kFailed && entry.error != nullptr;
    const std::string sentence = hasFailed ? session_.Shown(*entry.error) : std::string();
    const std::string shown = hasFailed ? session_.Shown(source) : std::string();
    session_.outcomes->Add({.source = source,
                            .mark = mark,
                            .isFile = tables.blnSelIsFile[index],
                            .trashed = mark == OutcomeMark::kRecycled ? TrashedAs(entry) : 0,
                            .errorNumber = hasFailed ? entry.error->number : 0,
                            .error = sentence,
                            .shownSource = shown});
}

void OutcomeRecorder::LeftAlone(std::size_t index, OutcomeMark mark) {
    Count(index);
    session_.outcomes->Add({.source = session_.selection->strSelPath[index],
                            .mark = mark,
                            .isFile = session_.selection->blnSelIsFile[index]});
}

} // namespace tarvix::actions
