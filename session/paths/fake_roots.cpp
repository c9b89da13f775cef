#include "session/paths/fake_roots.h"

#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

namespace tarvix::session {

std::optional<std::string> WithoutFakeRoot(std::string_view path, std::string_view fakeRoot) {
    const std::string_view below = text::Mid(path, 3);
    if (!text::Upper(below).starts_with(fakeRoot)) return std::nullopt;
    return fmt::format("{}\\ProgramData{}", text::Left(path, 2),
                       text::Mid(path, 3 + text::Length(fakeRoot)));
}

} // namespace tarvix::session
