#include "actions/place/action_run.h"
#include "actions/sources/exchange.h"
#include "actions/sources/rename_each.h"
#include "actions/sources/rename_sources.h"
#include "actions/sources/source_list.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

using Lines = std::vector<std::string>;

bool IsBlank(std::string_view line) {
    return text::Trim(line).empty();
}

// How far the names of a list go.
struct Extent {
    std::size_t names; // before a blank line or the mark
    bool endsBlank;    // by a blank line
};

Extent ExtentOf(const Lines& lines) {
    const auto blank = std::ranges::find_if(lines, IsBlank);
    return {static_cast<std::size_t>(blank - lines.begin()), blank != lines.end()};
}

// The message that fits, and whether it is the one that all went as it should.
struct EndMessage {
    std::string_view text;
    bool isPlain = false;
};

EndMessage MessageFor(const Extent& list, std::size_t lines, std::size_t objects) {
    if (list.names < objects) {
        return {list.endsBlank ? "There was a blank line in the rename file. "
                               : "There were more objects to rename than names in the list. "};
    }
    // A blank line behind the last name is none that stopped anything.
    const bool isUsedUp = lines == objects || (list.endsBlank && list.names == objects);
    if (isUsedUp) return {"All objects renamed. No extra names to use. ", true};
    return {"There were more names in the list than objects to rename. "};
}

void TellEnd(Session& session, const RenamedEach& done, const EndMessage& message) {
    if (done.metLongPaths) {
        session.MsgBox(PromptId::kNamesEnded,
                       " You received messages (or log entries) about renaming folders with "
                       "objects whose path exceeds 259 characters.");
        return;
    }
    std::string told(message.text);
    if (!done.lastPath.empty()) {
        told += fmt::format("\r\n\r\nThe last object named was: \r\n\r\n{}\r\n\r\n to: "
                            "\r\n\r\n{}",
                            session.Shown(done.lastPath), session.Shown(done.lastName));
    }
    told += "\r\n\r\nFiles are always processed completely before processing folders.";
    session.MsgBox(message.isPlain ? PromptId::kNamesUsedUp : PromptId::kNamesEnded, told);
}

SourceEnd RenameByLines(Session& session, ActionRun& run, const Lines& lines) {
    const std::size_t objects = session.selection->strSelPath.size();
    const Extent extent = ExtentOf(lines);
    NewNames names(objects);
    std::size_t reached = std::min(extent.names, objects);
    for (std::size_t i = 0; i < reached; ++i)
        names[i].name = NameOf(session, i, ListedNames::kWithoutExtensions, lines[i]);
    const RenamedEach done =
        RenameEach(session, run, names,
                   {.routine = "RenameFromTextFile", .filesFirst = true, .reached = reached});
    if (done.end == SourceEnd::kRan)
        TellEnd(session, done, MessageFor(extent, lines.size(), objects));
    return done.end;
}

// Blank lines at the end of a list are none of its names.
void DropBlankEnd(Lines& lines, std::size_t objects) {
    while (lines.size() > objects && IsBlank(lines.back()))
        lines.pop_back();
}

std::string WhyNoExchange(Session& session, const Lines& lines, Lines& wanted) {
    const std::size_t objects = wanted.size();
    if (lines.size() != objects) {
        return fmt::format("The list has {} {} for {} {}: each object needs its line, in the order "
                           "in which they are listed.",
                           text::Format(static_cast<std::int64_t>(lines.size()), "#,##0"),
                           lines.size() == 1 ? "line" : "lines",
                           text::Format(static_cast<std::int64_t>(objects), "#,##0"),
                           objects == 1 ? "object" : "objects");
    }
    for (std::size_t i = 0; i < objects; ++i) {
        wanted[i] = NameOf(session, i, ListedNames::kWhole, lines[i]);
        if (!wanted[i].empty()) continue;
        return fmt::format("Line {} of the list is blank: the object {} needs a name there.", i + 1,
                           session.Shown(session.selection->strSelPath[i]));
    }
    return WhyNotExchanged(session, wanted);
}

SourceEnd RenameByWholeNames(Session& session, ActionRun& run, const std::string& strFile) {
    if (!HasSourceFile(session, strFile)) return SourceEnd::kRefused;
    auto list = ReadNameLines(session.files(), strFile);
    if (!list) {
        TellUnusable(session, PromptId::kSourceGone, "File not found.");
        return SourceEnd::kRefused;
    }
    Lines wanted(session.selection->strSelPath.size());
    DropBlankEnd(list->lines, wanted.size());
    const std::string why = WhyNoExchange(session, list->lines, wanted);
    if (why.empty()) return RenameExchanged(session, run, wanted);
    TellUnusable(session, PromptId::kNamesUnusable,
                 fmt::format("Nothing was renamed.\r\n\r\n{}\r\n\r\nChange the list, save it, and "
                             "try again.",
                             why));
    return SourceEnd::kRefused;
}

} // namespace

SourceEnd RenameFromTextFile(Session& session, ActionRun& run, const std::string& strFile) {
    BeginRenaming(session);
    if (run.request.wholeNames) return RenameByWholeNames(session, run, strFile);
    const auto lines = ReadSourceList(session, strFile, false);
    return lines ? RenameByLines(session, run, *lines) : SourceEnd::kRefused;
}

} // namespace tarvix::actions
