#pragma once

#include "platform/content_types.h"

#include <unordered_map>

namespace tarvix::platform {

// Types by the shared MIME database; without one every name is empty. A change of the language
// while the program runs is not seen. Character sets are those of the C library.
class LinuxContentTypes : public ContentTypes {
  public:
    std::string TypeName(std::string_view path, const ObjectFacts& facts) override;
    std::optional<std::string> Decoded(std::string_view bytes, std::string_view charset) override;

  private:
    const std::string& Description(const char* contentType);

    std::unordered_map<std::string, std::string> descriptions_;
};

} // namespace tarvix::platform
