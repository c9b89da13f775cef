#include "actions/place/object.h"

#include "results/selection.h"

namespace tarvix::actions {

Object ObjectAt(const results::Selection& selection, std::size_t index) {
    return {.index = index,
            .name = selection.strSelName[index],
            .path = selection.strSelPath[index],
            .actual = selection.strSelActualPath[index],
            .relative = selection.strSelRelPath[index],
            .isFile = selection.blnSelIsFile[index],
            .look = {}};
}

} // namespace tarvix::actions
