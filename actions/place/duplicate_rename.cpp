#include "actions/place/duplicate_rename.h"

#include "actions/place/action_run.h"
#include "actions/place/destination.h"
#include "actions/place/duplicate.h"
#include "actions/place/engine.h"
#include "actions/place/find_destination.h"
#include "actions/place/name_parts.h"
#include "actions/place/no_short_path.h"
#include "actions/place/outcome.h"
#include "actions/place/system_hidden.h"
#include "platform/dir.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

// A name's base, with the added text `count` times at the side that the user chose.
std::string NewName(const ActionRequest& request, std::string_view base, int count) {
    std::string added;
    for (int i = 0; i < count; ++i) {
        added += request.renameText;
    }
    const bool atEnd = request.renamesAtEnd || request.strAction == "RenameAsTitle";
    return atEnd ? text::Concat({base, added}) : text::Concat({added, base});
}

struct FreeNameSearch {
    std::string_view path; // of the object, for prompts
    std::string_view name;
    bool isFile;
    bool isRename;
    std::string_view routine;
    // The candidate's folder, with its "\", for a new name; empty when there is none.
    std::function<std::string(std::string_view newName)> folderFor;
};

// Brings a candidate that is too long into a form that can be used; false when it is left alone.
bool Shorten(Session& session, const FreeNameSearch& search, std::string& candidate) {
    if (!session::ExceedsLimit(session, candidate, session::kLongPath)) return true;
    session::AskLongPath(session, search.path, candidate, search.routine, "frmDialog");
    if (!session::ContinuesLongPath(session)) return false;
    auto shortened = session::GetShortPathNameReturnCodes(session, candidate);
    candidate = std::move(shortened.path);
    if (shortened.status >= 2) return true;
    RefuseWithoutShortPath(session, candidate, session::kLongPath);
    return false;
}

// The full path that a name makes; empty when it can have no folder.
std::string Candidate(const FreeNameSearch& search, std::string_view newName,
                      std::string_view extension) {
    std::string candidate = search.folderFor(newName);
    if (candidate.empty()) return candidate;
    candidate += newName;
    if (!extension.empty()) candidate.append(".").append(extension);
    return CleanedDestination(candidate, search.isRename);
}

// The first name that is free; nothing when the object is to be left alone.
std::optional<platform::FreePlace> FindFreeName(Session& session, const ActionRequest& request,
                                                const FreeNameSearch& search) {
    if (request.renameText.empty()) {
        session::LogTimed(session,
                          fmt::format(" Skipped {}, there is no text to add to the name of a "
                                      "duplicate.",
                                      session.Shown(search.path)));
        return std::nullopt;
    }
    const NameParts parts =
        search.isFile ? SplitPrefixAndExtension(search.name) : NameParts{search.name, {}};
    std::string last;
    for (int count = 1;; ++count) {
        const std::string newName = NewName(request, parts.strPrefix, count);
        std::string candidate = Candidate(search, newName, parts.strExtension);
        if (candidate.empty()) return std::nullopt;
        // Blanks at the end of a name are lost again; past the limit no name can be made at all.
        if (candidate == last || text::Length(newName) > session::kAbsoluteLimit) {
            session::LogTimed(session,
                              fmt::format(" Skipped {}, no free name was found for a duplicate.",
                                          session.Shown(search.path)));
            return std::nullopt;
        }
        last = candidate;
        if (!Shorten(session, search, candidate)) return std::nullopt;
        auto standing = platform::WhatStands(session.files(), candidate);
        if (standing.IsFree()) return std::move(standing.place);
    }
}

// Tries names until one is still free when the object gets it. Without a verb it goes as the
// request says.
Outcome PlaceAsNew(Session& session, ActionRun& run, const Object& object, std::optional<Verb> verb,
                   const FreeNameSearch& search) {
    Outcome outcome;
    do {
        auto place = FindFreeName(session, run.request, search);
        if (!place) return {};
        if (!verb) {
            const Protection found = CheckSystemHidden(session, run, object, false);
            if (!found.look) return Unread(session, found.look.error());
            const bool moves = run.request.isMove && !found.isProtected;
            verb = moves ? Verb::kMove : Verb::kCopy;
        }
        outcome = PlaceObject(
            session, run,
            {.object = object, .place = std::move(*place), .verb = *verb, .wasFree = true});
    } while (outcome.isTaken);
    return outcome;
}

} // namespace

Outcome RenameObjForDuplicate(Session& session, ActionRun& run, const Clash& clash) {
    const Object& object = clash.object;
    const std::string prefix = BuildFolderPrefix(run.request, object);
    bool hasFailed = false;
    const auto folderFor = [&](std::string_view newName) -> std::string {
        Object renamed = object;
        renamed.name = newName;
        const auto found = FindDestination(session, run, renamed, clash.place, true);
        hasFailed = hasFailed || found.hasFailed;
        const bool left = session.state.blnPathLimitHit && !session::ContinuesLongPath(session);
        if (left || found.path.empty()) return {};
        std::string folder = text::ParentFolderSlash(found.path);
        if (!prefix.empty()) folder.append(prefix).append(" ");
        return folder;
    };
    // Objects that get the name of their folder are told apart by that name.
    const bool isOfFolder = run.request.strAction == "CopyRenameAsFolderName";
    const bool hasExtension = object.isFile && !text::GetExtension(object.name).empty();
    Outcome outcome =
        PlaceAsNew(session, run, object, std::nullopt,
                   {.path = object.path,
                    .name = isOfFolder ? text::FolderOwnName(clash.destination) : object.name,
                    .isFile = isOfFolder ? hasExtension : object.isFile,
                    .isRename = false,
                    .routine = "RenameObjForDuplicate",
                    .folderFor = folderFor});
    if (hasFailed) outcome.kind = OutcomeKind::kFailed;
    outcome.isNewName = true;
    return outcome;
}

std::string NameBeside(Session& session, const ActionRequest& request, std::string_view destination,
                       bool isFile) {
    constexpr int kMostTried = 100;
    const bool dependsOnName = request.way == Way::kSpecialRule || request.prefixesFolders ||
                               request.strAction == "CopyRenameAsFolderName";
    if (request.renameText.empty() || dependsOnName) return {};
    const std::string folder = text::ParentFolderSlash(destination);
    const std::string_view name = text::FolderOwnName(destination);
    const NameParts parts = isFile ? SplitPrefixAndExtension(name) : NameParts{name, {}};
    for (int count = 1; count <= kMostTried; ++count) {
        std::string path = folder + NewName(request, parts.strPrefix, count);
        if (!parts.strExtension.empty()) path.append(".").append(parts.strExtension);
        path = CleanedDestination(path);
        if (session::ExceedsLimit(session, path, session::kLongPath)) return {};
        if (platform::WhatStands(session.files(), path).IsFree()) {
            return std::string(text::FolderOwnName(path));
        }
    }
    return {};
}

std::optional<Outcome> KeepApart(Session& session, ActionRun& run, const Clash& clash) {
    if (!run.placed.contains(text::Upper(clash.destination))) return std::nullopt;
    session::LogTimed(session, fmt::format(" {} was placed by this action, so {} gets a name of "
                                           "its own.",
                                           session.Shown(clash.destination),
                                           session.Shown(clash.object.path)));
    Outcome outcome = RenameObjForDuplicate(session, run, clash);
    outcome.isKeptApart = true;
    return outcome;
}

Outcome RenameObjForDuplicateLocal(Session& session, ActionRun& run, const Object& object,
                                   std::string_view destination) {
    const std::string folder = text::ParentFolderSlash(destination);
    return PlaceAsNew(session, run, object, Verb::kRename,
                      {object.path, text::FileNameOf(destination), object.isFile, true,
                       "RenameObjForDuplicateLocal",
                       [&folder](std::string_view) { return folder; }});
}

} // namespace tarvix::actions
