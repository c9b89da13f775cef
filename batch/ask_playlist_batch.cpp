#include "batch/ask_playlist_batch.h"

#include "batch/ask_move_batch.h"
#include "results/net_hood.h"
#include "session/prompt_id.h"
#include "session/prompt_service.h"
#include "session/session.h"
#include "text/paths.h"

namespace tarvix::batch {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kLocalNotice =
    "Make sure you have the main results list sorted properly, BEFORE running this!\r\n\r\n"
    "The default sort is object name alphabetical, unless it is changed in options. It's the "
    "current sort that matters.\r\n\r\n"
    " Make sure you have selected 'files' and you have set 'Include Subfolders' as you like. For "
    "playlists without a path you MUST not include subfolders. \r\n\r\n"
    "Destination of the playlist is always the folder being searched in this menu option.\r\n\r\n"
    "Each 'Search For' entry will be searched and generated for each destination in the "
    "destination file.\r\n\r\n"
    "You have the choice of Full Path or Local format for the playlist.\r\n\r\n"
    "Then each playlist file name will be: (search entry)_(timeindex).m3u - minus wildcards and "
    "dot.\r\n\r\n"
    "For playlist comments to work (but are not required) :\r\n"
    "There can be no wild cards in ANY (playlist) search and destination files! (*EOF "
    "required)\r\n\r\n"
    "The next menu option:\r\n"
    "Uses a single destination folder, search folder is not changed, and always a full path "
    "playlist file is generated.";

constexpr std::string_view kFullNotice =
    "Make sure you have the main results list sorted properly, BEFORE running this!\r\n"
    "The default sort is by object name alphabetical.\r\n\r\n"
    "Make sure the search folder(s) is/are shown in 'Search Location(s)' box, BEFORE running "
    "this!\r\n\r\n"
    "Make sure you have selected 'files' and you have set 'Include Subfolders' as you like.\r\n\r\n"
    "In order for playlist comments to work (playlist comments are not required) : \r\n"
    "There can be no wild cards in ANY (playlist) search and destination files! (Except *EOF "
    "required)\r\n\r\n"
    "This option uses a single destination, search folder is not changed, and always a full path "
    "playlist file is generated.";

void LogDuplicates(Session& session) {
    session::LogTimed(session,
                      " Program selected to rename all duplicates for all search and moves.");
}

std::optional<PlaylistBatch> AskLocal(Session& session, const PickedList& searches) {
    const auto folders =
        PickList(session, {"Destination", PromptId::kPickDestinationList, ListMarks::kEnd,
                           RoutineOf(PlaylistPlace::kInEachFolder)});
    if (!folders) return {};
    LogDuplicates(session);
    const int answer = session.MsgBox(PromptId::kPlaylistsForm,
                                      "Do you want a local(Yes) or full path playlist (No)?");
    return PlaylistBatch{.searchList = searches.path,
                         .folderList = folders->path,
                         .writesFullPaths = answer == session::kNo};
}

std::optional<PlaylistBatch> AskFull(Session& session, const PickedList& searches) {
    const std::string picked = session.PickFolder(PromptId::kPickPlaylistFolder);
    if (picked.empty()) return {};
    LogDuplicates(session);
    return PlaylistBatch{
        .searchList = searches.path,
        .folder = std::string(text::StripTrailingSlash(results::ResolveNetHood(session, picked))),
        .writesFullPaths = true};
}

} // namespace

std::string_view RoutineOf(PlaylistPlace place) {
    return place == PlaylistPlace::kInOneFolder ? "mnuTools_AutomatedPlayListGen_Full_Click"
                                                : "mnuTools_AutomatedPlayListGen_Click";
}

std::optional<PlaylistBatch> AskPlaylistBatch(Session& session, PlaylistPlace place) {
    const bool isFull = place == PlaylistPlace::kInOneFolder;
    session.MsgBox(isFull ? PromptId::kPlaylistsFullNotice : PromptId::kPlaylistsLocalNotice,
                   isFull ? kFullNotice : kLocalNotice);
    const auto searches = PickList(
        session, {"Search", PromptId::kPickPlaylistSearches, ListMarks::kEnd, RoutineOf(place)});
    if (!searches) return {};
    session.state.strBatchFile = text::FileNameOf(searches->path);
    return isFull ? AskFull(session, *searches) : AskLocal(session, *searches);
}

} // namespace tarvix::batch
