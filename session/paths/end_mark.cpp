#include "session/paths/end_mark.h"

#include "platform/file_system.h"
#include "platform/text_stream.h"
#include "platform/try.h"
#include "text/list_marks.h"

namespace tarvix::session {

namespace {

platform::Result<bool> EndsInsideALine(platform::FileSystem& files, std::string_view path) {
    TX_TRY_ASSIGN(const platform::ObjectFacts facts, platform::GetFile(files, path));
    if (facts.size == 0) return false;
    const auto last = files.ReadBytes(path, facts.size - 1, 1);
    if (!last) return std::unexpected(last.error());
    return !last->ends_with('\n');
}

} // namespace

platform::Result<void> AddEndMark(platform::FileSystem& files, std::string_view path) {
    TX_TRY_ASSIGN(const bool needsBreak, EndsInsideALine(files, path));
    TX_TRY_ASSIGN(const auto stream, files.OpenAsTextStream(path, platform::OpenMode::kAppend));
    if (needsBreak) TX_TRY(stream->Write("\r\n"));
    TX_TRY(stream->Write(text::kEndMark));
    return stream->Close();
}

} // namespace tarvix::session
