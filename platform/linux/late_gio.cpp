#include "platform/linux/late_gio.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace tarvix::platform {

namespace {
[[noreturn]] void TellMissing() {
    std::fputs("libgio-2.0.so.0 can't be loaded: install GLib.\n", stderr);
    std::abort();
}

void* FunctionOf(void* library, const char* name) {
    void* const function = library != nullptr ? ::dlsym(library, name) : nullptr;
    if (function == nullptr) TellMissing();
    return function;
}

// GIO settles on its folders of content types when it is first asked for a description or for them,
// and drops what an earlier guess had loaded: so ask before the first guess.
void* Load() {
    void* const library = ::dlopen("libgio-2.0.so.0", RTLD_NOW | RTLD_NODELETE);
    constexpr const char* kFolders = "g_content_type_get_mime_dirs";
    using Folders = decltype(&::g_content_type_get_mime_dirs);
    reinterpret_cast<Folders>(FunctionOf(library, kFolders))();
    return library;
}
} // namespace

void* LateGioFunction(const char* name) {
    static void* const library = Load();
    return FunctionOf(library, name);
}

bool IsDesktopEntry(const GAppInfo* info) {
    auto* const instance = reinterpret_cast<GTypeInstance*>(const_cast<GAppInfo*>(info));
    return TX_GIO(g_type_check_instance_is_a)(instance, TX_GIO(g_desktop_app_info_get_type)()) !=
           FALSE;
}

} // namespace tarvix::platform
