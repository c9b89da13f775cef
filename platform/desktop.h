#pragma once

#include "platform/error.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// Where a desktop keeps what users and packages add to it.
enum class DesktopFolder : std::uint8_t {
    kUserData,   // the user's data folder
    kData,       // that and the system's, the user's first
    kUserConfig, // the user's settings
    kConfig,     // those and the system's, the user's first
};

// A small file that adds entries to the menu of objects.
struct ActionFile {
    std::string path; // native
    std::string name; // its last component
    std::string bytes;
    bool mayRun = false;        // this user may run it
    bool isOfTheSystem = false; // it belongs to root
};

// A program in a folder of scripts.
struct ScriptFile {
    std::string path;                 // native
    std::vector<std::string> folders; // from the folder of scripts down to it
    std::string name;
};

enum class FileRight : std::uint8_t { kOwner, kRead, kWrite, kRun, kLocal };

// What entries of the menu of objects ask of the desktop. Paths are native, texts the bytes of
// other programs' files; types are such as "image/png".
class Desktop {
  public:
    virtual ~Desktop() = default;

    // The regular files directly in `below` ("kio/servicemenus") of each of those folders whose
    // names end so, in the order of the folders and of names. At most 500, of 256 KiB each; what is
    // larger or can't be read isn't there.
    virtual std::vector<ActionFile> ActionFiles(DesktopFolder folder, std::string_view below,
                                                std::string_view ending) = 0;
    // The files that this user may run in `below` and its subfolders, five levels deep, 500 at
    // most; hidden ones and folders behind links are passed over.
    virtual std::vector<ScriptFile> Scripts(DesktopFolder folder, std::string_view below) = 0;

    // The user's languages as keys of desktop entries name them, "de_DE" and "de", the best first.
    virtual std::vector<std::string> Languages() = 0;
    // What the running desktop is called ("XFCE"); may be empty.
    virtual std::vector<std::string> Names() = 0;
    // Whether a type is the other one or derived from it; everything but a folder is an
    // "application/octet-stream".
    virtual bool IsKindOf(std::string_view type, std::string_view base) = 0;
    // Whether a program of that name or path can be run.
    virtual bool HasProgram(std::string_view name) = 0;
    // Whether the session bus has an owner of the name, a process bears the name, a command line
    // says "true" within a second.
    virtual bool IsOnBus(std::string_view name) = 0;
    virtual bool IsRunning(std::string_view program) = 0;
    virtual bool TellsTrue(std::string_view commandLine) = 0;
    virtual bool Has(std::string_view path, FileRight right) = 0;

    // Asks the file manager for its window on the properties of objects, by their addresses: 70
    // when none takes that.
    virtual Result<void> ShowProperties(std::span<const std::string> addresses) = 0;
};

} // namespace tarvix::platform
