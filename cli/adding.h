#pragma once

#include "cli/parser.h"

#include <memory>

namespace tarvix::cli {

inline constexpr const char* kOutputGroup = "Output";
inline constexpr const char* kActionGroup = "What to do";

// A command, and the record that its options fill.
template <class Record>
struct Added {
    CLI::App& command;
    Record& record;
};

// Once all is parsed, and unless `check` refuses it, the record becomes the request.
template <class Record>
Added<Record> Add(
    CLI::App& app, const CommandHelp& help, Command& chosen,
    void (*check)(Record&) = [](Record&) {}) {
    CLI::App& command = AddCommand(app, help);
    const auto record = std::make_shared<Record>();
    command.callback([record, check, &chosen] {
        check(*record);
        chosen = *record;
    });
    return {command, *record};
}

} // namespace tarvix::cli
