#include "actions/place/action_run.h"
#include "actions/place/no_short_path.h"
#include "actions/sources/clean_names.h"
#include "actions/sources/page_finder.h"
#include "actions/sources/page_title.h"
#include "actions/sources/rename_each.h"
#include "actions/sources/rename_sources.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/attempt.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <unordered_map>
#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::string_view kRoutine = "RenameAsTitle";

bool IsPage(std::string_view path) {
    const std::string name = text::Lower(text::FolderOwnName(path));
    return name.ends_with(".htm") || name.ends_with(".html");
}

// The titles of pages, each read once.
class TitleSource {
  public:
    explicit TitleSource(Session& session) : session_(session), finder_(session.files()) {}

    NewName NameFor(std::size_t index);

  private:
    struct Title {
        std::string text; // clean; empty where the page has none
        bool isWhole = true;
        int errorNumber = 0;
        std::string error;
    };

    // The path of its page; empty without one. `isLeft`: a path was too long, and it stays.
    std::string PageFor(std::size_t index, bool& isLeft);
    std::string FirstPage(const std::string& folder, std::string_view base, bool& isLeft);
    const Title& TitleOf(std::size_t index, const std::string& page);
    NewName Without(std::size_t index, std::string_view told, std::string why);

    Session& session_;
    PageFinder finder_;
    std::unordered_map<std::string, Title> titles_; // by page
};

NewName TitleSource::NameFor(std::size_t index) {
    const auto& tables = *session_.selection;
    session_.frmDialog.lblStatus.Caption =
        fmt::format("Reading the title of {}", session_.Shown(tables.strSelPath[index]));
    bool isLeft = false;
    const std::string page = PageFor(index, isLeft);
    if (isLeft) return NewName::LeftAlone();
    if (page.empty()) return Without(index, " since no Html file was found.", "no web page found");
    const Title& title = TitleOf(index, page);
    if (title.errorNumber != 0) return NewName::Failed(title.errorNumber, title.error);
    if (!title.text.empty()) return {WithTextBefore(title.text, tables.strSelName[index])};
    if (title.isWhole) {
        return Without(index, " since no <TITLE> was found in the html file.",
                       "no title in its page");
    }
    return Without(index,
                   " since no <TITLE> was found in the html file. Only its first megabyte was "
                   "looked at.",
                   "no title in the first megabyte of its page");
}

NewName TitleSource::Without(std::size_t index, std::string_view told, std::string why) {
    session::LogTimed(session_,
                      fmt::format(" Was unable to rename {}{}",
                                  session_.Shown(session_.selection->strSelPath[index]), told));
    return NewName::LeftAlone(std::move(why));
}

std::string TitleSource::PageFor(std::size_t index, bool& isLeft) {
    const auto& tables = *session_.selection;
    const std::string_view path = tables.strSelActualPath[index];
    const bool isFile = tables.blnSelIsFile[index];
    if (isFile && IsPage(path)) return std::string(path);
    const std::string folder(isFile ? text::GetParentFolderName(path) : path);
    const std::string_view base = isFile ? text::GetBaseName(path) : text::FileNameOf(path);
    std::string page = FirstPage(folder, base, isLeft);
    if (page.empty() && !isLeft) page = FirstPage(folder, "", isLeft);
    return page;
}

std::string TitleSource::FirstPage(const std::string& folder, std::string_view base, bool& isLeft) {
    std::string place = folder;
    const std::string search = text::JoinPath(folder, fmt::format("{}*.htm*", base));
    if (session::ExceedsLimit(session_, search, session::kLongPath)) {
        session::AskLongPath(session_, search, "", kRoutine, "frmDialog");
        isLeft = !session::ContinuesLongPath(session_);
        session_.state.blnPathLimitHit = false;
        if (isLeft) return {};
        auto shortened = session::GetShortPathNameReturnCodes(session_, folder);
        isLeft = shortened.status < 2;
        if (isLeft) RefuseWithoutShortPath(session_, search, session::kLongPath);
        if (isLeft) return {};
        place = std::move(shortened.path);
    }
    const std::string& name = finder_.First(place, base);
    return name.empty() ? name : text::JoinPath(place, name);
}

const TitleSource::Title& TitleSource::TitleOf(std::size_t index, const std::string& page) {
    const auto [found, isNew] = titles_.try_emplace(page);
    Title& title = found->second;
    if (!isNew) return title;
    const std::string_view path = session_.selection->strSelPath[index];
    const session::ErrorContext context{.routine = kRoutine,
                                        .moduleName = "frmDialog",
                                        .object = path,
                                        .path = page,
                                        .objectType = session::ObjectType::kFile};
    const auto read = session::Attempt(session_, context, [&] {
        return ReadTitle(session_.files(), session_.platform.contentTypes, page);
    });
    if (!read) {
        title.errorNumber = read.result.error().number;
        title.error = session_.Shown(read.result.error());
        return title;
    }
    title.isWhole = read->isWhole;
    if (read->title) title.text = OnOneNameLine(CleanTitle(*read->title));
    return title;
}

} // namespace

SourceEnd RenameAsTitle(Session& session, ActionRun& run) {
    BeginRenaming(session);
    NewNames names(session.selection->strSelPath.size());
    TitleSource source(session);
    if (!ForEachSelected(session, [&](std::size_t index) { names[index] = source.NameFor(index); }))
        return SourceEnd::kStopped;
    return RenameEach(session, run, names, {.routine = kRoutine}).end;
}

} // namespace tarvix::actions
