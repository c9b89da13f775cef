#include "session/prompt_table.h"
#include "tests/forms/window_fixture.h"

#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace tarvix::forms {

// Arrow keys among the choices of a question; what they come to has the focus, and no more happens.
class ArrowKeyTest : public WindowFixture {
  protected:
    // What has the focus in the window that was opened last.
    QWidget* FocusWidget() const { return asked_ != nullptr ? asked_->focusWidget() : nullptr; }
    std::string Focused() const {
        const QWidget* widget = FocusWidget();
        return widget == nullptr ? "none" : widget->objectName().toStdString();
    }
    std::string After(int key) const {
        QTest::keyClick(FocusWidget(), static_cast<Qt::Key>(key));
        return Focused();
    }
    // The question about a duplicate, on which nothing is answered but with its buttons.
    void AskDuplicate(std::function<void(QWidget&)> act) {
        auto& form = S().forms.frmAsk;
        for (const char* name : {"cmdCancel", "cmdOverwriteAll"}) {
            S().events.On(std::string("frmAsk.") + name + "_Click",
                          [this, &form, name](session::Session&, const session::EventArgs&) {
                              answer_ = name;
                              form.Hide();
                          });
        }
        OnModal([this, act](QWidget& modal) {
            asked_ = &modal;
            act(modal);
            QTest::keyClick(FocusWidget(), Qt::Key_Return);
            EXPECT_FALSE(modal.isVisible());
            if (modal.isVisible()) modal.close();
            asked_ = nullptr;
        });
        S().ShowModal(
            std::ranges::find(session::AllPrompts(), form.Name(), &session::PromptFacts::form)->id);
    }

    std::string answer_ = "none";
    QWidget* asked_ = nullptr;
};

TEST_F(ArrowKeyTest, GoToTheAnswerThatLiesThatWay) {
    AskDuplicate([this](QWidget& modal) {
        EXPECT_EQ(Focused(), "cmdSkip");
        EXPECT_EQ(After(Qt::Key_Down), "cmdOverwrite");
        EXPECT_EQ(After(Qt::Key_Down), "cmdRename");
        EXPECT_EQ(After(Qt::Key_Right), "cmdRenameAll");
        EXPECT_EQ(After(Qt::Key_Up), "cmdOverwriteAll");
        EXPECT_EQ(After(Qt::Key_Right), "cmdOverwriteAll"); // nothing lies there
        EXPECT_EQ(After(Qt::Key_Left), "cmdOverwrite");
        EXPECT_EQ(After(Qt::Key_Up), "cmdSkip");
        EXPECT_EQ(After(Qt::Key_Up), "cmdSkip");
        EXPECT_EQ(After(Qt::Key_Left), "cmdSkip");
        EXPECT_EQ(answer_, "none");
        EXPECT_TRUE(modal.isVisible());
        EXPECT_EQ(After(Qt::Key_Right), "cmdSkipAll");
        EXPECT_EQ(After(Qt::Key_Down), "cmdOverwriteAll");
    });
    EXPECT_EQ(answer_, "cmdOverwriteAll"); // Enter answers what has the focus
}

TEST_F(ArrowKeyTest, PassOverAnswersThatCannotBeGiven) {
    auto& form = S().forms.frmAsk;
    form.cmdOverwrite.Visible = false;
    form.cmdSkipAll.Enabled = false;
    form.cmdDeleteReplace.Visible = form.cmdDeleteReplaceAll.Visible = false;
    AskDuplicate([this](QWidget&) {
        EXPECT_EQ(Focused(), "cmdSkip");
        EXPECT_EQ(After(Qt::Key_Right), "cmdSkip");
        EXPECT_EQ(After(Qt::Key_Down), "cmdRename");
        EXPECT_EQ(After(Qt::Key_Down), "cmdCancel");
    });
    EXPECT_EQ(answer_, "cmdCancel");
}

TEST_F(ArrowKeyTest, ChooseAmongKindsAndStayAmongThem) {
    Activate(*window);
    auto* files = Find<QRadioButton>("optFilesVsDirs(0)");
    files->setFocus();
    QTest::keyClick(files, Qt::Key_Right);
    EXPECT_TRUE(Form().optFilesVsDirs[1].Value);
    EXPECT_FALSE(Form().optFilesVsDirs[0].Value);
    EXPECT_EQ(window->focusWidget(), Find<QRadioButton>("optFilesVsDirs(1)"));
    QTest::keyClick(window->focusWidget(), Qt::Key_Right);
    QTest::keyClick(window->focusWidget(), Qt::Key_Left);
    EXPECT_TRUE(Form().optFilesVsDirs[1].Value);
    EXPECT_EQ(window->focusWidget(), Find<QRadioButton>("optFilesVsDirs(1)"));
}

} // namespace tarvix::forms
