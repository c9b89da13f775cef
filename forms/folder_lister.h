#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tarvix::forms {

// Lists folders on one thread of its own, the newest question first: an older one that has not
// begun is dropped, and the answer of one that has is not told. A disk that doesn't answer holds up
// nobody; at the end its thread is left to itself.
class FolderLister : public QObject {
  public:
    using Names = std::vector<std::string>;
    using List = std::function<Names(const std::string& folder)>;

    // `list` runs on the thread; without one, where the answer comes before Ask returns.
    FolderLister(List list, bool hasThread, QObject* parent = nullptr);
    ~FolderLister() override;

    // `onListed` is called on the thread of this object.
    void Ask(const std::string& folder, std::function<void(const Names&)> onListed);

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
    bool hasThread_;
    std::function<void(const Names&)> onListed_;
};

} // namespace tarvix::forms
