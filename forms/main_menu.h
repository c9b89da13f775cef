#pragma once

#include <QList>

class QAction;
class QMainWindow;
class QMenu;

namespace tarvix::fields {
class Form;
}

namespace tarvix::forms {

class Binder;

// The menu bar over the fields of a form. Entries bear the names of their fields, so that a binder
// fills them; an entry without a routine behind it does not show, nor does a menu without entries.
class MainMenu {
  public:
    MainMenu(QMainWindow& window, const fields::Form& form);

    // Takes the letters that other controls answer to out of the menus' titles.
    void ClearMnemonics(const QMainWindow& window, const Binder& binder);
    // Shows the menus that have something to show, as their own fields allow.
    void Refresh();
    // The menu with this title, without regard to mnemonics.
    QMenu* Find(const char* title) const;

  private:
    QMenu* MenuFor(const char* title) const { return Find(title); }
    void AddToBar(QMainWindow& window, std::string_view name);
    void AddField(QMenu& menu, QMainWindow& window, std::string_view name);

    const fields::Form& form_;
    QList<QMenu*> menus_;
};

} // namespace tarvix::forms
