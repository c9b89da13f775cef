#pragma once

#include "platform/error.h"
#include "text/list_marks.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvix::platform {
class FileSystem;
class TextStream;
} // namespace tarvix::platform

namespace tarvix::batch {

// A list holds one entry a line and ends with a line that is a mark. What stands behind is no
// entry.
using text::kEndMark;
using text::kRepeatMark;

enum class ListMarks { kEnd, kEndOrRepeat };

struct ListLength {
    std::int64_t entries = 0;
    bool isMarked = false;
    bool repeats = false; // its mark is the second one
};

// Counts the entries of the list of that drive path; all lines of one without a mark. Gives the
// errors of opening and reading a text file, but not 62.
platform::Result<ListLength> MeasureList(platform::FileSystem& files, std::string_view path,
                                         ListMarks marks);

// Reads a list line by line, marks included, as often as it is asked to.
class ListReader {
  public:
    ListReader(platform::FileSystem& files, std::string path);
    ~ListReader();
    ListReader(const ListReader&) = delete;
    ListReader& operator=(const ListReader&) = delete;
    // To the first line; call it before the first `Next`. 53 when the list has gone.
    platform::Result<void> Restart();
    // 62 behind the last line.
    platform::Result<std::string> Next();
    bool IsAtEnd() const;

  private:
    platform::FileSystem& files_;
    std::string path_;
    std::unique_ptr<platform::TextStream> stream_;
};

} // namespace tarvix::batch
