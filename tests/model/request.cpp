#include "tests/model/request.h"

#include <array>

namespace tarvix::model {

namespace {

void AddPlace(const Request& request, const std::string& root, std::vector<std::string>& words) {
    constexpr std::array kStructures{"none", "folder", "backup"};
    constexpr std::array kDuplicates{"skip", "overwrite", "rename"};
    const auto add = [&words](std::initializer_list<std::string> more) {
        words.insert(words.end(), more);
    };
    if (request.levels > 0) {
        add({"--up", std::to_string(request.levels)});
        if (request.withFolderNames) add({"--with-folder-names"});
    } else {
        add({"--to", root + "/" + request.to, "--structure",
             kStructures[static_cast<std::size_t>(request.structure)]});
    }
    add({"--on-duplicate", kDuplicates[static_cast<std::size_t>(request.duplicates)]});
    if (request.duplicates != Duplicates::kRename) return;
    add({"--rename-text", request.renameText});
    if (request.atBeginning) add({"--rename-at", "beginning"});
}

void AddNames(const Request& request, std::vector<std::string>& words) {
    constexpr std::array kPortions{"prefix", "extension", "name"};
    const auto add = [&words](std::initializer_list<std::string> more) {
        words.insert(words.end(), more);
    };
    add({"--portion", kPortions[static_cast<std::size_t>(request.portion)]});
    if (!request.insert.empty()) {
        add({"--insert", request.insert});
        if (request.atBeginning) add({"--at", "beginning"});
        return;
    }
    add({"--find", request.find, "--replace", request.replace});
    if (request.once) add({"--once"});
}

} // namespace

std::vector<std::string> WordsOf(const Request& request, const std::string& root,
                                 const std::vector<std::string>& answers) {
    constexpr std::array kVerbs{"copy", "move", "rename"};
    std::vector<std::string> words{kVerbs[static_cast<std::size_t>(request.verb)], request.pattern,
                                   "--in", root + "/p/in", "--yes"};
    if (request.wantsFolders) words.insert(words.end(), {"--kind", "folders"});
    if (!request.hasSubfolders) words.emplace_back("--no-subfolders");
    if (request.anyAttribute) words.emplace_back("--any-attribute");
    if (request.verb == Verb::kRename) {
        AddNames(request, words);
    } else {
        AddPlace(request, root, words);
    }
    for (const std::string& answer : answers) {
        words.insert(words.end(), {"--answer", answer});
    }
    return words;
}

} // namespace tarvix::model
