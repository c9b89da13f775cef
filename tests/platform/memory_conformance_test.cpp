#include "tests/machine/memory_file_system.h"
#include "tests/machine/memory_trash.h"
#include "tests/platform/conformance.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
class MemoryDisk : public Disk {
  public:
    MemoryDisk() { disk_.AddFolder(Root()); }

    FileSystem& Files() override { return disk_; }
    Trash& Bin() override { return bin_; }
    std::string Root() const override { return "C:\\tmp\\Test root"; }

    void MakeFile(std::string_view path, std::string_view content) override {
        disk_.AddFile(At(path), content);
    }
    void MakeFolder(std::string_view path) override { disk_.AddFolder(At(path)); }
    void MakeLink(std::string_view path, std::string_view target) override {
        disk_.AddLink(At(path), At(target));
    }
    void SetModified(std::string_view path, FileTime modified) override {
        disk_.Node(At(path))->modified = modified;
    }
    void SetReadOnly(std::string_view path) override {
        disk_.Node(At(path))->attributes |= kReadOnly;
    }
    bool MakeFifo(std::string_view path) override {
        disk_.AddSpecial(At(path));
        return true;
    }
    bool MakeBadName(std::string_view folder, std::string_view nativeName) override {
        disk_.AddNative(At(folder), nativeName);
        return true;
    }
    bool MakeUnreadable(std::string_view path) override {
        disk_.Node(At(path))->isUnreadable = true;
        return true;
    }
    bool SetExtendedAttribute(std::string_view path, std::string_view name,
                              std::string_view value) override {
        disk_.Node(At(path))->extendedAttributes[std::string(name)] = value;
        return true;
    }

    std::optional<std::string> Content(std::string_view path) override {
        return disk_.Content(At(path));
    }
    std::optional<std::string> ExtendedAttribute(std::string_view path,
                                                 std::string_view name) override {
        const auto& held = disk_.Node(At(path))->extendedAttributes;
        const auto found = held.find(std::string(name));
        if (found == held.end()) return std::nullopt;
        return found->second;
    }
    std::vector<std::string> Names(std::string_view folder) override {
        std::vector<std::string> names;
        for (const auto& [key, node] : disk_.Node(At(folder))->Children()) {
            names.push_back(node->name);
        }
        return names;
    }
    std::vector<std::string> Trashed() override {
        std::vector<std::string> paths;
        for (const std::string& path : bin_.Paths())
            paths.push_back(path.substr(Root().size() + 1));
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    bool Restore(std::string_view path) override { return bin_.Restore(At(path)).has_value(); }
    bool LoseTrashed(std::string_view path) override { return bin_.Lose(At(path)); }
    // Names in this trash lead to nothing.
    bool ExchangeTrashed(std::string_view, std::string_view) override { return false; }
    bool SetLocked(std::string_view folder, bool isLocked) override {
        disk_.Node(At(folder))->isLocked = isLocked;
        return true;
    }

  private:
    std::string At(std::string_view path) const { return text::JoinPath(Root(), path); }

    MemoryFileSystem disk_;
    MemoryTrash bin_{disk_};
};
} // namespace

INSTANTIATE_TEST_SUITE_P(Memory, FileSystemConformance,
                         testing::Values(DiskMaker{"Memory",
                                                   [] { return std::make_unique<MemoryDisk>(); }}));

} // namespace tarvix::platform
