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
            paths_.resize(trash_.Taken());
            TX_TRY(trash_.RecycleSeen(objects.subspan(done, 1), {}));
            paths_.emplace_back(objects[done].path);
        }
        return {};
    }

    Result<void> MayTake(std::string_view path) override { return trash_.MayTake(path); }

    std::size_t Taken() const override { return trash_.Taken(); }

    // By the path that the object came from.
    Result<void> PutBack(std::size_t number) override {
        TX_TRY(faults_.Enter("PutBack", number < paths_.size() ? paths_[number] : ""));
        return trash_.PutBack(number);
    }

  private:
    FaultyFileSystem& faults_;
    Trash& trash_;
    std::vector<std::string> paths_; // of what it took, by number
};

} // namespace tarvix::platform
