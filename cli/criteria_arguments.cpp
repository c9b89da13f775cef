#include "cli/arguments.h"
#include "cli/values.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::cli {

namespace {

constexpr int kAny = 2; // the third state of an attribute box

struct AttributeOption {
    const char* name;
    const char* help;
};

// By FrmSearch::attributeBoxes.
constexpr std::array<AttributeOption, 10> kAttributes{{
    {"--read-only", "Not writable by its owner"},
    {"--hidden", "Named with a leading dot, or marked hidden"},
    {"--system", "Marked as a system object"},
    {"--archived", "Any file, unless its disk keeps an archive mark"},
    {"--alias", "Symbolic links"},
    {"--compress", "Compressed by the file system"},
    {"--256", "Bit 256"},
    {"--512", "Bit 512: sparse files"},
    {"--64", "Bit 64: devices, pipes and sockets"},
    {"--128", "Bit 128"},
}};

void RefuseBackwards(bool isBackwards, std::string_view what) {
    if (!isBackwards) return;
    Refuse(fmt::format("The {} run backwards: the first end must not be above the second.", what));
}

// What words mean is known when the search begins, which looks again.
void CheckOrder(const Criteria& criteria) {
    const auto& [smallest, largest] = criteria.size;
    RefuseBackwards(smallest && largest && *smallest > *largest, "sizes");
    const auto& [first, last] = criteria.date;
    const bool areDates = first && last && first->words.empty() && last->words.empty();
    RefuseBackwards(areDates && first->date > last->date, "dates");
}

void AddSizes(Options& what, Ends<std::int64_t>& size) {
    auto* low = what.Value("--size-at-least SIZE", size.low, ReadSize,
                           "Bytes, or as 10K (KiB), 1.5M, \"2 GB\" (10^9), 1.5GiB");
    auto* high = what.Value("--size-at-most SIZE", size.high, ReadSize, "The same");
    auto* both = what.Value("--size-range A..B", size, ReadSizeRange, "Both at once");
    both->excludes(low)->excludes(high);
}

void AddDates(Options& what, Ends<Moment>& date) {
    auto* low =
        what.Value("--since DATE", date.low, ReadMoment,
                   "Dated then or later, as 2026-11-15, 2026-11, yesterday, \"last 7 days\"");
    auto* high = what.Value("--before DATE", date.high, ReadMoment, "Dated then or earlier");
    auto* both = what.Value("--between A..B", date, ReadDateRange,
                            "From A to the end of B, or words alone, as \"last week\"");
    both->excludes(low)->excludes(high);
}

} // namespace

void AddCriteria(CLI::App& command, Criteria& criteria, std::vector<std::string>& answers) {
    Options what(command, "What to find");
    what.Words("PATTERNS", criteria.patterns, "What names are to match, such as \"*.mp3|*.flac\"",
               false);
    AddTests(command, criteria);
    what.Flag("--not", criteria.isNot, "Lists what does not match the pattern");
    Options(command, "Output")
        .Words("--answer VALUE", answers,
               "Answers the next question that comes up; may be repeated");
}

void AddTests(CLI::App& command, Criteria& criteria) {
    Options what(command, "What to find");
    what.Words("--in LOCATION", criteria.locations,
               "The folders to search: native paths, file addresses or drive paths", false);
    what.Choice("--kind KIND", criteria.kind,
                {"files", "empty-files", "all", "folders", "empty-folders"},
                "files (unless given), empty-files, all, folders, empty-folders");
    what.Flag("--no-subfolders", criteria.noSubfolders, "Looks at the locations alone");
    what.Flag("--one-each", criteria.oneEach, "Lists one file of each folder");
    AddSizes(what, criteria.size);
    AddDates(what, criteria.date);
    what.Choice("--date-kind KIND", criteria.dateKind, {"modified", "created", "accessed"},
                "The date to test: modified (unless given), created, accessed");
    Options attributes(command, "Attributes, each no | yes | any");
    for (std::size_t i = 0; i < kAttributes.size(); ++i) {
        attributes.Choice(fmt::format("{} CHOICE", kAttributes[i].name), criteria.attributes[i],
                          {"no", "yes", "any"}, kAttributes[i].help);
    }
    attributes.Flag(
        "--any-attribute", criteria.anyAttribute,
        "All ten at any; objects with an attribute that is none of these are found, too");
}

void CheckCriteria(Criteria& criteria) {
    const auto& patterns = criteria.patterns;
    if (patterns.empty()) {
        Refuse("Put what to find before --in, such as \"*.mp3\", or \"*\" for all.");
    }
    CheckTests(criteria);
    if (criteria.isNot && (patterns.size() > 1 || patterns[0].find('|') != std::string::npos)) {
        Refuse("--not works with one pattern only: leave it or the others out.");
    }
}

void CheckTests(Criteria& criteria) {
    if (criteria.locations.empty()) {
        Refuse("Say where to search with --in, such as --in ~/Music.");
    }
    CheckOrder(criteria);
    if (!criteria.anyAttribute) return;
    for (auto& attribute : criteria.attributes)
        attribute = attribute.value_or(kAny);
}

} // namespace tarvix::cli
