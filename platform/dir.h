#pragma once

#include "platform/file_system.h"
#include "text/like.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {

// Attribute masks of `Dir`: read-only, hidden and system files; 23 takes folders too.
constexpr std::uint32_t kDirFiles = 7;
constexpr std::uint32_t kDirAll = 23;

// One enumeration by wildcard, without regard to case. The last component of `spec` may hold "*"
// (any run) and "?" (one character), nothing else is special; "*.*" takes every name. Without them
// it is an existence test. A spec that ends in "\" gives everything in that folder, "." and ".."
// left out. A folder that can't be opened gives nothing. Names are as the disk spells them.
class Dir {
  public:
    // `files` must outlive this.
    explicit Dir(FileSystem& files) : files_(files) {}

    // The first match, or empty.
    std::string First(std::string_view spec, std::uint32_t mask);
    // The next match of the last spec, or empty.
    std::string Next();

  private:
    std::string NextMatch();

    FileSystem& files_;
    FolderListing listing_;
    std::size_t index_ = 0;
    std::uint32_t mask_ = 0;
    std::optional<text::LikePattern> pattern_; // none takes every name
};

// The existence test: the name of the object at `path`, as the disk spells it ("C:" for a drive),
// if `mask` takes its kind, else empty. Only mask bit 16 takes folders and links to folders.
std::string DirName(FileSystem& files, std::string_view path, std::uint32_t mask);

// What stands at a new path, as a duplicate test sees it.
struct Standing {
    std::string name;      // as the disk spells it; empty where nothing stands
    bool isFolder = false; // or a link to one
    FreePlace place;       // where nothing stands, for the call that puts an object there

    bool IsFree() const { return name.empty(); }
};

// Before a call that never replaces: what others put there in the last moments may be missed.
Standing WhatStands(FileSystem& files, std::string_view path);

} // namespace tarvix::platform
