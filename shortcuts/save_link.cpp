#include "shortcuts/save_link.h"

#include "platform/file_system.h"
#include "platform/names.h"
#include "platform/trash.h"
#include "platform/try.h"
#include "results/link_cells.h"
#include "results/link_target.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>
#include <utility>

namespace tarvix::shortcuts {

namespace {

using platform::Failure;
using platform::Result;
using session::Session;

constexpr int kMostNames = 1000;

std::string NameOfOld(std::string_view path, int number) {
    const std::string_view name = text::FileNameOf(path);
    const std::string count = number == 0 ? "" : fmt::format(" {}", number + 1);
    return text::JoinPath(text::ParentFolder(path),
                          fmt::format("{} (before edit{}).{}", text::GetBaseName(path), count,
                                      text::GetExtension(name)));
}

// The content that a link leads to; a copy of the link would lead to the new one.
Result<void> CopyContent(Session& session, const std::string& bytes, const std::string& to) {
    TX_TRY_ASSIGN(const auto stream, session.files().CreateTextFile(to, false));
    TX_TRY(stream->Write(bytes));
    return stream->Close();
}

// A copy of the old version beside it; gives its path.
Result<std::string> KeepOld(Session& session, const std::string& path, const std::string& bytes) {
    TX_TRY_ASSIGN(const platform::ObjectFacts facts, session.files().Facts(path));
    for (int number = 0; number < kMostNames; ++number) {
        std::string old = NameOfOld(path, number);
        const auto copied = facts.IsLink() ? CopyContent(session, bytes, old)
                                           : session.files().CopyFile(path, old, false, {});
        if (copied) return old;
        if (copied.error().number != platform::kAlreadyExists) {
            return std::unexpected(copied.error());
        }
    }
    return Failure(platform::kAlreadyExists, "There are too many old versions beside it.");
}

// Whether the shortcut still holds what was read of it.
Result<std::string> CheckedBytes(Session& session, const LinkChange& change) {
    TX_TRY_ASSIGN(std::string bytes, results::ReadShortcut(session, change.path));
    if (bytes.size() == results::kMostShortcutBytes) {
        return Failure(platform::kPathFileAccess, "It is too large for a shortcut.");
    }
    if (results::LinkReader(session).CellsOf(change.path, bytes).stored == change.stored)
        return bytes;
    return Failure(platform::kChangedSinceSearch,
                   "It was changed by another program since it was read, and is left as it is. "
                   "Search again to see what it holds.");
}

} // namespace

Result<SavedLink> SaveLink(Session& session, const LinkChange& change) {
    TX_TRY_ASSIGN(const std::string bytes, CheckedBytes(session, change));
    Edited edited = Edit(KindOf(text::FileNameOf(change.path)), bytes, change.edits);
    if (!edited) return Failure(platform::kPathFileAccess, std::move(edited.error()));
    SavedLink saved{.isChanged = *edited != bytes, .oldBeside = {}};
    if (!saved.isChanged) {
        TX_TRY(session::ReplaceTextFile(session.files(), change.path, bytes));
        return saved;
    }
    TX_TRY_ASSIGN(std::string old, KeepOld(session, change.path, bytes));
    const auto replaced = session::ReplaceTextFile(session.files(), change.path, *edited);
    if (!replaced) {
        (void)session.files().DeleteFile(old, true);
        return std::unexpected(replaced.error());
    }
    const std::array<std::string, 1> kept{old};
    if (!session.platform.trash.Recycle(kept, {})) saved.oldBeside = std::move(old);
    return saved;
}

std::optional<platform::PlatformError> WhyNotSaved(Session& session, const LinkChange& change) {
    const auto bytes = CheckedBytes(session, change);
    if (!bytes) return bytes.error();
    Edited edited = Edit(KindOf(text::FileNameOf(change.path)), *bytes, change.edits);
    if (edited) return std::nullopt;
    return platform::PlatformError{platform::kPathFileAccess, std::move(edited.error())};
}

std::string RenamedPath(std::string_view path, std::string_view newName) {
    return text::JoinPath(text::ParentFolder(path), platform::CarryReserved(newName));
}

Result<std::string> ReNameLink(Session& session, const std::string& path,
                               std::string_view newName) {
    if (!platform::CanBeName(platform::CarryReserved(newName))) {
        return Failure(platform::kBadFileName,
                       fmt::format("\"{}\" can't be the name of a file.", newName));
    }
    std::string renamed = RenamedPath(path, newName);
    TX_TRY(session.files().MoveFile(path, renamed, {}));
    return renamed;
}

} // namespace tarvix::shortcuts
