#pragma once

#include "cli/host.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// Failures of one kind on stderr: those of one reason in one line with their count.
class FailureLines {
  public:
    // `what` became of each object: "could not be read"; empty where the reason says all.
    explicit FailureLines(std::string_view what) : what_(what) {}

    void Add(std::string path, std::string_view reason);
    // One of a sentence that ends in ": " and its reason.
    void AddSentence(std::string_view sentence);
    // So many failed that were not added, and whose reasons are in the action log.
    void AddUntold(std::int64_t count) { untold_ += count; }
    // In the order in which the reasons came; a line for each object where the host is verbose.
    void Tell(Host& host) const;

  private:
    struct Group {
        std::string reason;
        std::vector<std::string> paths;
    };

    std::string_view what_;
    std::vector<Group> groups_;
    std::int64_t untold_ = 0;
};

} // namespace tarvix::cli
