#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {

// The folders that only stand in for ProgramData, as what follows a drive's "C:", in upper case.
constexpr std::array<std::string_view, 2> kFakeRoots{"\\USERS\\ALL USERS", "\\USERS\\ALLUSE~1"};

// The drive path with ProgramData in place of that folder; nothing when it doesn't begin with it.
std::optional<std::string> WithoutFakeRoot(std::string_view path, std::string_view fakeRoot);

} // namespace tarvix::session
