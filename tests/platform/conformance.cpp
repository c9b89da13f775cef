#include "tests/platform/conformance.h"

#include <algorithm>

namespace tarvix::platform {

std::pair<std::string, std::string> NamesWithOneShortName() {
    return {"Long name 325989.txt", "Long name 831105.txt"};
}

std::vector<std::string> FileSystemConformance::Listed(std::string_view folder) {
    auto opened = files().Open(folder.empty() ? Root() : At(folder));
    if (!opened) return {"could not be opened: " + std::to_string(opened.error().number)};
    FolderListing listing;
    const auto listed = (*opened)->List(listing);
    if (!listed) return {"could not be listed: " + std::to_string(listed.error().number)};
    std::vector<std::string> names;
    for (std::size_t i = 0; i < listing.Size(); ++i)
        names.emplace_back(listing[i].name);
    return names;
}

std::vector<std::string> FileSystemConformance::Names(std::string_view folder) {
    auto names = disk().Names(folder);
    std::sort(names.begin(), names.end());
    return names;
}

std::uint32_t FileSystemConformance::AttributesOf(std::string_view path) {
    const auto facts = files().Facts(At(path));
    EXPECT_TRUE(facts) << path;
    return facts ? facts->attributes : 0;
}

bool FileSystemConformance::Exists(std::string_view path) {
    return files().Facts(At(path)).has_value();
}

std::string FileSystemConformance::TextOf(std::string_view path) {
    return disk().Content(path).value_or("(no such file)");
}

Result<void> FileSystemConformance::Copy(std::string_view from, std::string_view to,
                                         bool overwrite) {
    return files().CopyFile(At(from), At(to), overwrite, {});
}

Result<void> FileSystemConformance::CopyTree(std::string_view from, std::string_view to,
                                             bool overwrite) {
    return files().CopyFolder(At(from), At(to), overwrite, {});
}

Result<void> FileSystemConformance::Move(std::string_view from, std::string_view to) {
    return files().MoveFile(At(from), At(to), {});
}

Result<void> FileSystemConformance::MoveTree(std::string_view from, std::string_view to) {
    return files().MoveFolder(At(from), At(to));
}

void FileSystemConformance::Append(std::string_view path, std::string_view text) {
    const auto stream = files().OpenAsTextStream(At(path), OpenMode::kAppend);
    ASSERT_TRUE(stream && (*stream)->Write(text) && (*stream)->Close());
}

Result<void> FileSystemConformance::Recycle(const std::vector<std::string>& paths,
                                            const TrashObserver& observer) {
    std::vector<std::string> full;
    for (const std::string& path : paths)
        full.push_back(At(path));
    return disk().Bin().Recycle(full, observer);
}

std::vector<int> FileSystemConformance::PutBack(const std::vector<std::size_t>& numbers) {
    std::vector<int> errors;
    for (const std::size_t number : numbers)
        errors.push_back(NumberOf(disk().Bin().PutBack(number)));
    return errors;
}

} // namespace tarvix::platform
