#pragma once

#include "cli/parser.h"

#include <expected>
#include <string>
#include <vector>

namespace tarvix::cli {

// The arguments of the process, without the program's name, as one checked record. Whatever is
// wrong with them is found here, before anything is opened.
std::expected<Request, EarlyEnd> ReadArguments(const std::vector<std::string>& arguments);

// Adds PATTERNS, --in and what else tells what to find to a command.
void AddCriteria(CLI::App& command, Criteria& criteria, std::vector<std::string>& answers);
// The same without what names match, which a list tells.
void AddTests(CLI::App& command, Criteria& criteria);
// Once parsed: refuses criteria that the options alone can't tell to be wrong, and fills up those
// that stand for several.
void CheckCriteria(Criteria& criteria);
void CheckTests(Criteria& criteria);

// The commands that copy, move and rename.
void AddCopy(CLI::App& app, Command& chosen);
void AddMove(CLI::App& app, Command& chosen);
void AddRename(CLI::App& app, Command& chosen);
// The command of shortcuts, with its words.
void AddLinks(CLI::App& app, Command& chosen);

} // namespace tarvix::cli
