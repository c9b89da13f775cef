#include "forms/criteria_panel.h"

#include "forms/field_widgets.h"
#include "forms/flow_layout.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <array>

namespace tarvix::forms {

namespace {

constexpr std::array<const char*, 10> kAttributeMeanings{
    "Read-only objects",      "Hidden objects",  "System objects",
    "Objects to be archived", "Links to others", "Compressed objects",
    "Attribute bit 256",      "Sparse files",    "Devices, pipes and sockets",
    "Attribute bit 128"};
constexpr const char* kTriStateTip =
    "Empty: none with this attribute. Checked: only with it. Grey: either.";

void SetHint(QComboBox& box, const char* hint) {
    box.lineEdit()->setPlaceholderText(hint);
}

QWidget* MakeSearchButtons(const fields::FrmSearch& form) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    QPushButton* search = Make(form.cmdSearch);
    search->setIcon(QIcon::fromTheme("edit-find"));
    search->setDefault(true);
    search->setToolTip("Search now (F5, or Enter in a box)");
    search->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    QFont font = search->font();
    font.setBold(true);
    search->setFont(font);
    search->setMinimumWidth(search->fontMetrics().averageCharWidth() * 16);
    QPushButton* stop = Make(form.cmdStop);
    stop->setIcon(QIcon::fromTheme("process-stop"));
    stop->setToolTip("Stop searching (Esc)");
    column->addWidget(search);
    column->addWidget(InRow({stop, Make(form.cmdNext)}));
    return panel;
}

QWidget* MakeBoxes(const fields::FrmSearch& form) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    QComboBox* what = Make(form.cmbSearchFor);
    SetHint(*what, "*.mp3|*.flac    (empty: everything)");
    what->setAccessibleName("Search For");
    QComboBox* where = Make(form.cmbDir);
    SetHint(*where, "Folders separated by |, as /home/ann/Music or ~/Music");
    where->setAccessibleName("Search Location(s)");
    grid->addWidget(LabelFor("Search For", what), 0, 0);
    grid->addWidget(what, 0, 1);
    grid->addWidget(Make(form.chkNot), 0, 2, 1, 2);
    grid->addWidget(LabelFor("Search Location(s)", where), 1, 0);
    grid->addWidget(where, 1, 1);
    grid->addWidget(Make(form.cmdBrowse), 1, 2);
    grid->addWidget(Make(form.cmdClearFolders), 1, 3);
    QComboBox* target = Make(form.cboTargetPath);
    grid->addWidget(Make(form.lblTargetPath), 2, 0);
    grid->addWidget(target, 2, 1);
    grid->setColumnStretch(1, 1);
    return panel;
}

QWidget* MakeKinds(const fields::FrmSearch& form) {
    QList<QWidget*> choices;
    for (int i = 0; i < form.optFilesVsDirs.Count(); ++i) {
        choices << Make(form.optFilesVsDirs[i]);
    }
    return InRow(choices, 10);
}

QWidget* MakeSize(const fields::FrmSearch& form) {
    QComboBox* how = Make(form.cboSize);
    how->setAccessibleName("Size test");
    QList<QWidget*> parts{Make(form.chkSize), how};
    for (const auto* box : {&form.txtSize1, &form.txtSize2}) {
        QLineEdit* edit = Make(*box);
        edit->setAccessibleName(box == &form.txtSize1 ? "Size in bytes" : "Largest size in bytes");
        edit->setPlaceholderText("bytes");
        edit->setAlignment(Qt::AlignRight);
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance("2147483647") + 24);
        parts << edit;
    }
    return InRow(parts);
}

QWidget* MakeDate(const fields::FrmSearch& form) {
    QComboBox* how = Make(form.cboDate);
    how->setAccessibleName("Date test");
    return InRow({Make(form.chkDate), how, Make(form.lblDate1), Make(form.lbldDateThru),
                  Make(form.lblDate2), Make(form.lblDateType)});
}

// What the browse button does; shown with it.
QWidget* MakeBrowseModes(const fields::FrmSearch& form, QWidget& browse) {
    QList<QWidget*> choices{new QLabel("Browse for")};
    for (int i = 0; i < form.optBrowse.Count(); ++i) {
        choices << Make(form.optBrowse[i]);
    }
    QWidget* row = InRow(choices, 8);
    row->hide();
    FollowVisibility(browse, *row);
    return row;
}

QWidget* MakeAttributes(const fields::FrmSearch& form) {
    QList<QWidget*> boxes{new QLabel("Attributes")};
    for (std::size_t i = 0; i < form.attributeBoxes.size(); ++i) {
        FieldCheckBox* box = Make(*form.attributeBoxes[i]);
        box->setAccessibleDescription(kAttributeMeanings[i]);
        box->setToolTip(QString("%1\n%2").arg(kAttributeMeanings[i], kTriStateTip));
        boxes << box;
    }
    return InRow(boxes, 8);
}

} // namespace

QWidget* MakeCriteriaPanel(const fields::FrmSearch& form) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    top->addWidget(MakeBoxes(form), 1);
    top->addWidget(MakeSearchButtons(form));
    column->addLayout(top);
    auto* more = new FlowLayout(18, 4);
    for (QWidget* part :
         {MakeKinds(form), static_cast<QWidget*>(Make(form.chkIncludeSubFolders)),
          static_cast<QWidget*>(Make(form.chkOneEach)),
          static_cast<QWidget*>(Make(form.chkRepeatSearch)), MakeSize(form), MakeDate(form),
          MakeBrowseModes(form, *panel->findChild<QWidget*>("cmdBrowse")), MakeAttributes(form)}) {
        more->addWidget(part);
    }
    column->addLayout(more);
    return panel;
}

} // namespace tarvix::forms
