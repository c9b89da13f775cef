#include "platform/names.h"
#include "platform/short_names.h"
#include "text/characters.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// Any disk name comes back as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string name(reinterpret_cast<const char*>(data), size);
    std::erase(name, '\0');
    std::erase(name, '/');
    const std::string drive = tarvix::platform::NameToDrive(name);
    if (!tarvix::text::IsValidUtf8(drive)) std::abort();
    if (tarvix::platform::NameToNative(drive) != name) std::abort();
    const std::string shortName = tarvix::platform::ShortNameOf(drive);
    if (tarvix::text::Length(shortName) > 12) std::abort();
    return 0;
}
