#pragma once

#include <functional>
#include <vector>

namespace tarvix::fields {
class Control;
}

namespace tarvix::forms {

// A window that shows fields.
class View {
  public:
    virtual ~View() = default;
    // Shows what changed in the fields since the last call.
    virtual void Flush() = 0;
    // Called when the last routine at this level has ended.
    virtual void Idle() {}
};

// Lets one routine run at a time. While one runs, only a stop or a skip may run beside it; a modal
// prompt opens a level of its own, whose controls act until it closes.
class EventGate {
  public:
    // The views that are shown what changed. A view must be removed before it goes.
    void Add(View& view);
    void Remove(View& view);

    // Runs `act` for `control` (null for none) and shows what changed. False, with nothing done,
    // when a routine runs that `control` may not interrupt.
    bool Run(const fields::Control* control, const std::function<void()>& act);
    // Whether a routine runs at the level of the prompt in front.
    bool IsBusy() const { return running_.back() > 0; }
    // No routine runs and no prompt is open.
    bool IsIdle() const { return running_.size() == 1 && !IsBusy(); }

    // Shows what changed in every view.
    void Flush();
    // The same, and lets waiting window events run.
    void Pump();

    // A modal level, for as long as it lives.
    class Modal {
      public:
        explicit Modal(EventGate& gate);
        ~Modal();
        Modal(const Modal&) = delete;
        Modal& operator=(const Modal&) = delete;

      private:
        EventGate& gate_;
    };

  private:
    std::vector<View*> views_;
    std::vector<int> running_{0}; // routines that run, one count a modal level
};

} // namespace tarvix::forms
