#include "forms/file_reader.h"

#include "platform/start_thread.h"

#include <QCoreApplication>
#include <QEvent>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace tarvix::forms {

using actions::FilePart;

struct FileReader::Shared {
    Read read;
    std::mutex mutex; // of all that follows
    std::condition_variable asked;
    std::deque<FilePart> parts;
    std::vector<std::pair<FilePart, Bytes>> answers;
    unsigned long long forgotten = 0; // how often; what was begun before is not told
    FileReader* owner = nullptr;      // none when it has gone
    bool isReading = false;
};

FileReader::FileReader(Read read, OnRead onRead, QObject* parent)
    : QObject(parent), shared_(std::make_shared<Shared>()), onRead_(std::move(onRead)) {
    shared_->read = std::move(read);
    shared_->owner = this;
}

FileReader::~FileReader() {
    std::unique_lock lock(shared_->mutex);
    shared_->owner = nullptr;
    shared_->asked.notify_all();
    const bool isReading = shared_->isReading;
    lock.unlock();
    if (!thread_.joinable()) return;
    if (isReading) {
        thread_.detach();
    } else {
        thread_.join();
    }
}

void FileReader::Work(const std::shared_ptr<Shared>& shared) {
    std::unique_lock lock(shared->mutex);
    while (shared->owner != nullptr) {
        if (shared->parts.empty()) {
            shared->asked.wait(lock);
            continue;
        }
        const FilePart part = std::move(shared->parts.front());
        shared->parts.pop_front();
        const unsigned long long forgotten = shared->forgotten;
        shared->isReading = true;
        lock.unlock();
        Bytes bytes = shared->read(part);
        lock.lock();
        shared->isReading = false;
        if (shared->owner == nullptr) return;
        if (forgotten != shared->forgotten) continue;
        shared->answers.emplace_back(part, std::move(bytes));
        QCoreApplication::postEvent(shared->owner, new QEvent(QEvent::User));
    }
}

void FileReader::Ask(std::vector<FilePart> parts) {
    if (parts.empty()) return;
    const bool hasThread = platform::StartThread(thread_, [shared = shared_] { Work(shared); });
    const std::scoped_lock lock(shared_->mutex);
    for (FilePart& part : parts) {
        if (hasThread) {
            shared_->parts.push_back(std::move(part));
        } else {
            Bytes bytes = shared_->read(part);
            shared_->answers.emplace_back(std::move(part), std::move(bytes));
        }
    }
    shared_->asked.notify_all();
    if (!hasThread) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void FileReader::Forget() {
    const std::scoped_lock lock(shared_->mutex);
    ++shared_->forgotten;
    shared_->parts.clear();
    shared_->answers.clear();
}

void FileReader::Tell() {
    std::vector<std::pair<FilePart, Bytes>> answers;
    {
        const std::scoped_lock lock(shared_->mutex);
        answers.swap(shared_->answers);
    }
    for (auto& [part, bytes] : answers)
        onRead_(part, std::move(bytes));
}

void FileReader::customEvent(QEvent*) {
    Tell();
}

} // namespace tarvix::forms
