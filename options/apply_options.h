#pragma once

#include "session/settings/options.h"
#include "session/settings/platform_settings.h"

namespace tarvix::session {
struct Session;
}

namespace tarvix::options {

// Puts both in force: the main window shows them at once, and the list is sorted anew if its order
// changed. If its columns did, that is noted for when it comes to the front.
void ApplyOptions(session::Session& session, session::Options options,
                  session::PlatformSettings settings);

} // namespace tarvix::options
