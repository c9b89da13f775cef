#include "actions/copy_object.h"

#include "session/missing_folders.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::actions {

namespace {

using session::Session;

// Blanks next to a separator are never kept, since no folder can be made so.
std::string CleanDestination(const std::string& destination) {
    const std::string_view name = text::Trim(text::FolderOwnName(destination));
    const std::string parent = text::CleanSpacesInPath(text::ParentFolder(destination), true);
    return text::JoinPath(parent, name);
}

platform::Result<void> CopyOnce(Session& session, const Placement& placement,
                                const std::string& destination,
                                const platform::CopyObserver& observer) {
    auto& files = session.files();
    return placement.blnIsFile
               ? files.CopyFile(placement.strSourceActual, destination, false, observer)
               : files.CopyFolder(placement.strSourceActual, destination, false, observer);
}

PlaceResult Fail(Session& session, const Placement& placement,
                 const platform::PlatformError& error) {
    session.state.action.blnErrorOccurred = true;
    session.state.lastAction.errors.push_back(error.description);
    session::LogTimed(session, " CopyObject has not proceeded as expected, copy did not occur. " +
                                   placement.strSource + ": " + error.description);
    return error.number == platform::kDiskFull ? PlaceResult::kDiskFull : PlaceResult::kFailed;
}

} // namespace

PlaceResult CopyObject(Session& session, const Placement& placement,
                       const platform::CopyObserver& observer) {
    if (text::EqualNoCase(placement.strSource, placement.strDestination)) {
        return PlaceResult::kSamePlace;
    }
    const std::string destination = CleanDestination(placement.strDestination);
    session.frmDialog.lblStatus.Caption = "Copying " + placement.strSource + "  to  " + destination;
    session.Yield();
    auto copied = CopyOnce(session, placement, destination, observer);
    if (!copied && copied.error().number == platform::kPathNotFound) {
        session::CreateMissingFolder(session, destination, false);
        copied = CopyOnce(session, placement, destination, observer);
    }
    if (!copied) return Fail(session, placement, copied.error());
    session::LogTimed(session, " Copy " + placement.strSource + " -- to -- " + destination + " ");
    return PlaceResult::kDone;
}

} // namespace tarvix::actions
