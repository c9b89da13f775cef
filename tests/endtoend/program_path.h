#pragma once

#include <cstdlib>
#include <string>

namespace tarvix::endtoend {

// The program under test: the one of this build, unless the environment names another place of it.
inline std::string ProgramPath() {
    const char* told = std::getenv("TARVIX_CLI_UNDER_TEST");
    return told ? told : TARVIX_CLI;
}

} // namespace tarvix::endtoend
