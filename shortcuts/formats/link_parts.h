#pragma once

#include "shortcuts/formats/bytes.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The parts that a .lnk file consists of.
namespace tarvix::shortcuts::link {

enum Flag : std::uint32_t {
    kHasIdList = 0x1,
    kHasLinkInfo = 0x2,
    kHasName = 0x4,
    kHasRelativePath = 0x8,
    kHasWorkingDir = 0x10,
    kHasArguments = 0x20,
    kHasIconLocation = 0x40,
    kIsUnicode = 0x80,
    kForceNoLinkInfo = 0x100,
    kHasExpString = 0x200,
    kHasDarwinId = 0x1000,
    kHasExpIcon = 0x4000,
    kPreferEnvironmentPath = 0x2000000,
};

constexpr std::size_t kHeaderSize = 0x4C;
// Where the header keeps what.
enum At : std::size_t {
    kAtFlags = 0x14,
    kAtAttributes = 0x18,
    kAtTimes = 0x1C, // and the size behind them
    kAtIconIndex = 0x38,
    kAtShow = 0x3C,
    kAtHotKey = 0x40,
};
constexpr std::size_t kTimesSize = 0x38 - 0x1C;
constexpr std::uint32_t kFolderBit = 0x10;
constexpr std::uint32_t kArchiveBit = 0x20;

enum Signature : std::uint32_t {
    kEnvironment = 0xA0000001,
    kTracker = 0xA0000003,
    kSpecialFolder = 0xA0000005,
    kDarwin = 0xA0000006,
    kIconEnvironment = 0xA0000007,
    kPropertyStore = 0xA0000009,
    kKnownFolder = 0xA000000B,
    kVistaIdList = 0xA000000C,
};

// The texts, in their order in the file.
enum Text : std::size_t { kName, kRelativePath, kWorkingDir, kArgumentText, kIconLocation };
constexpr std::size_t kTextCount = 5;
constexpr std::array<std::uint32_t, kTextCount> kTextFlags{
    kHasName, kHasRelativePath, kHasWorkingDir, kHasArguments, kHasIconLocation};

// Views into the file's bytes.
struct Block {
    std::string_view all; // size and signature too
    std::uint32_t signature = 0;
};
struct Parts {
    std::string_view header;
    std::uint32_t flags = 0;
    std::string_view idList;                        // with its size; empty without its flag
    std::string_view linkInfo;                      // the same
    std::array<std::string_view, kTextCount> texts; // less their counts
    std::vector<Block> blocks;
    std::string_view tail; // from the end mark of the blocks on
    bool isCut = false;    // something that the flags promise isn't there
    bool isWhole = false;  // not cut, and all blocks are there

    bool Has(std::uint32_t flag) const { return (flags & flag) != 0; }
    std::string TextOf(Text text) const;
};

// Empty when the bytes are no shell link. What is cut off is left out, with all that follows it.
std::optional<Parts> Take(std::string_view bytes);

// The path that an ID list (with its size) names, when it is a chain of this computer, a drive and
// file entries; else empty.
std::string PathOfIdList(std::string_view idList);
// Local, else on a share; else empty.
std::string PathOfLinkInfo(std::string_view linkInfo);
// Of an environment block, as it stands.
std::string PathOfEnvironment(std::string_view block);

// What names a target.
struct TargetParts {
    std::string idList;      // with its size; empty for a share and for a path with variables
    std::string linkInfo;    // empty for a path with variables
    std::string environment; // a block; only for a path with variables
};
// None for a text that is no path with a drive or share or a variable in front, or that is too long
// for the format.
std::optional<TargetParts> MakeTarget(std::string_view path, bool isFolder);

// A property store less what it tells of the target; empty when nothing is left.
std::string WithoutTargetProperties(std::string_view block);

} // namespace tarvix::shortcuts::link
