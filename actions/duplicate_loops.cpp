#include "actions/duplicate_loops.h"

#include "actions/copy_object.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/case.h"
#include "text/paths.h"

namespace tarvix::actions {

namespace {

using session::Session;

// Whether an object would be written on itself or into its own subfolder.
bool IsOntoItself(std::string_view path, std::string_view destination) {
    if (text::EqualNoCase(path, destination)) return true;
    return text::Upper(destination).starts_with(text::Upper(path) + "\\");
}

void TellOntoItself(Session& session, const std::string& path, const std::string& destination) {
    const std::string told = " User attempted to write object: \r\n\r\n" + path +
                             "\r\n\r\n upon itself or to its own subfolder as: \r\n\r\n" +
                             destination;
    if (session.state.options.blnAutoMode) {
        session::LogTimed(session, told);
    } else {
        session.MsgBox(told);
    }
}

// Bytes of files copied so far, for the bar.
class Progress {
  public:
    explicit Progress(Session& session) : session_(session) {
        session.frmDialog.prgBytes.Value = 0;
        session.frmDialog.prgBytes.Max = session.selection->lngSelTop + 1;
    }
    platform::CopyObserver Observer() {
        return [this](const platform::CopyProgress& progress) {
            if (progress.bytesTotal > kLargeFile) ShowFile(progress);
            session_.Yield();
            return true;
        };
    }
    void Step() { session_.frmDialog.prgBytes.Value = ++done_; }

  private:
    static constexpr std::uint64_t kLargeFile = 64 << 20;

    void ShowFile(const platform::CopyProgress& progress) {
        const auto percent = progress.bytesDone * 100 / progress.bytesTotal;
        session_.frmDialog.lblBusy.Caption = "Busy - " + std::to_string(percent) + " % of " +
                                             std::string(text::FileNameOf(progress.path));
    }

    Session& session_;
    std::int64_t done_ = 0;
};

// False when the loop must end.
bool PlaceOne(Session& session, std::size_t index, Progress& progress) {
    const auto& tables = *session.selection;
    auto& totals = session.state.lastAction;
    Placement placement{.strSource = tables.strSelPath[index],
                        .strSourceActual = tables.strSelActualPath[index],
                        .strDestination = ComputeDestination(session, tables.strSelName[index]),
                        .blnIsFile = tables.blnSelIsFile[index]};
    if (IsOntoItself(placement.strSource, placement.strDestination) ||
        IsOntoItself(placement.strSourceActual, placement.strDestination)) {
        TellOntoItself(session, placement.strSource, placement.strDestination);
        ++totals.skipped;
        return true;
    }
    if (DetermineIfDuplicateExists(session, placement.strDestination)) {
        ++totals.skipped;
        return true;
    }
    const PlaceResult result = CopyObject(session, placement, progress.Observer());
    ++(result == PlaceResult::kDone        ? totals.done
       : result == PlaceResult::kSamePlace ? totals.skipped
                                           : totals.failed);
    return result != PlaceResult::kDiskFull;
}

} // namespace

std::string ComputeDestination(const Session& session, std::string_view strName) {
    return session.frmDialog.cmbDir.Text.Get() + "\\" + std::string(strName);
}

bool DetermineIfDuplicateExists(Session& session, std::string_view strDestination) {
    return !platform::DirName(session.files(), strDestination, platform::kDirAll).empty();
}

void SkipAllDuplicates(Session& session) {
    session.state.lastAction = {};
    session.state.blnStopAction = false;
    Progress progress(session);
    const auto count = static_cast<std::size_t>(session.selection->lngSelTop + 1);
    for (std::size_t index = 0; index < count; ++index) {
        session.Yield();
        if (session.state.blnStopAction || !PlaceOne(session, index, progress)) return;
        progress.Step();
    }
}

} // namespace tarvix::actions
