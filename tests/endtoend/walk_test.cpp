#include "tests/endtoend/trees.h"

#include <algorithm>
#include <fnmatch.h>
#include <sstream>
#include <unistd.h>

namespace tarvix::endtoend {
namespace {

enum class Kind { kFiles, kFolders, kAll };

// What a search for a shell pattern must list, found by another walk: links are never followed, a
// name that ends in a blank or isn't valid is passed over.
class Walk {
  public:
    Walk(std::string pattern, Kind kind) : pattern_(std::move(pattern)), kind_(kind) {}

    std::vector<std::string> Below(const fs::path& folder) {
        found_.clear();
        Visit(folder);
        std::ranges::sort(found_);
        return found_;
    }

  private:
    void Visit(const fs::path& folder) {
        std::error_code unreadable;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, unreadable)) {
            const std::string name = entry.path().filename().string();
            if (name.ends_with(' ')) continue;
            std::error_code ignored;
            const bool isFolder = entry.is_directory(ignored);
            const bool isWanted = kind_ == Kind::kAll || (kind_ == Kind::kFolders) == isFolder;
            if (isWanted && fnmatch(pattern_.c_str(), name.c_str(), FNM_CASEFOLD) == 0) {
                found_.push_back(entry.path().string());
            }
            if (isFolder && !entry.is_symlink(ignored)) Visit(entry.path());
        }
    }

    std::string pattern_;
    Kind kind_;
    std::vector<std::string> found_;
};

class WalkTest : public Trees {
  protected:
    int exitCode = 0;

    void Compare(const std::string& pattern, const fs::path& folder, Kind kind) {
        const char* kinds[] = {"files", "folders", "all"};
        const Outcome outcome =
            Run({"search", "--in", folder.string(), "--any-attribute", "--print0", "--kind",
                 kinds[static_cast<int>(kind)], "--", pattern});
        EXPECT_EQ(outcome.exitCode, exitCode) << outcome.err;
        std::vector<std::string> found;
        std::istringstream stream(outcome.out);
        for (std::string path; std::getline(stream, path, '\0');)
            found.push_back(path);
        std::ranges::sort(found);
        EXPECT_EQ(found, Walk(pattern, kind).Below(folder)) << pattern << " in " << folder;
    }
    void CompareAll(const std::string& pattern, const fs::path& folder) {
        for (const Kind kind : {Kind::kFiles, Kind::kFolders, Kind::kAll})
            Compare(pattern, folder, kind);
    }
};

TEST_F(WalkTest, AgreesOnTheStandardTrees) {
    MakeBasic();
    MakeLinks();
    MakeLoops();
    MakeWeird();
    MakeEmpty();
    MakeKinds();
    for (const char* tree : {"basic", "links", "loops", "weird", "empty", "kinds"}) {
        for (const char* pattern : {"*", "*.txt", "?.*", "*e*", "*.MP3"}) {
            CompareAll(pattern, Root() / tree);
        }
    }
}

TEST_F(WalkTest, AgreesOnThisMachinesHeaders) {
    const fs::path headers = "/usr/include/linux";
    if (!fs::is_directory(headers)) GTEST_SKIP() << "there are no headers here";
    Compare("*.h", headers, Kind::kFiles);
    Compare("*a*", headers, Kind::kAll);
    Compare("*", headers, Kind::kFolders);
}

TEST_F(WalkTest, AFolderThatCannotBeReadIsPassedOver) {
    AddFile("tree/open/a.txt");
    AddFile("tree/closed/b.txt");
    fs::permissions(Root() / "tree/closed", fs::perms::none);
    exitCode = ::geteuid() == 0 ? 0 : 1; // root may read everything
    CompareAll("*", Root() / "tree");
    fs::permissions(Root() / "tree/closed", fs::perms::owner_all);
}

} // namespace
} // namespace tarvix::endtoend
