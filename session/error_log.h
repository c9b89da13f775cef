#pragma once

#include "session/log_file.h"

#include <string_view>

namespace tarvix::session {

struct Session;

// The error log: one file of a fixed name, begun anew in every run.
class ErrorLog {
  public:
    // Opens `strErrorLogFile`. While another copy of the program has it, the name gets "_1" before
    // its extension, again and again. Any other error is told once, and the run goes on without it.
    void Open(Session& session);
    // Writes the closing line. A failure is told unless in automatic mode, and recorded nowhere.
    void Close(Session& session);
    // Text as it stands; before the log opens it is kept, and follows the opening line.
    // Gives the error of a write that failed.
    platform::Result<void> WriteRaw(std::string_view text);
    // A session that only rehearses has no log; nothing waits for one.
    void KeepNothing() { keeps_ = false; }
    // Whether records reach a file.
    bool IsOpen() const { return file_.IsOpen(); }

  private:
    LogFile file_;
    std::string early_;
    bool keeps_ = true;
};

} // namespace tarvix::session
