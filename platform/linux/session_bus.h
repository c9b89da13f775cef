#pragma once

#include "platform/error.h"
#include "platform/linux/late_gio.h"

#include <memory>
#include <string>
#include <vector>

namespace tarvix::platform {

struct VariantFree {
    void operator()(GVariant* value) const { TX_GIO(g_variant_unref)(value); }
};
using Variant = std::unique_ptr<GVariant, VariantFree>;

struct ObjectFree {
    void operator()(gpointer object) const { TX_GIO(g_object_unref)(object); }
};
template <class T>
using ObjectPointer = std::unique_ptr<T, ObjectFree>;

// A method of an object on the session bus.
struct BusMethod {
    std::string name; // of who is called
    std::string object;
    std::string interface;
    std::string method;
};

// The session bus of this user.
class SessionBus {
  public:
    // Nothing is there when this session has no bus; every call then fails.
    SessionBus();

    // Calls and waits for the answer, up to `kPatience`. `arguments` (a tuple, taken over; nullptr
    // for none) as g_variant_new makes it. 70 for every failure but 57 when no answer came in time.
    Result<Variant> Call(const BusMethod& method, GVariant* arguments) const;
    // A property of the object; 70 and 57 as above.
    Result<Variant> Property(const BusMethod& holder, const char* property) const;
    // Names that have an owner; none without a bus.
    std::vector<std::string> Names() const;
    // Whether a name has an owner, or one can be started for it.
    bool Offers(const std::string& name) const;

  private:
    static constexpr int kPatience = 4000; // milliseconds

    ObjectPointer<GDBusConnection> bus_;
};

} // namespace tarvix::platform
