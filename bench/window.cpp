// Opens the main window over a large tree and times what a user waits for: the whole search until
// it is listed, in turn with `find`; a click on a column's head with its grouping, select all, a
// scroll.

#include "app/process.h"
#include "app/program.h"
#include "bench/pairs.h"
#include "forms/event_gate.h"
#include "forms/search_window.h"
#include "platform/linux/linux_platform.h"
#include "results/columns.h"
#include "results/sorting.h"
#include "session/scripted_prompts.h"
#include "session/user_input.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace tarvix;

constexpr int kPairs = 5;

double Seconds(const std::function<void()>& act) {
    QElapsedTimer timer;
    timer.start();
    act();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

// Runs it several times and tells the median and the spread. `before` runs before each, untimed.
void Tell(
    const std::string& what, double wanted, const std::function<void()>& act,
    const std::function<void()>& before = [] {}) {
    std::vector<double> seconds;
    for (int i = 0; i < kPairs; ++i) {
        before();
        seconds.push_back(Seconds(act));
    }
    const auto [least, most] = std::ranges::minmax(seconds);
    fmt::print("{}\n  {:.3f} s ({:.3f} to {:.3f}; at most {} s wanted)\n", what,
               bench::Median(seconds), least, most, wanted);
}

std::size_t LinesOf(const std::string& command) {
    std::size_t lines = 0;
    FILE* const out = ::popen(command.c_str(), "r");
    for (int c = 0; out != nullptr && (c = ::getc_unlocked(out)) != EOF;)
        lines += c == '\n';
    if (out == nullptr || ::pclose(out) != 0) lines = 0;
    return lines;
}

void Do(const session::InputResult& input) {
    if (input) return;
    fmt::print(stderr, "{}\n", input.error());
    std::exit(1);
}

bool IsNumber(results::Column column) {
    return column == results::kSize || column == results::kDate;
}

// Steps of the wheel with all columns on, one frame each, here and there in the list, and sideways.
void TellFrames(session::Session& session, forms::EventGate& gate, forms::ResultView& list) {
    constexpr double kFrame = 1.0 / 60;
    gate.Run(nullptr, [&] { session.blnListItems.fill(true); });
    QCoreApplication::processEvents();
    QScrollBar& down = *list.verticalScrollBar();
    QScrollBar& sideways = *list.horizontalScrollBar();
    const auto step = [&](QScrollBar& bar) { bar.setValue(bar.value() + 3 * bar.singleStep()); };
    const auto back = [&] {
        down.setValue(down.value() + down.maximum() / 7);
        sideways.setValue(0);
        QCoreApplication::processEvents();
    };
    Tell(
        "window: a step down with all columns", kFrame, [&] { step(down); }, back);
    Tell(
        "window: a page down with all columns", kFrame,
        [&] { down.setValue(down.value() + down.pageStep()); }, back);
    Tell(
        "window: a step sideways with all columns", kFrame, [&] { step(sideways); }, back);
}

// The whole search, from the click to the painted list, in turn with `find`.
void CompareSearch(app::Program& program, forms::EventGate& gate, const std::string& tree) {
    const std::string find = "find '" + tree + "' -type f -printf '%p %s %T@\\n'";
    auto& session = program.Session();
    bench::Pairs pairs;
    for (int pair = 0; pair <= kPairs; ++pair) {
        const double ours = Seconds([&] {
            gate.Run(nullptr,
                     [&] { Do(session::UserClick(session, session.frmSearch.cmdSearch)); });
        });
        std::size_t lines = 0;
        pairs.Add(ours, Seconds([&] { lines = LinesOf(find); }));
        results::RemoveSpacers(program.Rows());
        bench::DemandSameWork("window list", program.Rows().Count(), lines);
    }
    fmt::print("window: search until the list is painted\n  {} of  {}\n  {} objects each; {}\n",
               pairs.Ratio(), find, program.Rows().Count(), pairs.Times());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fmt::print(stderr, "Usage: bench_window TREE DATA_FOLDER\n");
        return 2;
    }
    app::KeepSortingRoom(); // as the program does
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int windowArgc = 1;
    QApplication application(windowArgc, argv);
    platform::LinuxOptions options;
    options.dataFolder = argv[2];
    options.hasDesktop = false;
    platform::LinuxPlatform machine(options);
    const platform::Platform parts = machine.Parts();
    forms::EventGate gate;
    session::ScriptedPrompts prompts; // nobody is there to answer
    prompts.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
    app::Program program(parts, prompts);
    forms::SearchWindow window(program.Session(), gate);
    program.Session().yielder.SetPump([&gate] { gate.Pump(); });
    window.resize(1280, 800);
    window.show();
    gate.Run(nullptr, [&] { program.Start(""); });
    QCoreApplication::processEvents();

    auto& session = program.Session();
    auto& form = session.frmSearch;
    gate.Run(nullptr, [&] {
        Do(session::UserSet(session, form.cmbSearchFor, "*"));
        Do(session::UserSet(session, form.cmbDir, argv[1]));
        Do(session::UserSet(session, form.chkIncludeSubFolders, "1"));
    });
    CompareSearch(program, gate, argv[1]);
    for (const auto column : {results::kSize, results::kDate, results::kPath, results::kYearRank}) {
        const auto click = [&](results::Column head) {
            gate.Run(nullptr, [&] {
                session.events.Raise(session, "frmSearch.lstMain_ColumnClick", {head});
            });
        };
        Tell(
            "window: click on the head of " +
                std::string(results::kColumns[static_cast<std::size_t>(column)].header),
            IsNumber(column) ? 0.1 : 0.25, [&] { click(column); }, [&] { click(results::kName); });
    }
    Tell("window: what a search does at its end, until the list is painted", 0.1,
         [&] { gate.Run(nullptr, [&] { results::RearrangeRows(session); }); });
    Tell("window: select all", 0.1,
         [&] { gate.Run(nullptr, [&] { Do(session::UserClick(session, form.cmdSelectAll)); }); });
    auto& bar = *window.List().verticalScrollBar();
    Tell(
        "window: scroll to the end", 0.1, [&] { bar.setValue(bar.maximum()); },
        [&] { bar.setValue(0); });
    TellFrames(session, gate, window.List());
    program.Stop();
}
