#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace tarvix::forms {

// The help: its pages beside each other in a list, the one that is read, and a line that searches
// all of them. One window, which stays open beside the work.
class HelpWindow : public QWidget {
  public:
    explicit HelpWindow(QWidget* parent = nullptr);

    // Shows the page of that file (native path); the other pages are those of its folder.
    void ShowPage(const QString& file);

  private:
    void ReadPages(const QString& folder);
    void Open(int page);
    void Find(bool isBackward);
    bool FindInPage(bool isBackward, bool fromEdge);
    void AddKeys();

    QListWidget* pages_;
    QTextBrowser* text_;
    QLineEdit* find_;
    QLabel* found_; // what the search says
    QString folder_;
};

} // namespace tarvix::forms
