#pragma once

#include "actions/request/known_bytes.h"

#include <QObject>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tarvix::forms {

// Reads parts of files on one thread of its own, in the order in which they are asked for. A disk
// that doesn't answer holds up nobody: a read that is under way at the end is left to itself.
class FileReader : public QObject {
  public:
    using Bytes = platform::Result<std::string>;
    using Read = std::function<Bytes(const actions::FilePart&)>;
    using OnRead = std::function<void(const actions::FilePart&, Bytes)>;

    // `read` runs on the thread, `onRead` is called on the thread of this object.
    FileReader(Read read, OnRead onRead, QObject* parent = nullptr);
    ~FileReader() override;

    void Ask(std::vector<actions::FilePart> parts);
    // What has not been told yet isn't told any more.
    void Forget();

  protected:
    // Answers are there. They come under the mutex, and nothing is read of the event, as no lock
    // that a checker of threads sees goes with it.
    void customEvent(QEvent* event) override;

  private:
    struct Shared;
    void Tell();
    static void Work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
    std::thread thread_;
    OnRead onRead_;
};

} // namespace tarvix::forms
