#pragma once

#include <cstdint>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// How many objects were seen and found. The labels follow whenever more than `lngRefreshEvery`
// objects were counted, 999 at first, so that a large crawl doesn't spend its time on them. Every
// call yields.
class Counters {
  public:
    // `sizeTest` and `dateTest` tell whether objects are tested by their size and date.
    explicit Counters(session::Session& session, bool sizeTest = false, bool dateTest = false)
        : session_(session), sizeTest_(sizeTest), dateTest_(dateTest) {}

    // One object more that was looked at.
    void CountFileSeen();
    void CountFolderSeen(); // counts only; the label is brought up to date at the list's end
    // At 250,000 objects they tell so and set `blnStopClicked`.
    void CountFileFound();
    void CountFolderFound();

    // The repaint step for what follows, from the files seen so far.
    void SetRefreshCounters();
    // The same from the number of folders in the list.
    void SetRefreshCountersFolders(std::int64_t highFolder);
    void SetRefreshEvery(std::int64_t objects) { lngRefreshEvery_ = objects; }
    std::int64_t RefreshEvery() const { return lngRefreshEvery_; }

    // Brings the labels of what was seen, or found, up to their counts.
    void ShowSeen();
    void ShowFound();

  private:
    bool IsRefreshDue();
    void CheckLimit();

    session::Session& session_;
    bool sizeTest_;
    bool dateTest_;
    std::int64_t lngRefreshEvery_ = 999;
    std::int64_t sinceRefresh_ = 0;
};

// 0, 9 or 99: rarer the larger the crawl and the cheaper the test of each object.
std::int64_t RefreshStep(std::int64_t seen, bool sizeTest, bool dateTest);

} // namespace tarvix::results
