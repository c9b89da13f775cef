#pragma once

#include "platform/error.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {
class ContentTypes;
class FileSystem;
} // namespace tarvix::platform

namespace tarvix::actions {

// A title stands in the head of a page: no more of a file is read for it.
constexpr std::uint64_t kTitleLimit = std::uint64_t{1} << 20; // bytes

// What stands between <title> and </title>, over as many lines as it takes, their ends taken out;
// nothing where there is none in `page`, whose bytes are ASCII where tags are.
std::optional<std::string> TitleIn(std::string_view page);

// The title of a page that begins with these bytes as UTF-8, its character references decoded.
std::optional<std::string> TitleOf(platform::ContentTypes& types, std::string_view firstBytes);

struct PageTitle {
    std::optional<std::string> title;
    bool isWhole = true; // all of the file was looked at for it
};

// The title of a file (drive path), read block by block up to kTitleLimit. The errors of ReadBytes.
platform::Result<PageTitle> ReadTitle(platform::FileSystem& files, platform::ContentTypes& types,
                                      std::string_view path);

} // namespace tarvix::actions
