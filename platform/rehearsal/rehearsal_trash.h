#pragma once

#include "platform/rehearsal/rehearsal_file_system.h"
#include "platform/trash.h"
#include "platform/try.h"

namespace tarvix::platform {

// A trash into which nothing really goes: each object is recorded, and gone for the file system of
// the rehearsal. It takes every drive to have a trash.
class RehearsalTrash : public Trash {
  public:
    explicit RehearsalTrash(RehearsalFileSystem& files) : files_(files) {}

    Result<void> RecycleSeen(std::span<const SeenObject> objects,
                             const TrashObserver& observer) override {
        for (std::size_t done = 0; done < objects.size(); ++done) {
            const std::string_view path = objects[done].path;
            if (observer && !observer(done)) return TreeFailure(kInterrupted, path);
            if (objects[done].sighting.location != kAnyRoad) {
                TX_TRY(files_.LookAtSeen(objects[done]));
            }
            TX_TRY(files_.TakeAway(path));
        }
        return {};
    }

    // What was made whole before gets its name here, so that nothing ever comes back.
    Result<void> PutBack(std::string_view path) override {
        return TreeFailure(kFileNotFound, path);
    }

  private:
    RehearsalFileSystem& files_;
};

} // namespace tarvix::platform
