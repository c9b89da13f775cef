#pragma once

#include <cstdint>

namespace tarvix::platform {

// Attribute bits of an object.
enum Attribute : std::uint32_t {
    kReadOnly = 1,
    kHidden = 2,
    kSystem = 4,
    kFolder = 16,
    kArchive = 32,
    kSpecial = 64, // devices, FIFOs, sockets: never opened
    kBit128 = 128, // two bits that mean nothing here and can be asked for all the same
    kBit256 = 256,
    kSparse = 512,
    kAlias = 1024, // a symbolic link; a link to a folder has kFolder too
    kCompressed = 2048,
    kEncrypted = 16384,
};

// Nanoseconds since 1970-01-01 00:00 UTC. 64 bits of them end in 2262, the dates of disks in 2446.
__extension__ using FileTime = __int128;
constexpr FileTime kNoTime = -(FileTime{1} << 100); // before any disk's dates

// A list keeps times of change in steps of so many nanoseconds.
constexpr FileTime kListedTimeStep = 1024;

// Which object it is, by whatever name and road it is reached.
struct ObjectIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;    // 0: not known, or given anew from time to time
    FileTime changed = kNoTime; // when it last changed, by content, rights or names
};

// What the file system tells of one object; links are not followed.
struct ObjectFacts {
    std::uint32_t attributes = 0;
    std::uint64_t size = 0; // bytes; 0 for folders
    FileTime modified = kNoTime;
    FileTime created = kNoTime; // kNoTime where the file system keeps none
    FileTime accessed = kNoTime;
    ObjectIdentity identity = {};

    bool IsFolder() const { return (attributes & kFolder) != 0; }
    bool IsLink() const { return (attributes & kAlias) != 0; }
};

} // namespace tarvix::platform
