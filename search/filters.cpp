#include "search/filters.h"

#include "platform/clock.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"

#include <fmt/core.h>

namespace tarvix::search {

namespace {

constexpr text::DateTime kEarliest{1980, 1, 1, 0, 0, 0};

platform::FileTime TimeOf(const platform::ObjectFacts& facts, DateKind kind) {
    // The creation time decides for the access time too: a file system that keeps none of the one
    // has nothing to say on the other.
    if (kind == DateKind::kModified || facts.created == platform::kNoTime) return facts.modified;
    return kind == DateKind::kCreated ? facts.created : facts.accessed;
}

bool Passes(const SizeTest& test, double size) {
    switch (test.choice) {
    case SizeChoice::kNone:
        return true;
    case SizeChoice::kAtLeast:
        return test.first <= size;
    case SizeChoice::kAtMost:
        return size <= test.first;
    case SizeChoice::kRange:
        return test.first <= size && size <= test.second;
    }
    return false;
}

bool Passes(const DateTest& test, const text::DateTime& date) {
    switch (test.choice) {
    case DateChoice::kNone:
        return true;
    case DateChoice::kSince:
        return test.first <= date;
    case DateChoice::kBefore:
        return date <= test.first;
    case DateChoice::kRange:
        return test.first <= date && date <= test.second;
    }
    return false;
}

} // namespace

bool DoesObjectMatchAttributesSelected(const AttributeMasks& masks,
                                       const platform::ObjectFacts& facts) {
    const std::uint32_t bits = facts.attributes & ~std::uint32_t{platform::kFolder};
    return (bits & ~masks.intAttrAllowed) == 0 && (masks.intAttrRequired & ~bits) == 0;
}

bool Filters::GetFacts(const platform::ObjectFacts& facts, std::string_view folder,
                       std::string_view name, TestedFacts& result) {
    if (request_.dateKind == DateKind::kUnknown) {
        RefuseDateKind(folder, name);
        return false;
    }
    result.dblObjectSize = static_cast<double>(facts.size);
    result.datObjectDate = session_.platform.clock.ToLocal(TimeOf(facts, request_.dateKind));
    if (!IsPlausible(result.datObjectDate)) ReplaceBadDate(folder, name, result);
    return true;
}

bool Filters::IsPlausible(const text::DateTime& date) const {
    const int latestYear = session_.state.options.intLatestYear;
    return latestYear == session::kAnyYear ||
           (IsValidDate(date.day, date.month, date.year, latestYear) &&
            IsValidTime(date.hour, date.minute, date.second));
}

text::DateTime Filters::StandIn() const {
    return request_.date.first.IsZero() ? kEarliest : request_.date.first;
}

bool Filters::PassesElse(const platform::ObjectFacts& facts, bool testsSize) const {
    if (request_.dateKind == DateKind::kUnknown) return false;
    TestedFacts tested{.dblObjectSize = static_cast<double>(facts.size)};
    if (request_.date.choice != DateChoice::kNone) {
        tested.datObjectDate = session_.platform.clock.ToLocal(TimeOf(facts, request_.dateKind));
        if (!IsPlausible(tested.datObjectDate)) tested.datObjectDate = StandIn();
    }
    return testsSize ? CheckSizeAndDate(tested) : CheckDate(tested);
}

void Filters::RefuseDateKind(std::string_view folder, std::string_view name) {
    session::TellUnlessAuto(session_, session::PromptId::kDateTypeInvalid, "Error in date type");
    session::LogTimed(
        session_,
        fmt::format(" - this object was found to have a bad date type. The object is {}\\{}",
                    session_.Shown(folder), name));
}

void Filters::ReplaceBadDate(std::string_view folder, std::string_view name, TestedFacts& result) {
    result.datObjectDate = StandIn();
    session::LogTimed(session_,
                      fmt::format(" - this object was found to have a bad {}. The object is {}\\{}",
                                  fields::kDateTypes[static_cast<std::size_t>(request_.dateKind)],
                                  session_.Shown(folder), name));
}

bool Filters::CheckSizeAndDate(const TestedFacts& facts) const {
    return Passes(request_.size, facts.dblObjectSize) && CheckDate(facts);
}

bool Filters::CheckDate(const TestedFacts& facts) const {
    return Passes(request_.date, facts.datObjectDate);
}

bool IsValidDate(int day, int month, int year, int latestYear) {
    if (month < 1 || month > 12 || day < 1 || year < 1980 || year > latestYear) return false;
    if (month == 2) return day <= 28 || (day == 29 && year % 4 == 0);
    const bool shortMonth = month == 4 || month == 6 || month == 9 || month == 11;
    return day <= (shortMonth ? 30 : 31);
}

bool IsValidTime(int hour, int minute, int second) {
    return hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
}

} // namespace tarvix::search
