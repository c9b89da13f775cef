#pragma once

#include "session/log_file.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
struct MoveNote;
}

namespace tarvix::session {

struct Session;

// The action log of this run. It stays open from start to stop.
class ActionLog {
  public:
    // Creates the file of `strActionLogFile` and writes the opening lines. A name that is taken
    // gives way to that of the next second. After a failure the run has no log.
    platform::Result<void> TryOpen(Session& session);
    // The same; a failure is told once.
    void Open(Session& session);
    // Writes the closing line. A failure is told unless in automatic mode, and recorded.
    void Close(Session& session);
    // One entry: the text, behind its stamp if any, a line of dashes under it, an empty line.
    // Nothing with logging off. What is written before the log opens follows its opening lines. The
    // first failure is noted, to be told at the next yield.
    void Write(Session& session, std::string_view text, std::string_view stamp = {});
    // The same for what is only about to be done, so that many entries take one write: it reaches
    // the file with the next entry of Write or by Flush, one of which must come before any of it is
    // done.
    void WriteSoon(Session& session, std::string_view text, std::string_view stamp = {});
    void Flush(Session& session);
    // The same as what the machine is to write itself, as soon as what it tells of is done. Nothing
    // where Write has to be called then: the log isn't open.
    std::optional<platform::MoveNote> Note(const Session& session, std::string_view text,
                                           std::string_view stamp);
    // A session that only rehearses has no log; nothing waits for one.
    void KeepNothing() { wasOpened_ = true; }
    // Whether entries reach a file; false before `Open`, after `Close`, and where no file could be
    // made.
    bool IsOpen() const { return file_.IsOpen(); }

  private:
    // The entry as it stands in the file; nothing where none is to be written. Good until the next.
    std::string_view Entry(const Session& session, std::string_view text, std::string_view stamp);

    LogFile file_;
    std::string entry_;              // the last
    std::vector<std::string> early_; // entries from before the log opened
    bool wasOpened_ = false;
};

// The name of an action log that opens so many seconds from now, in the data folder.
std::string ActionLogName(Session& session, int secondsLater = 0);

// One entry to the action log of the session, without a time.
void WriteToActionLog(Session& session, std::string_view text);
// The present time as "mm/dd/yyyy hh:mm:ss", followed by a text that begins with a blank.
void LogTimed(Session& session, std::string_view text);
// The same, by WriteSoon.
void LogPlanned(Session& session, std::string_view text);
// The same, by Note.
std::optional<platform::MoveNote> NoteTimed(Session& session, std::string_view text);

// The underlining of an entry: as many dashes as the text has characters, or two thirds of them,
// rounded half to even, when it holds a line end.
std::string DashesFor(std::string_view text);

} // namespace tarvix::session
