#pragma once

#include <array>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

// The new path that the first selected object would get under each folder structure, with what is
// chosen and typed now; empty where that can't be told yet.
std::array<std::string, 4> DestinationExamples(const session::Session& session);

// All that the examples depend on, as one text.
std::string ExampleKey(const session::Session& session);

} // namespace tarvix::forms
