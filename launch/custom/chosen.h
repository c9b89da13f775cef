#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::custom {

// One of the objects that a menu is for; native path and name.
struct ChosenObject {
    std::string path;
    std::string type; // "image/png"; empty when it isn't known
    bool isFolder = false;
};

// The objects that a menu is for. Not empty.
struct Chosen {
    std::vector<ChosenObject> objects;
    std::string folder;             // native: the deepest one that holds them all
    bool isOneFolder = true;        // all of them lie directly in it
    std::vector<std::string> types; // of the objects, each once
};

// The pieces of a native path: "b.txt" of "/a/b.txt", "/a" of it ("/" of "/a"), "b" of "b.txt" and
// "txt" of it; a dot in front of a name begins no extension.
std::string_view NameOf(std::string_view path);
std::string_view FolderOf(std::string_view path);
std::string_view StemOf(std::string_view name);
std::string_view ExtensionOf(std::string_view name);

// The objects of these native paths, their common folder found.
Chosen ChosenFrom(std::vector<ChosenObject> objects);

} // namespace tarvix::custom
