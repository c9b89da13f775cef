#pragma once

#include "platform/linux/system_calls.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace tarvix::platform {

// By what an object that was taken is known again: its numbers and when it was made, or on a file
// system that gives numbers anew, its size and when its content changed.
struct TrashStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0; // of the object, or its size
    FileTime time = 0;        // made, or changed
    std::uint16_t kind = 0;   // with the bits of S_IFMT
    bool isNumbered = true;
    bool operator==(const TrashStamp&) const = default;
};
TrashStamp StampOf(const struct statx& st, bool isNumbered);

// One trash folder in the form that the desktops share: "files" holds the objects, "info" a small
// text for each, which tells where it was and when it went.
class TrashFolder {
  public:
    // The user's own trash, made where it is missing. It takes absolute paths.
    static Sys<TrashFolder> OfHome();
    // The trash of the file system mounted at `top`, made where it is missing: that of the user in
    // its shared folder where it has one, else a folder of the user's own. ENOTSUP where none can
    // be or none is wanted.
    static Sys<TrashFolder> OfMount(const std::string& top);

    // Whether OfMount would find or make one, as far as can be told without doing it.
    static bool MayBeMade(const std::string& top);

    // Moves an object into it. `path` is where the object is (native, absolute, no links on the
    // way), and what it will be restored to. EXDEV when it lies on another file system; EREMCHG
    // when it must be the object of `st` and another has come to its name, which then goes back.
    // On failure the object stays and nothing new is left. Gives its name in the trash.
    Sys<std::string> Take(At object, std::string_view path, const struct statx& st,
                          bool mustBeSame);
    // Its native path.
    const std::string& Path() const { return path_; }

    // Moves the object of that name out of the trash at `trash`, to a place where nothing stands
    // (EEXIST), and only then does away with its info file. ESTALE when it isn't there any more,
    // or another object is.
    static Sys<void> GiveBack(const std::string& trash, std::string_view name,
                              const TrashStamp& stamp, At place);

  private:
    static Sys<TrashFolder> Open(Sys<UniqueFd> folder, std::string path, std::string top);
    struct Wanted {
        At object;
        const struct statx& st;
        bool mustBeSame;
    };
    Sys<void> TakeAs(const std::string& name, const Wanted& wanted, const std::string& info);
    Sys<void> CheckTaken(const std::string& name, const Wanted& wanted);

    // The present second as info files have it.
    const std::string& TimeText();

    std::string path_; // of the trash, native
    std::string top_;  // paths are told relative to it; empty for absolute ones
    UniqueFd info_;
    UniqueFd files_;
    std::time_t timeOfText_ = 0;
    std::string timeText_;
};

} // namespace tarvix::platform
