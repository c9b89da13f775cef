#include "forms/view_menu.h"

#include "forms/legend_window.h"
#include "forms/result_view.h"
#include "forms/staying_menu.h"
#include "session/settings/platform_settings.h"

#include <QActionGroup>

namespace tarvix::forms {

namespace {

void AddColumns(QMenu& menu, ResultView& list) {
    auto* columns = new StayingMenu("&Columns", &menu);
    columns->setObjectName("mnuColumns");
    menu.addMenu(columns);
    QObject::connect(columns, &QMenu::aboutToShow, &list, [columns, &list] {
        columns->clear();
        qDeleteAll(columns->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
        list.Head().FillMenu(*columns);
    });
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

} // namespace

void FillViewMenu(QMenu& menu, ResultView& list, session::PlatformSettings& settings) {
    AddColumns(menu, list);
    menu.addSeparator();
    AddSizes(menu, list, settings);
    menu.addSeparator();
    QAction* legend = menu.addAction("Colours and &Signs", &list, [&list] {
        QWidget* window = list.window();
        auto* open = window->findChild<QDialog*>("frmLegend");
        if (open == nullptr) open = new LegendWindow(window);
        open->show();
        open->raise();
        open->activateWindow();
    });
    legend->setObjectName("actLegend");
}

} // namespace tarvix::forms
