#include "platform/linux/environment_files.h"

#include "platform/linux/system_calls.h"

#include <fmt/core.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <dirent.h>

namespace tarvix::platform {

namespace {

bool IsNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::string Unquoted(std::string_view value) {
    std::string out;
    char quote = '\0';
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        const bool isQuote = c == '"' || c == '\'';
        if (isQuote && (quote == '\0' || quote == c)) {
            quote = quote == '\0' ? c : '\0';
        } else if (c == '\\' && quote != '\'' && i + 1 < value.size()) {
            out += value[++i];
        } else {
            out += c;
        }
    }
    return out;
}

std::string_view ValueIn(const std::vector<std::string>& known, std::string_view name) {
    for (const std::string_view variable : known) {
        const bool isName = variable.starts_with(name) && variable.size() > name.size() &&
                            variable[name.size()] == '=';
        if (isName) return variable.substr(name.size() + 1);
    }
    return {};
}

std::string Expanded(std::string_view value, const std::vector<std::string>& known) {
    std::string out;
    while (!value.empty()) {
        const std::size_t sign = value.find('$');
        out.append(value.substr(0, sign));
        if (sign == value.npos) break;
        value.remove_prefix(sign + 1);
        const bool isBraced = value.starts_with('{');
        if (isBraced) value.remove_prefix(1);
        const auto end = static_cast<std::size_t>(std::ranges::find_if_not(value, IsNameCharacter) -
                                                  value.begin());
        out.append(end == 0 && !isBraced ? "$" : ValueIn(known, value.substr(0, end)));
        value.remove_prefix(end);
        if (isBraced && value.starts_with('}')) value.remove_prefix(1);
    }
    return out;
}

std::vector<std::string> FilesOf(const std::string& folder) {
    dirent** entries = nullptr;
    const int count = ::scandir(folder.c_str(), &entries, nullptr, ::alphasort);
    std::vector<std::string> files;
    for (int i = 0; i < count; ++i) {
        const std::string_view name = entries[i]->d_name;
        if (name.ends_with(".conf")) files.push_back(fmt::format("{}/{}", folder, name));
        std::free(entries[i]);
    }
    std::free(entries);
    return files;
}

} // namespace

std::vector<std::string> VariableLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t equals = line.find('=');
        const std::string_view name = line.substr(0, equals);
        const bool isLine =
            equals != line.npos && !name.empty() && std::ranges::all_of(name, IsNameCharacter);
        if (!isLine) continue;
        lines.push_back(fmt::format("{}={}", name, Unquoted(line.substr(equals + 1))));
    }
    return lines;
}

std::vector<std::string> ExpandedLines(std::string_view text,
                                       const std::vector<std::string>& known) {
    std::vector<std::string> all = known;
    std::vector<std::string> lines = VariableLines(text);
    for (std::string& line : lines) {
        const std::size_t behind = line.find('=') + 1;
        line = line.substr(0, behind) + Expanded(std::string_view(line).substr(behind), all);
        all.push_back(line);
    }
    return lines;
}

void AppendStoredVariables(std::vector<std::string>& variables, const std::string& settings) {
    for (std::string& line : VariableLines(ReadSystemText("/etc/environment"))) {
        variables.push_back(std::move(line));
    }
    for (const std::string& file : FilesOf(fmt::format("{}/environment.d", settings))) {
        for (std::string& line : ExpandedLines(ReadSystemText(file), variables)) {
            variables.push_back(std::move(line));
        }
    }
}

} // namespace tarvix::platform
