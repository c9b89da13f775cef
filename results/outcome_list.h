#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvix::results {

// What became of one object at one of its places, in the order that a page has them: what went
// wrong first, what went as asked last.
enum class OutcomeMark : std::uint8_t {
    kFailed,
    kChanged,       // not what the search saw, so left as it was
    kCopiedOnly,    // was to be moved, but the original could not go
    kNotReached,    // the action ended before
    kLongPath,      // its new path is too long
    kProtected,     // hidden or system
    kNoDestination, // the rule gave no folder
    kOntoItself,
    kLeftAlone,
    kWasGone, // before it could go to the trash
    kSkipped, // something stands there already
    kUnchanged,
    kDeleted, // for good
    kNewName, // placed under a name of its own
    kReplaced,
    kCopied,
    kMoved,
    kRenamed,
    kRecycled,
    kPutBack, // from the trash
    kEnd
};
constexpr std::size_t kOutcomeMarks = static_cast<std::size_t>(OutcomeMark::kEnd);

// "failed", "moved" ...
std::string_view MarkText(OutcomeMark mark);
// What calls for the user: it failed or was not come to.
constexpr bool IsTrouble(OutcomeMark mark) {
    return mark <= OutcomeMark::kNotReached;
}

// The key of putting back what is in the trash. In its list "in the trash" is what was not to come
// back.
constexpr std::string_view kPutBackAction = "PutBack";

// In place of a number in the trash: it lies there in a folder of the same action.
constexpr std::uint32_t kWithFolder = 0xFFFFFFFF;

// One object as it is settled, with drive paths; the texts belong to the caller.
struct SettledObject {
    std::string_view source;
    std::string_view place = {}; // where it stands or would stand; empty: nowhere
    OutcomeMark mark = OutcomeMark::kLeftAlone;
    bool isFile = true;
    bool isPlaced = false;
    bool leaves = false;         // its old place: moved, renamed
    std::uint32_t trashed = 0;   // of what is in the trash: its number there + 1, or kWithFolder
    int errorNumber = 0;         // of a failure
    std::string_view error = {}; // of a failure, a sentence
    // The two paths as the sentence may name them.
    std::string_view shownSource = {};
    std::string_view shownPlace = {};
};

// What the last action did with each object. Kept compactly: folders and reasons once, names in one
// block; texts are made when they are asked for. Objects are numbered from 0 as they were settled.
class OutcomeList {
  public:
    // Forgets all. `action` is the key of the one that begins.
    void Begin(std::string_view action);
    void Add(const SettledObject& object);

    const std::string& Action() const { return action_; }
    std::size_t Count() const { return rows_.size(); }
    std::int64_t CountOf(OutcomeMark mark) const { return counts_[static_cast<std::size_t>(mark)]; }
    OutcomeMark MarkOf(std::size_t at) const { return rows_[at].mark; }
    bool IsFile(std::size_t at) const { return rows_[at].isFile; }
    bool IsPlaced(std::size_t at) const { return rows_[at].isPlaced; }
    // As in SettledObject; 0 for what isn't in the trash.
    std::uint32_t Trashed(std::size_t at) const { return rows_[at].trashed; }

    // The path that it was listed under.
    std::string Source(std::size_t at) const;
    // Its new path as it was placed, or where it would stand; empty for none.
    std::string Place(std::size_t at) const;
    // Where it is by now: its new place, or the old one, in folders that were moved or renamed
    // since. Empty for what went to the trash or is gone.
    std::string Now(std::size_t at) const;
    // Why it failed: a sentence, with its paths as they are shown to people, and the reason in it
    // that many have in common. Empty for others.
    std::string Sentence(std::size_t at, std::string_view shownSource,
                         std::string_view shownPlace) const;
    const std::string& Reason(std::size_t at) const;

    // Grows with each change.
    std::uint64_t Generation() const { return generation_; }

  private:
    struct Path {
        std::uint32_t folder = 0; // number + 1; 0 for no path
        std::uint32_t name = 0;   // in the block
        std::uint32_t size = 0;   // bytes
    };
    struct Row {
        Path source;
        Path place;
        std::uint32_t failure = 0; // number + 1
        std::uint32_t trashed = 0;
        OutcomeMark mark = OutcomeMark::kLeftAlone;
        bool isFile = true;
        bool isPlaced = false;
    };
    struct Failure {
        std::string sentence; // with marks where the paths stand
        std::string reason;
    };

    Path Keep(std::string_view path);
    std::uint32_t KeepFolder(std::string_view folder); // gives its number + 1
    std::string TextOf(const Path& path) const;
    std::uint32_t KeepFailure(const SettledObject& object);
    std::string Follow(std::string path, std::int64_t after) const;

    std::string action_;
    std::vector<Row> rows_;
    std::array<std::int64_t, kOutcomeMarks> counts_{};
    std::vector<std::string> folders_;
    std::unordered_map<std::string, std::uint32_t> folderNumbers_;
    std::array<std::uint32_t, 2> lastFolders_{}; // number + 1: mostly of a source and its place
    std::string names_;
    std::vector<Failure> failures_;
    std::unordered_map<std::string, std::uint32_t> failureNumbers_; // by error and sentence
    std::unordered_map<std::string, std::uint32_t> left_; // folders that left their paths, by row
    std::uint64_t generation_ = 0;
};

} // namespace tarvix::results
