// Copies, moves or trashes every file of one folder, subfolders left out, by the calls of the
// platform alone: what an action can cost at the least.
//   file_calls copy|move|trash FROM [TO]     native paths

#include "platform/linux/linux_platform.h"
#include "text/paths.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {
using namespace tarvix;

std::vector<std::string> FilesIn(platform::FileSystem& files, const std::string& folder) {
    std::vector<std::string> names;
    platform::FolderListing listing;
    const auto opened = files.Open(folder);
    if (!opened || !(*opened)->List(listing)) return names;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        if (!listing[i].isFolder) names.emplace_back(listing[i].name);
    }
    return names;
}

// Tells of the files from `begin` on.
void PlanFrom(std::size_t begin, platform::FileSystem& files, const std::vector<std::string>& paths,
              const std::string& to) {
    std::vector<platform::PlannedCopy> planned;
    for (std::size_t i = begin; i < std::min(begin + 64, paths.size()); ++i)
        planned.push_back({paths[i], to});
    files.CopySoon(planned);
}

platform::Result<void> Run(const platform::Platform& machine, std::string_view what,
                           const std::string& from, const std::string& to) {
    const std::vector<std::string> names = FilesIn(machine.files, from);
    std::vector<std::string> paths;
    for (const std::string& name : names)
        paths.push_back(text::JoinPath(from, name));
    if (what == "trash") return machine.trash.Recycle(paths, {});
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const std::string target = text::JoinPath(to, names[i]);
        if (what == "copy" && i % 32 == 0) PlanFrom(i, machine.files, paths, to);
        auto done = what == "copy" ? machine.files.CopyFile(paths[i], target, false, {})
                                   : machine.files.MoveFile(paths[i], target, {});
        if (!done) return done;
    }
    return {};
}
} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        fmt::print(stderr, "Usage: file_calls copy|move|trash FROM [TO]\n");
        return 2;
    }
    platform::LinuxOptions options;
    options.hasDesktop = false;
    platform::LinuxPlatform machine(options);
    const platform::Platform parts = machine.Parts();
    const auto done = Run(parts, argv[1], parts.paths.ToDrive(argv[2]),
                          argc > 3 ? parts.paths.ToDrive(argv[3]) : std::string());
    if (done) return 0;
    fmt::print(stderr, "{}\n", done.error().description);
    return 1;
}
