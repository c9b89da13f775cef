// What was measured in turn, ours and the peer's, and how it is told.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarvix::bench {

class Pairs {
  public:
    // The first pair warms up and is left out of the figures.
    void Add(double ours, double peer);
    // "x0.64 (0.61 to 0.70, 7 pairs)": the median of ours / peer, the least and the most.
    std::string Ratio() const;
    // "0.501 s beside 0.792 s, at best 0.488 s beside 0.760 s (x0.64)": medians and minima.
    std::string Times() const;

  private:
    std::vector<double> ours_;
    std::vector<double> peers_;
    bool warm_ = false;
};

double Median(std::vector<double> values);

// Ends the process with status 1 and a sentence unless both did the same number of objects, and
// some.
void DemandSameWork(const std::string& job, std::size_t ours, std::size_t peer);

} // namespace tarvix::bench
