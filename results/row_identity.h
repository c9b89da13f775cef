#pragma once

#include "platform/object_facts.h"

#include <cstdint>
#include <vector>

namespace tarvix::results {

// Which object a row stands for and when it had last changed, in 16 bytes; made and read by
// RowIdentities.
struct RowIdentity {
    std::uint64_t inode = 0;
    std::uint64_t rest = 0; // from the top: device 11 bits, empty 1 bit, time 52 bits
};

// Packs the identities of one list. An object whose device or time can't be held has none then.
class RowIdentities {
  public:
    // `wasEmpty` marks a folder that was listed since nothing was in it.
    RowIdentity Pack(const platform::ObjectIdentity& identity, bool wasEmpty);
    platform::ObjectIdentity Unpack(const RowIdentity& packed) const;
    static bool WasEmpty(const RowIdentity& packed);
    void Clear() { devices_.clear(); }

  private:
    std::vector<std::uint64_t> devices_;
};

} // namespace tarvix::results
