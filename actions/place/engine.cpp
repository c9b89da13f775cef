#include "actions/place/engine.h"

#include "actions/place/placing.h"
#include "actions/place/system_hidden.h"
#include "results/selection.h"
#include "text/characters.h"
#include "text/paths.h"

#include <optional>

namespace tarvix::actions {

namespace {

constexpr std::uint32_t kCarried = 1 + 2 + 4 + 32;

} // namespace

std::string CleanedDestination(const std::string& path, bool isRename) {
    const std::string_view own = text::FolderOwnName(path);
    const std::string_view name = text::Trim(own);
    const std::string_view above = text::GetParentFolderName(path);
    const bool isPlain = name.size() == own.size() && !own.empty() &&
                         above.size() + 1 + own.size() == path.size() &&
                         (isRename || text::IsCleanPath(above, true));
    if (isPlain) return path;
    const std::string parent = text::ParentFolder(path);
    return text::JoinPath(isRename ? parent : text::CleanSpacesInPath(parent, true),
                          name.empty() ? own : name);
}

std::uint32_t CombineAttributes(std::uint32_t a, std::uint32_t b) {
    return (a | b) & kCarried;
}

void CopyObject(Session& session, const std::string& strSource, const std::string& strSourceActual,
                std::string strDestination, bool blnIsFile, std::string_view strMode) {
    Placing(session, Verb::kCopy, strSource, strSourceActual, std::move(strDestination), blnIsFile,
            strMode)
        .Run();
}

void MoveObject(Session& session, const std::string& strSource, const std::string& strSourceActual,
                std::string strDestination, bool blnIsFile, bool blnIsRename,
                std::string_view strMode) {
    Placing(session, blnIsRename ? Verb::kRename : Verb::kMove, strSource, strSourceActual,
            std::move(strDestination), blnIsFile, strMode)
        .Run();
}

void OverWriteDuplicate(Session& session) {
    const auto& tables = *session.selection;
    const auto& action = session.state.action;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    if (action.strDestination == tables.strSelPath[index]) return;
    CopyObject(session, tables.strSelPath[index], tables.strSelActualPath[index],
               action.strDestination, tables.blnSelIsFile[index], "overwrite");
}

void PerformMoveOrCopy(Session& session) {
    const auto& tables = *session.selection;
    const auto& action = session.state.action;
    if (action.blnNoDestination) return;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    const std::string& path = tables.strSelPath[index];
    const std::string& actual = tables.strSelActualPath[index];
    const bool isFile = tables.blnSelIsFile[index];
    std::optional<ObjectFacts> facts;
    const bool isProtected = CheckSystemHidden(session, path, actual, isFile, false, &facts);
    const Verb verb = action.blnMove && !isProtected ? Verb::kMove : Verb::kCopy;
    Placing(session, verb, path, actual, action.strDestination, isFile, "").Knowing(facts).Run();
}

} // namespace tarvix::actions
