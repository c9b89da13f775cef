#include "forms/folder_lister.h"

#include "platform/start_thread.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace tarvix::forms {

namespace {
constexpr std::chrono::milliseconds kPatience{200}; // for a thread to end
}

struct FolderLister::Shared {
    List list;
    std::mutex mutex; // of all that follows
    std::condition_variable asked;
    std::condition_variable ended;
    std::string folder;
    unsigned long long newest = 0; // questions are counted from 1
    unsigned long long begun = 0;
    unsigned long long answered = 0;
    Names names;                   // of the question that was answered last
    FolderLister* owner = nullptr; // none when it has gone
    bool hasEnded = false;
};

FolderLister::FolderLister(List list, bool hasThread, QObject* parent)
    : QObject(parent), shared_(std::make_shared<Shared>()), hasThread_(hasThread) {
    shared_->list = std::move(list);
    shared_->owner = this;
}

FolderLister::~FolderLister() {
    std::unique_lock lock(shared_->mutex);
    shared_->owner = nullptr;
    shared_->asked.notify_all();
    if (!thread_.joinable()) return;
    const bool hasEnded =
        shared_->ended.wait_for(lock, kPatience, [this] { return shared_->hasEnded; });
    lock.unlock();
    if (hasEnded) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

void FolderLister::Work(const std::shared_ptr<Shared>& shared) {
    std::unique_lock lock(shared->mutex);
    while (shared->owner != nullptr) {
        if (shared->begun == shared->newest) {
            shared->asked.wait(lock);
            continue;
        }
        const unsigned long long question = shared->begun = shared->newest;
        const std::string folder = shared->folder;
        lock.unlock();
        Names names = shared->list(folder);
        lock.lock();
        if (shared->owner == nullptr) break;
        shared->names = std::move(names);
        shared->answered = question;
        QCoreApplication::postEvent(shared->owner, new QEvent(QEvent::User));
    }
    shared->hasEnded = true;
    shared->ended.notify_all();
}

void FolderLister::Ask(const std::string& folder, std::function<void(const Names&)> onListed) {
    onListed_ = std::move(onListed);
    const bool hasThread =
        hasThread_ && platform::StartThread(thread_, [shared = shared_] { Work(shared); });
    if (!hasThread) return onListed_(shared_->list(folder));
    const std::scoped_lock lock(shared_->mutex);
    shared_->folder = folder;
    ++shared_->newest;
    shared_->asked.notify_all();
}

// Not told twice, nor when a newer question was asked meanwhile.
void FolderLister::Tell() {
    Names names;
    {
        const std::scoped_lock lock(shared_->mutex);
        if (shared_->answered != shared_->newest) return;
        shared_->answered = 0;
        names = std::move(shared_->names);
    }
    onListed_(names);
}

void FolderLister::customEvent(QEvent*) {
    Tell();
}

} // namespace tarvix::forms
