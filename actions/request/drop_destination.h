#pragma once

#include <string>
#include <string_view>

namespace tarvix::platform {
struct Platform;
}

namespace tarvix::actions {

// What the destination box takes when an object is dropped on it, in drive form: the folder or the
// Multiple Path List itself, of any other file its folder. `dropped` is a native path.
std::string DroppedDestination(const platform::Platform& machine, std::string_view dropped);

} // namespace tarvix::actions
