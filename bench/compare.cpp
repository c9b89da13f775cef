// Times two commands in turn (A B B A ...) and tells the ratio of their times, pair by pair, the
// work that both did, and their peak memory. Fails when a command does, or when they didn't do the
// same.
//   compare [--pairs N] [--before COMMAND] [--count COMMAND] NAME OURS PEER
// BEFORE runs before each of both, untimed. COUNT runs after each and says how many objects it did;
// without it that is the number of lines that the command printed.

#include "bench/pairs.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Run {
    double seconds = 0;
    double megabytes = 0;
};

// What commands print goes into memory, so that no pipe makes them wait.
const int printed = ::memfd_create("printed", MFD_CLOEXEC);

std::string Printed() {
    std::string text(static_cast<std::size_t>(::lseek(printed, 0, SEEK_END)), '\0');
    if (::pread(printed, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
        std::perror("what a command printed");
        std::exit(1);
    }
    return text;
}

Run Time(const std::string& command) {
    if (::ftruncate(printed, 0) != 0 || ::lseek(printed, 0, SEEK_SET) != 0) std::exit(1);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        if (::dup2(printed, STDOUT_FILENO) < 0) ::_exit(126);
        ::execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    if (status != 0) {
        fmt::print(stderr, "This failed (status {}): {}\n", status, command);
        std::exit(1);
    }
    return {wall.count(), static_cast<double>(usage.ru_maxrss) / 1024.0};
}

std::size_t Count(const std::string& command) {
    if (!command.empty()) {
        Time(command);
        return std::strtoull(Printed().c_str(), nullptr, 10);
    }
    const std::string text = Printed();
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

} // namespace

int main(int argc, char** argv) {
    using tarvix::bench::DemandSameWork;
    std::map<std::string_view, std::string> options{
        {"--pairs", "7"}, {"--before", ":"}, {"--count", ""}};
    int next = 1;
    for (; next + 1 < argc && options.contains(argv[next]); next += 2)
        options[argv[next]] = argv[next + 1];
    const int pairs = std::atoi(options["--pairs"].c_str());
    if (argc - next != 3 || pairs < 1) {
        fmt::print(stderr, "Usage: compare [--pairs N] [--before COMMAND] [--count COMMAND] NAME "
                           "OURS PEER\n");
        return 2;
    }
    const std::string name = argv[next];
    const std::array<std::string, 2> commands{argv[next + 1], argv[next + 2]};
    tarvix::bench::Pairs times;
    std::array<std::vector<double>, 2> memory;
    std::array<std::size_t, 2> objects{};
    for (int pair = 0; pair <= pairs; ++pair) {
        std::array<Run, 2> runs;
        // What the one leaves behind, caches to write back and the like, falls to both.
        for (const std::size_t i : pair % 2 == 0 ? std::array{0UZ, 1UZ} : std::array{1UZ, 0UZ}) {
            Time(options["--before"]);
            runs[i] = Time(commands[i]);
            objects[i] = Count(options["--count"]);
            memory[i].push_back(runs[i].megabytes);
        }
        DemandSameWork(name, objects[0], objects[1]);
        times.Add(runs[0].seconds, runs[1].seconds);
    }
    fmt::print("{}\n  {} of  {}\n  {} objects each; {}; {:.0f} MB beside {:.0f} MB\n", name,
               times.Ratio(), commands[1], objects[0], times.Times(),
               tarvix::bench::Median(memory[0]), tarvix::bench::Median(memory[1]));
}
