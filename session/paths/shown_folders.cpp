#include "session/paths/shown_folders.h"

#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/session.h"
#include "text/paths.h"

namespace tarvix::session {

namespace {
constexpr std::size_t kRootSize = 3; // "C:\"
}

// A parent that comes but once is not worth a form of its own.
bool ShownFolders::BeginsWith(std::string_view parent) {
    if (parent != parent_) {
        parent_ = parent;
        parentSize_.reset();
        return false;
    }
    if (!parentSize_) {
        below_ = platform::NativeForDisplay(session_.platform.paths.ToNative(parent));
        if (!below_.empty()) below_ += '/';
        parentSize_ = below_.size();
    }
    return *parentSize_ > 0;
}

std::string_view ShownFolders::Of(std::string_view path) {
    const std::string_view name = text::FolderOwnName(path);
    const std::size_t above = path.size() - name.size(); // with the separator
    const bool isBelowFolder = above > kRootSize + 1 && path[1] == ':';
    const bool isPutTogether = isBelowFolder && session_.state.platformSettings.showsNative &&
                               BeginsWith(path.substr(0, above - 1)) && platform::CanBeName(name);
    if (!isPutTogether) return whole_ = session_.Shown(path);
    below_.resize(*parentSize_);
    if (platform::MayHoldCarried(name)) {
        platform::AppendNativeForDisplay(below_, platform::NameToNative(name));
    } else {
        platform::AppendNativeForDisplay(below_, name);
    }
    return below_;
}

} // namespace tarvix::session
