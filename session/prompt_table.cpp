#include "session/prompt_table.h"

#include "session/prompt_service.h"

#include <array>

namespace tarvix::session {

namespace {

using Id = PromptId;
using Role = PromptRole;

constexpr std::string_view kTitle = "Tarvix";
constexpr std::string_view kLoadPlayList = "Load PlayList to Delete and Rename Duplicates";

constexpr PromptFacts Message(Id id, Role role, int style, std::string_view title = kTitle) {
    return {id, PromptKind::kMessage, role, style, title, ""};
}
constexpr PromptFacts Notice(Id id, int icon = 0, std::string_view title = kTitle) {
    return Message(id, Role::kNotice, kOkOnly + icon, title);
}
constexpr PromptFacts Modal(Id id, Role role, std::string_view form) {
    return {id, PromptKind::kForm, role, 0, "", form};
}
constexpr PromptFacts FolderPicker(Id id, std::string_view title) {
    return {id, PromptKind::kFolder, Role::kDecision, 0, title, ""};
}
constexpr PromptFacts FilePicker(Id id, std::string_view title) {
    return {id, PromptKind::kFile, Role::kDecision, 0, title, ""};
}

constexpr PromptFacts NewFilePicker(Id id, std::string_view title) {
    return {id, PromptKind::kNewFile, Role::kDecision, 0, title, ""};
}
constexpr PromptFacts Input(Id id, std::string_view title = "") {
    return {id, PromptKind::kInput, Role::kDecision, 0, title, ""};
}

constexpr auto kPrompts = std::to_array<PromptFacts>({
    Modal(Id::kWelcome, Role::kFirstRun, "frmWelcome"),
    Message(Id::kFirstRunWarning, Role::kFirstRun, kCritical),
    Message(Id::kOfferGeneralInformation, Role::kFirstRun, kYesNo),
    Message(Id::kOfferAdvancedFunctions, Role::kFirstRun, kYesNo),
    Message(Id::kOptionsBackedUp, Role::kFirstRun, kOkOnly),
    Message(Id::kHistoryDamaged, Role::kDecision, kYesNo + kQuestion),
    Notice(Id::kDataFolderUnwritable, kExclamation),
    Notice(Id::kWindowTooSmall),

    Message(Id::kFileNotFound, Role::kTryAgain, kYesNo + kExclamation + kSecondDefault,
            "File not found"),
    Message(Id::kBadNameInSearch, Role::kTryAgain, kYesNo + kExclamation + kSecondDefault,
            "Bad File or Folder Name"),
    Notice(Id::kBadNameInAction, kExclamation, "Bad File or Folder Name"),
    Message(Id::kPermissionDenied, Role::kTryAgain, kRetryCancel + kExclamation,
            "Permission denied"),
    Notice(Id::kPathNotFound, kExclamation, "Path not found"),
    Notice(Id::kNetworkDenied, kExclamation, "Automation error - Network access is denied"),
    Notice(Id::kUnexpectedError, kCritical, "Client Error Message"),
    Notice(Id::kOutsideError),
    Notice(Id::kEndMarkMissing),
    Notice(Id::kErrorLogNotKept),
    Notice(Id::kLogUnwritable, kExclamation),

    FilePicker(Id::kPickLog, "Select Action Log file."),
    Notice(Id::kListUnreadable, kExclamation),

    FolderPicker(Id::kPickLocation, "Select folder"),
    FilePicker(Id::kPickPathList, "Select Multiple Path List"),
    Notice(Id::kLocationReplaced),
    Notice(Id::kLocationsWrong, 0, "ParseSearchFolder"),
    Notice(Id::kSearchTooLong),
    Notice(Id::kFirstSizeInvalid),
    Notice(Id::kSecondSizeInvalid),
    Notice(Id::kSizesReversed),
    Notice(Id::kSizeChoiceInvalid),
    Notice(Id::kSizeTooHigh),
    Modal(Id::kSelectDate, Role::kWindow, "frmSelectDate"),
    Notice(Id::kDateInvalid),
    Notice(Id::kDatesReversed),
    Notice(Id::kDateChoiceInvalid),
    Notice(Id::kDateTypeInvalid),
    Message(Id::kStringsOverlap, Role::kDecision, kYesNo + kQuestion + kSecondDefault),
    Notice(Id::kNotTurnedOff),
    Modal(Id::kForeignName, Role::kNotice, "frmForChar"),
    Modal(Id::kTrailingSpaces, Role::kNotice, "frmTrailingSp"),
    Modal(Id::kFakeFolder, Role::kNotice, "frmAllUsers"),
    Notice(Id::kObjectLimitReached),
    Modal(Id::kUnreadObjects, Role::kWindow, "frmUnread"),
    Modal(Id::kRuns, Role::kWindow, "frmRuns"),
    Message(Id::kRepeatDelete, Role::kDecision, kYesNo + kCritical + kSecondDefault),
    Message(Id::kRepeatDeleteSure, Role::kDecision, kYesNo + kCritical + kSecondDefault),
    Notice(Id::kRepeatDeleteDone),
    Notice(Id::kRepeatDeleteStuck),

    Modal(Id::kActionWindow, Role::kWindow, "frmDialog"),
    Notice(Id::kNothingSelected),
    Message(Id::kFoldersWithContents, Role::kGoOn, kOkCancel + kExclamation + kSecondDefault),
    FolderPicker(Id::kPickDestination, "Select folder"),
    Message(Id::kDestinationTooLong, Role::kGoOn, kOkCancel + kCritical),
    Notice(Id::kDestinationUnshortened, kCritical),
    Notice(Id::kDestinationReplaced),
    Notice(Id::kDestinationMissing),
    Notice(Id::kDestinationIsFile),
    Notice(Id::kDestinationHasMarks),
    Notice(Id::kDestinationNoPath),
    Notice(Id::kDestinationRefuses, kExclamation),
    Notice(Id::kNamePartInvalid),
    Notice(Id::kDestinationOneCharacter),
    Notice(Id::kFirstPlaceUnshortened, kCritical),
    Notice(Id::kFolderTreeMissing),
    Notice(Id::kFolderNamesMissing),
    Notice(Id::kRenameTextMissing),
    Notice(Id::kRuleInvalid),
    Notice(Id::kTextFileInvalid),
    Notice(Id::kTextFileIsFolder),
    Notice(Id::kFoldersPlaceInvalid),
    Notice(Id::kFoldersPlaceIsFile),
    Notice(Id::kSourceFileMissing),
    Message(Id::kConfirmCopyOrMove, Role::kConfirmation, kOkCancel + kInformation),
    Message(Id::kConfirmCopyOrMoveWarned, Role::kGoOn, kOkCancel + kInformation),
    Message(Id::kConfirmWrite, Role::kConfirmation, kOkCancel + kInformation),
    Message(Id::kConfirmRename, Role::kConfirmation, kOkCancel + kInformation),
    Message(Id::kConfirmDelete, Role::kConfirmation, kYesNo),
    Message(Id::kConfirmDeleteWarned, Role::kGoOn, kYesNo),
    Notice(Id::kAutomaticModeOff),
    Notice(Id::kPreviewRefused, kExclamation, "Preview"),
    Modal(Id::kPreview, Role::kWindow, "frmPreview"),

    Modal(Id::kDuplicate, Role::kDecision, "frmAsk"),
    Modal(Id::kAskLongPath, Role::kDecision, "frmAsk259"),
    Modal(Id::kOverrideProtected, Role::kDecision, "frmOverrideDialog"),
    Modal(Id::kOverrideRecycleFailure, Role::kDecision, "frmOverrideRecycleFail"),
    Notice(Id::kProtectedCopied),
    Message(Id::kDuplicateNotRecycled, Role::kTryAgain, kRetryCancel + kExclamation,
            "Permission denied"),
    Notice(Id::kOverwriteNotRecycled),
    Notice(Id::kOverwriteNotUndone),
    Notice(Id::kMoveNeverOverwrites),
    Notice(Id::kReplaceOverlaps),
    Notice(Id::kWriteOverlaps),
    Notice(Id::kObjectUnshortened, kCritical),
    Notice(Id::kDuplicateUnshortened, kCritical),
    Notice(Id::kDeepFolder),
    Notice(Id::kRuleColon, kCritical),
    Notice(Id::kRenameEmpty),
    Notice(Id::kRenameNoName),
    Notice(Id::kRenameTaken),
    Message(Id::kRenameTakenGoOn, Role::kGoOn, kOkCancel),
    Message(Id::kChangedSinceSearch, Role::kDecision, kYesNo + kExclamation + kSecondDefault),
    Message(Id::kOfferErrorLog, Role::kDecision, kYesNo),
    Notice(Id::kRuleReport),

    Notice(Id::kTitleNote),
    Notice(Id::kPrefixNote),
    FilePicker(Id::kPickNameList, "Select the list of names."),
    FilePicker(Id::kPickPrefixList, "Select the list of prefixes."),
    FilePicker(Id::kPickLinkPage, "Select the Html file."),
    Notice(Id::kSourceGone),
    Notice(Id::kSourceUnreadable),
    Notice(Id::kSourceMarkMissing),
    Notice(Id::kSourceEmpty),
    Notice(Id::kNothingToSearch),
    Notice(Id::kNamesUnusable, kExclamation),
    Notice(Id::kNamesUsedUp),
    Notice(Id::kNamesEnded),

    NewFilePicker(Id::kNewPathListFile, "MPL File to create."),
    NewFilePicker(Id::kNewPlaylistFile, "Playlist File to create."),
    NewFilePicker(Id::kNewTextFile, "Text File to create."),
    NewFilePicker(Id::kNewTargetFile, "Target Path List File to create."),
    NewFilePicker(Id::kNewPageFile, "HTML File to create."),
    NewFilePicker(Id::kNewLocationsFile, "MPL File to create."),
    NewFilePicker(Id::kNewNumbersFile, "Numeric Increment File to create."),
    Input(Id::kPageText, "TEXT"),
    Notice(Id::kPageFolderMissing),
    Notice(Id::kListUnshortened, kCritical),
    Notice(Id::kListLeftOut, kInformation),
    FolderPicker(Id::kPickDuplicateFolder, "Select folder for duplicate search."),
    Notice(Id::kSimilarUnreadable, kExclamation),
    Input(Id::kNumberStart),
    Input(Id::kNumberEnd),
    Input(Id::kNumberSameLength),
    Input(Id::kNumberFormat),
    Input(Id::kNumberLine),
    Notice(Id::kNumberInvalid),
    Notice(Id::kNumbersCanceled),
    Modal(Id::kNumberPlan, Role::kDecision, "frmNumbers"),

    Message(Id::kLoadPlayListFirst, Role::kGoOn, kOkCancel, kLoadPlayList),
    Message(Id::kLoadPlayListThen, Role::kGoOn, kOkCancel, kLoadPlayList),
    FilePicker(Id::kPickPlayList, "Select PlayList."),
    Notice(Id::kPlayListMissing),
    Notice(Id::kPlayListTaken, kExclamation),
    Notice(Id::kRebuildPlayList, 0, "Rebuild playlist"),

    Notice(Id::kFoldersPlaceMissing),
    FilePicker(Id::kPickFolderNames, "Browse for text file listing New Folder names."),
    Notice(Id::kFolderNamesUnusable),
    Input(Id::kFoldersKind),
    Input(Id::kFoldersStart),
    Input(Id::kFoldersCount),
    Input(Id::kFoldersFirst),
    Input(Id::kFoldersLast),
    Notice(Id::kFoldersAnswerInvalid),
    Notice(Id::kFoldersCanceled),
    Notice(Id::kFoldersNotMade, kExclamation),

    Notice(Id::kShortcutMissing),
    Modal(Id::kShortcutWarning, Role::kDecision, "frmShortcutWarning"),
    Notice(Id::kLinkEditFailed),
    Notice(Id::kNoLinksToEdit),
    Modal(Id::kLinkTable, Role::kWindow, "frmLinkTable"),
    Message(Id::kConfirmLinkChanges, Role::kDecision, kYesNo),
    Modal(Id::kLinkChanges, Role::kDecision, "frmLinkChanges"),
    Notice(Id::kLinkFileMissing),
    Notice(Id::kLinkFileWrong),
    Notice(Id::kLinkPathUnusable),
    Notice(Id::kHotKeyBracket),
    Notice(Id::kLinksNotSaved, kExclamation),

    Notice(Id::kBatchMoveNotice, 0, "Automated Move"),
    FilePicker(Id::kPickSearchList, "Select automated search list file."),
    FilePicker(Id::kPickDestinationList, "Select automated destination list file."),
    Message(Id::kListMarkMissing, Role::kDecision, kOkCancel, "Missing *EOF, add or cancel?"),
    Input(Id::kBatchDuplicates, "What to do with duplicates."),
    Notice(Id::kBatchCancelled),
    Notice(Id::kBatchListsDiffer),
    Input(Id::kBatchThenFiles),
    Input(Id::kBatchEmptyFolders),
    Message(Id::kConfirmBatchMove, Role::kConfirmation, kYesNo, "Automated Move"),
    Notice(Id::kBatchMoveEnded),
    Modal(Id::kBatchTable, Role::kWindow, "frmBatch"),
    Notice(Id::kPlaylistsLocalNotice, 0, "Automated PlayList Generator - Local (in each folder)"),
    Notice(Id::kPlaylistsFullNotice, 0,
           "Automated PlayList Generator - Full Path (all in one folder)"),
    FilePicker(Id::kPickPlaylistSearches, "Select automated search for list file."),
    FolderPicker(Id::kPickPlaylistFolder, "Select PlayList destination folder."),
    Message(Id::kPlaylistsForm, Role::kDecision, kYesNo, "Automated Playlist Gen"),
    Message(Id::kConfirmPlaylists, Role::kConfirmation, kYesNo, "Automated Playlist Gen"),
    Notice(Id::kPlaylistsEnded),

    Notice(Id::kPagesNotice),
    Input(Id::kPagesSeconds, "Number of seconds for the web page to display"),
    Notice(Id::kPagesSecondsInvalid),
    Input(Id::kPagesSize, "Size of web page window."),
    Notice(Id::kPagesSizeInvalid),
    Notice(Id::kPagesCanceled),
    FilePicker(Id::kPickPages, "Select Website list file"),
    Notice(Id::kPagesEmpty),
    Notice(Id::kPageNotOpened, kExclamation),

    Notice(Id::kNotOpened, kExclamation),
    Notice(Id::kMediaCount),
    Notice(Id::kForceNeedsPlayer),
    Notice(Id::kPlayerNotStarted, kExclamation),
    Notice(Id::kNotPlayed),
    Notice(Id::kViewCount),
    Notice(Id::kEditorNotStarted, kExclamation),
    Notice(Id::kHexEditorMissing),
    Notice(Id::kRunCount),
    Notice(Id::kNotAProgram),
    Message(Id::kRunForeign, Role::kDecision, kYesNo + kQuestion + kSecondDefault, "Run a Program"),
    Notice(Id::kProgramNotStarted, kExclamation),
    Notice(Id::kParentCount),
    Notice(Id::kParentNotOpened, kExclamation),
    Notice(Id::kSystemFacts, kInformation, "System Information"),
    Notice(Id::kSystemFactsMissing),

    Notice(Id::kContextMenuWarning, kCritical),
    Modal(Id::kContextMenu, Role::kWindow, "frmContextMenu"),
    Modal(Id::kOpenWith, Role::kWindow, "frmOpenWith"),
    Notice(Id::kMenuNotDone, kExclamation),
    Message(Id::kActionNotTrusted, Role::kDecision, kYesNo + kExclamation + kSecondDefault),
    Modal(Id::kOptionsWindow, Role::kWindow, "frmOptions"),
    Notice(Id::kColumnsAdded),
    Notice(Id::kWebTimeNotNumeric),
    Notice(Id::kWebTimeOutOfRange),
    Notice(Id::kOptionInvalid, kExclamation),
    FolderPicker(Id::kPickDefaultFolder, "Select folder"),
    FolderPicker(Id::kPickDriveFolder, "Select folder"),

    NewFilePicker(Id::kNewScript, "Record a Script"),
    FilePicker(Id::kPickScript, "Run a Script"),
    Notice(Id::kScriptTold),
});

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < kPrompts.size(); ++i) {
        if (kPrompts[i].id != static_cast<Id>(i)) return false;
    }
    return true;
}

static_assert(kPrompts.size() == static_cast<std::size_t>(Id::kEnd), "a prompt has no row");
static_assert(IsInOrder(), "the rows stand in the order of the ids");

} // namespace

std::span<const PromptFacts> AllPrompts() {
    return kPrompts;
}

const PromptFacts& FactsOf(PromptId id) {
    return kPrompts[static_cast<std::size_t>(id)];
}

} // namespace tarvix::session
