#pragma once

#include "app/program.h"
#include "session/prompt_service.h"
#include "tests/machine/memory_platform.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::testing {

// The same numbers from the same seed on every machine.
class Dice {
  public:
    explicit Dice(std::uint64_t seed) : state_(seed * 2654435761U + 88172645463325252U) {}
    // From 0 to `sides` - 1.
    int Roll(int sides);
    bool Chance(int percent) { return Roll(100) < percent; }
    template <class Container>
    const auto& One(const Container& of) {
        return of[static_cast<std::size_t>(Roll(static_cast<int>(std::size(of))))];
    }

  private:
    std::uint64_t state_;
};

// Somebody who presses any button that a prompt offers, but mostly confirms what he started, and
// never has anything deleted for good. Or one who confirms what he started and
// else takes the safe answer.
class AnyUser : public session::PromptService {
  public:
    AnyUser(Dice& dice, bool isCareful) : dice_(dice), isCareful_(isCareful) {}

    // What he does in the action window.
    std::function<void(session::Session&)> inDialog;

    int MsgBox(const session::Prompt& prompt) override;
    std::string InputBox(const session::Prompt&, std::string_view) override { return {}; }
    void ShowModal(session::Session& session, fields::Form& form,
                   const session::Prompt& prompt) override;
    std::string PickFolder(const session::Prompt&) override { return {}; }
    std::string PickFile(const session::Prompt&, std::string_view) override { return {}; }
    std::string PickNewFile(const session::Prompt&, const session::NewFilePick&) override {
        return {};
    }

  private:
    Dice& dice_;
    bool isCareful_;
};

// One request to the action window.
struct Request {
    bool isMove = false;
    int way = 0;        // optTo
    int structure = 0;  // optStructure
    int duplicates = 0; // chkAsk, chkSkipAll, chkRename, chkOverWrite
    bool namesFolders = false;
    std::string destination;
    std::string added; // txtRename
    std::vector<std::string> places;
};

// A program on a machine with two drives, full of objects that can be mistaken for each other:
// every file's content is its own.
class RandomWorld {
  public:
    explicit RandomWorld(std::uint64_t seed, bool isCareful = false);

    void Search();
    // Selects some or all of what was found.
    void Select();
    Request AnyRequest();
    // Enters it into the open action window.
    void Enter(const Request& request);
    void Copy(const Request& request);
    void Rename();
    void Delete();
    // Searches and one action after the other.
    void Live(int actions);

    app::Program& program() { return program_; }
    session::Session& S() { return program_.Session(); }
    platform::MemoryFileSystem& Disk() { return machine.disk; }
    // Contents that are in no file of any drive nor in the trash any more.
    std::vector<std::string> Lost();
    // Files whose content none of the first files had.
    std::vector<std::string> Broken();
    // Path and content of each file and link outside the program's own folder.
    std::map<std::string, std::string> Files();
    std::set<std::string> Folders();

    // Runs when the action window is filled, before OK.
    std::function<void()> beforeOk;
    // Takes the place of a click on OK.
    std::function<void(session::Session&)> pressOk;

    platform::MemoryPlatform machine;
    Dice dice;
    AnyUser user;

  private:
    void MakeTree();
    void MakeTrouble();
    void ShowDialog(fields::CommandButton& button, const std::function<void()>& fill);

    app::Program program_{machine.platform, user};
    std::set<std::string> first_;
};

} // namespace tarvix::testing
