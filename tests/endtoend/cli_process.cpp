#include "tests/endtoend/cli_process.h"

#include "tests/endtoend/program_path.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvix::endtoend {

namespace {

constexpr std::time_t kFileTime = 1741064767; // 2025-03-04 05:06:07 UTC

void Redirect(int stream, const fs::path& file, int flags) {
    const int opened = open(file.c_str(), flags, 0600);
    if (opened < 0 || dup2(opened, stream) < 0) _exit(127);
}

[[noreturn]] void BecomeProgram(const fs::path& folder, std::vector<std::string> words) {
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    if (chdir(folder.c_str()) != 0) _exit(127);
    execv(argv[0], argv.data());
    _exit(127);
}

} // namespace

CliProcess::CliProcess() {
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    unsetenv("TARVIX_DATA_FOLDER");
    umask(022);
    std::string pattern = (fs::temp_directory_path() / "tarvix-XXXXXX").string();
    root_ = fs::canonical(mkdtemp(pattern.data()));
    AddFile("data/TXFSSearchHistoryFile.txt", "*EOF");
}

CliProcess::~CliProcess() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

Outcome CliProcess::Run(const std::vector<std::string>& arguments, std::string_view in) {
    const fs::path streams = root_ / ".streams";
    fs::create_directory(streams);
    std::ofstream(streams / "in", std::ios::binary) << in;
    std::vector<std::string> words{ProgramPath(), "--data-folder", DataFolder().string(), "--now",
                                   "2025-11-15 19:54:52"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const pid_t child = fork();
    if (child == 0) {
        Redirect(STDIN_FILENO, streams / "in", O_RDONLY);
        Redirect(STDOUT_FILENO, streams / "out", O_WRONLY | O_CREAT | O_TRUNC);
        Redirect(STDERR_FILENO, streams / "err", O_WRONLY | O_CREAT | O_TRUNC);
        if (beforeProgram) beforeProgram();
        BecomeProgram(root_, words);
    }
    int status = 0;
    waitpid(child, &status, 0);
    Outcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(streams / "out"),
                    ReadAll(streams / "err")};
    fs::remove_all(streams);
    return outcome;
}

fs::path CliProcess::AddFile(const fs::path& relative, std::string_view content) {
    const fs::path file = root_ / relative;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    const std::array<timespec, 2> times{{{kFileTime, 0}, {kFileTime, 123456789}}};
    utimensat(AT_FDCWD, file.c_str(), times.data(), 0);
    return file;
}

fs::path CliProcess::AddFolder(const fs::path& relative) {
    fs::create_directories(root_ / relative);
    return root_ / relative;
}

void CliProcess::AddLink(const fs::path& relative, const fs::path& target) {
    fs::create_directories((root_ / relative).parent_path());
    fs::create_symlink(target, root_ / relative);
}

std::string CliProcess::ReadAll(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string CliProcess::Shown(std::string text) const {
    const std::string root = root_.string();
    for (std::size_t at = text.find(root); at != text.npos; at = text.find(root, at)) {
        text.replace(at, root.size(), "ROOT");
    }
    return text;
}

} // namespace tarvix::endtoend
