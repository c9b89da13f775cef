#include "search/filters.h"

#include "platform/clock.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/numbers.h"

#include <array>

namespace tarvix::search {

namespace {

// In the order of `attributeBoxes`.
constexpr std::array<std::uint32_t, 10> kBoxBits{1, 2, 4, 32, 1024, 2048, 256, 512, 64, 128};

double NumberIn(const fields::TextBox& box) {
    return static_cast<double>(text::ParseWholeNumber(box.Text.Get()).value_or(0));
}

text::DateTime DateIn(const fields::Label& label) {
    return text::ParseDate(label.Caption.Get()).value_or(text::DateTime{});
}

} // namespace

AttributeMasks BuildSelectedAttributesVariable(const session::Session& session) {
    AttributeMasks masks;
    std::uint32_t grey = 0;
    for (std::size_t i = 0; i < kBoxBits.size(); ++i) {
        const int value = session.frmSearch.attributeBoxes[i]->Value;
        if (value == 1) masks.intAttrRequired |= kBoxBits[i];
        if (value == 2) grey |= kBoxBits[i];
    }
    masks.intAttrAllowed = masks.intAttrRequired | grey;
    return masks;
}

bool DoesObjectMatchAttributesSelected(const AttributeMasks& masks,
                                       const platform::ObjectFacts& facts) {
    const std::uint32_t bits = facts.attributes & ~std::uint32_t{platform::kFolder};
    return (bits & ~masks.intAttrAllowed) == 0 && (masks.intAttrRequired & ~bits) == 0;
}

Filters::Filters(session::Session& session) : session_(session) {
    const auto& form = session.frmSearch;
    if (form.chkSize.Value == 1) sizeTest_ = SizeTestOf(form.cboSize.Text.Get());
    if (form.chkDate.Value == 1) dateTest_ = DateTestOf(form.cboDate.Text.Get());
    const std::string& kind = form.lblDateType.Caption;
    dateKind_ = kind == "Date = Modified Date"        ? DateKind::kModified
                : kind == "Date = Created Date"       ? DateKind::kCreated
                : kind == "Date = Last Accessed Date" ? DateKind::kAccessed
                                                      : DateKind::kInvalid;
    size1_ = NumberIn(form.txtSize1);
    size2_ = NumberIn(form.txtSize2);
    date1_ = DateIn(form.lblDate1);
    date2_ = DateIn(form.lblDate2);
}

Filters::SizeTest Filters::SizeTestOf(std::string_view text) {
    if (text == "At Least") return SizeTest::kAtLeast;
    if (text == "At Most") return SizeTest::kAtMost;
    return text == "Range" ? SizeTest::kRange : SizeTest::kInvalid;
}

Filters::DateTest Filters::DateTestOf(std::string_view text) {
    if (text == "Since") return DateTest::kSince;
    if (text == "Before") return DateTest::kBefore;
    return text == "Range" ? DateTest::kRange : DateTest::kInvalid;
}

platform::FileTime Filters::TimeOf(const platform::ObjectFacts& facts) const {
    // The creation time decides for the access time too: a file system that keeps none of the one
    // has nothing to say on the other.
    if (dateKind_ == DateKind::kModified || facts.created == platform::kNoTime) {
        return facts.modified;
    }
    return dateKind_ == DateKind::kCreated ? facts.created : facts.accessed;
}

bool Filters::GetFacts(const platform::ObjectFacts& facts, std::string_view folder,
                       std::string_view name, TestedFacts& result) {
    if (dateKind_ == DateKind::kInvalid) {
        session::TellUnlessAuto(session_, session::PromptId::kDateTypeInvalid,
                                "Error in date type");
        session::LogTimed(session_,
                          " - this object was found to have a bad date type. The object is " +
                              std::string(folder) + "\\" + std::string(name));
        return false;
    }
    result.dblObjectSize = static_cast<double>(facts.size);
    result.datObjectDate = session_.platform.clock.ToLocal(TimeOf(facts));
    const auto& date = result.datObjectDate;
    if (!IsValidDate(date.day, date.month, date.year, session_.state.options.intLatestYear) ||
        !IsValidTime(date.hour, date.minute, date.second)) {
        ReplaceBadDate(folder, name, result);
    }
    return true;
}

void Filters::ReplaceBadDate(std::string_view folder, std::string_view name, TestedFacts& result) {
    result.datObjectDate = date1_.IsZero() ? text::DateTime{1980, 1, 1, 0, 0, 0} : date1_;
    session::LogTimed(session_, " - this object was found to have a bad " +
                                    session_.frmSearch.lblDateType.Caption.Get() +
                                    ". The object is " + std::string(folder) + "\\" +
                                    std::string(name));
}

bool Filters::PassesSize(double size) const {
    switch (sizeTest_) {
    case SizeTest::kNone:
        return true;
    case SizeTest::kAtLeast:
        return size1_ <= size;
    case SizeTest::kAtMost:
        return size <= size1_;
    case SizeTest::kRange:
        return size1_ <= size && size <= size2_;
    case SizeTest::kInvalid:
        return false;
    }
    return false;
}

bool Filters::PassesDate(const text::DateTime& date) const {
    switch (dateTest_) {
    case DateTest::kNone:
        return true;
    case DateTest::kSince:
        return date1_ <= date;
    case DateTest::kBefore:
        return date <= date1_;
    case DateTest::kRange:
        return date1_ <= date && date <= date2_;
    case DateTest::kInvalid:
        return false;
    }
    return false;
}

bool Filters::CheckSizeAndDate(const TestedFacts& facts) const {
    return PassesSize(facts.dblObjectSize) && PassesDate(facts.datObjectDate);
}

bool Filters::CheckDate(const TestedFacts& facts) const {
    return PassesDate(facts.datObjectDate);
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
