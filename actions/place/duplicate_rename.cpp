#include "actions/place/duplicate_rename.h"

#include "actions/place/destination.h"
#include "actions/place/engine.h"
#include "actions/place/name_parts.h"
#include "actions/place/no_short_path.h"
#include "actions/place/system_hidden.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/paths.h"

#include <functional>
#include <optional>

namespace tarvix::actions {

namespace {

using session::Session;

// A name's base, with the added text `count` times at the side that the user chose.
std::string NewName(const Session& session, std::string_view base, int count) {
    const auto& form = session.frmDialog;
    std::string added;
    for (int i = 0; i < count; ++i) {
        added += form.txtRename.Text.Get();
    }
    const bool atEnd = form.chkRenameEnd.Value == 1 || session.state.strAction == "RenameAsTitle";
    return atEnd ? std::string(base) + added : added + std::string(base);
}

// Brings a candidate that is too long into a form that can be used; false when it is left alone.
bool Shorten(Session& session, const std::string& path, std::string& candidate,
             std::string_view routine) {
    if (text::Length(candidate) <= session::kLongPath) return true;
    session::AskLongPath(session, path, candidate, routine, "frmDialog");
    if (!session::ContinuesLongPath(session)) return false;
    auto shortened = session::GetShortPathNameReturnCodes(session, candidate);
    candidate = std::move(shortened.path);
    if (shortened.status >= 2) return true;
    RefuseWithoutShortPath(session, candidate, session::kLongPath);
    return false;
}

struct Search {
    const std::string& path; // of the object, for prompts
    std::string_view name;
    bool isFile;
    bool isRename;
    std::string_view routine;
    // The candidate's folder, with its "\", for a new name; empty when there is none.
    std::function<std::string(const std::string& newName)> folderFor;
};

// The first name that is free; nothing when the object is to be left alone.
std::optional<std::string> FindFreeName(Session& session, const Search& search) {
    if (session.frmDialog.txtRename.Text->empty()) {
        session::LogTimed(session, " Skipped " + search.path +
                                       ", there is no text to add to the name of a duplicate.");
        return std::nullopt;
    }
    const NameParts parts =
        search.isFile ? SplitPrefixAndExtension(search.name) : NameParts{search.name, {}};
    std::string last;
    for (int count = 1;; ++count) {
        const std::string newName = NewName(session, parts.strPrefix, count);
        std::string candidate = search.folderFor(newName);
        if (candidate.empty()) return std::nullopt;
        candidate += newName;
        if (!parts.strExtension.empty()) candidate.append(".").append(parts.strExtension);
        candidate = CleanedDestination(candidate, search.isRename);
        // Blanks at the end of a name are lost again; past the limit no name can be made at all.
        if (candidate == last || text::Length(newName) > session::kAbsoluteLimit) {
            session::LogTimed(session, " Skipped " + search.path +
                                           ", no free name was found for a duplicate.");
            return std::nullopt;
        }
        last = candidate;
        if (!Shorten(session, search.path, candidate, search.routine)) return std::nullopt;
        if (platform::DirName(session.files(), candidate, platform::kDirAll).empty()) {
            return candidate;
        }
    }
}

} // namespace

void RenameObjForDuplicate(Session& session) {
    const auto& tables = *session.selection;
    auto& action = session.state.action;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    const std::string& path = tables.strSelPath[index];
    const std::string& actual = tables.strSelActualPath[index];
    const bool isFile = tables.blnSelIsFile[index];
    const auto folderFor = [&](const std::string& newName) -> std::string {
        action.blnDuplicateRename = true;
        const std::string destination = ComputeDestination(session, newName, path);
        action.blnDuplicateRename = false;
        const bool left = session.state.blnPathLimitHit && !session::ContinuesLongPath(session);
        if (left || destination.empty()) return {};
        std::string folder = text::ParentFolderSlash(destination);
        if (!action.strFolderPrefix.empty()) folder += action.strFolderPrefix + " ";
        return folder;
    };
    const auto candidate = FindFreeName(session, {path, tables.strSelName[index], isFile, false,
                                                  "RenameObjForDuplicate", folderFor});
    if (!candidate) return;
    if (action.blnMove && !CheckSystemHidden(session, path, actual, isFile, false)) {
        MoveObject(session, path, actual, *candidate, isFile, false, "");
    } else {
        CopyObject(session, path, actual, *candidate, isFile, "");
    }
}

void RenameObjForDuplicateLocal(Session& session, const std::string& source,
                                const std::string& actual, const std::string& destination,
                                bool blnIsFile) {
    const std::string folder = text::ParentFolderSlash(destination);
    const auto candidate = FindFreeName(
        session, {source, text::FileNameOf(destination), blnIsFile, true,
                  "RenameObjForDuplicateLocal", [&folder](const std::string&) { return folder; }});
    if (candidate) MoveObject(session, source, actual, *candidate, blnIsFile, true, "");
}

void RefuseUnconverted(Session& session, std::string_view path) {
    const std::string told =
        std::string(path) +
        "'s path exceeds 259 characters in length. You may be exceeding 500 characters. "
        "\r\n\r\nLength of path shown above is : " +
        std::to_string(text::Length(path)) +
        " characters.\r\n\r\nPath above maybe partly converted to a short path. Possibly all "
        "required folders could not be created.";
    const bool isAutomatic = session.state.options.blnAutoMode;
    const std::string whole =
        told + (isAutomatic ? "Canceling the entire operation." : "Skipping this object.");
    session::TellAndLog(session, session::PromptId::kDuplicateUnshortened, whole);
    session.state.bytPathChoice = isAutomatic ? session::kPathCancel : session::kPathSkip;
}

} // namespace tarvix::actions
