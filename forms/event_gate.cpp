#include "forms/event_gate.h"

#include "session/user_input.h"

#include <QCoreApplication>

#include <algorithm>

namespace tarvix::forms {

void EventGate::Add(View& view) {
    views_.push_back(&view);
}

void EventGate::Remove(View& view) {
    std::erase(views_, &view);
}

bool EventGate::Run(const fields::Control* control, const std::function<void()>& act) {
    const bool mayInterrupt = control != nullptr && session::MayInterrupt(*control);
    if (IsBusy() && !mayInterrupt) return false;
    ++running_.back();
    act();
    --running_.back();
    Flush();
    if (!IsBusy()) {
        for (View* view : std::vector(views_)) {
            if (std::ranges::find(views_, view) != views_.end()) view->Idle();
        }
    }
    return true;
}

void EventGate::Flush() {
    for (View* view : std::vector(views_)) {
        view->Flush();
    }
}

void EventGate::Pump() {
    Flush();
    QCoreApplication::processEvents();
}

EventGate::Modal::Modal(EventGate& gate) : gate_(gate) {
    gate_.Flush();
    gate_.running_.push_back(0);
}

EventGate::Modal::~Modal() {
    gate_.running_.pop_back();
}

} // namespace tarvix::forms
