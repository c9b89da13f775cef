#pragma once

#include "platform/error.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class TextStream;
}

namespace tarvix::session {

struct Session;

// The action log of this run. It stays open from start to stop.
class ActionLog {
  public:
    ActionLog();
    ~ActionLog();
    // Creates the file of `strActionLogFile` and writes the opening lines. A log that can't be
    // written is told once, and the run goes on without it.
    void Open(Session& session);
    void Close(Session& session);
    // One entry: the text, a line of dashes under it, an empty line. Nothing with logging off. What
    // is written before the log opens follows its opening lines.
    void Write(Session& session, std::string_view text);
    bool IsOpen() const { return stream_ != nullptr; }

  private:
    std::unique_ptr<platform::TextStream> stream_;
    std::vector<std::string> early_; // entries from before the log opened
    bool wasOpened_ = false;
};

// One entry to the action log of the session.
void WriteToActionLog(Session& session, std::string_view text);
// The present time as "mm/dd/yyyy hh:mm:ss", followed by a text that begins with a blank.
void LogTimed(Session& session, std::string_view text);

// The underlining of an entry: as many dashes as the text has characters, or two thirds of them,
// rounded half to even, when it holds a line end.
std::string DashesFor(std::string_view text);

} // namespace tarvix::session
