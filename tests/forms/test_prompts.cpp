#include "forms/text_conversion.h"
#include "forms/theme.h"
#include "forms/wrapping_label.h"
#include "session/message_style.h"
#include "session/prompt_id.h"
#include "tests/forms/window_fixture.h"

#include <QApplication>
#include <QFontMetrics>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

namespace tarvix::forms {

using session::PromptId;

class PromptTest : public WindowFixture {
  protected:
    int Box(int style) {
        return prompts.MsgBox({.style = style, .title = "Title", .text = "Text"});
    }
};

TEST_F(PromptTest, EachButtonOfAStyleGivesItsAnswer) {
    for (int buttons = session::kOkOnly; buttons <= session::kRetryCancel; ++buttons) {
        for (const int answer : session::ButtonsOf(buttons)) {
            OnModal([answer](QWidget& modal) {
                const QString name = "btn" + ToQt(session::CaptionOf(answer));
                QTest::mouseClick(modal.findChild<QPushButton*>(name), Qt::LeftButton);
            });
            EXPECT_EQ(Box(buttons), answer);
        }
    }
}

TEST_F(PromptTest, EnterGivesTheDefaultAnswerOfTheStyleAndNoWhereItNamesNone) {
    const auto enter = [this] {
        OnModal([](QWidget& modal) { QTest::keyClick(modal.focusWidget(), Qt::Key_Return); });
    };
    enter();
    EXPECT_EQ(Box(session::kYesNo), session::kNo);
    enter();
    EXPECT_EQ(Box(session::kOkCancel), session::kOk);
    enter();
    EXPECT_EQ(Box(session::kYesNo + session::kSecondDefault), session::kNo);
    enter();
    EXPECT_EQ(Box(session::kYesNoCancel + session::kThirdDefault), session::kCancel);
}

TEST_F(PromptTest, ClosingABoxGivesItsSafeAnswer) {
    for (const int style : {session::kOkOnly, session::kOkCancel, session::kYesNo,
                            session::kYesNoCancel, session::kRetryCancel}) {
        OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
        EXPECT_EQ(Box(style), session::SafeAnswer(style));
    }
}

TEST_F(PromptTest, AMessageIsPlainTextInLines) {
    OnModal([](QWidget& modal) {
        auto* label = modal.findChild<QLabel*>("lblText");
        EXPECT_EQ(label->text(), "<b>one</b>\ntwo");
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(modal.windowTitle(), "Tarvix");
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    S().MsgBox(PromptId::kNothingSelected, "<b>one</b>\r\ntwo");
}

// How many lines a text takes in its label.
int LinesOf(const WrappingLabel& label) {
    return label.SizeFor(label.width()).height() / WrappingLabel("x").SizeFor(1000).height();
}

TEST_F(PromptTest, LinesThatWereToldAreNotBrokenOnceMore) {
    const QFontMetrics metrics(QApplication::font());
    QString line = "word";
    while (metrics.horizontalAdvance(line) < metrics.averageCharWidth() * 92)
        line += " word";
    OnModal([](QWidget& modal) {
        auto* label = dynamic_cast<WrappingLabel*>(modal.findChild<QLabel*>("lblText"));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(LinesOf(*label), 3);
        EXPECT_LE(modal.width(), modal.screen()->availableSize().width());
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    S().MsgBox(PromptId::kNothingSelected, (line + "\r\n" + line + "\r\n" + line).toStdString());
}

TEST(WrappingLabelTest, TakesTheWidthOfLinesThatBelongTogether) {
    const QString line(120, u'x');
    const int wide = WrappingLabel(line).SizeFor(1'000'000).width();
    EXPECT_GE(WrappingLabel(line + "\nshort").WidthForLines(300, 5000), wide);
    EXPECT_LE(WrappingLabel(line + "\nshort").WidthForLines(300, 5000), wide + 2);
    EXPECT_EQ(WrappingLabel("a\nb").WidthForLines(300, 5000), 300);
    EXPECT_EQ(WrappingLabel(line + "\n\nshort").WidthForLines(300, 5000), 300);   // a paragraph
    EXPECT_EQ(WrappingLabel(line + "\nshort").WidthForLines(300, wide - 1), 300); // has no room
    EXPECT_EQ(WrappingLabel("a\nb").WidthForLines(300, 200), 200);
}

TEST_F(PromptTest, APlainSentenceLeadsAndWhatWasToldStandsUnderDetails) {
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QLabel*>("lblText")->text(), "a.mp3 could not be copied.");
        auto* details = modal.findChild<QLabel*>("lblDetails");
        EXPECT_EQ(details->text(), "CopyObject has not proceeded as expected.");
        EXPECT_FALSE(details->isVisible());
        modal.findChild<QPushButton*>("btnDetails")->click();
        EXPECT_TRUE(details->isVisible());
        EXPECT_EQ(modal.windowTitle(), "Something Went Wrong");
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    S().MsgBox(PromptId::kUnexpectedError, "CopyObject has not proceeded as expected.",
               "a.mp3 could not be copied.");
}

TEST_F(PromptTest, AMessageWithoutAPlainSentenceHasNoDetails) {
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QPushButton*>("btnDetails"), nullptr);
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    S().MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
}

TEST_F(PromptTest, AboutOneOfManyObjectsItCanBeSkippedWithAllLikeItOrStopped) {
    const auto answer = [this](int style, const char* button, const char* caption) {
        OnModal([=](QWidget& modal) {
            auto* pressed = modal.findChild<QPushButton*>(button);
            ASSERT_NE(pressed, nullptr) << button;
            EXPECT_EQ(pressed->text().remove(u'&').toStdString(), caption);
            pressed->click();
        });
        return prompts.MsgBox({.style = style, .text = "Text", .isInLoop = true});
    };
    EXPECT_EQ(answer(session::kRetryCancel, "btnRetry", "Try Again"), session::kRetry);
    EXPECT_EQ(answer(session::kRetryCancel, "btnCancel", "Skip"), session::kCancel);
    EXPECT_EQ(answer(session::kYesNo, "btnNo", "Skip"), session::kNo);
    EXPECT_EQ(answer(session::kOkOnly, "btnOK", "Skip"), session::kOk);
    EXPECT_EQ(answer(session::kOkCancel, "btnOK", "Skip"), session::kOk);
    for (const int style : {session::kRetryCancel, session::kYesNo, session::kOkOnly}) {
        EXPECT_EQ(answer(style, "btnSkipAllLikeThis", "Skip All Like This"), session::kSkipAll);
        EXPECT_EQ(answer(style, "btnStop", "Stop"), session::kStopAll);
    }
}

TEST_F(PromptTest, TheButtonThatGoesAheadSaysWhatItDoes) {
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QPushButton*>("btnYes")->text().remove(u'&'), "Move to Trash");
        EXPECT_EQ(modal.findChild<QPushButton*>("btnNo")->text().remove(u'&'), "Cancel");
        EXPECT_EQ(modal.focusWidget()->objectName(), "btnNo");
        modal.findChild<QPushButton*>("btnYes")->click();
    });
    EXPECT_EQ(prompts.MsgBox({.style = session::kYesNo, .text = "Text", .verb = "Move to Trash"}),
              session::kYes);
}

TEST_F(PromptTest, AMessageOfAThousandLinesFitsTheScreenAndScrolls) {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += "line\r\n";
    }
    OnModal([](QWidget& modal) {
        EXPECT_LT(modal.height(), modal.screen()->availableSize().height());
        auto* area = modal.findChild<QScrollArea*>();
        EXPECT_GT(area->widget()->height(), area->height());
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    S().MsgBox(PromptId::kNothingSelected, text);
}

TEST_F(PromptTest, AnInputBoxGivesItsTextAndNothingWhenCancelled) {
    OnModal([](QWidget& modal) {
        auto* edit = modal.findChild<QLineEdit*>();
        EXPECT_EQ(edit->text(), "preset");
        edit->setText("typed");
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.InputBox({.title = "Title", .text = "Text"}, "preset"), "typed");
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    EXPECT_EQ(prompts.InputBox({.title = "Title", .text = "Text"}, "preset"), "");
}

TEST_F(PromptTest, ANoticeShowsItsTextUntilOk) {
    auto& notice = S().forms.frmForChar;
    notice.lblMain.Caption = "A file or folder was found";
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "frmForChar");
        EXPECT_EQ(modal.findChild<QLabel*>("lblMain")->text(), "A file or folder was found");
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    S().ShowModal(PromptId::kForeignName);
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    S().ShowModal(PromptId::kForeignName);
    EXPECT_FALSE(notice.IsShown());
}

TEST_F(PromptTest, AFormThatHasHiddenAlreadyDoesNotOpen) {
    S().forms.frmForChar.Hide();
    prompts.ShowModal(S(), S().forms.frmForChar, {});
}

TEST(FilterListTest, PairsBecomeNamesWithPatterns) {
    EXPECT_EQ(FilterList("Multiple Path List Files (*.mpl)|*.mpl|Both (*.txt;*.mpl)|*.txt;*.mpl|"),
              "Multiple Path List Files (*.mpl);;Both (*.txt *.mpl)");
    EXPECT_EQ(FilterList(""), "");
}

TEST(TextConversionTest, NumbersAreReadable) {
    EXPECT_EQ(WithThousands("0"), "0");
    EXPECT_EQ(WithThousands("999"), "999");
    EXPECT_EQ(WithThousands("1284442"), "1,284,442");
    EXPECT_EQ(WithThousands("1,284"), "1,284");
    EXPECT_EQ(WithThousands(""), "");
    EXPECT_EQ(WithoutLeadingZeros("000,000,001,204"), "1,204");
    EXPECT_EQ(WithoutLeadingZeros("000,000,000,000"), "0");
    EXPECT_EQ(WithoutLeadingZeros(""), "");
}

TEST(ThemeTest, RowColoursCanBeReadOnLightAndDark) {
    const auto light = [](QPalette palette) {
        palette.setColor(QPalette::Base, Qt::white);
        palette.setColor(QPalette::Text, Qt::black);
        return palette;
    }(QPalette());
    for (const fields::Color color :
         {fields::kBlue, fields::kRed, 0x00FF00U, 0xFFFF00U, 0x000040U}) {
        EXPECT_LT(Tint(color, light).lightness(), 150) << color;
        EXPECT_GT(Tint(color, DarkPalette()).lightness(), 110) << color;
    }
    EXPECT_EQ(Tint(fields::kBlack, light), QColor(Qt::black));
}

} // namespace tarvix::forms
