#include "tests/sweep/sweep_world.h"

#include "tests/endtoend/program_path.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvix::sweep {

namespace {

constexpr std::string_view kData = ".dat";
constexpr std::string_view kHiddenName = "/.tarvix-";

fs::path MadeBelow(const fs::path& folder) {
    std::string pattern = (folder / "tarvix-sweep-XXXXXX").string();
    return fs::canonical(::mkdtemp(pattern.data()));
}

dev_t DiskOf(const fs::path& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 ? facts.st_dev : 0;
}

std::string ReadAll(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void EmptyFolder(const fs::path& folder) {
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename() != "disk") fs::remove_all(entry);
    }
}

std::string PathIn(const std::string& content) {
    return content.substr(0, content.find('\n'));
}

} // namespace

SweepWorld::SweepWorld() : root_(MadeBelow(fs::temp_directory_path())) {
    const fs::path own = root_ / "disk";
    fs::create_directory(own);
    isMounted_ = ::mount("tmpfs", own.c_str(), "tmpfs", 0, "size=64m") == 0;
    const fs::path other = "/dev/shm";
    std::error_code ignored;
    if (isMounted_) {
        disk_ = own;
    } else if (fs::is_directory(other, ignored) && DiskOf(other) != DiskOf(root_)) {
        disk_ = MadeBelow(other);
    }
}

SweepWorld::~SweepWorld() {
    std::error_code ignored;
    if (isMounted_) ::umount2(disk_.c_str(), MNT_DETACH);
    for (const fs::path& root : Roots()) {
        fs::remove_all(root, ignored);
    }
}

std::vector<fs::path> SweepWorld::Roots() const {
    const bool isApart = !disk_.empty() && !isMounted_;
    return isApart ? std::vector{root_, disk_} : std::vector{root_};
}

void SweepWorld::AddFile(const fs::path& file) {
    fs::create_directories(file.parent_path());
    std::string content = file.string() + "\n";
    content.resize(content.size() + 700 * (contents_.size() % 9) * (contents_.size() % 9), 'x');
    content += file.string();
    std::ofstream(file, std::ios::binary) << content;
    contents_.insert(std::move(content));
}

void SweepWorld::Reset() {
    contents_.clear();
    targets_.clear();
    for (const fs::path& place : {root_, disk_}) {
        if (!place.empty()) EmptyFolder(place);
    }
    modes_.clear();
    // Modes that no round trip over "read-only" would give back.
    const std::vector<std::pair<const char*, mode_t>> sources{{"s/a.dat", 0644},
                                                              {"s/b.dat", 0464},
                                                              {"s/c.dat", 0575},
                                                              {"s/sub/d.dat", 0444},
                                                              {"s/sub/deep/e.dat", 0600}};
    for (const auto& [name, mode] : sources) {
        AddFile(root_ / name);
        ::chmod((root_ / name).c_str(), mode);
        modes_.emplace_back(root_ / name, mode);
    }
    for (const fs::path& place : {root_, disk_}) {
        if (place.empty()) continue;
        for (const char* name : {"t/a.dat", "t/c.dat", "t/sub/d.dat"}) {
            AddFile(place / name);
            targets_.push_back(place / name);
        }
    }
    fs::create_directories(root_ / "home");
    fs::create_directories(root_ / "data");
    std::ofstream(root_ / "data" / "TXFSSearchHistoryFile.txt") << "*EOF";
}

std::string SweepWorld::Filled(std::string words) const {
    const std::vector<std::pair<std::string, std::string>> folders{{"ROOT", root_.string()},
                                                                   {"DISK", disk_.string()}};
    for (const auto& [mark, path] : folders) {
        for (auto at = words.find(mark); at != words.npos; at = words.find(mark)) {
            words.replace(at, mark.size(), path);
        }
    }
    return words;
}

std::vector<std::string> SweepWorld::WordsOf(const std::string& command) const {
    ::setenv("XDG_DATA_HOME", (root_ / "home").c_str(), 1);
    ::unsetenv("TARVIX_DATA_FOLDER");
    std::vector<std::string> words{endtoend::ProgramPath(), "--data-folder",
                                   (root_ / "data").string()};
    std::istringstream stream(Filled(command));
    for (std::string word; stream >> word;) {
        words.push_back(std::move(word));
    }
    return words;
}

TracedRun SweepWorld::Run(const std::string& command, const Plan& plan) {
    return RunTraced(WordsOf(command), root_, Roots(), plan);
}

int SweepWorld::RunFreely(const std::string& command) {
    const std::vector<std::string> words = WordsOf(command);
    const pid_t child = ::fork();
    if (child == 0) BecomeProgram(words, root_);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void SweepWorld::AssessFile(const fs::path& file, std::set<std::string>& found,
                            std::set<std::string>& trashed, Damage& damage) const {
    std::string content = ReadAll(file);
    const bool isWhole = contents_.contains(content);
    const std::string path = file.string();
    const bool isHidden = path.contains(kHiddenName);
    if (file.extension() == kData && !isWhole && !isHidden) damage.broken.push_back(path);
    if (!isWhole) return;
    // A copy under a hidden name will be taken away: it saves nothing.
    if (isHidden) return;
    if (path.contains("/Trash/") || path.contains("/.Trash")) trashed.insert(content);
    found.insert(std::move(content));
}

Damage SweepWorld::Assess() const {
    Damage damage;
    std::set<std::string> found;
    std::set<std::string> trashed;
    for (const fs::path& root : Roots()) {
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            if (entry.path().filename().string().starts_with(kHiddenName.substr(1))) {
                damage.left.push_back(entry.path().string());
            }
            if (!entry.is_regular_file() || entry.is_symlink()) continue;
            AssessFile(entry.path(), found, trashed, damage);
        }
    }
    for (const std::string& content : contents_) {
        if (!found.contains(content)) damage.lost.push_back(PathIn(content));
    }
    for (const fs::path& target : targets_) {
        if (fs::exists(fs::symlink_status(target))) continue;
        const bool isTrashed = std::ranges::any_of(
            trashed, [&](const auto& content) { return PathIn(content) == target.string(); });
        if (!isTrashed) damage.gone.push_back(target.string());
    }
    for (const auto& [source, mode] : modes_) {
        struct stat facts {};
        if (::lstat(source.c_str(), &facts) != 0) continue;
        if ((facts.st_mode & 07777) != mode) damage.changed.push_back(source.string());
    }
    return damage;
}

std::string SweepWorld::Listing() const {
    std::string text;
    for (const fs::path& root : Roots()) {
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            if (!entry.is_regular_file()) continue;
            const std::string content = ReadAll(entry);
            text += entry.path().string();
            if (entry.path().extension() == kData) text += "  holds  " + PathIn(content);
            text += "\n";
        }
    }
    return text + ReadAll(root_ / "stdout") + ReadAll(root_ / "stderr");
}

} // namespace tarvix::sweep
