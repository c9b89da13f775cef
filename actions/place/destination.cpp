#include "actions/place/destination.h"

#include "actions/place/special_rule.h"
#include "results/selection.h"
#include "session/attempt.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using session::Session;

enum Way { kOneLocation, kMultipleLocations, kUpFolderTree, kSpecialRule };

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

std::string_view SelectedRelPath(const Session& session) {
    return session.selection
        ->strSelRelPath[static_cast<std::size_t>(session.state.action.lngIndex)];
}

// The destination root in hand, of a list or as typed.
const std::string& RootPlace(const Session& session, int way) {
    static const std::string none;
    if (way != kMultipleLocations) return session.frmDialog.cmbDir.Text.Get();
    const auto& paths = session.state.action.strMultiPath;
    const auto index = static_cast<std::size_t>(session.state.action.intMultiIndex);
    return index < paths.size() ? paths[index] : none;
}

// What is typed is a part of its own behind each path of a list.
std::string Place(const Session& session, int way) {
    const std::string& root = RootPlace(session, way);
    return way == kMultipleLocations ? root + session.frmDialog.cmbDir.Text.Get() : root;
}

platform::Result<std::string> RootOf(std::string_view path) {
    std::string root = text::PathRoot(path);
    if (root.empty()) {
        return platform::Failure(platform::kInvalidCall,
                                 std::string(path) + " names no drive and no network share.");
    }
    return root;
}

platform::Result<std::string> FrontOf(const Session& session, int way, Front front,
                                      std::string_view path) {
    if (RootPlace(session, way).empty()) {
        return platform::Failure(platform::kInvalidCall, "There is no destination.");
    }
    if (front == Front::kPlace) return Place(session, way);
    if (front == Front::kRootOfPlace) return RootOf(RootPlace(session, way));
    auto root = RootOf(path);
    if (!root) return root;
    return Place(session, way) + text::RootAsFolders(*root);
}

std::string BackOf(const Session& session, Back back, std::string_view name,
                   std::string_view path) {
    if (back == Back::kBelowOldRoot) return text::PathBelowRoot(path);
    return "\\" + std::string(back == Back::kName ? name : SelectedRelPath(session));
}

// Empty, after the error was handled, when a path has no root.
std::string ByStructure(Session& session, int way, std::string_view name, std::string_view path) {
    const int structure = session.frmDialog.optStructure.Chosen();
    if (structure < 0) return {};
    const Mapping& mapping = kMappings[static_cast<std::size_t>(structure)];
    const session::ErrorContext context{.routine = "ComputeDestination",
                                        .moduleName = "frmDialog",
                                        .object = name,
                                        .path = path,
                                        .searchOrDestination = RootPlace(session, way),
                                        .objectType = session::ObjectType::kUnknown};
    auto front = session::Attempt(session, context,
                                  [&] { return FrontOf(session, way, mapping.front, path); });
    if (front) return *front + BackOf(session, mapping.back, name, path);
    session.state.action.blnErrorOccurred = true;
    return {};
}

std::string ByFolderName(const Session& session, std::string_view name, std::string_view path) {
    const std::string_view extension = text::GetExtension(name);
    std::string result = session.frmDialog.cmbDir.Text.Get() + "\\" +
                         LastFoldersAsName(text::ParentFolder(path), FolderTreeLevels(session));
    if (!extension.empty()) result.append(1, '.').append(extension);
    return result;
}

std::string UpTheTree(const Session& session, std::string_view name, std::string_view path) {
    if (session.frmDialog.optStructure.Chosen() != 0) return {};
    const std::string& prefix = session.state.action.strFolderPrefix;
    const std::string above = FolderAbove(path, FolderTreeLevels(session));
    if (prefix.empty()) return text::JoinPath(above, name);
    return text::JoinPath(above, prefix + " " + std::string(name));
}

std::string ByRule(Session& session, std::string_view name, std::string_view path) {
    const std::string folder =
        SpecialRuleConvert(session, path, session.frmDialog.cmbDir.Text.Get());
    if (!folder.empty()) return folder + "\\" + std::string(name);
    session.state.action.blnRuleFailed = true;
    return {};
}

std::string ByWay(Session& session, std::string_view name, std::string_view path) {
    const int way = session.frmDialog.optTo.Chosen();
    if (way == kUpFolderTree) return UpTheTree(session, name, path);
    if (way == kSpecialRule) return ByRule(session, name, path);
    const bool isFolderName = way == kOneLocation &&
                              session.state.strAction == "CopyRenameAsFolderName" &&
                              session.frmDialog.optStructure.Chosen() == 0;
    return isFolderName ? ByFolderName(session, name, path) : ByStructure(session, way, name, path);
}

} // namespace

std::string ComputeDestination(Session& session, std::string_view strName,
                               std::string_view strPath) {
    std::string destination = ByWay(session, strName, strPath);
    session.state.action.blnNoDestination = destination.empty();
    return destination;
}

int FolderTreeLevels(const Session& session) {
    int levels = 0;
    for (const char c : session.frmDialog.txtFolderTree.Text.Get()) {
        if (c < '0' || c > '9') continue;
        levels = std::min(levels * 10 + (c - '0'), kMostLevels);
    }
    return levels;
}

void BuildFolderPrefix(Session& session) {
    auto& action = session.state.action;
    action.strFolderPrefix =
        FolderPrefixOf(session.selection->strSelPath[static_cast<std::size_t>(action.lngIndex)],
                       FolderTreeLevels(session));
}

std::string FolderPrefixOf(std::string_view path, int levels) {
    std::string words;
    for (int level = 0; level < levels && path.contains('\\'); ++level) {
        path = text::GetParentFolderName(path);
        words.insert(0, " " + std::string(text::FileNameOf(path)));
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
