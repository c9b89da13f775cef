#pragma once

#include "results/selection.h"
#include "session/paths/ask_long_path.h"
#include "session/scripted_prompts.h"
#include "session/session.h"
#include "tests/machine/memory_platform.h"
#include "tests/support/listed_prompts.h"
#include "text/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace tarvix::actions {

// A session on a machine in memory with selection tables that the test fills, and no program
// around it. Prompts without a queued answer get the safe one.
class BareSession : public ::testing::Test {
  protected:
    BareSession() {
        prompts.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
        session.selection = &selection;
        session.state.strDataFolder = "C:\\data";
        session.state.strActionLogFile = "C:\\data\\action.log";
        session.state.strErrorLogFile = "C:\\data\\error.log";
        Disk().AddFolder("C:\\data");
        session.log.Open(session);
        session.errorLog.Open(session);
        session::AddAskLongPathEvents(session.events);
    }
    ~BareSession() override { testing::ExpectListed(prompts.Records()); }

    platform::MemoryFileSystem& Disk() { return machine.disk; }
    fields::FrmDialog& Form() { return session.frmDialog; }

    void Select(const std::string& path, bool isFile = true, std::string_view relPath = {}) {
        const std::string_view kept = selection.texts.Keep(path);
        selection.strSelName.push_back(text::FileNameOf(kept));
        selection.strSelPath.push_back(kept);
        selection.strSelActualPath.push_back(kept);
        selection.blnSelIsFile.push_back(isFile);
        selection.strSelRelPath.push_back(selection.texts.Keep(relPath));
        selection.blnSelNoDate.push_back(false);
        ++selection.lngSelTop;
    }

    bool WasTold(std::string_view text) {
        return std::ranges::any_of(prompts.Records(),
                                   [text](const auto& record) { return record.text == text; });
    }
    std::string Log() { return Disk().Content("C:\\data\\action.log").value_or(""); }
    // Whether the action log holds an entry with exactly this text behind its time.
    bool HasEntry(std::string_view text) {
        return Log().contains("\r\n" + session.TimeText() + std::string(text) + "\r\n-");
    }

    platform::MemoryPlatform machine;
    session::ScriptedPrompts prompts;
    results::Selection selection;
    session::Session session{machine.platform, prompts};
};

} // namespace tarvix::actions
