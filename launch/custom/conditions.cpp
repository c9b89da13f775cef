#include "launch/custom/conditions.h"

#include "launch/custom/key_file.h"
#include "platform/desktop.h"
#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace tarvix::custom {

namespace {

using platform::Desktop;
using platform::FileRight;
using Texts = std::vector<std::string>;

constexpr std::string_view kFolderType = "inode/directory";

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether something fits a list: one without "!" at least, if there is one, and none with it.
template <class Fits>
bool FitsList(const Texts& list, Fits&& fits) {
    bool fitsOne = false;
    bool wantsOne = false;
    for (const std::string& entry : list) {
        const bool isBarred = entry.starts_with('!');
        if (!isBarred) {
            wantsOne = true;
            fitsOne = fitsOne || fits(entry);
        } else if (fits(std::string_view(entry).substr(1))) {
            return false;
        }
    }
    return fitsOne || !wantsOne;
}

template <class Fits>
bool AllFitList(const Chosen& chosen, const Texts& list, Fits&& fits) {
    return list.empty() || std::ranges::all_of(chosen.objects, [&](const ChosenObject& object) {
               return FitsList(list, [&](std::string_view entry) { return fits(object, entry); });
           });
}

bool LiesInFolder(std::string_view folder, std::string_view wanted) {
    if (wanted.find_first_of("*?") != wanted.npos) return FitsGlob(wanted, folder, true);
    while (wanted.size() > 1 && wanted.ends_with('/'))
        wanted.remove_suffix(1);
    if (wanted == "/" || folder == wanted) return true;
    return folder.starts_with(wanted) && folder[wanted.size()] == '/';
}

// "<5", "=1", ">0".
bool FitsCount(std::size_t count, std::string_view wanted) {
    if (wanted.empty()) return count > 0;
    const auto number = text::ParseWholeNumber(wanted.substr(1));
    if (!number || *number < 0) return false;
    const auto limit = static_cast<std::size_t>(*number);
    switch (wanted.front()) {
    case '<':
        return count < limit;
    case '>':
        return count > limit;
    default:
        return wanted.front() == '=' && count == limit;
    }
}

constexpr std::array<std::pair<std::string_view, FileRight>, 5> kCapabilities{
    {{"Owner", FileRight::kOwner},
     {"Readable", FileRight::kRead},
     {"Writable", FileRight::kWrite},
     {"Executable", FileRight::kRun},
     {"Local", FileRight::kLocal}}};

// Every one of the list, with "!" not.
bool HasCapabilities(Desktop& desktop, const Chosen& chosen, const Texts& list) {
    for (const std::string& entry : list) {
        const bool isBarred = entry.starts_with('!');
        const std::string_view name = std::string_view(entry).substr(isBarred ? 1 : 0);
        const auto* const found = std::ranges::find_if(
            kCapabilities, [name](const auto& known) { return known.first == name; });
        if (found == kCapabilities.end()) return false;
        const bool fits = std::ranges::all_of(chosen.objects, [&](const ChosenObject& object) {
            return desktop.Has(object.path, found->second) != isBarred;
        });
        if (!fits) return false;
    }
    return true;
}

bool IsShownHere(Desktop& desktop, const KeyFile& file, std::string_view group) {
    const Texts names = desktop.Names();
    const auto namesOneOf = [&](const Texts& list) {
        return std::ranges::any_of(
            list, [&](const std::string& name) { return std::ranges::count(names, name) > 0; });
    };
    const Texts only = file.List(group, "OnlyShowIn");
    return (only.empty() || namesOneOf(only)) && !namesOneOf(file.List(group, "NotShowIn"));
}

bool FitsMachine(Desktop& desktop, const KeyFile& file, std::string_view group) {
    const auto holds = [&](std::string_view key, auto&& test) {
        const std::string value = file.Text(group, key);
        return value.empty() || test(value);
    };
    return IsShownHere(desktop, file, group) &&
           holds("TryExec", [&](const auto& name) { return desktop.HasProgram(name); }) &&
           holds("ShowIfRegistered", [&](const auto& name) { return desktop.IsOnBus(name); }) &&
           holds("ShowIfRunning", [&](const auto& name) { return desktop.IsRunning(name); });
}

bool FitsObjects(Desktop& desktop, const KeyFile& file, std::string_view group,
                 const Chosen& chosen) {
    const bool matchCase = file.Flag(group, "Matchcase", true);
    return FitsCount(chosen.objects.size(), file.Text(group, "SelectionCount")) &&
           FitTypes(desktop, chosen, file.List(group, "MimeTypes")) &&
           AllFitList(chosen, file.List(group, "Basenames"),
                      [&](const ChosenObject& object, std::string_view glob) {
                          return FitsGlob(glob, NameOf(object.path), matchCase);
                      }) &&
           FitsList(file.List(group, "Schemes"),
                    [](std::string_view scheme) { return FitsGlob(scheme, "file", true); }) &&
           AllFitList(chosen, file.List(group, "Folders"),
                      [](const ChosenObject& object, std::string_view folder) {
                          return LiesInFolder(FolderOf(object.path), folder);
                      }) &&
           HasCapabilities(desktop, chosen, file.List(group, "Capabilities"));
}

} // namespace

bool FitsGlob(std::string_view pattern, std::string_view name, bool matchCase) {
    std::size_t p = 0;
    std::size_t n = 0;
    std::size_t star = pattern.npos; // the last "*", and how far the name was then
    std::size_t held = 0;
    while (n < name.size()) {
        const bool fits = p < pattern.size() && pattern[p] != '*' &&
                          (pattern[p] == '?' || pattern[p] == name[n] ||
                           (!matchCase && LowerAscii(pattern[p]) == LowerAscii(name[n])));
        if (fits) {
            ++p;
            ++n;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            held = n;
        } else if (star != pattern.npos) {
            p = star + 1;
            n = ++held;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

bool FitsType(Desktop& desktop, std::string_view type, std::string_view wanted) {
    if (wanted == "*" || wanted == "*/*" || wanted == "all/all" || wanted == "all") return true;
    if (wanted == "all/allfiles" || wanted == "allfiles") return type != kFolderType;
    if (wanted.ends_with("/*")) return type.starts_with(wanted.substr(0, wanted.size() - 1));
    return type == wanted || (!type.empty() && desktop.IsKindOf(type, wanted));
}

bool FitTypes(Desktop& desktop, const Chosen& chosen, std::span<const std::string> wanted) {
    const Texts list(wanted.begin(), wanted.end());
    return list.empty() || std::ranges::all_of(chosen.types, [&](const std::string& type) {
               return FitsList(
                   list, [&](std::string_view entry) { return FitsType(desktop, type, entry); });
           });
}

bool ConditionsHold(Desktop& desktop, const KeyFile& file, std::string_view group,
                    const Chosen& chosen) {
    if (!FitsMachine(desktop, file, group) || !FitsObjects(desktop, file, group, chosen)) {
        return false;
    }
    const std::string command = file.Text(group, "ShowIfTrue");
    return command.empty() || desktop.TellsTrue(command);
}

} // namespace tarvix::custom
