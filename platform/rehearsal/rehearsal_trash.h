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

    Result<void> Recycle(std::span<const std::string> paths,
                         const TrashObserver& observer) override {
        for (std::size_t done = 0; done < paths.size(); ++done) {
            if (observer && !observer(done)) return TreeFailure(kInterrupted, paths[done]);
            TX_TRY(files_.TakeAway(paths[done]));
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
