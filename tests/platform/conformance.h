#pragma once

#include "platform/file_system.h"
#include "platform/trash.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A disk under test: one fresh empty folder, and a way to it behind the FileSystem's back. The
// `path` arguments are in drive form, relative to that folder, with "\" between names; folders on
// the way are made. What can't be done on this disk returns false, and the test is skipped.
class Disk {
  public:
    virtual ~Disk() = default; // removes the folder

    virtual FileSystem& Files() = 0;
    virtual Trash& Bin() = 0;
    // The folder's drive path, spelled as TruePath spells it, without a final "\".
    virtual std::string Root() const = 0;

    virtual void MakeFile(std::string_view path, std::string_view content) = 0;
    virtual void MakeFolder(std::string_view path) = 0;
    // A symbolic link at `path`; `target` is relative to the root folder and need not exist.
    virtual void MakeLink(std::string_view path, std::string_view target) = 0;
    virtual void SetModified(std::string_view path, FileTime modified) = 0;
    virtual void SetReadOnly(std::string_view path) = 0;
    virtual bool MakeFifo(std::string_view path) = 0;
    // A file in a folder that is there; its name is given in the disk's own bytes.
    virtual bool MakeBadName(std::string_view folder, std::string_view nativeName) = 0;
    // Takes away the right to list a folder.
    virtual bool MakeUnreadable(std::string_view path) = 0;
    virtual bool SetExtendedAttribute(std::string_view path, std::string_view name,
                                      std::string_view value) = 0;

    // What is really there. Content is empty for a missing file; a link is not read through.
    virtual std::optional<std::string> Content(std::string_view path) = 0;
    virtual std::optional<std::string> ExtendedAttribute(std::string_view path,
                                                         std::string_view name) = 0;
    // Drive forms of all names in a folder, temporary files too, in no special order; "" for the
    // root folder.
    virtual std::vector<std::string> Names(std::string_view folder) = 0;
    // The paths from which the objects now in the trash came, sorted, one text for each object.
    virtual std::vector<std::string> Trashed() = 0;
    // Puts back an object from the trash, as the desktop's file manager would.
    virtual bool Restore(std::string_view path) = 0;
    // What others do to an object in the trash, found by where it came from: it leaves the trash,
    // or another file takes the place and name that it has there.
    virtual bool LoseTrashed(std::string_view path) = 0;
    virtual bool ExchangeTrashed(std::string_view path, std::string_view content) = 0;
    // Takes away the right to put names into a folder, and gives it back.
    virtual bool SetLocked(std::string_view folder, bool isLocked) = 0;
    // A rehearsal keeps no trash, doesn't know that a path through a link leads to the same object
    // as another, and sees nothing of what others do meanwhile.
    virtual bool IsRehearsal() const { return false; }
};

// How to make one kind of disk; the name becomes part of the tests' names.
struct DiskMaker {
    std::string name;
    std::function<std::unique_ptr<Disk>()> make;

    friend std::ostream& operator<<(std::ostream& out, const DiskMaker& maker) {
        return out << maker.name;
    }
};

// The tests of every FileSystem. A new one is put under them by:
//   INSTANTIATE_TEST_SUITE_P(NAME, FileSystemConformance, testing::Values(DiskMaker{...}));
class FileSystemConformance : public testing::TestWithParam<DiskMaker> {
  protected:
    void SetUp() override { disk_ = GetParam().make(); }

    Disk& disk() { return *disk_; }
    FileSystem& files() { return disk_->Files(); }
    std::string Root() const { return disk_->Root(); }
    // The full drive path of a path below the root folder.
    std::string At(std::string_view path) const { return Root() + "\\" + std::string(path); }

    // The names that listing a folder gives, in its order.
    std::vector<std::string> Listed(std::string_view folder);
    // The names really there, sorted by code point.
    std::vector<std::string> Names(std::string_view folder);
    std::uint32_t AttributesOf(std::string_view path);
    bool Exists(std::string_view path);
    std::string TextOf(std::string_view path);

    Result<void> Copy(std::string_view from, std::string_view to, bool overwrite = false);
    Result<void> CopyTree(std::string_view from, std::string_view to, bool overwrite = false);
    Result<void> Move(std::string_view from, std::string_view to);
    Result<void> MoveTree(std::string_view from, std::string_view to);
    void Append(std::string_view path, std::string_view text);
    Result<void> Recycle(const std::vector<std::string>& paths, const TrashObserver& observer = {});

    // Puts back what was taken from these places in the row, counted from 0; the error number of
    // each.
    std::vector<int> PutBack(const std::vector<std::size_t>& numbers);

    // The object as a search of `location` sees it now, and then a look at what was seen.
    void See(const std::string& path, const std::string& location);
    SeenObject Seen(Same same = Same::kObject) const { return {path_, sighting_, same}; }
    int LookAtSeen(Same same = Same::kObject);
    // "s\sub\a", seen from "s", and "outside\a".
    void MakeAndSee();
    // A link to "outside" takes the place of "s\sub"; another file that of "s\sub\a".
    void SwapFolder();
    void Exchange(const std::string& content);

    std::string path_; // of what was seen
    Sighting sighting_;

  private:
    std::unique_ptr<Disk> disk_;
};

// Two long names that share one short name.
std::pair<std::string, std::string> NamesWithOneShortName();

// The error number of a result; 0 for success.
template <class T>
int NumberOf(const Result<T>& result) {
    return result ? 0 : result.error().number;
}

} // namespace tarvix::platform
