#include "generate/playlist_load.h"

#include "generate/playlist_lines.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/text_stream.h"
#include "results/result_list.h"
#include "session/errors.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <optional>
#include <unordered_map>
#include <utility>

namespace tarvix::generate {

namespace {

using session::Session;

// A file of a playlist, as it stands on the disk.
struct ListedFile {
    std::string path; // as the disk spells it
    std::optional<platform::ObjectFacts> facts;
};

class Loader {
  public:
    Loader(Session& session, const std::string& folder)
        : session_(session),
          lines_(session.platform.paths, folder, session.state.platformSettings.listsAreNative) {}

    // False when the list takes no more.
    bool Take(std::string_view line, PlaylistLoad& load) {
        PlaylistLine read = lines_.Read(line);
        if (read.kind == PlaylistLineKind::kElsewhere) ++load.elsewhere;
        const bool isEntry = read.kind == PlaylistLineKind::kEntry;
        if (!isEntry && read.kind != PlaylistLineKind::kDuplicate) return true;
        if (session_.rows->Count() + 2 > static_cast<std::size_t>(session::kObjectLimit)) {
            return false;
        }
        if (isEntry) session_.rows->Add({}, "");
        AddRow(Found(std::move(read)), isEntry);
        return true;
    }

  private:
    ListedFile LookAt(const std::string& path) {
        auto& files = session_.files();
        const auto facts = files.Facts(path);
        if (!facts) return {path, std::nullopt};
        return {files.TruePath(path).value_or(path), *facts};
    }
    ListedFile Found(PlaylistLine line) {
        ListedFile file = LookAt(line.path);
        if (file.facts || line.decoded.empty()) return file;
        ListedFile decoded = LookAt(line.decoded);
        return decoded.facts ? decoded : file;
    }
    const results::RowFolder* FolderOf(const std::string& path) {
        const auto [at, isNew] = folders_.try_emplace(path);
        if (isNew) {
            at->second = session_.rows->AddFolder(
                {.longPath = path, .mixedPath = {}, .searchPrefix = 0, .searchFolderIndex = 1});
        }
        return at->second;
    }
    void AddRow(const ListedFile& file, bool isEntry) {
        const std::string name(text::FileNameOf(file.path));
        results::ResultRow row;
        row.isFolder = file.facts && file.facts->IsFolder() && !file.facts->IsLink();
        row.name = name.empty() ? std::string_view(file.path) : std::string_view(name);
        row.folder = FolderOf(row.isFolder ? std::string(text::StripTrailingSlash(file.path))
                                           : text::ParentFolder(file.path));
        row.marks = results::kListed;
        if (isEntry) row.marks |= results::kEntry;
        if (file.facts) {
            row.size = file.facts->size;
            row.attributes = static_cast<std::uint16_t>(file.facts->attributes);
            row.date = text::ToSeconds(session_.platform.clock.ToLocal(file.facts->modified));
            row.identity = session_.rows->Identities().Pack(file.facts->identity, false);
        } else {
            row.marks |= results::kNotRead;
        }
        session_.rows->Add(row, "");
    }

    Session& session_;
    PlaylistLines lines_;
    std::unordered_map<std::string, const results::RowFolder*> folders_;
};

// Reads to the end, or up to an error.
platform::Result<void> ReadLines(Session& session, platform::TextStream& stream, Loader& loader,
                                 PlaylistLoad& load) {
    bool isHead = true; // comments in front of the first entry say nothing of entries
    while (!stream.AtEndOfStream()) {
        auto line = stream.ReadLine();
        if (!line) return std::unexpected(std::move(line.error()));
        session.Yield();
        isHead = isHead && line->starts_with('#');
        if (isHead) continue;
        load.isCut = !loader.Take(*line, load);
        if (load.isCut) break;
    }
    return {};
}

} // namespace

PlaylistLoad OpenPlayListFile(Session& session, const std::string& playlistPath,
                              const std::string& playlistFolder) {
    PlaylistLoad load;
    if (!platform::GetFile(session.files(), playlistPath)) {
        session.MsgBox(
            session::PromptId::kPlayListMissing,
            fmt::format("The \r\n\r\n{}\r\n\r\n does not exist.", session.Shown(playlistPath)));
        return load;
    }
    Loader loader(session, playlistFolder);
    auto stream = session.files().OpenAsTextStream(playlistPath, platform::OpenMode::kRead);
    const auto read = stream ? ReadLines(session, **stream, loader, load)
                             : platform::Result<void>(std::unexpected(stream.error()));
    if (!read) {
        session::HandleError(session, read.error(),
                             {.routine = "OpenPlayListFile",
                              .moduleName = "frmSearch",
                              .object = playlistPath,
                              .path = playlistPath,
                              .searchOrDestination = playlistFolder,
                              .objectType = session::ObjectType::kFile});
    }
    return load;
}

} // namespace tarvix::generate
