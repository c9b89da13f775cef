#include "batch/list_file.h"

#include "platform/file_system.h"
#include "platform/text_stream.h"
#include "platform/try.h"

#include <utility>

namespace tarvix::batch {

namespace {

using platform::OpenMode;
using platform::Result;

bool IsMark(std::string_view line, ListMarks marks) {
    return line == kEndMark || (marks == ListMarks::kEndOrRepeat && line == kRepeatMark);
}

} // namespace

Result<ListLength> MeasureList(platform::FileSystem& files, std::string_view path,
                               ListMarks marks) {
    TX_TRY_ASSIGN(const auto stream, files.OpenAsTextStream(path, OpenMode::kRead));
    ListLength length;
    while (!stream->AtEndOfStream()) {
        TX_TRY_ASSIGN(const std::string line, stream->ReadLine());
        if (IsMark(line, marks)) {
            length.isMarked = true;
            length.repeats = line == kRepeatMark;
            return length;
        }
        ++length.entries;
    }
    return length;
}

ListReader::ListReader(platform::FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)) {}

ListReader::~ListReader() = default;

Result<void> ListReader::Restart() {
    TX_TRY_ASSIGN(stream_, files_.OpenAsTextStream(path_, OpenMode::kRead));
    return {};
}

Result<std::string> ListReader::Next() {
    return stream_->ReadLine();
}

bool ListReader::IsAtEnd() const {
    return stream_->AtEndOfStream();
}

} // namespace tarvix::batch
