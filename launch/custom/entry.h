#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvix::custom {

// By whose rules an entry's command is read.
enum class Dialect : std::uint8_t {
    kFileManager, // file-manager/actions
    kService,     // service menus
    kNemo,        // Nemo actions
    kThunar,      // Thunar's custom actions
    kScript,      // a program of a scripts folder
};

// What an entry runs, as its file has it.
struct EntryCommand {
    Dialect dialect = Dialect::kScript;
    std::string line;   // the command line; of a script its native path
    std::string folder; // where it begins, with codes; empty for the folder of the objects
    std::string file;   // native path of the file that tells it
    std::string name;   // the entry's, for %c
    std::string icon;   // the entry's, for %i
    std::string prefix; // of a script's variables, as "NAUTILUS"
    bool inTerminal = false;
    bool showsOutput = false; // in a terminal that stays until a key is pressed
};

// One entry that the user or a package has added to the menu, fit for the objects.
struct CustomEntry {
    std::string label; // for people, no mnemonic
    std::string tip;
    std::string icon;                  // of the icon theme, or a native path; may be empty
    std::vector<std::string> submenus; // from the menu down to it
    bool startsGroup = false;          // a line above it
    bool isTrusted = true;             // else whoever chose it is asked first
    EntryCommand command;
};

// Of one menu; what goes beyond is left out.
constexpr std::size_t kMostEntries = 500;
constexpr std::size_t kMostLabel = 120; // characters

} // namespace tarvix::custom
