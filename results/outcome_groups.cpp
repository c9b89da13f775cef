#include "results/outcome_groups.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace tarvix::results {

namespace {

constexpr std::size_t kMostReasons = 30; // beyond, failures are one group

std::string WithReason(std::string word, std::string_view reason) {
    return reason.empty() ? word : fmt::format("{}: {}", word, reason);
}

void Fold(std::vector<OutcomeGroup>& groups, std::string_view action) {
    OutcomeGroup all{groups.front().mark, std::nullopt, OutcomeWord(groups.front().mark, action)};
    for (const OutcomeGroup& group : groups)
        all.count += group.count;
    groups.clear();
    groups.push_back(std::move(all));
}

} // namespace

std::string_view DoneVerb(std::string_view action) {
    if (action == "Copy" || action == "CopyRenameAsFolderName") return "Copied";
    if (action == "Move") return "Moved";
    return action.starts_with("Rename") ? "Renamed" : "";
}

// What was done stands only in the action where it isn't the mark.
std::string OutcomeWord(OutcomeMark mark, std::string_view action) {
    const std::string_view text = MarkText(mark);
    if (mark == OutcomeMark::kNewName) return fmt::format("{} {}", DoneVerb(action), text);
    std::string word(text);
    word.front() = static_cast<char>(word.front() - 'a' + 'A');
    return word;
}

std::string OutcomeText(const OutcomeList& list, std::size_t at) {
    return WithReason(OutcomeWord(list.MarkOf(at), list.Action()), list.Reason(at));
}

std::vector<OutcomeGroup> GroupsOf(const OutcomeList& list) {
    std::array<std::vector<OutcomeGroup>, kOutcomeMarks> byMark;
    for (std::size_t at = 0; at < list.Count(); ++at) {
        const OutcomeMark mark = list.MarkOf(at);
        auto& groups = byMark[static_cast<std::size_t>(mark)];
        const std::string& reason = list.Reason(at);
        auto found = std::ranges::find(groups, reason, &OutcomeGroup::reason);
        if (found == groups.end() && groups.size() > kMostReasons) found = groups.end() - 1;
        if (found == groups.end()) {
            found = groups.insert(found, {mark, reason, OutcomeText(list, at)});
        }
        ++found->count;
    }
    std::vector<OutcomeGroup> all;
    for (auto& groups : byMark) {
        if (groups.size() > kMostReasons) Fold(groups, list.Action());
        std::ranges::move(groups, std::back_inserter(all));
    }
    return all;
}

std::vector<std::uint32_t> ObjectsOf(const OutcomeList& list, const OutcomeGroup* group) {
    std::array<std::vector<std::uint32_t>, kOutcomeMarks> byMark;
    for (std::uint32_t at = 0; at < list.Count(); ++at) {
        const bool isIn =
            group == nullptr || (list.MarkOf(at) == group->mark &&
                                 (!group->reason || list.Reason(at) == *group->reason));
        if (isIn) byMark[static_cast<std::size_t>(list.MarkOf(at))].push_back(at);
    }
    std::vector<std::uint32_t> objects;
    for (const auto& of : byMark)
        objects.insert(objects.end(), of.begin(), of.end());
    return objects;
}

} // namespace tarvix::results
