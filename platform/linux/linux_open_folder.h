#pragma once

#include "platform/file_system.h"
#include "platform/folder_visit.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/listing_store.h"
#include "platform/linux/unique_fd.h"

#include <memory>
#include <string>

namespace tarvix::platform {

class LinuxOpenFolder : public OpenFolder, public PartedFolder {
  public:
    // `native` is the folder's true path. `path` is its drive path, for messages. `listings` may be
    // null.
    LinuxOpenFolder(UniqueFd fd, std::shared_ptr<const DriveTable> drives, std::string native,
                    std::string path, std::shared_ptr<ListingStore> listings);

    Result<void> List(FolderListing& listing) override;
    Result<ObjectFacts> Facts(std::string_view name) override;

    std::shared_ptr<const FolderListing> NamesInParts(const More& more) override;
    BriefFacts FactsOf(std::string_view name) const override;

    // All that a visit wants, by the one descriptor; see FolderVisitor.
    void Visit(const VisitWish& wish, const std::atomic<bool>& isDropped, FolderVisit& visit);

    // ---- for what lies directly in it, by disk name ----

    int Fd() const { return fd_.Get(); }
    // Opens a folder; a link is not followed (ELOOP, ENOTDIR). `path` is its drive path.
    Sys<LinuxOpenFolder> OpenChild(const std::string& nativeName, const std::string& path) const;
    bool KeepsListings() const { return listings_ && listings_->IsWanted(); }
    // The names that a folder had, whose facts are `st`, if they are known and stand.
    std::shared_ptr<const FolderListing> KnownNames(const struct statx& st,
                                                    const std::string& nativeName) const;
    BriefFacts ChildFacts(const struct statx& st, const std::string& nativeName) const;

  private:
    Result<std::shared_ptr<const FolderListing>> Names(const More& more = {});
    Result<void> Read(FolderListing& listing, const More& more = {});
    std::string NativeOf(std::string_view nativeName) const;

    UniqueFd fd_;
    bool wasRead_ = false;
    std::shared_ptr<const DriveTable> drives_;
    const DriveTable::Names* boundaries_; // of `drives_`
    std::string native_;
    std::string path_;
    std::shared_ptr<ListingStore> listings_;
};

} // namespace tarvix::platform
