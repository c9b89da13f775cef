#include "session/remembered/replace_file.h"

#include "platform/file_system.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <string>

namespace tarvix::session {

namespace {

using platform::FileSystem;
using platform::Result;

// Other copies of the program may be writing beside the same file at this moment.
constexpr int kMostNames = 10;

std::string NameBeside(std::string_view path, int number) {
    return number == 0 ? fmt::format("{}.tmp", path) : fmt::format("{}.tmp{}", path, number);
}

Result<std::unique_ptr<platform::TextStream>> CreateBeside(FileSystem& files, std::string_view path,
                                                           std::string& name) {
    for (int number = 0; number < kMostNames; ++number) {
        name = NameBeside(path, number);
        auto stream = files.CreateTextFile(name, false);
        if (stream || stream.error().number != platform::kAlreadyExists) return stream;
    }
    name = NameBeside(path, 0);
    return files.CreateTextFile(name, true);
}

Result<void> WriteAll(platform::TextStream& stream, std::string_view content) {
    auto written = stream.Write(content);
    auto closed = stream.Close();
    return written ? closed : written;
}

Result<void> PutInPlace(FileSystem& files, const std::string& name, std::string_view path) {
    const auto old = files.Facts(path);
    if (!old) return files.MoveFile(name, path, {});
    if (old->attributes & platform::kReadOnly) {
        (void)files.SetAttributes(path, old->attributes & ~platform::kReadOnly);
    }
    auto copied = files.CopyFile(name, path, true, {});
    (void)files.DeleteFile(name, true);
    return copied;
}

} // namespace

Result<void> ReplaceTextFile(FileSystem& files, std::string_view path, std::string_view content) {
    std::string name;
    TX_TRY_ASSIGN(const auto stream, CreateBeside(files, path, name));
    auto done = WriteAll(*stream, content);
    if (done) done = PutInPlace(files, name, path);
    // Also after a move that failed.
    if (!done) (void)files.DeleteFile(name, true);
    return done;
}

} // namespace tarvix::session
