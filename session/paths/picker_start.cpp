#include "session/paths/picker_start.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/paths/env_variables.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::session {

std::string PickerStart(Session& session, std::string_view typed) {
    typed = text::StripTrailingBar(text::Trim(typed));
    const std::size_t bar = typed.rfind('|');
    const std::string_view last = bar == typed.npos ? typed : typed.substr(bar + 1);
    std::string folder = session.platform.paths.ToDrive(text::Trim(last));
    if (folder.find('%') != folder.npos) folder = RemoveEnvVarAndRestorePath(session, folder);
    while (!folder.empty() && !platform::GetFolder(session.files(), folder)) {
        folder = std::string(text::GetParentFolderName(folder));
    }
    return folder;
}

} // namespace tarvix::session
