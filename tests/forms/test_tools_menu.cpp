#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace tarvix::forms {

class ToolsMenuTest : public WindowFixture {
  protected:
    QAction* Entry(const QString& menu, const char* name) {
        for (const QAction* top : window->menuBar()->actions()) {
            if (top->text().remove(u'&') != menu) continue;
            for (QAction* entry : top->menu()->actions()) {
                if (entry->objectName() == QLatin1String(name)) return entry;
            }
        }
        return nullptr;
    }
};

TEST_F(ToolsMenuTest, HoldsTheEntriesThatShowLogs) {
    for (const char* name :
         {"mnuToolViewActionLog", "mnuToolViewAnyActionLog", "mnuToolViewRuns"}) {
        EXPECT_NE(Entry("Tools", name), nullptr) << name;
        EXPECT_EQ(Entry("Actions", name), nullptr) << name;
    }
    EXPECT_NE(Entry("Tools", "mnuTools_NameVersionSort"), nullptr);
}

TEST_F(ToolsMenuTest, ShowsTheActionLogOfThisRun) {
    QAction* entry = Entry("Tools", "mnuToolViewActionLog");
    ASSERT_NE(entry, nullptr);
    EXPECT_TRUE(entry->isVisible());
    entry->trigger();
    EXPECT_EQ(machine.launcher.opened, std::vector<std::string>{S().state.strActionLogFile});
}

} // namespace tarvix::forms
