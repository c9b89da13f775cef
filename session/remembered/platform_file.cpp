#include "session/remembered/platform_file.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/try.h"
#include "session/errors.h"
#include "session/remembered/replace_file.h"
#include "session/remembered/unsaved.h"
#include "session/session.h"
#include "text/list_marks.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

// Letters stay with a mount that is gone, but they are few.
constexpr std::size_t kMostDrives = 16;
constexpr std::array<std::string_view, 3> kMountRoots{"/media/", "/run/media/", "/mnt/"};

platform::Result<std::vector<std::string>> ReadLines(platform::FileSystem& files,
                                                     std::string_view path) {
    TX_TRY_ASSIGN(const auto stream, files.OpenAsTextStream(path, platform::OpenMode::kRead));
    std::vector<std::string> lines;
    while (true) {
        auto line = stream->ReadLine();
        if (!line && line.error().number == platform::kInputPastEnd) return lines;
        if (!line) return std::unexpected(std::move(line.error()));
        lines.push_back(std::move(*line));
    }
}

bool IsMissing(const platform::PlatformError& error) {
    return error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
}

bool IsMountPoint(std::string_view native) {
    return std::ranges::any_of(
        kMountRoots, [native](std::string_view root) { return native.starts_with(root); });
}

// A folder that was given a letter for this run alone is no mount, and is not noted.
void NoteMounts(PlatformSettings& settings, const std::vector<platform::DriveInfo>& drives) {
    for (const platform::DriveInfo& drive : drives) {
        if (!drive.isReady || !IsMountPoint(drive.nativeMount) || drive.path.starts_with('C')) {
            continue;
        }
        const bool hasLetter = std::ranges::any_of(
            settings.drives, [&](const auto& saved) { return saved.second == drive.nativeMount; });
        if (!hasLetter) settings.drives.try_emplace(drive.path.front(), drive.nativeMount);
    }
}

void ForgetGoneMounts(PlatformSettings& settings, const std::vector<platform::DriveInfo>& drives) {
    const auto isThere = [&drives](const std::string& native) {
        return std::ranges::any_of(drives, [&](const platform::DriveInfo& drive) {
            return drive.isReady && drive.nativeMount == native;
        });
    };
    for (auto saved = settings.drives.begin();
         saved != settings.drives.end() && settings.drives.size() > kMostDrives;) {
        const bool isGone = IsMountPoint(saved->second) && !isThere(saved->second);
        saved = isGone ? settings.drives.erase(saved) : std::next(saved);
    }
}

} // namespace

PlatformSettings ReadPlatformFile(platform::FileSystem& files, std::string_view path,
                                  const platform::Traits& traits) {
    const auto lines = ReadLines(files, path);
    return lines ? ParsePlatformSettings(*lines, UsualSettings(traits)) : UsualSettings(traits);
}

void OpenPlatformFile(Session& session) {
    auto& state = session.state;
    const auto usual = UsualSettings(session.platform.traits);
    const auto lines = ReadLines(session.files(), state.strPlatformFile);
    state.platformSettings = lines ? ParsePlatformSettings(*lines, usual) : usual;
    if (!lines && !IsMissing(lines.error())) state.filesLeftAlone.insert(state.strPlatformFile);
    state.options.intLatestYear = state.platformSettings.latestYear;
    for (const std::string& line : state.platformSettings.unknownLines) {
        LogTimed(session, fmt::format(" {} has a line that is not understood: {}",
                                      state.strPlatformFile, line));
    }
}

void SavePlatformFile(Session& session) {
    auto& state = session.state;
    auto& files = session.files();
    auto& settings = state.platformSettings;
    const auto old = ReadLines(files, state.strPlatformFile);
    if (!old && !IsMissing(old.error())) {
        return TellUnexpected(session, old.error(), "SavePlatformFile", state.strPlatformFile);
    }
    if (state.filesLeftAlone.contains(state.strPlatformFile)) {
        return NoteLeftAlone(session, "SavePlatformFile", state.strPlatformFile);
    }
    const auto drives = files.Drives();
    NoteMounts(settings, drives);
    ForgetGoneMounts(settings, drives);
    settings.latestYear = state.options.intLatestYear;
    const bool isWhole = old && !old->empty() && old->back() == text::kEndMark;
    const PlatformSettings usual = UsualSettings(session.platform.traits);
    if (isWhole && ParsePlatformSettings(*old, usual) == settings) return;
    auto saved = ReplaceTextFile(files, state.strPlatformFile, PlatformSettingsText(settings));
    if (!saved) TellUnexpected(session, saved.error(), "SavePlatformFile", state.strPlatformFile);
}

std::string PathForList(const Session& session, std::string_view drivePath) {
    if (!session.state.platformSettings.listsAreNative) return std::string(drivePath);
    std::string native = session.platform.paths.ToNative(drivePath);
    return native.empty() ? std::string(drivePath) : native;
}

} // namespace tarvix::session
