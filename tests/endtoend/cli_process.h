#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::endtoend {

namespace fs = std::filesystem;

struct Outcome {
    int exitCode = -1;
    std::string out;
    std::string err;
};

// The program itself on real folders: a fresh temporary folder for each test, a data folder of its
// own that the program has run in before, and the clock at 2025-11-15 19:54:52.
class CliProcess : public ::testing::Test {
  protected:
    CliProcess();
    ~CliProcess() override;

    // Runs the program in the temporary folder; `in` is its stdin.
    Outcome Run(const std::vector<std::string>& arguments, std::string_view in = {});
    // The same for a script given on stdin.
    Outcome RunScript(std::string_view script) { return Run({"run", "-"}, script); }

    // What the next runs do in their process before the program begins.
    std::function<void()> beforeProgram;

    fs::path Root() const { return root_; }
    fs::path DataFolder() const { return root_ / "data"; }
    // Makes the folders on the way. Every file is dated 2025-03-04 05:06:07.
    fs::path AddFile(const fs::path& relative, std::string_view content = "x");
    fs::path AddFolder(const fs::path& relative);
    void AddLink(const fs::path& relative, const fs::path& target);

    static std::string ReadAll(const fs::path& file);
    // With the temporary folder's path shown as "ROOT".
    std::string Shown(std::string text) const;

  private:
    fs::path root_;
};

} // namespace tarvix::endtoend
