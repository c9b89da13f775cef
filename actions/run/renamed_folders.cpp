#include "actions/run/renamed_folders.h"

namespace tarvix::actions {

void RenamedFolders::Note(std::string_view path, std::string_view newName) {
    names_.insert_or_assign(std::string(path), newName);
}

std::string RenamedFolders::Now(const std::string& path) const {
    if (names_.empty()) return path;
    std::string now;
    std::size_t begin = 0;
    for (std::size_t end = path.find('\\'); end != path.npos; end = path.find('\\', begin)) {
        const auto renamed = names_.find(path.substr(0, end));
        now += renamed == names_.end() ? path.substr(begin, end - begin) : renamed->second;
        now += '\\';
        begin = end + 1;
    }
    return now + path.substr(begin);
}

} // namespace tarvix::actions
