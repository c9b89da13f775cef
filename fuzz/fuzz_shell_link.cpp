#include "fuzz/fuzz_shortcuts.h"

// A .lnk file: whatever the bytes are, they are read; what can be edited is read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix::shortcuts;
    tarvix::fuzz::CheckShortcut(Kind::kLnk, {reinterpret_cast<const char*>(data), size},
                                {{{kTarget, "D:\\a \u540D\\b.exe"},
                                  {kTarget, "\\\\srv\\share\\x"},
                                  {kTarget, "%X%\\y"},
                                  {kArguments, "-x \u00E9"},
                                  {kStartIn, "D:\\w"},
                                  {kHotKey, "CTRL+ALT+F5"},
                                  {kWindowStyle, "Maximized"},
                                  {kDescription, "text"},
                                  {kIcon, "D:\\i,c.dll,-7"}}});
    return 0;
}
