#include "tests/forms/every_window.h"

#include "forms/help_window.h"
#include "forms/theme.h"
#include "results/outcome_list.h"
#include "results/row_marks.h"
#include "session/prompt_id.h"
#include "session/prompt_table.h"
#include "session/wordings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

constexpr QSize kPictured(1280, 800);

struct Album {
    const char* folder;
    int year;
    std::array<const char*, 4> songs;
};
constexpr std::array<Album, 5> kAlbums{
    {{"Nina Simone\\Pastel Blues (1965)",
      1965,
      {"01 Be My Husband", "02 Nobody Knows You", "03 End of the Line", "09 Sinnerman"}},
     {"Miles Davis\\Kind of Blue (1959)",
      1959,
      {"01 So What", "02 Freddie Freeloader", "03 Blue in Green", "04 All Blues"}},
     {"Cesária Évora\\Miss Perfumado (1992)",
      1992,
      {"01 Sodade", "02 Bia", "03 Cumpade Ciznone", "04 Direito di Nasce"}},
     {"Sigur Rós\\Takk (2005)",
      2005,
      {"01 Takk", "02 Glósóli", "03 Hoppípolla", "04 Með Blóðnasir"}},
     {"Fela Kuti\\Zombie (1976)",
      1976,
      {"01 Zombie", "02 Mister Follow Follow", "03 Observation", "04 Mistake"}}}};

// A layout takes several rounds of events, however fast the machine is.
void Settle() {
    for (int round = 0; round < 20; ++round) {
        QCoreApplication::sendPostedEvents();
        QTest::qWait(2);
    }
}

session::PromptId PromptShowing(const fields::Form& form) {
    return std::ranges::find(session::AllPrompts(), form.Name(), &session::PromptFacts::form)->id;
}

} // namespace

EveryWindow::EveryWindow() {
    FillDisk();
}

EveryWindow::~EveryWindow() {
    ChooseShade("light");
}

void EveryWindow::FillDisk() {
    std::uint64_t size = 4'488'569;
    int day = 1;
    for (const Album& album : kAlbums) {
        const std::string folder = std::string("C:\\home\\ann\\Music\\") + album.folder;
        for (const char* song : album.songs) {
            auto& file = machine.disk.AddFileOfSize(folder + "\\" + song + ".mp3", size);
            file.modified =
                machine.clock.FromLocal({2010 + day % 14, 1 + day % 12, 1 + day, 20, 53, 7});
            size = size * 7 % 31'000'000 + 1'200'000;
            ++day;
        }
        machine.disk.AddFileOfSize(folder + "\\cover.jpg", 240'113);
    }
    machine.disk.AddFile("C:\\home\\ann\\Music\\.nomedia").attributes |= platform::kHidden;
    machine.disk.AddFile("C:\\home\\ann\\Copies\\01 Takk.mp3", "old");
}

void EveryWindow::SetUp() {
    S().platform.traits.hasNativePaths = true;
    ChooseShade(IsDarkShade() ? "dark" : "light");
    ChooseIconTheme(QApplication::palette());
    WindowFixture::SetUp();
}

void EveryWindow::LookAtModal(const Look& look, const std::string& name) {
    OnModal([look, name](QWidget& modal) {
        Settle();
        look(modal, name);
        if (modal.isVisible()) modal.close();
    });
}

void EveryWindow::SeeSearch(const Look& look) {
    window->resize(kPictured);
    Settle();
    look(*window, "search-at-first");
    S().state.options.blnAllowUserSelectSubfolders = true;
    Form().chkIncludeSubFolders.Value = 0;
    Search("*.mp3", "~/Music");
    Settle();
    look(*window, "search-found-nothing");
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Find<QCheckBox>("chkSize")->click();
    Type("txtSize1", "1.5 MB");
    Find<QCheckBox>("chkDate")->click();
    Type("txtDate1", "last 20 years");
    Search("*.mp3", "~/Music");
    for (int row = 4; row < 12; row += 2) // a spacer stands between any two
        ClickRow(row, Qt::ControlModifier);
    Settle();
    look(*window, "search");
    window->resize(800, 549);
    Settle();
    look(*window, "search-small");
    window->resize(kPictured);
    Press("cmdSelectAll");
}

void EveryWindow::SeeDates(const Look& look) {
    LookAtModal(look, "dates");
    auto* how = Find<QComboBox>("cboDate");
    how->setFocus();
    QTest::keyClicks(how, "R");
    Activate(*window);
}

void EveryWindow::SeeActions(const Look& look) {
    struct Opened {
        const char* button;
        const char* name;
    };
    for (const Opened& opened : {Opened{"cmdCopySelected", "copy"},
                                 {"cmdMoveSelected", "move"},
                                 {"cmdRenameSelected", "rename"}}) {
        if (!Find<QPushButton>(opened.button)->isEnabled()) continue;
        OnModal([&, opened](QWidget& modal) {
            auto* where = modal.findChild<QComboBox*>("cmbDir");
            if (where->isVisible()) QTest::keyClicks(where->lineEdit(), "/home/ann/Copies");
            QTest::qWait(300);
            if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
            look(modal, opened.name);
            if (where->isVisible()) {
                LookAtModal(look, std::string("preview-") + opened.name);
                QTest::mouseClick(modal.findChild<QPushButton*>("cmdPreview"), Qt::LeftButton);
                EXPECT_TRUE(QTest::qWaitFor([this] { return AllModalsCame(); }, 3000));
            }
            modal.close();
        });
        Press(opened.button);
        Activate(*window);
    }
}

// What the logic would have set.
void EveryWindow::FillForms() {
    auto& forms = S().forms;
    forms.frmAsk.parts = {.question = "Duplicate found of File :\r\n\r\n'01 Takk.mp3'\r\n\r\n"
                                      "Would you like to replace existing",
                          .existing = {.folder = "/home/ann/Copies",
                                       .name = "01 Takk.mp3",
                                       .size = "11,490",
                                       .date = "2013/03/03 05:44:00"},
                          .thisOne = {.folder = "/home/ann/Music/Sigur Rós/Takk (2005)",
                                      .name = "01 Takk.mp3",
                                      .size = "11,612",
                                      .date = "2013/03/01 20:10:00"},
                          .rule = "Rename rule: Add  '_' at end.",
                          .headline = "01 Takk.mp3 is already in /home/ann/Copies",
                          .position = "3 of 8",
                          .content = "The contents differ.",
                          .newName = "01 Takk_.mp3",
                          .rest = "Cancel leaves this and the other 5 as they are."};
    forms.frmAsk.parts.existing.dateNote = "newer";
    forms.frmAsk.parts.thisOne.sizeNote = "larger";
    forms.frmOpenWith.lblMain.Caption = "Open 3 objects with";
    forms.frmOpenWith.lstApplications.SetItems({"Image Viewer", "Media Player", "Text Editor"});
    forms.frmRuns.cmdView.Enabled = forms.frmRuns.cmdRecycle.Enabled = true;
    forms.frmAsk259.lblMain.Caption =
        "The new path has 4,102 bytes, more than the 4,095 that can be opened at once:\r\n\r\n"
        "/home/ann/Copies/a/very/long/path";
    forms.frmOverrideDialog.lblMain.Caption =
        "/home/ann/Music/.nomedia\r\n\r\nis hidden. Would you like to move it all the same?";
    forms.frmOverrideRecycleFail.lblMain.Caption =
        "/home/ann/Music/.nomedia\r\n\r\ncould not go to the trash.\r\nThe medium has none.\r\n\r\n"
        "Would you like to delete it for good? It can't be brought back then.";
    forms.frmUnread.lblMain.Caption =
        "2 objects could not be read by the last search, and so what they hold was not found:";
    forms.frmUnread.lstUnread.SetItems({"/home/ann/Music/private: Permission denied",
                                        "/media/ann/Old disk/broken.mp3: Input/output error"});
    forms.frmWelcome.lblMain.Caption =
        std::string(session::Worded(S(), session::Wording::kFirstRun));
    forms.frmShortcutWarning.lblTop.Caption =
        "The values of the 3 selected shortcuts open as a text, one value a line.";
    forms.frmShortcutWarning.lblBottom.Caption =
        "Nothing is written to a shortcut before you save.";
    forms.frmLinkChanges.lblMain.Caption = "2 values of 1 shortcut would change:";
    forms.frmLinkChanges.lstChanges.SetItems(
        {"Player.desktop  Target: /usr/bin/vlc -> /usr/bin/mpv",
         "Player.desktop  Description: Plays music -> Plays films"});
    forms.frmLinkTable.lblMain.Caption = "Values of 2 shortcuts";
    forms.frmLinkTable.rows = {{.name = "Player.desktop",
                                .values = {"/usr/bin/vlc", "", "", "", "", "", ""},
                                .isEditable = {true, true, true, true, true, true, true}},
                               {.name = "Film.desktop",
                                .values = {"/usr/bin/vlc --fullscreen", "", "", "", "", "", ""},
                                .isEditable = {true, true, true, true, true, true, true}}};
    forms.frmLinkTable.first = forms.frmLinkTable.rows;
    forms.frmLinkTable.rows[0].values[0] = "/usr/bin/mpv";
    forms.frmRuns.lblMain.Caption =
        "3 runs with an action log in /home/ann/.local/share/tarvix. The last 200 are kept, as "
        "LogsKept in the options says.";
    forms.frmRuns.lstRuns.SetItems({"2025/06/01 12:00:00   this run",
                                    "2025/05/30 20:15:31   Copied 12 of 12 objects.",
                                    "2025/05/29 08:02:10   Moved 380 of 381 objects, 1 failed."});
    forms.frmNumbers.txtLine.Text = "track *.mp3";
    forms.frmNumbers.lblMain.Caption = "100 lines";
    forms.frmNumbers.lstFirstLines.SetItems({"track 0001.mp3", "track 0002.mp3"});
    forms.frmBatch.rows = {{.search = "*.mp3", .destination = "/home/ann/Copies", .matches = 20},
                           {.search = "*.jpg", .destination = "/home/ann/Pictures", .matches = 5}};
    forms.frmBatch.lblMain.Caption = "2 lines would be worked on, one after the other.";
    forms.frmForChar.lblMain.Caption = "A name could not be opened.";
    forms.frmTrailingSp.lblMain.Caption = "A name ends with a blank.";
    forms.frmAllUsers.lblMain.Caption = "The folder of all users is searched in its true place.";
}

void EveryWindow::SeeForms(const Look& look) {
    FillForms();
    auto& forms = S().forms;
    for (fields::Form* form : std::initializer_list<fields::Form*>{
             &forms.frmAsk, &forms.frmAsk259, &forms.frmOverrideDialog,
             &forms.frmOverrideRecycleFail, &forms.frmUnread, &forms.frmWelcome, &forms.frmNumbers,
             &forms.frmForChar, &forms.frmTrailingSp, &forms.frmAllUsers, &forms.frmShortcutWarning,
             &forms.frmOpenWith, &forms.frmLinkChanges, &forms.frmLinkTable, &forms.frmBatch,
             &forms.frmRuns}) {
        OnModal([&, form](QWidget& modal) {
            Settle();
            look(modal, form->Name());
            gate.Run(nullptr, [form] { form->Hide(); });
            gate.Flush();
        });
        S().ShowModal(PromptShowing(*form));
        Activate(*window);
    }
}

void EveryWindow::SeeOptions(const Look& look) {
    OnModal([look](QWidget& modal) {
        auto* pages = modal.findChild<QListWidget*>("tbsOptions");
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentRow(page);
            Settle();
            look(modal, "options-" + std::to_string(page + 1));
        }
        modal.close();
    });
    Find<QAction>("mnuOptions_Open")->trigger();
    Activate(*window);
}

void EveryWindow::SeeQuestions(const Look& look) {
    LookAtModal(look, "question-delete");
    Press("cmdDeleteSelected");
    Activate(*window);
    LookAtModal(look, "question-refused");
    S().MsgBox(session::PromptId::kFirstSizeInvalid,
               "You did not enter a valid file size in the first box.");
    Activate(*window);
    LookAtModal(look, "question-input");
    S().InputBox(session::PromptId::kPagesSize, "How large are the windows?", "N");
    Activate(*window);
}

void EveryWindow::SeeHelp(const Look& look) {
    HelpWindow help;
    help.ShowPage(QString(TARVIX_HELP) + "/guide.md");
    Settle();
    look(help, "help");
    help.close();
    Activate(*window);
}

// Each menu of the bar as it stands open, and those that open from it.
void EveryWindow::SeeMenus(const Look& look) {
    const auto see = [&](QMenu& menu) {
        const QString title = menu.title().remove(u'&').toLower();
        menu.popup(window->mapToGlobal(QPoint(40, 40)));
        Settle();
        look(menu, "menu-" + title.section(u' ', 0, 0).toStdString());
        menu.close();
    };
    for (const QAction* top : window->menuBar()->actions()) {
        if (!top->isVisible() || top->menu() == nullptr) continue;
        see(*top->menu());
        for (const QAction* entry : top->menu()->actions()) {
            if (entry->isVisible() && entry->menu() != nullptr) see(*entry->menu());
        }
    }
    Activate(*window);
}

void EveryWindow::SeeContextMenu(const Look& look) {
    S().state.options.blnNoContextMenuWarning = true;
    OnPopup([&look](QMenu& menu) {
        Settle();
        look(menu, "menu-of-objects");
        menu.close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(window->List().viewport(), &event);
    EXPECT_TRUE(QTest::qWaitFor([this] { return AllModalsCame(); }, 3000));
    Activate(*window);
}

// A copy in which something failed.
void EveryWindow::FillOutcomes() {
    results::OutcomeList& list = *S().outcomes;
    list.Begin("Move");
    for (std::size_t i = 0; i < S().rows->Count(); ++i) {
        if (S().rows->At(i).IsSpacer()) continue;
        const std::string path = S().rows->FullPath(i);
        const std::string name(S().rows->At(i).name);
        const std::string place = "C:\\home\\ann\\Copies\\" + name;
        if (i % 7 == 2) {
            list.Add({.source = path,
                      .place = place,
                      .mark = results::OutcomeMark::kFailed,
                      .errorNumber = 70,
                      .error = path + ": Permission denied.",
                      .shownSource = path});
        } else {
            list.Add(
                {.source = path,
                 .place = place,
                 .mark = i % 7 == 3 ? results::OutcomeMark::kSkipped : results::OutcomeMark::kMoved,
                 .isPlaced = i % 7 != 3,
                 .leaves = i % 7 != 3});
        }
    }
    results::MarkFates(*S().rows, list);
}

// A part of it could not come back from the trash, or was not to.
void EveryWindow::FillPutBack() {
    results::OutcomeList& list = *S().outcomes;
    list.Begin(results::kPutBackAction);
    for (std::size_t i = 0; i < S().rows->Count(); ++i) {
        if (S().rows->At(i).IsSpacer()) continue;
        const std::string path = S().rows->FullPath(i);
        const std::string error = path + ": its place is taken.";
        const bool hasFailed = i % 7 == 2;
        const bool isBack = !hasFailed && i % 7 != 3;
        list.Add({.source = path,
                  .place = isBack ? path : std::string_view(),
                  .mark = hasFailed ? results::OutcomeMark::kFailed
                          : isBack  ? results::OutcomeMark::kPutBack
                                    : results::OutcomeMark::kRecycled,
                  .isPlaced = isBack,
                  .trashed = isBack ? 0U : 1U,
                  .errorNumber = hasFailed ? 58 : 0,
                  .error = hasFailed ? std::string_view(error) : std::string_view(),
                  .shownSource = path});
    }
    auto& page = S().forms.frmOutcome;
    page.lblMain.Caption = "Put back 14 of 17 objects, 3 failed, 3 left in the trash.";
    page.cmdSelectFailed.Visible = false;
    page.cmdOpenTrash.Visible = true;
}

void EveryWindow::SeeOutcome(const Look& look) {
    Press("cmdSelectNone");
    FillOutcomes();
    window->List().viewport()->update();
    Settle();
    look(*window, "search-after-a-move");
    auto& page = S().forms.frmOutcome;
    page.lblMain.Caption = "Moved 14 of 20 objects, 3 failed, 3 skipped as duplicates.";
    page.cmdSelectFailed.Visible = true;
    page.cmdOpenTrash.Visible = false;
    gate.Run(nullptr, [&page] { page.Show(); });
    gate.Flush();
    Settle();
    look(*window, "outcome");
    FillPutBack();
    gate.Flush();
    window->findChild<QTableView*>("lstOutcome")->selectRow(0);
    Settle();
    look(*window, "outcome-put-back");
    gate.Run(nullptr, [&page] { page.Hide(); });
    gate.Flush();
}

void EveryWindow::SeeLegend(const Look& look) {
    Find<QAction>("actLegend")->trigger();
    auto* legend = window->findChild<QDialog*>("frmLegend");
    ASSERT_NE(legend, nullptr);
    Settle();
    look(*legend, "legend");
    legend->close();
    Activate(*window);
}

void EveryWindow::Each(const Look& look) {
    SeeSearch(look);
    SeeMenus(look);
    SeeContextMenu(look);
    SeeLegend(look);
    SeeDates(look);
    SeeActions(look);
    SeeForms(look);
    SeeOptions(look);
    SeeQuestions(look);
    SeeOutcome(look);
    SeeHelp(look);
}

} // namespace tarvix::forms
