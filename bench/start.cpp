// From the start of the process to the first idle moment of the main window, for a whole-process
// clock: bench_start DATA_FOLDER, or bench_start --bare for a window of Qt with nothing in it.

#include "app/program.h"
#include "forms/event_gate.h"
#include "forms/qt_prompts.h"
#include "forms/search_window.h"
#include "platform/linux/linux_platform.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>
#include <fmt/format.h>

#include <string_view>

namespace {

using namespace tarvix;

int RunBare() {
    QMainWindow window;
    window.resize(1280, 800);
    window.show();
    QTimer::singleShot(0, [] { QApplication::quit(); });
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
    QTimer::singleShot(0, [] { QApplication::quit(); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fmt::print(stderr, "Usage: bench_start DATA_FOLDER | --bare\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int windowArgc = 1;
    QApplication application(windowArgc, argv);
    return std::string_view(argv[1]) == "--bare" ? RunBare() : RunProgram(argv[1]);
}
