#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tarvix::testing {

// What a program that was started wrote down about itself.
struct Record {
    std::vector<std::string> arguments; // without its own name
    std::string folder;
    std::map<std::string, std::string> variables;
    std::vector<std::string> descriptors; // what each leads to, from 0 on
};

// A desktop of its own in a temporary folder: entries of applications whose one program writes down
// what it was given, with defaults for types; made once, before anything asks GIO. The types are
// those of the machine.
class DesktopWorld {
  public:
    static DesktopWorld& Get();

    const std::filesystem::path& Root() const { return root_; }
    std::filesystem::path Recorder() const { return root_ / "bin" / "recorder"; }
    // Makes an application, by the id of its entry, the default for a type, as long as this lives.
    class Default {
      public:
        Default(const std::string& id, std::string type);
        ~Default();
        Default(const Default&) = delete;
        Default& operator=(const Default&) = delete;

      private:
        std::string type_;
        std::string before_;
    };
    // A file with text in it below the root; gives its native path.
    std::string AddFile(const std::string& name, const std::string& text = "x") const;
    // Waits for so many records since the last call and takes them, in the order of their
    // arguments.
    std::vector<Record> Take(std::size_t count) const;
    // Whether no record is there or comes within a moment.
    bool IsQuiet() const;

  private:
    DesktopWorld();
    ~DesktopWorld();
    DesktopWorld(const DesktopWorld&) = delete;
    DesktopWorld& operator=(const DesktopWorld&) = delete;

    void AddEntry(const std::string& id, const std::string& keys) const;
    void AddEntries() const;
    std::vector<std::filesystem::path> Runs() const;

    std::filesystem::path root_;
};

} // namespace tarvix::testing
