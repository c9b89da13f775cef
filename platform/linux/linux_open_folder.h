#pragma once

#include "platform/file_system.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/listing_store.h"
#include "platform/linux/unique_fd.h"

#include <memory>
#include <string>

namespace tarvix::platform {

class LinuxOpenFolder : public OpenFolder {
  public:
    // `boundaries` belong to `drives`. `path` is the folder's drive path, for messages. `listings`
    // may be null; else it must outlive this.
    LinuxOpenFolder(UniqueFd fd, std::shared_ptr<const DriveTable> drives,
                    const DriveTable::Names* boundaries, std::string path, ListingStore* listings)
        : fd_(std::move(fd)), drives_(std::move(drives)), boundaries_(boundaries),
          path_(std::move(path)), listings_(listings) {}

    Result<void> List(FolderListing& listing) override;
    Result<ObjectFacts> Facts(std::string_view name) override;

  private:
    Result<void> Read(FolderListing& listing);

    UniqueFd fd_;
    std::shared_ptr<const DriveTable> drives_;
    const DriveTable::Names* boundaries_;
    std::string path_;
    ListingStore* listings_;
};

} // namespace tarvix::platform
