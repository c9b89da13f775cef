#include "results/link_target.h"

#include "platform/file_system.h"
#include "session/paths/env_variables.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "shortcuts/formats/values.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::results {

namespace {
constexpr std::size_t kMostShortcutBytes = 1 << 20;
} // namespace

std::string NormalizeTargetPath(session::Session& session, std::string_view path) {
    std::string_view bare = path;
    if (bare.ends_with('"')) bare.remove_suffix(1);
    if (bare.starts_with('"')) bare.remove_prefix(1);
    bare = text::StripTrailingSlash(bare);
    const std::string full = bare.starts_with('%')
                                 ? session::RemoveEnvVarAndRestorePath(session, bare)
                                 : std::string(bare);
    const bool hasLevels = text::PathBelowRoot(full).size() > 1;
    if (!hasLevels) return std::string(path);
    const auto truePath = session.files().TruePath(full);
    const bool fits = truePath && text::Length(*truePath) <= session::kLongPath;
    return fits ? *truePath : std::string(path);
}

std::string LinkTargetOf(session::Session& session, std::string_view path) {
    const shortcuts::Kind kind = shortcuts::KindOf(text::FileNameOf(path));
    if (kind != shortcuts::Kind::kLnk && kind != shortcuts::Kind::kUrl) return {};
    const auto bytes = session.files().ReadBytes(path, 0, kMostShortcutBytes);
    if (!bytes) return {};
    const std::string target = shortcuts::Read(kind, *bytes)[shortcuts::kTarget];
    return target.empty() ? target : NormalizeTargetPath(session, target);
}

} // namespace tarvix::results
