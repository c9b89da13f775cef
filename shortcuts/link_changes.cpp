#include "shortcuts/link_changes.h"

#include "platform/names.h"
#include "results/link_cells.h"
#include "results/result_list.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::shortcuts {

namespace {

void AppendChange(std::vector<std::string>& lines, std::string_view name, std::string_view label,
                  std::string_view old, std::string_view wanted) {
    const auto shown = [](std::string_view value) {
        return value.empty() ? std::string("(none)") : std::string(value);
    };
    lines.push_back(fmt::format("{}: {}: {} -> {}", name, label, shown(old), shown(wanted)));
}

} // namespace

std::size_t RowOf(session::Session& session, const EditedLink& link) {
    return session.rows->Find(text::ParentFolder(link.path), text::FileNameOf(link.path), false);
}

void AppendChanges(std::vector<std::string>& lines, session::Session& session,
                   const EditedLink& link, const LinkRecord& wanted) {
    const std::string name = platform::ForDisplay(text::FileNameOf(link.path));
    const Values stored = session.rows->Links(RowOf(session, link)).stored;
    if (wanted.name != text::FileNameOf(link.path)) {
        AppendChange(lines, name, "Name", name, platform::ForDisplay(wanted.name));
    }
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        const auto field = static_cast<Field>(i);
        if (!HasField(link.kind, field) || wanted.values[i] == stored[i]) continue;
        AppendChange(lines, name, LabelOf(field), stored[i], wanted.values[i]);
    }
}

} // namespace tarvix::shortcuts
