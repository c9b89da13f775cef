#include "actions/request/refused_names.h"

#include "platform/disk_names.h"
#include "platform/file_system.h"
#include "text/case.h"
#include "text/characters.h"

namespace tarvix::actions {

RefusedNames::RefusedNames(platform::FileSystem& files) : drives_(files.Drives()) {}
RefusedNames::~RefusedNames() = default;

std::string RefusedNames::Why(std::string_view path) const {
    for (const platform::DriveInfo& drive : drives_) {
        const bool isThere = path.size() > drive.path.size() && path[drive.path.size()] == '\\' &&
                             text::StartsWithNoCase(path, drive.path);
        if (!isThere) continue;
        for (const std::string_view name : text::Split(path.substr(drive.path.size() + 1), '\\')) {
            std::string why = platform::WhyNoName(drive.fileSystem, name);
            if (!why.empty()) return why;
        }
        return {};
    }
    return {};
}

} // namespace tarvix::actions
