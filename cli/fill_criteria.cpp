#include "cli/fill_criteria.h"

#include "session/session.h"
#include "text/format.h"

#include <array>
#include <utility>

namespace tarvix::cli {

namespace {

using session::InputResult;
using session::Session;

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
        if (auto done = session::UserSet(session, *control, value); !done) return done;
        session::UserLeave(session, *control);
    }
    return {};
}

InputResult FillSize(Session& session, const std::optional<SizeTest>& size) {
    auto& form = session.frmSearch;
    SetBox(session, form.chkSize, size.has_value());
    if (!size) return {};
    const std::string first = std::to_string(size->first);
    const std::string second = std::to_string(size->second);
    const bool isRange = size->choice == "Range";
    auto done = EnterAll(session, {{&form.cboSize, size->choice}, {&form.txtSize1, first}});
    return done && isRange ? EnterAll(session, {{&form.txtSize2, second}}) : done;
}

std::string DateText(const text::DateTime& date) {
    return text::FormatDate(date, "yyyy/mm/dd hh:mm:ss");
}

InputResult FillDate(Session& session, session::ScriptedPrompts& prompts,
                     const Criteria& criteria) {
    auto& form = session.frmSearch;
    const auto& date = criteria.date;
    SetBox(session, form.chkDate, date.has_value());
    auto& dateKind = form.mnuSearch_DateType[static_cast<std::size_t>(criteria.dateKind)];
    if (auto done = session::UserClick(session, dateKind); !done || !date) return done;
    const bool isRange = date->choice == "Range";
    prompts.Queue(DateText(date->first) + (isRange ? " thru " + DateText(date->second) : ""));
    return EnterAll(session, {{&form.cboDate, date->choice}});
}

InputResult FillAttributes(Session& session, const Criteria& criteria) {
    for (std::size_t i = 0; i < criteria.attributes.size(); ++i) {
        if (!criteria.attributes[i]) continue;
        auto done = session::UserSet(session, *session.frmSearch.attributeBoxes[i],
                                     std::to_string(*criteria.attributes[i]));
        if (!done) return done;
    }
    return {};
}

void FillBoxes(Session& session, const Criteria& criteria) {
    auto& form = session.frmSearch;
    SetBox(session, form.chkIncludeSubFolders, criteria.subfolders);
    SetBox(session, form.chkOneEach, criteria.oneEach);
    SetBox(session, form.chkNot, criteria.isNot);
    SetBox(session, form.chkRepeatSearch, false);
    // A terminal shows no groups.
    SetBox(session, form.chkFastSort, true);
}

std::string Joined(const std::vector<std::string>& locations) {
    std::string joined;
    for (const std::string& location : locations) {
        joined.append(joined.empty() ? "" : "|").append(location);
    }
    return joined;
}

} // namespace

InputResult FillCriteria(Session& session, session::ScriptedPrompts& prompts,
                         const Criteria& criteria, const std::vector<std::string>& locations) {
    auto& form = session.frmSearch;
    FillBoxes(session, criteria);
    auto done = session::UserSet(session, form.optFilesVsDirs[criteria.kind], "1");
    if (done) done = FillSize(session, criteria.size);
    if (done) done = FillDate(session, prompts, criteria);
    if (done) done = FillAttributes(session, criteria);
    if (!done) return done;
    return EnterAll(session,
                    {{&form.cmbSearchFor, criteria.patterns}, {&form.cmbDir, Joined(locations)}});
}

} // namespace tarvix::cli
