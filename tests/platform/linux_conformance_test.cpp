#include "tests/platform/linux_disk.h"

namespace tarvix::platform {

namespace {
DiskMaker With(std::string name, CopyRoads roads) {
    return {std::move(name), [roads] { return std::make_unique<LinuxDisk>(roads); }};
}
} // namespace

// Each way that a copy or move may take has to keep the same promises.
INSTANTIATE_TEST_SUITE_P(
    Linux, FileSystemConformance,
    testing::Values(With("AllRoads", {}), With("CopyAhead", {.aheadAge = 0, .sizeAfter = 0}),
                    With("OneThread", {.ahead = false}),
                    With("NamedParts", {.unnamedParts = false}),
                    With("ReadAndWrite", {.clones = false, .kernelCopies = false}),
                    With("LinkAndUnlink", {.unnamedParts = false, .renameNoReplace = false}),
                    With("Placeholders",
                         {.unnamedParts = false, .renameNoReplace = false, .links = false})),
    [](const auto& made) { return made.param.name; });

} // namespace tarvix::platform
