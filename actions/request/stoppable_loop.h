#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// While it lives the stop button shows and only it acts; what it sets is blnStopAction.
class StopButton {
  public:
    explicit StopButton(session::Session& session);
    ~StopButton();
    StopButton(const StopButton&) = delete;
    StopButton& operator=(const StopButton&) = delete;

  private:
    session::Session& session_;
};

// Shows how far a long loop over objects is; a short one goes without.
class LoopShown {
  public:
    // `words` makes the sentence of how many are done of how many, both with thousands marked.
    using Words = std::function<std::string(std::string_view done, std::string_view all)>;
    LoopShown(session::Session& session, std::size_t total, Words words);

    // To be called before each object, with those done so far: yields, and gives false after a
    // stop.
    bool Step(std::size_t done);

  private:
    void Show(std::size_t done);

    session::Session& session_;
    std::size_t total_;
    Words words_;
    std::int64_t due_;
};

} // namespace tarvix::actions
