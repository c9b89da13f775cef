#pragma once

#include "session/prompt.h"

namespace tarvix::session {

// Every prompt of the program; `session/prompt_table.h` tells what each of them is. Only the last
// one is none.
enum class PromptId : std::uint8_t {
    // Start and end.
    kFirstRunWarning,
    kOfferGeneralInformation,
    kOfferAdvancedFunctions,
    kOptionsBackedUp,
    kHistoryDamaged,
    kDataFolderUnwritable,
    kWindowTooSmall,

    // Errors.
    kFileNotFound,
    kBadNameInSearch,
    kBadNameInAction,
    kPermissionDenied,
    kPathNotFound,
    kNetworkDenied,
    kUnexpectedError,
    kOutsideError,
    kEndMarkMissing,
    kErrorLogNotKept,

    // Logs and lists.
    kPickLog,
    kListUnreadable,

    // A search.
    kPickLocation,
    kPickPathList,
    kLocationReplaced,
    kLocationsWrong,
    kSearchTooLong,
    kFirstSizeInvalid,
    kSecondSizeInvalid,
    kSizesReversed,
    kSizeChoiceInvalid,
    kSizeTooHigh,
    kSelectDate,
    kDateInvalid,
    kDatesReversed,
    kDateChoiceInvalid,
    kDateTypeInvalid,
    kStringsOverlap,
    kNotTurnedOff,
    kForeignName,
    kTrailingSpaces,
    kFakeFolder,
    kObjectLimitReached,
    kRepeatDelete,
    kRepeatDeleteSure,
    kRepeatDeleteDone,
    kRepeatDeleteStuck,

    // The request of an action.
    kActionWindow,
    kNothingSelected,
    kFoldersWithContents,
    kPickDestination,
    kDestinationTooLong,
    kDestinationUnshortened,
    kDestinationReplaced,
    kDestinationMissing,
    kDestinationIsFile,
    kDestinationHasMarks,
    kDestinationOneCharacter,
    kFirstPlaceUnshortened,
    kFolderTreeMissing,
    kFolderNamesMissing,
    kRenameTextMissing,
    kRuleInvalid,
    kTextFileInvalid,
    kTextFileIsFolder,
    kFoldersPlaceInvalid,
    kFoldersPlaceIsFile,
    kSourceFileMissing,
    kConfirmCopyOrMove,
    kConfirmCopyOrMoveWarned,
    kConfirmWrite,
    kConfirmRename,
    kConfirmDelete,
    kConfirmDeleteWarned,
    kAutomaticModeOff,
    kPreviewRefused,
    kPreview,

    // A running action.
    kDuplicate,
    kAskLongPath,
    kOverrideProtected,
    kOverrideRecycleFailure,
    kProtectedCopied,
    kDuplicateNotRecycled,
    kOverwriteNotRecycled,
    kOverwriteNotUndone,
    kMoveNeverOverwrites,
    kReplaceOverlaps,
    kWriteOverlaps,
    kObjectUnshortened,
    kDuplicateUnshortened,
    kDeepFolder,
    kRuleColon,
    kRenameEmpty,
    kRenameTaken,
    kRenameTakenGoOn,
    kOfferErrorLog,
    kRuleReport,

    // Written files.
    kNewPathListFile,
    kNewPlaylistFile,
    kNewTextFile,
    kNewTargetFile,
    kNewPageFile,
    kNewLocationsFile,
    kNewNumbersFile,
    kPageText,
    kPageFolderMissing,
    kListUnshortened,
    kListLeftOut,
    kNumberStart,
    kNumberEnd,
    kNumberSameLength,
    kNumberFormat,
    kNumberLine,
    kNumberInvalid,
    kNumbersCanceled,

    kEnd
};

} // namespace tarvix::session
