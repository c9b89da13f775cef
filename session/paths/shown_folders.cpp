#include "session/paths/shown_folders.h"

#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/session.h"
#include "text/characters.h"

namespace tarvix::session {

namespace {
constexpr std::size_t kRootSize = 3; // "C:\"
}

const std::string& ShownFolders::ShownParent(std::string_view parent) {
    if (parent == parent_) return shownParent_;
    parent_ = parent;
    const std::string native = session_.platform.paths.ToNative(parent);
    shownParent_ = native.empty() ? "" : platform::NativeForDisplay(native);
    return shownParent_;
}

std::string ShownFolders::Of(std::string_view folder) {
    const std::size_t slash = folder.rfind('\\');
    const bool isBelowFolder = slash != folder.npos && slash > kRootSize && folder[1] == ':';
    if (!isBelowFolder || !session_.state.platformSettings.showsNative) {
        return session_.Shown(folder);
    }
    const std::string_view name = folder.substr(slash + 1);
    const std::string& parent = ShownParent(folder.substr(0, slash));
    if (parent.empty() || !platform::CanBeName(name)) return session_.Shown(folder);
    return text::Concat({parent, "/", platform::NativeForDisplay(platform::NameToNative(name))});
}

} // namespace tarvix::session
