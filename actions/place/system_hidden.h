#pragma once

#include "platform/object_facts.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Whether an object is protected and must not be overwritten, moved or deleted: it is hidden or a
// system object and the user did not say otherwise. Asks, logs the answer, and keeps one for all.
// A plain copy or move of such an object goes on as a copy, which is told once for the whole run.
// `read` gets the object's facts, if they could be read.
bool CheckSystemHidden(session::Session& session, const std::string& object,
                       const std::string& actual, bool blnIsFile, bool blnOverwriting,
                       std::optional<platform::ObjectFacts>* read = nullptr);
// The same with the object's attributes known.
bool IsProtected(session::Session& session, const std::string& object, std::uint32_t attributes,
                 bool blnIsFile, bool blnOverwriting);

} // namespace tarvix::actions
