#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// The files of a folder and of all folders below it, breadth first, each folder's by name: read
// once, and kept by their names. Playlists, and what no name can reach, are left out.
class FileTree {
  public:
    // Reads the folder, a drive path; yields. False when the user stopped it.
    bool Read(session::Session& session, std::string_view folder);

    // Files are named by their index in this order, below Count().
    std::size_t Count() const { return folderOf_.size(); }
    std::string_view Name(std::size_t file) const { return Piece(names_, nameEnds_, file); }
    // In upper case.
    std::string_view UpperName(std::size_t file) const {
        return Piece(upperNames_, upperEnds_, file);
    }
    // The full drive path.
    std::string Path(std::size_t file) const;
    std::size_t Folders() const { return folders_.size(); }
    // How many of them could not be read.
    std::size_t Unreadable() const { return unreadable_; }

  private:
    struct Reading;
    static std::string_view Piece(const std::string& block, const std::vector<std::uint32_t>& ends,
                                  std::size_t index) {
        const std::size_t begin = index == 0 ? 0 : ends[index - 1];
        return std::string_view(block).substr(begin, ends[index] - begin);
    }
    void AddFile(std::string_view name);
    void AddFolder(session::Session& session, Reading& reading, std::string_view name,
                   bool isWalkable);

    std::vector<std::string> folders_;
    std::vector<std::uint32_t> folderOf_;
    std::string names_;
    std::vector<std::uint32_t> nameEnds_;
    std::string upperNames_;
    std::vector<std::uint32_t> upperEnds_;
    std::size_t unreadable_ = 0;
    std::uint32_t current_ = 0; // the folder that is being read
};

} // namespace tarvix::generate
