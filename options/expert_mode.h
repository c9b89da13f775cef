#pragma once

#include "session/settings/options.h"

namespace tarvix::fields {
class FrmOptions;
}
namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Enables what Expert Mode opens and disables what it replaces, or the reverse. No value changes.
void LockByExpertMode(fields::FrmOptions& form);
// Chooses the pattern that the ten boxes are in, or none.
void ShowPattern(session::Session& session, fields::FrmOptions& form);

// The events of Expert Mode, of the attribute patterns and of the ten boxes.
void AddExpertModeEvents(session::EventTable& events);

} // namespace tarvix::options
