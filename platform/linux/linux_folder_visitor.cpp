#include "platform/linux/linux_folder_visitor.h"

#include "platform/linux/linux_file_system.h"
#include "platform/linux/system_calls.h"
#include "platform/names.h"

#include <mutex>
#include <sys/resource.h>
#include <utility>

namespace tarvix::platform {

namespace {
// How often the thread gave the processor up to wait for something.
long WaitsOfThread() {
    rusage usage{};
    return ::getrusage(RUSAGE_THREAD, &usage) == 0 ? usage.ru_nvcsw : 0;
}
} // namespace

std::optional<LinuxOpenFolder> VisitedBy::Open(const std::string& folder) {
    const std::shared_lock lock(mutex_);
    if (files_ == nullptr) return std::nullopt;
    auto opened = files_->OpenByPath(folder);
    if (!opened) return std::nullopt;
    return std::move(*opened);
}

void VisitedBy::Leave() {
    const std::scoped_lock lock(mutex_);
    files_ = nullptr;
}

void LinuxFolderVisitor::Visit(const std::string& folder, const VisitWish& wish,
                               const std::atomic<bool>& isDropped, FolderVisit& visit) {
    if (visits_++ == 0) waits_ = WaitsOfThread();
    if (VisitFromParent(folder, wish, isDropped, visit)) return;
    if (auto opened = files_->Open(folder)) return opened->Visit(wish, isDropped, visit);
    visit = {};
}

bool LinuxFolderVisitor::EndRun() {
    const std::size_t visits = std::exchange(visits_, 0);
    held_.reset();
    parent_.clear();
    constexpr std::size_t kTells = 4;
    return visits >= kTells && static_cast<std::size_t>(WaitsOfThread() - waits_) > visits / 2;
}

std::unique_ptr<PartedFolder> LinuxFolderVisitor::OpenInParts(const std::string& folder) {
    auto opened = files_->Open(folder);
    return opened ? std::make_unique<LinuxOpenFolder>(std::move(*opened)) : nullptr;
}

bool LinuxFolderVisitor::HoldsParent(std::string_view parent) {
    if (parent != parent_) {
        parent_ = parent;
        held_.reset();
        isRefused_ = false;
        return false;
    }
    if (!held_ && !isRefused_) {
        held_ = files_->Open(parent_);
        isRefused_ = !held_.has_value();
    }
    return held_.has_value();
}

// False where the folder's whole path must be walked.
bool LinuxFolderVisitor::VisitFromParent(const std::string& folder, const VisitWish& wish,
                                         const std::atomic<bool>& isDropped, FolderVisit& visit) {
    const std::size_t slash = folder.rfind('\\');
    if (slash == folder.npos || !HoldsParent(std::string_view(folder).substr(0, slash)))
        return false;
    const std::string_view name = std::string_view(folder).substr(slash + 1);
    if (!CanBeName(name)) return false;
    const std::string native = NameToNative(name);
    if (FindKnown(native, wish, visit)) return true;
    auto opened = held_->OpenChild(native, folder);
    if (!opened) return false;
    opened->Visit(wish, isDropped, visit);
    return true;
}

// False where the folder must be opened; what is found then spares the visit a second look at the
// same names.
bool LinuxFolderVisitor::FindKnown(const std::string& name, const VisitWish& wish,
                                   FolderVisit& visit) {
    if (!held_->KeepsListings()) return false;
    const auto st = StatOf(At{held_->Fd(), name.c_str()});
    if (!st || !S_ISDIR(st->stx_mode)) return false;
    visit.names = held_->KnownNames(*st, name);
    if (!visit.names) return false;
    FindWanted(wish, visit);
    if (wish.folderFacts) visit.folder = held_->ChildFacts(*st, name);
    return !wish.facts || visit.wanted.empty();
}

} // namespace tarvix::platform
