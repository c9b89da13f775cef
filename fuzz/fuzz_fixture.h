#pragma once

#include "session/session.h"
#include "session/unattended_prompts.h"
#include "tests/machine/memory_platform.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace tarvix::fuzz {

// A session on a machine in memory, with nobody to answer.
struct Fixture {
    Fixture() {
        auto& state = session.state;
        state.strOptionFile = "C:\\home\\ann\\o.txt";
        state.strPlatformFile = "C:\\home\\ann\\p.txt";
        state.strFSSearchHistoryFile = "C:\\home\\ann\\s.txt";
        state.strFSFolderHistoryFile = "C:\\home\\ann\\f.txt";
        state.strFDHistoryFile = "C:\\home\\ann\\d.txt";
    }
    void Put(std::string_view path, const std::uint8_t* data, std::size_t size) {
        machine.disk.AddFile(path, {reinterpret_cast<const char*>(data), size});
    }
    std::string Content(std::string_view path) { return machine.disk.Content(path).value_or(""); }

    platform::MemoryPlatform machine;
    session::UnattendedPrompts prompts;
    session::Session session{machine.platform, prompts};
};

inline void Require(bool holds) {
    if (!holds) std::abort();
}

} // namespace tarvix::fuzz
