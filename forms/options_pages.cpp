#include "forms/options_pages.h"

#include "fields/frm_options.h"
#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QScrollArea>
#include <QStringList>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <fmt/core.h>

#include <initializer_list>

namespace tarvix::forms {

namespace {

using fields::FrmOptions;

constexpr int kSpacing = 6;
constexpr int kFolderLines = 7;

QVBoxLayout* ColumnIn(QWidget& widget) {
    auto* column = new QVBoxLayout(&widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    return column;
}

QLabel* MakeHeading(const fields::Frame& page) {
    auto* heading = new QLabel;
    heading->setObjectName(ToQt(page.Name()));
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

WrappingLabel* MakeNote(const fields::Label& field) {
    auto* note = new WrappingLabel;
    note->setObjectName(ToQt(field.Name()));
    note->setForegroundRole(QPalette::PlaceholderText);
    return note;
}

// The widget with the button that resets its option, in sight while it is changed.
QWidget* WithReset(const fields::Control& control, QWidget* widget, bool isWide = false) {
    auto* button = new QToolButton;
    button->setObjectName(ResetNameOf(control));
    button->setText("Reset");
    button->setAutoRaise(true);
    button->setIcon(QIcon::fromTheme("edit-undo"));
    button->setFocusPolicy(Qt::TabFocus);
    QSizePolicy keeps = button->sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    button->setSizePolicy(keeps);
    button->setVisible(false);
    QWidget* row = InRow({widget, button}, 2);
    auto* layout = static_cast<QHBoxLayout*>(row->layout());
    if (isWide) layout->setStretch(0, 1);
    if (!isWide) layout->addStretch();
    return row;
}

void AddBoxes(QVBoxLayout& column, std::initializer_list<const fields::CheckBox*> boxes) {
    for (const fields::CheckBox* box : boxes) {
        column.addWidget(WithReset(*box, Make(*box)));
    }
}

QGroupBox* MakeGroup(const fields::Frame& field) {
    auto* group = new QGroupBox(PlainCaption(field.CaptionText()));
    group->setObjectName(ToQt(field.Name()));
    return group;
}

QGroupBox* MakeGroup(const QString& title) {
    return new QGroupBox(title);
}

// Entries from the top down, then on in the next column.
template <class Group>
QGridLayout* MakeGrid(const Group& group, int first, int last, int rows) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(3);
    for (int i = first; i <= last; ++i) {
        grid->addWidget(Make(group[i]), (i - first) % rows, (i - first) / rows);
    }
    grid->setColumnStretch((last - first) / rows + 1, 1);
    return grid;
}

void FillGeneral(const FrmOptions& form, QVBoxLayout& column) {
    AddBoxes(column, {&form.chkAllowAll});
    auto* opened = new QVBoxLayout;
    opened->setContentsMargins(22, 0, 0, 0);
    AddBoxes(*opened, {&form.chkAllowUserSelectSubfolders, &form.chkDefaultToIncludeSubfolders,
                       &form.chkAutoOptions});
    column.addLayout(opened);
    AddBoxes(column,
             {&form.chkSkipNTFS, &form.chkSaveAtClose, &form.chkIncludeNameInCopyToTextFile});
}

QWidget* MakeFolderList(const FrmOptions& form) {
    auto* entries = new QWidget;
    auto* column = ColumnIn(*entries);
    column->setSpacing(2);
    for (int i = 0; i < form.optDefSearchFolder.Count(); ++i) {
        column->addWidget(Make(form.optDefSearchFolder[i]));
    }
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setWidget(entries);
    area->setMinimumHeight(area->fontMetrics().lineSpacing() * kFolderLines);
    area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    return area;
}

QWidget* MakeFolders(const FrmOptions& form) {
    auto* group = MakeGroup("Search folders");
    auto* grid = new QGridLayout(group);
    QLineEdit* title = Make(form.txtDefFolderTitle);
    QLineEdit* folder = Make(form.txtDefFolder);
    grid->addWidget(MakeFolderList(form), 0, 0, 1, 2);
    grid->addWidget(LabelFor("&Title", title), 1, 0);
    grid->addWidget(title, 1, 1);
    grid->addWidget(LabelFor("&Folder", folder), 2, 0);
    grid->addWidget(InRow({folder, Make(form.cmdBrowse)}), 2, 1);
    grid->addWidget(MakeNote(form.lblDefFolder), 3, 0, 1, 2);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return group;
}

QWidget* MakeAttributes(const FrmOptions& form) {
    auto* group = MakeGroup(form.fraAttribDefExpert);
    auto* grid = new QGridLayout(group);
    grid->setVerticalSpacing(3);
    int place = 0;
    for (const fields::CheckBox* box :
         {&form.chkReadOnly, &form.chkHidden, &form.chkSystem, &form.chkArchive, &form.chkAlias,
          &form.chkCompressed, &form.chk256, &form.chk512, &form.chk64, &form.chk128}) {
        grid->addWidget(Make(*box), place % 5, place / 5);
        ++place;
    }
    return group;
}

void FillDefaults(const FrmOptions& form, QVBoxLayout& column) {
    auto* left = new QVBoxLayout;
    auto* kinds = MakeGroup("Search for");
    kinds->setLayout(MakeGrid(form.optFilesVsDirs, 0, form.optFilesVsDirs.Count() - 1, 3));
    auto* patterns = MakeGroup(form.fraAttribDef);
    patterns->setLayout(MakeGrid(form.optAttribDef, 0, form.optAttribDef.Count() - 1, 3));
    left->addWidget(kinds);
    left->addWidget(patterns);
    left->addWidget(MakeAttributes(form));
    left->addStretch();
    auto* row = new QHBoxLayout;
    row->addLayout(left);
    row->addWidget(MakeFolders(form), 1);
    column.addLayout(row, 1);
}

void FillList(const FrmOptions& form, QVBoxLayout& column) {
    const int groups = form.optQuickList.Count();
    auto* quick = MakeGroup("Groups of columns");
    quick->setLayout(MakeGrid(form.optQuickList, 0, groups - 1, (groups + 1) / 2));
    auto* shown = MakeGroup("Columns");
    shown->setLayout(MakeGrid(form.chkList, form.chkList.First(), form.chkList.Last(),
                              (form.chkList.Last() + 1) / 2));
    column.addWidget(quick);
    column.addWidget(shown);
    column.addWidget(MakeNote(form.lblColumnNote));
    AddBoxes(column, {&form.chkLockColumnWidths, &form.chkNoColumnWarning,
                      &form.chkNoContextMenuWarning, &form.chkFastSearch});
}

void FillSort(const FrmOptions& form, QVBoxLayout& column) {
    const int count = form.optSortBy.Count();
    column.addLayout(MakeGrid(form.optSortBy, 0, count - 1, (count + 1) / 2));
    AddBoxes(column, {&form.chkDesc});
}

void FillSystemHidden(const FrmOptions& form, QVBoxLayout& column) {
    AddBoxes(column, {&form.chkAllowMove, &form.chkAllowOverwrite, &form.chkAllowDelete});
    column.addWidget(MakeNote(form.lblSystemHidden));
}

void FillLogging(const FrmOptions& form, QVBoxLayout& column) {
    AddBoxes(column, {&form.chkErrorLog, &form.chkFileLog, &form.chkAutoMode,
                      &form.chkAllowAutoModeSystemHidden});
    auto* answers = new QVBoxLayout;
    answers->setContentsMargins(22, 0, 0, 0);
    for (int i = form.chkAutoPara.First(); i <= form.chkAutoPara.Last(); ++i) {
        AddBoxes(*answers, {&form.chkAutoPara[i]});
    }
    column.addLayout(answers);
    column.addWidget(MakeNote(form.lblAutoPara));
}

QTreeWidget* MakeVariables(const FrmOptions& form) {
    auto* table = new QTreeWidget;
    table->setObjectName(ToQt(form.lstMain.Name()));
    table->setAccessibleName("Variables for paths");
    table->setHeaderLabels({"env var", "path"});
    table->setRootIsDecorated(false);
    table->setAlternatingRowColors(true);
    table->setTextElideMode(Qt::ElideMiddle);
    table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table->setMinimumHeight(table->fontMetrics().lineSpacing() * kFolderLines);
    return table;
}

void FillLinks(const FrmOptions& form, QVBoxLayout& column) {
    AddBoxes(column, {&form.chkAutoEnvVar});
    column.addWidget(MakeNote(form.lblAutoEnvVar));
    AddBoxes(column, {&form.chkRemoveEnvVar});
    column.addWidget(MakeVariables(form), 1);
    column.addWidget(WithReset(form.lstMain, Make(form.cmdRebuildEnvVar)));
}

void FillWeb(const FrmOptions& form, QVBoxLayout& column) {
    auto* grid = new QGridLayout;
    QLineEdit* seconds = Make(form.txtDefTime);
    QComboBox* size = Make(form.cmbDefSize);
    grid->addWidget(LabelFor("Secon&ds for a page", seconds), 0, 0);
    grid->addWidget(WithReset(form.txtDefTime, seconds), 0, 1);
    grid->addWidget(LabelFor("Si&ze of the browser's window", size), 1, 0);
    grid->addWidget(WithReset(form.cmbDefSize, size), 1, 1);
    grid->setColumnStretch(1, 1);
    column.addLayout(grid);
    AddBoxes(column, {&form.chkAskTime, &form.chkAskSize});
}

QWidget* MakeMachineWidget(const fields::Control& control) {
    if (control.Kind() == fields::ControlKind::kComboBox) {
        return Make(static_cast<const fields::ComboBox&>(control));
    }
    return Make(static_cast<const fields::TextBox&>(control));
}

QWidget* MakeDrives(const FrmOptions& form) {
    auto* group = MakeGroup("Drives and their letters");
    auto* grid = new QGridLayout(group);
    QComboBox* letter = Make(form.cmbDriveLetter);
    QLineEdit* folder = Make(form.txtDriveFolder);
    folder->setAccessibleName("Folder of the drive");
    FieldListBox* drives = Make(form.lstDrives);
    drives->setAccessibleName("Drive letters");
    grid->addWidget(drives, 0, 0, 1, 3);
    grid->addWidget(LabelFor("&Letter", letter), 1, 0);
    grid->addWidget(letter, 1, 1);
    grid->addWidget(
        InRow({WithReset(form.txtDriveFolder, folder, true), Make(form.cmdBrowseDrive)}), 1, 2);
    grid->addWidget(MakeNote(form.lblDrives), 2, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return group;
}

// The setting of a program with the button that starts it.
QWidget* WithTest(const FrmOptions& form, const fields::MachineField& field, QWidget* widget) {
    const fields::Control* test = form.Find(fmt::format("cmdTest{}", field.key));
    if (test == nullptr) return widget;
    QWidget* row = InRow({widget, Make(static_cast<const fields::CommandButton&>(*test))}, 2);
    static_cast<QHBoxLayout*>(row->layout())->setStretch(0, 1);
    return row;
}

// A setting with what it is below its field.
void FillMachine(const FrmOptions& form, QVBoxLayout& column) {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    int row = 0;
    for (const fields::MachineField& field : form.machine) {
        QWidget* widget = MakeMachineWidget(*field.control);
        auto* label = LabelFor(ToQt(field.key), widget);
        auto* told = new WrappingLabel(ToQt(field.control->ToolTipText.Get()).section('\n', 0, 0));
        told->setForegroundRole(QPalette::PlaceholderText);
        grid->addWidget(label, row, 0);
        grid->addWidget(WithTest(form, field, WithReset(*field.control, widget, true)), row++, 1);
        grid->addWidget(told, row++, 1);
        if (const auto* found = form.Find(fmt::format("lblFound{}", field.key))) {
            grid->addWidget(MakeNote(static_cast<const fields::Label&>(*found)), row++, 1);
        }
    }
    grid->setColumnStretch(1, 1);
    column.addLayout(grid);
    column.addWidget(MakeDrives(form));
}

using Fill = void (*)(const FrmOptions&, QVBoxLayout&);
constexpr std::array<Fill, fields::kPageCount> kFills{FillGeneral, FillDefaults,     FillList,
                                                      FillSort,    FillSystemHidden, FillLogging,
                                                      FillLinks,   FillWeb,          FillMachine};

bool FillsItsHeight(int page) {
    return page == fields::kDefaultsPage || page == fields::kLinksPage;
}

} // namespace

QString ResetNameOf(const fields::Control& control) {
    return "reset_" + ToQt(control.Name());
}

QList<QWidget*> MakeOptionPages(const FrmOptions& form) {
    QList<QWidget*> pages;
    for (int page = 0; page < fields::kPageCount; ++page) {
        auto* content = new QWidget;
        auto* column = ColumnIn(*content);
        column->addWidget(MakeHeading(form.pages[static_cast<std::size_t>(page)]));
        kFills[static_cast<std::size_t>(page)](form, *column);
        if (!FillsItsHeight(page)) column->addStretch();
        auto* area = new QScrollArea;
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setWidget(content);
        pages << area;
    }
    return pages;
}

} // namespace tarvix::forms
