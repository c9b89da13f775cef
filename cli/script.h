#pragma once

#include "results/columns.h"

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

enum class StatementKind : std::uint8_t {
    kSet,
    kClick,
    kLeave,
    kReset,
    kColumn,
    kSelectRows,
    kSelectLike,
    kSelectNone,
    kDoubleClick,
    kRightClick,
    kAnswer,
    kAfter,
    kDumpList,
    kDumpControl,
    kDumpPrompts,
    kDumpLog,
    kDumpErrorLog,
};

struct Statement {
    StatementKind kind = StatementKind::kClick;
    int line = 0;                       // from 1
    std::string target;                 // a control
    std::string value;                  // of set and answer; the pattern of select like
    std::vector<std::uint64_t> numbers; // rows from 1, the yields of after
    std::vector<results::Column> columns;
};

struct ScriptError {
    int line = 0;
    std::string sentence;
};

// A whole script, one statement a line, lines ended by LF or CR LF. Whatever can be wrong with a
// statement by itself is found here; what controls there are is not looked at.
std::expected<std::vector<Statement>, ScriptError> ParseScript(std::string_view text);

} // namespace tarvix::cli
