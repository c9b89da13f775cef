#pragma once

#include "forms/completion.h"

class QObject;

namespace tarvix::fields {
class Control;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

// The folders below what is typed into a box of paths, as the disk has them, in the form that the
// box shows; of a list of paths those for its last one. Names with a dot in front come when a dot
// is typed. All must live as long as `parent`.
FolderOffers MakeFolderOffers(session::Session& session, const fields::Control& control,
                              QObject& parent);

} // namespace tarvix::forms
