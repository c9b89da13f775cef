#pragma once

#include "platform/folder_listing.h"
#include "platform/folder_visit.h"

#include <functional>
#include <memory>
#include <string>

namespace tarvix::platform {

class FileSystem;

// Reads folders in the background before they are asked for. Results come in the order of
// the orders, whoever does the work: other threads where the file system allows it, else the caller
// when it takes one. Orders that were never taken are dropped with this. Work is handed over many
// folders at a time, so that no object and hardly a folder costs a lock.
class ReadAhead {
  public:
    // `files` must outlive this. `wish` holds for all visits.
    explicit ReadAhead(FileSystem& files, VisitWish wish = {});
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    // What is done every few milliseconds while the caller has to wait for a result; false gives
    // the waiting up, and with it the result.
    void WhileWaiting(std::function<bool()> act);

    // Asks for a visit to a folder, a drive path; perhaps for its names alone.
    void OrderVisit(std::string folder, bool isForNames = false);
    // What the oldest visit ordered brought. False when waiting for it was given up.
    bool TakeVisit(FolderVisit& visit);

    // A visit for its names alone; false when the folder couldn't be read.
    void OrderListing(std::string folder) { OrderVisit(std::move(folder), true); }
    bool TakeListing(FolderListing& listing);

  private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace tarvix::platform
