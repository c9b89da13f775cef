#include "shortcuts/formats/values.h"

#include "shortcuts/formats/desktop_entry.h"
#include "shortcuts/formats/internet_shortcut.h"
#include "shortcuts/formats/shell_link.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::shortcuts {

Kind KindOf(std::string_view name) {
    const std::string_view extension = text::GetExtension(name);
    // Most names are settled by their length.
    if (extension.size() != 3 && extension.size() != 7) return Kind::kNone;
    if (text::EqualNoCase(extension, "lnk")) return Kind::kLnk;
    if (text::EqualNoCase(extension, "url")) return Kind::kUrl;
    return text::EqualNoCase(extension, "desktop") ? Kind::kDesktop : Kind::kNone;
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
