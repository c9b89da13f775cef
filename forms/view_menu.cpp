#include "forms/view_menu.h"

#include "forms/legend_window.h"
#include "forms/result_model.h"
#include "forms/result_view.h"
#include "forms/staying_menu.h"

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

void AddSizes(QMenu& menu, ResultModel& model) {
    auto* forms = new QActionGroup(&menu);
    const auto add = [&](const char* text, const char* name, bool readable) {
        QAction* form = menu.addAction(text);
        form->setObjectName(name);
        form->setCheckable(true);
        forms->addAction(form);
        QObject::connect(form, &QAction::triggered, &model,
                         [&model, readable] { model.UseReadableSizes(readable); });
        QObject::connect(&menu, &QMenu::aboutToShow, form, [form, &model, readable] {
            form->setChecked(model.HasReadableSizes() == readable);
        });
    };
    add("Sizes in &Bytes", "actSizesInBytes", false);
    add("Sizes in &kB, MB, GB", "actSizesInUnits", true);
}

} // namespace

void FillViewMenu(QMenu& menu, ResultView& list, ResultModel& model) {
    AddColumns(menu, list);
    menu.addSeparator();
    AddSizes(menu, model);
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
