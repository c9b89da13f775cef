#include "platform/linux/folder_copier.h"

#include "platform/linux/copy_content.h"
#include "platform/linux/file_copier.h"
#include "platform/names.h"

#include <fmt/core.h>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kPlanned = 48;
constexpr std::size_t kPlanAgainAt = 24;
constexpr std::size_t kMostBegun = 64;

void AppendName(std::string& path, const char* name) {
    if (!path.ends_with('\\')) path += '\\';
    AppendNameToDrive(path, name);
}
} // namespace

bool IsForeignMount(const FolderStack& stack, const DriveTable& drives) {
    const std::uint64_t device = DeviceOf(stack.TopFacts());
    return device != DeviceOf(stack.OuterFacts()) && drives.IsBoundaryDevice(device);
}

Result<void> FolderCopier::Copy(UniqueFd source, UniqueFd target, bool madeTarget) {
    if (const auto begun = sources_.Begin(std::move(source)); !begun) {
        return FailureOf(begun.error(), from_);
    }
    if (const auto begun = targets_.Begin(std::move(target)); !begun) {
        return FailureOf(begun.error(), to_);
    }
    auto copied = PushLevel(madeTarget);
    if (copied) copied = CopyContents();
    // Folders that were begun get their facts even when the rest failed.
    while (!levels_.empty()) {
        if (!PopLevel()) break;
    }
    if (run_.ahead != nullptr) run_.ahead->DropPushed();
    return copied;
}

void FolderCopier::NoteSkipped(std::string_view path) {
    if (skipped_++ == 0) firstSkipped_ = path;
}

std::string FolderCopier::Skipped() const {
    if (skipped_ == 0) return {};
    const std::string others =
        skipped_ == 1 ? std::string() : fmt::format(" and {} more like it", skipped_ - 1);
    return fmt::format("{}{} can't be copied, being a special file or another drive; all else was.",
                       ForDisplay(firstSkipped_), others);
}

Result<void> FolderCopier::CopyContents() {
    if (run_.isInside && run_.roads.ahead) crew_.emplace(run_.roads);
    const auto done = GoThrough();
    // What was begun before something failed may have failed earlier.
    auto settled = SettleAllBut(0);
    begun_.clear();
    crew_.reset();
    return settled ? done : settled;
}

Result<void> FolderCopier::GoThrough() {
    while (!levels_.empty()) {
        const FolderNames::Item item = levels_.back().names.Next();
        const bool isForCrew = crew_ && item.name != nullptr && item.type == DT_REG;
        auto done = item.name == nullptr ? PopLevel()
                    : isForCrew          ? Begin(item.name)
                                         : CopyChild(item);
        if (!done) return done;
    }
    return {};
}

// ---- with the crew ----

std::shared_ptr<const CopyCrew::Folder> FolderCopier::FolderInHand() {
    auto& folder = levels_.back().folder;
    if (folder == nullptr) {
        folder = std::make_shared<const CopyCrew::Folder>(
            CopyCrew::Folder{sources_.Share(), targets_.Share(), sources_.TopFacts(), from_, to_});
    }
    return folder;
}

Result<void> FolderCopier::Begin(const char* name) {
    auto file = std::make_shared<CopyCrew::File>();
    file->folder = FolderInHand();
    file->name = name;
    begun_.push_back({file->folder, file});
    crew_->Add(std::move(file));
    return SettleAllBut(kMostBegun);
}

Result<void> FolderCopier::SettleAllBut(std::size_t count) {
    while (begun_.size() > count) {
        const Begun next = std::move(begun_.front());
        begun_.pop_front();
        if (auto settled = Settle(next); !settled) {
            begun_.clear();
            return settled;
        }
    }
    return {};
}

Result<void> FolderCopier::Settle(const Begun& begun) {
    const CopyCrew::Folder& folder = *begun.folder;
    const int source = folder.source->Get();
    const int target = folder.target->Get();
    if (begun.file == nullptr) {
        CopyMetadata(source, target, folder.st);
        return {};
    }
    const char* const name = begun.file->name.c_str();
    told_ = folder.from;
    AppendName(told_, name);
    std::optional<bool> isCopied;
    while (!isCopied) {
        if (!run_.Begin(told_)) return FailureBy(kInterrupted, told_);
        isCopied = crew_->Settle(*begun.file);
    }
    if (*isCopied) {
        if (!run_.Add(begun.file->bytes)) return FailureBy(kInterrupted, told_);
        return {};
    }
    std::string to = folder.to;
    AppendName(to, name);
    return CopyFile({{source, name}, {target, name}, told_, to, false});
}

// ---- one after the other ----

Result<void> FolderCopier::PushLevel(bool isNew) {
    levels_.push_back({{}, from_.size(), to_.size(), isNew});
    auto names = FolderNames::Read(sources_.Top());
    if (!names) return FailureOf(names.error(), from_);
    levels_.back().names = std::move(*names);
    return {};
}

Result<void> FolderCopier::PopLevel() {
    if (levels_.back().isNew && crew_) {
        // Its dates stand once the last file has come to it.
        begun_.push_back({FolderInHand(), nullptr});
    } else if (levels_.back().isNew) {
        CopyMetadata(sources_.Top(), targets_.Top(), sources_.TopFacts());
    }
    levels_.pop_back();
    const auto source = sources_.Leave();
    if (!source) return FailureOf(source.error(), from_);
    const auto target = targets_.Leave();
    if (!target) return FailureOf(target.error(), to_);
    if (levels_.empty()) return {};
    from_.resize(levels_.back().fromLength);
    to_.resize(levels_.back().toLength);
    return SettleAllBut(kMostBegun);
}

Result<void> FolderCopier::CopyChild(const FolderNames::Item& item) {
    AppendName(from_, item.name);
    AppendName(to_, item.name);
    if (item.type == DT_DIR) return CopySubfolder(item);
    if (run_.ahead != nullptr && !run_.isInside) PlanAhead();
    auto copied = CopyFile({{sources_.Top(), item.name},
                            {targets_.Top(), item.name},
                            from_,
                            to_,
                            !levels_.back().isNew});
    if (copied) {
        from_.resize(levels_.back().fromLength);
        to_.resize(levels_.back().toLength);
    }
    return copied;
}

// The files behind the one in hand.
void FolderCopier::PlanAhead() {
    Level& level = levels_.back();
    const std::size_t next = level.names.NextIndex();
    if (level.planned == level.names.Size() || level.planned > next + kPlanAgainAt) return;
    std::size_t waiting = 0;
    for (std::size_t i = next; i < level.planned; ++i)
        waiting += level.names[i].type == DT_REG ? 1 : 0;
    const std::size_t begin = std::max(level.planned, next);
    level.planned = std::min(begin + kPlanned, level.names.Size());
    std::vector<AheadItem> items;
    for (std::size_t i = begin; i < level.planned; ++i) {
        if (level.names[i].type == DT_REG) items.push_back(AheadItemOf(level.names[i].name));
    }
    run_.ahead->Push(std::move(items), waiting);
}

AheadItem FolderCopier::AheadItemOf(const char* name) {
    AheadItem item{from_.substr(0, levels_.back().fromLength), sources_.Share(), name,
                   targets_.Share()};
    AppendName(item.key, name);
    return item;
}

Result<void> FolderCopier::CopyFile(const Child& child) {
    const auto st = StatOf(child.source);
    if (!st) return FailureOf(st.error(), child.from);
    if (S_ISDIR(st->stx_mode)) return FailureBy(kPathFileAccess, child.from);
    if (!S_ISREG(st->stx_mode) && !S_ISLNK(st->stx_mode)) {
        NoteSkipped(child.from);
        return {};
    }
    if (child.mayStand) {
        if (auto can = CheckFile(*st, child); !can) return can;
    }
    return CopyObject(
        {child.source, *st, child.from, child.target.folder, child.target.name, child.to}, run_);
}

Result<void> FolderCopier::CheckFile(const struct statx& source, const Child& child) {
    const auto existing = StatOf(child.target);
    if (!existing) return {};
    bool leadsToFolder = S_ISDIR(existing->stx_mode);
    if (S_ISLNK(existing->stx_mode)) {
        const auto behind = StatBehind(child.target);
        leadsToFolder = behind && S_ISDIR(behind->stx_mode);
    }
    return CheckReplace(source, *existing, leadsToFolder, run_.overwrite, child.to);
}

Result<void> FolderCopier::CopySubfolder(const FolderNames::Item& item) {
    if (const auto entered = sources_.Enter(item.name); !entered) {
        return FailureOf(entered.error(), from_);
    }
    if (IsForeignMount(sources_, drives_)) {
        NoteSkipped(from_);
        from_.resize(levels_.back().fromLength);
        to_.resize(levels_.back().toLength);
        const auto left = sources_.Leave();
        if (!left) return FailureOf(left.error(), from_);
        return {};
    }
    const auto made = MakeFolder(item.name);
    const auto entered = made ? targets_.Enter(item.name) : Sys<void>();
    if (made && entered) return PushLevel(*made);
    // Both stacks must stand at the same level for what follows.
    static_cast<void>(sources_.Leave());
    if (!made) return std::unexpected(made.error());
    return FailureOf(entered.error(), to_);
}

// Whether the folder is new.
Result<bool> FolderCopier::MakeFolder(const char* name) {
    if (::mkdirat(targets_.Top(), name, 0700) == 0) return true;
    if (errno != EEXIST) return FailureOf(errno, to_);
    const auto existing = StatOf(At{targets_.Top(), name});
    if (!existing) return FailureOf(existing.error(), to_);
    if (S_ISDIR(existing->stx_mode)) return false;
    return FailureBy(run_.overwrite ? kPathFileAccess : kAlreadyExists, to_);
}

std::unexpected<PlatformError> IntoItselfFailure(std::string_view from, std::string_view to) {
    return Failure(kPathFileAccess, fmt::format("The folder {} can't go into itself, as {}.",
                                                ForDisplay(from), ForDisplay(to)));
}

bool IsWithin(int folder, const struct statx& outer) {
    auto st = StatOf(folder);
    UniqueFd held;
    while (st) {
        if (IsSameObject(*st, outer)) return true;
        auto up = OpenAt({held ? held.Get() : folder, ".."}, O_PATH | O_DIRECTORY);
        if (!up) return false;
        held = std::move(*up);
        const auto above = StatOf(held.Get());
        if (above && IsSameObject(*above, *st)) return false;
        st = above;
    }
    return false;
}

} // namespace tarvix::platform
