#pragma once

#include "platform/linux/late_gio.h"

#include <memory>

namespace tarvix::platform {

// Gives back what GLib handed out.
struct GlibFree {
    void operator()(char* text) const { TX_GIO(g_free)(text); }
    void operator()(GError* error) const { TX_GIO(g_error_free)(error); }
    void operator()(GFile* file) const { TX_GIO(g_object_unref)(file); }
};

template <class T>
using GlibPointer = std::unique_ptr<T, GlibFree>;

} // namespace tarvix::platform
