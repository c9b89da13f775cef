#include "results/link_cells.h"

#include "platform/file_system.h"
#include "results/link_target.h"
#include "results/result_list.h"
#include "session/errors.h"
#include "session/paths/env_variables.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>
#include <functional>
#include <span>

namespace tarvix::results {

namespace {

using session::Session;
using shortcuts::Kind;

std::string InOneLine(std::string value) {
    std::ranges::replace_if(
        value, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return value;
}

// A path of another place gets no short form that its own place wouldn't know.
shortcuts::Values StoredValues(Session& session, std::string_view path, std::string_view bytes) {
    const Kind kind = shortcuts::KindOf(text::FileNameOf(path));
    shortcuts::Values stored = shortcuts::Read(kind, bytes);
    for (std::string& value : stored) {
        value = InOneLine(std::move(value));
    }
    if (kind == Kind::kLnk && session.blnListItems[kTargetArguments]) {
        std::string& target = stored[shortcuts::kTarget];
        if (!target.empty()) target = NormalizeLinkTarget(session, path, target);
    }
    return stored;
}

// Working folder and icon: folded, else unfolded, else as they stand.
std::string ByOptions(Session& session, const std::string& value) {
    const auto& options = session.state.options;
    if (options.blnAutoEnvVar) return session::ConvertToEnvVar(session, value);
    return options.blnRemoveEnvVar && !value.empty()
               ? session::RemoveEnvVarAndRestorePath(session, value)
               : value;
}

session::ErrorContext ContextOf(std::string_view path) {
    return {.routine = "FoundFileMeetsLinkTargetCriteria",
            .moduleName = "frmSearch",
            .object = text::FileNameOf(path),
            .path = path,
            .objectType = session::ObjectType::kFile,
            .sentence = "has not proceeded as expected, likely an error reading a shortcut."};
}

// Once for each of its two readings.
void TellMissing(Session& session) {
    for (int reading = 0; reading < 2; ++reading) {
        session::TellUnlessAuto(session, session::PromptId::kShortcutMissing,
                                "ERROR shortcut is missing");
    }
}

} // namespace

bool WantsLinks(const Session& session, std::string_view targetFilter) {
    const auto columns =
        std::span(session.blnListItems).subspan(kTargetPath, shortcuts::kFieldCount);
    return !targetFilter.empty() || std::ranges::any_of(columns, std::identity{});
}

LinkCells CellsOf(Session& session, std::string_view path, std::string_view bytes) {
    LinkCells cells;
    cells.stored = StoredValues(session, path, bytes);
    cells.shown = cells.stored;
    if (shortcuts::KindOf(text::FileNameOf(path)) == Kind::kDesktop) return cells;
    auto& shown = cells.shown;
    shown[shortcuts::kTarget] = session::ConvertToEnvVar(session, shown[shortcuts::kTarget]);
    shown[shortcuts::kStartIn] = ByOptions(session, shown[shortcuts::kStartIn]);
    shown[shortcuts::kIcon] = ByOptions(session, shown[shortcuts::kIcon]);
    return cells;
}

bool FoundFileMeetsLinkTargetCriteria(Session& session, std::string_view path,
                                      std::string_view targetFilter, LinkCells& cells) {
    const auto bytes = ReadShortcut(session, path);
    if (!bytes && bytes.error().number == platform::kFileNotFound) {
        if (shortcuts::KindOf(path) == Kind::kUrl) TellMissing(session);
    } else if (!bytes) {
        const std::string message = session.Shown(bytes.error());
        session::ReportError(session, bytes.error(), ContextOf(path), session::kRecoveryNext,
                             message);
    }
    if (!bytes) return targetFilter.empty();
    cells = CellsOf(session, path, *bytes);
    if (targetFilter.empty()) return true;
    const std::string& raw = cells.stored[shortcuts::kTarget];
    const auto holds = [&](std::string_view target) {
        return text::Upper(target).find(targetFilter) != std::string::npos;
    };
    return holds(raw) || holds(session::ConvertToEnvVar(session, raw));
}

LinkCells ReadLinkCells(Session& session, std::string_view path) {
    const auto bytes = ReadShortcut(session, path);
    return bytes ? CellsOf(session, path, *bytes) : LinkCells();
}

} // namespace tarvix::results
