#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::platform {
class NativePaths;
}

namespace tarvix::generate {

enum class PlaylistLineKind : std::uint8_t {
    kComment,
    kEntry,
    kDuplicate, // a comment that names a possible duplicate of the entry above it
    kElsewhere, // an address on the net
};

// What one line of a playlist names.
struct PlaylistLine {
    PlaylistLineKind kind = PlaylistLineKind::kComment;
    std::string path; // drive path in full
    // The same with its "%20" and the like decoded, where it holds any: some programs write them.
    std::string decoded = {};
};

// Reads the lines of one playlist, in native form, drive form or as addresses.
class PlaylistLines {
  public:
    // `folder` is the playlist's own, a drive path. `isNative`: bare names are those of this
    // machine. `paths` must outlive this.
    PlaylistLines(const platform::NativePaths& paths, std::string_view folder, bool isNative);

    // A line without its end; a blank one names the folder itself.
    PlaylistLine Read(std::string_view line) const;

  private:
    // In drive form; empty for a text that is no full path.
    std::string FullPath(std::string_view text) const;
    std::string Below(std::string_view relative) const;
    PlaylistLine Duplicate(std::string_view line) const;
    PlaylistLine Entry(std::string_view line) const;

    const platform::NativePaths& paths_;
    std::string folder_;
    bool isNative_;
};

} // namespace tarvix::generate
