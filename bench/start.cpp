// From the start of the process to the first idle moment of the main window, for a whole-process
// clock: bench_start DATA_FOLDER, or bench_start --bare for a window of Qt with nothing in it, and
// --word for one with one word, which takes a font.

#include "app/program.h"
#include "forms/event_gate.h"
#include "forms/qt_prompts.h"
#include "forms/search_window.h"
#include "platform/linux/linux_platform.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QWindow>
#include <fmt/format.h>

#include <cstdlib>
#include <string_view>

namespace {

using namespace tarvix;

// At the first wait for events once the window was shown. What is taken down at an end isn't part
// of a start.
void EndWhenIdle(const QWidget& window) {
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     [&window] {
                         if (window.windowHandle()->isExposed()) std::_Exit(0);
                     });
}

int RunBare(bool hasWord) {
    QMainWindow window;
    window.resize(1280, 800);
    if (hasWord) window.setCentralWidget(new QLabel("Word"));
    window.show();
    EndWhenIdle(window);
    return QApplication::exec();
}

int RunProgram(const char* dataFolder) {
    platform::LinuxOptions options;
    options.dataFolder = dataFolder;
    platform::LinuxPlatform machine(options);
    const platform::Platform parts = machine.Parts();
    forms::EventGate gate;
    forms::QtPrompts prompts(gate, parts);
    app::Program program(parts, prompts);
    forms::SearchWindow window(program.Session(), gate);
    window.show();
    gate.Run(nullptr, [&] { program.Start(""); });
    EndWhenIdle(window);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fmt::print(stderr, "Usage: bench_start DATA_FOLDER | --bare | --word\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int windowArgc = 1;
    QApplication application(windowArgc, argv);
    const std::string_view what = argv[1];
    const bool hasWord = what == "--word";
    return hasWord || what == "--bare" ? RunBare(hasWord) : RunProgram(argv[1]);
}
