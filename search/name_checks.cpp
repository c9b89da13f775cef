#include "search/name_checks.h"

#include "platform/names.h"
#include "session/paths/fake_roots.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::search {

namespace {

constexpr std::string_view kOncePerSession =
    "For this session, you will get no more warnings about names like this.";
constexpr std::string_view kInLog =
    "The warnings are placed in the Action Log, if you have turned it on.";
constexpr std::string_view kAutomatic =
    "Turning on 'Automatic Mode' will stop this message completely.";
constexpr std::string_view kBreak = "\r\n\r\n";
constexpr std::string_view kCarriedStar = "\uF02A";
constexpr std::string_view kCarriedQuestion = "\uF03F";

// Names are compared by the disk's own characters, so that a typed ":" is one. A wildcard that is
// carried is no wildcard.
std::string PatternOf(std::string_view searchString) {
    const std::string escaped = text::EscapeLikeChars(searchString);
    if (!platform::MayHoldCarried(escaped)) return escaped;
    const std::string starred = text::Replace(escaped, kCarriedStar, "[*]");
    return platform::NameToNative(text::Replace(starred, kCarriedQuestion, "[?]"));
}

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) {
        if (!text.empty()) text += kBreak;
        text += line;
    }
    return text;
}

} // namespace

NameMatch::NameMatch(std::string_view searchString, bool isNot)
    : pattern_(PatternOf(searchString), true), isNot_(isNot) {}

bool NameMatch::Fits(std::string_view name) const {
    if (!platform::MayHoldCarried(name)) return pattern_.Matches(name);
    return pattern_.Matches(platform::NameToNative(name));
}

bool IsListable(std::string_view name) {
    return !name.ends_with(' ') && name.find('?') == name.npos;
}

bool IsNameValid(session::Session& session, std::string_view name, std::string_view folder,
                 bool quiet) {
    if (name.find('?') == name.npos) return true;
    if (quiet) return false;
    const std::string found =
        Lines({fmt::format("A file or folder was found in {}.", session.Shown(folder)),
               fmt::format("It contains {} characters in its name. ", text::Length(name)),
               fmt::format("The name is: {}", name),
               "where '?' - represents non-Western Europe character encoding."});
    session::LogTimed(session, fmt::format(" {}", found));
    if (session.state.options.blnAutoMode || session.state.blnForeignWarned) return false;
    auto& form = session.forms.frmForChar;
    const std::string told =
        Lines({found, "This file/folder will be not displayed or included in totals.",
               kOncePerSession, kInLog, kAutomatic});
    form.Caption = fmt::format("Routine IsNameValid - {}", told);
    form.lblMain.Caption = told;
    session.state.blnForeignWarned = true;
    session.ShowModal(session::PromptId::kForeignName);
    return false;
}

void ReportTrailingSpaces(session::Session& session, std::string_view name,
                          std::string_view folder) {
    const std::string found =
        Lines({fmt::format("Skipped: {}", session.Shown(text::Concat({folder, "\\", name}))),
               " as it has trailing spaces in the object name. This is a very "
               "serious error. If you attempt to delete it in Explorer nothing will "
               "happen or worse Explorer will delete the object with the same name "
               "minus the trailing space(s). If this object is a directory, "
               "contents can only be displayed in Explorer if and only if "
               "no object exists with the same name minus the trailing space(s). ",
               "Only solution I know of involves wiping everything off the "
               "partition or drive. Backup everything before you attempt this."});
    if (!session.state.options.blnAutoMode && !session.state.blnTrailingWarned) {
        auto& form = session.forms.frmTrailingSp;
        form.lblMain.Caption = Lines({found,
                                      "For this session, you will get no more warnings about "
                                      "names like this on this form.",
                                      kInLog, kAutomatic});
        session.ShowModal(session::PromptId::kTrailingSpaces);
    }
    session::LogTimed(session, fmt::format(" {}", found));
    session.state.blnTrailingWarned = true;
}

void ReportFakeFolder(session::Session& session, std::string_view path) {
    auto& form = session.forms.frmAllUsers;
    form.lblMain.Caption = fmt::format(
        "{} is not a real folder. You may want to add the actual folder {} to your "
        "search location list.",
        session.Shown(path), session.Shown(fmt::format("{}\\ProgramData", text::Left(path, 2))));
    session.ShowModal(session::PromptId::kFakeFolder);
}

bool IsFakeFolder(std::string_view path) {
    const std::string_view below = text::Mid(path, 3);
    return std::ranges::any_of(session::kFakeRoots, [below](std::string_view fake) {
        return text::EqualNoCase(below, fake);
    });
}

bool IsNestedRecoveryFolder(std::string_view path) {
    return text::ContainsNoCase(path, "RECOVERY-MODE\\RECOVERY-MODE");
}

} // namespace tarvix::search
