#pragma once

#include "session/settings/platform_settings.h"

namespace tarvix::fields {
class FrmOptions;
}
namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Makes a field for each setting that a user sets, once.
void MakeMachineFields(fields::FrmOptions& form);
void ShowMachine(fields::FrmOptions& form, const session::PlatformSettings& settings);
// The drives with their letters, those that have one for this run alone among them.
void ShowDrives(session::Session& session);

// Takes what the page has into `settings`. False, told and shown, with nothing to be kept, when a
// value is none.
bool ReadMachine(session::Session& session, session::PlatformSettings& settings);

// The events of the page.
void AddMachineEvents(session::EventTable& events);

} // namespace tarvix::options
