#pragma once

#include <gio/gio.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tarvix::testing {

// A session bus of its own, on which an application that is started over it, a file manager and a
// media player answer under the names that it is given.
class BusWorld {
  public:
    // Whether this machine has what such a bus needs.
    static bool CanBe();

    explicit BusWorld(const std::vector<std::string>& names);
    ~BusWorld();
    BusWorld(const BusWorld&) = delete;
    BusWorld& operator=(const BusWorld&) = delete;

    // The calls so far, each as "Method(arguments)" as GLib prints them, without hints and ids.
    std::vector<std::string> Calls();
    // The addresses in the player's list, in their order.
    std::vector<std::string> Tracks();

  private:
    void Serve(const std::vector<std::string>& names);
    void Take(const std::string& method, GVariant* arguments);
    GVariant* Property(const std::string& name);

    static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self);
    static GVariant* OnProperty(GDBusConnection*, const char*, const char*, const char*,
                                const char* name, GError**, gpointer self);

    GTestDBus* bus_;
    GMainContext* context_ = g_main_context_new();
    GMainLoop* loop_ = g_main_loop_new(context_, FALSE);
    std::mutex mutex_;
    bool isReady_ = false;
    std::vector<std::string> calls_;
    std::vector<std::string> tracks_;
    std::thread thread_;
};

} // namespace tarvix::testing
