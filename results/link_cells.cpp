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
#include <utility>

namespace tarvix::results {

namespace {

using session::Session;
using shortcuts::Kind;

std::string InOneLine(std::string value) {
    std::ranges::replace_if(
        value, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return value;
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

void TellUnreadable(Session& session, std::string_view path, const platform::PlatformError& error) {
    if (error.number != platform::kFileNotFound) {
        session::ReportError(session, error, ContextOf(path), session::kRecoveryNext,
                             session.Shown(error));
    } else if (shortcuts::KindOf(path) == Kind::kUrl) {
        TellMissing(session);
    }
}

} // namespace

bool WantsLinks(const Session& session, std::string_view targetFilter) {
    const auto columns =
        std::span(session.blnListItems).subspan(kTargetPath, shortcuts::kFieldCount);
    return !targetFilter.empty() || std::ranges::any_of(columns, std::identity{});
}

const std::string& LinkReader::LettersOf(std::string_view path) {
    std::string folder = text::ParentFolder(path);
    if (folder == folder_) return letters_;
    letters_ = LettersAbove(session_, path);
    folder_ = std::move(folder);
    return letters_;
}

// A path of another place gets no short form that its own place wouldn't know.
shortcuts::Values LinkReader::StoredValues(std::string_view path, std::string_view bytes) {
    const Kind kind = shortcuts::KindOf(text::FileNameOf(path));
    shortcuts::Values stored = shortcuts::Read(kind, bytes);
    for (std::string& value : stored) {
        value = InOneLine(std::move(value));
    }
    std::string& target = stored[shortcuts::kTarget];
    const bool isNormalized =
        kind == Kind::kLnk && !target.empty() && session_.blnListItems[kTargetArguments];
    if (isNormalized) target = NormalizeLinkTarget(session_, LettersOf(path), target);
    return stored;
}

LinkCells LinkReader::CellsOf(std::string_view path, std::string_view bytes) {
    LinkCells cells;
    cells.stored = StoredValues(path, bytes);
    cells.shown = cells.stored;
    if (shortcuts::KindOf(text::FileNameOf(path)) == Kind::kDesktop) return cells;
    auto& shown = cells.shown;
    shown[shortcuts::kTarget] = session::ConvertToEnvVar(session_, shown[shortcuts::kTarget]);
    shown[shortcuts::kStartIn] = ByOptions(session_, shown[shortcuts::kStartIn]);
    shown[shortcuts::kIcon] = ByOptions(session_, shown[shortcuts::kIcon]);
    return cells;
}

bool LinkReader::FoundFileMeetsLinkTargetCriteria(std::string_view path,
                                                  std::string_view targetFilter, LinkCells& cells) {
    const auto bytes = ReadShortcut(session_, path);
    if (!bytes) {
        TellUnreadable(session_, path, bytes.error());
        return targetFilter.empty();
    }
    cells = CellsOf(path, *bytes);
    if (targetFilter.empty()) return true;
    const std::string& raw = cells.stored[shortcuts::kTarget];
    const auto holds = [&](std::string_view target) {
        return text::Upper(target).find(targetFilter) != std::string::npos;
    };
    return holds(raw) || holds(session::ConvertToEnvVar(session_, raw));
}

LinkCells LinkReader::Read(std::string_view path) {
    const auto bytes = ReadShortcut(session_, path);
    return bytes ? CellsOf(path, *bytes) : LinkCells();
}

} // namespace tarvix::results
