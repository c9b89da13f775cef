#include "forms/view_menu.h"

#include "forms/frozen_head.h"
#include "forms/legend_window.h"
#include "forms/letters.h"
#include "forms/result_view.h"
#include "forms/staying_menu.h"
#include "forms/text_conversion.h"
#include "session/session.h"

#include <QActionGroup>
#include <QPushButton>

namespace tarvix::forms {

namespace {

// An entry does what a click on its column's head does.
void AddSortEntry(QMenu& menu, QActionGroup& group, ResultView& list, int column) {
    const QHeaderView& head = list.Head().Header();
    const auto& info = results::kColumns[static_cast<std::size_t>(column)];
    const bool isKey = head.sortIndicatorSection() == column;
    const bool isAscending = head.sortIndicatorOrder() == Qt::AscendingOrder;
    const char* direction = !isKey ? "" : isAscending ? "\tascending" : "\tdescending";
    QAction* entry = menu.addAction(ToQt(info.header) + direction, &list, [&list, column] {
        if (list.Head().onClick) list.Head().onClick(column);
    });
    entry->setObjectName("sort" + ToQt(info.key));
    entry->setCheckable(true);
    group.addAction(entry);
    entry->setChecked(isKey);
}

// The columns in sight, from left to right; none where a click on a head does nothing.
void AddSorts(QMenu& menu, ResultView& list, const session::Session& session) {
    QMenu* sorts = menu.addMenu("&Sort By");
    sorts->setObjectName("mnuSortBy");
    auto* group = new QActionGroup(sorts);
    QObject::connect(&menu, &QMenu::aboutToShow, sorts, [sorts, &list, &session] {
        const bool maySort = !list.maySelect || list.maySelect();
        sorts->setEnabled(maySort && !session.state.blnPlayListMode);
    });
    QObject::connect(sorts, &QMenu::aboutToShow, &list, [sorts, group, &list] {
        sorts->clear();
        const QHeaderView& head = list.Head().Header();
        for (int place = 0; place < head.count(); ++place) {
            const int column = head.logicalIndex(place);
            if (!head.isSectionHidden(column)) AddSortEntry(*sorts, *group, list, column);
        }
        GiveLettersAndDigits(*sorts);
    });
}

void AddColumns(QMenu& menu, ResultView& list) {
    auto* columns = new StayingMenu("&Columns", &menu);
    columns->setObjectName("mnuColumns");
    menu.addMenu(columns);
    QObject::connect(columns, &QMenu::aboutToShow, &list, [columns, &list] {
        columns->clear();
        qDeleteAll(columns->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
        list.Head().FillMenu(*columns);
    });
    GiveLettersWhenOpened(*columns);
}

void AddSizes(QMenu& menu, ResultView& list, session::PlatformSettings& settings) {
    auto* forms = new QActionGroup(&menu);
    const auto add = [&](const char* text, const char* name, bool inUnits) {
        QAction* form = menu.addAction(text);
        form->setObjectName(name);
        form->setCheckable(true);
        forms->addAction(form);
        QObject::connect(form, &QAction::triggered, &list, [&list, &settings, inUnits] {
            settings.showsUnits = inUnits;
            list.viewport()->update();
        });
        QObject::connect(&menu, &QMenu::aboutToShow, form, [form, &settings, inUnits] {
            form->setChecked(settings.showsUnits == inUnits);
        });
    };
    add("Sizes in &Bytes", "actSizesInBytes", false);
    add("Sizes in &kB, MB, GB", "actSizesInUnits", true);
}

// What the button in the status line does, for who has no mouse at hand.
void AddLastAction(QMenu& menu, ResultView& list, const session::Session& session) {
    QAction* entry = menu.addAction("What the &Last Action Did", &list, [&list] {
        if (auto* button = list.window()->findChild<QPushButton*>("cmdOutcome")) button->click();
    });
    entry->setObjectName("actLastAction");
    QObject::connect(&menu, &QMenu::aboutToShow, entry, [entry, &session] {
        const auto& button = session.frmSearch.cmdOutcome;
        entry->setEnabled(button.Visible && button.Enabled);
    });
}

} // namespace

void FillViewMenu(QMenu& menu, ResultView& list, session::Session& session) {
    AddSorts(menu, list, session);
    AddColumns(menu, list);
    menu.addSeparator();
    AddSizes(menu, list, session.state.platformSettings);
    menu.addSeparator();
    QAction* legend = menu.addAction("Colours and Si&gns", &list, [&list] {
        QWidget* window = list.window();
        auto* open = window->findChild<QDialog*>("frmLegend");
        if (open == nullptr) open = new LegendWindow(window);
        open->show();
        open->raise();
        open->activateWindow();
    });
    legend->setObjectName("actLegend");
    AddLastAction(menu, list, session);
}

} // namespace tarvix::forms
