#include "session/paths/shown_folders.h"

#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/session.h"
#include "text/paths.h"

#include <utility>

namespace tarvix::session {

namespace {
constexpr std::size_t kRootSize = 3; // "C:\"
constexpr std::size_t kMostForms = 2048;
} // namespace

const std::string& ShownFolders::FormOf(std::string_view parent) {
    if (const auto* const known = lastForms_.In(forms_, parent)) return known->second;
    if (forms_.size() >= kMostForms) {
        lastForms_.Forget();
        forms_.clear();
    }
    std::string form = platform::NativeForDisplay(session_.platform.paths.ToNative(parent));
    if (!form.empty()) form += '/';
    return forms_.emplace(parent, std::move(form)).first->second;
}

std::string_view ShownFolders::Of(std::string_view path) {
    const std::string_view name = text::FolderOwnName(path);
    const std::size_t above = path.size() - name.size(); // with the separator
    const bool isBelowFolder = above > kRootSize + 1 && path[1] == ':' &&
                               session_.state.platformSettings.showsNative &&
                               platform::CanBeName(name);
    if (!isBelowFolder) return whole_ = session_.Shown(path);
    const std::string& form = FormOf(path.substr(0, above - 1));
    if (form.empty()) return whole_ = session_.Shown(path);
    below_ = form;
    if (platform::MayHoldCarried(name)) {
        platform::AppendNativeForDisplay(below_, platform::NameToNative(name));
    } else {
        platform::AppendNativeForDisplay(below_, name);
    }
    return below_;
}

} // namespace tarvix::session
