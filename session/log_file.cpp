#include "session/log_file.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "platform/text_stream.h"
#include "platform/try.h"

#include <utility>

namespace tarvix::session {

LogFile::LogFile() = default;
LogFile::~LogFile() = default;
LogFile::LogFile(LogFile&&) noexcept = default;
LogFile& LogFile::operator=(LogFile&&) noexcept = default;

platform::Result<void> LogFile::Open(platform::FileSystem& files, const std::string& path,
                                     std::string_view head) {
    stream_ = nullptr;
    const bool exists = !platform::DirName(files, path, platform::kDirFiles).empty();
    TX_TRY_ASSIGN(stream_, exists ? files.OpenAsTextStream(path, platform::OpenMode::kWrite)
                                  : files.CreateTextFile(path, true));
    return Write(head);
}

platform::Result<void> LogFile::Create(platform::FileSystem& files, const std::string& path,
                                       std::string_view head) {
    stream_ = nullptr;
    TX_TRY_ASSIGN(stream_, files.CreateTextFile(path, false));
    return Write(head);
}

platform::Result<void> LogFile::Write(std::string_view text) {
    TX_TRY(Add(text));
    return Flush();
}

platform::Result<void> LogFile::Add(std::string_view text) {
    return stream_ ? stream_->Write(text) : platform::Result<void>();
}

platform::Result<void> LogFile::Flush() {
    return stream_ ? stream_->Flush() : platform::Result<void>();
}

platform::Result<void> LogFile::Close(std::string_view tail) {
    if (!stream_) return {};
    const auto stream = std::exchange(stream_, nullptr);
    auto written = stream->Write(tail);
    auto closed = stream->Close();
    return written ? closed : written;
}

} // namespace tarvix::session
