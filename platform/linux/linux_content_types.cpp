#include "platform/linux/linux_content_types.h"

#include "platform/linux/character_sets.h"
#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "text/paths.h"

namespace tarvix::platform {

// A guess takes less than a microsecond, and no part of the name alone decides it ("a.tar.gz",
// "CMakeLists.txt", "a.C"): so only descriptions are kept.
std::string LinuxContentTypes::TypeName(std::string_view path, const ObjectFacts& facts) {
    if ((facts.attributes & (kFolder | kSpecial)) != 0) return {};
    const std::string name(text::FileNameOf(path));
    const GlibPointer<char> contentType(
        TX_GIO(g_content_type_guess)(name.c_str(), nullptr, 0, nullptr));
    return Description(contentType.get());
}

std::optional<std::string> LinuxContentTypes::Decoded(std::string_view bytes,
                                                      std::string_view charset) {
    return DecodeFrom(charset, bytes);
}

const std::string& LinuxContentTypes::Description(const char* contentType) {
    const auto [found, isNew] = descriptions_.try_emplace(contentType);
    if (isNew && !TX_GIO(g_content_type_is_unknown)(contentType)) {
        found->second =
            GlibPointer<char>(TX_GIO(g_content_type_get_description)(contentType)).get();
    }
    return found->second;
}

} // namespace tarvix::platform
