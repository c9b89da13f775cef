#include "forms/wrapping_label.h"
#include "session/prompt_table.h"
#include "session/user_input.h"
#include "tests/forms/window_fixture.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>
#include <set>

namespace tarvix::forms {

namespace {

constexpr QSize kSmallScreen(800, 549);

fields::DuplicateQuestion SomeQuestion() {
    return {.question = "Duplicate found of File :\r\n\r\n'b.mp3'\r\n\r\n"
                        "Would you like to replace existing",
            .existing = {.folder = "E:\\Bk",
                         .name = "b.mp3",
                         .size = "1,204",
                         .date = "2025/06/01 12:00:00"},
            .thisOne = {.folder = "C:\\Music",
                        .name = "b.mp3",
                        .size = "1,300",
                        .date = "2025/06/02 12:00:00"},
            .rule = "Rename rule: Add  '_' at end."};
}

std::string LongPath() {
    std::string path = "C:\\home";
    for (int i = 0; i < 48; ++i) {
        path += "\\folder" + std::to_string(i);
    }
    return path;
}

QPushButton* Button(QWidget& window, const char* name) {
    return window.findChild<QPushButton*>(name);
}

// The letters that buttons in sight answer to with Alt.
std::vector<QChar> Letters(const QWidget& window) {
    std::vector<QChar> letters;
    for (const auto* button : window.findChildren<QPushButton*>()) {
        const qsizetype at = button->text().indexOf(u'&');
        if (button->isVisible() && at >= 0) letters.push_back(button->text()[at + 1].toLower());
    }
    return letters;
}

} // namespace

class ChoiceWindowTest : public WindowFixture {
  protected:
    // Every button of the form writes down its name and hides the form.
    void Answering(fields::Form& form) {
        for (fields::Control* control : form.Controls()) {
            if (control->Kind() != fields::ControlKind::kCommandButton) continue;
            S().events.On(form.Name() + "." + control->Name() + "_Click",
                          [&, control](session::Session&, const session::EventArgs&) {
                              answer_ = control->Name();
                              form.Hide();
                          });
        }
    }
    static session::PromptId PromptOf(const fields::Form& form) {
        return std::ranges::find(session::AllPrompts(), form.Name(), &session::PromptFacts::form)
            ->id;
    }
    std::string Ask(fields::Form& form, std::function<void(QWidget&)> act) {
        answer_ = "none";
        Answering(form);
        OnModal(std::move(act));
        S().ShowModal(PromptOf(form));
        return answer_;
    }

    std::string answer_;
};

TEST_F(ChoiceWindowTest, EachButtonOfEachPromptAnswersAndCloses) {
    auto& forms = S().forms;
    for (fields::Form* form : std::initializer_list<fields::Form*>{&forms.frmAsk, &forms.frmAsk259,
                                                                   &forms.frmOverrideDialog,
                                                                   &forms.frmOverrideRecycleFail}) {
        for (const fields::Control* control : form->Controls()) {
            if (control->Kind() != fields::ControlKind::kCommandButton) continue;
            const auto press = [&](QWidget& modal) {
                EXPECT_EQ(modal.objectName().toStdString(), form->Name());
                EXPECT_EQ(modal.windowTitle().toStdString(), form->Caption);
                QTest::mouseClick(Button(modal, control->Name().c_str()), Qt::LeftButton);
            };
            EXPECT_EQ(Ask(*form, press), control->Name());
        }
    }
}

TEST_F(ChoiceWindowTest, TheSafeButtonHasTheFocusAndEscapeCancels) {
    auto& forms = S().forms;
    const auto enter = [](QWidget& modal) { QTest::keyClick(modal.focusWidget(), Qt::Key_Return); };
    const auto escape = [](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); };
    EXPECT_EQ(Ask(forms.frmAsk, enter), "cmdSkip");
    EXPECT_EQ(Ask(forms.frmAsk259, enter), "cmdSkip");
    EXPECT_EQ(Ask(forms.frmOverrideDialog, enter), "cmdNo");
    EXPECT_EQ(Ask(forms.frmOverrideRecycleFail, enter), "cmdNo");
    EXPECT_EQ(Ask(forms.frmAsk, escape), "cmdCancel");
    EXPECT_EQ(Ask(forms.frmAsk259, escape), "cmdCancel");
    EXPECT_EQ(Ask(forms.frmOverrideDialog, escape), "cmdCancel");
    EXPECT_EQ(Ask(forms.frmOverrideRecycleFail, escape), "cmdCancel");
}

TEST_F(ChoiceWindowTest, EnterPressesTheButtonThatHasTheFocus) {
    const auto tabAndEnter = [](QWidget& modal) {
        Button(modal, "cmdRename")->setFocus(Qt::TabFocusReason);
        QTest::keyClick(modal.focusWidget(), Qt::Key_Return);
    };
    EXPECT_EQ(Ask(S().forms.frmAsk, tabAndEnter), "cmdRename");
}

TEST_F(ChoiceWindowTest, NoLetterStandsForTwoButtons) {
    auto& forms = S().forms;
    for (fields::Form* form : std::initializer_list<fields::Form*>{&forms.frmAsk, &forms.frmAsk259,
                                                                   &forms.frmOverrideDialog}) {
        Ask(*form, [&](QWidget& modal) {
            const auto letters = Letters(modal);
            EXPECT_GE(letters.size(), 5U);
            EXPECT_EQ(std::set<QChar>(letters.begin(), letters.end()).size(), letters.size())
                << form->Name();
            modal.close();
        });
    }
}

TEST_F(ChoiceWindowTest, HiddenAndDisabledButtonsFollowTheFields) {
    auto& form = S().forms.frmAsk;
    form.cmdOverwrite.Visible = false;
    form.cmdDeleteReplaceAll.Enabled = false;
    form.cmdDeleteReplace.Caption = "Recycle duplicate file, then replace with original folder.";
    Ask(form, [](QWidget& modal) {
        EXPECT_FALSE(Button(modal, "cmdOverwrite")->isVisible());
        EXPECT_TRUE(Button(modal, "cmdOverwriteAll")->isVisible());
        EXPECT_FALSE(Button(modal, "cmdDeleteReplaceAll")->isEnabled());
        EXPECT_EQ(Button(modal, "cmdDeleteReplace")->text().remove(u'&'),
                  "Recycle duplicate file, then replace with original folder.");
        modal.close();
    });
}

TEST_F(ChoiceWindowTest, BothObjectsOfADuplicateStandSideBySide) {
    auto& form = S().forms.frmAsk;
    form.parts = SomeQuestion();
    Ask(form, [](QWidget& modal) {
        auto* existing = modal.findChild<QLabel*>("lblExisting");
        auto* thisOne = modal.findChild<QLabel*>("lblThisOne");
        EXPECT_TRUE(existing->text().startsWith("E:\\Bk\nb.mp3\n of type File"));
        EXPECT_TRUE(thisOne->text().startsWith("C:\\Music\nb.mp3\n of type File"));
        EXPECT_TRUE(thisOne->text().endsWith("Date: 2025/06/02 12:00:00"));
        EXPECT_EQ(modal.findChild<QLabel*>("lblQuestion")->text(),
                  "Duplicate found of File :\n\n'b.mp3'\n\nWould you like to replace existing");
        EXPECT_EQ(modal.findChild<QLabel*>("lblRule")->text(), "Rename rule: Add  '_' at end.");
        EXPECT_EQ(existing->mapTo(&modal, QPoint()).y(), thisOne->mapTo(&modal, QPoint()).y());
        EXPECT_LT(existing->mapTo(&modal, QPoint()).x(), thisOne->mapTo(&modal, QPoint()).x());
        modal.close();
    });
}

// ---- the same with what differs in words ----

fields::DuplicateQuestion Compared(const std::string& name, const std::string& folder) {
    auto parts = SomeQuestion();
    parts.headline = name + " is already in " + folder;
    parts.position = "3 of 8";
    parts.existing.name = parts.thisOne.name = name;
    parts.existing.folder = folder;
    parts.existing.dateNote = "newer";
    parts.thisOne.sizeNote = "larger";
    parts.content = "The contents differ.";
    parts.newName = "b_.mp3";
    parts.rest = "Cancel leaves this and the other 5 as they are.";
    return parts;
}

TEST_F(ChoiceWindowTest, WhatDiffersBetweenDuplicatesIsSaidInWords) {
    S().forms.frmAsk.parts = Compared("b.mp3", "/srv/Bk");
    Ask(S().forms.frmAsk, [](QWidget& modal) {
        const auto text = [&modal](const char* name) {
            auto* label = modal.findChild<QLabel*>(name);
            return label == nullptr ? std::string("none") : label->text().toStdString();
        };
        EXPECT_EQ(text("lblHeadline"), "b.mp3 is already in /srv/Bk");
        EXPECT_EQ(text("lblPosition"), "3 of 8");
        EXPECT_EQ(text("lblThereSize"), "1,204 bytes");
        EXPECT_EQ(text("lblThereSizeNote"), "");
        EXPECT_EQ(text("lblHereSizeNote"), "larger");
        EXPECT_EQ(text("lblThereDateNote"), "newer");
        EXPECT_EQ(text("lblContent"), "The contents differ.");
        EXPECT_EQ(text("lblNewName"), "Renamed, this one would be b_.mp3");
        EXPECT_EQ(text("lblRest"), "Cancel leaves this and the other 5 as they are.");
        const auto y = [&modal](const char* name) {
            return modal.findChild<QLabel*>(name)->mapTo(&modal, QPoint()).y();
        };
        EXPECT_EQ(y("lblThereSize"), y("lblHereSize"));
        EXPECT_EQ(y("lblThereDate"), y("lblHereDate"));
        modal.close();
    });
}

TEST_F(ChoiceWindowTest, ButtonsOfTheNextQuestionStandWhereThoseOfTheLastStood) {
    auto& form = S().forms.frmAsk;
    QSize size;
    std::vector<QPoint> places;
    const auto look = [&](QWidget& modal) {
        std::vector<QPoint> now;
        for (const char* name : {"cmdSkip", "cmdRename", "cmdSkipAll", "cmdRenameAll", "cmdCancel"})
            now.push_back(Button(modal, name)->mapToGlobal(QPoint()));
        if (places.empty()) {
            places = now;
            size = modal.size();
        }
        EXPECT_EQ(now, places);
        EXPECT_EQ(modal.size(), size);
        modal.close();
    };
    form.parts = Compared("b.mp3", "/srv/Bk");
    Ask(form, look);
    form.parts = Compared(std::string(200, 'x') + ".mp3", LongPath());
    form.cmdOverwrite.Visible = form.cmdOverwriteAll.Visible = false;
    form.cmdDeleteReplace.Visible = form.cmdDeleteReplaceAll.Visible = false;
    form.parts.content.clear();
    form.parts.existing.version = "1.2.3";
    Ask(form, look);
}

TEST_F(ChoiceWindowTest, PathsOfFiveHundredCharactersWrapOnASmallScreen) {
    auto& forms = S().forms;
    forms.frmAsk259.lblMain.Caption = LongPath();
    forms.frmOverrideDialog.lblMain.Caption = LongPath();
    forms.frmAsk.parts.existing.folder = forms.frmAsk.parts.thisOne.folder = LongPath();
    for (fields::Form* form : std::initializer_list<fields::Form*>{&forms.frmAsk, &forms.frmAsk259,
                                                                   &forms.frmOverrideDialog}) {
        Ask(*form, [&](QWidget& modal) {
            EXPECT_LE(modal.minimumSizeHint().width(), kSmallScreen.width()) << form->Name();
            EXPECT_LE(modal.minimumSizeHint().height(), kSmallScreen.height()) << form->Name();
            modal.resize(kSmallScreen);
            QCoreApplication::processEvents();
            auto* area = modal.findChild<QScrollArea*>();
            EXPECT_LE(area->widget()->width(), area->viewport()->width()) << form->Name();
            for (const auto* found : modal.findChildren<QLabel*>()) {
                const auto* label = dynamic_cast<const WrappingLabel*>(found);
                if (label == nullptr) continue;
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << form->Name();
            }
            modal.close();
        });
    }
}

TEST_F(ChoiceWindowTest, DeletingForGoodIsMarked) {
    Ask(S().forms.frmOverrideRecycleFail, [](QWidget& modal) {
        EXPECT_TRUE(Button(modal, "cmdYes")->toolTip().contains("permanently"));
        EXPECT_TRUE(Button(modal, "cmdYesToAll")->toolTip().contains("permanently"));
        EXPECT_TRUE(Button(modal, "cmdNo")->toolTip().isEmpty());
        modal.close();
    });
}

TEST(WrappingLabelTest, APathWithoutABlankIsBrokenWhereTheLineEnds) {
    const WrappingLabel label(QString(400, u'x'));
    const int line = label.fontMetrics().height();
    EXPECT_LT(label.SizeFor(100'000).height(), 2 * line);
    EXPECT_LE(label.SizeFor(200).width(), 200);
    EXPECT_GT(label.SizeFor(200).height(), 3 * line);
}

TEST_F(ChoiceWindowTest, NamesThatQuoteTheQuestionStandInTheirOwnPlaces) {
    auto& form = S().forms.frmAsk;
    form.parts = SomeQuestion();
    form.parts.existing.name = "with This One?";
    form.parts.thisOne.folder = "C:\\Rename rule:";
    Ask(form, [](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QLabel*>("lblExisting")
                        ->text()
                        .startsWith("E:\\Bk\nwith This One?\n of type File"));
        EXPECT_TRUE(modal.findChild<QLabel*>("lblThisOne")
                        ->text()
                        .startsWith("C:\\Rename rule:\nb.mp3\n of type File"));
        EXPECT_EQ(modal.findChild<QLabel*>("lblRule")->text(), "Rename rule: Add  '_' at end.");
        modal.close();
    });
}

} // namespace tarvix::forms
