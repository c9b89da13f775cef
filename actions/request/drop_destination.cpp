#include "actions/request/drop_destination.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/platform.h"
#include "text/case.h"
#include "text/paths.h"

namespace tarvix::actions {

std::string DroppedDestination(const platform::Platform& machine, std::string_view dropped) {
    std::string path = machine.paths.ToDrive(dropped);
    if (text::EqualNoCase(text::GetExtension(path), "mpl")) return path;
    const auto facts = machine.files.Facts(path);
    return facts && !facts->IsFolder() ? std::string(text::ParentFolder(path)) : path;
}

} // namespace tarvix::actions
