#include "actions/run/plain_moves.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "actions/place/placing_words.h"
#include "actions/place/plain_attributes.h"
#include "platform/clock.h"
#include "session/paths/short_path.h"
#include "session/session.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvix::actions {

namespace {
constexpr std::size_t kMost = 64;           // on their way at once
constexpr std::int64_t kMoment = 3'000'000; // nanoseconds
constexpr std::size_t kFewInARow = 8;
constexpr std::size_t kLongestPause = 512;
} // namespace

PlainMoves::~PlainMoves() {
    if (!handed_.empty()) (void)session_.files().TakeHanded(platform::MoveWait::kStop);
}

bool PlainMoves::Take(const Object& object, const std::string& path) {
    if (pause_ > 0) {
        --pause_;
        return false;
    }
    if (!IsPlain(object, path) || !MakeRoom() || !Hand(object, path)) {
        Pause();
        return false;
    }
    ++taken_;
    hasEnded_ = !Settle(platform::MoveWait::kNone);
    return true;
}

// Where it is seldom that many follow each other, few are tried: to wait for the last ones before
// each of the others would take longer than to go by the ordinary steps.
void PlainMoves::Pause() {
    const bool isWorthIt = std::exchange(taken_, 0) >= kFewInARow;
    refused_ = isWorthIt ? 0 : std::min(2 * refused_ + 1, kLongestPause);
    pause_ = refused_ / 2;
}

bool PlainMoves::IsPlain(const Object& object, std::string_view path) const {
    return !hasEnded_ && object.isFile && object.sighting.IsKnown() &&
           IsCleanDestination(path, verb_ == Verb::kRename) && run_.leftParts.HasSeenAround(path) &&
           !session::ExceedsLimit(session_, path, session::kLongestNewPath);
}

// One that would wait behind many others might be looked at too early.
bool PlainMoves::MakeRoom() {
    while (handed_.size() >= most_ && !hasEnded_) {
        hasEnded_ = !Settle(platform::MoveWait::kSome);
        session_.Yield();
        if (session_.state.blnStopAction) return false;
    }
    return !hasEnded_;
}

bool PlainMoves::Hand(const Object& object, const std::string& path) {
    auto& files = session_.files();
    const auto look = LookAt(session_, run_, object);
    if (!look || (look->facts.attributes & kProtecting) != 0) return false;
    const auto place = files.KnownFree(path);
    if (!place) return false;
    const std::string_view source = run_.shownSources.Of(object.path);
    const std::string_view shown = run_.shownPlaces.Of(path);
    Handed handed{object.index, session_.platform.clock.Steady(), path, {}};
    platform::MoveNote note;
    Note(handed, note, source, shown);
    if (!files.HandMove(*look, *place, std::move(note))) return false;
    run_.status.clear();
    AppendPlacing(run_.status, verb_, source, shown);
    session_.frmDialog.lblStatus.Caption = run_.status;
    handed_.push_back(std::move(handed));
    return true;
}

void PlainMoves::Note(Handed& handed, platform::MoveNote& note, std::string_view source,
                      std::string_view place) {
    std::string line = PlacedLine(verb_, source, place, "");
    if (auto written = session::NoteTimed(session_, line)) {
        note = std::move(*written);
    } else {
        handed.line = std::move(line);
    }
}

bool PlainMoves::Finish() {
    while (!handed_.empty() && !hasEnded_) {
        const bool isStopped = session_.state.blnStopAction;
        hasEnded_ = !Settle(isStopped ? platform::MoveWait::kStop : platform::MoveWait::kSome);
        if (!handed_.empty()) session_.Yield();
    }
    return !hasEnded_;
}

void PlainMoves::SettleMade() {
    const Handed made = std::move(handed_.front());
    handed_.pop_front();
    if (!made.line.empty()) session::LogTimed(session_, made.line);
    Outcome outcome{.index = made.index, .strDestination = made.path, .isPlaced = true};
    outcome.kind = verb_ == Verb::kRename ? OutcomeKind::kRenamed : OutcomeKind::kMoved;
    ends_.settle(std::move(outcome));
}

void PlainMoves::SettleAstray(const platform::PlatformError& error) {
    const Handed astray = std::move(handed_.front());
    handed_.pop_front();
    const std::string told = session_.Shown(error);
    session::LogTimed(session_, fmt::format(" {}", told));
    ends_.settle({.index = astray.index,
                  .strDestination = astray.path,
                  .kind = OutcomeKind::kFailed,
                  .errorNumber = error.number,
                  .error = told});
}

// A look is believed for a few milliseconds.
void PlainMoves::FitTo(std::int64_t waited) {
    if (waited > kMoment) {
        most_ = std::max(kLeast, most_ / 2);
    } else if (most_ < kMost && handed_.size() >= most_ / 2) {
        most_ += 4;
    }
}

bool PlainMoves::Settle(platform::MoveWait wait) {
    const platform::HandedMoves told = session_.files().TakeHanded(wait);
    if (told.made > 0) {
        FitTo(session_.platform.clock.Steady() - handed_[told.made - 1].at);
    }
    for (std::size_t i = 0; i < told.made; ++i)
        SettleMade();
    if (told.unwritten) session_.NoteLogTrouble(*told.unwritten);
    if (told.left == 0) return true;
    if (told.astray) SettleAstray(*told.astray);
    const std::deque<Handed> left = std::exchange(handed_, {});
    return std::ranges::all_of(left, [this](const Handed& one) { return ends_.place(one.index); });
}

} // namespace tarvix::actions
