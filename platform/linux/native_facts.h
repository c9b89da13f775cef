#pragma once

#include "platform/folder_visit.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/system_calls.h"
#include "platform/object_facts.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvix::platform {

// The facts of one object, from what the system told of it. `name` is its disk name ("" for a
// drive); `at` reaches it where more must be asked: what a link leads to, whether a file that takes
// little room has holes, attributes of DOS file systems. The size of a link is 0.
ObjectFacts FactsFrom(const struct statx& st, std::string_view name, At at,
                      const DriveTable& drives);

// The same as a search keeps them.
BriefFacts BriefFrom(const struct statx& st, std::string_view name, At at,
                     const DriveTable& drives);

// No write permission for the owner, or immutable; links never are.
bool IsReadOnly(const struct statx& st);
// Devices, FIFOs, sockets.
bool IsSpecial(const struct statx& st);
// Whether a file takes so little room that it may have holes.
bool MayHaveHoles(const struct statx& st);

// Attributes of FAT, NTFS and SMB file systems. They are read from and written to an open file or
// folder; nothing where they are not kept after all.
std::optional<std::uint32_t> ReadDosAttributes(DosAttributes kind, int fd);
// Sets bits 1, 2, 4 and 32 of `attributes` and keeps the others.
void WriteDosAttributes(DosAttributes kind, int fd, std::uint32_t attributes);

} // namespace tarvix::platform
