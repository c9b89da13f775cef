#include "app/process.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace tarvix::app {

namespace {

// These come again and again while the program winds up.
bool Recurs(int signal) {
    return signal == SIGPIPE || signal == SIGXFSZ;
}

constexpr int kFreedAndKept = 256 << 20;     // bytes, as all below
constexpr int kSortingRoom = 64 << 20;       // of a million rows
constexpr int kMostFromHeap = 32 << 20;      // as large as the C library takes
constexpr std::size_t kFirstHeap = 64 << 20; // of addresses; what isn't used costs nothing
constexpr int kHeapStep = 8 << 20;
constexpr std::size_t kGrows = 1 << 20; // more than is left in a new heap
constexpr std::uintptr_t kLargePage = 2 << 20;
constexpr std::uintptr_t kSmallRun = 16 << 20; // in small pages, as all of a large one is cleared

std::uintptr_t EndOfHeap() {
    return reinterpret_cast<std::uintptr_t>(sbrk(0));
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

void KeepMemory() {
    mallopt(M_TRIM_THRESHOLD, kFreedAndKept);
    mallopt(M_MMAP_THRESHOLD, kMostFromHeap);
    mallopt(M_TOP_PAD, kFirstHeap);
    const std::uintptr_t before = EndOfHeap();
    void* volatile block = std::malloc(kGrows); // or the compiler takes both calls away
    std::free(block);
    mallopt(M_TOP_PAD, kHeapStep);
    const std::uintptr_t end = EndOfHeap();
    if (end - before < kFirstHeap) return;
    const std::uintptr_t begin = (before + kSmallRun + kLargePage - 1) / kLargePage * kLargePage;
    (void)madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}

void KeepSortingRoom() {
    mallopt(M_TRIM_THRESHOLD, kSortingRoom);
    mallopt(M_MMAP_THRESHOLD, kMostFromHeap);
}

void OpenStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) continue;
        // The lowest free number is this one.
        (void)!open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

} // namespace tarvix::app
