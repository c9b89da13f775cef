#include "tests/machine/faulty_file_system.h"

#include "platform/tree/tree_file_system.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/paths.h"

#include <utility>

namespace tarvix::platform {

namespace {
std::string PathKey(std::string_view path) {
    return text::Upper(text::StripTrailingSlash(path));
}

class FaultyCopy : public UnnamedCopy {
  public:
    FaultyCopy(FaultyFileSystem& files, std::unique_ptr<UnnamedCopy> copy, std::string_view from,
               std::string_view to)
        : files_(files), copy_(std::move(copy)), from_(from), to_(to) {}

    Result<void> Name() override {
        TX_TRY(files_.Enter("NameCopy", from_, to_));
        return copy_->Name();
    }
    std::string Missing() const override { return copy_->Missing(); }

  private:
    FaultyFileSystem& files_;
    std::unique_ptr<UnnamedCopy> copy_;
    std::string from_;
    std::string to_;
};

class FaultyFolder : public OpenFolder {
  public:
    FaultyFolder(FaultyFileSystem& files, std::unique_ptr<OpenFolder> folder, std::string path)
        : files_(files), folder_(std::move(folder)), path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override {
        TX_TRY(files_.Enter("List", path_));
        return folder_->List(listing);
    }

    Result<ObjectFacts> Facts(std::string_view name) override {
        const std::string path = text::JoinPath(path_, name);
        TX_TRY(files_.Enter("FolderFacts", path));
        return folder_->Facts(name);
    }

  private:
    FaultyFileSystem& files_;
    std::unique_ptr<OpenFolder> folder_;
    std::string path_;
};

class FaultyStream : public TextStream {
  public:
    FaultyStream(FaultyFileSystem& files, std::unique_ptr<TextStream> stream, std::string path)
        : files_(files), stream_(std::move(stream)), path_(std::move(path)) {}

    bool AtEndOfStream() const override { return stream_->AtEndOfStream(); }

    Result<std::string> ReadLine() override {
        TX_TRY(files_.Enter("ReadLine", path_));
        return stream_->ReadLine();
    }

    Result<void> Write(std::string_view text) override {
        TX_TRY(files_.Enter("Write", path_));
        return stream_->Write(text);
    }

    Result<void> Flush() override {
        TX_TRY(files_.Enter("Flush", path_));
        return stream_->Flush();
    }

    Result<void> Close() override {
        TX_TRY(files_.Enter("Close", path_));
        return stream_->Close();
    }

  private:
    FaultyFileSystem& files_;
    std::unique_ptr<TextStream> stream_;
    std::string path_;
};
} // namespace

void FaultyFileSystem::FailCall(std::size_t number, int error) {
    faults_.push_back({{}, {}, number, error, {}});
}

void FaultyFileSystem::FailCall(std::string_view operation, std::size_t number, int error) {
    faults_.push_back({std::string(operation), {}, number, error, {}});
}

void FaultyFileSystem::FailAll(std::string_view operation, int error) {
    faults_.push_back({std::string(operation), {}, 0, error, {}});
}

void FaultyFileSystem::FailPath(std::string_view path, int error, std::string_view operation) {
    faults_.push_back({std::string(operation), PathKey(path), 0, error, {}});
}

void FaultyFileSystem::BeforeCall(std::size_t number, std::function<void()> action) {
    faults_.push_back({{}, {}, number, 0, std::move(action)});
}

void FaultyFileSystem::BeforeCall(std::string_view operation, std::size_t number,
                                  std::function<void()> action) {
    faults_.push_back({std::string(operation), {}, number, 0, std::move(action)});
}

std::size_t FaultyFileSystem::Count(std::string_view operation) const {
    const auto found = counts_.find(operation);
    return found == counts_.end() ? 0 : found->second;
}

void FaultyFileSystem::ResetCounts() {
    calls_.clear();
    counts_.clear();
}

bool FaultyFileSystem::Applies(const Fault& fault, const Call& call, std::size_t ofAll,
                               std::size_t ofOperation) const {
    if (!fault.operation.empty() && fault.operation != call.operation) return false;
    const std::size_t number = fault.operation.empty() ? ofAll : ofOperation;
    if (fault.number != 0 && fault.number != number) return false;
    return fault.path.empty() || fault.path == PathKey(call.path) ||
           fault.path == PathKey(call.target);
}

Result<void> FaultyFileSystem::Enter(std::string_view operation, std::string_view path,
                                     std::string_view target) {
    const Call call{std::string(operation), std::string(path), std::string(target)};
    calls_.push_back(call);
    const std::size_t ofAll = calls_.size();
    const std::size_t ofOperation = ++counts_[call.operation];
    if (faults_.empty()) return {};
    // A copy, since an action may set and clear faults and make calls of its own.
    const std::vector<Fault> faults = faults_;
    int error = 0;
    for (const Fault& fault : faults) {
        if (!Applies(fault, call, ofAll, ofOperation)) continue;
        if (fault.action) fault.action();
        if (error == 0) error = fault.error;
    }
    if (error == 0) return {};
    return TreeFailure(error, call.path);
}

Result<ObjectFacts> FaultyFileSystem::Facts(std::string_view path) {
    TX_TRY(Enter("Facts", path));
    return files_.Facts(path);
}

Result<Look> FaultyFileSystem::LookAtSeen(const SeenObject& seen) {
    TX_TRY(Enter("Facts", seen.path));
    return files_.LookAtSeen(seen);
}

Result<void> FaultyFileSystem::CopyFileTo(const Look& from, const FreePlace& to,
                                          const CopyObserver& observer) {
    TX_TRY(Enter("CopyFile", from.path, to.path));
    return files_.CopyFileTo(from, to, observer);
}

Result<void> FaultyFileSystem::MoveFileTo(const Look& from, const FreePlace& to,
                                          const CopyObserver& observer) {
    TX_TRY(Enter("MoveFile", from.path, to.path));
    return files_.MoveFileTo(from, to, observer);
}

Result<void> FaultyFileSystem::MoveFolderTo(const Look& from, const FreePlace& to) {
    TX_TRY(Enter("MoveFolder", from.path, to.path));
    return files_.MoveFolderTo(from, to);
}

Result<std::unique_ptr<UnnamedCopy>> FaultyFileSystem::PrepareFileOf(const Look& from,
                                                                     std::string_view to,
                                                                     const CopyObserver& observer) {
    TX_TRY(Enter("CopyFile", from.path, to));
    TX_TRY_ASSIGN(auto copy, files_.PrepareFileOf(from, to, observer));
    return std::make_unique<FaultyCopy>(*this, std::move(copy), from.path, to);
}

Result<std::unique_ptr<UnnamedCopy>>
FaultyFileSystem::PrepareFolderOf(const Look& from, std::string_view to,
                                  const CopyObserver& observer) {
    TX_TRY(Enter("CopyFolder", from.path, to));
    TX_TRY_ASSIGN(auto copy, files_.PrepareFolderOf(from, to, observer));
    return std::make_unique<FaultyCopy>(*this, std::move(copy), from.path, to);
}

Result<void> FaultyFileSystem::SetAttributesOf(const Look& object, std::uint32_t attributes) {
    TX_TRY(Enter("SetAttributes", object.path));
    return files_.SetAttributesOf(object, attributes);
}

Result<void> FaultyFileSystem::DeleteFileOf(const Look& object, bool force) {
    TX_TRY(Enter("DeleteFile", object.path));
    return files_.DeleteFileOf(object, force);
}

Result<void> FaultyFileSystem::RemoveFolderOf(const Look& object) {
    TX_TRY(Enter("RemoveFolder", object.path));
    return files_.RemoveFolderOf(object);
}

Result<std::string> FaultyFileSystem::TruePath(std::string_view path) {
    TX_TRY(Enter("TruePath", path));
    return files_.TruePath(path);
}

Result<bool> FaultyFileSystem::Holds(std::string_view outer, std::string_view inner) {
    TX_TRY(Enter("Holds", outer, inner));
    return files_.Holds(outer, inner);
}

Result<std::string> FaultyFileSystem::ShortPath(std::string_view path) {
    TX_TRY(Enter("ShortPath", path));
    return files_.ShortPath(path);
}

Result<std::unique_ptr<OpenFolder>> FaultyFileSystem::Open(std::string_view folder) {
    TX_TRY(Enter("Open", folder));
    TX_TRY_ASSIGN(auto opened, files_.Open(folder));
    return std::make_unique<FaultyFolder>(*this, std::move(opened), std::string(folder));
}

Result<void> FaultyFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes) {
    TX_TRY(Enter("SetAttributes", path));
    return files_.SetAttributes(path, attributes);
}

Result<void> FaultyFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                        const CopyObserver& observer) {
    TX_TRY(Enter("CopyFile", from, to));
    return files_.CopyFile(from, to, overwrite, observer);
}

Result<void> FaultyFileSystem::CopyFolder(std::string_view from, std::string_view to,
                                          bool overwrite, const CopyObserver& observer) {
    TX_TRY(Enter("CopyFolder", from, to));
    return files_.CopyFolder(from, to, overwrite, observer);
}

Result<std::unique_ptr<UnnamedCopy>> FaultyFileSystem::PrepareFile(std::string_view from,
                                                                   std::string_view to,
                                                                   const CopyObserver& observer) {
    TX_TRY(Enter("CopyFile", from, to));
    TX_TRY_ASSIGN(auto copy, files_.PrepareFile(from, to, observer));
    return std::make_unique<FaultyCopy>(*this, std::move(copy), from, to);
}

Result<std::unique_ptr<UnnamedCopy>> FaultyFileSystem::PrepareFolder(std::string_view from,
                                                                     std::string_view to,
                                                                     const CopyObserver& observer) {
    TX_TRY(Enter("CopyFolder", from, to));
    TX_TRY_ASSIGN(auto copy, files_.PrepareFolder(from, to, observer));
    return std::make_unique<FaultyCopy>(*this, std::move(copy), from, to);
}

Result<std::vector<std::string>> FaultyFileSystem::RemoveAbandoned(std::string_view folder) {
    TX_TRY(Enter("RemoveAbandoned", folder));
    return files_.RemoveAbandoned(folder);
}

std::optional<FreePlace> FaultyFileSystem::KnownFree(std::string_view path) {
    if (!Enter("KnownFree", path)) return std::nullopt;
    const auto facts = files_.Facts(path);
    if (refusesMoves_ || facts || facts.error().number != kFileNotFound) return std::nullopt;
    return FreePlace{std::string(path), nullptr};
}

bool FaultyFileSystem::HandMove(const Look& from, const FreePlace& to, MoveNote note) {
    if (refusesMoves_ || hasRefused_) return false;
    ++handedCount_;
    handed_.push_back({from, to, std::move(note)});
    if (!holdsMoves_) MakeHanded();
    return true;
}

void FaultyFileSystem::MakeHanded() {
    while (!handed_.empty() && !hasRefused_) {
        const HandedMove& move = handed_.front();
        const bool isAstray = move.from.path == astray_;
        if (isAstray) told_.astray = PlatformError{kChangedSinceSearch, "went astray"};
        if (isAstray || !MoveFileTo(move.from, move.to, {})) {
            hasRefused_ = true;
            return;
        }
        if (move.note.stream) {
            auto written = move.note.stream->Write(move.note.text);
            if (written) written = move.note.stream->Flush();
            if (!written && !told_.unwritten) told_.unwritten = written.error();
        }
        ++told_.made;
        handed_.pop_front();
    }
}

HandedMoves FaultyFileSystem::TakeHanded(MoveWait wait) {
    if (wait != MoveWait::kNone && wait != MoveWait::kStop) MakeHanded();
    HandedMoves told = std::exchange(told_, {});
    if (std::exchange(hasRefused_, false) || wait == MoveWait::kStop) {
        told.left = handed_.size();
        handed_.clear();
    }
    return told;
}

Result<void> FaultyFileSystem::MoveFile(std::string_view from, std::string_view to,
                                        const CopyObserver& observer) {
    TX_TRY(Enter("MoveFile", from, to));
    return files_.MoveFile(from, to, observer);
}

Result<void> FaultyFileSystem::MoveFolder(std::string_view from, std::string_view to) {
    TX_TRY(Enter("MoveFolder", from, to));
    return files_.MoveFolder(from, to);
}

Result<void> FaultyFileSystem::DeleteFile(std::string_view path, bool force) {
    TX_TRY(Enter("DeleteFile", path));
    return files_.DeleteFile(path, force);
}

Result<void> FaultyFileSystem::RemoveFolder(std::string_view path) {
    TX_TRY(Enter("RemoveFolder", path));
    return files_.RemoveFolder(path);
}

Result<void> FaultyFileSystem::CreateFolder(std::string_view path) {
    TX_TRY(Enter("CreateFolder", path));
    return files_.CreateFolder(path);
}

Result<std::string> FaultyFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                                std::size_t count) {
    TX_TRY(Enter("ReadBytes", path));
    return files_.ReadBytes(path, offset, count);
}

Result<std::unique_ptr<TextStream>> FaultyFileSystem::CreateTextFile(std::string_view path,
                                                                     bool overwrite) {
    TX_TRY(Enter("CreateTextFile", path));
    TX_TRY_ASSIGN(auto stream, files_.CreateTextFile(path, overwrite));
    return std::make_unique<FaultyStream>(*this, std::move(stream), std::string(path));
}

Result<void> FaultyFileSystem::ReplaceContent(std::string_view path, std::string_view from) {
    TX_TRY(Enter("ReplaceContent", path, from));
    return files_.ReplaceContent(path, from);
}

Result<std::unique_ptr<TextStream>> FaultyFileSystem::OpenAsTextStream(std::string_view path,
                                                                       OpenMode mode) {
    TX_TRY(Enter("OpenAsTextStream", path));
    TX_TRY_ASSIGN(auto stream, files_.OpenAsTextStream(path, mode));
    return std::make_unique<FaultyStream>(*this, std::move(stream), std::string(path));
}

} // namespace tarvix::platform
