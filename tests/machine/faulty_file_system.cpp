#include "tests/machine/faulty_file_system.h"

#include "text/case.h"
#include "text/paths.h"

namespace tarvix::platform {

namespace {
std::string PathKey(std::string_view path) {
    return text::Upper(text::StripTrailingSlash(path));
}

class FaultyFolder : public OpenFolder {
  public:
    FaultyFolder(FaultyFileSystem& files, std::unique_ptr<OpenFolder> folder, std::string path)
        : files_(files), folder_(std::move(folder)), path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override {
        if (auto may = files_.Enter("List", path_); !may) return may;
        return folder_->List(listing);
    }

    Result<ObjectFacts> Facts(std::string_view name) override {
        const std::string path = text::JoinPath(path_, name);
        if (auto may = files_.Enter("FolderFacts", path); !may) {
            return std::unexpected(may.error());
        }
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
        if (auto may = files_.Enter("ReadLine", path_); !may) return std::unexpected(may.error());
        return stream_->ReadLine();
    }

    Result<void> Write(std::string_view text) override {
        if (auto may = files_.Enter("Write", path_); !may) return may;
        return stream_->Write(text);
    }

    Result<void> Flush() override {
        if (auto may = files_.Enter("Flush", path_); !may) return may;
        return stream_->Flush();
    }

    Result<void> Close() override {
        if (auto may = files_.Enter("Close", path_); !may) return may;
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
    return Failure(error, call.path + ": " + ErrorText(error) + ".");
}

Result<ObjectFacts> FaultyFileSystem::Facts(std::string_view path) {
    if (auto may = Enter("Facts", path); !may) return std::unexpected(may.error());
    return files_.Facts(path);
}

Result<std::string> FaultyFileSystem::TruePath(std::string_view path) {
    if (auto may = Enter("TruePath", path); !may) return std::unexpected(may.error());
    return files_.TruePath(path);
}

Result<bool> FaultyFileSystem::Holds(std::string_view outer, std::string_view inner) {
    if (auto may = Enter("Holds", outer, inner); !may) return std::unexpected(may.error());
    return files_.Holds(outer, inner);
}

Result<std::string> FaultyFileSystem::ShortPath(std::string_view path) {
    if (auto may = Enter("ShortPath", path); !may) return std::unexpected(may.error());
    return files_.ShortPath(path);
}

Result<std::unique_ptr<OpenFolder>> FaultyFileSystem::Open(std::string_view folder) {
    if (auto may = Enter("Open", folder); !may) return std::unexpected(may.error());
    auto opened = files_.Open(folder);
    if (!opened) return opened;
    return std::make_unique<FaultyFolder>(*this, std::move(*opened), std::string(folder));
}

Result<void> FaultyFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes) {
    if (auto may = Enter("SetAttributes", path); !may) return may;
    return files_.SetAttributes(path, attributes);
}

Result<void> FaultyFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                        const CopyObserver& observer) {
    if (auto may = Enter("CopyFile", from, to); !may) return may;
    return files_.CopyFile(from, to, overwrite, observer);
}

Result<void> FaultyFileSystem::CopyFolder(std::string_view from, std::string_view to,
                                          bool overwrite, const CopyObserver& observer) {
    if (auto may = Enter("CopyFolder", from, to); !may) return may;
    return files_.CopyFolder(from, to, overwrite, observer);
}

Result<void> FaultyFileSystem::MoveFile(std::string_view from, std::string_view to,
                                        const CopyObserver& observer) {
    if (auto may = Enter("MoveFile", from, to); !may) return may;
    return files_.MoveFile(from, to, observer);
}

Result<void> FaultyFileSystem::MoveFolder(std::string_view from, std::string_view to) {
    if (auto may = Enter("MoveFolder", from, to); !may) return may;
    return files_.MoveFolder(from, to);
}

Result<void> FaultyFileSystem::DeleteFile(std::string_view path, bool force) {
    if (auto may = Enter("DeleteFile", path); !may) return may;
    return files_.DeleteFile(path, force);
}

Result<void> FaultyFileSystem::RemoveFolder(std::string_view path) {
    if (auto may = Enter("RemoveFolder", path); !may) return may;
    return files_.RemoveFolder(path);
}

Result<void> FaultyFileSystem::CreateFolder(std::string_view path) {
    if (auto may = Enter("CreateFolder", path); !may) return may;
    return files_.CreateFolder(path);
}

Result<std::string> FaultyFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                                std::size_t count) {
    if (auto may = Enter("ReadBytes", path); !may) return std::unexpected(may.error());
    return files_.ReadBytes(path, offset, count);
}

Result<std::unique_ptr<TextStream>> FaultyFileSystem::CreateTextFile(std::string_view path,
                                                                     bool overwrite) {
    if (auto may = Enter("CreateTextFile", path); !may) return std::unexpected(may.error());
    auto stream = files_.CreateTextFile(path, overwrite);
    if (!stream) return stream;
    return std::make_unique<FaultyStream>(*this, std::move(*stream), std::string(path));
}

Result<std::unique_ptr<TextStream>> FaultyFileSystem::OpenAsTextStream(std::string_view path,
                                                                       OpenMode mode) {
    if (auto may = Enter("OpenAsTextStream", path); !may) return std::unexpected(may.error());
    auto stream = files_.OpenAsTextStream(path, mode);
    if (!stream) return stream;
    return std::make_unique<FaultyStream>(*this, std::move(*stream), std::string(path));
}

} // namespace tarvix::platform
