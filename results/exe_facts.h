#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {
class FileSystem;
}

// What the headers of a program tell: its kind and its fixed version record. The bytes are foreign:
// whatever is cut off, loops or lies gives less facts, never more reading.
namespace tarvix::results {

// The most bytes that one call reads of one file.
constexpr std::size_t kMostExeBytes = 64'000;

// Up to `count` bytes from `offset`; fewer at the end of the file, none when it can't be read.
using ByteReader = std::function<std::string(std::uint64_t offset, std::size_t count)>;

// The low word of an executable type; 0 is no program.
constexpr std::uint32_t kDosType = 0x5A4D;
constexpr std::uint32_t kWin32Type = 0x4550;
constexpr std::uint32_t kWin16Type = 0x454E;

struct VersionRecord {
    std::uint16_t major = 0; // of the file version
    std::uint16_t minor = 0;
    std::uint32_t os = 0;
};

struct ExeFacts {
    // Low word as above; the high word of a window program is the Windows version that it expects,
    // major in the upper byte. 0 for libraries too.
    std::uint32_t exeType = 0;
    std::optional<VersionRecord> version;
};

// A file that doesn't begin like a program costs one call for its first 4 KiB, a program with a
// version record mostly three.
ExeFacts ReadExeFacts(const ByteReader& read);
// The parts alone, read as sparingly; 0 and nothing where there is none.
std::uint32_t ReadExeType(const ByteReader& read);
std::optional<VersionRecord> ReadVersionRecord(const ByteReader& read);

// The bytes of one file by its drive path, which must live as long as the reader.
ByteReader FileReader(platform::FileSystem& files, std::string_view path);

// "Win32, v5.02"; empty for 0.
std::string ExeTypeText(std::uint32_t exeType);
// "10.0"
std::string VersionText(const VersionRecord& record);
// "NT_WINDOWS32"; empty for a system without a name.
std::string_view OsText(std::uint32_t os);

// The texts of one file; empty when it is missing, unreadable or tells nothing.
std::string GetExeType(platform::FileSystem& files, std::string_view path);
void GetVersionInfo(platform::FileSystem& files, std::string_view path, std::string& version,
                    std::string& os);

} // namespace tarvix::results
