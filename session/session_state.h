#pragma once

#include "session/left_out.h"
#include "session/object_loop.h"
#include "session/settings/options.h"
#include "session/settings/platform_settings.h"
#include "session/unread.h"
#include "text/dates.h"

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace tarvix::session {

constexpr std::int64_t kObjectLimit = 250'000;

// The standing decision on long paths: the buttons of frmAsk259, by answer.
enum PathChoice : std::uint8_t {
    kPathSkip = 0,
    kPathContinue = 1,
    kPathSkipAll = 3,
    kPathContinueAll = 4,
    kPathCancel = 6,
};

// What a batch asks of the action window, which then runs without a user.
struct BatchRequest {
    std::string strDestination;
    bool blnOverwrite = false; // the first that is set counts
    bool blnSkip = false;
    bool blnAsk = false;
    bool blnRename = false;
    bool blnStepFailed = false;
    std::string strWrong; // why, in a sentence
};

// What the last action did, object by object.
struct ActionTotals {
    std::int64_t done = 0;
    std::int64_t deleted = 0; // of the done, those that are gone for good
    std::int64_t skipped = 0;
    std::int64_t duplicates = 0; // of the skipped
    std::int64_t unchanged = 0;  // of the skipped, those that were as they should be
    std::int64_t failed = 0;
    std::int64_t wanted = 0;     // objects, at all of their places
    std::int64_t copiedOnly = 0; // of the done, those that were to be moved but still stand
    std::int64_t keptApart = 0;  // of the done, those that got a new name beside one of this run
    std::int64_t leftParts = 0;  // of copies of ended runs, that were taken away
    std::vector<std::string> errors; // one sentence for each failed object

    // Whether nothing was left out but by the rule for duplicates or since nothing was to be done,
    // and nothing is done by half.
    bool IsAsAsked() const {
        return failed == 0 && copiedOnly == 0 && skipped == duplicates + unchanged &&
               wanted <= done + skipped;
    }
};

// What the options window sets for this run alone; no file keeps it.
struct RunChoices {
    bool blnAllowMove = false;      // of system and hidden objects, which are else only copied
    bool blnAllowOverwrite = false; // of such objects, unasked
    bool blnAllowDelete = false;    // the same
    // What automatic mode answers for such objects in place of the user, if it may.
    bool blnAllowAutoModeSystemHidden = false;
    std::array<bool, 5> blnAutoPara{}; // by the index of `chkAutoPara`
    bool operator==(const RunChoices&) const = default;
};

// The process-wide variables. Routines read and set them by name.
struct SessionState {
    Options options;
    PlatformSettings platformSettings;
    RunChoices runChoices;
    bool blnColumnsChanged = false; // by the options window, until the list is arranged anew

    // Set at the start.
    std::string strProgramFolder;
    std::string strDataFolder;
    bool blnDataInVirtualStore = false;
    std::string strFDHistoryFile;
    std::string strFSSearchHistoryFile;
    std::string strFSFolderHistoryFile;
    std::string strActionLogFile;
    std::string strErrorLogFile;
    std::string strOptionFile;
    std::string strOptionBackupFile;
    std::string strPlatformFile;
    std::string strTargetPathFile; // where shortcuts are edited as text
    bool blnOptionFileFound = false;
    bool blnOptionFileUnread = false; // it is there but could not be opened, so it is left alone
    int intMaxYear = 0;
    int intOSVersion = 10000;
    bool blnStarShell = false;
    bool blnUnknownShell = false;
    // The time of last use of each row of a box, zero for its fixed rows.
    int intFirstHistoryRow = 0; // of the search locations
    std::vector<text::DateTime> datFolderHistory;
    std::vector<text::DateTime> datSearchHistory;
    std::vector<text::DateTime> datDestHistory;
    bool blnDataUnwritable = false;       // told at the start; nothing is logged or saved
    std::set<std::string> filesLeftAlone; // data files that were not read whole, so not saved
    bool blnLogFailed = false;            // a write to a log; `strLogTrouble` until it is told
    std::string strLogTrouble;
    bool blnStarted = false;
    bool blnEnded = false;

    // Windows and actions.
    std::string strAction;
    std::string strLastForm;
    bool blnPreloadDialog = false;
    bool blnRedoAfterAction = false;
    bool blnRedoNow = false;
    bool blnRepeatRequested = false;
    bool blnActionCancelled = false;
    bool blnRecycling = false;     // only the stop button acts meanwhile
    bool blnStopAction = false;    // takes effect at the next object
    bool blnStopNow = false;       // the same, in the middle of a copy too
    ObjectLoop loop;               // while an action goes from object to object
    bool blnErrorOccurred = false; // an object of the action failed in a way that was recorded
    ActionTotals lastAction;
    // What the report of a Special Rule names; they stay until another takes their place.
    std::string strSearchSetText;
    std::string strFailedPosition;
    std::string strLastFailedSearch;
    bool blnDateWindowClosing = false;

    std::string strRememberedDestination; // offered to the next action
    std::string strPrevAction;            // of the action window when it closed

    // Written files.
    std::string strFileKind;     // "Create Txt", "Create M3u" or "Create MPL"
    std::string strPrevFileKind; // when the action window closed
    std::string strHtmlText = "PN";
    std::vector<std::string> strSearchFolder; // of the last list of locations that was parsed

    // Batches.
    BatchRequest batch;
    bool blnAutoMove = false;
    bool blnAutoPlayList = false;
    bool IsBatch() const { return blnAutoMove || blnAutoPlayList; } // nobody is there to answer
    bool blnAutoPlayListFull = false;
    bool blnAutoPlayListLocal = false;
    bool blnAutoPlayListFullPaths = false;
    std::string strPlaylistFolder;
    bool blnBatchDeleteEmpty = false;
    std::int64_t lngEmptyDeleted = 0; // folders, by the repeat deletion since its start
    bool blnPlayListMode = false;
    std::string strPlaylistName; // of the playlist that is edited: its file name
    std::string strPlaylistPath; // and the whole path
    bool blnEditTargets = false;
    std::string strBatchFile;
    bool blnWebRepeating = false;  // a show of pages has come to the end of its list once
    bool blnPageNotOpened = false; // of a show, since its start

    // One search.
    bool blnErrorPreparingForSearch = false;
    bool blnStopClicked = false;
    bool blnSkipSearch = false;
    bool blnRepeatDeleteEmpty = false;
    bool blnSearching = false;
    bool blnDeepFolderTold = false; // one that was too deep to be searched
    std::int64_t lngSeenFiles = 0;
    std::int64_t lngSeenFolders = 0;
    std::int64_t lngFilesFound = 0;
    std::int64_t lngFoldersFound = 0;
    UnreadList unread;
    LeftOut leftOut;
    bool blnFindsWithoutBox = false; // objects with an attribute that has no box, from then on
    std::int64_t lngGroups = 1;      // of the list; rows stand in no groups when there is one

    // Errors and long paths.
    std::int32_t lngErrNumber = 0;
    std::string strErrDesc;
    std::string strMessage; // the failing routine's name, a blank and a sentence
    int intRecovery = 0;
    std::string strErrorLogOn = "Yes";
    std::uint8_t bytPathChoice = kPathSkip;
    bool blnPathLimitHit = false;

    // The whole run.
    bool blnForeignWarned = false;
    bool blnTrailingWarned = false;
    bool blnSystemHiddenWarned = false;
    int intContextMenuCount = 0; // right clicks on the list
};

} // namespace tarvix::session
