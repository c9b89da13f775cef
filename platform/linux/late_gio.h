#pragma once

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace tarvix::platform {

// A function of GIO, GObject or GLib. Their libraries are loaded when the first one is asked for:
// few commands need any of the nine, and each start would wait for them. Ends the process with a
// sentence where they aren't installed. From any thread.
void* LateGioFunction(const char* name);

bool IsDesktopEntry(const GAppInfo* info);

// Casts, which the libraries' own macros would call them for.
inline GAppInfo* AsAppInfo(gpointer object) {
    return static_cast<GAppInfo*>(object);
}
inline GDesktopAppInfo* AsDesktopEntry(gpointer object) {
    return static_cast<GDesktopAppInfo*>(object);
}
inline const GVariantType* VariantType(const char* text) {
    return reinterpret_cast<const GVariantType*>(text);
}

} // namespace tarvix::platform

// Stands for the function of that name.
#define TX_GIO(function)                                                                           \
    ([] {                                                                                          \
        static const auto kFunction = reinterpret_cast<decltype(&::function)>(                     \
            ::tarvix::platform::LateGioFunction(#function));                                       \
        return kFunction;                                                                          \
    }())
