#include "app/process.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::app {

namespace {

// These come again and again while the program winds up.
bool Recurs(int signal) {
    return signal == SIGPIPE || signal == SIGXFSZ;
}

bool IsIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

void TakeEndingSignals(void (*handler)(int)) {
    sigset_t taken;
    sigemptyset(&taken);
    for (const int signal : kEndingSignals) {
        if (signal == SIGHUP && IsIgnored(signal)) continue;
        struct sigaction action {};
        action.sa_handler = handler;
        action.sa_flags = static_cast<int>(Recurs(signal) ? SA_RESTART : SA_RESETHAND | SA_RESTART);
        sigaction(signal, &action, nullptr);
        sigaddset(&taken, signal);
    }
    // Who started the program may have left them blocked.
    sigprocmask(SIG_UNBLOCK, &taken, nullptr);
}

void OpenStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) continue;
        // The lowest free number is this one.
        (void)!open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

} // namespace tarvix::app
