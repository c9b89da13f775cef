#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {
struct Selection;
}

namespace tarvix::actions {

// Objects that are to be renamed one after the other, so that each finds its new name free: the
// last ones make room for those before them. In a ring the first one has to step aside for the
// others.
struct Chain {
    std::vector<std::size_t> indexes; // in the selection, in the order to rename them
    bool isRing = false; // the last one of them steps aside first, and gets its name at the end
};

// Who bears which name in a selection, and who wants which.
class ExchangePlan {
  public:
    // `wanted` has a whole name for each object, empty for one that keeps its own. Both must
    // outlive this.
    ExchangePlan(const results::Selection& selection, const std::vector<std::string>& wanted);

    // Whether the object gets another name.
    bool Moves(std::size_t index) const;
    // Its new path, as listed.
    std::string NewPath(std::size_t index) const;
    // The objects that want the same name, in any case, as one before them: pairs of indexes.
    std::vector<std::pair<std::size_t, std::size_t>> Doubles() const;
    // Whether what bears that path, in any case, is an object that gets another name itself.
    bool MakesRoom(std::string_view path) const;

    // All that get other names.
    std::vector<Chain> Chains() const;

  private:
    static constexpr std::size_t kNobody = static_cast<std::size_t>(-1);
    std::size_t BearerOf(const std::string& path) const;

    const results::Selection& selection_;
    const std::vector<std::string>& wanted_;
    std::vector<std::pair<std::string, std::size_t>> bearers_; // upper-case paths, sorted
};

} // namespace tarvix::actions
