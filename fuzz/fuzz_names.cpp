#include "platform/names.h"
#include "platform/short_names.h"
#include "text/characters.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// Any disk name comes back as it was, or is marked as one that can't be opened.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string name(reinterpret_cast<const char*>(data), size);
    std::erase(name, '\0');
    std::erase(name, '/');
    const std::string drive = tarvix::platform::NameToDrive(name);
    if (!tarvix::text::IsValidUtf8(drive)) std::abort();
    if (drive.find('?') == drive.npos && tarvix::platform::NameToNative(drive) != name)
        std::abort();
    const std::string shortName = tarvix::platform::ShortNameOf(drive);
    if (tarvix::text::Length(shortName) > 12) std::abort();
    return 0;
}
