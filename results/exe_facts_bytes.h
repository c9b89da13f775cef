#pragma once

#include "results/exe_facts.h"

#include <algorithm>

namespace tarvix::results {

// The bytes of one file in pieces, read a window at a time and kMostExeBytes in all.
class ExeBytes {
  public:
    // `read` must outlive this.
    explicit ExeBytes(const ByteReader& read) : read_(read) {}

    // Exactly `count` bytes, valid until the next call; empty when the file ends before them or
    // the limit is reached.
    std::string_view At(std::uint64_t offset, std::size_t count) {
        if (!Holds(offset, count) && !Load(offset, count)) return {};
        return std::string_view(window_).substr(offset - start_, count);
    }

  private:
    bool Holds(std::uint64_t offset, std::size_t count) const {
        return offset >= start_ && offset - start_ <= window_.size() &&
               count <= window_.size() - (offset - start_);
    }

    bool Load(std::uint64_t offset, std::size_t count) {
        const std::size_t size = std::min(std::max(count, kWindow), left_);
        if (size < count) return false;
        left_ -= size;
        window_ = read_(offset, size);
        start_ = offset;
        return window_.size() >= count;
    }

    static constexpr std::size_t kWindow = 4096;

    const ByteReader& read_;
    std::string window_;
    std::uint64_t start_ = 0;
    std::size_t left_ = kMostExeBytes;
};

// Little-endian numbers. `at` and what follows must lie inside `bytes`.
inline std::uint16_t WordAt(std::string_view bytes, std::size_t at) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<std::uint16_t>(low | high << 8);
}

inline std::uint32_t DoubleWordAt(std::string_view bytes, std::size_t at) {
    return WordAt(bytes, at) | static_cast<std::uint32_t>(WordAt(bytes, at + 2)) << 16;
}

enum class ExeKind { kNone, kDos, kNe, kPe };

// Where the header that tells a program's kind begins.
struct ExeHeader {
    ExeKind kind = ExeKind::kNone;
    std::uint64_t offset = 0;
};

// The version record in the resources of a PE or NE program.
std::optional<VersionRecord> FindVersionRecord(ExeBytes& bytes, const ExeHeader& header);

} // namespace tarvix::results
