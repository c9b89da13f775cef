#include "forms/folder_offers.h"

#include "fields/control.h"
#include "forms/folder_lister.h"
#include "forms/text_conversion.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/native_entry.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <optional>

namespace tarvix::forms {

namespace {

constexpr std::size_t kMost = 200;

// What is typed: what stays in front of it, the folder that it lies in, and how its name begins.
struct Typed {
    std::string before;
    std::string folder; // drive path
    std::string begin;
};

bool IsPath(const platform::NativePaths& paths, std::string_view piece) {
    const bool isDrive = piece.size() >= 3 && piece[1] == ':' && piece[2] == '\\';
    return isDrive || paths.IsNative(piece);
}

std::optional<Typed> TypedIn(const session::Session& session, const fields::Control& control,
                             std::string_view text) {
    const bool isList = control.Owner().Name() == "frmSearch";
    const std::size_t bar = isList ? text.rfind('|') : text.npos;
    const std::size_t start = bar == text.npos ? 0 : bar + 1;
    const std::string_view piece = text::LTrim(text.substr(start));
    const auto& paths = session.platform.paths;
    if (!IsPath(paths, piece)) return std::nullopt;
    const std::string drive = paths.ToDrive(piece);
    Typed typed{.before = std::string(text.substr(0, start)), .folder = drive, .begin = {}};
    if (piece.ends_with('/') || piece.ends_with('\\')) return typed;
    typed.folder = std::string(text::GetParentFolderName(drive));
    typed.begin = std::string(text::FileNameOf(drive));
    return typed.folder.empty() ? std::nullopt : std::optional(typed);
}

// On a thread of its own.
FolderLister::Names FoldersIn(platform::FileSystem& files, const std::string& folder) {
    FolderLister::Names names;
    platform::FolderListing listing;
    const auto opened = files.Open(folder);
    if (!opened || !(*opened)->List(listing)) return names;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        if (listing[i].isFolder) names.emplace_back(listing[i].name);
    }
    return names;
}

bool Begins(std::string_view name, std::string_view begin) {
    return text::Length(name) > text::Length(begin) &&
           text::EqualNoCase(text::Left(name, text::Length(begin)), begin);
}

QStringList TextsOf(const session::Session& session, const fields::Control& control,
                    const Typed& typed, const FolderLister::Names& names) {
    QStringList texts;
    for (const std::string& name : names) {
        const bool isWanted = !name.starts_with('.') || typed.begin.starts_with('.');
        if (!isWanted || !Begins(name, typed.begin)) continue;
        const std::string shown =
            session::EntryShown(session, control, text::JoinPath(typed.folder, name));
        texts << ToQt(typed.before + shown);
        if (static_cast<std::size_t>(texts.size()) == kMost) break;
    }
    return texts;
}

} // namespace

FolderOffers MakeFolderOffers(session::Session& session, const fields::Control& control,
                              QObject& parent) {
    platform::FileSystem& files = session.platform.files;
    auto* lister =
        new FolderLister([&files](const std::string& folder) { return FoldersIn(files, folder); },
                         files.AllowsReadingThreads(), &parent);
    return {.ask = [&session, &control, lister](const QString& text,
                                                std::function<void(QStringList)> onFound) {
        const auto typed = TypedIn(session, control, ToUtf8(text));
        if (!typed) return onFound({});
        lister->Ask(typed->folder,
                    [&session, &control, typed = *typed,
                     onFound = std::move(onFound)](const FolderLister::Names& names) {
                        onFound(TextsOf(session, control, typed, names));
                    });
    }};
}

} // namespace tarvix::forms
