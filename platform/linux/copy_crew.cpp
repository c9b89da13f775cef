#include "platform/linux/copy_crew.h"

#include "platform/linux/copy_content.h"
#include "platform/linux/file_copier.h"
#include "platform/linux/part_file.h"
#include "platform/linux/system_calls.h"
#include "platform/start_thread.h"

#include <sys/stat.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kWorthWaking = 8; // as many files take longer than to wake a thread
} // namespace

CopyCrew::~CopyCrew() {
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
        waiting_.clear();
    }
    more_.notify_one();
    if (thread_.joinable()) thread_.join();
}

void CopyCrew::Add(std::shared_ptr<File> file) {
    bool wakes = false;
    {
        const std::scoped_lock lock(mutex_);
        waiting_.push_back(std::move(file));
        if (waiting_.size() < kWorthWaking) return;
        wakes = std::exchange(isResting_, false);
    }
    // Without a thread who waits for them copies them all.
    if (StartThread(thread_, [this] { Work(); }) && wakes) more_.notify_one();
}

// From the other end than the other thread, so that the two seldom meet in one folder.
std::optional<bool> CopyCrew::Settle(const File& file) {
    const auto isDone = [&file] {
        return file.state == State::kCopied || file.state == State::kFailed;
    };
    std::unique_lock lock(mutex_);
    if (!isDone() && !waiting_.empty()) {
        const auto last = std::move(waiting_.back());
        waiting_.pop_back();
        Do(*last, lock);
    } else if (!isDone()) {
        awaited_ = &file;
        done_.wait(lock, isDone);
        awaited_ = nullptr;
    }
    return isDone() ? std::optional(file.state == State::kCopied) : std::nullopt;
}

void CopyCrew::Work() {
    std::unique_lock lock(mutex_);
    while (!isEnding_) {
        if (waiting_.empty()) {
            isResting_ = true;
            more_.wait(lock, [this] { return isEnding_ || !isResting_; });
            isResting_ = false;
            continue;
        }
        const auto next = std::move(waiting_.front());
        waiting_.pop_front();
        Do(*next, lock);
        if (awaited_ == next.get()) done_.notify_one();
    }
}

void CopyCrew::Do(File& file, std::unique_lock<std::mutex>& lock) {
    file.state = State::kWorking;
    lock.unlock();
    const bool isCopied = Copy(file);
    lock.lock();
    file.state = isCopied ? State::kCopied : State::kFailed;
}

// What fails here is tried again, and told, by who asks for it.
bool CopyCrew::Copy(File& file) const {
    const auto in = OpenForCopy({file.folder->source->Get(), file.name.c_str()});
    if (!in) return false;
    const auto st = StatOf(in->Get());
    if (!st || !S_ISREG(st->stx_mode) || st->stx_size > kMostInOneGo) return false;
    auto part = PartFile::CreateInside(file.folder->target->Get(), file.name.c_str(),
                                       st->stx_mode & kPlainPermissions);
    if (!part) return false;
    const CopyObserver nobody;
    CopyRun run(nobody, roads_, false);
    if (!CopyContent(in->Get(), part->Fd(), *st, run)) return false;
    CopyMetadata(in->Get(), part->Fd(), *st);
    const auto now = StatOf(in->Get());
    if (!now || !IsAsItWas(*st, *now)) return false;
    if (!part->Commit({file.folder->target->Get(), file.name.c_str()}, false)) return false;
    file.bytes = run.Done();
    return true;
}

} // namespace tarvix::platform
