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

UniqueFd Duplicated(int fd) {
    return UniqueFd(::fcntl(fd, F_DUPFD_CLOEXEC, 0));
}

bool IsForeignMount(const FolderStack& stack, const DriveTable& drives) {
    const std::uint64_t device = DeviceOf(stack.TopFacts());
    return device != DeviceOf(stack.OuterFacts()) && drives.IsBoundaryDevice(device);
}

void AppendName(std::string& path, const char* name) {
    if (!path.ends_with('\\')) path += '\\';
    AppendNameToDrive(path, name);
}

void AddSize(const FolderStack& stack, const char* name, std::uint64_t& bytes) {
    const auto st = StatOf(At{stack.Top(), name});
    if (st && S_ISREG(st->stx_mode)) bytes += st->stx_size;
}
} // namespace

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

void FolderCopier::NoteSkipped() {
    if (skipped_++ == 0) firstSkipped_ = from_;
}

std::string FolderCopier::Skipped() const {
    if (skipped_ == 0) return {};
    const std::string others =
        skipped_ == 1 ? std::string() : fmt::format(" and {} more like it", skipped_ - 1);
    return fmt::format("{}{} can't be copied, being a special file or another drive; all else was.",
                       ForDisplay(firstSkipped_), others);
}

Result<void> FolderCopier::CopyContents() {
    while (!levels_.empty()) {
        const FolderNames::Item item = levels_.back().names.Next();
        auto done = item.name == nullptr ? PopLevel() : CopyChild(item);
        if (!done) return done;
    }
    return {};
}

Result<void> FolderCopier::PushLevel(bool isNew) {
    levels_.push_back({{}, from_.size(), to_.size(), isNew, 0, nullptr, nullptr});
    auto names = FolderNames::Read(sources_.Top());
    if (!names) return FailureOf(names.error(), from_);
    levels_.back().names = std::move(*names);
    return {};
}

Result<void> FolderCopier::PopLevel() {
    if (levels_.back().isNew) CopyMetadata(sources_.Top(), targets_.Top(), sources_.TopFacts());
    levels_.pop_back();
    const auto source = sources_.Leave();
    if (!source) return FailureOf(source.error(), from_);
    const auto target = targets_.Leave();
    if (!target) return FailureOf(target.error(), to_);
    if (levels_.empty()) return {};
    from_.resize(levels_.back().fromLength);
    to_.resize(levels_.back().toLength);
    return {};
}

Result<void> FolderCopier::CopyChild(const FolderNames::Item& item) {
    AppendName(from_, item.name);
    AppendName(to_, item.name);
    if (item.type == DT_DIR) return CopySubfolder(item);
    if (run_.ahead != nullptr) PlanAhead();
    auto copied = CopyFile(item);
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
    Level& level = levels_.back();
    if (level.source == nullptr) {
        level.source = std::make_shared<UniqueFd>(Duplicated(sources_.Top()));
        level.target = std::make_shared<UniqueFd>(Duplicated(targets_.Top()));
    }
    AheadItem item{from_.substr(0, level.fromLength), level.source, name, level.target};
    AppendName(item.key, name);
    return item;
}

Result<void> FolderCopier::CopyFile(const FolderNames::Item& item) {
    const At source{sources_.Top(), item.name};
    const auto st = StatOf(source);
    if (!st) return FailureOf(st.error(), from_);
    if (S_ISDIR(st->stx_mode)) return FailureBy(kPathFileAccess, from_);
    if (!S_ISREG(st->stx_mode) && !S_ISLNK(st->stx_mode)) {
        NoteSkipped();
        return {};
    }
    if (!levels_.back().isNew) {
        if (auto can = CheckFile(*st, item.name); !can) return can;
    }
    return CopyObject({source, *st, from_, targets_.Top(), item.name, to_}, run_);
}

Result<void> FolderCopier::CheckFile(const struct statx& source, const char* name) {
    const At target{targets_.Top(), name};
    const auto existing = StatOf(target);
    if (!existing) return {};
    bool leadsToFolder = S_ISDIR(existing->stx_mode);
    if (S_ISLNK(existing->stx_mode)) {
        const auto behind = StatBehind(target);
        leadsToFolder = behind && S_ISDIR(behind->stx_mode);
    }
    return CheckReplace(source, *existing, leadsToFolder, run_.overwrite, to_);
}

Result<void> FolderCopier::CopySubfolder(const FolderNames::Item& item) {
    if (const auto entered = sources_.Enter(item.name); !entered) {
        return FailureOf(entered.error(), from_);
    }
    if (IsForeignMount(sources_, drives_)) {
        NoteSkipped();
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

std::uint64_t SizeOfTree(UniqueFd folder, const DriveTable& drives) {
    std::uint64_t bytes = 0;
    FolderStack stack;
    std::vector<FolderNames> levels;
    if (!stack.Begin(std::move(folder))) return bytes;
    levels.push_back(FolderNames::Read(stack.Top()).value_or(FolderNames()));
    while (!levels.empty()) {
        const FolderNames::Item item = levels.back().Next();
        if (item.name == nullptr) {
            levels.pop_back();
            if (!stack.Leave()) return bytes;
        } else if (item.type == DT_REG) {
            AddSize(stack, item.name, bytes);
        } else if (item.type == DT_DIR && stack.Enter(item.name)) {
            const bool isForeign = IsForeignMount(stack, drives);
            levels.push_back(isForeign ? FolderNames()
                                       : FolderNames::Read(stack.Top()).value_or(FolderNames()));
        }
    }
    return bytes;
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
