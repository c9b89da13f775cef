#include "cli/raw_arguments.h"

#include "cli/help_texts.h"
#include "cli/nearest.h"
#include "cli/request.h"
#include "results/program.h"
#include "session/product.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tarvix::cli {

const std::array<std::string_view, 10> kAttributeOptions{
    "--read-only", "--hidden", "--system", "--archived", "--alias",
    "--compress",  "--256",    "--512",    "--64",       "--128"};

namespace {

constexpr const char* kWhatGroup = "What to find";
constexpr const char* kAttributeGroup = "Attributes, each no | yes | any";
constexpr const char* kOutputGroup = "Output";
constexpr const char* kActionGroup = "What to do";

// The parser would take "[a,b]" for a list of its own, and what follows "--" behind a list for
// options; the mark keeps such words whole.
constexpr char kWordMark = '\x01';

std::vector<std::string> Protected(const std::vector<std::string>& words) {
    std::vector<std::string> marked;
    bool isPlain = false;
    for (const std::string& word : words) {
        const bool isList = word.size() > 1 && word.front() == '[' && word.back() == ']';
        marked.push_back(isPlain || isList ? kWordMark + word : word);
        isPlain = isPlain || word == "--";
    }
    return marked;
}

std::string Unprotect(const std::string& word) {
    return word.starts_with(kWordMark) ? word.substr(1) : word;
}

CLI::Option* AddText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                     const char* typeName, const char* help, const char* group) {
    return app
        .add_option_function<std::string>(
            name, [&target](const std::string& word) { target = Unprotect(word); }, help)
        ->type_name(typeName)
        ->group(group)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

CLI::Option* AddWords(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                      const char* typeName, const char* help, const char* group) {
    return app.add_option(name, target, help)->type_name(typeName)->group(group);
}

void AddFlag(CLI::App& app, const char* name, bool& target, const char* help, const char* group) {
    app.add_flag(name, target, help)->group(group);
}

void AddGlobalOptions(CLI::App& app, RawArguments& raw) {
    constexpr const char* kGroup = "Options";
    app.set_help_flag("-h,--help", "Tells what a command does and takes")->group(kGroup);
    app.set_version_flag("--version",
                         std::string(session::kProductName) + " " +
                             std::string(session::ProductVersion()),
                         "Tells the version")
        ->group(kGroup);
    AddText(app, "--data-folder", raw.dataFolder, "DIR",
            "Where options, histories and logs lie; made if missing", kGroup);
    AddWords(app, "--drive", raw.drives, "E=/path",
             "Gives a folder a drive letter of its own; may be repeated", kGroup)
        ->allow_extra_args(false);
    AddText(app, "--now", raw.now, "TIME", "Runs as if it were this time", kGroup);
}

void AddAttributeOptions(CLI::App& app, RawArguments& raw) {
    constexpr std::array<const char*, 10> kHelp{
        "Not writable by its owner",
        "Named with a leading dot, or marked hidden",
        "Marked as a system object",
        "Any file, unless its disk keeps an archive mark",
        "Symbolic links",
        "Compressed by the file system",
        "Bit 256",
        "Bit 512: sparse files",
        "Bit 64: devices, pipes and sockets",
        "Bit 128",
    };
    for (std::size_t i = 0; i < kAttributeOptions.size(); ++i) {
        AddText(app, std::string(kAttributeOptions[i]), raw.attributes[i], "CHOICE", kHelp[i],
                kAttributeGroup);
    }
    AddFlag(app, "--any-attribute", raw.anyAttribute, "All ten at any", kAttributeGroup);
}

void AddCriteria(CLI::App& app, RawArguments& raw) {
    AddWords(app, "PATTERNS", raw.patterns, "", "What names are to match, such as \"*.mp3|*.flac\"",
             "Positionals");
    AddWords(app, "--in", raw.locations, "LOCATION",
             "The folders to search: native paths, file addresses or drive paths", kWhatGroup);
    AddText(app, "--kind", raw.kind, "KIND",
            "files (unless given), empty-files, all, folders, empty-folders", kWhatGroup);
    AddFlag(app, "--no-subfolders", raw.noSubfolders, "Looks at the locations alone", kWhatGroup);
    AddFlag(app, "--not", raw.isNot, "Lists what does not match the pattern", kWhatGroup);
    AddFlag(app, "--one-each", raw.oneEach, "Lists one file of each folder", kWhatGroup);
    AddText(app, "--size-at-least", raw.sizeAtLeast, "SIZE", "Bytes, or as 10K, 10M, 1G",
            kWhatGroup);
    AddText(app, "--size-at-most", raw.sizeAtMost, "SIZE", "The same", kWhatGroup);
    AddText(app, "--size-range", raw.sizeRange, "A..B", "Both at once", kWhatGroup);
    AddText(app, "--since", raw.since, "DATE", "Dated then or later, as 2026-11-15", kWhatGroup);
    AddText(app, "--before", raw.before, "DATE", "Dated then or earlier", kWhatGroup);
    AddText(app, "--between", raw.between, "A..B", "From A to the end of B", kWhatGroup);
    AddText(app, "--date-kind", raw.dateKind, "KIND",
            "The date to test: modified (unless given), created, accessed", kWhatGroup);
    AddAttributeOptions(app, raw);
    AddWords(app, "--answer", raw.answers, "VALUE",
             "Answers the next question that comes up; may be repeated", kOutputGroup)
        ->allow_extra_args(false);
}

struct CommandHelp {
    const char* name;
    const char* summary; // in the list of commands
    const char* about;   // in the command's own help
    const char* footer;
};

constexpr std::array<CommandHelp, 9> kCommands{
    {{"search", "Lists every file or folder that matches", kSearchAbout, kSearchFooter},
     {"copy", "Copies all that matches", kCopyAbout, kCopyFooter},
     {"move", "Moves all that matches", kMoveAbout, kMoveFooter},
     {"rename", "Renames all that matches in its place", kRenameAbout, kRenameFooter},
     {"delete", "Sends all that matches to the trash", kDeleteAbout, kDeleteFooter},
     {"run", "Runs a script that drives the whole program", kRunAbout, kRunFooter},
     {"sample", "Makes a small collection to try things on", kSampleAbout, kSampleFooter},
     {"paths", "Tells where everything lies", kPathsAbout, kPathsFooter},
     {"options", "Lists, tells and sets options", kOptionsAbout, kOptionsFooter}}};

CLI::App& AddCommand(CLI::App& app, const CommandHelp& help) {
    CLI::App& command = *app.add_subcommand(help.name, help.summary);
    command.fallthrough()->allow_extras()->footer(help.footer)->group("Commands");
    return command;
}

const CommandHelp& CommandNamed(std::string_view name) {
    return *std::ranges::find_if(kCommands,
                                 [name](const CommandHelp& help) { return help.name == name; });
}

std::string HelpOf(CLI::App& app) {
    for (CLI::App* command : app.get_subcommands()) {
        for (const CommandHelp& help : kCommands) {
            if (command->get_name() == help.name) command->description(help.about);
        }
    }
    return app.help();
}

void AddSearch(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, CommandNamed("search"));
    AddCriteria(command, raw);
    AddText(command, "--columns", raw.columns, "KEY,...",
            "These cells, in this order: column keys or NativePath", kOutputGroup);
    AddText(command, "--sort", raw.sort, "KEY[:desc]", "Sorts as by a click on a column head",
            kOutputGroup);
    AddFlag(command, "--json", raw.json, "One object a line, cells by column key", kOutputGroup);
    AddFlag(command, "--tsv", raw.table, "Cells with tabs between, under a head line",
            kOutputGroup);
    AddFlag(command, "--print0", raw.zero, "Paths, each ended by a NUL byte", kOutputGroup);
}

// The options of a copy or move, which give each object a place.
void AddPlaces(CLI::App& command, RawArguments& raw) {
    AddText(command, "--to", raw.destination, "FOLDER", "The folder they go to", kActionGroup);
    AddText(command, "--rule", raw.rule, "RULE",
            "A folder for each by its own path, such as 'E:\\Sorted\\*12*'", kActionGroup);
    AddText(command, "--structure", raw.structure, "STRUCTURE",
            "none (unless given), mirror, folder or backup: the folders that come along",
            kActionGroup);
    AddText(command, "--on-duplicate", raw.onDuplicate, "CHOICE",
            "skip (unless given), ask, overwrite or rename, where something stands already",
            kActionGroup);
    AddText(command, "--rename-text", raw.renameText, "TEXT",
            "What is added to the name of a duplicate; _ at first", kActionGroup);
    AddText(command, "--rename-at", raw.renameAt, "SIDE", "end (unless given) or beginning",
            kActionGroup);
}

void AddRunOptions(CLI::App& command, RawArguments& raw) {
    AddFlag(command, "-y,--yes", raw.yes, "Confirms the action", kActionGroup);
    AddFlag(command, "-n,--dry-run", raw.dryRun, "Tells what would happen, and does nothing",
            kActionGroup);
    AddFlag(command, "--json", raw.json, "With --dry-run: one object a line", kActionGroup);
}

void AddCopy(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, CommandNamed("copy"));
    AddCriteria(command, raw);
    AddPlaces(command, raw);
    AddWords(command, "--mpl", raw.lists, "LIST",
             "Into each folder of a Multiple Path List of the data folder; may be repeated",
             kActionGroup)
        ->allow_extra_args(false);
    AddRunOptions(command, raw);
}

void AddMove(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, CommandNamed("move"));
    AddCriteria(command, raw);
    AddPlaces(command, raw);
    AddText(command, "--up", raw.levels, "LEVELS", "So many levels up the folder tree",
            kActionGroup);
    AddFlag(command, "--with-folder-names", raw.withFolderNames,
            "With --up: the folders passed come before the name", kActionGroup);
    AddRunOptions(command, raw);
}

void AddRename(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, CommandNamed("rename"));
    AddCriteria(command, raw);
    AddText(command, "--insert", raw.insertedText, "TEXT", "Inserts it into each name",
            kActionGroup);
    AddText(command, "--at", raw.insertAt, "SIDE", "end (unless given) or beginning", kActionGroup);
    AddText(command, "--find", raw.soughtText, "TEXT", "Looks for it, in upper or lower case",
            kActionGroup);
    AddText(command, "--replace", raw.newText, "TEXT", "What stands there then; nothing at first",
            kActionGroup);
    AddFlag(command, "--once", raw.onlyOnce, "Replaces only the first in a name", kActionGroup);
    AddText(command, "--portion", raw.portion, "PORTION",
            "prefix (unless given), extension or name: the part of a file's name", kActionGroup);
    AddRunOptions(command, raw);
}

void AddDelete(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, CommandNamed("delete"));
    AddCriteria(command, raw);
    AddText(command, "--on-recycle-failure", raw.onRecycleFailure, "CHOICE",
            "keep or delete (for good) what can't go to the trash", kActionGroup);
    AddText(command, "--override-system-hidden", raw.overrideSystemHidden, "CHOICE",
            "no or yes: whether hidden and system objects go too", kActionGroup);
    AddFlag(command, "-y,--yes", raw.yes, "Confirms the deletion", kActionGroup);
}

void AddOthers(CLI::App& app, RawArguments& raw) {
    CLI::App& run = AddCommand(app, CommandNamed("run"));
    AddText(run, "SCRIPT", raw.target, "", "The script, or - for stdin", "Positionals");
    CLI::App& sample = AddCommand(app, CommandNamed("sample"));
    AddText(sample, "DIR", raw.target, "", "The folder to fill", "Positionals");
    CLI::App& paths = AddCommand(app, CommandNamed("paths"));
    AddFlag(paths, "--json", raw.json, "One object, paths by name", kOutputGroup);
    CLI::App& options = AddCommand(app, CommandNamed("options"));
    AddWords(options, "WORDS", raw.words, "", "list, get KEY, or set KEY VALUE", "Positionals");
    AddFlag(options, "--json", raw.json, "One object, values by key", kOutputGroup);
}

EarlyEnd Wrong(std::string sentence) {
    return {.exitCode = kBadRequest, .sentence = std::move(sentence)};
}

std::vector<std::string> OptionNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* owner = &app; owner; owner = owner->get_parent()) {
        for (const CLI::Option* option : owner->get_options()) {
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
        }
    }
    return names;
}

EarlyEnd UnknownCommand(const std::string& word) {
    std::array<std::string_view, kCommands.size()> names{};
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = kCommands[i].name;
    return Wrong("There is no command \"" + word + "\"." + DidYouMean(word, names) +
                 " tarvix-cli --help lists them.");
}

EarlyEnd UnknownOption(const CLI::App& app, const std::string& word) {
    const std::vector<std::string> names = OptionNames(app);
    const std::vector<std::string_view> views(names.begin(), names.end());
    const std::string name = word.substr(0, word.find('='));
    const std::string& command = app.get_name();
    return Wrong("There is no option " + name + "." + DidYouMean(name, views) + " tarvix-cli " +
                 command + (command.empty() ? "" : " ") + "--help lists them.");
}

// What the parser says, in our words where it is about one option.
EarlyEnd Explain(const CLI::ParseError& error) {
    const std::string what = error.what();
    const std::size_t colon = what.find(':');
    if (error.get_name() == "ArgumentMismatch" && what.starts_with("-") && colon != what.npos) {
        return Wrong(what.substr(0, colon) + " needs a value behind it.");
    }
    return Wrong(what);
}

std::optional<EarlyEnd> CheckLeftovers(const CLI::App& app) {
    const auto commands = app.get_subcommands();
    const std::vector<std::string> words = app.remaining(true);
    const CLI::App& inner = commands.empty() ? app : *commands.front();
    for (const std::string& word : words) {
        if (word == "--") continue;
        if (word.size() > 1 && word.front() == '-') return UnknownOption(inner, word);
        if (commands.empty()) return UnknownCommand(word);
        return Wrong("tarvix-cli " + inner.get_name() + " can't use \"" + Unprotect(word) +
                     "\": it has all its arguments already.");
    }
    if (!commands.empty()) return std::nullopt;
    std::string names;
    for (std::size_t i = 0; i < kCommands.size(); ++i) {
        names.append(i == 0 ? "" : i + 1 == kCommands.size() ? " or " : ", ");
        names.append(kCommands[i].name);
    }
    return Wrong("Name a command: " + names + ". tarvix-cli --help tells more.");
}

void UnprotectAll(std::vector<std::string>& words) {
    for (std::string& word : words)
        word = Unprotect(word);
}

void SetFormat(CLI::App& app) {
    constexpr int kColumnWidth = 28;
    const auto formatter = app.get_formatter();
    formatter->column_width(kColumnWidth);
    formatter->label("OPTIONS", "OPTION ...");
    formatter->label("SUBCOMMAND", "COMMAND");
    formatter->label("Positionals", "Arguments");
}

} // namespace

std::expected<RawArguments, EarlyEnd> ReadRawArguments(const std::vector<std::string>& arguments) {
    RawArguments raw;
    CLI::App app(kAbout, "tarvix-cli");
    app.footer(kAboutFooter)->allow_extras()->require_subcommand(0, 1);
    SetFormat(app);
    AddGlobalOptions(app, raw);
    AddSearch(app, raw);
    AddCopy(app, raw);
    AddMove(app, raw);
    AddRename(app, raw);
    AddDelete(app, raw);
    AddOthers(app, raw);
    try {
        std::vector<std::string> words = Protected(arguments);
        std::ranges::reverse(words);
        app.parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
        return std::unexpected(EarlyEnd{.out = HelpOf(app)});
    } catch (const CLI::CallForVersion& version) {
        return std::unexpected(EarlyEnd{.out = std::string(version.what()) + "\n"});
    } catch (const CLI::ParseError& error) {
        return std::unexpected(Explain(error));
    }
    if (auto leftover = CheckLeftovers(app)) return std::unexpected(std::move(*leftover));
    raw.command = app.get_subcommands().front()->get_name();
    for (auto* words :
         {&raw.patterns, &raw.locations, &raw.answers, &raw.drives, &raw.lists, &raw.words})
        UnprotectAll(*words);
    return raw;
}

} // namespace tarvix::cli
