#include "results/exe_facts.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// The headers of a program. Beside not crashing: one file never costs more than the limit.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix::results;
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    std::size_t asked = 0;
    const ExeFacts facts = ReadExeFacts([&](std::uint64_t offset, std::size_t count) {
        asked += count;
        return offset < file.size() ? std::string(file.substr(offset, count)) : std::string();
    });
    if (asked > kMostExeBytes) std::abort();
    if (facts.exeType != 0 && !file.starts_with("MZ")) std::abort();
    (void)ExeTypeText(facts.exeType);
    if (facts.version) (void)OsText(facts.version->os);
    return 0;
}
