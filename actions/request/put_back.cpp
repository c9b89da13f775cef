#include "actions/request/put_back.h"

#include "actions/request/outcome_page.h"
#include "actions/request/stoppable_loop.h"
#include "platform/file_system.h"
#include "platform/trash.h"
#include "results/outcome_list.h"
#include "results/row_marks.h"
#include "results/selection.h"
#include "session/action_log.h"
#include "session/object_loop.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvix::actions {

namespace {

using results::kWithFolder;
using results::OutcomeList;
using results::OutcomeMark;
using session::Session;

// By their numbers in the list, ascending: those of the chosen that are in the trash, or all there.
std::vector<std::uint32_t> StillInTrash(const OutcomeList& list,
                                        std::vector<std::uint32_t> chosen) {
    std::vector<std::uint32_t> objects;
    const auto add = [&](std::uint32_t at) {
        if (at < list.Count() && list.Trashed(at) != 0) objects.push_back(at);
    };
    std::ranges::sort(chosen);
    for (const std::uint32_t at : chosen)
        add(at);
    for (std::uint32_t at = 0; chosen.empty() && at < list.Count(); ++at)
        add(at);
    return objects;
}

// What keeps an object from coming back, in words of the trash; empty for other errors.
std::string_view WhyNotBack(int number) {
    switch (number) {
    case platform::kFileNotFound:
        return "not in the trash any more";
    case platform::kAlreadyExists:
        return "its place is taken";
    case platform::kPathNotFound:
        return "its folder is missing";
    default:
        return {};
    }
}

// One putting back. The list of outcomes stays as it was until all is done.
class PuttingBack {
  public:
    PuttingBack(Session& session, std::vector<std::uint32_t> objects)
        : session_(session), before_(*session.outcomes), objects_(std::move(objects)),
          fates_(before_.Count()) {}

    void Run();

  private:
    // What becomes of an object; those that are none of this run have kRecycled.
    struct Fate {
        OutcomeMark mark = OutcomeMark::kRecycled;
        std::uint32_t reason = 0; // number + 1
        int errorNumber = 0;
    };

    void PutBackAll();
    void PutBackOne(std::uint32_t at);
    void Fail(std::uint32_t at, int number, std::string_view reason);
    // What went with a folder is back with it, wanted or not.
    void SettleWithFolders();
    bool IsInFolderThatIsBack(std::string_view path) const;
    std::uint32_t Keep(std::string_view reason);
    void MakeList() const;
    void CountTotals() const;

    Session& session_;
    const OutcomeList before_;
    const std::vector<std::uint32_t> objects_;
    std::vector<Fate> fates_; // by the number in the list
    std::vector<std::string> reasons_;
    std::unordered_map<std::string, std::uint32_t> reasonNumbers_;
    std::unordered_set<std::string> backFolders_;
};

void PuttingBack::Run() {
    for (const std::uint32_t at : objects_)
        fates_[at].mark = OutcomeMark::kNotReached;
    PutBackAll();
    SettleWithFolders();
    MakeList();
    CountTotals();
}

// What went with its folder is settled behind the folders.
void PuttingBack::PutBackAll() {
    const platform::ManyChanges many(session_.files());
    const session::InLoop inLoop(session_, static_cast<std::int64_t>(objects_.size()));
    LoopShown shown(session_, objects_.size(), [](std::string_view done, std::string_view all) {
        return fmt::format("Put back {} of {} objects", done, all);
    });
    for (std::size_t done = 0; done < objects_.size(); ++done) {
        if (!shown.Step(done)) {
            session::LogTimed(session_, " User stopped the putting back of the objects.");
            session_.state.blnActionCancelled = true;
            return;
        }
        const std::uint32_t at = objects_[objects_.size() - 1 - done];
        if (before_.Trashed(at) != kWithFolder) PutBackOne(at);
    }
}

void PuttingBack::PutBackOne(std::uint32_t at) {
    const std::string path = before_.Source(at);
    const auto back = session_.platform.trash.PutBack(before_.Trashed(at) - 1);
    if (back) {
        fates_[at].mark = OutcomeMark::kPutBack;
        if (!before_.IsFile(at)) backFolders_.insert(path);
        session::LogTimed(session_, fmt::format(" Put back {} from the {}.", session_.Shown(path),
                                                session::Worded(session_, session::Wording::kBin)));
        return;
    }
    const int number = back.error().number;
    const std::string_view known = WhyNotBack(number);
    if (!known.empty()) return Fail(at, number, known);
    const std::string sentence = session_.Shown(back.error());
    const std::string front = fmt::format("{}: ", session_.Shown(path));
    std::string_view reason = sentence;
    if (reason.starts_with(front)) reason.remove_prefix(front.size());
    if (reason.ends_with('.')) reason.remove_suffix(1);
    Fail(at, number, reason);
}

void PuttingBack::Fail(std::uint32_t at, int number, std::string_view reason) {
    fates_[at] = {OutcomeMark::kFailed, Keep(reason), number};
    session::LogTimed(session_, fmt::format(" Was unable to put back {}: {}.",
                                            session_.Shown(before_.Source(at)), reason));
}

std::uint32_t PuttingBack::Keep(std::string_view reason) {
    const auto next = static_cast<std::uint32_t>(reasons_.size() + 1);
    const auto [found, isNew] = reasonNumbers_.try_emplace(std::string(reason), next);
    if (isNew) reasons_.emplace_back(reason);
    return found->second;
}

bool PuttingBack::IsInFolderThatIsBack(std::string_view path) const {
    if (backFolders_.empty()) return false;
    for (std::size_t end = path.rfind('\\'); end != path.npos && end > 0;
         end = path.rfind('\\', end - 1)) {
        if (backFolders_.contains(std::string(path.substr(0, end)))) return true;
    }
    return false;
}

void PuttingBack::SettleWithFolders() {
    const platform::ManyChanges many(session_.files());
    for (std::uint32_t at = 0; at < before_.Count(); ++at) {
        if (before_.Trashed(at) != kWithFolder) continue;
        const std::string path = before_.Source(at);
        const bool isWanted = fates_[at].mark == OutcomeMark::kNotReached;
        if (IsInFolderThatIsBack(path)) {
            if (session_.files().LookAt(path)) {
                fates_[at].mark = OutcomeMark::kPutBack;
            } else {
                Fail(at, platform::kFileNotFound, "was not in its folder");
            }
        } else if (isWanted && !session_.state.blnStopAction) {
            Fail(at, 0, "its folder is in the trash");
        }
    }
}

// Only of what was in the trash; what has left it can't be asked for again.
void PuttingBack::MakeList() const {
    OutcomeList& list = *session_.outcomes;
    list.Begin(results::kPutBackAction);
    for (std::uint32_t at = 0; at < before_.Count(); ++at) {
        if (before_.Trashed(at) == 0) continue;
        const Fate& fate = fates_[at];
        const std::string path = before_.Source(at);
        const std::string shown = fate.reason != 0 ? session_.Shown(path) : std::string();
        const std::string error = fate.reason != 0
                                      ? fmt::format("{}: {}.", shown, reasons_[fate.reason - 1])
                                      : std::string();
        const bool isBack = fate.mark == OutcomeMark::kPutBack;
        const bool hasLeft = isBack || fate.errorNumber == platform::kFileNotFound;
        list.Add({.source = path,
                  .place = isBack ? path : std::string_view(),
                  .mark = fate.mark,
                  .isFile = before_.IsFile(at),
                  .isPlaced = isBack,
                  .trashed = hasLeft ? 0 : before_.Trashed(at),
                  .errorNumber = fate.errorNumber,
                  .error = error,
                  .shownSource = shown});
    }
}

void PuttingBack::CountTotals() const {
    const OutcomeList& list = *session_.outcomes;
    auto& totals = session_.state.lastAction;
    totals = {};
    totals.done = list.CountOf(OutcomeMark::kPutBack);
    totals.failed = list.CountOf(OutcomeMark::kFailed);
    totals.skipped = list.CountOf(OutcomeMark::kNotReached);
    totals.wanted = totals.done + totals.failed + totals.skipped;
}

std::string CountText(std::size_t count) {
    return text::Format(static_cast<std::int64_t>(count), "#,##0");
}

} // namespace

void cmdPutBack_Click(Session& session) {
    if (session.outcomes == nullptr) return;
    auto objects = StillInTrash(*session.outcomes, session.forms.frmOutcome.chosen);
    if (objects.empty()) return;
    auto& state = session.state;
    state.blnActionCancelled = false;
    const OutcomeWatch watch(session);
    session::LogTimed(session,
                      fmt::format(" User selected to put back {} objects from the {} at start.",
                                  CountText(objects.size()),
                                  session::Worded(session, session::Wording::kBin)));
    {
        const StopButton stoppable(session);
        PuttingBack(session, std::move(objects)).Run();
    }
    results::MarkBack(*session.rows, *session.outcomes);
    state.blnRepeatRequested = state.blnRedoNow = true;
    results::CountSelection(session);
    session.events.Raise(session, "frmSearch.Form_Activate");
    OfferOutcome(session, watch);
    session.forms.frmOutcome.Show();
}

void ShowPutBack(Session& session) {
    auto& page = session.forms.frmOutcome;
    auto& button = page.cmdPutBack;
    const OutcomeList& list = *session.outcomes;
    button.Visible = list.Action() == "Delete" || list.Action() == results::kPutBackAction;
    const std::size_t wanted = StillInTrash(list, page.chosen).size();
    const bool isPart = !page.chosen.empty() && wanted > 0;
    button.Caption =
        isPart ? fmt::format("Put Bac&k {}", CountText(wanted)) : std::string("Put Bac&k");
    button.Enabled = wanted > 0;
    if (wanted == 0) {
        button.ToolTipText = page.chosen.empty() ? "Nothing of this is in the trash any more"
                                                 : "Nothing of what is selected is in the trash";
    } else {
        button.ToolTipText =
            fmt::format("Puts {} back from the trash to where it was; nothing is replaced",
                        isPart ? "what is selected" : "all of it");
    }
}

void AddPutBackEvents(session::EventTable& events) {
    events.On("frmOutcome.cmdPutBack_Click", cmdPutBack_Click);
    events.On("frmOutcome.lstOutcome_Click", ShowPutBack);
}

} // namespace tarvix::actions
