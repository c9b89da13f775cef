#include "results/row_identity.h"

#include <algorithm>
#include <cstddef>

namespace tarvix::results {

namespace {
constexpr unsigned kTimeBits = 52;
constexpr std::uint64_t kTimeMask = (std::uint64_t{1} << kTimeBits) - 1;
constexpr std::uint64_t kEmptyBit = std::uint64_t{1} << kTimeBits;
constexpr unsigned kDeviceShift = kTimeBits + 1;
constexpr std::size_t kMostDevices = 2048;

// Objects of one device mostly come one after the other, and there are few devices.
std::size_t IndexOf(const std::vector<std::uint64_t>& devices, std::uint64_t device) {
    if (!devices.empty() && devices.back() == device) return devices.size() - 1;
    return static_cast<std::size_t>(std::ranges::find(devices, device) - devices.begin());
}
} // namespace

RowIdentity RowIdentities::Pack(const platform::ObjectIdentity& identity, bool wasEmpty) {
    RowIdentity packed{0, wasEmpty ? kEmptyBit : 0};
    const std::size_t device = IndexOf(devices_, identity.device);
    const std::int64_t step = identity.changed / platform::kListedTimeStep;
    const bool hasTime = step > 0 && static_cast<std::uint64_t>(step) <= kTimeMask;
    if (device >= kMostDevices) return packed;
    if (device == devices_.size()) devices_.push_back(identity.device);
    packed.inode = identity.inode;
    packed.rest |= std::uint64_t{device} << kDeviceShift;
    if (hasTime) packed.rest |= static_cast<std::uint64_t>(step);
    return packed;
}

platform::ObjectIdentity RowIdentities::Unpack(const RowIdentity& packed) const {
    const std::size_t device = packed.rest >> kDeviceShift;
    const auto step = static_cast<std::int64_t>(packed.rest & kTimeMask);
    platform::ObjectIdentity identity;
    identity.inode = packed.inode;
    if (device < devices_.size()) identity.device = devices_[device];
    if (step != 0) identity.changed = step * platform::kListedTimeStep;
    return identity;
}

bool RowIdentities::WasEmpty(const RowIdentity& packed) {
    return (packed.rest & kEmptyBit) != 0;
}

} // namespace tarvix::results
