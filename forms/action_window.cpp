#include "forms/action_window.h"

#include "actions/request/destination_controls.h"
#include "actions/request/drop_destination.h"
#include "actions/request/request_sentence.h"
#include "forms/action_sections.h"
#include "forms/destination_examples.h"
#include "forms/drop_filter.h"
#include "forms/field_widgets.h"
#include "forms/first_lines_panel.h"
#include "forms/first_names_panel.h"
#include "forms/fitting_area.h"
#include "forms/key_filter.h"
#include "forms/panel_parts.h"
#include "forms/path_ruler.h"
#include "forms/text_conversion.h"
#include "forms/window_place.h"
#include "forms/wrapping_label.h"
#include "results/selection.h"
#include "session/native_entry.h"
#include "session/session.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

constexpr int kCharacters = 122; // of the window's width
constexpr int kTitleBar = 40;
constexpr int kLeastLines = 9; // of the choices, when there is little room

// What the box for the destination takes, by the choice of where to.
constexpr std::array<const char*, 4> kHints{
    "A folder, as /home/ann/Music or ~/Music",
    "What comes behind each location, as \\Music; may be empty", "",
    "A folder with marks for characters of each object's path, as /srv/Sorted/*10*"};

// The same for the actions that take names from a file.
struct SourceHint {
    std::string_view action;
    const char* hint;
};
constexpr std::array kSourceHints{
    SourceHint{"RenameFromTextFile", "A list of names, one a line, then *EOF"},
    SourceHint{"RenameFromSelfSearch", "A list of prefixes, one a line, then *EOF"},
    SourceHint{"RenameFromHTMLSearch", "A web page with links to the objects"}};

constexpr std::array kTabOrder{"cmbDir",
                               "cmdBrowse",
                               "optTo(0)",
                               "optTo(1)",
                               "optTo(2)",
                               "optTo(3)",
                               "txtFolderTree",
                               "chkFolderRename",
                               "filMultiPath",
                               "lstMulti",
                               "optStructure(0)",
                               "optStructure(1)",
                               "optStructure(2)",
                               "optStructure(3)",
                               "chkAsk",
                               "chkSkipAll",
                               "chkRename",
                               "chkOverWrite",
                               "txtRename",
                               "chkRenameBeg",
                               "chkRenameEnd",
                               "chkPlus1",
                               "chkFindReplace",
                               "txtFind",
                               "txtReplace",
                               "optOnceVsAll(0)",
                               "optOnceVsAll(1)",
                               "chkAdd",
                               "txtAdd",
                               "chkAddBeg",
                               "chkAddEnd",
                               "optNamePortion(0)",
                               "optNamePortion(1)",
                               "optNamePortion(2)",
                               "chkWholeNames",
                               "cmdEditNames",
                               "chkAddEOF",
                               "chkComments",
                               "chkRelative",
                               "chkFindSimilar",
                               "txtDeviation",
                               "lstNames",
                               "txtFirstLines",
                               "cmdStop",
                               "cmdPreview",
                               "OKButton",
                               "CancelButton"};

bool AnyVisible(const fields::OptionGroup& group) {
    for (int i = 0; i < group.Count(); ++i) {
        if (group[i].Visible) return true;
    }
    return false;
}

} // namespace

ActionWindow::ActionWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.frmDialog, parent) {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(8);
    sentence_ = new WrappingLabel;
    sentence_->setObjectName("lblSentence");
    area_ = new FittingArea(*MakeSections(), kLeastLines);
    column->addWidget(MakeHeading());
    column->addWidget(MakeDestination());
    column->addWidget(area_, 1);
    column->addWidget(sentence_);
    column->addWidget(MakeProgress());
    column->addWidget(MakeButtons());
    SetTabOrder();
    BindFields();
    TakeSize(kCharacters);
    const int width = session.state.platformSettings.dialogWindow.width;
    if (width > 0)
        resize(std::clamp(width, minimumSizeHint().width(), screen()->availableSize().width()),
               height());
    findChild<QPushButton*>("OKButton")->setDefault(true);
    FocusFirst();
}

QWidget* ActionWindow::MakeHeading() {
    const auto& form = session_.frmDialog;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    QLabel* heading = Make(form.lblMain);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    layout->addWidget(heading);
    layout->addStretch(1);
    layout->addWidget(MakeCounter(form.lblNumOfFilesSelected, "Files Selected"));
    layout->addWidget(new QLabel("files,"));
    layout->addWidget(MakeCounter(form.lblNumOfDirsSelected, "Folders Selected"));
    layout->addWidget(new QLabel("folders selected"));
    return row;
}

QWidget* ActionWindow::MakeDestination() {
    const auto& form = session_.frmDialog;
    QComboBox* box = Make(form.cmbDir);
    box->setAccessibleName("Destination");
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    FilterKeys(*box, [this](char key, std::string_view entry) {
        return actions::TakesKey(key, session_.frmDialog.optTo[3].Value, entry);
    });
    AcceptDrops(*box, [this](const QList<QUrl>& urls) {
        if (urls.isEmpty() || !urls.front().isLocalFile()) return;
        const std::string dropped = ToUtf8(urls.front().toLocalFile());
        binder_->Set(session_.frmDialog.cmbDir,
                     ToQt(actions::DroppedDestination(session_.platform, dropped)));
    });
    QPushButton* browse = Make(form.cmdBrowse);
    browse->setAutoDefault(true);
    return InRow({box, browse});
}

// The path whose characters a Special Rule counts, in the form that it counts.
QWidget* ActionWindow::MakeRuler() {
    ruler_ = new PathRuler;
    ruler_->onPick = [this](int number) { WriteMark(number); };
    auto* scrolled = new QScrollArea;
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidget(ruler_);
    scrolled->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    scrolled->setFixedHeight(ruler_->sizeHint().height() + bar + 2);
    scrolled->setFocusPolicy(Qt::NoFocus);
    rulerPanel_ = scrolled;
    return rulerPanel_;
}

void ActionWindow::WriteMark(int number) {
    if (gate_.IsBusy()) return;
    QLineEdit* edit = findChild<QComboBox*>("cmbDir")->lineEdit();
    const QString mark = QString("*%1*").arg(number);
    const int at = edit->cursorPosition();
    edit->setText(edit->text().insert(at, mark)); // what was typed stays as it is
    binder_->Set(session_.frmDialog.cmbDir, edit->text());
    edit->setCursorPosition(at + static_cast<int>(mark.size()));
}

void ActionWindow::ShowRuler() {
    const auto& form = session_.frmDialog;
    const auto& selection = *session_.selection;
    const bool isRule = form.cmbDir.Visible && form.optTo[3].Visible && form.optTo[3].Value;
    rulerPanel_->setVisible(isRule && selection.lngSelTop >= 0);
    if (!rulerPanel_->isHidden()) ruler_->Show(selection.strSelPath.front());
}

QWidget* ActionWindow::MakeSections() {
    const auto& form = session_.frmDialog;
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 2, 0, 2);
    column->setSpacing(10);
    where_ = MakeWhereSection(form);
    file_ = MakeFileSection(form);
    names_ = MakeNamesSection(form);
    firstNames_ = new FirstNamesPanel(session_, gate_);
    firstLines_ = new FirstLinesPanel(session_);
    for (QWidget* section : std::initializer_list<QWidget*>{
             where_, MakeRuler(), MakeStructureSection(form), MakeDuplicatesSection(form),
             MakeRenameSection(form), names_, file_, firstNames_, firstLines_}) {
        column->addWidget(section);
    }
    column->addStretch(1);
    return panel;
}

QWidget* ActionWindow::MakeProgress() {
    const auto& form = session_.frmDialog;
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    bytes_ = Make(form.prgBytes);
    bytes_->setAccessibleName("Progress in bytes");
    ElidedLabel* figures = MakeElided(form.lblProgress);
    for (QWidget* part : std::initializer_list<QWidget*>{bytes_, figures}) {
        QSizePolicy keeps = part->sizePolicy();
        keeps.setRetainSizeWhenHidden(true);
        part->setSizePolicy(keeps);
    }
    auto* line = new QHBoxLayout;
    line->addWidget(Make(form.lblBusy));
    line->addWidget(MakeElided(form.lblStatus), 1);
    column->addLayout(line);
    column->addWidget(bytes_);
    column->addWidget(figures);
    return panel;
}

QWidget* ActionWindow::MakeButtons() {
    const auto& form = session_.frmDialog;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    QPushButton* stop = Make(form.cmdStop);
    stop->setIcon(QIcon::fromTheme("process-stop"));
    stop->setToolTip("Stop before the next object (Esc)");
    QPushButton* preview = Make(form.cmdPreview);
    preview->setToolTip("What would happen to each object; nothing is changed");
    QPushButton* ok = Make(form.OKButton);
    QPushButton* cancel = Make(form.CancelButton);
    layout->addWidget(stop);
    layout->addStretch(1);
    for (QPushButton* button : {preview, ok, cancel}) {
        layout->addWidget(button);
    }
    for (QPushButton* button : {stop, preview, cancel}) {
        button->setAutoDefault(true); // Enter presses what has the focus, not always OK
    }
    return row;
}

void ActionWindow::SetTabOrder() {
    QWidget* last = nullptr;
    for (const char* name : kTabOrder) {
        auto* next = findChild<QWidget*>(name);
        if (last != nullptr) setTabOrder(last, next);
        last = next;
    }
}

void ActionWindow::FocusFirst() {
    for (const char* name : {"cmbDir", "txtFolderTree", "txtAdd", "txtFind", "OKButton"}) {
        auto* widget = findChild<QWidget*>(name);
        if (widget->isVisibleTo(this) && widget->isEnabled()) return widget->setFocus();
    }
}

void ActionWindow::Refresh() {
    ShowSections();
    ShowHints();
    ShowRuler();
    if (!gate_.IsBusy()) ShowExamples();
    if (!gate_.IsBusy()) firstLines_->Follow();
    firstNames_->Follow();
    const auto& form = session_.frmDialog;
    const bool hasChoices =
        where_->isVisibleTo(this) || form.fraDuplicates.Visible || form.fraRenameOnly.Visible;
    sentence_->setVisible(hasChoices);
    if (hasChoices) {
        sentence_->setText(Shown(actions::RequestSentence(
            form, session::EntryShown(session_, form.cmbDir, form.cmbDir.Text.Get()))));
    }
    bytes_->setVisible(session_.frmDialog.prgBytes.Visible && session_.frmDialog.prgBytes.Max > 0);
    Grow();
}

void ActionWindow::ShowSections() {
    const auto& form = session_.frmDialog;
    where_->setVisible(AnyVisible(form.optTo) || form.txtFolderTree.Visible ||
                       form.filMultiPath.Visible);
    names_->setVisible(form.chkWholeNames.Visible || form.cmdEditNames.Visible);
    file_->setVisible(form.chkAddEOF.Visible || form.chkComments.Visible ||
                      form.chkFindSimilar.Visible);
}

void ActionWindow::ShowHints() {
    const auto& form = session_.frmDialog;
    const auto way = static_cast<std::size_t>(std::max(0, form.optTo.Chosen()));
    const char* hint = form.fraStructure.Visible ? kHints[way] : "";
    const auto source =
        std::ranges::find(kSourceHints, session_.state.strAction, &SourceHint::action);
    if (source != kSourceHints.end()) hint = source->hint;
    findChild<QComboBox*>("cmbDir")->lineEdit()->setPlaceholderText(hint);
    const QString head = Shown(form.lstMulti.Header.Get());
    if (!head.isEmpty()) findChild<QLabel*>("lstMultiHead")->setText(head);
}

void ActionWindow::ShowExamples() {
    std::string key = ExampleKey(session_);
    if (key == shownExamples_) return;
    shownExamples_ = std::move(key);
    const auto examples = DestinationExamples(session_);
    for (std::size_t i = 0; i < examples.size(); ++i) {
        auto* label = findChild<QLabel*>(QString("lblExample(%1)").arg(i));
        label->setText(ToQt(session_.Shown(examples[i])));
        const bool chosen = session_.frmDialog.optStructure.Chosen() == static_cast<int>(i);
        label->setForegroundRole(chosen ? QPalette::WindowText : QPalette::PlaceholderText);
    }
}

// What was hidden before the window shows is taken out of the layouts only now.
void ActionWindow::showEvent(QShowEvent* event) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    layout()->activate();
    const int most = screen()->availableSize().height() - kTitleBar;
    resize(width(), std::min(height() + area_->MissingHeight(), most));
    ModalWindow::showEvent(event);
}

void ActionWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) session_.state.platformSettings.dialogWindow = PlaceOf(*this);
    ModalWindow::hideEvent(event);
}

int ActionWindow::Room() const {
    return screen()->availableGeometry().bottom() - geometry().top();
}

// Sections that come later make the window higher while the screen has room.
void ActionWindow::Grow() {
    if (!isVisible() || isMaximized()) return;
    layout()->activate();
    const int wanted = std::min(height() + area_->MissingHeight(), Room());
    if (wanted > height()) resize(width(), wanted);
}

} // namespace tarvix::forms
