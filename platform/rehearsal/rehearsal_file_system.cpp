#include "platform/rehearsal/rehearsal_file_system.h"

#include "platform/drive_path.h"
#include "platform/names.h"
#include "platform/rehearsal/rehearsal_text.h"
#include "platform/short_names.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>
#include <bit>
#include <chrono>

namespace tarvix::platform {

namespace {
constexpr std::size_t kFewTries = 16;
constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;

FileTime SystemNow() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

// Reads the real folder until the first change, and from then on the rehearsed one.
class RehearsalOpenFolder : public OpenFolder {
  public:
    RehearsalOpenFolder(RehearsalFileSystem& files, std::unique_ptr<OpenFolder> real,
                        std::string path)
        : files_(files), real_(std::move(real)), path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override {
        if (real_ && !files_.HasSteps()) return real_->List(listing);
        return files_.List(path_, listing);
    }

    Result<ObjectFacts> Facts(std::string_view name) override {
        if (real_ && !files_.HasSteps()) return real_->Facts(name);
        return files_.ExactFacts(path_, name);
    }

  private:
    RehearsalFileSystem& files_;
    std::unique_ptr<OpenFolder> real_;
    std::string path_;
};
} // namespace

RehearsalFileSystem::RehearsalFileSystem(FileSystem& real, std::function<FileTime()> now)
    : real_(real), tree_(real, now ? std::move(now) : std::function<FileTime()>(SystemNow)) {}

void RehearsalFileSystem::Clear() {
    tree_.Clear();
    steps_.Clear();
    vainTries_ = 0;
}

// Ever more rarely, so that many refusals in a row don't read a large folder each.
void RehearsalFileSystem::Begin() {
    if (HasSteps()) return;
    ++vainTries_;
    if (vainTries_ <= kFewTries || std::has_single_bit(vainTries_)) tree_.Clear();
}

// ---- looking up ----

Result<ObjectFacts> RehearsalFileSystem::Facts(std::string_view path) {
    if (!HasSteps()) return real_.Facts(path);
    const auto place = tree_.Need(path);
    if (!place) return std::unexpected(place.error());
    return tree_.FactsOf(*place->node);
}

template <class Spell>
Result<std::string> RehearsalFileSystem::Spelled(std::string_view path, Spell spell) {
    const auto place = tree_.Need(path);
    if (!place) return std::unexpected(place.error());
    std::vector<const RehearsalNode*> nodes;
    for (const RehearsalNode* node = place->node; node->parent != nullptr; node = node->parent)
        nodes.push_back(node);
    const std::string_view root = ParseDrivePath(path)->root;
    std::string out = root.size() == 2 ? text::Upper(root) : std::string(root);
    if (nodes.empty() && out.size() == 2) out += '\\';
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        out += '\\';
        out += spell((*node)->name);
    }
    return out;
}

Result<std::string> RehearsalFileSystem::TruePath(std::string_view path) {
    if (!HasSteps()) return real_.TruePath(path);
    return Spelled(path, [](const std::string& name) { return name; });
}

bool RehearsalFileSystem::IsWhereItWas(std::string_view path, const RehearsalNode& node) {
    const auto truePath = TruePath(path);
    return truePath && *truePath == node.RealPath();
}

Result<bool> RehearsalFileSystem::Holds(std::string_view outer, std::string_view inner) {
    if (!HasSteps()) return real_.Holds(outer, inner);
    const auto holder = tree_.Need(outer);
    if (!holder) return std::unexpected(holder.error());
    const auto held = tree_.Need(inner);
    if (!held) return std::unexpected(held.error());
    if (held->node->IsWithin(*holder->node)) return true;
    const bool isReal = IsWhereItWas(outer, *holder->node) && IsWhereItWas(inner, *held->node);
    return isReal ? real_.Holds(outer, inner) : Result<bool>(false);
}

Result<std::string> RehearsalFileSystem::ShortPath(std::string_view path) {
    if (!HasSteps()) return real_.ShortPath(path);
    return Spelled(path, ShortNameOf);
}

Result<std::unique_ptr<OpenFolder>> RehearsalFileSystem::Open(std::string_view folder) {
    std::unique_ptr<OpenFolder> real;
    if (!HasSteps()) {
        auto opened = real_.Open(folder);
        if (!opened) return opened;
        real = std::move(*opened);
    } else {
        const auto place = tree_.NeedFolder(folder);
        if (!place) return std::unexpected(place.error());
        const auto children = tree_.ChildrenOf(*place->node);
        if (!children) return RehearsalFailure(children.error().number, folder);
    }
    return std::make_unique<RehearsalOpenFolder>(*this, std::move(real), std::string(folder));
}

Result<void> RehearsalFileSystem::List(std::string_view folder, FolderListing& listing) {
    listing.Clear();
    const auto place = tree_.NeedFolder(folder);
    if (!place) return std::unexpected(place.error());
    const auto children = tree_.ChildrenOf(*place->node);
    if (!children) return std::unexpected(children.error());
    for (const auto& [upper, node] : (*children)->byUpper) {
        listing.Add({node->name, node->isFolder, node->isLink, node->isBoundary});
    }
    return {};
}

Result<ObjectFacts> RehearsalFileSystem::ExactFacts(std::string_view folder,
                                                    std::string_view name) {
    const std::string path = text::JoinPath(folder, name);
    if (!CanBeName(name)) return RehearsalFailure(kBadFileName, path);
    const auto place = tree_.NeedFolder(folder);
    if (!place) return std::unexpected(place.error());
    const auto node = tree_.FindExact(*place->node, name);
    if (!node) return std::unexpected(node.error());
    if (*node == nullptr) return RehearsalFailure(kFileNotFound, path);
    return tree_.FactsOf(**node);
}

// ---- changing one object ----

Result<void> RehearsalFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes) {
    Begin();
    const auto place = tree_.Need(path);
    if (!place) return std::unexpected(place.error());
    if (place->drive->isReadOnly) return RehearsalFailure(kPermissionDenied, path);
    const auto facts = tree_.FactsOf(*place->node);
    if (!facts) return std::unexpected(facts.error());
    std::uint32_t& held = place->node->facts->attributes;
    held = (held & ~kSettable) | (attributes & kSettable);
    if (place->node->name.starts_with('.')) held |= kHidden;
    steps_.Add(RehearsedOperation::kSetAttributes, path);
    return {};
}

Result<void> RehearsalFileSystem::DeleteFile(std::string_view path, bool force) {
    Begin();
    const auto place = tree_.NeedFile(path);
    if (!place) return std::unexpected(place.error());
    const auto facts = tree_.FactsOf(*place->node);
    if (!facts) return std::unexpected(facts.error());
    const bool isKept = (facts->attributes & kReadOnly) != 0 && !force;
    if (place->drive->isReadOnly || isKept) return RehearsalFailure(kPermissionDenied, path);
    tree_.Detach(*place->node);
    steps_.Add(RehearsedOperation::kDeleteFile, path);
    return {};
}

Result<void> RehearsalFileSystem::RemoveFolder(std::string_view path) {
    Begin();
    const auto place = tree_.NeedFolder(path);
    if (!place) return std::unexpected(place.error());
    if (place->drive->isReadOnly) return RehearsalFailure(kPermissionDenied, path);
    if (!place->node->IsTrueFolder() || place->folder == nullptr) {
        return RehearsalFailure(kPathFileAccess, path);
    }
    const auto children = tree_.ChildrenOf(*place->node);
    if (children && !(*children)->byUpper.empty()) return RehearsalFailure(kPathFileAccess, path);
    tree_.Detach(*place->node);
    steps_.Add(RehearsedOperation::kRemoveFolder, path);
    return {};
}

Result<void> RehearsalFileSystem::CreateFolder(std::string_view path) {
    Begin();
    const auto place = tree_.NeedTarget(path);
    if (!place) return std::unexpected(place.error());
    if (place->node != nullptr) return RehearsalFailure(kPathFileAccess, path);
    tree_.Attach(*place->folder, tree_.MakeFolder(), place->name);
    steps_.Add(RehearsedOperation::kCreateFolder, path);
    return {};
}

Result<void> RehearsalFileSystem::Recycle(std::string_view path) {
    Begin();
    const auto place = tree_.Need(path);
    if (!place) return std::unexpected(place.error());
    if (place->drive->isReadOnly || place->folder == nullptr) {
        return RehearsalFailure(kPermissionDenied, path);
    }
    tree_.Detach(*place->node);
    steps_.Add(RehearsedOperation::kRecycle, path);
    return {};
}

// ---- content ----

Result<RehearsalNode*> RehearsalFileSystem::NeedBytes(std::string_view path, bool toWrite) {
    const auto place = tree_.NeedFile(path);
    if (!place) return std::unexpected(place.error());
    RehearsalNode& node = *place->node;
    if (node.isFolder) return RehearsalFailure(kFileNotFound, path);
    const auto facts = tree_.FactsOf(node);
    if (!facts) return std::unexpected(facts.error());
    if ((facts->attributes & kSpecial) != 0) return RehearsalFailure(kBadFileName, path);
    const bool isKept = place->drive->isReadOnly || (facts->attributes & kReadOnly) != 0;
    if (toWrite && isKept) return RehearsalFailure(kPermissionDenied, path);
    if (node.isLink && !node.text) {
        const auto behind = real_.ReadBytes(node.RealPath(), 0, 0);
        if (!behind) return std::unexpected(behind.error());
    }
    return &node;
}

Result<std::string> RehearsalFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                                   std::size_t count) {
    if (!HasSteps()) return real_.ReadBytes(path, offset, count);
    const auto node = NeedBytes(path, false);
    if (!node) return std::unexpected(node.error());
    const std::shared_ptr<std::string>& text = (*node)->text;
    if (!text) return real_.ReadBytes((*node)->RealPath(), offset, count);
    if (offset >= text->size()) return std::string();
    return text->substr(static_cast<std::size_t>(offset), count);
}

Result<std::unique_ptr<TextStream>> RehearsalFileSystem::CreateTextFile(std::string_view path,
                                                                        bool overwrite) {
    Begin();
    const auto place = tree_.NeedTarget(path);
    if (!place) return std::unexpected(place.error());
    if (place->node != nullptr) {
        if (!overwrite) return RehearsalFailure(kAlreadyExists, path);
        if (place->node->isFolder) return RehearsalFailure(kPathFileAccess, path);
        return OpenAsTextStream(path, OpenMode::kWrite);
    }
    const RehearsalNode& made = tree_.Attach(*place->folder, tree_.MakeFile(), place->name);
    steps_.Add(RehearsedOperation::kWriteText, path);
    return std::make_unique<RehearsalWriter>(made.text);
}

Result<std::unique_ptr<TextStream>> RehearsalFileSystem::OpenAsTextStream(std::string_view path,
                                                                          OpenMode mode) {
    const bool toWrite = mode != OpenMode::kRead;
    if (!toWrite && !HasSteps()) return real_.OpenAsTextStream(path, mode);
    Begin();
    const auto found = NeedBytes(path, toWrite);
    if (!found) return std::unexpected(found.error());
    RehearsalNode& node = **found;
    if (!toWrite) {
        if (!node.text) return real_.OpenAsTextStream(node.RealPath(), mode);
        return std::make_unique<RehearsalReader>(*node.text);
    }
    node.facts->modified = tree_.Now();
    if (mode == OpenMode::kWrite) {
        node.text = std::make_shared<std::string>();
    } else if (!node.text) {
        auto held = real_.ReadBytes(node.RealPath(), 0, static_cast<std::size_t>(node.facts->size));
        if (!held) return std::unexpected(held.error());
        node.text = std::make_shared<std::string>(std::move(*held));
    }
    steps_.Add(RehearsedOperation::kWriteText, path);
    return std::make_unique<RehearsalWriter>(node.text);
}

} // namespace tarvix::platform
