#pragma once

#include "results/columns.h"
#include "text/dates.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tarvix::cli {

// What the process ends with.
enum ExitCode : int {
    kDone = 0,
    kSomeFailed = 1,  // done, but objects failed, or were left out otherwise than as asked
    kBadRequest = 2,  // the request or the script is wrong
    kUnanswered = 3,  // a prompt had no answer; nothing further was done
    kSignalled = 128, // and the number of the signal that asked for the end
};

// How the machine is opened, as it was asked for.
struct MachineRequest {
    std::optional<std::string> dataFolder;            // native, may be relative
    std::vector<std::pair<char, std::string>> drives; // 'E' and a native folder, may be relative
    std::optional<text::DateTime> now;
};

// The ends of a test; one that is missing is open.
template <class Value>
struct Ends {
    std::optional<Value> low;
    std::optional<Value> high;
};

// A time as a search tests it: a date, or words that the day of the search gives one, of whose
// stretch it is the first or the last second.
struct Moment {
    text::DateTime date;
    std::string words; // empty where `date` holds
    bool isEnd = false;

    Moment() = default;
    Moment(const text::DateTime& exact) : date(exact) {} // a date is a moment as it stands
    Moment(std::string_view typed, bool ends) : words(typed), isEnd(ends) {}
    bool operator==(const Moment&) const = default;
};

// One search as a user would fill it in.
struct Criteria {
    std::vector<std::string> patterns;  // as typed, each perhaps several with "|" between
    std::vector<std::string> locations; // the same
    int kind = 0;                       // an entry of optFilesVsDirs
    bool noSubfolders = false;
    bool isNot = false;
    bool oneEach = false;
    Ends<std::int64_t> size; // bytes
    Ends<Moment> date;
    int dateKind = 0;                              // an entry of mnuSearch_DateType
    std::array<std::optional<int>, 10> attributes; // by FrmSearch::attributeBoxes
    bool anyAttribute = false;                     // what those not given stand at
};

// What can be printed of a row besides the columns of the list.
enum FactColumnIndex : int {
    kNativePathColumn = -1,
    kBytesColumn = -2,
    kModifiedColumn = -3,
    kIsFolderColumn = -4,
};

enum class RowFormat { kPaths, kZeroPaths, kCells, kTable, kJson };

struct SortRequest {
    results::Column column = results::kName;
    bool descending = false;
};

struct RowOutput {
    RowFormat format = RowFormat::kPaths;
    std::vector<int> columns; // results::Column or FactColumnIndex; empty for the usual ones
    std::optional<SortRequest> sort;
};

struct SearchRequest {
    Criteria criteria;
    RowOutput output;
    std::vector<std::string> answers;
};

// Where an action puts its objects, by optTo.
enum Way : int { kNoWay = -1, kToFolder, kToLists, kUpTheTree, kByRule };

enum class ActionVerb { kCopy, kMove, kRename };

// Where the new names of a rename come from.
enum class NameSource { kTyped, kList, kTitles, kLinks, kPrefixes, kEditor };

// What the action window is to be filled with; all texts as typed.
struct ActionRequest {
    ActionVerb verb = ActionVerb::kCopy;
    Criteria criteria;
    int way = kNoWay; // an entry of optTo
    std::string destination;
    std::vector<std::string> lists; // Multiple Path Lists of the data folder
    int levels = 0;
    bool withFolderNames = false;
    int structure = 0;       // an entry of optStructure
    int duplicateChoice = 0; // by the values of --on-duplicate
    std::optional<std::string> renameText;
    bool renameAtBeginning = false;

    int folderNames = 0; // so many of them become the name of each copy; 0 for its own

    // Renames.
    NameSource source = NameSource::kTyped;
    std::string sourceFile;                  // as typed
    bool wholeNames = false;                 // of a list
    std::optional<std::string> insertedText; // else soughtText is replaced
    bool insertAtBeginning = false;
    std::string soughtText;
    std::string newText;
    bool onlyOnce = false;
    int portion = 0; // an entry of optNamePortion

    bool confirmed = false;
    bool dryRun = false;
    bool json = false;
    std::vector<std::string> answers;
};

struct DeleteRequest {
    Criteria criteria;
    std::optional<bool> deletesForGood; // what can't be recycled; else it is asked about
    std::optional<bool> takesProtected; // hidden and system objects; else they are asked about
    bool takesChanged = false;          // what isn't as the search saw it goes, too
    bool confirmed = false;
    bool dryRun = false;
    bool json = false;
    std::vector<std::string> answers;
};

// What a list holds, by the words of --as.
enum ListForm : int { kListOfPaths, kListOfNames, kPathList, kWebPage, kListOfTargets };

struct ListRequest {
    Criteria criteria;
    std::optional<SortRequest> sort; // otherwise as the list stands
    int form = kListOfPaths;
    std::string file = "-"; // as typed; "-" for stdout
    int pageText = 0;       // by the words of --text
    bool addsEof = false;
    bool confirmed = false;
    std::vector<std::string> answers;
};

// How the entries of a playlist stand.
enum PlaylistForm : int { kFullPaths, kLocalNames, kRelativePaths };

struct PlaylistRequest {
    Criteria criteria;
    std::optional<SortRequest> sort; // otherwise as the list stands
    int form = kFullPaths;
    std::string file; // as typed
    bool addsComments = false;
    std::string similarFolder; // as typed; empty for no search for duplicates
    std::int64_t deviation = 400'000;
    bool confirmed = false;
    std::vector<std::string> answers;
};

struct NumbersRequest {
    std::string from;
    std::string until;
    std::string lineText = "*";
    std::string picture;    // empty for plain numbers
    std::string file = "-"; // as typed; "-" for stdout
    bool addsEof = false;
    bool confirmed = false;
};

// Lists as typed.
struct AutoMoveRequest {
    Criteria criteria;
    std::string searches;
    std::string destinations;
    bool renamesDuplicates = false;
    bool thenFiles = false;
    bool emptiesFolders = false;
    bool confirmed = false;
    bool dryRun = false;
    bool json = false;
    std::vector<std::string> answers;
};

// Lists and folder as typed; either a list of folders, or one folder for all playlists.
struct AutoPlaylistRequest {
    Criteria criteria;
    std::string searches;
    std::string folders;
    std::string folder;
    int form = 0;                    // names or full paths
    std::optional<SortRequest> sort; // otherwise as the list stands
    bool addsComments = false;
    bool dryRun = false;
    bool json = false;
};

struct ShowPagesRequest {
    std::string list;    // as typed
    std::string seconds; // of each page
};

// What is opened: paths as typed, or with locations what is found there.
struct OpenRequest {
    Criteria criteria; // its patterns are the paths without locations
    std::string with;  // an application or a command; empty for the desktop's own choice
    bool dryRun = false;
    bool json = false;
    bool confirmed = false; // opens however many there are
    std::vector<std::string> answers;
};

struct RunProgramRequest {
    std::string path; // as typed
    bool dryRun = false;
    bool json = false;
    bool confirmed = false; // a foreign program, too
};

struct FoldersRequest {
    std::string place; // as typed
    std::string from;
    std::string count; // of numbers; empty for names counted to `until`
    std::string until;
    std::string list; // as typed; a file of names
};

struct RunRequest {
    std::string script; // a file as typed, or "-"
};

struct SampleRequest {
    std::string folder; // as typed
};

struct PathsRequest {
    bool json = false;
};

enum class LinksVerb { kShow, kEdit, kApply, kSet, kCheck };

constexpr std::size_t kLinkFields = 7; // in the order of their columns

struct LinksRequest {
    LinksVerb verb = LinksVerb::kShow;
    Criteria criteria;
    std::vector<std::string> answers;
    std::string file; // the text for editing, as typed; empty for that of the data folder
    // What is put in place of what in each value, and what a value becomes.
    std::array<std::string, kLinkFields> from;
    std::array<std::optional<std::string>, kLinkFields> to;
    std::array<std::optional<std::string>, kLinkFields> values;
    bool isPattern = false;
    bool matchesCase = false;
    bool dryRun = false;
    bool confirmed = false; // replaces a text that stands already
    bool json = false;
};

enum class OptionsVerb { kList, kGet, kSet };

struct OptionsRequest {
    OptionsVerb verb = OptionsVerb::kList;
    std::string key;
    std::string value;
    bool json = false;
};

using Command =
    std::variant<SearchRequest, ActionRequest, DeleteRequest, AutoMoveRequest, AutoPlaylistRequest,
                 ShowPagesRequest, ListRequest, PlaylistRequest, NumbersRequest, FoldersRequest,
                 LinksRequest, OpenRequest, RunProgramRequest, RunRequest, SampleRequest,
                 PathsRequest, OptionsRequest>;

// The arguments of the process, checked.
struct Request {
    MachineRequest machine;
    bool verbose = false; // each of equal failures is told
    Command command;
};

} // namespace tarvix::cli
