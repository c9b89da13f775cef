#include "launch/media.h"

#include "launch/starting_folder.h"
#include "platform/try.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <span>

namespace tarvix::launch {

namespace {

using platform::Result;
using session::Session;
using session::Tool;
using session::ToolKind;

constexpr std::array<std::string_view, 3> kBothPlayers{"mp3", "m3u", "wav"};
constexpr std::array<std::string_view, 11> kFirstPlayer{"mp4",  "avi", "flv",  "mov", "wmv", "3gp",
                                                        "mpeg", "mpg", "rmvb", "ts",  "vob"};
constexpr std::array<std::string_view, 3> kPictures{"jpg", "jpeg", "png"};

// One player of that name takes all files that are ever given to it when it is asked to be one.
constexpr std::string_view kPlaySwitches = "--playlist-enqueue";
constexpr std::string_view kVlc = "vlc"; // where the desktop knows it by its id alone
constexpr std::string_view kEnqueueSwitches = "--one-instance --playlist-enqueue";

bool IsOneOf(std::span<const std::string_view> extensions, std::string_view extension) {
    return std::ranges::find(extensions, extension) != extensions.end();
}

bool FirstTakes(std::string_view extension, MediaWay way) {
    if (way == MediaWay::kForce || IsOneOf(kBothPlayers, extension)) return true;
    return IsOneOf(kFirstPlayer, extension) ||
           (way == MediaWay::kPlay && IsOneOf(kPictures, extension));
}

// Whether a player that runs took the files over the session bus. Another than VLC is played by its
// own command, which may open a window of its own.
Result<bool> GiveToRunning(Session& session, const Tool& player,
                           const std::vector<std::string>& files, MediaWay way) {
    auto& applications = session::ApplicationsOf(session);
    if (way == MediaWay::kPlay) {
        if (!player.IsVlc()) return false;
        return applications.PlayNow(player.command.empty() ? kVlc : player.command, files);
    }
    if (player.IsVlc() || player.command.empty()) return false;
    return applications.Enqueue(player.command, files);
}

Result<void> Give(Session& session, const Tool& player, const std::vector<std::string>& files,
                  MediaWay way) {
    auto& applications = session::ApplicationsOf(session);
    if (files.empty()) return {};
    if (player.IsGone()) {
        const auto wording = player.key == "SecondPlayer" ? session::Wording::kSecondPlayerGone
                                                          : session::Wording::kPlayerGone;
        return platform::Failure(platform::kFileNotFound,
                                 session::Worded(session, wording, player.command));
    }
    const bool enqueues = way != MediaWay::kPlay;
    TX_TRY_ASSIGN(const bool isTaken, GiveToRunning(session, player, files, way));
    if (isTaken) return {};
    std::string_view switches;
    if (player.IsVlc()) switches = enqueues ? kEnqueueSwitches : kPlaySwitches;
    TX_TRY_ASSIGN(const auto plan,
                  session::PlanTool(session, player, files, StartingFolder(session), switches));
    return applications.Start(plan);
}

} // namespace

MediaPlan PlanMedia(Session& session, std::span<const std::string_view> files, MediaWay way) {
    MediaPlan plan{.player = session::FindTool(session, ToolKind::kPlayer),
                   .secondPlayer = session::FindTool(session, ToolKind::kSecondPlayer)};
    const bool hasPlayer = plan.player.isFound || plan.player.IsGone();
    const bool hasSecond = plan.secondPlayer.isFound || plan.secondPlayer.IsGone();
    for (const std::string_view file : files) {
        const std::string extension = text::Lower(text::GetExtension(text::FileNameOf(file)));
        if (hasPlayer && FirstTakes(extension, way)) {
            plan.forPlayer.emplace_back(file);
        } else if (!hasPlayer && hasSecond && IsOneOf(kBothPlayers, extension)) {
            plan.forSecond.emplace_back(file);
        } else {
            plan.skipped.emplace_back(file);
        }
    }
    return plan;
}

Result<void> StartMedia(Session& session, const MediaPlan& plan, MediaWay way) {
    TX_TRY(Give(session, plan.player, plan.forPlayer, way));
    return Give(session, plan.secondPlayer, plan.forSecond, way);
}

std::string SkippedText(const Session& session, const MediaPlan& plan) {
    std::string text;
    for (const std::string& path : plan.skipped)
        text += fmt::format("{}\r\n", session.Shown(path));
    if (text.empty()) return text;
    if (!plan.player.isFound && !plan.player.IsGone()) {
        return text.append(session::Worded(session, session::Wording::kNoPlayers));
    }
    return text.append(fmt::format(
        "I am only supporting {0} for Mp3, m3u, Wav, \r\nmp4, avi, flv, mov, wmv, 3gp, mpeg, mpg, "
        "rmvb, ts, vob, jpg, jpeg, and png files.\r\nUse 'Force VLC to enqueue' menu option if you "
        "are sure you want to try.\r\nYou may have to force {0} to close with the task manager "
        "using that option.",
        plan.player.name));
}

} // namespace tarvix::launch
