#include "forms/bottom_panel.h"

#include "forms/field_widgets.h"
#include "forms/flow_layout.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"

#include <QHBoxLayout>

namespace tarvix::forms {

namespace {

// The frame of a group of buttons, its caption in front.
QWidget* MakeGroup(const fields::Frame& field, const QList<QWidget*>& widgets) {
    QWidget* group = Make(field);
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(new QLabel(PlainCaption(field.Caption.Get())));
    for (QWidget* widget : widgets) {
        row->addWidget(widget);
    }
    return group;
}

QPushButton* MakeWithIcon(const fields::CommandButton& field, const char* icon) {
    QPushButton* button = Make(field);
    button->setIcon(QIcon::fromTheme(icon));
    return button;
}

QLabel* Word(const char* text) {
    return new QLabel(text);
}

// The words beside a counter go with it.
QWidget* InCounterRow(QWidget& counter, const QList<QWidget*>& widgets) {
    QWidget* row = InRow(widgets, 4);
    for (QWidget* widget : widgets) {
        if (qobject_cast<QLabel*>(widget)->objectName().isEmpty())
            FollowVisibility(counter, *widget);
    }
    return row;
}

QWidget* MakeFound(const fields::FrmSearch& form) {
    QLabel* files = MakeCounter(form.lblNumOfFilesFound, "Matching files found");
    return InCounterRow(
        *files,
        {Word("Found"), files, Word("of"),
         MakeCounter(form.lblNumOfFilesAttrib, "Files in Search Folder found"), Word("files,"),
         MakeCounter(form.lblNumOfDirsFound, "Matching folders Found"), Word("of"),
         MakeCounter(form.lblNumOfDirsAttrib, "Folders in Search Folder found"), Word("folders")});
}

QWidget* MakeSelected(const fields::FrmSearch& form) {
    QLabel* bytes = MakeCounter(form.lblTotalSize, "Bytes");
    QLabel* unit = Word("bytes");
    QWidget* size = InRow({bytes, unit}, 4);
    FollowVisibility(*bytes, *unit);
    QLabel* files = MakeCounter(form.lblNumOfFilesSelected, "Files Selected");
    QWidget* counts = InCounterRow(
        *files, {Word("Selected"), files, Word("files,"),
                 MakeCounter(form.lblNumOfDirsSelected, "Folders Selected"), Word("folders,")});
    return InRow({counts, size}, 4);
}

} // namespace

QWidget* MakeActionBar(const fields::FrmSearch& form) {
    auto* bar = new QWidget;
    auto* flow = new FlowLayout(18, 4);
    bar->setLayout(flow);
    flow->addWidget(
        MakeGroup(form.fraSelection, {Make(form.cmdSelectAll), Make(form.cmdSelectAllFiles),
                                      Make(form.cmdSelectAllDirs), Make(form.cmdSelectNone),
                                      Make(form.cmdSelectReverse)}));
    flow->addWidget(MakeGroup(form.fraStandardAction,
                              {MakeWithIcon(form.cmdCopySelected, "edit-copy"),
                               MakeWithIcon(form.cmdMoveSelected, "edit-cut"),
                               MakeWithIcon(form.cmdRenameSelected, "edit-rename"),
                               MakeWithIcon(form.cmdDeleteSelected, "user-trash"),
                               Make(form.cmdEditTargets), Make(form.cmdDoVersionSort)}));
    flow->addWidget(Make(form.chkFastSort));
    return bar;
}

QWidget* MakePlayListBanner(const fields::FrmSearch& form) {
    QWidget* banner = Make(form.fraPlayList);
    auto* row = new QHBoxLayout(banner);
    row->setContentsMargins(8, 6, 8, 6);
    row->setSpacing(10);
    banner->setAutoFillBackground(true);
    banner->setBackgroundRole(QPalette::AlternateBase);
    auto* text = new WrappingLabel;
    text->setObjectName(ToQt(form.lblPlayList.Name()));
    row->addWidget(text, 1);
    row->addWidget(Make(form.cmdPreviewPlayList));
    row->addWidget(Make(form.cmdEditPlayList));
    return banner;
}

QWidget* MakeCounterBar(const fields::FrmSearch& form) {
    auto* bar = new QWidget;
    auto* flow = new FlowLayout(24, 2);
    bar->setLayout(flow);
    flow->addWidget(MakeFound(form));
    flow->addWidget(MakeSelected(form));
    QLabel* groups = MakeCounter(form.lblGroups, "Groups:");
    QWidget* row = InCounterRow(*groups, {Word("Groups"), groups});
    row->setObjectName("rowGroups");
    flow->addWidget(row);
    return bar;
}

QWidget* MakeStatusBar(const fields::FrmSearch& form) {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    auto* busy = new QProgressBar;
    busy->setObjectName("barBusy");
    busy->setRange(0, 0);
    busy->setTextVisible(false);
    busy->setFixedSize(80, busy->fontMetrics().height() / 2 + 2);
    busy->setAccessibleName("Working");
    busy->hide();
    auto* progress = new ElidedLabel;
    progress->setObjectName("lblProgressText");
    progress->setTextFormat(Qt::PlainText);
    progress->hide();
    auto* native = new ElidedLabel;
    native->setObjectName("lblNativePath");
    native->setTextFormat(Qt::PlainText);
    native->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    native->setAccessibleName("Path of the current row");
    row->addWidget(busy);
    row->addWidget(progress, 3);
    row->addWidget(Make(form.lblStatus));
    row->addWidget(Make(form.lblDetailedStatus));
    QPushButton* unread = Make(form.cmdUnread);
    unread->setFlat(true);
    row->addWidget(unread);
    QPushButton* leftOut = Make(form.cmdLeftOut);
    leftOut->setIcon(QIcon::fromTheme("edit-find"));
    row->addWidget(leftOut);
    QPushButton* outcome = Make(form.cmdOutcome);
    outcome->setIcon(QIcon::fromTheme("view-list-details"));
    outcome->setToolTip("What became of each object, and where it is now");
    row->addWidget(outcome);
    row->addWidget(MakeElided(form.lblCurrentFolder), 3);
    row->addWidget(MakeElided(form.lblSearchFor), 2);
    row->addWidget(native, 3);
    return bar;
}

} // namespace tarvix::forms
