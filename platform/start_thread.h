#pragma once

#include <exception>
#include <thread>
#include <utility>

namespace tarvix::platform {

// Has `thread` do `work`, unless it is already busy with what it was started for. False where no
// thread can be had, as when the user runs too many: then it stands as before.
template <class Work>
bool StartThread(std::thread& thread, Work&& work) {
    if (thread.joinable()) return true;
    try {
        thread = std::thread(std::forward<Work>(work));
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

} // namespace tarvix::platform
