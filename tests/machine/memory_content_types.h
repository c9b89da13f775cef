#pragma once

#include "platform/content_types.h"
#include "text/case.h"
#include "text/paths.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tarvix::platform {

// Type names as a test sets them for extensions, found without regard to case; none at the start.
class MemoryContentTypes : public ContentTypes {
  public:
    std::string TypeName(std::string_view path, const ObjectFacts& facts) override {
        ++asked;
        if ((facts.attributes & (kFolder | kSpecial)) != 0) return {};
        const auto found = names_.find(text::Lower(text::GetExtension(text::FileNameOf(path))));
        return found == names_.end() ? std::string() : found->second;
    }

    // `extension` without its "."; empty for names without one.
    void SetTypeName(std::string_view extension, std::string_view name) {
        names_[text::Lower(extension)] = name;
    }

    using Decoder =
        std::function<std::optional<std::string>(std::string_view bytes, std::string_view charset)>;
    std::optional<std::string> Decoded(std::string_view bytes, std::string_view charset) override {
        return decoder_ ? decoder_(bytes, charset) : std::nullopt;
    }
    // Without one no character set is known.
    void SetDecoder(Decoder decoder) { decoder_ = std::move(decoder); }

    std::size_t asked = 0; // calls for a name

  private:
    std::map<std::string, std::string> names_;
    Decoder decoder_;
};

} // namespace tarvix::platform
