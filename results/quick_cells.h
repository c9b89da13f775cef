#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::results {

class ResultList;
struct RowFolder;

// Cells as they stand in the list, appended with nothing made on the way.

// "000,000,012,345" of bytes.
void AppendSize(std::string& out, std::uint64_t bytes);
// "2026/11/15 19:54:52" of local seconds (text::ToSeconds).
void AppendDate(std::string& out, std::int64_t seconds);
// In lower case, if it has fewer than 6 characters.
void AppendExtension(std::string& out, std::string_view name);
// Letters for bits 1, 2, 4, 32, 64, 128, 256, 512, 1024, 2048, in this order: rhsa6125AC.
void AppendAttributes(std::string& out, std::uint32_t bits);
// A number with at least so many digits.
void AppendPadded(std::string& out, std::uint64_t number, std::size_t digits);

// Whether a column says nothing that isn't known from an object's path and the search.
bool IsOfPath(int column);

// Has a list take names alone for as long as it lives, if `may`.
class NamesAlone {
  public:
    NamesAlone(ResultList& rows, bool may);
    ~NamesAlone();
    NamesAlone(const NamesAlone&) = delete;
    NamesAlone& operator=(const NamesAlone&) = delete;

  private:
    ResultList& rows_;
};

// Characters of Path\Name, and how many "\" are in it.
std::size_t RowPathLength(const RowFolder& folder, std::string_view name, bool isFolder);
std::size_t RowPathLevels(const RowFolder& folder, bool isFolder);

} // namespace tarvix::results
