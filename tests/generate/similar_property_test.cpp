#include "generate/similar_finder.h"
#include "generate/similar_patterns.h"
#include "platform/dir.h"
#include "tests/generate/generate_fixture.h"
#include "text/case.h"
#include "text/like.h"
#include "text/paths.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <random>

namespace tarvix::testing {
namespace {

// The finder as it is told, read from the disk for each pattern: what the index must agree with.
class PlainFinder {
  public:
    PlainFinder(platform::FileSystem& files, std::string root)
        : files_(files), root_(std::move(root)) {}

    std::vector<std::string> FindSimilar(const std::string& base, const std::string& own) {
        found_.clear();
        candidates_.clear();
        for (const std::string& pattern : generate::SimilarPatterns(base)) {
            TakeFolder(root_, pattern, own, false);
            for (const std::string& folder : Folders()) {
                TakeFolder(folder, pattern, own, true);
            }
        }
        if (candidates_.size() > 20) candidates_.resize(20);
        return candidates_;
    }

  private:
    // Breadth first, as a crawl lists them.
    std::vector<std::string> Folders() {
        std::vector<std::string> folders{root_};
        for (std::size_t i = 0; i < folders.size(); ++i) {
            platform::Dir dir(files_);
            const std::string folder = folders[i];
            for (std::string name = dir.First(folder + "\\*", platform::kDirAll); !name.empty();
                 name = dir.Next()) {
                const std::string path = folder + "\\" + name;
                const auto facts = files_.Facts(path);
                if (facts && facts->IsFolder()) folders.push_back(path);
            }
        }
        folders.erase(folders.begin());
        return folders;
    }
    void TakeFolder(const std::string& folder, const std::string& pattern, const std::string& own,
                    bool isSubfolder) {
        const bool escapes = pattern.find_first_of("[#") != std::string::npos;
        const std::string like = text::Upper(escapes ? text::EscapeLikeChars(pattern) : pattern);
        platform::Dir dir(files_);
        for (std::string name = dir.First(folder + "\\" + pattern, platform::kDirFiles);
             !name.empty(); name = dir.Next()) {
            if (!text::Like(text::Upper(name), like)) continue;
            if (text::ContainsNoCase(name, ".m3u")) continue;
            if (isSubfolder && candidates_.size() >= 98) return;
            const std::string path = folder + "\\" + name;
            if (std::ranges::count(found_, path) > 0) continue;
            found_.push_back(path);
            if (text::Upper(path) != text::Upper(own)) candidates_.push_back(path);
        }
    }

    platform::FileSystem& files_;
    std::string root_;
    std::vector<std::string> found_;
    std::vector<std::string> candidates_;
};

class SimilarProperty : public GenerateFixture {
  protected:
    std::string Pick(const std::vector<std::string>& of) {
        return of[std::uniform_int_distribution<std::size_t>(0, of.size() - 1)(random)];
    }
    int Up(int to) { return std::uniform_int_distribution<int>(1, to)(random); }
    std::string RandomName() {
        static const std::vector<std::string> words{
            "Beat", "It", "Now",  "the",   "A",   "Bad",  "Song",    "(Live)", "[x]",     "#1",
            "-",    "12", "1999", "Größe", "ÄÖÜ", "now)", "Nowhere", "~",      "beating", "1)"};
        std::string name = Up(6) == 1 ? "1987-0" + std::to_string(9 + Up(80)) + " " : "";
        for (int i = Up(5); i > 0; --i)
            name += Pick(words) + (i > 1 ? " " : "");
        return name + Pick({".mp3", ".flac", ".MP3", "", ".m3u"});
    }
    std::string RandomFolder() {
        std::string folder = "C:\\m";
        for (int depth = Up(4) - 1; depth > 0; --depth)
            folder += "\\" + Pick({"a", "b", "Album [1]", "z"});
        return folder;
    }

    std::mt19937 random{20261115};
};

TEST_F(SimilarProperty, TheIndexFindsWhatThePlainReadingFindsInTheSameOrder) {
    std::vector<std::string> paths;
    for (int i = 0; i < 200; ++i) {
        paths.push_back(RandomFolder() + "\\" + RandomName());
        Disk().AddFile(paths.back());
    }
    Begin();
    generate::SimilarFinder finder;
    ASSERT_TRUE(finder.Read(S(), "C:\\m"));
    PlainFinder plain(Disk(), "C:\\m");
    for (int i = 0; i < 50; ++i) {
        const std::string own = Up(3) == 1 ? "C:\\t\\" + RandomName() : Pick(paths);
        const std::string base = generate::SimilarBaseName(text::FolderOwnName(own));
        EXPECT_EQ(finder.FindSimilar(base, own), plain.FindSimilar(base, own))
            << own << " by " << ::testing::PrintToString(generate::SimilarPatterns(base));
    }
}

} // namespace
} // namespace tarvix::testing
