#include "bench/pairs.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tarvix::bench {

void Pairs::Add(double ours, double peer) {
    if (std::exchange(warm_, true)) {
        ours_.push_back(ours);
        peers_.push_back(peer);
    }
}

std::string Pairs::Ratio() const {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < ours_.size(); ++i)
        ratios.push_back(ours_[i] / peers_[i]);
    const auto [least, most] = std::ranges::minmax(ratios);
    return fmt::format("x{:.2f} ({:.2f} to {:.2f}, {} pairs)", Median(ratios), least, most,
                       ratios.size());
}

std::string Pairs::Times() const {
    const double ours = std::ranges::min(ours_);
    const double peer = std::ranges::min(peers_);
    return fmt::format("{:.3f} s beside {:.3f} s, at best {:.3f} s beside {:.3f} s (x{:.2f})",
                       Median(ours_), Median(peers_), ours, peer, ours / peer);
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void DemandSameWork(const std::string& job, std::size_t ours, std::size_t peer) {
    if (ours == peer && ours != 0) return;
    std::fflush(stdout);
    fmt::print(stderr, "{}: nothing to compare, {} objects of ours beside {} of the peer.\n", job,
               ours, peer);
    std::exit(1);
}

} // namespace tarvix::bench
