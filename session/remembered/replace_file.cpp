#include "session/remembered/replace_file.h"

#include "platform/file_system.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <utility>

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

} // namespace

Result<NewTextFile> NewTextFile::Begin(FileSystem& files, std::string_view path) {
    NewTextFile file(files, path);
    std::string name;
    TX_TRY_ASSIGN(file.stream_, CreateBeside(files, path, name));
    file.name_ = std::move(name);
    return file;
}

NewTextFile::NewTextFile(FileSystem& files, std::string_view path) : files_(files), path_(path) {}

NewTextFile::NewTextFile(NewTextFile&& other) noexcept
    : files_(other.files_), path_(std::move(other.path_)), name_(std::exchange(other.name_, {})),
      stream_(std::move(other.stream_)) {}

NewTextFile::~NewTextFile() {
    stream_.reset();
    if (!name_.empty()) (void)files_.DeleteFile(name_, true);
}

Result<void> NewTextFile::Write(std::string_view text) {
    return stream_->Write(text);
}

Result<void> NewTextFile::Finish() {
    TX_TRY(stream_->Close());
    return PutInPlace();
}

Result<void> NewTextFile::PutInPlace() {
    if (!files_.Facts(path_)) {
        TX_TRY(files_.MoveFile(name_, path_, {}));
        name_.clear();
        return {};
    }
    return files_.ReplaceContent(path_, name_);
}

Result<void> ReplaceTextFile(FileSystem& files, std::string_view path, std::string_view content) {
    TX_TRY_ASSIGN(auto file, NewTextFile::Begin(files, path));
    TX_TRY(file.Write(content));
    return file.Finish();
}

Result<void> UpdateTextFile(FileSystem& files, std::string_view path, std::string_view content) {
    if (HasContent(files, path, content)) return {};
    return ReplaceTextFile(files, path, content);
}

bool HasContent(FileSystem& files, std::string_view path, std::string_view content) {
    const auto held = files.ReadBytes(path, 0, content.size() + 1);
    return held && *held == content;
}

} // namespace tarvix::session
