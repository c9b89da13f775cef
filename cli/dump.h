#pragma once

#include "results/columns.h"
#include "session/prompt_record.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class FileSystem;
}

namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

// What the script's dump statement prints. Tabs and line ends inside a field are "\t" and "\n".

// Cells under a line of headers, a spacer as an empty line; all columns when none is named.
void DumpList(const session::Session& session, const std::vector<results::Column>& columns,
              std::ostream& out);
// Style (or what the prompt is, when it is no message), title, text and answer.
void DumpPrompts(const std::vector<session::PromptRecord>& prompts, std::ostream& out);
// The lines of a text file, by drive path; nothing when it is missing.
void DumpFile(platform::FileSystem& files, std::string_view path, std::ostream& out);

} // namespace tarvix::cli
