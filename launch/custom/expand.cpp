#include "launch/custom/expand.h"

#include "launch/custom/command_line.h"
#include "platform/names.h"

#include <fmt/core.h>

#include <functional>
#include <optional>
#include <utility>

namespace tarvix::custom {

namespace {

using platform::PlannedProcess;
using Values = std::vector<std::string>;
using MayBeValues = std::optional<Values>;

constexpr std::size_t kMostBytes = 1'500'000; // the system takes about two million
constexpr std::size_t kMostVariables = 5'000; // to which a shell's program refers
constexpr std::size_t kMostProcesses = 200;

// What codes are filled from: all objects, and the one that singular codes stand for.
struct Filled {
    const Chosen& chosen;
    const EntryCommand& command;
    std::size_t index = 0;

    const ChosenObject& One() const { return chosen.objects[index]; }
    template <class Piece>
    Values All(Piece&& piece) const {
        Values values;
        values.reserve(chosen.objects.size());
        for (const ChosenObject& object : chosen.objects)
            values.emplace_back(piece(object));
        return values;
    }
};

std::string Address(const ChosenObject& object) {
    return platform::FileAddress(object.path);
}

// By the small letter of a code: what it tells of one object.
using Piece = std::string (*)(const ChosenObject&);

Piece FileManagerPiece(char letter) {
    switch (letter) {
    case 'b':
        return [](const ChosenObject& object) { return std::string(NameOf(object.path)); };
    case 'd':
        return [](const ChosenObject& object) { return std::string(FolderOf(object.path)); };
    case 'f':
        return [](const ChosenObject& object) { return object.path; };
    case 'm':
        return [](const ChosenObject& object) { return object.type; };
    case 'u':
        return Address;
    case 'w':
        return [](const ChosenObject& object) { return std::string(StemOf(NameOf(object.path))); };
    case 'x':
        return [](const ChosenObject& object) {
            return std::string(ExtensionOf(NameOf(object.path)));
        };
    default:
        return nullptr;
    }
}

bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}
char Small(char c) {
    return IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

MayBeValues FileManagerCode(const Filled& filled, char code) {
    if (code == 'c') return Values{std::to_string(filled.chosen.objects.size())};
    if (code == 's') return Values{"file"};
    if (code == 'h' || code == 'n' || code == 'p') return Values{""}; // of other machines
    if (code == 'o' || code == 'O') return Values{};
    const Piece piece = FileManagerPiece(Small(code));
    if (piece == nullptr) return std::nullopt;
    if (!IsCapital(code)) return Values{piece(filled.One())};
    return filled.All(piece);
}

// Service menus and Thunar name alike what they share.
MayBeValues EntryCode(const Filled& filled, char code) {
    const char small = Small(code);
    const Piece piece = FileManagerPiece(small == 'n'                                   ? 'b'
                                         : small == 'f' || small == 'u' || small == 'd' ? small
                                                                                        : 0);
    if (piece == nullptr) return std::nullopt;
    if (!IsCapital(code)) return Values{piece(filled.One())};
    return filled.All(piece);
}

MayBeValues ServiceCode(const Filled& filled, char code) {
    switch (code) {
    case 'c':
        return Values{filled.command.name};
    case 'k':
        return Values{filled.command.file};
    case 'i':
        return filled.command.icon.empty() ? Values{} : Values{"--icon", filled.command.icon};
    case 'm':
    case 'v':
        return Values{}; // out of use
    default:
        return EntryCode(filled, code);
    }
}

MayBeValues NemoCode(const Filled& filled, char code) {
    const std::string_view name = NameOf(filled.One().path);
    const std::string_view folder = filled.chosen.folder;
    switch (code) {
    case 'F':
        return filled.All([](const ChosenObject& object) { return object.path; });
    case 'U':
        return filled.All(Address);
    case 'P':
        return Values{std::string(folder)};
    case 'p':
        return Values{std::string(NameOf(folder))};
    case 'f':
    case 'N':
        return Values{std::string(name)};
    case 'e':
        return Values{std::string(StemOf(name))};
    case 'D':
        return Values{"/dev"};
    case 'X':
        return Values{"0"};
    default:
        return std::nullopt;
    }
}

MayBeValues CodeOf(const Filled& filled, char code) {
    switch (filled.command.dialect) {
    case Dialect::kFileManager:
        return FileManagerCode(filled, code);
    case Dialect::kService:
        return ServiceCode(filled, code);
    case Dialect::kNemo:
        return NemoCode(filled, code);
    case Dialect::kThunar:
        return EntryCode(filled, code);
    case Dialect::kScript:
        break;
    }
    return std::nullopt;
}

Codes CodesOf(const Filled& filled) {
    return [&filled](char code) { return CodeOf(filled, code); };
}

// Whether a line runs once for each object: the first code that has a form for one and one for all
// decides.
bool RunsForEach(const EntryCommand& command) {
    const bool isFileManager = command.dialect == Dialect::kFileManager;
    if (!isFileManager && command.dialect != Dialect::kService) return false;
    const std::string_view both = isFileManager ? "bdfmouwx" : "fudn";
    for (std::size_t i = 0; i + 1 < command.line.size(); ++i) {
        if (command.line[i] != '%') continue;
        const char code = command.line[++i];
        if (both.find(Small(code)) != both.npos) return !IsCapital(code);
    }
    return false;
}

std::size_t BytesOf(const PlannedProcess& process) {
    std::size_t bytes = 0;
    for (const std::string& argument : process.arguments)
        bytes += argument.size() + 1 + sizeof(char*);
    for (const auto& [name, value] : process.variables)
        bytes += name.size() + value.size() + 2 + sizeof(char*);
    return bytes;
}

std::unexpected<std::string> TooMany(const Chosen& chosen) {
    return std::unexpected(fmt::format("{} objects are too many to be handed over at once. Select "
                                       "fewer of them.",
                                       chosen.objects.size()));
}

// Stays in front of the user until a key is pressed.
void KeepOpen(PlannedProcess& process) {
    Values arguments{"/bin/sh", "-c", "\"$@\"; printf '\\n[Enter]'; read -r _", "sh"};
    arguments.insert(arguments.end(), process.arguments.begin(), process.arguments.end());
    process.arguments = std::move(arguments);
}

std::expected<PlannedProcess, std::string> FillOne(const Filled& filled) {
    const EntryCommand& command = filled.command;
    const Codes codes = CodesOf(filled);
    const bool isShellLine = command.dialect == Dialect::kThunar ||
                             (command.dialect == Dialect::kService && NeedsShell(command.line));
    std::optional<PlannedProcess> process;
    if (isShellLine) {
        process = FillShellLine(command.line, codes);
    } else {
        process = FillWords(command.line, codes);
    }
    if (!process) {
        return std::unexpected(fmt::format("The command of \"{}\" in {} can't be read: {}",
                                           command.name, command.file, command.line));
    }
    process->folder =
        command.folder.empty() ? filled.chosen.folder : FillText(command.folder, codes);
    if (command.showsOutput) KeepOpen(*process);
    if (process->variables.size() > kMostVariables || BytesOf(*process) > kMostBytes) {
        return TooMany(filled.chosen);
    }
    return std::move(*process);
}

// Names alone where all lie in one folder, in which a script begins; none is to look like an
// option.
std::string ScriptArgument(const Chosen& chosen, const ChosenObject& object) {
    if (!chosen.isOneFolder) return object.path;
    const std::string_view name = NameOf(object.path);
    return name.starts_with('-') ? fmt::format("./{}", name) : std::string(name);
}

std::expected<PlannedProcess, std::string> ScriptProcess(const EntryCommand& command,
                                                         const Chosen& chosen) {
    PlannedProcess process;
    process.arguments.push_back(command.line);
    process.folder = chosen.folder;
    std::string paths;
    std::string addresses;
    for (const ChosenObject& object : chosen.objects) {
        process.arguments.push_back(ScriptArgument(chosen, object));
        paths.append(object.path).append("\n");
        addresses.append(Address(object)).append("\n");
    }
    const std::string here = platform::FileAddress(chosen.folder);
    const auto add = [&](std::string_view prefix) {
        const auto name = [&](std::string_view rest) {
            return fmt::format("{}_SCRIPT_{}", prefix, rest);
        };
        process.variables.emplace_back(name("SELECTED_FILE_PATHS"), paths);
        process.variables.emplace_back(name("SELECTED_URIS"), addresses);
        process.variables.emplace_back(name("CURRENT_URI"), here);
        if (prefix == "NAUTILUS") return;
        process.variables.emplace_back(name("WINDOW_GEOMETRY"), "");
        for (const std::string_view rest :
             {"NEXT_PANE_SELECTED_FILE_PATHS", "NEXT_PANE_SELECTED_URIS", "NEXT_PANE_CURRENT_URI"})
            process.variables.emplace_back(name(rest), "");
    };
    add(command.prefix);
    if (command.prefix == "CAJA") add("NAUTILUS");
    // A variable can't be longer than 128 KiB.
    constexpr std::size_t kLongestVariable = 128 * 1024 - 64;
    const bool fits = paths.size() < kLongestVariable && addresses.size() < kLongestVariable;
    if (!fits || BytesOf(process) > kMostBytes) return TooMany(chosen);
    return process;
}

} // namespace

std::expected<std::vector<PlannedProcess>, std::string> Expand(const EntryCommand& command,
                                                               const Chosen& chosen) {
    std::vector<PlannedProcess> processes;
    if (command.dialect == Dialect::kScript) {
        auto process = ScriptProcess(command, chosen);
        if (!process) return std::unexpected(process.error());
        processes.push_back(std::move(*process));
        return processes;
    }
    const std::size_t count = RunsForEach(command) ? chosen.objects.size() : 1;
    if (count > kMostProcesses) {
        return std::unexpected(fmt::format("\"{}\" would be started {} times at once; {} is the "
                                           "most. Select fewer objects.",
                                           command.name, count, kMostProcesses));
    }
    for (std::size_t index = 0; index < count; ++index) {
        auto process = FillOne({chosen, command, index});
        if (!process) return std::unexpected(process.error());
        processes.push_back(std::move(*process));
    }
    return processes;
}

std::string ExpandLabel(Dialect dialect, const std::string& label, const Chosen& chosen) {
    if (label.find('%') == label.npos) return label;
    const EntryCommand command{.dialect = dialect, .name = label};
    const Filled filled{chosen, command};
    // A list in a label would be as long as the selection.
    return FillText(label, [&filled](char code) -> MayBeValues {
        auto values = CodeOf(filled, code);
        if (values && values->size() > 1) values->resize(1);
        return values;
    });
}

} // namespace tarvix::custom
