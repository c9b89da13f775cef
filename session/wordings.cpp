#include "session/wordings.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "text/dates.h"
#include "text/format.h"

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

struct Words {
    Wording wording;
    std::string_view told;
    std::string_view here;
};

constexpr std::array<Words, static_cast<std::size_t>(Wording::kEnd)> kWords{{
    {Wording::kFirstRun,
     "WARNING - Using this program carelessly can make your computer not function if used "
     "improperly!!!\r\n\r\n"
     "It gives you the power to rearrange ALMOST ANY file on your pc including Windows system "
     "files.\r\n\r\n"
     "Be sure to read the section labeled 'Who is Tarvix for?' in help(F1).\r\n\r\n"
     "I recommend reading 'Advanced Functions List' in the help menu fully to begin to "
     "understand. That will explain all the changes I made during development and some the "
     "dangers.\r\n\r\n"
     "1. Do not turn on Expert Mode in Option until you have a strong understanding of "
     "Windows.\r\n"
     "2. Work with files in your Documents folder. (Default search folder).\r\n"
     "3. Backup everything until you have firm understanding of the use of Tarvix. In fact ALWAYS "
     "backup everything.\r\n"
     "I offer no guarantees, results are ENTIRELY based on your actions.\r\n\r\n"
     "The help file will now open.",
     "Tarvix finds files by rule and acts on many of them at once: you say what to find and where, "
     "every match stands in one list, and all that you select there is copied, moved, renamed or "
     "sent to the trash in one go.\r\n\r\n"
     "So look before you act: Preview in the action window shows for each object what would "
     "happen, and changes nothing. What you delete, and what is overwritten, lies in the trash, "
     "from which your file manager brings it back. The action log (Tools) tells what was "
     "done.\r\n\r\n"
     "Begin with a folder of which you have a copy. F1 opens the guide at any time."},
    {Wording::kWindowTooSmall,
     " Tarvix is ending as it is to large for this screen size.\r\n\r\n"
     "800x549 is minimun size required.\r\n\r\n"
     "Recomend changing settings or turning off any screen partitioning software.\r\n\r\n"
     "1680x1050 or 1600x1200, both work great for tiling Tarvix 2x2.",
     "Tarvix ends, since this screen has too little room for its window, which needs 800x549 "
     "pixels.\r\n\r\nA higher resolution or a smaller scale in the display settings makes room."},
    {Wording::kReallyDelete,
     "ARE YOU REALLY SURE???\r\n\r\nDeleting at least one folder and many files with include "
     "subfolders selected, may have unexpected results!\r\n\r\nFiles with HIDDEN or SYSTEM "
     "Attributes may get DELETED with out single file warnings!\r\n\r\nAlso when deleting files "
     "across a network or a usb drive, they will NOT be placed in the recycle bin'\r\n\r\n",
     "Folders are selected beside files, and subfolders were searched: a folder goes with all "
     "that it holds, found or not, hidden files too.\r\n\r\n"},
    {Wording::kConfirmDelete,
     "Are you sure you want delete all selected objects?\r\n\r\n"
     "This program will delete read-only objects\r\n\r\n"
     "This program will not allow deletion of system or hidden (files/folders).\r\n"
     "Unless you select to override at the prompt.\r\n\r\n"
     "BUT if you select to delete a folder that contains system or hidden files.\r\n"
     "They will be deleted unless the selected folder has the attribute\r\n"
     "system or hidden set. Again unless you override.\r\n\r\n"
     "Also when deleting objects across a network or a usb drive, they will NOT be placed in the "
     "recycle bin",
     "Are you sure you want to send all selected objects to the trash?\r\n\r\n"
     "Read-only objects go too. You are asked about each hidden or system object that is "
     "selected, not about those that lie in a selected folder.\r\n\r\n"
     "What can't go to a trash, as on some network shares, stays unless you choose to delete it "
     "for good when asked."},
    {Wording::kDestinationTooLong,
     "What is typed into the Destination combo box exceeds 259 characters in length. Some "
     "applications may not be able to work with files so deep in the folder structure. \r\n\r\n"
     "Microsoft says the limit is 250 but they support 259 characters in most situations. Using "
     "the short paths standard that limit CAN be greatly exceeded, but can cause issues.\r\n\r\n "
     "Would you like to continue and attempt to use the short path?",
     "The destination has more than 259 characters, which is the longest path that the setting "
     "LongestPath allows.\r\n\r\nWould you like to continue with shortened names of its folders?"},
    {Wording::kLocationTooShort,
     "Each search folder must be at least 2 characters in length. (example C: or C:Windows)",
     "A search location is the path of a folder, as /home or ~/Music."},
    {Wording::kLocationMissing,
     "This search folder does not exist, it is a file, or it contains multiple environment "
     "variables AND is over 259 characters in length:",
     "This search location does not exist, or is no folder:"},
    {Wording::kBin, "recycle bin", "trash"},
    {Wording::kRecycleButton, "Rec&ycle", "Move to Trash"},
    {Wording::kRecycleAtOnce, "Recycling: Everything selected at once.",
     "Moving all that is selected to the trash."},
    {Wording::kRecycleOrDeleteAtOnce,
     "Recycling or permanently deleting: Everything selected at once.",
     "Moving all that is selected to the trash."},
    {Wording::kRecycleProgress, "Recycling {} of {} objects",
     "Moved {} of {} objects to the trash"},
    {Wording::kRecycleRefused,
     "{}\r\n\r\n failed to be recycled. \r\nWould you like to delete anyway, without going to the "
     "recycle bin?",
     "{}\r\n\r\ncould not go to the trash.\r\n{}\r\n\r\nWould you like to delete it for good? It "
     "can't be brought back then."},
    {Wording::kRecycleRefusedTitle, "Override Recycle Failure?", "Delete for Good?"},
    {Wording::kReplaceRefused,
     "Permission denied on: \r\n\r\n{}\r\n\r\n action not performed.\r\n\r\nWith Recycle and "
     "Replace, object is most likely open, possibly in an application.\r\n\r\nAlso write to "
     "device/folder may not be allowed.\r\n\r\nex. CD/DVD device is write protected.",
     "{}\r\n\r\ncould not go to the trash, so it was not replaced. You may not be allowed to "
     "change its folder, or its medium has no trash or is write protected."},
    {Wording::kRecycleFolderButton, "Rec&ycle this duplicate folder and contents, then replace.",
     "Move this duplicate folder and contents to the trash, then replace."},
    {Wording::kRecycleFoldersButton, "Recyc&le all duplicate folders and contents, then replace.",
     "Move all duplicate folders and contents to the trash, then replace."},
    {Wording::kRecycleFileForFolder, "Recycle duplicate file, then replace with original folder.",
     "Move duplicate file to the trash, then replace with original folder."},
    {Wording::kRecycleFolderForFile, "Recycle duplicate folder, then replace with original file.",
     "Move duplicate folder to the trash, then replace with original file."},
    {Wording::kNotOpened,
     "Unable to find any way to open that file, \r\nThere is most likely missing information in "
     "the registry file.\r\nYou can view this file with notepad, if you select 'view as text' in "
     "the 'run' menu.",
     "No program that is set for such files could open it.\r\nChoose one in the settings of the "
     "desktop, or an Editor in the options of this machine.\r\n'View as File Text' in the Run "
     "menu shows any file as text."},
    {Wording::kForceNeedsPlayer, "You must have loaded VLC player to use this menu option.",
     "VLC isn't installed, and no other Player is set in the options of this machine."},
    {Wording::kNoPlayers,
     "I am only supporting WinAmp for .Mp3, .m3u or .Wav files...skipped.\r\nOr you have not "
     "loaded either VLC or WinAmp players.",
     "These were skipped: a SecondPlayer gets only mp3, m3u and wav files, and no Player was "
     "found.\r\nInstall VLC, or set a Player in the options of this machine."},
    {Wording::kPlayerGone, "VLC is not in expected location.",
     "The program that Player names isn't there: {}\r\nSet another in the options of this machine, "
     "or "
     "empty the box for one that is installed."},
    {Wording::kSecondPlayerGone, "WinAmp is not in expected location.",
     "The program that SecondPlayer names isn't there: {}\r\nSet another in the options of this "
     "machine, or empty the box for one that is installed."},
    {Wording::kHexEditorMissing,
     "You must have this file of the 'Free Hex Editor 1.0.154' to work: \r\n%FrHed%\\FRHED.EXE",
     "No hex editor was found. Install one, such as ghex or okteta, or set a HexEditor in the "
     "options of this machine."},
    {Wording::kNotAProgram, "Must be an .exe file",
     "Must be a program or a script of this machine, or an .exe file"},
    {Wording::kContextMenu,
     "Taking actions with the context menu may change search results.\r\n\r\n"
     "This list will NOT be refreshed, unless you press the search button.\r\n\r\n"
     "Tarvix may ask to update the listview if it suspects the need.\r\n\r\n"
     "Context menu actions on multiple selections, can have unexpected results!\r\n\r\n"
     "This is due to the fact that only one folder at a time can be processed as a multiple "
     "selection context menu action. Instead use the run menu on multiple objects.\r\n\r\n"
     "So as long as every object you select resides in that exact folder multiple selection will "
     "work. \r\n\r\n This will not be fixed in the freeware version. \r\n\r\n"
     "THIS PROMPT WILL NOT BE REPEATED UNTIL THE NEXT RUN OF PROGRAM. \r\n\r\n"
     "You can turn off this warning completely in options. \r\n\r\n"
     "THERE MAY BE PROBLEMS WITH THE CONTEXT MENU IF YOU ARE USING WINDOWS VISTA OR BEYOND.",
     "Taking actions with the context menu may change search results.\r\n\r\n"
     "This list will NOT be refreshed, unless you press the search button. What you cut or move to "
     "the trash is marked in it.\r\n\r\n"
     "Everything that is selected is handed over together, be it in one folder or in "
     "many.\r\n\r\n"
     "This is told once in each run. \"No warning before the context menu\" in the options turns "
     "it "
     "off completely."},
}};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < kWords.size(); ++i) {
        if (kWords[i].wording != static_cast<Wording>(i)) return false;
    }
    return true;
}
static_assert(IsInOrder(), "the rows stand in the order of the wordings");

struct Title {
    PromptId id;
    std::string_view title;
};
constexpr std::array kTitles{
    Title{PromptId::kLocationsWrong, "Search Location(s)"},
    Title{PromptId::kBadNameInSearch, "Can't Be Read"},
    Title{PromptId::kBadNameInAction, "Can't Be Written"},
    Title{PromptId::kPermissionDenied, "Not Done"},
    Title{PromptId::kDuplicateNotRecycled, "Not Replaced"},
    Title{PromptId::kFileNotFound, "Not Found"},
    Title{PromptId::kPathNotFound, "Not Found"},
    Title{PromptId::kNetworkDenied, "Network"},
    Title{PromptId::kUnexpectedError, "Something Went Wrong"},
};

} // namespace

bool SpeaksPlainly(const Session& session) {
    return session.platform.traits.hasNativePaths && session.state.platformSettings.showsNative;
}

std::string_view Told(Wording wording) {
    return kWords[static_cast<std::size_t>(wording)].told;
}

std::string_view Worded(const Session& session, Wording wording) {
    const Words& words = kWords[static_cast<std::size_t>(wording)];
    return SpeaksPlainly(session) ? words.here : words.told;
}

std::string WordedDate(const Session& session, const text::DateTime& date) {
    return SpeaksPlainly(session) ? text::FormatDate(date, "yyyy/mm/dd hh:mm:ss")
                                  : text::DefaultDateText(date);
}

std::string_view WindowTitle(PromptId id, std::string_view title) {
    const auto* const found = std::ranges::find(kTitles, id, &Title::id);
    return found == kTitles.end() ? title : found->title;
}

} // namespace tarvix::session
