#include "platform/linux/copy_run.h"

#include "platform/linux/tree_size.h"

#include <algorithm>

namespace tarvix::platform {

bool CopyRun::Tell() {
    if (!observer_) return true;
    if (size != nullptr) {
        if (const auto known = size->Now()) {
            total_ = *known;
            size = nullptr;
        }
    }
    // What came into a folder since it was looked through is more than was expected.
    return observer_({path_, done_, total_ == 0 ? 0 : std::max(total_, done_)});
}

} // namespace tarvix::platform
