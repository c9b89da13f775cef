#include "results/add_rows.h"

#include "results/virtual_store.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/paths.h"

namespace tarvix::results {

namespace {

// The folder record that a row refers to: the given one, or that of its copy in the store.
const RowFolder* Located(session::Session& session, const RowFolder* folder, std::string_view name,
                         bool isFolder) {
    const bool look =
        isFolder ? session.state.blnScanVirtualStore : session.state.blnScanVirtualStoreOwn;
    if (!look) return folder;
    const auto copy = FindInVirtualStore(session, JoinRowPath(*folder, name, isFolder));
    if (!copy) return folder;
    RowFolder moved{.longPath = isFolder ? *copy : text::ParentFolder(*copy),
                    .mixedPath = {},
                    .searchPrefix = 0,
                    .searchFolderIndex = folder->searchFolderIndex};
    if (text::Length(moved.longPath) > session::kLongPath) {
        moved.mixedPath = session::MixPath(moved.longPath, session::ShortFormOf(moved.longPath));
    }
    return session.rows->AddFolder(std::move(moved));
}

bool NeedsDuplicateTest(const session::SessionState& state) {
    return state.blnScanVirtualStore ||
           (state.intSearchForIndex > 1 && !state.options.blnListDupsWhenSearchStringsNotExclusive);
}

// True when the object has a row already, which then took this string's index.
bool NoteDuplicate(session::Session& session, const RowFolder& folder, std::string_view name,
                   bool isFolder, const std::string& entry) {
    if (!NeedsDuplicateTest(session.state)) return false;
    const std::size_t row = session.rows->Find(folder.longPath, name, isFolder);
    if (row == session.rows->Count()) return false;
    session.rows->AddSearchEntry(row, entry);
    return true;
}

void AddRow(session::Session& session, Counters& counters, const RowFolder* folder,
            const FoundObject& object, bool isFolder) {
    folder = Located(session, folder, object.name, isFolder);
    const std::string entry = text::Format(session.state.intSearchForIndex, "00");
    if (NoteDuplicate(session, *folder, object.name, isFolder, entry)) return;
    ResultRow row;
    row.name = object.name;
    row.folder = folder;
    row.size = object.size;
    row.date = object.date;
    row.attributes = object.attributes;
    row.filesInFolder = object.filesInFolder;
    row.foldersInFolder = object.foldersInFolder;
    row.searchForIndex = static_cast<std::uint16_t>(session.state.intSearchForIndex);
    row.isFolder = isFolder;
    session.rows->Add(row, entry);
    isFolder ? counters.CountFolderFound() : counters.CountFileFound();
}

} // namespace

void AddFileRow(session::Session& session, Counters& counters, const RowFolder* folder,
                const FoundObject& object) {
    AddRow(session, counters, folder, object, false);
}

void AddFolderToListBox(session::Session& session, Counters& counters, const RowFolder* folder,
                        const FoundObject& object) {
    AddRow(session, counters, folder, object, true);
}

} // namespace tarvix::results
