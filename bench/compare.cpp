// Times two commands in turn (A B A B ...), drops the first pair, and prints the ratio A/B of each
// figure: wall time pair by pair, and peak memory. What the commands print is thrown away. A last
// command, run before each of the others, isn't timed.

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Run {
    double seconds = 0;
    double megabytes = 0;
    int status = 0;
};

Run Time(const char* command) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        const int null = ::open("/dev/null", O_WRONLY);
        if (null < 0 || ::dup2(null, STDOUT_FILENO) < 0) ::_exit(126);
        ::execl("/bin/sh", "sh", "-c", command, static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), static_cast<double>(usage.ru_maxrss) / 1024.0, status};
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        fmt::print(stderr, "Usage: compare NAME 'COMMAND A' 'COMMAND B' [PAIRS ['BEFORE EACH']]\n");
        return 2;
    }
    const int pairs = argc > 4 ? std::atoi(argv[4]) : 7;
    const char* const before = argc > 5 ? argv[5] : ":";
    std::vector<double> ratios;
    std::vector<double> memoryA;
    std::vector<double> memoryB;
    for (int pair = 0; pair <= pairs; ++pair) {
        const int readyA = Time(before).status;
        const Run a = Time(argv[2]);
        const int readyB = Time(before).status;
        const Run b = Time(argv[3]);
        if (readyA != 0 || readyB != 0 || a.status != 0 || b.status != 0) {
            fmt::print(stderr, "{}: a command failed (status {} and {}).\n", argv[1], a.status,
                       b.status);
            return 1;
        }
        if (pair == 0) continue;
        ratios.push_back(a.seconds / b.seconds);
        memoryA.push_back(a.megabytes);
        memoryB.push_back(b.megabytes);
    }
    const auto [least, most] = std::ranges::minmax(ratios);
    fmt::print(
        "{:<34} time x{:.2f} of the peer ({:.2f} to {:.2f}, {} pairs); peak memory {:.0f} MB "
        "beside {:.0f} MB\n",
        argv[1], Median(ratios), least, most, pairs, Median(memoryA), Median(memoryB));
}
