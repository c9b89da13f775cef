#include "forms/main_menu.h"

#include "fields/controls.h"
#include "forms/binder.h"
#include "forms/letters.h"
#include "forms/text_conversion.h"

#include <QAbstractButton>
#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

namespace tarvix::forms {

namespace {

struct TopMenu {
    const char* title;
    std::string_view field; // switches the menu; its entries' names begin with its singular
};

constexpr std::array<TopMenu, 10> kMenus{{{"&File", "mnuFile"},
                                          {"Sea&rch", "mnuSearch"},
                                          {"S&elect", "mnuSelect"},
                                          {"&View", "mnuView"},
                                          {"&Actions", "mnuActions"},
                                          {"R&un", "mnuRun"},
                                          {"Too&ls", "mnuTools"},
                                          {"Bro&wse", "mnuBrowse"},
                                          {"O&ptions", "mnuOptions"},
                                          {"&Help", "mnuHelp"}}};

struct ButtonEntry {
    const char* menu;
    std::string_view field;
    const char* keys;
    const char* icon;
};

// The buttons and boxes that are menu entries too.
constexpr std::array<ButtonEntry, 17> kButtons{
    {{"Search", "cmdSearch", "F5", "edit-find"},
     {"Search", "cmdStop", "Esc", "process-stop"},
     {"Search", "cmdNext", "", ""},
     {"Search", "cmdBrowse", "", ""},
     {"Search", "cmdClearFolders", "", ""},
     {"Search", "chkOneEach", "", ""},
     {"Search", "chkRepeatSearch", "", ""},
     {"Select", "cmdSelectAll", "Ctrl+A; Alt+1", "edit-select-all"},
     {"Select", "cmdSelectAllFiles", "Alt+2", ""},
     {"Select", "cmdSelectAllDirs", "Alt+3", ""},
     {"Select", "cmdSelectNone", "Ctrl+Shift+A; Alt+4", "edit-select-none"},
     {"Select", "cmdSelectReverse", "Alt+5", "edit-select-invert"},
     {"Actions", "cmdCopySelected", "", "edit-copy"},
     {"Actions", "cmdMoveSelected", "", "edit-cut"},
     {"Actions", "cmdRenameSelected", "", "edit-rename"},
     {"Actions", "cmdDeleteSelected", "Del", "user-trash"},
     {"Actions", "cmdEditTargets", "", ""}}};

// Captions that go on from the title of their menu: "Write the Selection", "as a ...".
constexpr const char* kWriteTitle = "&Write the Selection";
constexpr std::array<std::string_view, 7> kWriteEntries{
    "mnuNamesTxt",     "mnuPathNamesTxt",      "mnuPathNamesMPL",    "mnuNamesM3u",
    "mnuPathNamesM3u", "mnuTools_TargetPaths", "mnuTools_CreateHtml"};

// Entries that stand in the menu bar itself.
constexpr std::array<std::string_view, 2> kBarEntries{"mnuPlayListWarning", "mnuShortcutsWarning"};

bool IsTop(std::string_view name) {
    return std::ranges::find(kMenus, name, &TopMenu::field) != kMenus.end();
}

bool BelongsTo(std::string_view name, const TopMenu& top) {
    std::string_view field = top.field;
    if (field.ends_with('s')) field.remove_suffix(1);
    return name.starts_with(field);
}

QChar MnemonicOf(const QString& caption) {
    const qsizetype at = caption.indexOf(u'&');
    return at >= 0 && at + 1 < caption.size() ? caption[at + 1].toLower() : QChar();
}

// The keys that do what a button does stand in its tip.
void TellKeys(const QMainWindow& window, const QAction& action) {
    auto* button = window.findChild<QAbstractButton*>(action.objectName());
    const QString keys = QKeySequence::listToString(action.shortcuts(), QKeySequence::NativeText);
    if (button == nullptr || keys.isEmpty() || !button->toolTip().isEmpty()) return;
    button->setToolTip(QString(keys).replace("; ", ", "));
}

// Whether a button of the window answers to the letter of the control's caption; what only stands
// in a menu does not.
bool HasMnemonic(const QSet<QString>& buttons, const fields::Control& control,
                 const Binder& binder) {
    using fields::ControlKind;
    if (!buttons.contains(ToQt(control.Name()))) return false;
    const ControlKind kind = control.Kind();
    const bool isBox = kind == ControlKind::kCheckBox || kind == ControlKind::kOptionButton;
    return isBox || (kind == ControlKind::kCommandButton && binder.HasRoutine(control));
}

} // namespace

MainMenu::MainMenu(QMainWindow& window, const fields::Form& form) : form_(form) {
    for (const TopMenu& top : kMenus) {
        menus_ << window.menuBar()->addMenu(top.title);
        menus_.last()->setToolTipsVisible(true);
        GiveLettersWhenOpened(*menus_.last());
    }
    for (const ButtonEntry& entry : kButtons) {
        AddField(*MenuFor(entry.menu), window, entry.field);
        QAction* action = MenuFor(entry.menu)->actions().last();
        action->setShortcuts(QKeySequence::listFromString(entry.keys));
        TellKeys(window, *action);
        if (entry.icon[0] != '\0') action->setIcon(QIcon::fromTheme(entry.icon));
    }
    QMenu* write = MenuFor("Actions")->addMenu(kWriteTitle);
    GiveLettersWhenOpened(*write);
    write->setToolTipsVisible(true);
    for (const std::string_view name : kWriteEntries) {
        AddField(*write, window, name);
    }
    for (const fields::Control* control : form.Controls()) {
        const auto isOf = [control](const auto& names) {
            return std::ranges::find(names, control->Name()) != names.end();
        };
        if (isOf(kWriteEntries)) continue;
        if (control->Kind() != fields::ControlKind::kMenuEntry || IsTop(control->Name())) continue;
        if (isOf(kBarEntries)) {
            AddToBar(window, control->Name());
            continue;
        }
        const auto top = std::ranges::find_if(
            kMenus, [control](const TopMenu& menu) { return BelongsTo(control->Name(), menu); });
        QMenu* menu = MenuFor(top == kMenus.end() ? "Actions" : top->title);
        AddField(*menu, window, control->Name());
        if (control->Name() == "mnuHelp_Help") menu->actions().last()->setShortcut(Qt::Key_F1);
        if (control->Name() == "mnuOptions_Open") {
            menu->actions().last()->setShortcut(QKeySequence("Ctrl+,"));
        }
    }
}

void MainMenu::AddField(QMenu& menu, QMainWindow& window, std::string_view name) {
    auto* action = new QAction(&window);
    action->setObjectName(ToQt(name));
    menu.addAction(action);
}

// An entry of the bar itself, in sight as long as it can be clicked.
void MainMenu::AddToBar(QMainWindow& window, std::string_view name) {
    auto* action = new QAction(&window);
    action->setObjectName(ToQt(name));
    window.menuBar()->addAction(action);
}

void MainMenu::ClearMnemonics(const QMainWindow& window, const Binder& binder) {
    QSet<QString> buttons;
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
        buttons << button->objectName();
    std::set<QChar> taken;
    for (const fields::Control* control : form_.Controls()) {
        if (HasMnemonic(buttons, *control, binder))
            taken.insert(MnemonicOf(ToQt(control->CaptionText())));
    }
    for (QMenu* menu : menus_) {
        if (taken.contains(MnemonicOf(menu->title()))) menu->setTitle(menu->title().remove(u'&'));
    }
}

void MainMenu::Refresh() {
    for (qsizetype i = 0; i < menus_.size(); ++i) {
        const auto entries = menus_[i]->actions();
        const bool filled = std::ranges::any_of(entries, &QAction::isVisible);
        const fields::Control* field = form_.Find(kMenus[static_cast<std::size_t>(i)].field);
        menus_[i]->menuAction()->setVisible(filled && (field == nullptr || field->Visible));
        menus_[i]->menuAction()->setEnabled(field == nullptr || field->Enabled);
    }
}

QMenu* MainMenu::Find(const char* title) const {
    const auto plain = [](QString text) { return text.remove(u'&'); };
    const auto found = std::ranges::find_if(
        menus_, [&](const QMenu* menu) { return plain(menu->title()) == plain(title); });
    return found == menus_.end() ? nullptr : *found;
}

} // namespace tarvix::forms
