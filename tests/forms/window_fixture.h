#pragma once

#include "app/program.h"
#include "forms/event_gate.h"
#include "forms/qt_prompts.h"
#include "forms/search_window.h"
#include "tests/machine/memory_platform.h"

#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace tarvix::forms {

// A program on a machine in memory with its main window open.
class WindowFixture : public ::testing::Test {
  protected:
    WindowFixture();
    ~WindowFixture() override;

    void SetUp() override;

    session::Session& S() { return program.Session(); }
    fields::FrmSearch& Form() { return program.Session().frmSearch; }

    template <class T>
    T* Find(const char* name) {
        T* found = window->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    // Types a text over what a box holds.
    void Type(const char* box, const QString& text);
    void Press(const char* button);
    QString TextOf(const char* label);
    // A search as a user makes it.
    void Search(const QString& patterns, const QString& locations);
    QPoint PointAt(int row);
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = {});
    std::vector<std::string> SelectedNames();

    // Keys and the tab order need the window to be the active one, which it is not by itself when
    // another one has closed.
    static void Activate(QWidget& any);

    // Acts on the next modal window that opens; it must close it.
    void OnModal(std::function<void(QWidget&)> act);
    // Acts on the next menu that opens; it must close it.
    void OnPopup(std::function<void(QMenu&)> act);
    // All that OnModal and OnPopup waited for has come.
    bool AllModalsCame() const { return waiting_.empty() && waitingMenus_.empty(); }

    platform::MemoryPlatform machine;
    EventGate gate;
    QtPrompts prompts{gate, machine.platform};
    app::Program program{machine.platform, prompts};
    std::unique_ptr<SearchWindow> window;

  private:
    void Watch();

    bool ServeMenu();

    std::vector<std::function<void(QWidget&)>> waiting_;
    std::vector<std::function<void(QMenu&)>> waitingMenus_;
    QMenu* servedMenu_ = nullptr;
    QWidget* served_ = nullptr;
    QTimer watch_;
};

} // namespace tarvix::forms
