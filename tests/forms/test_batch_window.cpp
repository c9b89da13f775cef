#include "tests/forms/window_fixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace tarvix::forms {

// Two lists, and a move through the real windows.
class BatchWindowTest : public WindowFixture {
  protected:
    BatchWindowTest() {
        machine.disk.AddFile("C:\\lists\\s.txt", "*.mp3\r\n*.jpg\r\n*EOF");
        machine.disk.AddFile("C:\\lists\\d.txt",
                             "C:\\home\\ann\\Copies\r\nC:\\new\\pictures\r\n*EOF");
    }
    static std::string Cells(const QTableView& table) {
        std::string all;
        const QAbstractItemModel& model = *table.model();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                all += model.index(row, column).data().toString().toStdString() + "|";
            }
            all += "\n";
        }
        return all;
    }
    // The questions before the table, as a user answers them in boxes of Qt.
    class Asked : public session::PromptService {
      public:
        explicit Asked(QtPrompts& windows) : windows_(windows) {}
        int MsgBox(const session::Prompt&) override { return session::kOk; }
        std::string InputBox(const session::Prompt&, std::string_view preset) override {
            return preset.empty() ? "S" : "N";
        }
        void ShowModal(session::Session& session, fields::Form& form,
                       const session::Prompt& prompt) override {
            windows_.ShowModal(session, form, prompt);
        }
        std::string PickFolder(const session::Prompt&) override { return ""; }
        std::string PickFile(const session::Prompt&, std::string_view) override {
            return std::exchange(next_, "C:\\lists\\d.txt");
        }
        std::string PickNewFile(const session::Prompt&, const session::NewFilePick&) override {
            return "";
        }
        bool PrefersForms() const override { return true; }

      private:
        QtPrompts& windows_;
        std::string next_ = "C:\\lists\\s.txt";
    };
    void StartMove() {
        Type("cmbDir", "C:\\home\\ann\\Music");
        Form().chkIncludeSubFolders.Value = 1;
        Asked asked(prompts);
        S().standIn = &asked;
        gate.Run(nullptr, [&] { S().Raise(Form().mnuTools_AutomatedMove, "Click"); });
        S().standIn = nullptr;
    }
};

TEST_F(BatchWindowTest, ShowsThePlanAndThenWhatWasDone) {
    std::string plan;
    std::string done;
    OnModal([&](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "frmBatch");
        plan = Cells(*modal.findChild<QTableView*>("lstBatch"));
        EXPECT_TRUE(modal.findChild<QLabel*>("lblMain")->text().startsWith(
            "Are you sure you want to perform an 'Automated Move' Operation?"));
        EXPECT_EQ(modal.focusWidget(), modal.findChild<QPushButton*>("cmdCancel"));
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    OnModal([&](QWidget& modal) {
        done = Cells(*modal.findChild<QTableView*>("lstBatch"));
        EXPECT_TRUE(
            modal.findChild<QLabel*>("lblMain")->text().startsWith("Automated move is complete."));
        EXPECT_FALSE(modal.findChild<QPushButton*>("cmdCancel")->isVisible());
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    StartMove();
    EXPECT_EQ(plan, "*.mp3|C:\\home\\ann\\Copies|is there|3|\n"
                    "*.jpg|C:\\new\\pictures|is not there|1|\n");
    EXPECT_EQ(done, "*.mp3|C:\\home\\ann\\Copies|3 moved|\n*.jpg|C:\\new\\pictures|1 moved|\n");
    EXPECT_TRUE(machine.disk.Exists("C:\\new\\pictures\\cover.jpg"));
}

TEST_F(BatchWindowTest, CancelMovesNothingAndLeavesTheBoxes) {
    Type("cmbSearchFor", "mine");
    OnModal([](QWidget& modal) {
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    });
    StartMove();
    EXPECT_TRUE(machine.disk.Exists("C:\\home\\ann\\Music\\Abba\\one.mp3"));
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "mine");
    EXPECT_FALSE(Find<QLabel>("lblBatch")->isVisible());
}

TEST_F(BatchWindowTest, TellsTheLineUnderWorkAndCanBeStopped) {
    OnModal([](QWidget& modal) {
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    OnModal([](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QLabel*>("lblMain")->text().startsWith(
            "Automated move stopped by user."));
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    QString shown;
    machine.faults.BeforeCall("MoveFile", 1, [&] {
        gate.Pump();
        shown = TextOf("lblBatch");
        EXPECT_TRUE(Find<QPushButton>("cmdStop")->isVisible());
        Press("cmdStop");
    });
    StartMove();
    EXPECT_EQ(shown, QString::fromUtf8("Moving line 1 of 2: *.mp3 \u2192 C:\\home\\ann\\Copies"));
    EXPECT_TRUE(machine.disk.Exists("C:\\home\\ann\\Music\\Beatles\\cover.jpg"));
    EXPECT_FALSE(Find<QPushButton>("cmdStop")->isEnabled());
}

// A show of pages in the window's own event loop, at the least page time.
TEST_F(BatchWindowTest, PagesAreShownByTheWindowsTimer) {
    machine.disk.AddFile("C:\\lists\\p.txt", "http://a\r\nhttp://b\r\n*EOF");
    class Pages : public Asked {
      public:
        using Asked::Asked;
        std::string InputBox(const session::Prompt&, std::string_view preset) override {
            return preset == "8" ? "1" : "R";
        }
        std::string PickFile(const session::Prompt&, std::string_view) override {
            return "C:\\lists\\p.txt";
        }
    };
    Pages asked(prompts);
    S().standIn = &asked;
    gate.Run(nullptr, [&] { S().Raise(Form().mnuTools_BrowserUseText, "Click"); });
    S().standIn = nullptr;
    EXPECT_TRUE(window->isMinimized());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Form().Timer1.Enabled.Get(); }, 20000));
    EXPECT_EQ(machine.launcher.pages,
              (std::vector<std::string>{"http://a", "close", "http://b", "close", "close"}));
    EXPECT_FALSE(window->isMinimized());
}

} // namespace tarvix::forms
