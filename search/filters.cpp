#include "search/filters.h"

#include "platform/clock.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"

#include <fmt/core.h>

#include <limits>

namespace tarvix::search {

namespace {

constexpr text::DateTime kEarliest{1980, 1, 1, 0, 0, 0};
constexpr std::int64_t kSecond = 1'000'000'000; // nanoseconds
constexpr std::int64_t kDaySeconds = 86'400;
constexpr platform::FileTime kLastQuick = std::numeric_limits<std::int64_t>::max();
constexpr std::size_t kDays = 16384; // 44 years

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

Filters::Filters(session::Session& session, const SearchRequest& request)
    : session_(session), request_(request),
      takesParts_(request.date.choice != DateChoice::kNone ||
                  session.state.options.intLatestYear != session::kAnyYear) {}

bool Filters::GetFacts(const platform::ObjectFacts& facts, std::string_view folder,
                       std::string_view name, TestedFacts& result) {
    if (request_.dateKind == DateKind::kUnknown) {
        RefuseDateKind(folder, name);
        return false;
    }
    result.dblObjectSize = static_cast<double>(facts.size);
    const platform::FileTime time = TimeOf(facts, request_.dateKind);
    if (!takesParts_) {
        result.seconds = LocalSeconds(time);
        return true;
    }
    result.datObjectDate = session_.platform.clock.ToLocal(time);
    if (!IsPlausible(result.datObjectDate)) ReplaceBadDate(folder, name, result);
    result.seconds = text::ToSeconds(result.datObjectDate);
    return true;
}

// The clock is asked once for most days.
std::int64_t Filters::LocalSeconds(platform::FileTime time) {
    const auto exact = [this](platform::FileTime moment) {
        return text::ToSeconds(session_.platform.clock.ToLocal(moment));
    };
    if (time < 0 || time > kLastQuick) return exact(time);
    const std::int64_t seconds = static_cast<std::int64_t>(time) / kSecond;
    const std::int64_t number = seconds / kDaySeconds;
    if (days_.empty()) days_.resize(kDays);
    Day& day = days_[static_cast<std::size_t>(number) % days_.size()];
    if (day.number != number) {
        const std::int64_t begin = number * kDaySeconds;
        const std::int64_t end = begin + kDaySeconds - 1;
        const std::int64_t offset = exact(platform::FileTime{begin} * kSecond) - begin;
        if (exact(platform::FileTime{end} * kSecond) - end != offset) return exact(time);
        day = {number, offset};
    }
    return seconds + day.offset;
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
