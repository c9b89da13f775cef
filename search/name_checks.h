#pragma once

#include "text/like.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// The exact test of a name against one search string, prepared once: "*" and "?" are wildcards,
// "[" and "#" stand for themselves, carried characters count as what they carry, case doesn't
// count. With `chkNot` the result is inverted.
class NameMatch {
  public:
    NameMatch(std::string_view searchString, bool isNot);
    bool CheckNameMatch(std::string_view name) const { return Fits(name) != isNot_; }

  private:
    bool Fits(std::string_view name) const;

    text::LikePattern pattern_;
    bool isNot_;
};

// Whether a file of that name may get a row: it can be opened, and doesn't end in a blank.
bool IsListable(std::string_view name);

// False for a name with a character that can't be shown: it is logged, and told once a session,
// unless `quiet`, and must be skipped.
bool IsNameValid(session::Session& session, std::string_view name, std::string_view folder,
                 bool quiet);

// Logs a name that ends in a blank and tells it once a session.
void ReportTrailingSpaces(session::Session& session, std::string_view name,
                          std::string_view folder);

// Tells that a folder only stands in for the ProgramData folder.
void ReportFakeFolder(session::Session& session, std::string_view path);
// "\USERS\ALL USERS" or its short form, at the end of a drive path.
bool IsFakeFolder(std::string_view path);

// A folder inside one of the same name, as some systems nest without end.
bool IsNestedRecoveryFolder(std::string_view path);

} // namespace tarvix::search
