#pragma once

#include "platform/rehearsal/rehearsal_file_system.h"
#include "platform/trash.h"
#include "platform/try.h"

#include <cstddef>
#include <utility>

namespace tarvix::platform {

// A trash into which nothing really goes: each object is recorded, and gone for the file system of
// the rehearsal. What the real trash would refuse beforehand it refuses, too.
class RehearsalTrash : public Trash {
  public:
    RehearsalTrash(RehearsalFileSystem& files, Trash& real) : files_(files), real_(real) {}

    Result<void> RecycleSeen(std::span<const SeenObject> objects,
                             const TrashObserver& observer) override {
        for (std::size_t done = 0; done < objects.size(); ++done) {
            const std::string_view path = objects[done].path;
            if (observer && !observer(done)) return TreeFailure(kInterrupted, path);
            if (objects[done].sighting.location != kAnyRoad) {
                TX_TRY(files_.LookAtSeen(objects[done]));
            }
            const auto taken = Take(path);
            hasRefused_ = hasRefused_ || !taken;
            TX_TRY(taken);
        }
        return {};
    }

    // Whether an object that is there was refused since the last call.
    bool TakeRefusal() { return std::exchange(hasRefused_, false); }

    // Nothing lies in it, so nothing ever comes back: what was made whole before gets its name
    // here.
    std::size_t Taken() const override { return taken_; }
    Result<void> PutBack(std::size_t) override {
        return Failure(kFileNotFound, "A rehearsal puts nothing back.");
    }

  private:
    Result<void> Take(std::string_view path) {
        TX_TRY(real_.MayTake(path));
        TX_TRY(files_.TakeAway(path));
        ++taken_;
        return {};
    }

    RehearsalFileSystem& files_;
    Trash& real_;
    std::size_t taken_ = 0;
    bool hasRefused_ = false;
};

} // namespace tarvix::platform
