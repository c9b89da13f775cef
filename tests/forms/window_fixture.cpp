#include "tests/forms/window_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvix::forms {

WindowFixture::WindowFixture() {
    auto& disk = machine.disk;
    disk.UseClock([this] { return machine.clock.FromLocal({2025, 6, 1, 12, 0, 0}); });
    disk.AddFile(machine.environment.programFolder + "\\TXFSSearchHistoryFile.txt", "*EOF");
    disk.AddFile("C:\\home\\ann\\Music\\Abba\\one.mp3", "abc");
    disk.AddFile("C:\\home\\ann\\Music\\Abba\\two.mp3", "abcd");
    disk.AddFile("C:\\home\\ann\\Music\\Beatles\\three.mp3", "abcde");
    disk.AddFile("C:\\home\\ann\\Music\\Beatles\\cover.jpg", "abcdef");
    disk.AddFolder("C:\\home\\ann\\Copies");
    watch_.setInterval(5);
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { Watch(); });
}

WindowFixture::~WindowFixture() {
    EXPECT_TRUE(AllModalsCame());
    S().yielder.SetPump({});
    program.Stop();
}

void WindowFixture::SetUp() {
    window = std::make_unique<SearchWindow>(S(), gate);
    S().yielder.SetPump([this] { gate.Pump(); });
    gate.Run(nullptr, [this] { program.Start(""); });
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

void WindowFixture::Type(const char* box, const QString& text) {
    auto* widget = Find<QWidget>(box);
    widget->setFocus();
    QLineEdit* edit = qobject_cast<QLineEdit*>(widget);
    if (edit == nullptr) edit = widget->findChild<QLineEdit*>();
    edit->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(edit, Qt::Key_Delete);
    } else {
        QTest::keyClicks(edit, text);
    }
}

void WindowFixture::Press(const char* button) {
    QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
}

QString WindowFixture::TextOf(const char* label) {
    return Find<QLabel>(label)->text();
}

void WindowFixture::Search(const QString& patterns, const QString& locations) {
    Type("cmbSearchFor", patterns);
    Type("cmbDir", locations);
    Press("cmdSearch");
}

QPoint WindowFixture::PointAt(int row) {
    auto& list = window->List();
    list.scrollTo(list.model()->index(row, 0));
    return list.visualRect(list.model()->index(row, 0)).center();
}

void WindowFixture::ClickRow(int row, Qt::KeyboardModifiers modifiers) {
    const QPoint at = PointAt(row);
    QTest::mouseClick(window->List().viewport(), Qt::LeftButton, modifiers, at);
}

std::vector<std::string> WindowFixture::SelectedNames() {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < S().rows->Count(); ++i) {
        if (S().rows->At(i).selected) names.emplace_back(S().rows->At(i).name);
    }
    return names;
}

void WindowFixture::Activate(QWidget& any) {
    any.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&any));
}

void WindowFixture::OnModal(std::function<void(QWidget&)> act) {
    waiting_.push_back(std::move(act));
    watch_.start();
}

void WindowFixture::OnPopup(std::function<void(QMenu&)> act) {
    waitingMenus_.push_back(std::move(act));
    watch_.start();
}

bool WindowFixture::ServeMenu() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr || menu == servedMenu_ || waitingMenus_.empty()) return false;
    servedMenu_ = menu;
    QObject::connect(menu, &QObject::destroyed, &watch_, [this] { servedMenu_ = nullptr; });
    const auto act = waitingMenus_.front();
    waitingMenus_.erase(waitingMenus_.begin());
    act(*menu);
    return true;
}

void WindowFixture::Watch() {
    if (ServeMenu()) return;
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != served_) served_ = nullptr;
    if (AllModalsCame()) watch_.stop();
    if (modal == nullptr || modal == served_ || waiting_.empty()) return;
    served_ = modal;
    QObject::connect(modal, &QObject::destroyed, &watch_, [this] { served_ = nullptr; });
    const auto act = waiting_.front();
    waiting_.erase(waiting_.begin());
    act(*modal);
}

} // namespace tarvix::forms
