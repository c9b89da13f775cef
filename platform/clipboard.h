#pragma once

#include <string>
#include <vector>

namespace tarvix::platform {

// One form of what lies on the clipboard.
struct ClipboardForm {
    std::string type; // "text/uri-list"
    std::string bytes;
    bool operator==(const ClipboardForm&) const = default;
};

// The clipboard of a desktop.
class Clipboard {
  public:
    virtual ~Clipboard() = default;
    // Puts the same content there in all these forms, in place of what lay there.
    virtual void Put(const std::vector<ClipboardForm>& forms) = 0;
};

} // namespace tarvix::platform
