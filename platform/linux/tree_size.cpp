#include "platform/linux/tree_size.h"

#include "platform/linux/folder_copier.h"
#include "platform/linux/folder_stack.h"
#include "platform/linux/system_calls.h"
#include "platform/start_thread.h"

#include <dirent.h>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace tarvix::platform {

namespace {
void AddSize(const FolderStack& stack, const char* name, std::uint64_t& bytes) {
    const auto st = StatOf(At{stack.Top(), name});
    if (st && S_ISREG(st->stx_mode)) bytes += st->stx_size;
}
} // namespace

TreeSize::TreeSize(UniqueFd folder, std::shared_ptr<const DriveTable> drives, std::int64_t after)
    : folder_(std::move(folder)), drives_(std::move(drives)), due_(SteadyTick() + after) {}

TreeSize::~TreeSize() {
    isEnding_ = true;
    if (thread_.joinable()) thread_.join();
}

std::optional<std::uint64_t> TreeSize::Now() {
    if (isKnown_) return bytes_;
    // The folder is the thread's, once there is one.
    if (!thread_.joinable() && folder_ && SteadyTick() >= due_) {
        (void)StartThread(thread_, [this] {
            bytes_ = Sum();
            isKnown_ = !isEnding_;
        });
    }
    return std::nullopt;
}

std::uint64_t TreeSize::Sum() {
    std::uint64_t bytes = 0;
    FolderStack stack;
    std::vector<FolderNames> levels;
    if (!stack.Begin(std::move(folder_))) return bytes;
    levels.push_back(FolderNames::Read(stack.Top()).value_or(FolderNames()));
    while (!levels.empty() && !isEnding_) {
        const FolderNames::Item item = levels.back().Next();
        if (item.name == nullptr) {
            levels.pop_back();
            if (!stack.Leave()) return bytes;
        } else if (item.type == DT_REG) {
            AddSize(stack, item.name, bytes);
        } else if (item.type == DT_DIR && stack.Enter(item.name)) {
            const bool isForeign = IsForeignMount(stack, *drives_);
            levels.push_back(isForeign ? FolderNames()
                                       : FolderNames::Read(stack.Top()).value_or(FolderNames()));
        }
    }
    return bytes;
}

} // namespace tarvix::platform
