#include "actions/sources/clean_names.h"
#include "actions/sources/page_links.h"
#include "actions/sources/rename_each.h"
#include "actions/sources/rename_sources.h"
#include "actions/sources/source_list.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::actions {

namespace {

using session::Session;

// Whether a text ends in what can only be meant as an extension: "Song.mp3", but neither "Mr.
// Smith" nor "Op. 2.1".
bool HasExtension(std::string_view text) {
    constexpr std::size_t kLongest = 5;
    const std::string_view extension = text::GetExtension(text);
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return extension.size() <= kLongest && std::ranges::any_of(extension, isLetter) &&
           std::ranges::all_of(extension, [&](char c) { return isLetter(c) || isDigit(c); });
}

NewName NameFor(Session& session, const LinkNames& links, std::size_t index) {
    const auto& tables = *session.selection;
    const std::string_view name = tables.strSelName[index];
    const std::string clean =
        OnOneNameLine(CleanWebName(links.TextFor(platform::NameToNative(name))));
    if (clean.empty()) {
        session::LogTimed(session,
                          fmt::format(" Was unable to rename {} since no link to it was found in "
                                      "the html file.",
                                      session.Shown(tables.strSelPath[index])));
        return {};
    }
    std::string newName = platform::PieceToDrive(clean);
    const std::string_view extension =
        tables.blnSelIsFile[index] ? text::GetExtension(name) : std::string_view();
    if (!extension.empty() && !HasExtension(clean)) newName.append(".").append(extension);
    return {newName};
}

} // namespace

SourceEnd RenameFromHTMLSearch(Session& session, ActionRun& run, const std::string& strFile) {
    BeginRenaming(session);
    if (!HasSourceFile(session, strFile)) return SourceEnd::kRefused;
    session.frmDialog.lblStatus.Caption = fmt::format("Reading {}", session.Shown(strFile));
    const auto goesOn = [&session] {
        session.Yield();
        return !session.state.blnStopAction;
    };
    const auto links = ReadLinks(session.files(), session.platform.contentTypes, strFile, goesOn);
    if (!links) {
        TellUnusable(session, session::PromptId::kSourceUnreadable,
                     "File system object or network unavailable.");
        return SourceEnd::kRefused;
    }
    NewNames names(session.selection->strSelPath.size());
    const bool isWhole = ForEachSelected(
        session, [&](std::size_t index) { names[index] = NameFor(session, *links, index); });
    if (!isWhole) return SourceEnd::kStopped;
    return RenameEach(session, run, names, {.routine = "RenameFromHTMLSearch"}).end;
}

} // namespace tarvix::actions
