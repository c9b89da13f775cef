#pragma once

#include <cstdint>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// How many objects were seen and found. The labels follow at every `lngRefreshEvery`-th object, so
// that a large crawl doesn't spend its time on them. Every call yields.
class Counters {
  public:
    explicit Counters(session::Session& session) : session_(session) {}

    void CountFileSeen();
    void CountFolderSeen(); // counts only; the label is brought up to date at the list's end
    // At 250,000 objects they tell so and set `blnStopClicked`.
    void CountFileFound();
    void CountFolderFound();

    // The repaint step for what follows, from the files seen so far.
    void SetRefreshCounters();
    // The same from the number of folders in the list.
    void SetRefreshCountersFolders(std::int64_t highFolder);

    // Brings the labels of what was seen, or found, up to their counts.
    void ShowSeen();
    void ShowFound();

  private:
    bool IsRefreshDue();
    void CheckLimit();

    session::Session& session_;
    std::int64_t sinceRefresh_ = 0;
};

// 0, 9 or 99: rarer the larger the crawl and the cheaper the test of each object.
std::int64_t RefreshStep(std::int64_t seen, bool sizeTest, bool dateTest);

} // namespace tarvix::results
