#include "session/typed_folder.h"

#include "fields/control.h"
#include "platform/native_paths.h"
#include "session/native_entry.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::session {

namespace {

constexpr std::size_t kMost = 200;

bool BeginsPath(const platform::NativePaths& paths, std::string_view piece) {
    const bool isDrive = piece.size() >= 3 && piece[1] == ':' && piece[2] == '\\';
    return isDrive || paths.IsNative(piece);
}

bool GoesOn(std::string_view name, std::string_view begin) {
    return text::Length(name) > text::Length(begin) &&
           text::EqualNoCase(text::Left(name, text::Length(begin)), begin);
}

} // namespace

std::optional<TypedFolder> TypedFolderIn(const Session& session, const fields::Control& control,
                                         std::string_view text) {
    const bool isList = control.Owner().Name() == "frmSearch";
    const std::size_t bar = isList ? text.rfind('|') : text.npos;
    const std::size_t start = bar == text.npos ? 0 : bar + 1;
    const std::string_view piece = text::LTrim(text.substr(start));
    const auto& paths = session.platform.paths;
    if (!BeginsPath(paths, piece)) return std::nullopt;
    const std::string drive = paths.ToDrive(piece);
    TypedFolder typed{.before = std::string(text.substr(0, start)), .folder = drive, .begin = {}};
    if (piece.ends_with('/') || piece.ends_with('\\')) return typed;
    typed.folder = std::string(text::GetParentFolderName(drive));
    typed.begin = std::string(text::FileNameOf(drive));
    return typed.folder.empty() ? std::nullopt : std::optional(typed);
}

std::vector<std::string> FolderTexts(const Session& session, const fields::Control& control,
                                     const TypedFolder& typed,
                                     const std::vector<std::string>& names) {
    std::vector<std::string> texts;
    for (const std::string& name : names) {
        const bool isWanted = !name.starts_with('.') || typed.begin.starts_with('.');
        if (!isWanted || !GoesOn(name, typed.begin)) continue;
        texts.push_back(typed.before +
                        EntryShown(session, control, text::JoinPath(typed.folder, name)));
        if (texts.size() == kMost) break;
    }
    return texts;
}

} // namespace tarvix::session
