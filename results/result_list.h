#pragma once

#include "fields/form.h"
#include "platform/seen_object.h"
#include "results/columns.h"
#include "results/row_blocks.h"
#include "results/row_identity.h"
#include "results/text_store.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvix::results {

constexpr std::string_view kFolderType = "  File Folder";
constexpr std::int64_t kNoDate = INT64_MIN;

// What all rows of one folder share. `longPath` has no final "\" except a drive's root. For a
// folder row it is the folder's own path.
struct RowFolder {
    std::string longPath;
    std::string mixedPath;          // opens and reads best; only for paths over 259 characters
    std::uint32_t searchPrefix = 0; // bytes of longPath that are the search location and its "\"
    int searchFolderIndex = 0;
    std::uint32_t filesInFolder = 0; // what its own row shows
    std::uint32_t foldersInFolder = 0;
    std::uint32_t number = 0; // among those of the list, given by it

    const std::string& Shown() const { return mixedPath.empty() ? longPath : mixedPath; }
};

// What a row of an edited playlist is; rows of a search have only the last three.
enum RowMark : std::uint8_t {
    kListed = 1,      // by a playlist
    kEntry = 2,       // an entry of it, else a possible duplicate of one
    kReplacement = 4, // a file that is to get the Year-Rank of its group
    kNotRead = 8,     // nothing is known of it but its path; its other cells are empty
    kCut = 16,        // on the clipboard, to be moved from where it is
    kGone = 32,       // sent to the trash since the search
};

// What the last action did with the object of a row; kept above the marks, since rows are many.
enum class RowFate : std::uint8_t { kNone, kFailed, kMoved, kRenamed };
constexpr unsigned kFateShift = 6;

// One object as compact facts; its cells are made when asked for. A row with an empty name is a
// spacer.
struct ResultRow {
    std::string_view name; // kept by the list
    const RowFolder* folder = nullptr;
    std::uint64_t size = 0;               // bytes
    std::int64_t date = kNoDate;          // local seconds, see text::FromSeconds
    RowIdentity identity;                 // packed by the list
    std::uint32_t searchEntry : 24 = 0;   // which of the texts that the list keeps
    std::uint32_t searchForIndex : 8 = 1; // the first string that found it
    std::uint16_t attributes = 0;
    std::uint8_t marks = 0; // see RowMark, and the fate
    bool isFolder : 1 = false;
    bool selected : 1 = false;

    bool IsSpacer() const { return name.empty(); }
    bool Has(RowMark mark) const { return (marks & mark) != 0; }
    RowFate Fate() const { return static_cast<RowFate>(marks >> kFateShift); }
    void SetFate(RowFate fate) {
        const unsigned others = marks & ((1U << kFateShift) - 1);
        marks = static_cast<std::uint8_t>(others | static_cast<unsigned>(fate) << kFateShift);
    }
};

static_assert(sizeof(ResultRow) == 64); // there are many
static_assert(platform::kEncrypted <= UINT16_MAX);

class RowDetails;
struct LinkCells;

// `lstMain`'s rows: the only store of what was found between a search and an action.
class ResultList {
  public:
    ResultList();
    ~ResultList();
    ResultList(const ResultList&) = delete;
    ResultList& operator=(const ResultList&) = delete;

    // Whether paths of any length are shown as they are.
    void ShowLongPaths(bool shows) { showsLongPaths_ = shows; }

    // Whether searches read no facts where no test needs them. For who wants paths and acts on
    // nothing: an action on such a row can't tell whether it is the object that was found.
    void TakeNamesAlone(bool takes) { takesNamesAlone_ = takes; }
    bool TakesNamesAlone() const { return takesNamesAlone_; }

    // Where cells come from that need more than a row's facts; without it they are empty.
    void UseDetails(RowDetails& details) { details_ = &details; }

    // Rows, folders and names go, and what is indexed of them.
    void Clear();
    // How often that was done, so that a view knows that it shows another list.
    std::uint64_t Clearings() const { return clearings_; }
    // Rows, spacers among them.
    std::size_t Count() const { return lines_.size(); }
    bool IsSpacer(std::size_t index) const { return lines_[index] == kSpacer; }
    // All spacers are one and the same row.
    const ResultRow& At(std::size_t index) const { return rows_[lines_[index]]; }
    ResultRow& At(std::size_t index) { return rows_[lines_[index]]; }
    // The rows without spacers, as they were added and lie in memory: for who counts, or changes
    // all.
    auto Added() const { return rows_.From(kFirst); }
    auto Added() { return rows_.From(kFirst); }
    // Of a row that is no spacer its place among these; and whether all rows, without spacers,
    // stand as these do.
    std::size_t PlaceOf(std::size_t index) const { return lines_[index] - kFirst; }
    bool StandAsAdded() const;

    void UnselectSpacers() { rows_[kSpacer].selected = false; }

    // The folder record for following rows; kept until Clear.
    const RowFolder* AddFolder(RowFolder folder);
    std::size_t FolderCount() const { return folders_.size(); }
    // Has room for so many more rows at once.
    void Reserve(std::size_t more);
    // Copies the entry text, and the name unless it is held; gives the new row's index.
    std::size_t Add(ResultRow row, std::string_view searchEntry, bool isNameHeld = false);
    // Keeps what names of rows to come lie in until Clear.
    void Hold(std::shared_ptr<const void> names);

    // Packs the identities of its rows.
    RowIdentities& Identities() { return identities_; }
    // How the search saw the object of a row.
    platform::Sighting SightingOf(const ResultRow& row) const;

    // The row of an object by its full path, exactly compared; Count() when there is none. The
    // first call builds an index, which later additions keep up to date.
    std::size_t Find(std::string_view longFolder, std::string_view name, bool isFolder);
    // The strings that found a row, two digits for each.
    const std::string& SearchEntry(const ResultRow& row) const {
        return *entries_[row.searchEntry];
    }
    // Appends an index to the entry text of a row, unless it holds it already.
    void AddSearchEntry(std::size_t index, std::string_view twoDigits);

    // Gives an object of a row another name in the same folder; what lies in a folder goes with it.
    void Rename(std::size_t index, std::string_view name);

    // Row i becomes the one that stood at order[i].
    void Reorder(const std::vector<std::uint32_t>& order);
    // Every spacer goes.
    void RemoveSpacers();
    // A spacer in front of each of these rows, whose indexes ascend.
    void InsertSpacers(const std::vector<std::uint32_t>& before);

    // The text of one cell; empty for a spacer.
    std::string Cell(std::size_t index, Column column) const;
    // The same behind what `out` holds.
    void AppendCell(std::string& out, std::size_t index, Column column) const;
    // The cells of all rows, in their order; what those of one folder share is worked out once.
    // There must be no spacers.
    void ForEachCell(Column column, const std::function<void(std::string_view cell)>& take) const;
    // The row's tip in Expert Mode: its path when that is long, else the cell itself.
    std::string CellTip(std::size_t index, Column column) const;
    // The version of a program as a number that orders like it, whether or not its column shows; 0
    // for none.
    std::uint64_t VersionKey(std::size_t index) const;
    // By the string that found the row, red for folders and for what needs care, else blue.
    fields::Color CellColor(std::size_t index, Column column) const;
    // Path\Name in full, whatever its length.
    std::string FullPath(std::size_t index) const;

    // What the columns of a shortcut show, read if it wasn't yet; changed by whoever edits. Only
    // for a row that is no spacer, in a list with details.
    LinkCells& Links(std::size_t index);
    // What was read already for a new row.
    void SetLinks(std::size_t index, LinkCells cells);

    // Grows whenever rows go or change places, so that a view knows that what it shows is gone.
    std::uint64_t Generation() const { return generation_; }

  private:
    struct PathIndex;
    bool AppendPlain(std::string& out, const ResultRow& row, Column column) const;
    std::string WorkedOutCell(std::size_t index, Column column) const;
    std::string ListedCell(std::size_t index, Column column) const;
    std::string DetailCell(std::size_t index, Column column) const;
    std::string PathCell(std::size_t index) const;
    void ForEachYearRank(const std::function<void(std::string_view cell)>& take) const;
    void RenameFolder(const std::string& path, std::string_view name);
    bool NeedsShortName(const ResultRow& row, std::size_t pathLength) const;
    void Replace(std::vector<std::uint32_t> lines);
    std::uint32_t KeepEntry(std::string_view entry);

    static constexpr std::uint32_t kSpacer = 0;
    static constexpr std::uint32_t kFirst = 1;

    // As they were added, behind the one that stands for every spacer.
    RowBlocks<ResultRow> rows_;
    std::vector<std::uint32_t> lines_; // in the order of the list, by their place in rows_
    std::deque<RowFolder> folders_;
    TextStore names_;
    std::vector<std::shared_ptr<const void>> held_; // where other names lie
    std::unordered_map<std::string, std::uint32_t> entryNumbers_;
    std::vector<const std::string*> entries_; // of these, by number
    std::uint32_t lastEntry_ = 0;             // mostly the next row's, too
    RowIdentities identities_;
    std::unique_ptr<PathIndex> index_;
    RowDetails* details_ = nullptr;
    bool showsLongPaths_ = false;
    bool takesNamesAlone_ = false;
    std::uint64_t generation_ = 0;
    std::uint64_t clearings_ = 0;
};

// The colour of what the search string with this number (from 1) found first.
fields::Color PatternColor(int number);

// Letters for bits 1, 2, 4, 32, 64, 128, 256, 512, 1024, 2048, in this order: rhsa6125AC.
std::string BuildAttributeString(std::uint32_t bits);

// A path as the list shows it: over 259 characters in the form that mixes short names in.
std::string OpenablePath(std::string path);

// Path\Name of a row's parts.
std::string JoinRowPath(const RowFolder& folder, std::string_view name, bool isFolder);
// The same behind what `out` holds.
void AppendRowPath(std::string& out, const RowFolder& folder, std::string_view name, bool isFolder);
// The same in the pieces that it is put together from.
std::array<std::string_view, 3> RowPathPieces(const RowFolder& folder, std::string_view name,
                                              bool isFolder);

} // namespace tarvix::results
