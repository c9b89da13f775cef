#include "launch/menu/archivers.h"

#include "platform/applications.h"
#include "text/characters.h"

#include <array>

namespace tarvix::menu {

namespace {

constexpr std::array<Archiver, 6> kArchivers{{{"file-roller", "--default-dir=%d --add"},
                                              {"engrampa", "--default-dir=%d --add"},
                                              {"ark", "--changetofirstpath --add --dialog"},
                                              {"xarchiver", "--compress"},
                                              {"lxqt-archiver", "--add"},
                                              {"squeeze", "--new"}}};

} // namespace

std::optional<Archiver> FindArchiver(platform::Applications& applications) {
    for (const Archiver& archiver : kArchivers) {
        if (applications.ProgramOf(archiver.program)) return archiver;
    }
    return std::nullopt;
}

std::vector<std::string> ArchiverArguments(const Archiver& archiver, const std::string& folder,
                                           const std::vector<std::string>& paths) {
    std::vector<std::string> arguments{std::string(archiver.program)};
    for (const std::string_view option : text::Split(archiver.arguments, ' '))
        arguments.push_back(text::Replace(option, "%d", folder));
    arguments.insert(arguments.end(), paths.begin(), paths.end());
    return arguments;
}

} // namespace tarvix::menu
