#pragma once

#include "actions/place/action_request.h"
#include "actions/place/object.h"

#include <cstdint>
#include <string>
#include <string_view>

// Where an object goes, as text alone.
namespace tarvix::actions {

// Why an object has no new path.
enum class Missing : std::uint8_t {
    kNothing,    // it has one
    kPlace,      // there is no such destination
    kShare,      // `unrooted` names no drive and no network share
    kStructure,  // its way knows no such structure
    kSearch,     // the folder of its rule is still to be looked for
    kRuleFolder, // its rule gave no folder
};

struct Destination {
    std::string path; // full, with the object's name; empty when something is missing
    Missing missing = Missing::kNothing;
    std::string unrooted;
    RuleResult rule; // of a Special Rule

    bool IsThere() const { return missing == Missing::kNothing; }
};

// The full new path of an object, with the name that it is to get, at destination `place` (from 0).
Destination ComputeDestination(const ActionRequest& request, const Object& object, int place);
// The same once the Search Set of its rule has found the folder of that name.
void CompleteDestination(Destination& destination, const Object& object, std::string_view found);

// The destination root, of a list or as typed; empty when there is none.
std::string_view RootPlace(const ActionRequest& request, int place);

// The names of the folders that an object leaves on its way up, which then come in front of its
// own; empty when it gets no such name.
std::string BuildFolderPrefix(const ActionRequest& request, const Object& object);

// The number that the digits of a text make; 0 without any. A number beyond any path counts as
// kMostLevels.
int FolderTreeLevels(std::string_view text);
constexpr int kMostLevels = 1000;

// The folders passed on the way up from an object, "b c" of "C:\a\b\c\f.txt" and 2 levels.
std::string FolderPrefixOf(std::string_view path, int levels);
// The folder that lies so many levels above the folder of an object; at the root it stays there.
std::string FolderAbove(std::string_view path, int levels);
// The last names of a folder's path as one name, "Rock Album" of "C:\Music\Rock\Album" and 2
// levels; the whole path when it has fewer levels.
std::string LastFoldersAsName(std::string_view path, int levels);
// A blank for each "\" and each ":", at most 100 of either.
std::string FoldersAsWords(std::string_view text);

} // namespace tarvix::actions
