#include "forms/folder_lister.h"

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <utility>

namespace tarvix::forms {

namespace {
constexpr unsigned long kPatience = 200; // milliseconds for a thread to end
}

struct FolderLister::Shared {
    List list;
    QMutex mutex; // of all that follows
    QWaitCondition asked;
    std::string folder;
    unsigned long long newest = 0; // questions are counted from 1
    unsigned long long begun = 0;
    FolderLister* owner = nullptr; // none when it has gone
    QThread* thread = nullptr;
};

FolderLister::FolderLister(List list, bool hasThread, QObject* parent)
    : QObject(parent), shared_(std::make_shared<Shared>()), hasThread_(hasThread) {
    shared_->list = std::move(list);
    shared_->owner = this;
}

FolderLister::~FolderLister() {
    {
        const QMutexLocker lock(&shared_->mutex);
        shared_->owner = nullptr;
        shared_->asked.wakeAll();
    }
    if (shared_->thread == nullptr || !shared_->thread->wait(kPatience)) return;
    delete shared_->thread;
}

void FolderLister::Work(const std::shared_ptr<Shared>& shared) {
    QMutexLocker lock(&shared->mutex);
    while (shared->owner != nullptr) {
        if (shared->begun == shared->newest) {
            shared->asked.wait(&shared->mutex);
            continue;
        }
        const unsigned long long question = shared->begun = shared->newest;
        const std::string folder = shared->folder;
        lock.unlock();
        const Names names = shared->list(folder);
        lock.relock();
        if (shared->owner == nullptr) return;
        QMetaObject::invokeMethod(
            shared->owner,
            [owner = shared->owner, question, names] { owner->Tell(question, names); },
            Qt::QueuedConnection);
    }
}

void FolderLister::Ask(const std::string& folder, std::function<void(const Names&)> onListed) {
    onListed_ = std::move(onListed);
    if (!hasThread_) return onListed_(shared_->list(folder));
    if (shared_->thread == nullptr) {
        shared_->thread = QThread::create([shared = shared_] { Work(shared); });
        shared_->thread->start();
    }
    const QMutexLocker lock(&shared_->mutex);
    shared_->folder = folder;
    ++shared_->newest;
    shared_->asked.wakeAll();
}

void FolderLister::Tell(unsigned long long question, const Names& names) {
    {
        const QMutexLocker lock(&shared_->mutex);
        if (question != shared_->newest) return;
    }
    onListed_(names);
}

} // namespace tarvix::forms
