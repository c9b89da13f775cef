#pragma once

#include "platform/folder_visit.h"
#include "platform/linux/linux_open_folder.h"

#include <memory>
#include <optional>
#include <shared_mutex>
#include <string>
#include <string_view>

namespace tarvix::platform {

class LinuxFileSystem;

// The way from visitors, which may outlive their file system, to that one.
class VisitedBy {
  public:
    explicit VisitedBy(LinuxFileSystem* files) : files_(files) {}
    // The folder by its path; nothing when it can't be opened, or the file system has gone.
    std::optional<LinuxOpenFolder> Open(const std::string& folder);
    // Waits for those who are just opening one.
    void Leave();

  private:
    std::shared_mutex mutex_;
    LinuxFileSystem* files_;
};

// Folders that lie in one folder come one after the other: that one is held open, and they are
// reached from there without walking down its path again. A folder whose names are kept and stand
// isn't even opened, unless facts of its files are wanted.
class LinuxFolderVisitor : public FolderVisitor {
  public:
    explicit LinuxFolderVisitor(std::shared_ptr<VisitedBy> files) : files_(std::move(files)) {}

    void Visit(const std::string& folder, const VisitWish& wish, const std::atomic<bool>& isDropped,
               FolderVisit& visit) override;
    bool EndRun() override;
    std::unique_ptr<PartedFolder> OpenInParts(const std::string& folder) override;

  private:
    bool HoldsParent(std::string_view parent);
    bool VisitFromParent(const std::string& folder, const VisitWish& wish,
                         const std::atomic<bool>& isDropped, FolderVisit& visit);
    bool FindKnown(const std::string& name, const VisitWish& wish, FolderVisit& visit);

    std::shared_ptr<VisitedBy> files_;
    std::string parent_;                  // of the last folder that was visited; a drive path
    std::optional<LinuxOpenFolder> held_; // that one, once two folders in it were wanted
    bool isRefused_ = false;              // it can't be opened
    std::size_t visits_ = 0;              // of this run
    long waits_ = 0;                      // of the thread, when it began
};

} // namespace tarvix::platform
