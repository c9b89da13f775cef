#include "search/native_places.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvix::search {

namespace {

using session::Session;

struct UserPlace {
    std::string_view title;
    std::string_view variable;
};
constexpr std::array kUserPlaces{
    UserPlace{" Home ", "UserProfile"},    UserPlace{" Desktop ", "Desktop"},
    UserPlace{" Documents ", "Documents"}, UserPlace{" Downloads ", "Downloads"},
    UserPlace{" Music ", "Music"},         UserPlace{" Pictures ", "Pictures"},
    UserPlace{" Videos ", "Videos"},
};
constexpr UserPlace kTemporary{" Temporary files ", "Temp"};
constexpr std::size_t kMostMedia = 10; // the boxes have so much room
constexpr std::string_view kWhole = "C:";

class Places {
  public:
    explicit Places(Session& session) : session_(session) {}

    void AddUserPlace(const UserPlace& place) {
        const auto folder = session_.platform.environment.Get(place.variable);
        if (folder) Add(place.title, {*folder});
    }
    void AddMedia() {
        std::vector<std::string> all;
        for (const platform::DriveInfo& drive : session_.files().Drives()) {
            if (!drive.isReady || drive.path == kWhole || all.size() == kMostMedia) continue;
            const std::string root = fmt::format("{}\\", drive.path);
            const std::string shown = session_.Shown(root);
            const std::string name = shown.substr(shown.rfind('/') + 1);
            Add(fmt::format(" {} ({}) ", name.empty() ? drive.path : name, shown), {root});
            all.push_back(root);
        }
        if (all.size() > 1) found_.push_back({" All media ", std::move(all)});
    }
    void AddWhole() { Add(" This computer (/) ", {fmt::format("{}\\", kWhole)}); }
    std::vector<NamedPlace> Take() { return std::move(found_); }

  private:
    void Add(std::string_view title, std::vector<std::string> folders) {
        const auto stands = [&](const NamedPlace& place) {
            return text::EqualNoCase(place.folders.front(), folders.front());
        };
        if (std::ranges::any_of(found_, stands)) return;
        if (!platform::GetFolder(session_.files(), folders.front())) return;
        found_.push_back({std::string(title), std::move(folders)});
    }

    Session& session_;
    std::vector<NamedPlace> found_;
};

} // namespace

std::vector<NamedPlace> NativePlaces(Session& session) {
    Places places(session);
    for (const UserPlace& place : kUserPlaces)
        places.AddUserPlace(place);
    places.AddMedia();
    places.AddWhole();
    places.AddUserPlace(kTemporary);
    return places.Take();
}

} // namespace tarvix::search
