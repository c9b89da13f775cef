#include "platform/linux/file_copier.h"
#include "platform/linux/folder_copier.h"
#include "platform/linux/folder_reader.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/native_facts.h"
#include "platform/linux/temporary.h"
#include "platform/linux/tree_size.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/characters.h"
#include "text/paths.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace tarvix::platform {

namespace {
// What lies ready to be named. Destroyed before that, nothing of it is left.
class Nameless {
  public:
    virtual ~Nameless() = default;
    virtual Sys<void> NameAs(At to) = 0;
    virtual std::string Missing() const { return {}; }
};

class NamelessFile : public Nameless {
  public:
    explicit NamelessFile(PartFile part) : part_(std::move(part)) {}
    Sys<void> NameAs(At to) override { return part_.Commit(to, false); }

  private:
    PartFile part_;
};

// A link is whole from the moment it is made.
class NamelessLink : public Nameless {
  public:
    NamelessLink(std::string text, const struct statx& st) : text_(std::move(text)), st_(st) {}
    Sys<void> NameAs(At to) override {
        if (::symlinkat(text_.c_str(), to.folder, to.name) != 0) return std::unexpected(errno);
        KeepLinkFacts(st_, to.folder, to.name);
        return {};
    }

  private:
    std::string text_;
    struct statx st_;
};

// Folders can't be without a name: so they bear a hidden one beside the place that they are for. A
// list of what is still missing, kept beside a folder under its final name, would let the next run
// complete it; but who looks at the disk in between would take a part for the whole.
class NamelessFolder : public Nameless {
  public:
    static Sys<std::unique_ptr<NamelessFolder>> Make(int outer, const CopyRoads& roads) {
        auto made = std::unique_ptr<NamelessFolder>(new NamelessFolder(outer, roads));
        const At at = made->Here();
        if (::mkdirat(at.folder, at.name, 0700) != 0) {
            const int error = errno;
            made->name_.clear();
            return std::unexpected(error);
        }
        TX_TRY_ASSIGN(made->held_, OpenAt(at, O_RDONLY | O_DIRECTORY | O_NOFOLLOW));
        LockTemporary(made->held_.Get());
        return made;
    }
    NamelessFolder(const NamelessFolder&) = delete;
    NamelessFolder& operator=(const NamelessFolder&) = delete;
    ~NamelessFolder() override {
        if (!name_.empty()) (void)RemoveTemporary(outer_, name_);
    }

    At Here() const { return {outer_, name_.c_str()}; }
    void SetMissing(std::string missing) { missing_ = std::move(missing); }
    std::string Missing() const override { return missing_; }
    Sys<void> NameAs(At to) override {
        TX_TRY(RenameWithoutReplacing(Here(), to, true, roads_));
        name_.clear();
        held_.Reset();
        return {};
    }

  private:
    NamelessFolder(int outer, const CopyRoads& roads)
        : outer_(outer), name_(TemporaryName()), roads_(roads) {}

    int outer_;
    std::string name_; // empty once it has its own
    UniqueFd held_;
    CopyRoads roads_;
    std::string missing_;
};

Result<std::unique_ptr<Nameless>> MakeFileOrLink(const CopyItem& item, CopyRun& run) {
    if (IsSpecial(item.st)) return SpecialFailure(item.sourcePath);
    if (!run.Begin(item.sourcePath)) return FailureBy(kInterrupted, item.sourcePath);
    if (S_ISLNK(item.st.stx_mode)) {
        TX_TRY_ASSIGN(std::string text, Named(LinkText(item.source), item.sourcePath));
        return std::make_unique<NamelessLink>(std::move(text), item.st);
    }
    TX_TRY_ASSIGN(PartFile part, MakePart(item, item.targetFolder, run));
    return std::make_unique<NamelessFile>(std::move(part));
}
} // namespace

class LinuxFileSystem::Prepared : public UnnamedCopy {
  public:
    Prepared(LinuxFileSystem& files, Resolved target, std::string path, UniqueFd folder)
        : files_(files), target_(std::move(target)), path_(std::move(path)),
          folder_(std::move(folder)) {
        // So it will be spelled, whatever stands there so far.
        std::string other;
        target_.native = target_.WantedPath(other);
        name_ = target_.NativeName();
    }

    int Folder() const { return folder_.Get(); }
    void Hold(std::unique_ptr<Nameless> object) { object_ = std::move(object); }
    std::string Missing() const override { return object_->Missing(); }

    Result<void> Name() override {
        const auto named = object_->NameAs({folder_.Get(), name_.c_str()});
        if (!named) {
            files_.store_.Forget(target_.Folder());
            return FailureOf(named.error(), path_);
        }
        files_.store_.Forget(target_.native);
        files_.NoteMade(target_);
        return {};
    }

  private:
    LinuxFileSystem& files_;
    Resolved target_;
    std::string path_;
    std::string name_;
    UniqueFd folder_;
    std::unique_ptr<Nameless> object_; // lies in the folder, so it goes first
};

using Copied = Result<std::unique_ptr<UnnamedCopy>>;

Copied LinuxFileSystem::PrepareFile(std::string_view from, std::string_view to,
                                    const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.File(from));
    return PrepareFile(source, from, to, observer);
}

Copied LinuxFileSystem::PrepareFileOf(const Look& from, std::string_view to,
                                      const CopyObserver& observer) {
    Resolved anew;
    TX_TRY_ASSIGN(const auto* const source, SourceOf(from, anew));
    return PrepareFile(*source, from.path, to, observer);
}

Copied LinuxFileSystem::PrepareFile(const Resolved& source, std::string_view from,
                                    std::string_view to, const CopyObserver& observer) {
    TX_TRY_ASSIGN(Resolved target, resolver_.Target(to));
    TX_TRY_ASSIGN(UniqueFd folder, OpenFolderOf(target, to));
    TX_TRY_ASSIGN(const Location in, Named(LocationOf(source, store_), from));
    auto prepared =
        std::make_unique<Prepared>(*this, std::move(target), std::string(to), std::move(folder));
    CopyRun run(observer, roads_, false);
    if (S_ISREG(source.st->stx_mode)) run.SetTotal(source.st->stx_size);
    const bool isSeen = source.around != nullptr;
    TX_TRY_ASSIGN(
        auto object,
        MakeFileOrLink({in, *source.st, from, prepared->Folder(), nullptr, to, isSeen}, run));
    prepared->Hold(std::move(object));
    return prepared;
}

Copied LinuxFileSystem::PrepareFolder(std::string_view from, std::string_view to,
                                      const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.Folder(from));
    return PrepareFolder(source, from, to, observer);
}

Copied LinuxFileSystem::PrepareFolderOf(const Look& from, std::string_view to,
                                        const CopyObserver& observer) {
    Resolved anew;
    TX_TRY_ASSIGN(const auto* const source, FolderOf(from, anew));
    return PrepareFolder(*source, from.path, to, observer);
}

Copied LinuxFileSystem::PrepareFolder(const Resolved& source, std::string_view from,
                                      std::string_view to, const CopyObserver& observer) {
    if (!S_ISDIR(source.st->stx_mode)) return PrepareFile(source, from, to, observer);
    TX_TRY_ASSIGN(Resolved target, resolver_.Target(to));
    TX_TRY_ASSIGN(UniqueFd folder, OpenFolderOf(target, to));
    if (IsWithin(folder.Get(), *source.st)) return IntoItselfFailure(from, to);
    auto opened = OpenItself(source);
    if (!opened && opened.error() == EREMCHG) return FailureBy(kChangedSinceSearch, from);
    TX_TRY_ASSIGN(UniqueFd in, Named(std::move(opened), from));
    auto prepared =
        std::make_unique<Prepared>(*this, std::move(target), std::string(to), std::move(folder));
    TX_TRY_ASSIGN(auto object, Named(NamelessFolder::Make(prepared->Folder(), roads_), to));
    TX_TRY_ASSIGN(UniqueFd out,
                  Named(OpenAt(object->Here(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW), to));
    CopyRun run(observer, roads_, false);
    run.ahead = Ahead();
    run.isInside = true;
    auto again = run.IsObserved() ? OpenItself(source) : Sys<UniqueFd>();
    TreeSize size(again ? std::move(*again) : UniqueFd(), source.start->drives, roads_.sizeAfter);
    run.size = &size;
    FolderCopier copier(run, source.Drives(), from, to);
    TX_TRY(copier.Copy(std::move(in), std::move(out), true));
    object->SetMissing(copier.Skipped());
    prepared->Hold(std::move(object));
    return prepared;
}

std::vector<std::string> LinuxFileSystem::TemporariesIn(int folder) {
    std::vector<std::string> found;
    const auto keep = [&found](std::string_view name) {
        if (MakerOfTemporary(name) != 0) found.emplace_back(name);
    };
    const auto st = StatOf(folder);
    if (const auto kept = st ? listings_->FindNames(*st) : nullptr) {
        for (std::size_t i = 0; i < kept->Size(); ++i)
            keep((*kept)[i].name);
        return found;
    }
    FolderReader reader(folder, true);
    for (FolderReader::Entry entry{}; reader.Next(entry);)
        keep(entry.name);
    return found;
}

Result<std::vector<std::string>> LinuxFileSystem::RemoveAbandoned(std::string_view folder) {
    Resolved place;
    if (resolver_.KnownFree(folder, place)) return FailureBy(kPathNotFound, folder);
    if (!place.start) TX_TRY(resolver_.ByText(folder, place));
    TX_TRY_ASSIGN(const Location location, Named(Locate(place.native), folder));
    TX_TRY_ASSIGN(const UniqueFd fd, Named(OpenAt(location, O_RDONLY | O_DIRECTORY), folder));
    std::vector<std::string> found = TemporariesIn(fd.Get());
    std::erase_if(found,
                  [&fd](const std::string& name) { return !RemoveIfAbandoned(fd.Get(), name); });
    for (std::string& name : found) {
        store_.NoteRemoved(text::Concat({place.native, "/", name}));
        name = text::JoinPath(folder, NameToDrive(name));
    }
    if (!found.empty()) NoteChanged();
    return found;
}

} // namespace tarvix::platform
