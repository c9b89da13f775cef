#include "launch/menu/menu_objects.h"

#include "platform/applications.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/result_list.h"
#include "session/session.h"

#include <utility>

namespace tarvix::menu {

namespace {

using session::Session;

// Looking at more of them would be felt before the menu opens; what is then done looks again.
constexpr std::size_t kMostLooked = 10'000;
// Types of more are told by their names alone.
constexpr std::size_t kMostRead = 200;

constexpr std::string_view kFolderType = "inode/directory";

bool Stands(Session& session, const results::ResultRow& row, const std::string& path) {
    const platform::Sighting sighting = session.rows->SightingOf(row);
    const bool stands =
        session.files().LookAtSeen({path, sighting, platform::Same::kName}).has_value();
    session.Yield();
    return stands;
}

std::vector<std::size_t> SelectedRows(const results::ResultList& rows) {
    std::vector<std::size_t> selected;
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        if (rows.At(i).selected && !rows.At(i).IsSpacer()) selected.push_back(i);
    }
    return selected;
}

std::string TypeOf(Session& session, const results::ResultRow& row, const std::string& path,
                   bool reads) {
    if (row.isFolder) return std::string(kFolderType);
    auto& applications = session.platform.applications;
    std::string type = reads ? applications.TypeOf(path) : applications.TypeOfName(row.name);
    return type.empty() ? "application/octet-stream" : type;
}

} // namespace

std::optional<MenuObjects> SelectedObjects(Session& session, std::string& gone) {
    const auto selected = SelectedRows(*session.rows);
    if (selected.empty()) return std::nullopt;
    MenuObjects found;
    std::vector<custom::ChosenObject> objects;
    objects.reserve(selected.size());
    for (const std::size_t index : selected) {
        const results::ResultRow& row = session.rows->At(index);
        std::string path = session.rows->FullPath(index);
        std::string native = session.platform.paths.ToNative(path);
        const bool looks = objects.size() < kMostLooked;
        if (native.empty() || (looks && !Stands(session, row, path))) {
            gone = std::move(path);
            return std::nullopt;
        }
        objects.push_back({std::move(native),
                           TypeOf(session, row, path, selected.size() <= kMostRead), row.isFolder});
        found.paths.push_back(std::move(path));
    }
    found.chosen = custom::ChosenFrom(std::move(objects));
    return found;
}

std::vector<std::string> NativePathsOf(const custom::Chosen& chosen) {
    std::vector<std::string> paths;
    paths.reserve(chosen.objects.size());
    for (const custom::ChosenObject& object : chosen.objects)
        paths.push_back(object.path);
    return paths;
}

} // namespace tarvix::menu
