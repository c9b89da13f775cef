#pragma once

#include <QWidget>

#include <string>

class QLabel;
class QPlainTextEdit;

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

// The first lines of the list that the action window would write; hidden for an action that writes
// none.
class FirstLinesPanel : public QWidget {
  public:
    explicit FirstLinesPanel(session::Session& session);
    // Shows what may have changed; not while a routine runs.
    void Follow();

  private:
    session::Session& session_;
    QPlainTextEdit* lines_;
    QLabel* similarNote_; // of possible duplicates, which these lines leave out
    std::string shown_;   // what the lines depended on when they were made
};

} // namespace tarvix::forms
