#pragma once

#include <cstddef>
#include <pthread.h>

namespace tarvix::platform {

// As long as it lives no thread can be started: there is no room for their stacks.
class NoThreads {
  public:
    NoThreads() {
        ::pthread_getattr_default_np(&attributes_);
        ::pthread_attr_getstacksize(&attributes_, &stack_);
        ::pthread_attr_setstacksize(&attributes_, std::size_t{1} << 46);
        ::pthread_setattr_default_np(&attributes_);
    }
    ~NoThreads() {
        ::pthread_attr_setstacksize(&attributes_, stack_);
        ::pthread_setattr_default_np(&attributes_);
        ::pthread_attr_destroy(&attributes_);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

  private:
    pthread_attr_t attributes_{};
    std::size_t stack_ = 0;
};

} // namespace tarvix::platform
