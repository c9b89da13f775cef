// The windows: a machine under Linux, the prompts and the main window over one program.
#include "app/process.h"
#include "app/program.h"
#include "app/saved_drives.h"
#include "app/window_script.h"
#include "batch/script_recorder.h"
#include "forms/event_gate.h"
#include "forms/help_window.h"
#include "forms/qt_prompts.h"
#include "forms/search_window.h"
#include "forms/theme.h"
#include "platform/file_system.h"
#include "platform/linux/linux_platform.h"
#include "platform/native_paths.h"
#include "session/ending_prompts.h"
#include "session/lifecycle/help.h"
#include "session/product.h"

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QIcon>
#include <QSocketNotifier>
#include <QTimer>
#include <QWindow>
#include <fmt/core.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>

namespace {

using namespace tarvix;

struct Request {
    std::string argument;
    std::string dataFolder;
};

// A path relative to the working folder, made absolute; drive paths and addresses stay.
std::string Absolute(const std::string& path) {
    const bool isDrive = path.size() > 1 && (path[1] == ':' || path.starts_with("\\\\"));
    if (path.empty() || isDrive || path[0] == '~' || path.starts_with("file://")) return path;
    std::error_code ignored;
    return std::filesystem::absolute(path, ignored).lexically_normal().string();
}

// Nothing, and the exit code set, when the process is to end at once.
std::optional<Request> ReadArguments(int argc, char** argv, int& exitCode) {
    Request request;
    const std::string name(session::kProductName);
    CLI::App app(
        fmt::format("{}: finds large groups of files and copies, moves and renames them by rule.",
                    name),
        "tarvix");
    app.set_version_flag("--version", fmt::format("{} {}", name, session::ProductVersion()));
    app.add_option("--data-folder", request.dataFolder, "where options, histories and logs lie")
        ->type_name("DIR");
    app.add_option("path", request.argument, "a folder, a file or a list of folders (.mpl)");
    app.footer("TARVIX_THEME=light or dark overrides the desktop's colours.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error) == 0 ? 0 : 2;
        return std::nullopt;
    }
    request.argument = Absolute(request.argument);
    request.dataFolder = Absolute(request.dataFolder);
    return request;
}

// Qt ends the process when no window can be opened; say what to do instead.
void ExplainMissingDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs("tarvix: no window can be opened, because no display was found. Run it in a "
               "desktop session or set DISPLAY (or QT_QPA_PLATFORM); without a display use "
               "tarvix-cli.\n",
               stderr);
    std::_Exit(2);
}

// Of the desktop's theme, where it is installed, or out of the source tree.
QIcon ProgramIcon() {
    const QString file = QApplication::applicationDirPath() + "/../../data/icons/tarvix.svg";
    return QIcon::fromTheme("tarvix", QFile::exists(file) ? QIcon(file) : QIcon());
}

// So that the first prompts stand above the window, in its middle.
void WaitUntilShown(const QMainWindow& window) {
    QElapsedTimer waited;
    waited.start();
    while (!window.windowHandle()->isExposed() && waited.elapsed() < 1000) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    QApplication::processEvents();
}

int signalPipe[2] = {-1, -1};
volatile std::sig_atomic_t interruption = 0; // the first signal that asked for the end

void PassSignalOn(int signal) {
    if (interruption == 0) interruption = signal;
    const char byte = 1;
    (void)!write(signalPipe[1], &byte, 1);
}

// The end of a desktop session, or Ctrl+C in a terminal, closes the window as its own button would,
// so that logs and histories are written; prompts get their safe answer.
void CloseOnSignals(QMainWindow& window) {
    if (pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &window);
    QObject::connect(notifier, &QSocketNotifier::activated, &window, [&window] {
        char bytes[16];
        (void)!read(signalPipe[0], bytes, sizeof bytes);
        window.close();
        auto* timer = new QTimer(&window);
        QObject::connect(timer, &QTimer::timeout, &window, [] {
            if (QWidget* prompt = QApplication::activeModalWidget()) prompt->close();
        });
        timer->start(50);
    });
    app::TakeEndingSignals(PassSignalOn);
}

} // namespace

int main(int argc, char** argv) {
    app::KeepSortingRoom();
    app::OpenStandardDescriptors();
    int exitCode = 0;
    const auto request = ReadArguments(argc, argv, exitCode);
    if (!request) return exitCode;

    const auto usual = qInstallMessageHandler(ExplainMissingDisplay);
    int windowArgc = 1; // the arguments are ours
    QApplication application(windowArgc, argv);
    qInstallMessageHandler(usual);
    QApplication::setApplicationName("tarvix");
    QApplication::setDesktopFileName("tarvix");
    QApplication::setWindowIcon(ProgramIcon());
    forms::UseOutlines();
    forms::ChooseShade(qEnvironmentVariable("TARVIX_THEME").toStdString());
    forms::ChooseIconTheme(QApplication::palette());

    platform::LinuxOptions options;
    options.dataFolder = request->dataFolder;
    app::AddSavedDrives(options);
    platform::LinuxPlatform machine(options);
    const platform::Platform parts = machine.Parts();
    const platform::KeptListings listings(parts.files); // for each search but the first
    forms::EventGate gate;
    forms::QtPrompts windows(gate, parts);
    session::EndingPrompts prompts(windows, [] { return interruption != 0; });
    app::Program program(parts, prompts);
    app::AddScriptEvents(program);
    {
        forms::SearchWindow window(program.Session(), gate);
        forms::HelpWindow help;
        program.Session().events.On(
            std::string(lifecycle::kShowHelp),
            [&](session::Session&, const session::EventArgs& args) {
                help.ShowPage(QString::fromStdString(parts.paths.ToNative(args.path)));
            });
        program.Session().yielder.SetPump([&gate] { gate.Pump(); });
        CloseOnSignals(window);
        window.show();
        gate.Run(nullptr, [&] {
            WaitUntilShown(window);
            program.Start(request->argument);
        });
        exitCode = QApplication::exec();
        program.Session().yielder.SetPump({});
    }
    program.Session().events.Raise(program.Session(), batch::kEndRecording);
    program.Stop();
    return interruption == 0 ? exitCode : app::ExitCodeAfter(interruption);
}
