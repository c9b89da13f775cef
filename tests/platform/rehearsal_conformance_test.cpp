#include "platform/rehearsal/rehearsal_trash.h"
#include "tests/machine/memory_trash.h"
#include "tests/platform/conformance.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
// A rehearsal over a disk in memory. What a test prepares lies on the real disk as long as nothing
// was rehearsed, and is rehearsed like all else from then on; what a test finds afterwards is what
// the rehearsal shows.
class RehearsalDisk : public Disk {
  public:
    RehearsalDisk() { real_.AddFolder(Root()); }

    FileSystem& Files() override { return rehearsed_; }
    Trash& Bin() override { return bin_; }
    std::string Root() const override { return "C:\\tmp\\Test root"; }

    void MakeFile(std::string_view path, std::string_view content) override {
        if (!rehearsed_.HasSteps()) {
            real_.AddFile(At(path), content);
            return;
        }
        const auto stream = rehearsed_.CreateTextFile(At(path), true);
        ASSERT_TRUE(stream);
        ASSERT_TRUE((*stream)->Write(content));
    }
    void MakeFolder(std::string_view path) override { real_.AddFolder(At(path)); }
    void MakeLink(std::string_view path, std::string_view target) override {
        real_.AddLink(At(path), At(target));
    }
    void SetModified(std::string_view path, FileTime modified) override {
        real_.Node(At(path))->modified = modified;
    }
    void SetReadOnly(std::string_view path) override {
        if (!rehearsed_.HasSteps()) {
            real_.Node(At(path))->attributes |= kReadOnly;
        } else {
            ASSERT_TRUE(rehearsed_.SetAttributes(At(path), kReadOnly | kArchive));
        }
    }
    bool MakeFifo(std::string_view path) override {
        real_.AddSpecial(At(path));
        return true;
    }
    bool MakeBadName(std::string_view folder, std::string_view nativeName) override {
        real_.AddNative(At(folder), nativeName);
        return true;
    }
    bool MakeUnreadable(std::string_view path) override {
        real_.Node(At(path))->isUnreadable = true;
        return true;
    }
    bool SetExtendedAttribute(std::string_view, std::string_view, std::string_view) override {
        return false;
    }

    std::optional<std::string> Content(std::string_view path) override {
        const auto facts = rehearsed_.Facts(At(path));
        if (!facts || (facts->attributes & (kFolder | kAlias | kSpecial)) != 0) return std::nullopt;
        const auto bytes = rehearsed_.ReadBytes(At(path), 0, 1 << 30);
        return bytes ? std::optional(*bytes) : std::nullopt;
    }
    std::optional<std::string> ExtendedAttribute(std::string_view, std::string_view) override {
        return std::nullopt;
    }
    std::vector<std::string> Names(std::string_view folder) override {
        std::vector<std::string> names;
        FolderListing listing;
        const auto opened = rehearsed_.Open(At(folder));
        if (!opened || !(*opened)->List(listing)) return {"(can't be listed)"};
        for (std::size_t i = 0; i < listing.Size(); ++i)
            names.emplace_back(listing[i].name);
        return names;
    }
    std::vector<std::string> Trashed() override {
        std::vector<std::string> paths;
        for (std::size_t i = 0; i < rehearsed_.Steps().Size(); ++i) {
            const RehearsedStep step = rehearsed_.Steps()[i];
            if (step.operation != TreeChange::kRecycle) continue;
            paths.emplace_back(step.from.substr(Root().size() + 1));
        }
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    bool Restore(std::string_view) override { return false; }
    bool LoseTrashed(std::string_view) override { return false; }
    bool ExchangeTrashed(std::string_view, std::string_view) override { return false; }
    bool SetLocked(std::string_view, bool) override { return false; }
    bool IsRehearsal() const override { return true; }

  private:
    std::string At(std::string_view path) const { return text::JoinPath(Root(), path); }

    MemoryFileSystem real_;
    RehearsalFileSystem rehearsed_{real_};
    MemoryTrash realBin_{real_};
    RehearsalTrash bin_{rehearsed_, realBin_};
};
} // namespace

INSTANTIATE_TEST_SUITE_P(Rehearsal, FileSystemConformance,
                         testing::Values(DiskMaker{
                             "Rehearsal", [] { return std::make_unique<RehearsalDisk>(); }}));

} // namespace tarvix::platform
