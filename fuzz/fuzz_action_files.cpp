#include "launch/custom/action_readers.h"
#include "launch/custom/expand.h"
#include "tests/machine/memory_desktop.h"

#include <cstdint>
#include <string>

// A file that adds entries to the menu of objects, from anywhere, and the commands of those
// entries.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    platform::MemoryDesktop desktop;
    desktop.languages = {"de"};
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<platform::ActionFile> files{{"/x/a.desktop", "a.desktop", bytes, true},
                                                  {"/x/b.desktop", "b.desktop", bytes}};
    const custom::Chosen chosen = custom::ChosenFrom(
        {{"/p/a b.jpg", "image/jpeg"}, {"/p/-r %f\n\"'`$.d", "inode/directory", true}});
    for (auto* read : {custom::FileManagerEntries, custom::ServiceEntries, custom::NemoEntries,
                       custom::ThunarEntries}) {
        for (const custom::CustomEntry& entry : read(desktop, files, chosen))
            (void)custom::Expand(entry.command, chosen);
    }
    return 0;
}
