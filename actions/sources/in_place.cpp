#include "actions/sources/in_place.h"

#include "actions/place/action_run.h"
#include "actions/place/duplicate_rename.h"
#include "actions/place/engine.h"
#include "actions/place/object.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/paths.h"

namespace tarvix::actions {

std::string InPlace::Now(std::string_view listed, std::size_t index) const {
    std::string path = folders_.Now(listed);
    const auto name = names_.find(index);
    if (name == names_.end()) return path;
    return text::ParentFolderSlash(path) + name->second;
}

std::string InPlace::Path(std::size_t index) const {
    return Now(session_.selection->strSelPath[index], index);
}

std::string InPlace::ActualPath(std::size_t index) const {
    return Now(session_.selection->strSelActualPath[index], index);
}

Outcome InPlace::Give(std::size_t index, const platform::FreePlace& place) {
    const std::string path = Path(index);
    const std::string actual = ActualPath(index);
    Object object = ObjectAt(*session_.selection, index);
    object.path = path;
    object.actual = actual;
    Outcome outcome = PlaceObject(
        session_, run_, {.object = object, .place = place, .verb = Verb::kRename, .wasFree = true});
    outcome.index = index;
    Note(index, outcome);
    return outcome;
}

Outcome InPlace::GiveUnique(std::size_t index, const std::string& path) {
    const std::string old = Path(index);
    const std::string actual = ActualPath(index);
    Object object = ObjectAt(*session_.selection, index);
    object.path = old;
    object.actual = actual;
    Outcome outcome = RenameObjForDuplicateLocal(session_, run_, object, path);
    outcome.index = index;
    outcome.isNewName = true;
    Note(index, outcome);
    return outcome;
}

void InPlace::Note(std::size_t index, const Outcome& outcome) {
    if (!outcome.isPlaced) return;
    const std::string name(text::FolderOwnName(outcome.strDestination));
    names_.insert_or_assign(index, name);
    const auto& tables = *session_.selection;
    if (tables.blnSelIsFile[index]) return;
    folders_.Note(tables.strSelPath[index], name);
    folders_.Note(tables.strSelActualPath[index], name);
}

} // namespace tarvix::actions
