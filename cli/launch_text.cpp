#include "cli/launch_text.h"

#include "cli/print_rows.h"
#include "launch/open_object.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tarvix::cli {

namespace {

// So that a shell reads it as one word.
std::string Quoted(std::string_view word) {
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                        "0123456789_-./:=@%+,";
    if (!word.empty() && word.find_first_not_of(kPlain) == word.npos) return std::string(word);
    std::string quoted = "'";
    for (const char c : word)
        quoted += c == '\'' ? "'\\''" : std::string(1, c);
    quoted += '\'';
    return quoted;
}

std::string Line(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += fmt::format("{}{}", line.empty() ? "" : " ", Quoted(word));
    return line;
}

nlohmann::ordered_json ObjectOf(const launch::Opened& opened) {
    nlohmann::ordered_json object;
    object["Application"] = opened.application;
    if (!opened.address.empty()) object["Address"] = opened.address;
    if (!opened.plan.busName.empty()) {
        object["BusName"] = opened.plan.busName;
        object["Addresses"] = opened.plan.addresses;
    }
    auto& processes = object["Processes"] = nlohmann::ordered_json::array();
    for (const platform::PlannedProcess& process : opened.plan.processes)
        processes.push_back({{"Folder", process.folder}, {"Arguments", process.arguments}});
    return object;
}

} // namespace

void PrintLaunch(Host& host, const launch::Opened& opened, bool asJson) {
    if (asJson) return PrintJson(ObjectOf(opened), host.out);
    if (!opened.address.empty()) {
        host.out << fmt::format("# {} would show {}\n", opened.application, opened.address);
        return;
    }
    if (!opened.plan.busName.empty()) {
        host.out << fmt::format("# the session bus would hand to {}: {}\n", opened.plan.busName,
                                Line(opened.plan.addresses));
        return;
    }
    for (const platform::PlannedProcess& process : opened.plan.processes)
        host.out << fmt::format("cd {} && {}\n", Quoted(process.folder), Line(process.arguments));
}

} // namespace tarvix::cli
