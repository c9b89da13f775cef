#pragma once

#include "platform/linux/copy_run.h"
#include "platform/linux/unique_fd.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <thread>

namespace tarvix::platform {

// Copies the small files of a folder that bears no name of its own yet, so that each file can have
// its name from the start: on a second thread and on the one that waits for them, whoever comes
// first.
class CopyCrew {
  public:
    struct Folder {
        std::shared_ptr<const UniqueFd> source;
        std::shared_ptr<const UniqueFd> target;
        struct statx st;  // of the source
        std::string from; // drive paths of both
        std::string to;
    };
    // A file of a folder, of one name in both.
    struct File {
        std::shared_ptr<const Folder> folder;
        std::string name;
        enum class State { kWaiting, kWorking, kCopied, kFailed } state = State::kWaiting;
        std::uint64_t bytes = 0; // that were copied
    };

    explicit CopyCrew(CopyRoads roads) : roads_(roads) {}
    // Waits for the file in work; what waits is left out.
    ~CopyCrew();
    CopyCrew(const CopyCrew&) = delete;
    CopyCrew& operator=(const CopyCrew&) = delete;

    void Add(std::shared_ptr<File> file);
    // To be called until a file is settled: copies one that waits, or waits for this one. Gives
    // whether it was copied; where it wasn't, for whatever reason, nothing of it is left.
    std::optional<bool> Settle(const File& file);

  private:
    using State = File::State;
    void Work();
    void Do(File& file, std::unique_lock<std::mutex>& lock);
    bool Copy(File& file) const;

    const CopyRoads roads_;
    std::mutex mutex_;
    std::condition_variable more_; // files wait
    std::condition_variable done_; // the awaited file is settled
    std::deque<std::shared_ptr<File>> waiting_;
    const File* awaited_ = nullptr;
    bool isResting_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace tarvix::platform
