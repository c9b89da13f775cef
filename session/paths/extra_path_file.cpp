#include "session/paths/extra_path_file.h"

#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::session {

std::string ExtraPathFile(std::string_view file) {
    const std::string_view name = text::FolderOwnName(file);
    const std::size_t dot = name.rfind('.');
    const std::string_view ending = dot == name.npos ? "" : name.substr(dot + 1);
    const std::size_t behind = dot == name.npos ? 0 : name.size() - dot;
    return fmt::format("{} Extra Path Only.{}", file.substr(0, file.size() - behind), ending);
}

} // namespace tarvix::session
