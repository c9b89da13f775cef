#include "fuzz/fuzz_shortcuts.h"

// A .desktop file, the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix::shortcuts;
    tarvix::fuzz::CheckShortcut(Kind::kDesktop, {reinterpret_cast<const char*>(data), size},
                                {{{kTarget, "/a b/$x\\y%"},
                                  {kStartIn, " /w\n"},
                                  {kDescription, "t\\e\tx"},
                                  {kIcon, "/i,c.png"}}});
    return 0;
}
