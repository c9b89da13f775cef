#include "actions/place/destination.h"

#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

// How a new path is put together, by structure: what it starts with, and what follows.
enum class Front { kPlace, kRootOfPlace, kPlaceAndOldRoot };
enum class Back { kName, kBelowOldRoot, kBelowSearchFolder };
struct Mapping {
    Front front;
    Back back;
};
constexpr std::array<Mapping, 4> kMappings{{
    {Front::kPlace, Back::kName},                   // None
    {Front::kRootOfPlace, Back::kBelowOldRoot},     // Drive Mirror
    {Front::kPlace, Back::kBelowSearchFolder},      // Folder to Folder
    {Front::kPlaceAndOldRoot, Back::kBelowOldRoot}, // Backup
}};

// A destination as it grows: one with something missing gets no longer.
class Growing {
  public:
    Growing(const ActionRequest& request, int place)
        : root_(RootPlace(request, place)),
          // What is typed is a part of its own behind each path of a list.
          part_(request.way == Way::kMultipleLocations ? std::string_view(request.typed)
                                                       : std::string_view()) {}

    void AddFront(Front front, std::string_view path) {
        if (root_.empty()) {
            destination_.missing = Missing::kPlace;
        } else if (front == Front::kRootOfPlace) {
            AddRoot(root_, false);
        } else {
            destination_.path.append(root_).append(part_);
            if (front == Front::kPlaceAndOldRoot) AddRoot(path, true);
        }
    }
    void AddBack(Back back, const Object& object) {
        if (!destination_.IsThere()) return;
        if (back == Back::kBelowOldRoot) {
            destination_.path += text::PathBelowRoot(object.TruePath());
            return;
        }
        destination_.path += '\\';
        destination_.path += back == Back::kName ? object.name : object.relative;
    }
    Destination Take() { return std::move(destination_); }

  private:
    void AddRoot(std::string_view path, bool asFolders) {
        const std::string root = text::PathRoot(path);
        if (!root.empty()) {
            destination_.path += asFolders ? text::RootAsFolders(root) : root;
            return;
        }
        destination_.path.clear();
        destination_.missing = Missing::kShare;
        destination_.unrooted = path;
    }

    std::string_view root_;
    std::string_view part_;
    Destination destination_;
};

Destination ByStructure(const ActionRequest& request, const Object& object, int place) {
    const Mapping& mapping = kMappings[static_cast<std::size_t>(request.structure)];
    Growing growing(request, place);
    growing.AddFront(mapping.front, object.TruePath());
    growing.AddBack(mapping.back, object);
    return growing.Take();
}

Destination ByFolderName(const ActionRequest& request, const Object& object) {
    const std::string_view extension = text::GetExtension(object.name);
    Destination destination;
    destination.path =
        fmt::format("{}\\{}{}{}", request.typed,
                    LastFoldersAsName(text::ParentFolder(object.TruePath()), request.levels),
                    extension.empty() ? "" : ".", extension);
    return destination;
}

Destination UpTheTree(const ActionRequest& request, const Object& object) {
    Destination destination;
    if (request.structure != Structure::kNone) {
        destination.missing = Missing::kStructure;
        return destination;
    }
    const std::string prefix = BuildFolderPrefix(request, object);
    const std::string above = FolderAbove(object.TruePath(), request.levels);
    destination.path = prefix.empty()
                           ? text::JoinPath(above, object.name)
                           : text::JoinPath(above, fmt::format("{} {}", prefix, object.name));
    return destination;
}

Destination ByRule(const ActionRequest& request, const Object& object) {
    Destination destination;
    destination.missing = Missing::kRuleFolder;
    if (!request.rule) return destination;
    destination.rule = SpecialRuleConvert(*request.rule, object.TruePath());
    if (destination.rule.end == RuleEnd::kSearch) destination.missing = Missing::kSearch;
    // A rule that comes to nothing names no folder.
    if (destination.rule.end != RuleEnd::kFolder || destination.rule.folder.empty()) {
        return destination;
    }
    destination.missing = Missing::kNothing;
    destination.path = text::Concat({destination.rule.folder, "\\", object.name});
    return destination;
}

} // namespace

std::string_view RootPlace(const ActionRequest& request, int place) {
    if (request.way != Way::kMultipleLocations) return request.typed;
    const auto index = static_cast<std::size_t>(place);
    return index < request.strMultiPath.size() ? std::string_view(request.strMultiPath[index])
                                               : std::string_view();
}

Destination ComputeDestination(const ActionRequest& request, const Object& object, int place) {
    if (request.way == Way::kUpFolderTree) return UpTheTree(request, object);
    if (request.way == Way::kSpecialRule) return ByRule(request, object);
    const bool isFolderName = request.way == Way::kOneLocation &&
                              request.strAction == "CopyRenameAsFolderName" &&
                              request.structure == Structure::kNone;
    return isFolderName ? ByFolderName(request, object) : ByStructure(request, object, place);
}

void CompleteDestination(Destination& destination, const Object& object, std::string_view found) {
    destination.missing = Missing::kNothing;
    destination.path = text::Concat({destination.rule.WithFound(found), "\\", object.name});
}

std::string BuildFolderPrefix(const ActionRequest& request, const Object& object) {
    const bool has = request.way == Way::kUpFolderTree && request.prefixesFolders;
    return has ? FolderPrefixOf(object.TruePath(), request.levels) : std::string();
}

int FolderTreeLevels(std::string_view text) {
    int levels = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') continue;
        levels = std::min(levels * 10 + (c - '0'), kMostLevels);
    }
    return levels;
}

std::string FolderPrefixOf(std::string_view path, int levels) {
    std::string words;
    for (int level = 0; level < levels && path.contains('\\'); ++level) {
        path = text::GetParentFolderName(path);
        words.insert(0, fmt::format(" {}", text::FileNameOf(path)));
    }
    return std::string(text::LTrim(words));
}

std::string FolderAbove(std::string_view path, int levels) {
    std::string folder = text::ParentFolderSlash(path);
    for (int level = 0; level < levels; ++level) {
        std::string parent = text::ParentFolder(folder);
        if (parent == folder) break;
        folder = std::move(parent);
    }
    return folder;
}

std::string LastFoldersAsName(std::string_view path, int levels) {
    std::size_t start = path.size();
    for (int level = 0; level < levels; ++level) {
        start = start == 0 ? path.npos : path.rfind('\\', start - 1);
        if (start == path.npos) return FoldersAsWords(path);
    }
    return FoldersAsWords(path.substr(std::min(start + 1, path.size())));
}

std::string FoldersAsWords(std::string_view text) {
    constexpr int kMost = 100;
    std::string words(text);
    for (const char mark : {'\\', ':'}) {
        int left = kMost;
        for (char& c : words) {
            if (c == mark && left-- > 0) c = ' ';
        }
    }
    return words;
}

} // namespace tarvix::actions
