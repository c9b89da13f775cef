#pragma once

#include <string>
#include <vector>

namespace tarvix::model {

enum class Verb { kCopy, kMove, kRename };
enum class Structure { kNone, kFolder, kBackup };
enum class Duplicates { kSkip, kOverwrite, kRename };
enum class Portion { kPrefix, kExtension, kName };

// What one run of the program is asked for.
struct Request {
    Verb verb = Verb::kCopy;
    std::string pattern = "*";
    bool wantsFolders = false; // else files
    bool hasSubfolders = true; // never with folders, so that none lies in another one
    bool anyAttribute = false;

    std::string to; // below the world's root
    Structure structure = Structure::kNone;
    Duplicates duplicates = Duplicates::kSkip;
    std::string renameText = "_";
    bool atBeginning = false; // of the name, for a duplicate and for an insertion
    int levels = 0;           // up the tree; 0 for `to`
    bool withFolderNames = false;

    std::string insert; // else `find` is replaced
    std::string find;
    std::string replace;
    bool once = false;
    Portion portion = Portion::kPrefix;
};

// The words behind the program's name. `root` is the folder that the world lies in.
std::vector<std::string> WordsOf(const Request& request, const std::string& root,
                                 const std::vector<std::string>& answers);

} // namespace tarvix::model
