#include "cli/failure_lines.h"

#include "cli/messages.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::cli {

void FailureLines::Add(std::string path, std::string_view reason) {
    auto group = std::ranges::find(groups_, reason, &Group::reason);
    if (group == groups_.end()) {
        group = groups_.insert(group, Group{.reason = std::string(reason), .paths = {}});
    }
    group->paths.push_back(std::move(path));
}

void FailureLines::AddSentence(std::string_view sentence) {
    constexpr std::string_view kBetween = ": ";
    if (sentence.ends_with('.')) sentence.remove_suffix(1);
    const std::size_t end = std::min(sentence.rfind(kBetween), sentence.size());
    const std::size_t begin = end == sentence.size() ? 0 : end + kBetween.size();
    Add(std::string(sentence.substr(0, begin == 0 ? 0 : end)), sentence.substr(begin));
}

void FailureLines::Tell(Host& host) const {
    const std::string what = what_.empty() ? "" : fmt::format(" {}", what_);
    for (const auto& [reason, paths] : groups_) {
        if (host.verbose || paths.size() == 1) {
            for (const std::string& path : paths) {
                const std::string object = fmt::format("{}{}", path, what);
                Complain(host, fmt::format("{}{}{}.", object, object.empty() ? "" : ": ", reason));
            }
        } else {
            Complain(host, fmt::format("{} objects{}: {}. The first is {}; --verbose lists all.",
                                       paths.size(), what, reason, paths.front()));
        }
    }
    if (untold_ == 0) return;
    Complain(host, fmt::format("{} more failed; the action log names them.", untold_));
}

} // namespace tarvix::cli
