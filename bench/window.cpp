// Opens the main window over a large tree and times what a user waits for: the list after a
// search, a click on a column's head with its grouping, select all, a scroll to the end.

#include "app/program.h"
#include "forms/event_gate.h"
#include "forms/qt_prompts.h"
#include "forms/search_window.h"
#include "platform/linux/linux_platform.h"
#include "results/columns.h"
#include "session/user_input.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <fmt/format.h>

#include <cstdio>
#include <functional>

namespace {

using namespace tarvix;

double Seconds(const std::function<void()>& act) {
    QElapsedTimer timer;
    timer.start();
    act();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void Print(const char* what, double seconds, double most) {
    fmt::print("{:<44} {:.3f} s (at most {} s wanted)\n", what, seconds, most);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fmt::print(stderr, "Usage: bench_window TREE DATA_FOLDER\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int windowArgc = 1;
    QApplication application(windowArgc, argv);
    platform::LinuxOptions options;
    options.dataFolder = argv[2];
    options.hasDesktop = false;
    platform::LinuxPlatform machine(options);
    const platform::Platform parts = machine.Parts();
    forms::EventGate gate;
    forms::QtPrompts prompts(gate, parts);
    app::Program program(parts, prompts);
    forms::SearchWindow window(program.Session(), gate);
    program.Session().yielder.SetPump([&gate] { gate.Pump(); });
    window.resize(1280, 800);
    window.show();
    gate.Run(nullptr, [&] { program.Start(""); });
    QCoreApplication::processEvents();

    auto& session = program.Session();
    auto& form = session.frmSearch;
    const auto run = [&](const std::function<void()>& act) {
        return Seconds([&] { gate.Run(nullptr, act); });
    };
    run([&] {
        (void)session::UserSet(session, form.cmbSearchFor, "*");
        (void)session::UserSet(session, form.cmbDir, argv[1]);
        (void)session::UserClick(session, form.chkIncludeSubFolders);
    });
    QElapsedTimer sinceEnd;
    session.events.On("bench.Ended",
                      [&](session::Session&, const session::EventArgs&) { sinceEnd.start(); });
    run([&] {
        (void)session::UserClick(session, form.cmdSearch);
        session.events.Raise(session, "bench.Ended");
    });
    fmt::print("{} rows, spacers included\n", program.Rows().Count());
    Print("listed after the end of the search", static_cast<double>(sinceEnd.nsecsElapsed()) / 1e9,
          0.5);
    for (const auto column : {results::kSize, results::kDate, results::kPath}) {
        const double seconds =
            run([&] { session.events.Raise(session, "frmSearch.lstMain_ColumnClick", {column}); });
        Print(("click on the head of " +
               std::string(results::kColumns[static_cast<std::size_t>(column)].header))
                  .c_str(),
              seconds, 0.5);
    }
    Print("select all", run([&] { (void)session::UserClick(session, form.cmdSelectAll); }), 0.1);
    Print("scroll to the end", Seconds([&] {
              window.List().verticalScrollBar()->setValue(
                  window.List().verticalScrollBar()->maximum());
          }),
          0.1);
    program.Stop();
}
