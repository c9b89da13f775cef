#pragma once

#include "cli/host.h"

#include <ostream>

namespace tarvix::cli {

// While it lives, what is written to the results takes the line of progress off first, where both
// go to one terminal.
class BesideProgress : public std::streambuf {
  public:
    explicit BesideProgress(Host& host);
    ~BesideProgress() override;
    BesideProgress(const BesideProgress&) = delete;
    BesideProgress& operator=(const BesideProgress&) = delete;

  protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int_type overflow(int_type character) override;
    int sync() override;

  private:
    Host& host_;
    std::streambuf* inner_; // the results' own; nullptr where nothing is to be done
};

} // namespace tarvix::cli
