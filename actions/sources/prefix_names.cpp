#include "actions/sources/clean_names.h"
#include "actions/sources/prefix_search.h"
#include "actions/sources/rename_each.h"
#include "actions/sources/rename_sources.h"
#include "actions/sources/source_list.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/attempt.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::string_view kRoutine = "RenameFromSelfSearch";

class PrefixSource {
  public:
    PrefixSource(Session& session, const std::vector<std::string>& prefixes)
        : session_(session), prefixes_(prefixes), search_(prefixes) {}

    NewName NameFor(std::size_t index);

  private:
    session::ErrorContext Context(std::size_t index) const;
    NewName NothingToSearch(std::size_t index);
    NewName Search(std::size_t index);

    Session& session_;
    const std::vector<std::string>& prefixes_;
    PrefixSearch search_;
    bool hasWarned_ = false;
};

session::ErrorContext PrefixSource::Context(std::size_t index) const {
    const auto& tables = *session_.selection;
    return {.routine = kRoutine,
            .moduleName = "frmDialog",
            .object = tables.strSelPath[index],
            .path = tables.strSelActualPath[index],
            .objectType = session::ObjectType::kFile};
}

NewName PrefixSource::NameFor(std::size_t index) {
    const auto& tables = *session_.selection;
    if (!tables.blnSelIsFile[index]) return NothingToSearch(index);
    session_.frmDialog.lblStatus.Caption =
        fmt::format("Searching {}", session_.Shown(tables.strSelPath[index]));
    const auto facts = session::Attempt(session_, Context(index), [&] {
        return platform::GetFile(session_.files(), tables.strSelActualPath[index]);
    });
    if (!facts) {
        const auto& error = facts.result.error();
        return NewName::Failed(error.number, session_.Shown(error));
    }
    return facts->size == 0 ? NothingToSearch(index) : Search(index);
}

NewName PrefixSource::NothingToSearch(std::size_t index) {
    const std::string told = fmt::format(" You have selected to rename a folder object or an empty "
                                         "file, {} nothing to search. ",
                                         session_.Shown(session_.selection->strSelPath[index]));
    session::LogTimed(session_, told);
    if (!std::exchange(hasWarned_, true)) {
        session::TellUnlessAuto(
            session_, session::PromptId::kNothingToSearch,
            fmt::format(
                "{}\r\n\r\nFor this action, you will get no more warnings about names like this."
                "\r\n\r\nThe warnings are placed in the Action Log, if you have turned it on."
                "\r\n\r\nTurning on 'Automatic Mode' will stop this message completely.",
                told));
    }
    const bool isFile = session_.selection->blnSelIsFile[index];
    return NewName::LeftAlone(isFile ? "an empty file" : "a folder has no text to search");
}

NewName PrefixSource::Search(std::size_t index) {
    const auto& tables = *session_.selection;
    const auto goesOn = [this] {
        session_.Yield();
        return !session_.state.blnStopAction;
    };
    auto found = session::Attempt(session_, Context(index), [&] {
        return search_.FirstIn(session_.files(), tables.strSelActualPath[index], goesOn);
    });
    if (!found) {
        const auto& error = found.result.error();
        return NewName::Failed(error.number, session_.Shown(error));
    }
    if (!*found) return {};
    const std::string prefix = CleanWebName(prefixes_[**found]);
    return {WithTextBefore(fmt::format("({})", prefix), tables.strSelName[index])};
}

} // namespace

SourceEnd RenameFromSelfSearch(Session& session, ActionRun& run, const std::string& strFile) {
    BeginRenaming(session);
    const auto prefixes = ReadSourceList(session, strFile, true);
    if (!prefixes) return SourceEnd::kRefused;
    NewNames names(session.selection->strSelPath.size());
    PrefixSource source(session, *prefixes);
    if (!ForEachSelected(session, [&](std::size_t index) { names[index] = source.NameFor(index); }))
        return SourceEnd::kStopped;
    return RenameEach(session, run, names, {.routine = kRoutine}).end;
}

} // namespace tarvix::actions
