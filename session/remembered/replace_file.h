#pragma once

#include "platform/error.h"

#include <memory>
#include <string>
#include <string_view>

namespace tarvix::platform {
class FileSystem;
class TextStream;
} // namespace tarvix::platform

namespace tarvix::session {

// A text file that is written beside the one it is to be, and put in its place when it is whole.
// Until then the old file stands as it was, and what was written goes when this does.
class NewTextFile {
  public:
    // `path` is a drive path; `files` must outlive this. 70 refused, 76 no such folder.
    static platform::Result<NewTextFile> Begin(platform::FileSystem& files, std::string_view path);
    NewTextFile(NewTextFile&& other) noexcept;
    ~NewTextFile();

    // 61 disk full.
    platform::Result<void> Write(std::string_view text);
    // Makes it the file of that path, also in the place of a read-only one. Comes last.
    platform::Result<void> Finish();

  private:
    NewTextFile(platform::FileSystem& files, std::string_view path);
    platform::Result<void> PutInPlace();

    platform::FileSystem& files_;
    std::string path_;
    std::string name_; // where it stands meanwhile; empty when it doesn't
    std::unique_ptr<platform::TextStream> stream_;
};

// Gives the text file of that drive path this content, and makes it if it is missing. The content
// is written beside it first and then put in its place, so that after any failure the old file
// stands unharmed. A read-only file is replaced too; what exists keeps its mode, and a link leads
// on to its file. 61 disk full, 70 refused, 76 no such folder.
platform::Result<void> ReplaceTextFile(platform::FileSystem& files, std::string_view path,
                                       std::string_view content);

// The same, but a file that has this content already is left as it is, with its date.
platform::Result<void> UpdateTextFile(platform::FileSystem& files, std::string_view path,
                                      std::string_view content);

// Whether that drive path is a file with this content and no more.
bool HasContent(platform::FileSystem& files, std::string_view path, std::string_view content);

} // namespace tarvix::session
