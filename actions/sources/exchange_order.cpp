#include "actions/sources/exchange_order.h"

#include "results/selection.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>
#include <unordered_map>

namespace tarvix::actions {

ExchangePlan::ExchangePlan(const results::Selection& selection,
                           const std::vector<std::string>& wanted)
    : selection_(selection), wanted_(wanted) {
    bearers_.reserve(wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        bearers_.emplace_back(text::Upper(selection.strSelPath[i]), i);
    std::ranges::sort(bearers_);
}

bool ExchangePlan::Moves(std::size_t index) const {
    return !wanted_[index].empty() && wanted_[index] != selection_.strSelName[index];
}

std::string ExchangePlan::NewPath(std::size_t index) const {
    const std::string_view path = selection_.strSelPath[index];
    return Moves(index) ? text::ParentFolderSlash(path) + wanted_[index] : std::string(path);
}

std::vector<std::pair<std::size_t, std::size_t>> ExchangePlan::Doubles() const {
    std::vector<std::pair<std::size_t, std::size_t>> doubles;
    std::unordered_map<std::string, std::size_t> first;
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        const auto [found, isNew] = first.try_emplace(text::Upper(NewPath(i)), i);
        // Two that stand side by side in two cases may go on doing so.
        if (!isNew && (Moves(i) || Moves(found->second))) doubles.emplace_back(found->second, i);
    }
    return doubles;
}

// Spelled exactly so if there is one, else in any case.
std::size_t ExchangePlan::BearerOf(const std::string& path) const {
    const std::string upper = text::Upper(path);
    const auto first =
        std::ranges::lower_bound(bearers_, upper, {}, &std::pair<std::string, std::size_t>::first);
    std::size_t bearer = kNobody;
    for (auto at = first; at != bearers_.end() && at->first == upper; ++at) {
        if (selection_.strSelPath[at->second] == path) return at->second;
        if (bearer == kNobody) bearer = at->second;
    }
    return bearer;
}

bool ExchangePlan::MakesRoom(std::string_view path) const {
    const std::size_t bearer = BearerOf(std::string(path));
    return bearer != kNobody && Moves(bearer);
}

std::vector<Chain> ExchangePlan::Chains() const {
    enum class State : char { kNew, kInHand, kDone };
    std::vector<State> states(wanted_.size(), State::kNew);
    std::vector<Chain> chains;
    for (std::size_t start = 0; start < wanted_.size(); ++start) {
        if (states[start] != State::kNew || !Moves(start)) continue;
        Chain chain;
        std::size_t at = start;
        while (at != kNobody && Moves(at) && states[at] == State::kNew) {
            states[at] = State::kInHand;
            chain.indexes.push_back(at);
            const std::size_t bearer = BearerOf(NewPath(at));
            at = bearer == at ? kNobody : bearer;
        }
        chain.isRing = at == start && chain.indexes.size() > 1;
        // Each comes behind the one that stands in its way.
        std::ranges::reverse(chain.indexes);
        for (const std::size_t index : chain.indexes)
            states[index] = State::kDone;
        chains.push_back(std::move(chain));
    }
    return chains;
}

} // namespace tarvix::actions
