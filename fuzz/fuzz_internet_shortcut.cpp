#include "fuzz/fuzz_shortcuts.h"

// A .url file, the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix::shortcuts;
    tarvix::fuzz::CheckShortcut(Kind::kUrl, {reinterpret_cast<const char*>(data), size},
                                {{{kTarget, "http://a/\u540D+x"},
                                  {kTarget, "b"},
                                  {kHotKey, "1601"},
                                  {kIcon, "C:\\i,c.dll,7"}}});
    return 0;
}
