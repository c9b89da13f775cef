#include "generate/similar_comments.h"

#include "generate/list_paths.h"
#include "generate/playlist.h"
#include "generate/short_path_refusal.h"
#include "generate/similar_finder.h"
#include "generate/similar_patterns.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/errors.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/env_variables.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::generate {

namespace {

using session::Session;

std::string SizeText(std::int64_t size) {
    return text::Format(size, "0,000,000,000");
}

class SimilarSource : public ListSource {
  public:
    SimilarSource(Session& session, const ListRequest& request, std::unique_ptr<ListSource> list)
        : session_(session), selection_(*session.selection), paths_(session),
          deviation_(request.deviation), list_(std::move(list)) {}

    bool Read(const std::string& folder) { return finder_.Read(session_, folder); }
    const FileTree& Tree() const { return finder_.Tree(); }

    std::size_t Count() const override { return list_->Count(); }
    void AppendHead(std::string& out) override { list_->AppendHead(out); }
    Appended Append(std::size_t index, std::string& out) override {
        const Appended appended = list_->Append(index, out);
        if (appended != Appended::kWritten || !isOn_) return appended;
        return AppendSimilar(index, out) ? Appended::kWritten : Appended::kEndsRun;
    }
    void AppendEnd(std::string& out) override { list_->AppendEnd(out); }
    void AppendFooter(std::string& out) override { list_->AppendFooter(out); }
    std::int64_t Duplicates() const override { return duplicates_; }

  private:
    // False when the user cancelled what is left.
    bool AppendSimilar(std::size_t index, std::string& out);
    // The path to write, or nothing to pass on; a choice that stands may end the run.
    bool Shorten(std::string_view own, std::string& path);
    void AppendComment(const std::string& path, std::int64_t size, std::int64_t ownSize,
                       std::string& out);

    Session& session_;
    const results::Selection& selection_;
    ListPaths paths_;
    std::int64_t deviation_;
    std::unique_ptr<ListSource> list_;
    SimilarFinder finder_;
    std::int64_t duplicates_ = 0;
    bool isOn_ = true;
};

bool SimilarSource::AppendSimilar(std::size_t index, std::string& out) {
    const std::string_view own = selection_.strSelActualPath[index];
    const auto ownFacts = platform::GetFile(session_.files(), own);
    if (!ownFacts) return true;
    const auto ownSize = static_cast<std::int64_t>(ownFacts->size);
    const std::string base = SimilarBaseName(selection_.strSelName[index]);
    for (std::string& path : finder_.FindSimilar(base, own)) {
        const auto facts = platform::GetFile(session_.files(), path);
        if (!facts) continue; // it has gone since the folder was read
        const auto size = static_cast<std::int64_t>(facts->size);
        if (size < ownSize - deviation_ || size > ownSize + deviation_) continue;
        if (!Shorten(own, path)) return false;
        if (path.empty()) continue;
        AppendComment(path, size, ownSize, out);
    }
    return true;
}

bool SimilarSource::Shorten(std::string_view own, std::string& path) {
    if (paths_.IsNative() || !session::ExceedsLimit(session_, path, session::kLongPath))
        return true;
    session::AskLongPath(session_, own, path, "CopyToTextFile", "frmDialog", false);
    if (session_.state.bytPathChoice == session::kPathCancel) {
        session_.state.blnErrorOccurred = true;
        return false;
    }
    if (!session::ContinuesLongPath(session_)) {
        path.clear();
        return true;
    }
    const auto shortened = session::GetShortPathNameReturnCodes(session_, path);
    if (shortened.status < 2) {
        RefuseUnshortened(session_, path);
        session_.state.blnErrorOccurred = true;
        return false;
    }
    path = shortened.path;
    return true;
}

// A path that would break the line, or the file's encoding, stands as an address.
void SimilarSource::AppendComment(const std::string& path, std::int64_t size, std::int64_t ownSize,
                                  std::string& out) {
    std::string listed = paths_.Of(path);
    const bool isPlain = FitsInLine(listed) && text::IsValidUtf8(listed);
    if (!isPlain) listed = fmt::format("file://{}", PercentEncode(listed));
    out.append(kDuplicateMark).append(listed).append(" - ").append(SizeText(size));
    out.append(" ~ ").append(SizeText(ownSize)).append(kLineEnd);
    ++duplicates_;
}

} // namespace

std::string AskSimilarFolder(Session& session) {
    const bool isNewer = session.state.intOSVersion > 6000;
    const std::string start = session::RemoveEnvVarAndRestorePath(
        session, isNewer ? "%USERPROFILE%\\Music" : "%USERPROFILE%\\My Documents\\My Music");
    return session.PickFolder(session::PromptId::kPickDuplicateFolder, start);
}

std::unique_ptr<ListSource> WithSimilar(Session& session, const ListRequest& request,
                                        std::unique_ptr<ListSource> list,
                                        const std::string& folder) {
    auto source = std::make_unique<SimilarSource>(session, request, std::move(list));
    if (!source->Read(folder)) return nullptr;
    const std::size_t unreadable = source->Tree().Unreadable();
    if (unreadable > 0) {
        session::TellAndLog(
            session, session::PromptId::kSimilarUnreadable,
            fmt::format("{} {} below {} could not be read, so files of similar names in there are "
                        "not found.",
                        text::Format(unreadable, "#,##0"), unreadable == 1 ? "folder" : "folders",
                        session.Shown(folder)));
    }
    return source;
}

} // namespace tarvix::generate
