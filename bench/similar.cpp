// Looks for files of similar names: 1,000 entries against a tree that is read once, and for a few
// of them the same answer by reading the tree anew for each pattern.
//   bench_similar TREE FOLDER FILES    FOLDER is for its data; FILES is how many the tree must have

#include "bench/bare_program.h"
#include "bench/pairs.h"
#include "generate/similar_finder.h"
#include "generate/similar_patterns.h"
#include "platform/dir.h"
#include "platform/native_paths.h"
#include "text/case.h"
#include "text/like.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

using namespace tarvix;

constexpr std::size_t kEntries = 1000;
constexpr std::size_t kPlain = 3; // entries that are answered by plain reading, too

// The tree, read from the disk for each pattern.
class PlainFinder {
  public:
    PlainFinder(platform::FileSystem& files, std::string root)
        : files_(files), root_(std::move(root)) {}

    std::vector<std::string> FindSimilar(const std::string& base, const std::string& own) {
        found_.clear();
        candidates_.clear();
        own_ = text::Upper(own);
        for (const std::string& pattern : generate::SimilarPatterns(base)) {
            for (const std::string& folder : Folders())
                TakeFolder(folder, pattern);
        }
        if (candidates_.size() > generate::kMostCandidates) {
            candidates_.resize(generate::kMostCandidates);
        }
        return candidates_;
    }

  private:
    std::vector<std::string> Folders() {
        std::vector<std::string> folders{root_};
        platform::FolderListing listing;
        for (std::size_t i = 0; i < folders.size(); ++i) {
            const std::string folder = folders[i];
            const auto open = files_.Open(folder);
            if (!open || !(*open)->List(listing)) continue;
            for (std::size_t j = 0; j < listing.Size(); ++j) {
                if (!listing[j].isFolder || !listing[j].IsWalkable()) continue;
                folders.push_back(fmt::format("{}\\{}", folder, listing[j].name));
            }
        }
        return folders;
    }
    void TakeFolder(const std::string& folder, const std::string& pattern) {
        const text::LikePattern fits(text::EscapeLikeChars(pattern), true);
        platform::Dir dir(files_);
        for (std::string name = dir.First(folder + "\\" + pattern, platform::kDirFiles);
             !name.empty(); name = dir.Next()) {
            const std::string path = fmt::format("{}\\{}", folder, name);
            if (!fits.Matches(name) || text::ContainsNoCase(name, ".m3u")) continue;
            if (!found_.insert(path).second || text::Upper(path) == own_) continue;
            candidates_.push_back(path);
        }
    }

    platform::FileSystem& files_;
    std::string root_;
    std::string own_;
    std::unordered_set<std::string> found_;
    std::vector<std::string> candidates_;
};

// Entries from all over the tree.
std::vector<std::string> EntriesOf(const generate::FileTree& tree) {
    std::vector<std::string> entries;
    for (std::size_t i = 0; i < kEntries; ++i)
        entries.push_back(tree.Path(i * (tree.Count() / kEntries)));
    return entries;
}

std::string BaseOf(const std::string& path) {
    return generate::SimilarBaseName(path.substr(path.rfind('\\') + 1));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        fmt::print(stderr, "bench_similar TREE FOLDER FILES\n");
        return 2;
    }
    bench::BareProgram program(argv[2]);
    session::Session& session = program->Session();
    const std::string root = session.platform.paths.ToDrive(argv[1]);

    const bench::Watch reading;
    generate::SimilarFinder finder;
    if (!finder.Read(session, root)) return 1;
    const double readSeconds = reading.Seconds();
    bench::DemandSameWork("similar names, files of the tree", finder.Tree().Count(),
                          static_cast<std::size_t>(std::atoll(argv[3])));
    const std::vector<std::string> entries = EntriesOf(finder.Tree());

    const bench::Watch answering;
    std::size_t found = 0;
    for (const std::string& path : entries)
        found += finder.FindSimilar(BaseOf(path), path).size();
    const double answerSeconds = answering.Seconds();

    PlainFinder plain(session.files(), root);
    const bench::Watch crawling;
    for (std::size_t i = 0; i < kPlain; ++i) {
        const std::string& path = entries[(i + 1) * (kEntries / (kPlain + 1))];
        const auto expected = plain.FindSimilar(BaseOf(path), path);
        if (finder.FindSimilar(BaseOf(path), path) == expected) continue;
        fmt::print(stderr, "similar names: the two readings differ for {}\n", path);
        return 1;
    }
    const double plainSeconds = crawling.Seconds() / kPlain;
    fmt::print("similar names of {} entries among {} files: {:.2f} s to read the tree, {:.3f} s to "
               "answer ({} found); plain reading {:.2f} s an entry, {:.0f} s for all (x{:.5f})\n",
               kEntries, finder.Tree().Count(), readSeconds, answerSeconds, found, plainSeconds,
               plainSeconds * kEntries, (readSeconds + answerSeconds) / (plainSeconds * kEntries));
    return 0;
}
