#include "search/search_request.h"

#include "platform/object_facts.h"
#include "results/columns.h"
#include "results/result_list.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/size_words.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <optional>
#include <utility>

namespace tarvix::search {

namespace {

using session::PromptId;
using session::Session;

constexpr std::array<std::string_view, 5> kKinds{"files", "empty files", "files and folders",
                                                 "folders", "empty folders"};

// In the order of `attributeBoxes`.
constexpr std::array<std::uint32_t, 10> kBoxBits{
    platform::kReadOnly, platform::kHidden,     platform::kSystem, platform::kArchive,
    platform::kAlias,    platform::kCompressed, platform::kBit256, platform::kSparse,
    platform::kSpecial,  platform::kBit128};

constexpr std::string_view kFirstSize = "You did not enter a valid file size in the first box.";
constexpr std::string_view kSecondSize = "You did not enter a valid file size in the second box.";
constexpr std::string_view kSizesReversed =
    " When searching by file size range the first box\r\nmust be less than the second box.";
constexpr std::string_view kDateInvalid = "You did not enter a valid date.";
constexpr std::string_view kDatesReversed =
    " When searching by date range the first box\r\nmust be less than the second box.";

std::unexpected<Refusal> Refuse(PromptId id, std::string_view text) {
    return std::unexpected(Refusal{id, std::string(text)});
}

bool IsChecked(const fields::CheckBox& box) {
    return box.Value == 1;
}

// A bare number has at most 32 bits; one with a unit may be any.
std::optional<std::int64_t> SizeOf(const fields::TextBox& box) {
    const std::string& typed = box.Text;
    if (const auto bytes = text::ParseWholeNumber(typed)) return *bytes;
    return text::IsAllDigits(text::Trim(typed)) ? std::nullopt : text::ParseSize(typed);
}

std::string TargetOf(std::string_view typed) {
    return text::Trim(typed).empty() ? std::string{} : text::Upper(typed);
}

std::string SearchInOf(const Session& session) {
    const std::string& typed = session.frmSearch.cmbDir.Text;
    if (!text::Trim(typed).empty()) return typed;
    return std::string(text::StripTrailingSlash(session.state.options.strDefSearchFolder.front()));
}

DateKind DateKindOf(const fields::FrmSearch& form) {
    const auto& entries = form.mnuSearch_DateType;
    const auto chosen = std::ranges::find_if(
        entries, [](const fields::MenuEntry& entry) { return entry.Checked.Get(); });
    return static_cast<DateKind>(chosen - entries.begin());
}

bool ShowsContents(const Session& session) {
    return session.blnListItems[results::kFilesInFolder] ||
           session.blnListItems[results::kFoldersInFolder];
}

} // namespace

std::expected<SizeTest, Refusal> ValidateSizeBoxes(const fields::FrmSearch& form) {
    if (!IsChecked(form.chkSize)) return SizeTest{};
    const auto choice = static_cast<SizeChoice>(form.cboSize.ChosenData());
    if (choice == SizeChoice::kNone) {
        return Refuse(PromptId::kSizeChoiceInvalid,
                      fmt::format("{} is not a valid selection for file size search.",
                                  form.cboSize.Text.Get()));
    }
    const auto first = SizeOf(form.txtSize1);
    const auto second = SizeOf(form.txtSize2);
    const bool isRange = choice == SizeChoice::kRange;
    if (isRange && !second) return Refuse(PromptId::kSecondSizeInvalid, kSecondSize);
    if (!first) return Refuse(PromptId::kFirstSizeInvalid, kFirstSize);
    if (isRange && *first > *second) return Refuse(PromptId::kSizesReversed, kSizesReversed);
    return SizeTest{choice, static_cast<double>(*first), static_cast<double>(second.value_or(0))};
}

std::expected<DateTest, Refusal> ValidateDateBoxes(const fields::FrmSearch& form) {
    const auto& first = form.lblDate1.Date();
    const auto& second = form.lblDate2.Date();
    DateTest test{DateChoice::kNone, first.value_or(text::DateTime{}),
                  second.value_or(text::DateTime{})};
    if (!IsChecked(form.chkDate)) return test;
    test.choice = static_cast<DateChoice>(form.cboDate.ChosenData());
    if (test.choice == DateChoice::kNone) {
        return Refuse(
            PromptId::kDateChoiceInvalid,
            fmt::format("{} is not a valid selection for date search.", form.cboDate.Text.Get()));
    }
    const bool isRange = test.choice == DateChoice::kRange;
    if (isRange ? !second : !first) return Refuse(PromptId::kDateInvalid, kDateInvalid);
    if (isRange && first && *second < *first)
        return Refuse(PromptId::kDatesReversed, kDatesReversed);
    return test;
}

std::span<const std::uint32_t> AttributeBoxBits() {
    return kBoxBits;
}

AttributeMasks BuildSelectedAttributesVariable(const fields::FrmSearch& form) {
    AttributeMasks masks;
    std::uint32_t grey = 0;
    for (std::size_t i = 0; i < kBoxBits.size(); ++i) {
        const int value = form.attributeBoxes[i]->Value;
        if (value == 1) masks.intAttrRequired |= kBoxBits[i];
        if (value == 2) grey |= kBoxBits[i];
    }
    masks.intAttrAllowed = masks.intAttrRequired | grey;
    return masks;
}

namespace {

AttributeMasks MasksOf(const Session& session) {
    AttributeMasks masks = BuildSelectedAttributesVariable(session.frmSearch);
    if (!session.state.blnFindsWithoutBox) return masks;
    masks.intAttrAllowed |=
        ~std::accumulate(kBoxBits.begin(), kBoxBits.end(), std::uint32_t{0}, std::bit_or{});
    return masks;
}

// Whether no test looks at more than names, and no attribute could leave anything out.
bool NeedsNoFacts(const Session& session, const SearchRequest& request) {
    const bool takesEmpty =
        request.kind == Kind::kEmptyFiles || request.kind == Kind::kEmptyFolders;
    return !takesEmpty && request.size.choice == SizeChoice::kNone &&
           request.date.choice == DateChoice::kNone && request.dateKind != DateKind::kUnknown &&
           session.state.options.intLatestYear == session::kAnyYear &&
           request.attributes.intAttrRequired == 0 && ~request.attributes.intAttrAllowed == 0;
}

} // namespace

std::expected<SearchRequest, std::vector<Refusal>> ReadSearchRequest(const Session& session) {
    const auto& form = session.frmSearch;
    auto size = ValidateSizeBoxes(form);
    auto date = ValidateDateBoxes(form);
    std::vector<Refusal> refusals;
    if (!size) refusals.push_back(std::move(size.error()));
    if (!date) refusals.push_back(std::move(date.error()));
    if (!refusals.empty()) return std::unexpected(std::move(refusals));

    SearchRequest request{.searchFor = form.cmbSearchFor.Text,
                          .strings = ParseSearchFor(form.cmbSearchFor.Text.Get()),
                          .searchIn = SearchInOf(session),
                          .locations = {},
                          .kind = static_cast<Kind>(std::max(form.optFilesVsDirs.Chosen(), 0)),
                          .subfolders = IsChecked(form.chkIncludeSubFolders),
                          .oneEach = IsChecked(form.chkOneEach),
                          .isRepeat = IsChecked(form.chkRepeatSearch),
                          .showsContents = ShowsContents(session),
                          .size = *size,
                          .date = *date,
                          .dateKind = DateKindOf(form),
                          .attributes = MasksOf(session),
                          .target = TargetOf(form.cboTargetPath.Text.Get())};
    request.namesAlone = session.rows->TakesNamesAlone() && NeedsNoFacts(session, request);
    const bool isBatch = session.state.IsBatch();
    request.isNot = IsChecked(form.chkNot) && !isBatch && request.strings.strings.size() == 1;
    return request;
}

std::string_view KindText(Kind kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

} // namespace tarvix::search
