#pragma once

#include "tests/model/model_tree.h"
#include "tests/model/request.h"

#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace tarvix::model {

// The same numbers from the same seed on every machine.
class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int Roll(int sides) { return static_cast<int>(engine_() % static_cast<unsigned>(sides)); }
    bool Chance(int percent) { return Roll(100) < percent; }
    template <class Container>
    const auto& One(const Container& of) {
        return of[static_cast<std::size_t>(Roll(static_cast<int>(std::size(of))))];
    }

  private:
    std::mt19937 engine_;
};

// A tree with "p/in", and mostly places to go to: any names, modes and owners. `hasForeign`: some
// objects may be another user's.
std::unique_ptr<Node> AnyTree(Dice& dice, Verb verb, bool hasForeign);
Request AnyRequest(Dice& dice, Verb verb);

// Makes the tree in an empty folder. The objects of the user that acts get that owner, when the
// test may give them one.
void MakeOnDisk(const Node& tree, const std::filesystem::path& folder, int owner);

// LinesOf what stands in the folder, in the terms of what is expected of it. Afterwards all of it
// may be read and removed.
std::vector<std::string> LinesOnDisk(const std::filesystem::path& folder, const Node& expected);

// The contents of all files below a folder, sorted; none where there is no folder.
std::vector<std::string> ContentsBelow(const std::filesystem::path& folder);

} // namespace tarvix::model
