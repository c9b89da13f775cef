#include "cli/fill_criteria.h"

#include "platform/try.h"
#include "session/session.h"
#include "text/date_words.h"
#include "text/format.h"

#include <fmt/format.h>

#include <utility>

namespace tarvix::cli {

namespace {

using session::InputResult;
using session::Session;

constexpr std::int64_t kLargestNumber = 2'147'483'647; // that a size box takes without a unit

// A box that the options may have disabled takes the request all the same.
void SetBox(Session& session, fields::CheckBox& box, bool checked) {
    const int value = checked ? 1 : 0;
    if (box.Value == value) return;
    box.Value = value;
    session.Raise(box, "Click");
}

InputResult EnterAll(Session& session,
                     std::initializer_list<std::pair<fields::Control*, std::string_view>> entries) {
    for (const auto& [control, value] : entries) {
        TX_TRY(session::UserSet(session, *control, value));
        session::UserLeave(session, *control);
    }
    return {};
}

// The entry of cboSize or cboDate for a test, which has one end at least.
template <class Value>
std::string_view ChoiceOf(const Ends<Value>& ends, std::string_view low, std::string_view high) {
    if (ends.low && ends.high) return "Range";
    return ends.low ? low : high;
}

// The boxes take more than 32 bits only with a unit.
std::string SizeText(std::int64_t bytes) {
    return fmt::format("{}{}", bytes, bytes > kLargestNumber ? " bytes" : "");
}

InputResult FillSize(Session& session, const Ends<std::int64_t>& size) {
    auto& form = session.frmSearch;
    const bool isTested = size.low || size.high;
    SetBox(session, form.chkSize, isTested);
    if (!isTested) return {};
    const std::string first = SizeText(size.low ? *size.low : *size.high);
    TX_TRY(EnterAll(session, {{&form.cboSize, ChoiceOf(size, "At Least", "At Most")},
                              {&form.txtSize1, first}}));
    if (!size.low || !size.high) return {};
    return EnterAll(session, {{&form.txtSize2, SizeText(*size.high)}});
}

std::string DateText(Session& session, const Moment& moment) {
    text::DateTime date = moment.date;
    if (!moment.words.empty()) {
        const auto span = text::ParseDateWords(moment.words, session.Now());
        if (span) date = moment.isEnd ? span->last : span->first;
    }
    return text::FormatDate(date, "yyyy/mm/dd hh:mm:ss");
}

InputResult FillDate(Session& session, session::ScriptedPrompts& prompts,
                     const Criteria& criteria) {
    auto& form = session.frmSearch;
    const auto& [low, high] = criteria.date;
    SetBox(session, form.chkDate, low || high);
    TX_TRY(session::UserClick(
        session, form.mnuSearch_DateType[static_cast<std::size_t>(criteria.dateKind)]));
    if (!low && !high) return {};
    std::string answer = DateText(session, low ? *low : *high);
    if (low && high) answer = fmt::format("{} thru {}", answer, DateText(session, *high));
    prompts.Queue(std::move(answer));
    return EnterAll(session, {{&form.cboDate, ChoiceOf(criteria.date, "Since", "Before")}});
}

InputResult FillAttributes(Session& session, const Criteria& criteria) {
    session.state.blnFindsWithoutBox = criteria.anyAttribute;
    for (std::size_t i = 0; i < criteria.attributes.size(); ++i) {
        if (!criteria.attributes[i]) continue;
        TX_TRY(session::UserSet(session, *session.frmSearch.attributeBoxes[i],
                                fmt::format("{}", *criteria.attributes[i])));
    }
    return {};
}

void FillBoxes(Session& session, const Criteria& criteria) {
    auto& form = session.frmSearch;
    SetBox(session, form.chkIncludeSubFolders, !criteria.noSubfolders);
    SetBox(session, form.chkOneEach, criteria.oneEach);
    SetBox(session, form.chkNot, criteria.isNot);
    SetBox(session, form.chkRepeatSearch, false);
    // A terminal shows no groups.
    SetBox(session, form.chkFastSort, true);
}

} // namespace

InputResult FillCriteria(Session& session, session::ScriptedPrompts& prompts,
                         const Criteria& criteria, const std::vector<std::string>& locations) {
    auto& form = session.frmSearch;
    FillBoxes(session, criteria);
    TX_TRY(session::UserSet(session, form.optFilesVsDirs[criteria.kind], "1"));
    TX_TRY(FillSize(session, criteria.size));
    TX_TRY(FillDate(session, prompts, criteria));
    TX_TRY(FillAttributes(session, criteria));
    return EnterAll(session,
                    {{&form.cmbSearchFor, fmt::format("{}", fmt::join(criteria.patterns, "|"))},
                     {&form.cmbDir, fmt::format("{}", fmt::join(locations, "|"))}});
}

} // namespace tarvix::cli
