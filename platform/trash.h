#pragma once

#include "platform/error.h"
#include "platform/seen_object.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// Called before each object with the number done so far; false stops before that object (error 18).
using TrashObserver = std::function<bool(std::size_t done)>;

// The desktop's trash, from which its file manager can restore everything.
class Trash {
  public:
    virtual ~Trash() = default;
    // Sends objects (drive paths) to the trash of the file system they lie on, one after the other:
    // files, folders with all they hold, links themselves. Stops at the first that fails: those
    // before it are in the trash, it and all after it are untouched. Nothing is ever deleted for
    // good. 53 missing, 76 a folder on the way is missing, 70 refused (drives too), 61 disk full,
    // 75 where there is no trash, 18 stopped by the observer, which may be empty,
    // kChangedSinceSearch what is not the object that was seen.
    virtual Result<void> RecycleSeen(std::span<const SeenObject> objects,
                                     const TrashObserver& observer) = 0;
    // The same for whatever stands at paths.
    Result<void> Recycle(std::span<const std::string> paths, const TrashObserver& observer) {
        const std::vector<SeenObject> objects = ByPath(paths);
        return RecycleSeen(objects, observer);
    }
    // What can be told beforehand: 75 where an object would find no trash. One that isn't there, or
    // about which nothing can be told, is no failure.
    virtual Result<void> MayTake(std::string_view) { return {}; }
    // How many objects it has taken since the start: their numbers are those below, in the order in
    // which they went.
    virtual std::size_t Taken() const = 0;
    // Puts the object of that number back to where it was, and never in the place of another: 53
    // when it has left the trash (what bears its name there by now stays), 58 something stands
    // there, 76 its folder is missing, others as the file system says. After a failure both sides
    // are as they were.
    virtual Result<void> PutBack(std::size_t number) = 0;

  private:
    static std::vector<SeenObject> ByPath(std::span<const std::string> paths) {
        std::vector<SeenObject> objects(paths.size());
        for (std::size_t i = 0; i < paths.size(); ++i)
            objects[i].path = paths[i];
        return objects;
    }
};

} // namespace tarvix::platform
