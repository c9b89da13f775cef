#include "results/link_target.h"

#include "platform/file_system.h"
#include "platform/try.h"
#include "session/paths/env_variables.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "shortcuts/formats/values.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::results {

namespace {

constexpr std::size_t kUsualShortcutBytes = 1 << 13;
// A ":" in a name is carried as U+F03A.
constexpr std::string_view kCarriedColon = "\xEF\x80\xBA";

bool HasLetter(std::string_view path) {
    return path.size() >= 2 && path[1] == ':';
}

// "x:" of these letters, with all that follows in the target.
std::string BelowLetters(const std::string& letters, std::string_view target) {
    const std::string name = text::Lower(target.substr(0, 1)) + std::string(kCarriedColon);
    return text::JoinPath(letters, name) + std::string(target.substr(2));
}

} // namespace

std::string LettersAbove(session::Session& session, std::string_view path) {
    std::string folder = text::ParentFolder(path);
    while (folder.size() > 3) {
        std::string letters = text::JoinPath(folder, "dosdevices");
        if (platform::GetFolder(session.files(), letters)) return letters;
        folder = text::ParentFolder(folder);
    }
    return {};
}

platform::Result<std::string> ReadShortcut(session::Session& session, std::string_view path) {
    auto bytes = session.files().ReadBytes(path, 0, kUsualShortcutBytes);
    if (!bytes || bytes->size() < kUsualShortcutBytes) return bytes;
    TX_TRY_ASSIGN(const std::string rest,
                  session.files().ReadBytes(path, kUsualShortcutBytes,
                                            kMostShortcutBytes - kUsualShortcutBytes));
    return *bytes + rest;
}

std::optional<std::string> PlaceOfTarget(session::Session& session, std::string_view path,
                                         std::string_view target) {
    const std::string full = target.starts_with('%')
                                 ? session::RemoveEnvVarAndRestorePath(session, target)
                                 : std::string(target);
    if (full.starts_with("\\\\")) return full;
    if (!HasLetter(full)) return std::nullopt;
    const std::string letters = LettersAbove(session, path);
    return letters.empty() ? full : BelowLetters(letters, full);
}

std::string NormalizeLinkTarget(session::Session& session, const std::string& letters,
                                std::string_view target) {
    if (letters.empty() || !HasLetter(target)) return NormalizeTargetPath(session, target);
    const auto place = session.files().TruePath(BelowLetters(letters, target));
    const std::size_t prefix = letters.size() + 2 + kCarriedColon.size();
    if (!place || place->size() <= prefix) return std::string(target);
    return std::string(target.substr(0, 2)) + place->substr(prefix);
}

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
    const auto bytes = ReadShortcut(session, path);
    if (!bytes) return {};
    const std::string target = shortcuts::Read(kind, *bytes)[shortcuts::kTarget];
    return target.empty() ? target : NormalizeTargetPath(session, target);
}

} // namespace tarvix::results
