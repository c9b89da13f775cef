#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {

struct ErrorContext;
struct Session;

// What failed and why, as a window leads with it: the object as people read it and what could not
// be done to it, then the reason, which is a sentence.
std::string PlainText(const Session& session, const ErrorContext& context, std::string_view reason);

} // namespace tarvix::session
