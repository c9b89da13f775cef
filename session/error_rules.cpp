#include "session/error_rules.h"

#include "session/errors.h"

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

constexpr int kNetworkDenied = -2147024831;
constexpr std::string_view kGap = "\r\n\r\n";

constexpr std::array kFileNotFoundLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"File or Folder is most likely already open"},
    ErrorLine{"Or has special attributes or security lock.", ErrorValue::kNone, kGap},
    ErrorLine{"Search folder or destination = ", ErrorValue::kSearchOrDestination},
    ErrorLine{"Path = ", ErrorValue::kPath},
    ErrorLine{"File = ", ErrorValue::kObject, kGap},
    ErrorLine{"Would you like to retry?", ErrorValue::kNone, ""},
};

constexpr std::array kBadNameInSearchLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"Likely you need to put in a CD or make network connection.", ErrorValue::kNone,
              kGap},
    ErrorLine{"Search folder = ", ErrorValue::kSearchOrDestination},
    ErrorLine{"Path = ", ErrorValue::kPath},
    ErrorLine{" File = ", ErrorValue::kObject, kGap},
    ErrorLine{"Or you do not have security access to this folder or file", ErrorValue::kFileSystem},
    ErrorLine{"If it's a network location a net device or pc may be turned off."},
    ErrorLine{"also possible another program may have moved, deleted or renamed it.",
              ErrorValue::kNone, kGap},
    ErrorLine{"Would you like to retry?", ErrorValue::kNone, ""},
};

constexpr std::array kBadNameInDialogLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"You may not have selected an existing folder or file."},
    ErrorLine{"Or you may be attempting to create a file that has the same name "},
    ErrorLine{"as an existant share that is a drive.", ErrorValue::kNone, kGap},
    ErrorLine{"Destination = ", ErrorValue::kSearchOrDestination},
    ErrorLine{"Path = ", ErrorValue::kPath},
    ErrorLine{" File = ", ErrorValue::kObject, kGap},
    ErrorLine{"Likely you need to put in a CD or make network connection."},
    ErrorLine{"If it's a network location a net device or pc may be turned off.", ErrorValue::kNone,
              ""},
};

constexpr std::array kPermissionLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"Permission denied on ", ErrorValue::kObject, ""},
    ErrorLine{" or ", ErrorValue::kSearchOrDestination, ""},
    ErrorLine{" action not performed.", ErrorValue::kNone, kGap},
    ErrorLine{"If action was copy folder\\\\file most likely open."},
    ErrorLine{"Also write to device/folder may not be allowed."},
    ErrorLine{"ex. CD/DVD device or full or write protected.", ErrorValue::kNone, ""},
};

constexpr std::array kPathNotFoundLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"Folder or drive: ", ErrorValue::kDestFolder},
    ErrorLine{"or ", ErrorValue::kTypedObject},
    ErrorLine{" is not valid."},
    ErrorLine{"Or its a folder that contains objects whose path length exceed 259 characters.",
              ErrorValue::kNone, ""},
};

constexpr std::array kNetworkLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"I have seen this error when attempting to write to a CD on a network.",
              ErrorValue::kNone, kGap},
    ErrorLine{"Search folder = ", ErrorValue::kSearchOrDestination},
    ErrorLine{"Path = ", ErrorValue::kPath},
    ErrorLine{" File = ", ErrorValue::kObject, kGap},
    ErrorLine{"If it's a network location a net device or pc may be turned off.", ErrorValue::kNone,
              ""},
};

// ---- the same where they are not true ----

constexpr std::array kFileGoneLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"", ErrorValue::kReason, kGap},
    ErrorLine{"It may have been moved, renamed or deleted meanwhile."},
    ErrorLine{"Search folder or destination: ", ErrorValue::kSearchOrDestination, kGap},
    ErrorLine{"Would you like to retry?", ErrorValue::kNone, ""},
};

constexpr std::array kUnreadableLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"", ErrorValue::kReason, kGap},
    ErrorLine{"The medium may have been taken out, or the network share be away."},
    ErrorLine{"Search folder: ", ErrorValue::kSearchOrDestination},
    ErrorLine{"Path: ", ErrorValue::kPath, kGap},
    ErrorLine{"Would you like to retry?", ErrorValue::kNone, ""},
};

constexpr std::array kUnwritableLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"", ErrorValue::kReason, kGap},
    ErrorLine{"Object: ", ErrorValue::kPath},
    ErrorLine{"Destination: ", ErrorValue::kSearchOrDestination, ""},
};

constexpr std::array kRefusedLines{
    ErrorLine{"", ErrorValue::kNone, kGap},
    ErrorLine{"", ErrorValue::kReason, kGap},
    ErrorLine{"Object: ", ErrorValue::kObject},
    ErrorLine{"Search folder or destination: ", ErrorValue::kSearchOrDestination, ""},
};

struct TrueLines {
    int number;
    std::string_view moduleName;
    std::span<const ErrorLine> lines;
};

constexpr std::array kTrueLines{
    TrueLines{platform::kFileNotFound, "", kFileGoneLines},
    TrueLines{platform::kBadFileName, "frmSearch", kUnreadableLines},
    TrueLines{platform::kBadFileName, "frmDialog", kUnwritableLines},
    TrueLines{platform::kPermissionDenied, "", kRefusedLines},
    TrueLines{platform::kPathNotFound, "frmDialog", kUnwritableLines},
};

constexpr std::array kRules{
    ErrorRule{.number = platform::kFileNotFound,
              .moduleName = "",
              .asks = ErrorPrompt::kUnlessAuto,
              .prompt = PromptId::kFileNotFound,
              .lines = kFileNotFoundLines,
              .recovery = kRecoverySkip,
              .affirmed = kRecoveryRetry,
              .dismissed = 6},
    ErrorRule{.number = platform::kBadFileName,
              .moduleName = "frmSearch",
              .asks = ErrorPrompt::kUnlessSkipped,
              .prompt = PromptId::kBadNameInSearch,
              .lines = kBadNameInSearchLines,
              .recovery = kRecoverySkip,
              .affirmed = kRecoveryRetry,
              .unread = kRecoverySkipUnread},
    ErrorRule{.number = platform::kBadFileName,
              .moduleName = "frmDialog",
              .asks = ErrorPrompt::kUnlessAuto,
              .prompt = PromptId::kBadNameInAction,
              .lines = kBadNameInDialogLines,
              .recovery = kRecoveryLeave},
    ErrorRule{.number = platform::kPermissionDenied,
              .moduleName = "",
              .asks = ErrorPrompt::kUnlessAuto,
              .prompt = PromptId::kPermissionDenied,
              .lines = kPermissionLines,
              .recovery = kRecoverySkip,
              .affirmed = kRecoveryRetry},
    ErrorRule{.number = platform::kPathFileAccess, .moduleName = "", .recovery = kRecoverySkip},
    ErrorRule{.number = platform::kPathNotFound,
              .moduleName = "frmDialog",
              .asks = ErrorPrompt::kUnlessAuto,
              .prompt = PromptId::kPathNotFound,
              .lines = kPathNotFoundLines,
              .recovery = kRecoverySkip},
    ErrorRule{.number = platform::kPathNotFound, .moduleName = "", .recovery = kRecoverySkip},
    ErrorRule{.number = kNetworkDenied,
              .moduleName = "",
              .asks = ErrorPrompt::kUnlessAuto,
              .prompt = PromptId::kNetworkDenied,
              .lines = kNetworkLines,
              .recovery = kRecoverySkip},
};

} // namespace

const ErrorRule* FindErrorRule(int number, std::string_view moduleName) {
    const auto found = std::ranges::find_if(kRules, [&](const ErrorRule& rule) {
        return rule.number == number && (rule.moduleName.empty() || rule.moduleName == moduleName);
    });
    return found == kRules.end() ? nullptr : &*found;
}

std::span<const ErrorLine> LinesOf(const ErrorRule& rule, bool hasNativePaths) {
    const auto found = std::ranges::find_if(kTrueLines, [&](const TrueLines& lines) {
        return lines.number == rule.number && lines.moduleName == rule.moduleName;
    });
    return hasNativePaths && found != kTrueLines.end() ? found->lines : rule.lines;
}

} // namespace tarvix::session
