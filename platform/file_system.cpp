#include "platform/file_system.h"

namespace tarvix::platform {

Result<ObjectFacts> GetFile(FileSystem& files, std::string_view path) {
    auto facts = files.Facts(path);
    if (facts && facts->IsFolder()) {
        return Failure(kFileNotFound, std::string(path) + " is a folder.");
    }
    return facts;
}

Result<ObjectFacts> GetFolder(FileSystem& files, std::string_view path) {
    auto facts = files.Facts(path);
    if (!facts) {
        const int number =
            facts.error().number == kFileNotFound ? int{kPathNotFound} : facts.error().number;
        return Failure(number, facts.error().description);
    }
    if (!facts->IsFolder()) {
        return Failure(kPathNotFound, std::string(path) + " is not a folder.");
    }
    return facts;
}

} // namespace tarvix::platform
