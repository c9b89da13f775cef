#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvix::actions {
class ActionProgress;
class OutcomeSink;
} // namespace tarvix::actions

namespace tarvix::session {

constexpr int kMultiPathLimit = 1000;

constexpr std::array<const char*, 4> strStructureName{"None", "Drive Mirror", "Folder to Folder",
                                                      "Backup"};

// The buttons of frmAsk, by answer.
enum AskAnswer : std::uint8_t {
    kAskSkip,
    kAskOverwrite,
    kAskRename,
    kAskSkipAll,
    kAskOverwriteAll,
    kAskRenameAll,
    kAskCancel,
    kAskDeleteReplace,
    kAskDeleteReplaceAll,
};

// The buttons of frmOverrideDialog and frmOverrideRecycleFail, by answer.
enum OverrideAnswer : std::uint8_t {
    kOverrideNo,
    kOverrideYes,
    kOverrideNoToAll,
    kOverrideYesToAll,
    kOverrideCancel,
};

// The standing decision on long paths: the buttons of frmAsk259, by answer.
enum PathChoice : std::uint8_t {
    kPathSkip = 0,
    kPathContinue = 1,
    kPathSkipAll = 3,
    kPathContinueAll = 4,
    kPathCancel = 6,
};

// What the action window and its loops keep from routine to routine.
struct ActionState {
    // The request.
    bool blnMove = false;
    bool blnErrorOccurred = false; // a copy or move failed in a way that was recorded
    bool blnStopped = false;       // a rename loop asks to keep the window open
    bool blnRenamed = false;

    // Destinations.
    std::vector<std::string> strMultiPath{""}; // from index 1, no trailing "\"
    int intMultiCount = 1;
    int intMultiIndex = 1;
    std::string strFolderPrefix;
    bool blnNoDestination = false; // of the object in hand
    bool blnRuleFailed = false;    // of any object

    // The object in hand.
    std::int64_t lngIndex = 0;
    std::int64_t lngAskIndex = 0;
    std::string strDestination;
    std::string strDirResult; // empty: no duplicate
    bool blnDestIsFile = false;
    std::string strPrefix;
    std::string strExtension;
    bool blnDuplicateRename = false; // a destination is computed again for a new name

    // Special Rule.
    bool blnRuleHasReplacement = false;
    bool blnRuleHasSearchSet = false;
    std::vector<int> intRulePosition{0}; // from index 1
    int intSetStart = 0;
    int intSetLength = 0;
    std::string strSearchSetText;
    std::string strFailedPosition;
    std::string strLastFailedSearch;
    int intRuleNoFolder = 0;
    int intRuleOk = 0;
    int intRuleShortSearch = 0;
    int intRuleShortReplace = 0;

    // Copy and move.
    bool blnPathNotFoundTried = false;
    bool blnFolderAlreadyThere = false;
    bool blnFolderCreated = false;
    bool blnPlaced = false;               // the last copy or move did its work
    std::vector<std::string> strCDDrives; // "E:"; attributes are never written there
    std::string strPlacedAt;              // where it then stands
    bool blnPlacedByMove = false;
    bool blnProtected = false;            // it was left alone since it is hidden or a system object
    bool blnDiskFull = false;             // the loop ended since nothing more would fit
    actions::OutcomeSink* sink = nullptr; // follows the action object by object
    actions::ActionProgress* progress = nullptr; // of the loop that runs

    // Answers that stand.
    std::uint8_t bytAskAnswer = kAskSkip;
    std::uint8_t bytOverrideAnswer = kOverrideNo;
    std::uint8_t bytRecycleAnswer = kOverrideNo;
    bool blnSystemHiddenWarned = false; // for the whole run
};

} // namespace tarvix::session
