#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Whether a rule can be used; if not the user is told why. Sets what `SpecialRuleConvert` needs of
// its marks: "*n*" for one character of an object's path, "|a,b|" for the folder whose name holds
// `b` characters of that path from `a` on.
bool ValidateSpecialRule(session::Session& session, std::string_view rule);

// The folder that a valid rule gives for the object listed as `path` (drive path), without a final
// "\"; empty when it gives none, logged and counted. Looks at the disk only for a Search Set. A
// path too long to search sets `blnPathLimitHit`. With `blnDuplicateRename` nothing is counted or
// logged.
std::string SpecialRuleConvert(session::Session& session, std::string_view path, std::string rule);

} // namespace tarvix::actions
