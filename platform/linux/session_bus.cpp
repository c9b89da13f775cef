#include "platform/linux/session_bus.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::platform {

namespace {

const BusMethod kBusItself{"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           ""};

std::vector<std::string> NamesFrom(const Result<Variant>& answer) {
    std::vector<std::string> names;
    if (!answer) return names;
    const Variant listed(TX_GIO(g_variant_get_child_value)(answer->get(), 0));
    for (gsize i = 0; i < TX_GIO(g_variant_n_children)(listed.get()); ++i) {
        const Variant name(TX_GIO(g_variant_get_child_value)(listed.get(), i));
        names.emplace_back(TX_GIO(g_variant_get_string)(name.get(), nullptr));
    }
    return names;
}

} // namespace

SessionBus::SessionBus() : bus_(TX_GIO(g_bus_get_sync)(G_BUS_TYPE_SESSION, nullptr, nullptr)) {
    // A bus that goes away must not take this program with it.
    if (bus_ != nullptr) TX_GIO(g_dbus_connection_set_exit_on_close)(bus_.get(), FALSE);
}

Result<Variant> SessionBus::Call(const BusMethod& method, GVariant* arguments) const {
    // Held, so that it is given back where no call takes it.
    const Variant held(arguments != nullptr ? TX_GIO(g_variant_ref_sink)(arguments) : nullptr);
    if (bus_ == nullptr) return Failure(kPermissionDenied, "This session has no message bus.");
    GError* error = nullptr;
    Variant answer(TX_GIO(g_dbus_connection_call_sync)(
        bus_.get(), method.name.c_str(), method.object.c_str(), method.interface.c_str(),
        method.method.c_str(), held.get(), nullptr, G_DBUS_CALL_FLAGS_NONE, kPatience, nullptr,
        &error));
    if (answer != nullptr) return answer;
    const GlibPointer<GError> heldError(error);
    const bool isLate =
        TX_GIO(g_error_matches)(error, TX_GIO(g_io_error_quark)(), G_IO_ERROR_TIMED_OUT) ||
        TX_GIO(g_error_matches)(error, TX_GIO(g_dbus_error_quark)(), G_DBUS_ERROR_NO_REPLY);
    return Failure(isLate ? kDeviceError : kPermissionDenied,
                   fmt::format("{} can't be reached: {}.", method.name, error->message));
}

Result<Variant> SessionBus::Property(const BusMethod& holder, const char* property) const {
    auto answer = Call({holder.name, holder.object, "org.freedesktop.DBus.Properties", "Get"},
                       TX_GIO(g_variant_new)("(ss)", holder.interface.c_str(), property));
    if (!answer) return answer;
    const Variant boxed(TX_GIO(g_variant_get_child_value)(answer->get(), 0));
    return Variant(TX_GIO(g_variant_get_variant)(boxed.get()));
}

std::vector<std::string> SessionBus::Names() const {
    BusMethod list = kBusItself;
    list.method = "ListNames";
    return NamesFrom(Call(list, nullptr));
}

bool SessionBus::Offers(const std::string& name) const {
    if (std::ranges::count(Names(), name) != 0) return true;
    BusMethod list = kBusItself;
    list.method = "ListActivatableNames";
    return std::ranges::count(NamesFrom(Call(list, nullptr)), name) != 0;
}

} // namespace tarvix::platform
