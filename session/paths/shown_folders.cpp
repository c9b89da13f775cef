#include "session/paths/shown_folders.h"

#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/session.h"
#include "text/characters.h"

namespace tarvix::session {

namespace {
constexpr std::size_t kRootSize = 3; // "C:\"
}

// A parent that comes but once is not worth a form of its own.
std::string_view ShownFolders::ShownParent(std::string_view parent) {
    if (parent != parent_) {
        parent_ = parent;
        shownParent_.reset();
        return {};
    }
    if (!shownParent_) {
        const std::string native = session_.platform.paths.ToNative(parent);
        shownParent_ = native.empty() ? "" : platform::NativeForDisplay(native);
    }
    return *shownParent_;
}

std::string ShownFolders::Of(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    const bool isBelowFolder = slash != path.npos && slash > kRootSize && path[1] == ':';
    if (!isBelowFolder || !session_.state.platformSettings.showsNative) {
        return session_.Shown(path);
    }
    const std::string_view name = path.substr(slash + 1);
    const std::string_view parent = ShownParent(path.substr(0, slash));
    if (parent.empty() || !platform::CanBeName(name)) return session_.Shown(path);
    const bool isNative = !platform::MayHoldCarried(name);
    return text::Concat({parent, "/",
                         isNative ? platform::NativeForDisplay(name)
                                  : platform::NativeForDisplay(platform::NameToNative(name))});
}

} // namespace tarvix::session
