#pragma once

#include <cstdint>
#include <string>

namespace tarvix::results {
class OutcomeList;
}
namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// The list of outcomes as it is before an action.
class OutcomeWatch {
  public:
    explicit OutcomeWatch(const session::Session& session);
    // Whether an action has put anything into it since.
    bool HasNew(const session::Session& session) const;

  private:
    std::uint64_t generation_;
};

// Offers what an action has done since, if it did anything, in the status line; where no row is
// left its page opens in place of the list.
void OfferOutcome(session::Session& session, const OutcomeWatch& watch);

// "Copied 380 of 391 objects (3 under a new name), 2 failed, 9 skipped as duplicate."
std::string OutcomeHeadline(const results::OutcomeList& list);

// Selects the rows of the objects that failed or were not come to, after a search where the list is
// empty; all others are unselected.
void SelectFailed(session::Session& session);

// The button that opens the page, and those of the page.
void AddOutcomeEvents(session::EventTable& events);

} // namespace tarvix::actions
