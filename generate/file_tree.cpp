#include "generate/file_tree.h"

#include "platform/file_system.h"
#include "platform/names.h"
#include "platform/read_ahead.h"
#include "session/paths/recycle_folders.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/like.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::generate {

using session::Session;

struct FileTree::Reading {
    explicit Reading(platform::FileSystem& files) : ahead(files) {}
    platform::ReadAhead ahead;
};

namespace {

bool IsNestedRecovery(std::string_view path) {
    static const text::LikePattern pattern("*RECOVERY-MODE\\RECOVERY-MODE", true);
    return pattern.Matches(path);
}

} // namespace

bool FileTree::Read(Session& session, std::string_view folder) {
    Reading reading(session.files());
    folders_.emplace_back(text::StripTrailingSlash(folder));
    reading.ahead.OrderListing(std::string(folder));
    platform::FolderListing listing;
    auto& status = session.frmDialog.lblStatus;
    for (current_ = 0; current_ < folders_.size(); ++current_) {
        if (current_ % 64 == 0) {
            status.Caption = fmt::format("Reading {} files in {}", text::Format(Count(), "#,##0"),
                                         session.Shown(folder));
        }
        session.Yield();
        if (session.state.blnStopAction) return false;
        if (!reading.ahead.TakeListing(listing)) {
            ++unreadable_;
            continue;
        }
        for (std::size_t i = 0; i < listing.Size(); ++i) {
            const platform::FolderEntry entry = listing[i];
            if (entry.isFolder) {
                AddFolder(session, reading, entry.name, entry.IsWalkable());
            } else if (platform::CanBeName(entry.name)) {
                AddFile(entry.name);
            }
        }
    }
    return true;
}

void FileTree::AddFile(std::string_view name) {
    const std::size_t start = upperNames_.size();
    text::AppendUpper(upperNames_, name);
    if (std::string_view(upperNames_).substr(start).contains(".M3U")) {
        upperNames_.resize(start);
        return;
    }
    upperEnds_.push_back(static_cast<std::uint32_t>(upperNames_.size()));
    names_ += name;
    nameEnds_.push_back(static_cast<std::uint32_t>(names_.size()));
    folderOf_.push_back(current_);
}

void FileTree::AddFolder(Session& session, Reading& reading, std::string_view name,
                         bool isWalkable) {
    std::string path = text::Concat({folders_[current_], "\\", name});
    if (IsNestedRecovery(path)) {
        session::LogTimed(session,
                          fmt::format(" Skipped {} as nested Recovery-Mode folders are not allowed "
                                      "(Ubuntu).",
                                      session.Shown(path)));
        return;
    }
    if (!isWalkable || !platform::CanBeName(name) || session::IsRecycleBinPath(path)) return;
    reading.ahead.OrderListing(path);
    folders_.push_back(std::move(path));
}

std::string FileTree::Path(std::size_t file) const {
    return text::Concat({folders_[folderOf_[file]], "\\", Name(file)});
}

} // namespace tarvix::generate
