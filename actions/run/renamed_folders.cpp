#include "actions/run/renamed_folders.h"

namespace tarvix::actions {

void RenamedFolders::Note(std::string_view path, std::string_view newName) {
    names_.insert_or_assign(std::string(path), newName);
}

std::string RenamedFolders::Now(std::string_view path) const {
    std::string now;
    if (names_.empty()) return now.assign(path);
    std::size_t begin = 0;
    for (std::size_t end = path.find('\\'); end != path.npos; end = path.find('\\', begin)) {
        const auto renamed = names_.find(path.substr(0, end));
        if (renamed == names_.end()) {
            now += path.substr(begin, end - begin);
        } else {
            now += renamed->second;
        }
        now += '\\';
        begin = end + 1;
    }
    now += path.substr(begin);
    return now;
}

} // namespace tarvix::actions
