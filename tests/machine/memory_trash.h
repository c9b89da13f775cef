#pragma once

#include "platform/trash.h"
#include "tests/machine/memory_file_system.h"

#include <set>

namespace tarvix::platform {

// A trash in memory. An object that is thrown away keeps all it holds and can be restored.
class MemoryTrash : public Trash {
  public:
    struct Item {
        std::string path; // where it was, as the disk spelled it
        std::shared_ptr<MemoryNode> node;
        std::size_t number = 0; // of those taken
    };

    explicit MemoryTrash(MemoryFileSystem& disk) : disk_(disk) {}

    Result<void> RecycleSeen(std::span<const SeenObject> objects,
                             const TrashObserver& observer) override;
    Result<void> MayTake(std::string_view path) override;
    std::size_t Taken() const override { return taken_; }
    Result<void> PutBack(std::size_t number) override;

    // ---- for tests ----

    // What lies in the trash, in the order it came.
    const std::vector<Item>& Items() const { return items_; }
    // The paths of the items, in that order.
    std::vector<std::string> Paths() const;
    // Puts back what was thrown away last from a path: 53 nothing was, 58 the name is taken, 76 the
    // folder is gone.
    Result<void> Restore(std::string_view path);
    // What was thrown away last from a path leaves the trash for good; false when nothing was.
    bool Lose(std::string_view path);
    // Whether a drive ("E:") has a trash; 75 where it has none.
    void SetHasTrash(std::string_view root, bool hasTrash);
    // Refuses one path (without regard to case) with that error from now on; 0 takes it again.
    void Refuse(std::string_view path, int error);

  private:
    using Place = std::vector<Item>::iterator;
    Result<void> RecycleOne(const std::string& path);
    Place LastFrom(std::string_view path);
    Result<void> GiveBack(Place item);

    MemoryFileSystem& disk_;
    std::vector<Item> items_;
    std::size_t taken_ = 0;
    std::set<std::string> withoutTrash_; // roots in upper case
    std::map<std::string, int> refused_; // by true path in upper case
};

} // namespace tarvix::platform
