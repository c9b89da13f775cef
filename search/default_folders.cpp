#include "search/default_folders.h"

#include "platform/file_system.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "search/native_places.h"
#include "session/paths/env_variables.h"
#include "session/remembered/histories.h"
#include "session/remembered/platform_file.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/list_marks.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>
#include <vector>

namespace tarvix::search {

namespace {

using platform::DriveType;
using session::Session;

constexpr std::string_view kAction = "Create MPL From Default Search";
constexpr int kUsersFolderSince = 6000; // of intOSVersion

struct DriveRow {
    std::string_view title;
    std::array<DriveType, 3> types;
};
constexpr std::array<DriveRow, 3> kDriveRows{
    {{" All hard drives ", {DriveType::kFixed, DriveType::kFixed, DriveType::kFixed}},
     {" All hard drives and CD/DVD's ",
      {DriveType::kFixed, DriveType::kCdRom, DriveType::kRemovable}},
     {" All CD/DVD's and Removables",
      {DriveType::kCdRom, DriveType::kRemovable, DriveType::kRemovable}}}};

enum class On { kAll, kTwoWidths, kOneWidth, kOldSystem, kNewSystem };

struct FolderRow {
    std::string_view title;
    std::array<std::string_view, 5> candidates;
    On on = On::kAll;
};
constexpr std::array<FolderRow, 21> kFolderRows{{
    {" Current Temporary Internet Files ",
     {"%UserProfile%\\Local Settings\\Temporary Internet Files\\Content.IE5",
      "%UserProfile%\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files\\Content.IE5",
      "%UserProfile%\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet "
      "Files\\Low\\Content.IE5",
      "%UserProfile%\\AppData\\Local\\Microsoft\\Windows\\INetCache\\IE",
      "%UserProfile%\\AppData\\Local\\Microsoft\\Windows\\INetCache\\Low\\IE"}},
    {" Current Firefox Internet Cache ",
     {"%UserProfile%\\Local Settings\\Application Data\\Mozilla\\Firefox\\Profiles",
      "%UserProfile%\\AppData\\Local\\Mozilla\\Firefox\\Profiles"}},
    {" Current Google Chrome Internet Cache ",
     {"%UserProfile%\\Local Settings\\Application Data\\Google\\Chrome\\User Data\\Default\\Cache",
      "%UserProfile%\\AppData\\Local\\Google\\Chrome\\User Data\\Default\\Cache"}},
    {" Drive Where Current Windows Folder Resides ", {"%SystemDrive%"}},
    {" Current Windows Folder ", {"%SystemRoot%"}},
    {" Current User Profile Folder ", {"%UserProfile%"}},
    {" Current 'All Users' Profile Folder ", {"%AllUsersProfile%"}},
    {" 64 & 32bit 'Common Program Files' Folders ",
     {"%CommonProgramFiles(x86)%", "%CommonProgramW6432%"},
     On::kTwoWidths},
    {" Current 'Common Program Files' Folder ", {"%CommonProgramFiles%"}, On::kOneWidth},
    {" 64 & 32bit 'Program Files' Folders ",
     {"%ProgramFiles(x86)%", "%ProgramW6432%"},
     On::kTwoWidths},
    {" Current 'Program Files' Folder ", {"%ProgramFiles%"}, On::kOneWidth},
    {" Current 'My Documents' Folder ", {"%UserProfile%\\My Documents"}, On::kOldSystem},
    {" Current 'Documents' Folder ", {"%UserProfile%\\Documents"}, On::kNewSystem},
    {" Documents and Settings Folder ", {"%Systemdrive%\\Documents and Settings"}, On::kOldSystem},
    {" 'Users' Folder ", {"%Systemdrive%\\Users"}, On::kNewSystem},
    {" Local IIS WWWROOT Folder ", {"%Systemdrive%\\Inetpub\\wwwroot"}},
    {" Current User Profile Quick Launch Folder ",
     {"%UserProfile%\\Application Data\\Microsoft\\Internet Explorer\\Quick Launch",
      "%UserProfile%\\AppData\\Roaming\\Microsoft\\Internet Explorer\\Quick Launch",
      "%UserProfile%\\AppData\\Roaming\\Microsoft\\Internet Explorer\\Quick Launch\\User "
      "Pinned\\Taskbar"}},
    {" Current User Profile Start Menu ",
     {"%UserProfile%\\Start Menu",
      "%UserProfile%\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu"}},
    {" Current 'All Users' Profile Start Menu ",
     {"%AllUsersProfile%\\Start Menu", "%AllUsersProfile%\\Microsoft\\Windows\\Start Menu"}},
    {" Current User Profile Temp Folder ", {"%Temp%"}},
    {" Current System Profile Temp Folder ", {"%SystemRoot%\\temp"}},
}};

bool IsOn(Session& session, On on) {
    const bool isNew = session.state.intOSVersion >= kUsersFolderSince;
    switch (on) {
    case On::kAll:
        return true;
    case On::kTwoWidths:
        return session::Is64BitSystem(session);
    case On::kOneWidth:
        return !session::Is64BitSystem(session);
    case On::kOldSystem:
        return !isNew;
    case On::kNewSystem:
        return isNew;
    }
    return false;
}

std::string Joined(const std::vector<std::string>& folders) {
    std::string joined;
    for (const std::string& folder : folders) {
        joined.append(joined.empty() ? "" : "|").append(folder);
    }
    return joined;
}

// Those of the candidates that are folders, expanded, each once.
std::vector<std::string> Existing(Session& session, std::span<const std::string_view> candidates) {
    std::vector<std::string> folders;
    for (const std::string_view candidate : candidates) {
        if (candidate.empty()) continue;
        std::string folder = session::RemoveEnvVarAndRestorePath(
            session, session.platform.paths.ToDrive(text::Trim(candidate)));
        const bool isKnown = std::ranges::any_of(
            folders, [&](const std::string& other) { return text::EqualNoCase(other, folder); });
        if (!isKnown && platform::GetFolder(session.files(), folder)) {
            folders.push_back(std::move(folder));
        }
    }
    return folders;
}

// Appends the predefined rows behind the configured ones.
class Rows {
  public:
    explicit Rows(Session& session) : session_(session), options_(session.state.options) {
        const auto first = static_cast<std::ptrdiff_t>(session::kConfiguredFolders);
        std::fill(options_.strDefSearchFolder.begin() + first, options_.strDefSearchFolder.end(),
                  "");
        std::fill(options_.strDefSearchFolderTitle.begin() + first,
                  options_.strDefSearchFolderTitle.end(), "");
    }

    void AddDrives() {
        const auto drives = session_.files().Drives();
        for (const DriveRow& row : kDriveRows) {
            std::vector<std::string> roots;
            for (const platform::DriveInfo& drive : drives) {
                const bool isMeant = std::ranges::find(row.types, drive.type) != row.types.end();
                if (isMeant && drive.isReady) roots.push_back(fmt::format("{}\\", drive.path));
            }
            Add(row.title, roots);
        }
    }
    void AddFolders() {
        for (const FolderRow& row : kFolderRows) {
            if (IsOn(session_, row.on)) Add(row.title, Existing(session_, row.candidates));
        }
    }
    void AddNativePlaces() {
        for (const NamedPlace& place : NativePlaces(session_))
            Add(place.title, place.folders);
    }
    void AddOwnFolders() {
        const auto& state = session_.state;
        const std::string_view store =
            state.blnDataInVirtualStore ? std::string_view(state.strDataFolder) : "";
        const std::array<std::string_view, 2> both{state.strProgramFolder, store};
        Add(" Tarvix Application Path ", Existing(session_, std::span(both).first(1)));
        if (store.empty()) return;
        Add(" Tarvix Application Path Virtual Store ", Existing(session_, std::span(both).last(1)));
        Add(" Tarvix Application Path AND Virtual Store ", Existing(session_, both));
    }

  private:
    void Add(std::string_view title, const std::vector<std::string>& folders) {
        if (folders.empty() || next_ == session::kDefaultFolderLimit) return;
        options_.strDefSearchFolder[next_] = Joined(folders);
        options_.strDefSearchFolderTitle[next_] = std::string(title);
        ++next_;
        if (folders.size() > 1) WriteDefaultSearchMPL(session_, title);
    }

    Session& session_;
    session::Options& options_;
    std::size_t next_ = session::kConfiguredFolders;
};

// The titles as the box shows them.
std::vector<std::string> ShownTitles(const session::Options& options) {
    std::vector<std::string> titles;
    for (std::size_t i = 0; i < options.strDefSearchFolder.size(); ++i) {
        const std::string& title = options.strDefSearchFolderTitle[i];
        const bool isOffered = !text::Trim(title).empty() && !options.strDefSearchFolder[i].empty();
        if (isOffered) titles.push_back(title.starts_with(' ') ? title : fmt::format(" {}", title));
    }
    return titles;
}

std::string ListFile(const Session& session, std::string_view title) {
    std::string name(title);
    std::ranges::replace(name, '/', '-');
    return text::JoinPath(session.state.strDataFolder,
                          fmt::format("{}.mpl", platform::PieceToDrive(name)));
}

std::vector<std::string> FoldersOf(Session& session, std::string_view title) {
    const std::size_t place = FindTitle(session, title);
    if (place == session::kDefaultFolderLimit) return {};
    return Existing(session, text::Split(session.state.options.strDefSearchFolder[place], '|'));
}

} // namespace

void BuildDefaultFolderList(Session& session) {
    Rows rows(session);
    if (session.platform.traits.hasNativePaths) {
        rows.AddNativePlaces();
    } else {
        rows.AddDrives();
        rows.AddFolders();
        rows.AddOwnFolders();
    }
    session::ShowTitledFolders(session, ShownTitles(session.state.options));
}

void WriteDefaultSearchMPL(Session& session, std::string_view title) {
    const std::string file = ListFile(session, title);
    if (session.files().Facts(file)) return;
    const std::string_view name = text::FileNameOf(file);
    const auto folders = FoldersOf(session, title);
    if (folders.empty()) {
        session::LogTimed(
            session,
            fmt::format(" Tarvix was unable to {} list: {} Folders are unavailable at this time.",
                        kAction, name));
        return;
    }
    session::LogTimed(session, fmt::format(" Tarvix selected to {} list: {}", kAction, name));
    std::string text;
    for (const std::string& folder : folders) {
        text.append(session::PathForList(session, folder)).append("\r\n");
    }
    text += text::kEndMark;
    const auto written = session::ReplaceTextFile(session.files(), file, text);
    if (!written) session::LogTimed(session, fmt::format(" {}", session.Shown(written.error())));
}

std::size_t FindTitle(const Session& session, std::string_view text) {
    const auto& titles = session.state.options.strDefSearchFolderTitle;
    const std::string_view wanted = text::Trim(text);
    const auto found = std::ranges::find_if(
        titles, [wanted](const std::string& title) { return text::Trim(title) == wanted; });
    return wanted.empty() ? session::kDefaultFolderLimit
                          : static_cast<std::size_t>(found - titles.begin());
}

} // namespace tarvix::search
