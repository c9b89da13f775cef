#pragma once

#include "launch/custom/chosen.h"
#include "launch/custom/entry.h"
#include "platform/desktop.h"

#include <span>
#include <string_view>
#include <vector>

namespace tarvix::custom {

// The entries that files of each kind add for the objects, in the order of the menu. A file that
// can't be read, whatever its bytes, adds none; of two of one name the first counts.

// file-manager/actions/*.desktop: actions with profiles, and menus of them.
std::vector<CustomEntry> FileManagerEntries(platform::Desktop& desktop,
                                            std::span<const platform::ActionFile> files,
                                            const Chosen& chosen);
// kio/servicemenus/*.desktop, and the older ones that say they are for the menu of objects. Those
// without the right to run that aren't the system's are not trusted.
std::vector<CustomEntry> ServiceEntries(platform::Desktop& desktop,
                                        std::span<const platform::ActionFile> files,
                                        const Chosen& chosen);
// nemo/actions/*.nemo_action.
std::vector<CustomEntry> NemoEntries(platform::Desktop& desktop,
                                     std::span<const platform::ActionFile> files,
                                     const Chosen& chosen);
// Thunar/uca.xml: the first file alone counts.
std::vector<CustomEntry> ThunarEntries(platform::Desktop& desktop,
                                       std::span<const platform::ActionFile> files,
                                       const Chosen& chosen);
// The programs of one scripts folder; `prefix` is that of the variables they get.
std::vector<CustomEntry> ScriptEntries(std::span<const platform::ScriptFile> scripts,
                                       std::string_view prefix);

// All that the user and the system's packages have added for the objects, read anew.
std::vector<CustomEntry> AllEntries(platform::Desktop& desktop, const Chosen& chosen);

} // namespace tarvix::custom
