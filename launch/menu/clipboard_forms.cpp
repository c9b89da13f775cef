#include "launch/menu/clipboard_forms.h"

#include "platform/names.h"

namespace tarvix::menu {

namespace {

std::string Lines(std::span<const std::string> paths) {
    std::string lines;
    for (const std::string& path : paths)
        lines.append(lines.empty() ? "" : "\n").append(path);
    return lines;
}

} // namespace

std::vector<platform::ClipboardForm> ObjectForms(std::span<const std::string> paths, bool isCut) {
    std::string list;
    std::string copied = isCut ? "cut" : "copy";
    for (const std::string& path : paths) {
        const std::string address = platform::FileAddress(path);
        list.append(address).append("\r\n");
        copied.append("\n").append(address); // some refuse an empty line at the end
    }
    return {{"text/uri-list", list},
            {"x-special/gnome-copied-files", copied},
            {"x-special/mate-copied-files", copied},
            {"application/x-kde-cutselection", isCut ? "1" : "0"},
            {"application/x-kde4-urilist", list},
            {"text/plain", Lines(paths)}};
}

std::vector<platform::ClipboardForm> PathForms(std::span<const std::string> paths) {
    return {{"text/plain", Lines(paths)}};
}

} // namespace tarvix::menu
