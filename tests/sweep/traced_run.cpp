#include "tests/sweep/traced_run.h"

#include "tests/sweep/file_calls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvix::sweep {

namespace {

void RedirectTo(int stream, const fs::path& file) {
    const int opened = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (opened < 0 || ::dup2(opened, stream) < 0) ::_exit(127);
}

#if defined(__x86_64__)

// Only the calls of the table stop the program: everything else runs at its own speed.
void TraceFileCallsOnly() {
    std::vector<sock_filter> program;
    program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)));
    for (const FileCall& call : FileCalls()) {
        program.push_back(
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call.number), 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) {
        ::_exit(126);
    }
}

void LetItBeTraced() {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
    ::raise(SIGSTOP);
    TraceFileCallsOnly();
}

// The program under trace, with all its threads.
class Tracer {
  public:
    Tracer(pid_t process, const std::vector<fs::path>& watched, const Plan& plan)
        : process_(process), watched_(watched), plan_(plan) {}

    TracedRun Run() {
        int status = 0;
        ::waitpid(process_, &status, 0);
        ::ptrace(PTRACE_SETOPTIONS, process_, nullptr,
                 PTRACE_O_TRACESECCOMP | PTRACE_O_TRACECLONE | PTRACE_O_TRACEFORK |
                     PTRACE_O_TRACEVFORK | PTRACE_O_TRACEEXEC | PTRACE_O_EXITKILL |
                     PTRACE_O_TRACESYSGOOD);
        Go(process_);
        for (pid_t thread; (thread = ::waitpid(-1, &status, __WALL)) > 0;) {
            if (WIFEXITED(status) || WIFSIGNALED(status)) {
                if (thread != process_) continue;
                run_.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
                continue; // until no thread or child of it is left
            }
            Stopped(thread, status);
        }
        return run_;
    }

  private:
    void Stopped(pid_t thread, int status) {
        const int event = status >> 16;
        const int signal = WSTOPSIG(status);
        if (event == PTRACE_EVENT_SECCOMP) return Called(thread);
        if (signal == (SIGTRAP | 0x80)) {
            // The way out of the planned call.
            ::kill(process_, SIGKILL);
            return Go(thread);
        }
        // A new thread begins with a stop of its own.
        Go(thread, event != 0 || signal == SIGTRAP || signal == SIGSTOP ? 0 : signal);
    }

    void Called(pid_t thread) {
        user_regs_struct registers{};
        if (::ptrace(PTRACE_GETREGS, thread, nullptr, &registers) != 0) return;
        const std::uint64_t arguments[6] = {registers.rdi, registers.rsi, registers.rdx,
                                            registers.r10, registers.r8,  registers.r9};
        const FileCall* call = FileCallOf(static_cast<long>(registers.orig_rax));
        std::string subject = call ? SubjectOf(*call, thread, arguments) : std::string();
        if (!IsWatched(subject) || ++run_.calls != plan_.call) return Go(thread);
        run_.isHit = true;
        run_.hitCall = call->name;
        run_.hitPath = std::move(subject);
        Hit(thread, registers);
    }

    void Hit(pid_t thread, user_regs_struct& registers) {
        switch (plan_.fault) {
        case Fault::kNone:
            return Go(thread);
        case Fault::kKillBefore:
            registers.orig_rax = static_cast<unsigned long long>(-1);
            ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
            ::kill(process_, SIGKILL);
            return Go(thread);
        case Fault::kKillAfter:
            ::ptrace(PTRACE_SYSCALL, thread, nullptr, nullptr);
            return;
        case Fault::kFail:
            registers.orig_rax = static_cast<unsigned long long>(-1);
            registers.rax = static_cast<unsigned long long>(-plan_.error);
            ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
            return Go(thread);
        }
    }

    bool IsWatched(const std::string& subject) const {
        return std::ranges::any_of(watched_, [&](const fs::path& folder) {
            return subject.starts_with(folder.string() + "/");
        });
    }

    static void Go(pid_t thread, int signal = 0) { ::ptrace(PTRACE_CONT, thread, nullptr, signal); }

    pid_t process_;
    const std::vector<fs::path>& watched_;
    const Plan& plan_;
    TracedRun run_;
};

#endif

} // namespace

void BecomeProgram(const std::vector<std::string>& words, const fs::path& folder,
                   void (*prepare)()) {
    std::vector<char*> argv;
    for (const std::string& word : words) {
        argv.push_back(const_cast<char*>(word.c_str()));
    }
    argv.push_back(nullptr);
    if (::chdir(folder.c_str()) != 0) ::_exit(127);
    RedirectTo(STDOUT_FILENO, "stdout");
    RedirectTo(STDERR_FILENO, "stderr");
    if (prepare) prepare();
    ::execv(argv[0], argv.data());
    ::_exit(127);
}

#if defined(__x86_64__)

bool CanTrace() {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(1);
        TraceFileCallsOnly();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TracedRun RunTraced(const std::vector<std::string>& words, const fs::path& folder,
                    const std::vector<fs::path>& watched, const Plan& plan) {
    const pid_t child = ::fork();
    if (child == 0) BecomeProgram(words, folder, LetItBeTraced);
    return Tracer(child, watched, plan).Run();
}

#else

bool CanTrace() {
    return false;
}

TracedRun RunTraced(const std::vector<std::string>&, const fs::path&, const std::vector<fs::path>&,
                    const Plan&) {
    return {};
}

#endif

} // namespace tarvix::sweep
