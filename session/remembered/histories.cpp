#include "session/remembered/histories.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/attempt.h"
#include "session/paths/env_variables.h"
#include "session/remembered/history_file.h"
#include "session/remembered/history_rows.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

constexpr std::array<std::string_view, 3> kStandingTexts{"*.lnk", "*.mpl", "*.url"};
constexpr std::size_t kComparedFolders = 21;
constexpr std::string_view kDoubleBar = "||";

bool IsStandingText(std::string_view text) {
    return std::ranges::any_of(kStandingTexts, [text](std::string_view standing) {
        return text::EqualNoCase(standing, text);
    });
}

// As it stands in the options, with one "|" between folders.
std::string PlainFolders(std::string_view folders) {
    std::string plain(text::StripLeadingBar(folders));
    for (std::size_t at = 0; (at = plain.find(kDoubleBar, at)) != plain.npos;) {
        RemoveCharAt(text::Length(plain.substr(0, at)) + 1, plain, false);
    }
    return plain;
}

// The first folder is compared at the start only, so that a copy of the program with another one
// loses nothing.
bool IsSavedDefault(const Session& session, std::string_view text, std::size_t from) {
    const Options& options = session.state.options;
    for (std::size_t i = from; i < kComparedFolders; ++i) {
        if (text::EqualNoCase(PlainFolders(options.strDefSearchFolder[i]), text) ||
            text::EqualNoCase(options.strDefSearchFolderTitle[i], text)) {
            return true;
        }
    }
    return false;
}

bool IsUsedDefault(Session& session, std::string_view text) {
    const Options& options = session.state.options;
    for (std::size_t i = 0; i < options.strDefSearchFolder.size(); ++i) {
        std::string folder = options.strDefSearchFolder[i];
        if (folder.find('%') != folder.npos) folder = RemoveEnvVarAndRestorePath(session, folder);
        if (text::EqualNoCase(text::StripTrailingBar(folder), text) ||
            text::EqualNoCase(options.strDefSearchFolderTitle[i], text)) {
            return true;
        }
    }
    return false;
}

// Fixed rows above the search texts: "  *.lnk" and its like.
HistoryFile SearchHistory(Session& session) {
    auto& state = session.state;
    return {session,
            {.openRoutine = "OpenSearchHistoryFile",
             .saveRoutine = "SaveSearchHistoryFile",
             .moduleName = "frmSearch",
             .name = "Search For",
             .path = state.strFSSearchHistoryFile,
             .emptyUpTo = 13,
             .isKnown = [](std::string_view text, bool) { return IsStandingText(text); }},
            HistoryRows(session.frmSearch.cmbSearchFor, state.datSearchHistory,
                        kStandingTexts.size(), 201)};
}

HistoryFile FolderHistory(Session& session) {
    auto& state = session.state;
    return {session,
            {.openRoutine = "OpenFolderHistoryFile2",
             .saveRoutine = "SaveFolderHistoryFile2",
             .moduleName = "frmSearch",
             .name = "Search Folder",
             .path = state.strFSFolderHistoryFile,
             .isKnown =
                 [&session](std::string_view text, bool isSaving) {
                     return IsSavedDefault(session, text, isSaving ? 1 : 0);
                 }},
            HistoryRows(session.frmSearch.cmbDir, state.datFolderHistory,
                        static_cast<std::size_t>(state.intFirstHistoryRow), 201)};
}

HistoryFile DestHistory(Session& session) {
    auto& state = session.state;
    return {session,
            {.openRoutine = "OpenFolderHistoryFile2",
             .saveRoutine = "SaveFolderHistoryFile2",
             .moduleName = "frmDialog",
             .name = "Destination Folder",
             .path = state.strFDHistoryFile,
             .isKnown =
                 [&session](std::string_view text, bool isSaving) {
                     return IsSavedDefault(session, text, isSaving ? 1 : 0);
                 }},
            HistoryRows(session.frmDialog.cmbDir, state.datDestHistory, 0, 200)};
}

// Folders as a history keeps them: drive paths, without variables and without what hangs over.
std::string UsedFolders(Session& session, std::string_view typed) {
    typed = text::StripLeadingBar(text::StripTrailingSlash(text::StripTrailingBar(typed)));
    std::string folders;
    for (const std::string_view piece : text::Split(typed, '|')) {
        folders.append(piece.data() == typed.data() ? "" : "|");
        folders.append(session.platform.paths.ToDrive(piece));
    }
    if (folders.find('%') != folders.npos) folders = RemoveEnvVarAndRestorePath(session, folders);
    return folders;
}

void NoteUse(Session& session, HistoryRows& rows, std::string_view text, bool isDefault) {
    if (const auto row = rows.Find(text)) {
        if (*row >= rows.First()) rows.Touch(*row, session.Now());
    } else if (!isDefault && CanBeHistoryEntry(text)) {
        rows.Add(text, session.Now());
    }
}

} // namespace

void OpenSearchHistoryFile(Session& session) {
    SearchHistory(session).Open();
}
void OpenFolderHistoryFile2(Session& session) {
    FolderHistory(session).Open();
}
void OpenDestHistoryFile2(Session& session) {
    DestHistory(session).Open();
}

void SaveSearchHistoryFile(Session& session) {
    SearchHistory(session).Save();
}
void SaveFolderHistoryFile2(Session& session) {
    FolderHistory(session).Save();
}
void SaveDestHistoryFile2(Session& session) {
    DestHistory(session).Save();
}

void UpdateSearchHistory(Session& session) {
    std::string_view text = text::RTrim(session.frmSearch.cmbSearchFor.Text.Get());
    // A standing entry that was picked counts as typed.
    if (text.starts_with("  ")) text.remove_prefix(2);
    NoteUse(session, SearchHistory(session).Rows(), text, IsStandingText(text));
}

void UpdateFolderHistory(Session& session) {
    const std::string text = UsedFolders(session, session.frmSearch.cmbDir.Text.Get());
    NoteUse(session, FolderHistory(session).Rows(), text, IsUsedDefault(session, text));
}

void UpdateDestHistory(Session& session) {
    const std::string text = UsedFolders(session, session.frmDialog.cmbDir.Text.Get());
    NoteUse(session, DestHistory(session).Rows(), text, false);
}

void ShowTitledFolders(Session& session, const std::vector<std::string>& titles) {
    session.state.intFirstHistoryRow =
        static_cast<int>(FolderHistory(session).Rows().SetFixed(titles));
}

bool RemoveCharAt(std::size_t position, std::string& text, bool blnBlank) {
    const std::size_t length = text::Length(text);
    if (position == 0 || position > length) return true;
    const bool isInside = position > 1 && position < length;
    text = text::Concat({text::Left(text, position - 1), blnBlank && isInside ? " " : "",
                         text::Mid(text, position + 1)});
    return false;
}

std::string NewestDestination(Session& session) {
    const auto& items = session.frmDialog.cmbDir.Items();
    const auto& stamps = session.state.datDestHistory;
    std::size_t newest = 0;
    for (std::size_t row = 1; row < std::min(items.size(), stamps.size()); ++row) {
        if (stamps[row] > stamps[newest]) newest = row;
    }
    return items.empty() ? std::string() : items[newest].text;
}

} // namespace tarvix::session
