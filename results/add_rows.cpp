#include "results/add_rows.h"

#include "results/link_cells.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::results {

namespace {

// The folder record that a row refers to: the given one, or that of its copy in the store.
const RowFolder* Located(session::Session& session, const StoreScan& scan, const RowFolder* folder,
                         std::string_view name, bool isFolder) {
    if (isFolder ? !scan.blnScanVirtualStore : !scan.blnScanVirtualStoreOwn) return folder;
    const auto copy = FindInVirtualStore(session, JoinRowPath(*folder, name, isFolder));
    if (!copy) return folder;
    RowFolder moved{.longPath = isFolder ? *copy : text::ParentFolder(*copy),
                    .mixedPath = {},
                    .searchPrefix = 0,
                    .searchFolderIndex = folder->searchFolderIndex,
                    .filesInFolder = folder->filesInFolder,
                    .foldersInFolder = folder->foldersInFolder};
    if (session::ExceedsLimit(session, moved.longPath, session::kLongPath)) {
        moved.mixedPath = session::MixPath(moved.longPath, session::ShortFormOf(moved.longPath));
    }
    return session.rows->AddFolder(std::move(moved));
}

bool NeedsDuplicateTest(const session::Session& session, const RowSource& source) {
    return source.scan.blnScanVirtualStore ||
           (source.intSearchForIndex > 1 &&
            !session.state.options.blnListDupsWhenSearchStringsNotExclusive);
}

// True when the object has a row already, which then took this string's index.
bool NoteDuplicate(session::Session& session, const RowSource& source, const RowFolder& folder,
                   std::string_view name, bool isFolder) {
    if (!NeedsDuplicateTest(session, source)) return false;
    const std::size_t row = session.rows->Find(folder.longPath, name, isFolder);
    if (row == session.rows->Count()) return false;
    session.rows->AddSearchEntry(row, source.entry);
    return true;
}

void AddRow(session::Session& session, Counters& counters, const RowSource& source,
            const RowFolder* folder, const FoundObject& object, bool isFolder) {
    const RowFolder* const found = folder;
    folder = Located(session, source.scan, folder, object.name, isFolder);
    if (NoteDuplicate(session, source, *folder, object.name, isFolder)) return;
    ResultRow row;
    row.name = object.name;
    row.folder = folder;
    row.size = object.size;
    row.date = object.date;
    row.attributes = static_cast<std::uint16_t>(object.attributes);
    row.searchForIndex = static_cast<std::uint8_t>(std::min(source.intSearchForIndex, 255));
    row.isFolder = isFolder;
    if (object.isNameAlone) row.marks = kNotRead;
    if (folder == found) {
        row.identity = session.rows->Identities().Pack(object.identity, object.wasEmpty);
    }
    const std::size_t added = session.rows->Add(row, source.entry, object.isNameHeld);
    if (object.links && folder == found) session.rows->SetLinks(added, std::move(*object.links));
    isFolder ? counters.CountFolderFound() : counters.CountFileFound();
}

} // namespace

RowSource::RowSource(int index, const StoreScan& store)
    : intSearchForIndex(index), entry(text::Format(index, "00")), scan(store) {}

void AddFileRow(session::Session& session, Counters& counters, const RowSource& source,
                const RowFolder* folder, const FoundObject& object) {
    AddRow(session, counters, source, folder, object, false);
}

void AddFolderToListBox(session::Session& session, Counters& counters, const RowSource& source,
                        const RowFolder* folder, const FoundObject& object) {
    AddRow(session, counters, source, folder, object, true);
}

} // namespace tarvix::results
