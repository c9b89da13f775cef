#include "session/paths/env_variables.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "session/errors.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::session {

namespace {

constexpr std::size_t kLongestValue = 499; // characters of one expansion
constexpr int kMostRounds = 100;           // values may name each other in a circle
constexpr std::size_t kMostLines = 100;
constexpr int kSubscript = 9;

// The first "%...%" of a text: where it begins and what follows it.
struct Variable {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string_view name;
};

bool FindVariable(std::string_view text, Variable& found) {
    found.begin = text.find('%');
    if (found.begin == text.npos) return false;
    const std::size_t close = text.find('%', found.begin + 1);
    if (close == text.npos) return false;
    found.end = close + 1;
    found.name = text.substr(found.begin + 1, close - found.begin - 1);
    return true;
}

// A program of the narrower width would be given the other folder.
std::string_view WideName(Session& session, std::string_view name) {
    if (!Is64BitSystem(session)) return name;
    if (text::EqualNoCase(name, "programfiles")) return "ProgramW6432";
    if (text::EqualNoCase(name, "commonprogramfiles")) return "CommonProgramW6432";
    return name;
}

std::string Expanded(Session& session, std::string path) {
    Variable variable;
    for (int round = 0; FindVariable(path, variable); ++round) {
        if (session.files().Facts(path)) {
            LogTimed(session,
                     fmt::format(" RemoveEnvVarAndRestorePath determined {} already exists as a "
                                 "valid path. The environment variable was not converted.",
                                 session.Shown(path)));
            return path;
        }
        const std::string_view name = round == 0 ? WideName(session, variable.name) : variable.name;
        const auto value = session.platform.environment.Get(name);
        if (!value || text::Length(*value) > kLongestValue || round == kMostRounds) {
            return text::ContainsNoCase(path, "winamp.exe") ? path : std::string{};
        }
        path.replace(variable.begin, variable.end - variable.begin, *value);
    }
    return path;
}

void MakeSlashesSingle(std::string& path) {
    for (std::size_t at = 1; (at = path.find("\\\\", at)) != path.npos;) {
        path.erase(at, 1);
    }
}

bool HasTwoColons(std::string_view path) {
    const std::size_t colon = path.find(':');
    return colon != path.npos && path.find(':', colon + 1) != path.npos;
}

bool IsCandidate(Session& session, std::string_view name, std::string_view value) {
    return !name.empty() && !name.starts_with('=') && value.find_first_of("\\:") != value.npos &&
           value.find(';') == value.npos && platform::GetFolder(session.files(), value);
}

// Variables were once saved with their signs.
std::string_view PlainName(std::string_view name) {
    if (name.size() > 2 && name.starts_with('%') && name.ends_with('%')) {
        return name.substr(1, name.size() - 2);
    }
    return name;
}

std::vector<EnvVariable>::iterator FindByName(std::vector<EnvVariable>& table,
                                              std::string_view name) {
    return std::ranges::find_if(table, [name](const EnvVariable& entry) {
        return text::EqualNoCase(PlainName(entry.strEnvVarName), name);
    });
}

bool IsOnOwnDrive(Session& session, std::string_view path) {
    const std::string drive = text::Upper(text::Left(path, 2));
    return std::ranges::any_of(session.files().Drives(), [&](const platform::DriveInfo& info) {
        return text::Upper(info.path) == drive;
    });
}

bool CanFold(Session& session, std::string_view path) {
    const bool isAddress =
        text::StartsWithNoCase(path, "file:/") || text::StartsWithNoCase(path, "http:/");
    return !path.empty() && !isAddress && session.state.options.blnAutoEnvVar &&
           !path.starts_with('%') && IsOnOwnDrive(session, path);
}

// Empty when the path doesn't begin with the folder.
std::string Folded(std::string_view path, std::string_view name, std::string_view folder) {
    if (folder.empty() || !text::StartsWithNoCase(path, folder)) return {};
    return fmt::format("%{}%{}", name, text::Mid(path, text::Length(folder) + 1));
}

void TellFull(Session& session) {
    (void)HandleError(session,
                      {kSubscript, "Subscript out of range: there are more than 101 variables that "
                                   "are folders."},
                      {.routine = "MergeEnvVars", .moduleName = "Module1"});
}

} // namespace

std::string RemoveEnvVarAndRestorePath(Session& session, std::string_view path) {
    std::string result = Expanded(session, std::string(path));
    if (result.empty()) result = std::string(path);
    MakeSlashesSingle(result);
    return HasTwoColons(result) ? std::string(path) : result;
}

std::string ConvertToEnvVar(Session& session, std::string_view path, bool blnPreferSystemRoot) {
    if (!CanFold(session, path)) return std::string(path);
    const auto& table = session.state.options.envVariables;
    std::string folded;
    for (const EnvVariable& entry : table) {
        if (!blnPreferSystemRoot || entry.strEnvVarName != "SystemRoot") continue;
        folded = Folded(path, entry.strEnvVarName, entry.strEnvVarPath);
        if (!folded.empty()) return folded;
    }
    for (const EnvVariable& entry : table) {
        if (!entry.blnEnvVarInclude) continue;
        folded = Folded(path, entry.strEnvVarName, entry.strEnvVarPath);
        if (!folded.empty()) return folded;
    }
    for (const EnvVariable& entry : table) {
        if (!entry.blnEnvVarInclude) continue;
        const auto shortFolder = session.files().ShortPath(entry.strEnvVarPath);
        if (shortFolder) folded = Folded(path, entry.strEnvVarName, *shortFolder);
        if (!folded.empty()) return folded;
    }
    return std::string(path);
}

bool Is64BitSystem(Session& session) {
    return session.platform.environment.Get("ProgramW6432").has_value();
}

void RebuildEnvVarTable(Session& session) {
    auto& table = session.state.options.envVariables;
    std::vector<EnvVariable> added;
    for (const auto& [name, value] : session.platform.environment.All()) {
        if (!IsCandidate(session, name, value)) continue;
        const auto known = FindByName(table, name);
        const bool isNew = known == table.end();
        if (isNew ? FindByName(added, name) != added.end() : !known->strEnvVarPath.empty())
            continue;
        auto truePath = session.files().TruePath(value);
        EnvVariable entry{!isNew && known->blnEnvVarInclude, name, truePath ? *truePath : value};
        if (isNew) {
            added.push_back(std::move(entry));
        } else {
            *known = std::move(entry);
        }
    }
    // The gaps of those that are gone close before the new ones follow.
    std::erase_if(table, [](const EnvVariable& entry) { return entry.strEnvVarPath.empty(); });
    table.insert(table.end(), added.begin(), added.end());
    if (table.size() <= kEnvVariableLimit) return;
    table.resize(kEnvVariableLimit);
    TellFull(session);
}

std::vector<std::string> EnvVariableLines(const Options& options) {
    std::vector<std::string> lines;
    // The place takes two digits.
    for (std::size_t i = 0; i < std::min(options.envVariables.size(), kMostLines); ++i) {
        const EnvVariable& entry = options.envVariables[i];
        lines.push_back(fmt::format("{} {} {:02}", entry.blnEnvVarInclude ? "Include" : "Exclude",
                                    entry.strEnvVarName, i));
    }
    return lines;
}

} // namespace tarvix::session
