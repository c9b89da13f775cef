#include "shortcuts/formats/values.h"

#include "shortcuts/formats/desktop_entry.h"
#include "shortcuts/formats/internet_shortcut.h"
#include "shortcuts/formats/shell_link.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::shortcuts {

namespace {

bool IsLetter(char c, char lower) {
    return c == lower || c == lower - 'a' + 'A';
}

} // namespace

Kind KindOf(std::string_view name) {
    // Most names are settled by one or two of their characters.
    const auto ends = [name](std::string_view ending) {
        if (name.size() < ending.size()) return false;
        const std::string_view last = name.substr(name.size() - ending.size());
        return last[0] == '.' && IsLetter(last[1], ending[1]) && text::EqualNoCase(last, ending);
    };
    if (ends(".lnk")) return Kind::kLnk;
    if (ends(".url")) return Kind::kUrl;
    return ends(".desktop") ? Kind::kDesktop : Kind::kNone;
}

bool HasEdits(const Edits& edits) {
    return std::ranges::any_of(edits, [](const auto& edit) { return edit.has_value(); });
}

Edits Differences(const Values& old, const Values& wanted) {
    Edits edits;
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (wanted[i] != old[i]) edits[i] = wanted[i];
    }
    return edits;
}

std::size_t IconComma(std::string_view icon) {
    return icon.rfind(',');
}

Values Read(Kind kind, std::string_view bytes) {
    switch (kind) {
    case Kind::kLnk:
        return ReadShellLink(bytes);
    case Kind::kUrl:
        return ReadInternetShortcut(bytes);
    case Kind::kDesktop:
        return ReadDesktopEntry(bytes);
    case Kind::kNone:
        break;
    }
    return {};
}

Edited Edit(Kind kind, std::string_view bytes, const Edits& edits) {
    if (!HasEdits(edits)) return std::string(bytes);
    switch (kind) {
    case Kind::kLnk:
        return EditShellLink(bytes, edits);
    case Kind::kUrl:
        return EditInternetShortcut(bytes, edits);
    case Kind::kDesktop:
        return EditDesktopEntry(bytes, edits);
    case Kind::kNone:
        break;
    }
    return std::unexpected(std::string("It is no shortcut."));
}

} // namespace tarvix::shortcuts
