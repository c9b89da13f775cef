#pragma once

#include "results/counters.h"
#include "results/result_list.h"
#include "results/virtual_store.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// The facts of an object that passed every test.
struct FoundObject {
    std::string_view name;
    std::uint64_t size = 0;
    std::int64_t date = kNoDate; // local seconds
    std::uint32_t attributes = 0;
    platform::ObjectIdentity identity;
    bool wasEmpty = false;      // a folder that is listed since nothing is in it
    bool isNameAlone = false;   // nothing else is known of it
    LinkCells* links = nullptr; // of a shortcut that was read; taken over
    bool isNameHeld = false;    // by the list; else it copies the name
};

// What the rows of one search string in one location share.
struct RowSource {
    RowSource(int index, const StoreScan& store);
    int intSearchForIndex; // the string, from 1
    std::string entry;     // the same in two digits
    StoreScan scan;
};

// A row for a file in `folder`. An object that an earlier string found keeps its one row, whose
// entry text gets this string's index, unless the options ask for it twice.
void AddFileRow(session::Session& session, Counters& counters, const RowSource& source,
                const RowFolder* folder, const FoundObject& object);
// A row for the folder itself.
void AddFolderToListBox(session::Session& session, Counters& counters, const RowSource& source,
                        const RowFolder* folder, const FoundObject& object);

} // namespace tarvix::results
