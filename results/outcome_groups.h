#pragma once

#include "results/outcome_list.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {

// "Copied", "Moved" or "Renamed" for the key of an action that places objects; empty for others.
std::string_view DoneVerb(std::string_view action);
// "Failed", "Copied under a new name": what became of an object, as the head of a line; `action` is
// the key of what was done.
std::string OutcomeWord(OutcomeMark mark, std::string_view action);
// The same of one object, with its reason: "Failed: Permission denied".
std::string OutcomeText(const OutcomeList& list, std::size_t at);

// Objects that fared alike: by mark, failures by their reason too.
struct OutcomeGroup {
    OutcomeMark mark = OutcomeMark::kFailed;
    std::optional<std::string> reason; // none takes all of the mark
    std::string text;
    std::int64_t count = 0;
};

// What went wrong first. A mark with very many reasons is one group.
std::vector<OutcomeGroup> GroupsOf(const OutcomeList& list);
// The objects of a group, or of all for null, in the order of the groups' marks.
std::vector<std::uint32_t> ObjectsOf(const OutcomeList& list, const OutcomeGroup* group);

} // namespace tarvix::results
