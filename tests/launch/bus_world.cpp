#include "tests/launch/bus_world.h"

#include <algorithm>
#include <chrono>

namespace tarvix::testing {

namespace {

constexpr const char* kInterfaces = R"(<node>
<interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" direction="in"/></method>
  <method name="Open"><arg type="as" direction="in"/><arg type="a{sv}" direction="in"/></method>
</interface>
<interface name="org.freedesktop.FileManager1">
  <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
  <method name="ShowFolders"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
</interface>
<interface name="org.mpris.MediaPlayer2.TrackList">
  <method name="AddTrack"><arg type="s" direction="in"/><arg type="o" direction="in"/>
    <arg type="b" direction="in"/></method>
  <property name="Tracks" type="ao" access="read"/>
  <property name="CanEditTracks" type="b" access="read"/>
</interface></node>)";

struct Place {
    const char* object;
    const char* interface;
};
constexpr Place kPlaces[] = {
    {"/org/tarvix/Activated", "org.freedesktop.Application"},
    {"/org/freedesktop/FileManager1", "org.freedesktop.FileManager1"},
    {"/org/mpris/MediaPlayer2", "org.mpris.MediaPlayer2.TrackList"},
};

constexpr const char* kNoBus = "unix:path=/nonexistent/bus";

std::string Printed(GVariant* value) {
    char* const text = g_variant_print(value, FALSE);
    std::string printed(text);
    g_free(text);
    return printed;
}

} // namespace

bool BusWorld::CanBe() {
    char* const found = g_find_program_in_path("dbus-daemon");
    g_free(found);
    return found != nullptr;
}

BusWorld::BusWorld(const std::vector<std::string>& names)
    : bus_(g_test_dbus_new(G_TEST_DBUS_NONE)) {
    g_test_dbus_up(bus_);
    thread_ = std::thread([this, names] { Serve(names); });
    for (bool isReady = false; !isReady;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const std::lock_guard lock(mutex_);
        isReady = isReady_;
    }
}

BusWorld::~BusWorld() {
    g_main_loop_quit(loop_);
    thread_.join();
    g_main_loop_unref(loop_);
    g_main_context_unref(context_);
    g_test_dbus_stop(bus_);
    g_object_unref(bus_);
    g_setenv("DBUS_SESSION_BUS_ADDRESS", kNoBus, TRUE);
}

void BusWorld::Serve(const std::vector<std::string>& names) {
    g_main_context_push_thread_default(context_);
    GDBusConnection* const connection = g_dbus_connection_new_for_address_sync(
        g_test_dbus_get_bus_address(bus_),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
    GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(kInterfaces, nullptr);
    const GDBusInterfaceVTable table{OnCall, OnProperty, nullptr, {}};
    for (const Place& place : kPlaces) {
        g_dbus_connection_register_object(connection, place.object,
                                          g_dbus_node_info_lookup_interface(node, place.interface),
                                          &table, this, nullptr, nullptr);
    }
    for (const std::string& name : names) {
        GVariant* const answer = g_dbus_connection_call_sync(
            connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "RequestName", g_variant_new("(su)", name.c_str(), 0U), nullptr, G_DBUS_CALL_FLAGS_NONE,
            -1, nullptr, nullptr);
        if (answer != nullptr) g_variant_unref(answer);
    }
    {
        const std::lock_guard lock(mutex_);
        isReady_ = true;
    }
    g_main_loop_run(loop_);
    g_dbus_connection_close_sync(connection, nullptr, nullptr);
    g_object_unref(connection);
    g_dbus_node_info_unref(node);
    g_main_context_pop_thread_default(context_);
}

void BusWorld::Take(const std::string& method, GVariant* arguments) {
    const std::lock_guard lock(mutex_);
    GVariant* const first = g_variant_get_child_value(arguments, 0);
    if (method == "AddTrack") {
        const std::string address = g_variant_get_string(first, nullptr);
        GVariant* const after = g_variant_get_child_value(arguments, 1);
        const std::string place = g_variant_get_string(after, nullptr);
        g_variant_unref(after);
        const std::size_t slash = place.rfind('/') + 1;
        const bool isFront = place.substr(slash) == "NoTrack";
        const std::size_t at = isFront ? 0 : std::stoul(place.substr(slash)) + 1;
        GVariant* const plays = g_variant_get_child_value(arguments, 2);
        const bool isPlayed = g_variant_get_boolean(plays) != FALSE;
        g_variant_unref(plays);
        tracks_.insert(tracks_.begin() + static_cast<std::ptrdiff_t>(at),
                       address + (isPlayed ? " (plays)" : ""));
    }
    calls_.push_back(method + "(" + (method == "Activate" ? "" : Printed(first)) + ")");
    g_variant_unref(first);
}

GVariant* BusWorld::Property(const std::string& name) {
    const std::lock_guard lock(mutex_);
    if (name == "CanEditTracks") return g_variant_new_boolean(TRUE);
    GVariantBuilder tracks;
    g_variant_builder_init(&tracks, G_VARIANT_TYPE("ao"));
    for (std::size_t i = 0; i < tracks_.size(); ++i) {
        g_variant_builder_add(&tracks, "o", ("/track/" + std::to_string(i)).c_str());
    }
    return g_variant_builder_end(&tracks);
}

void BusWorld::OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                      GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) {
    static_cast<BusWorld*>(self)->Take(method, arguments);
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

GVariant* BusWorld::OnProperty(GDBusConnection*, const char*, const char*, const char*,
                               const char* name, GError**, gpointer self) {
    return static_cast<BusWorld*>(self)->Property(name);
}

std::vector<std::string> BusWorld::Calls() {
    const std::lock_guard lock(mutex_);
    return calls_;
}

std::vector<std::string> BusWorld::Tracks() {
    const std::lock_guard lock(mutex_);
    return tracks_;
}

} // namespace tarvix::testing
