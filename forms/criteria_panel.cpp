#include "forms/criteria_panel.h"

#include "forms/attribute_box.h"
#include "forms/criteria_rows.h"
#include "forms/date_edit.h"
#include "forms/field_widgets.h"
#include "forms/flow_layout.h"
#include "forms/letters.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"

#include <QActionGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvix::forms {

namespace {

constexpr int kGap = 6;

// In the order of the boxes.
constexpr std::array<const char*, 10> kMeanings{
    "Read-only objects",          "Hidden objects",  "System objects",
    "Objects to be archived",     "Links to others", "Compressed objects",
    "Objects with attribute 256", "Sparse files",    "Devices, pipes and sockets",
    "Objects with attribute 128"};

// Behind the four ways to fill the locations, in their order.
constexpr std::array<const char*, 4> kBrowseTips{
    "A folder takes the place of what stands in the box",
    "A folder is added to what stands in the box",
    "The folders of a list (.mpl) take the place of what stands in the box",
    "The folders of a list (.mpl) are added to what stands in the box"};

void SetHint(QComboBox& box, const char* hint) {
    box.lineEdit()->setPlaceholderText(hint);
}

// A small button that opens a menu.
QToolButton* MakeMenuButton(const char* object, const QString& name, QMenu*& menu) {
    auto* button = new QToolButton;
    menu = new QMenu(button);
    menu->setToolTipsVisible(true);
    GiveLettersWhenOpened(*menu);
    QObject::connect(button, &QToolButton::clicked, menu, [menu, button] {
        menu->popup(button->mapToGlobal(QPoint(0, button->height())));
    });
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFocusPolicy(Qt::TabFocus);
    button->setArrowType(Qt::DownArrow);
    button->setObjectName(object);
    return button;
}

// Entries of which one is set, each under the name of its field.
template <class Choices>
QToolButton* MakeChoiceButton(const char* object, const QString& name, Choices& choices, int count,
                              const std::array<const char*, 4>* tips) {
    QMenu* menu = nullptr;
    QToolButton* button = MakeMenuButton(object, name, menu);
    auto* group = new QActionGroup(menu);
    for (int i = 0; i < count; ++i) {
        QAction* action = menu->addAction(QString());
        action->setObjectName(ToQt(choices[i].Name()));
        action->setCheckable(true);
        if (tips != nullptr) action->setToolTip((*tips)[static_cast<std::size_t>(i)]);
        group->addAction(action);
    }
    return button;
}

QPushButton* MakeSearchButton(const fields::FrmSearch& form) {
    QPushButton* search = Make(form.cmdSearch);
    search->setIcon(QIcon::fromTheme("edit-find"));
    search->setDefault(true);
    search->setToolTip("Search now (F5, or Enter in a box)");
    QFont font = search->font();
    font.setBold(true);
    search->setFont(font);
    return search;
}

QPushButton* MakeStopButton(const fields::FrmSearch& form) {
    QPushButton* stop = Make(form.cmdStop);
    stop->setIcon(QIcon::fromTheme("process-stop"));
    stop->setToolTip("Stop searching (Esc)");
    KeepPlace(*stop);
    return stop;
}

// Skips a step of a batch, so its place stays empty else.
QPushButton* MakeNextButton(const fields::FrmSearch& form) {
    QPushButton* next = Make(form.cmdNext);
    QSizePolicy keeps = next->sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    next->setSizePolicy(keeps);
    return next;
}

QWidget* MakeBoxes(const fields::FrmSearch& form) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(4);
    QComboBox* what = Make(form.cmbSearchFor);
    SetHint(*what, "*.mp3|*.flac    (empty: everything)");
    what->setAccessibleName("Search For");
    QComboBox* where = Make(form.cmbDir);
    SetHint(*where, "Folders separated by |, as /home/ann/Music or ~/Music");
    where->setAccessibleName("Search Location(s)");
    FieldCheckBox* isNot = Make(form.chkNot);
    isNot->setToolTip("Lists what does not match; with one pattern only");
    KeepPlace(*isNot);
    grid->addWidget(LabelFor("Search For", what), 0, 0);
    grid->addWidget(what, 0, 1);
    grid->addWidget(isNot, 0, 2);
    grid->addWidget(MakeSearchButton(form), 0, 3);
    grid->addWidget(MakeStopButton(form), 0, 4);
    grid->addWidget(LabelFor("Search Location(s)", where), 1, 0);
    grid->addWidget(where, 1, 1);
    grid->addWidget(InRow({Make(form.cmdBrowse),
                           MakeChoiceButton("btnBrowseModes", "What Browse does", form.optBrowse,
                                            form.optBrowse.Count(), &kBrowseTips)},
                          2),
                    1, 2);
    grid->addWidget(Make(form.cmdClearFolders), 1, 3);
    grid->addWidget(MakeNextButton(form), 1, 4);
    grid->setColumnStretch(1, 1);
    return panel;
}

QWidget* MakeKinds(const fields::FrmSearch& form) {
    QList<QWidget*> choices{new QLabel("Find")};
    for (int i = 0; i < form.optFilesVsDirs.Count(); ++i) {
        choices << Make(form.optFilesVsDirs[i]);
    }
    choices << Make(form.chkIncludeSubFolders);
    return InRow(choices, 10);
}

QWidget* MakeSize(const fields::FrmSearch& form) {
    QComboBox* how = Make(form.cboSize);
    how->setAccessibleName("Size test");
    KeepPlace(*how);
    QList<QWidget*> parts{Make(form.chkSize), how};
    for (const auto* box : {&form.txtSize1, &form.txtSize2}) {
        QLineEdit* edit = Make(*box);
        edit->setAccessibleName(box == &form.txtSize1 ? "Size" : "Largest size");
        edit->setToolTip("Bytes, or with a unit: 300 MB, 1.5 GiB; 20K is 20 KiB");
        edit->setAlignment(Qt::AlignRight);
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance("2147483647") + 20);
        KeepPlace(*edit);
        parts << edit;
    }
    return InRow(parts);
}

QWidget* MakeDate(const fields::FrmSearch& form) {
    QComboBox* how = Make(form.cboDate);
    how->setAccessibleName("Date test");
    QLabel* kind = Make(form.lblDateType);
    for (const std::string_view type : fields::kDateTypes) {
        const int width = kind->fontMetrics().horizontalAdvance(ToQt(type));
        kind->setMinimumWidth(std::max(kind->minimumWidth(), width));
    }
    QLabel* thru = Make(form.lbldDateThru);
    auto* first = new DateEdit(form.txtDate1, form.lblDate1, "Date");
    auto* second = new DateEdit(form.txtDate2, form.lblDate2, "Last date");
    QToolButton* kinds =
        MakeChoiceButton("btnDateTypes", "Which date counts", form.mnuSearch_DateType,
                         static_cast<int>(form.mnuSearch_DateType.size()), nullptr);
    for (QWidget* part : std::initializer_list<QWidget*>{how, kind, thru, first, second}) {
        KeepPlace(*part);
    }
    return InRow({Make(form.chkDate), how, first, thru, second, kind, kinds});
}

QWidget* MakeAttributes(const fields::FrmSearch& form) {
    auto* boxes = new QWidget;
    auto* flow = new FlowLayout(8, 2);
    boxes->setLayout(flow);
    for (std::size_t i = 0; i < form.attributeBoxes.size(); ++i) {
        flow->addWidget(new AttributeBox(*form.attributeBoxes[i], kMeanings[i]));
    }
    auto* any = new QToolButton;
    any->setObjectName("btnAnyAttribute");
    any->setText("Any");
    any->setAccessibleName("Any attributes");
    any->setFocusPolicy(Qt::TabFocus);
    any->setToolTip("Finds objects whatever their attributes are");
    flow->addWidget(any);
    QSizePolicy high(QSizePolicy::Expanding, QSizePolicy::Preferred);
    high.setHeightForWidth(true);
    boxes->setSizePolicy(high);
    auto* label = new QLabel("Attributes");
    label->setFixedHeight(any->sizeHint().height());
    QWidget* row = InRow({label, boxes});
    auto* layout = static_cast<QHBoxLayout*>(row->layout());
    layout->setAlignment(label, Qt::AlignTop);
    layout->setStretch(1, 1);
    return row;
}

QWidget* MakeTarget(const fields::FrmSearch& form) {
    QComboBox* target = Make(form.cboTargetPath);
    target->setAccessibleName("Target Path");
    QLabel* label = Make(form.lblTargetPath);
    label->setBuddy(target);
    QWidget* row = InRow({label, target});
    static_cast<QHBoxLayout*>(row->layout())->setStretch(1, 1);
    return row;
}

} // namespace

QWidget* MakeCriteriaPanel(const fields::FrmSearch& form) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(5);
    QWidget* boxes = MakeBoxes(form);
    QWidget* extras = InRow({Make(form.chkOneEach), Make(form.chkRepeatSearch)}, 10);
    column->addWidget(boxes);
    column->addWidget(new CriteriaRows(
        *boxes, {MakeKinds(form), extras, MakeSize(form), MakeDate(form), MakeAttributes(form)}));
    column->addWidget(MakeTarget(form));
    return panel;
}

} // namespace tarvix::forms
