#pragma once

#include "platform/linux/copy_run.h"
#include "platform/linux/part_file.h"
#include "platform/linux/system_calls.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace tarvix::platform {

// One file, link or special file to copy. Drive paths are for messages and the observer.
struct CopyItem {
    At source;
    const struct statx& st; // of the source
    std::string_view sourcePath;
    int targetFolder; // stays open; AT_FDCWD where `targetName` is an absolute path
    const char* targetName;
    std::string_view targetPath;
    bool isSeen = false; // what stands at the source by now must be the object of `st`
};

// Whether an object may be put where `existing` is: 58 without `overwrite`; with it 75 for folders,
// links to them, special files and the object itself, 70 for read-only ones.
Result<void> CheckReplace(const struct statx& source, const struct statx& existing,
                          bool leadsToFolder, bool overwrite, std::string_view path);

// The content of a file and all that belongs to it, in a part that has no name yet; `folder` is
// where it will get one. A file that changes meanwhile is copied once more, and then given up
// with 75.
Result<PartFile> MakePart(const CopyItem& item, int folder, CopyRun& run);
Sys<std::string> LinkText(At at);
// Owner and times of a link that was made.
void KeepLinkFacts(const struct statx& st, int folder, const char* name);
// 75, for what is never opened.
std::unexpected<PlatformError> SpecialFailure(std::string_view path);

// Copies a file or link, in one step as others see it. 75 for special files; 58 when the name is
// taken and the run doesn't overwrite. On failure nothing new is left.
Result<void> CopyObject(const CopyItem& item, CopyRun& run);

// Gives a copy of a file that was made ahead its name: 58; nothing when there is none that can be
// used. The item's source isn't looked at.
std::optional<Result<void>> UseCopyAhead(const CopyItem& item, CopyRun& run);

// Whether nobody wrote to a file between two looks.
bool IsAsItWas(const struct statx& before, const struct statx& now);
// Whether a source is still as it was when it was opened.
bool IsUnchanged(const struct statx& before, At source);

} // namespace tarvix::platform
