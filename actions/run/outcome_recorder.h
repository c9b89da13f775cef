#pragma once

#include "actions/place/outcome.h"
#include "actions/place/recycle.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace tarvix::results {
enum class OutcomeMark : std::uint8_t;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRequest;

// Puts what becomes of the selected objects into the session's list of outcomes, which forgets what
// it held. At its end it adds what was not come to, unless nothing was settled at all. The request
// must outlive it.
class OutcomeRecorder : public OutcomeSink {
  public:
    OutcomeRecorder(session::Session& session, const ActionRequest& request);
    ~OutcomeRecorder() override;
    OutcomeRecorder(const OutcomeRecorder&) = delete;
    OutcomeRecorder& operator=(const OutcomeRecorder&) = delete;

    void Settled(const Outcome& outcome) override;
    bool IsRehearsal() const override { return false; }
    // The same of an object that was to go to the trash.
    void Recycled(std::size_t index, const SettledEntry& entry);
    // Of one that was left alone before that.
    void LeftAlone(std::size_t index, results::OutcomeMark mark);

  private:
    results::OutcomeMark GoneMark(std::string_view path) const;
    void Count(std::size_t index);

    session::Session& session_;
    const ActionRequest& request_;
    std::vector<std::uint16_t> settled_; // places, by object
    bool hasBegun_ = false;
    std::unordered_set<std::string> recycledFolders_;
};

} // namespace tarvix::actions
