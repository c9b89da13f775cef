#include "cli/arguments.h"
#include "cli/values.h"
#include "text/case.h"

#include <array>
#include <span>

namespace tarvix::cli {

namespace {

template <class T>
using Checked = std::expected<T, std::string>;

struct Choice {
    std::string_view word;
    int value;
};

constexpr std::array<Choice, 5> kKinds{
    {{"files", 0}, {"empty-files", 1}, {"all", 2}, {"folders", 3}, {"empty-folders", 4}}};
constexpr std::array<Choice, 3> kAttributeChoices{{{"no", 0}, {"yes", 1}, {"any", 2}}};
constexpr std::array<Choice, 3> kDateKinds{{{"modified", 0}, {"created", 1}, {"accessed", 2}}};

std::string ListOf(std::span<const Choice> choices) {
    std::string list;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (i > 0) list += i + 1 == choices.size() ? " or " : ", ";
        list += choices[i].word;
    }
    return list;
}

Checked<int> Choose(std::string_view option, std::string_view word,
                    std::span<const Choice> choices) {
    for (const Choice& choice : choices) {
        if (text::EqualNoCase(word, choice.word)) return choice.value;
    }
    return std::unexpected(std::string(option) + " takes " + ListOf(choices) + ", not \"" +
                           std::string(word) + "\".");
}

std::string Backwards(std::string_view option, std::string_view value) {
    return std::string(option) + " " + std::string(value) +
           " runs backwards: the first end must not be above the second.";
}

std::string NoRange(std::string_view option, std::string_view value) {
    return std::string(option) + " takes two ends with \"..\" between, not \"" +
           std::string(value) + "\".";
}

// One test with two ends: options for the lower end, the upper end and both, and how the form
// calls them.
template <class Value>
struct TwoEnds {
    std::string_view lowOption, highOption, bothOption;
    std::string_view lowChoice, highChoice;
    Checked<Value> (*read)(std::string_view, std::string_view);
    Checked<Value> (*readLast)(std::string_view, std::string_view);
};

template <class Test, class Value>
Checked<std::optional<Test>> CheckRange(const TwoEnds<Value>& ends, std::string_view option,
                                        std::string_view shown, std::string_view low,
                                        std::string_view high, bool wholeLast) {
    const auto first = ends.read(option.empty() ? ends.lowOption : option, low);
    if (!first) return std::unexpected(first.error());
    const auto second =
        (wholeLast ? ends.readLast : ends.read)(option.empty() ? ends.highOption : option, high);
    if (!second) return std::unexpected(second.error());
    if (*first > *second) {
        return std::unexpected(Backwards(option.empty() ? ends.lowOption : option, shown));
    }
    return Test{"Range", *first, *second};
}

template <class Test, class Value>
Checked<std::optional<Test>>
CheckEnds(const TwoEnds<Value>& ends, const std::optional<std::string>& low,
          const std::optional<std::string>& high, const std::optional<std::string>& both) {
    if (both && (low || high)) {
        return std::unexpected(std::string(ends.bothOption) + " stands for " +
                               std::string(ends.lowOption) + " and " +
                               std::string(ends.highOption) + ": leave those out.");
    }
    if (both) {
        const auto range = SplitRange(*both);
        if (!range) return std::unexpected(NoRange(ends.bothOption, *both));
        return CheckRange<Test>(ends, ends.bothOption, *both, range->first, range->second, true);
    }
    if (low && high) return CheckRange<Test>(ends, {}, *low, *low, *high, false);
    if (!low && !high) return std::nullopt;
    const auto value = ends.read(low ? ends.lowOption : ends.highOption, low ? *low : *high);
    if (!value) return std::unexpected(value.error());
    return Test{low ? ends.lowChoice : ends.highChoice, *value, {}};
}

constexpr TwoEnds<std::int64_t> kSizeEnds{
    "--size-at-least", "--size-at-most", "--size-range", "At Least", "At Most", ReadSize, ReadSize};
constexpr TwoEnds<text::DateTime> kDateEnds{"--since", "--before", "--between",   "Since",
                                            "Before",  ReadMoment, ReadLastMoment};

Checked<void> CheckAttributes(const RawArguments& raw, Criteria& criteria) {
    for (std::size_t i = 0; i < raw.attributes.size(); ++i) {
        if (raw.anyAttribute) criteria.attributes[i] = 2;
        if (!raw.attributes[i]) continue;
        const auto value = Choose(kAttributeOptions[i], *raw.attributes[i], kAttributeChoices);
        if (!value) return std::unexpected(value.error());
        criteria.attributes[i] = *value;
    }
    return {};
}

Checked<void> CheckPlaces(const RawArguments& raw, Criteria& criteria) {
    if (raw.patterns.empty()) {
        return std::unexpected(
            "Put what to find before --in, such as \"*.mp3\", or \"*\" for all.");
    }
    if (raw.locations.empty()) {
        return std::unexpected("Say where to search with --in, such as --in ~/Music.");
    }
    for (const std::string& pattern : raw.patterns) {
        criteria.patterns.append(criteria.patterns.empty() ? "" : "|").append(pattern);
    }
    criteria.locations = raw.locations;
    if (raw.isNot && criteria.patterns.find('|') != std::string::npos) {
        return std::unexpected("--not works with one pattern only: leave it or the others out.");
    }
    return {};
}

Checked<void> CheckTests(const RawArguments& raw, Criteria& criteria) {
    auto size = CheckEnds<SizeTest>(kSizeEnds, raw.sizeAtLeast, raw.sizeAtMost, raw.sizeRange);
    if (!size) return std::unexpected(size.error());
    criteria.size = *size;
    auto date = CheckEnds<DateTest>(kDateEnds, raw.since, raw.before, raw.between);
    if (!date) return std::unexpected(date.error());
    criteria.date = *date;
    const auto dateKind = Choose("--date-kind", raw.dateKind.value_or("modified"), kDateKinds);
    if (!dateKind) return std::unexpected(dateKind.error());
    criteria.dateKind = *dateKind;
    return {};
}

} // namespace

std::expected<Criteria, std::string> CheckCriteria(const RawArguments& raw) {
    Criteria criteria;
    if (auto done = CheckPlaces(raw, criteria); !done) return std::unexpected(done.error());
    const auto kind = Choose("--kind", raw.kind.value_or("files"), kKinds);
    if (!kind) return std::unexpected(kind.error());
    criteria.kind = *kind;
    criteria.subfolders = !raw.noSubfolders;
    criteria.isNot = raw.isNot;
    criteria.oneEach = raw.oneEach;
    if (auto done = CheckTests(raw, criteria); !done) return std::unexpected(done.error());
    if (auto done = CheckAttributes(raw, criteria); !done) return std::unexpected(done.error());
    return criteria;
}

} // namespace tarvix::cli
