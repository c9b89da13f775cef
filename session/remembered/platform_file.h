#pragma once

#include "session/settings/platform_settings.h"

#include <string>
#include <string_view>

namespace tarvix::platform {
class FileSystem;
}

namespace tarvix::session {

struct Session;

// The settings in the file of that drive path; what it lacks, and all where there is none, is as
// usual on a machine of these traits.
PlatformSettings ReadPlatformFile(platform::FileSystem& files, std::string_view path,
                                  const platform::Traits& traits = {});

// Reads `strPlatformFile` into `platformSettings`; lines that aren't understood are logged.
void OpenPlatformFile(Session& session);
// Notes the letters that mounts have now and writes the file, if anything in it changed. After a
// failure, which is told, the old file stands.
void SavePlatformFile(Session& session);

// A drive path as written lists have it: native unless the settings say otherwise, and as it is
// where it has no native form.
std::string PathForList(const Session& session, std::string_view drivePath);

} // namespace tarvix::session
