#include "actions/request/first_names.h"

#include "actions/request/action_names.h"
#include "actions/request/known_bytes.h"
#include "actions/request/preview.h"
#include "fields/control.h"
#include "platform/clock.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvix::actions {

namespace {

using fields::ControlKind;
using session::Session;

constexpr std::size_t kRows = 20;
// Of whole names, which may change places, all are looked at: beyond this, that is no live preview.
constexpr std::size_t kMostExchanged = 1'000;
constexpr std::int64_t kPatience = 400'000'000; // nanoseconds

bool GivesNames(std::string_view action) {
    return action == "Rename" || IsRenameFromSource(action) || action == kCopyAsFolderName;
}

bool IsChoice(const fields::Control& control) {
    switch (control.Kind()) {
    case ControlKind::kTextBox:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
    case ControlKind::kComboBox:
    case ControlKind::kListBox:
        return true;
    default:
        return false;
    }
}

bool ExchangesNames(const Session& session) {
    return session.state.strAction == kRenameFromList && session.frmDialog.chkWholeNames.Value == 1;
}

// As long as nothing is typed no name changes, and none is told of.
bool AwaitsText(const Session& session) {
    const auto& form = session.frmDialog;
    const bool adds = form.chkAdd.Value == 1;
    return session.state.strAction == "Rename" && (adds ? form.txtAdd : form.txtFind).Text->empty();
}

std::size_t Selected(const Session& session) {
    return session.selection->strSelPath.size();
}

// A message as one line.
std::string OneLine(std::string_view told) {
    std::string line;
    for (const char c : told) {
        const bool isBlank = c == ' ' || c == '\r' || c == '\n';
        if (!isBlank) line += c;
        if (isBlank && !line.empty() && line.back() != ' ') line += ' ';
    }
    return std::string(text::Trim(line));
}

std::string Number(std::size_t count) {
    return text::Format(static_cast<std::int64_t>(count), "#,##0");
}

// Each object with what was foretold of it; a source that ends before an object has nothing for it.
std::vector<fields::PreviewRow> RowsOf(const Session& session, const PreviewResult& foretold) {
    const auto& paths = session.selection->strSelPath;
    const std::size_t count = std::min(kRows, paths.size());
    std::vector<std::vector<fields::PreviewRow>> byObject(count);
    for (const PreviewEntry& entry : foretold.entries) {
        if (entry.index >= count) continue;
        byObject[entry.index].push_back({session.Shown(paths[entry.index]),
                                         session.Shown(entry.strNewPath), VerdictText(entry)});
    }
    std::vector<fields::PreviewRow> rows;
    for (std::size_t i = 0; i < count; ++i) {
        if (byObject[i].empty()) rows.push_back({session.Shown(paths[i]), "", "no new name"});
        rows.insert(rows.end(), byObject[i].begin(), byObject[i].end());
    }
    return rows;
}

} // namespace

std::string FirstNamesKey(const Session& session) {
    if (!GivesNames(session.state.strAction)) return {};
    std::string key = fmt::format("{}\n{}", session.state.strAction, Selected(session));
    for (const fields::Control* control : session.frmDialog.Controls()) {
        if (IsChoice(*control)) key.append("\n").append(control->ValueText());
    }
    return key;
}

FirstNames FirstNamesOf(Session& session, KnownBytes* known) {
    if (AwaitsText(session)) return {.note = "They show as soon as a text is typed."};
    const std::size_t selected = Selected(session);
    const bool isAll = ExchangesNames(session);
    if (isAll && selected > kMostExchanged) {
        return {.note = fmt::format("The names of {} objects are checked together: press Preview.",
                                    Number(selected))};
    }
    auto& clock = session.platform.clock;
    const std::int64_t end = clock.Steady() + kPatience;
    const PreviewResult foretold = PreviewFirst(
        session, isAll ? selected : kRows, [&] { return clock.Steady() < end; }, known);
    const bool lacks = known != nullptr && known->Lacks();
    if (!foretold.refusal.empty())
        return {.note = lacks ? "Reading..." : OneLine(foretold.refusal)};
    if (foretold.blnStopped || (lacks && known->IsFull())) {
        return {.note = "It takes a while to find the names here: press Preview to see them."};
    }
    FirstNames first{.rows = RowsOf(session, foretold)};
    if (selected > kRows) {
        first.note = fmt::format("The first {} of {} objects. Preview shows all of them.", kRows,
                                 Number(selected));
    }
    return first;
}

} // namespace tarvix::actions
