#pragma once

#include "session/paths/ask_long_path.h"
#include "session/scripted_prompts.h"
#include "session/session.h"
#include "tests/machine/memory_platform.h"
#include "tests/support/listed_prompts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvix::testing {

// A session with both logs open on a machine in memory, and no program around it. A prompt without
// a queued answer fails the test.
class LogSession : public ::testing::Test {
  protected:
    LogSession() {
        Disk().AddFolder("C:\\data");
        State().strDataFolder = "C:\\data";
        State().strActionLogFile = "C:\\data\\TXAction.log";
        State().strErrorLogFile = "C:\\data\\TXProgramError.log";
        State().options.blnSkipNTFS = false;
        session.log.Open(session);
        session.errorLog.Open(session);
        session::AddAskLongPathEvents(session.events);
    }
    ~LogSession() override { ExpectListed(prompts.Records()); }

    platform::MemoryFileSystem& Disk() { return machine.disk; }
    session::SessionState& State() { return session.state; }
    const std::vector<session::PromptRecord>& Prompts() { return prompts.Records(); }

    // What stands in the logs behind their opening lines.
    std::string ErrorLog() { return Behind(State().strErrorLogFile, 1); }
    std::string ActionLog() { return Behind(State().strActionLogFile, 2); }

    platform::MemoryPlatform machine;
    session::ScriptedPrompts prompts;
    session::Session session{machine.platform, prompts};

  private:
    std::string Behind(const std::string& path, int paragraphs) {
        std::string text = Disk().Content(path).value_or("");
        for (; paragraphs > 0; --paragraphs) {
            text.erase(0, text.find("\r\n\r\n") + 4);
        }
        return text;
    }
};

} // namespace tarvix::testing
