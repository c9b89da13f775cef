#pragma once

#include "platform/trash.h"
#include "platform/tree/tree_file_system.h"
#include "platform/try.h"
#include "tests/machine/faulty_file_system.h"

namespace tarvix::platform {

// Hands each object on to another Trash, counted and failed by the file system's faults as one call
// "Recycle" for each object.
class FaultyTrash : public Trash {
  public:
    FaultyTrash(FaultyFileSystem& faults, Trash& trash) : faults_(faults), trash_(trash) {}

    Result<void> RecycleSeen(std::span<const SeenObject> objects,
                             const TrashObserver& observer) override {
        for (std::size_t done = 0; done < objects.size(); ++done) {
            if (observer && !observer(done)) return TreeFailure(kInterrupted, objects[done].path);
            TX_TRY(faults_.Enter("Recycle", objects[done].path));
            TX_TRY(trash_.RecycleSeen(objects.subspan(done, 1), {}));
        }
        return {};
    }

    Result<void> MayTake(std::string_view path) override { return trash_.MayTake(path); }

    Result<void> PutBack(std::string_view path) override {
        TX_TRY(faults_.Enter("PutBack", path));
        return trash_.PutBack(path);
    }

  private:
    FaultyFileSystem& faults_;
    Trash& trash_;
};

} // namespace tarvix::platform
