#pragma once

#include "platform/linux/system_calls.h"

#include <ctime>
#include <string>
#include <string_view>

namespace tarvix::platform {

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
    // On failure the object stays and nothing new is left. Gives where it lies in the trash.
    struct Taken {
        std::string object; // native paths
        std::string info;
    };
    Sys<Taken> Take(At object, std::string_view path, const struct statx& st, bool mustBeSame);
    // Takes it out again, to a place where nothing stands (EEXIST).
    static Sys<void> GiveBack(const Taken& taken, At place);

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
