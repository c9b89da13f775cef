#include "cli/raw_arguments.h"

#include "cli/help_texts.h"
#include "cli/nearest.h"
#include "cli/request.h"
#include "session/lifecycle/program.h"

#include <CLI/CLI.hpp>

namespace tarvix::cli {

const std::array<std::string_view, 10> kAttributeOptions{
    "--read-only", "--hidden", "--system", "--archived", "--alias",
    "--compress",  "--256",    "--512",    "--64",       "--128"};

namespace {

constexpr const char* kWhatGroup = "What to find";
constexpr const char* kAttributeGroup = "Attributes, each no | yes | any";
constexpr const char* kOutputGroup = "Output";
constexpr const char* kCopyGroup = "Copy";

// The parser would take "[a,b]" for a list of its own; the mark keeps such words whole.
constexpr char kWordMark = '\x01';

std::string Protect(const std::string& word) {
    const bool isBracketed = word.size() > 1 && word.front() == '[' && word.back() == ']';
    return isBracketed ? kWordMark + word : word;
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
    app.set_version_flag("--version", std::string(lifecycle::ProductName()) + " " +
                                          std::string(lifecycle::ProductVersion()))
        ->group(kGroup);
    AddText(app, "--data-folder", raw.dataFolder, "DIR",
            "Keeps options, histories and logs in this folder; it is made if missing", kGroup);
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
    AddWords(app, "--in", raw.locations, "LOCATION ...",
             "The folders to search: paths of this machine, file addresses or drive paths",
             kWhatGroup);
    AddText(app, "--kind", raw.kind, "KIND",
            "files (the default), empty-files, all, folders or empty-folders", kWhatGroup);
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
            "The date to test: modified (the default), created or accessed", kWhatGroup);
    AddAttributeOptions(app, raw);
    AddWords(app, "--answer", raw.answers, "VALUE",
             "Answers the next question that comes up; may be repeated", kOutputGroup)
        ->allow_extra_args(false);
}

CLI::App& AddCommand(CLI::App& app, const char* name, const char* about, const char* footer) {
    CLI::App& command = *app.add_subcommand(name, about);
    command.fallthrough()->allow_extras()->footer(footer);
    return command;
}

void AddSearch(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, "search", kSearchAbout, kSearchFooter);
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

void AddCopy(CLI::App& app, RawArguments& raw) {
    CLI::App& command = AddCommand(app, "copy", kCopyAbout, kCopyFooter);
    AddCriteria(command, raw);
    AddText(command, "--to", raw.destination, "FOLDER", "Where the copies go", kCopyGroup);
    AddText(command, "--structure", raw.structure, "none",
            "Copies go straight into the folder, without their own folders", kCopyGroup);
    AddText(command, "--on-duplicate", raw.onDuplicate, "skip",
            "What exists at the destination stays", kCopyGroup);
    AddFlag(command, "-y,--yes", raw.yes, "Confirms the copy", kCopyGroup);
}

void AddOthers(CLI::App& app, RawArguments& raw) {
    CLI::App& run = AddCommand(app, "run", kRunAbout, kRunFooter);
    AddText(run, "SCRIPT", raw.target, "", "The script, or - for stdin", "Positionals");
    CLI::App& sample = AddCommand(app, "sample", kSampleAbout, kSampleFooter);
    AddText(sample, "DIR", raw.target, "", "The folder to fill", "Positionals");
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
    constexpr std::array<std::string_view, 4> kCommands{"search", "copy", "run", "sample"};
    return Wrong("There is no command \"" + word + "\"." + DidYouMean(word, kCommands) +
                 " tarvix-cli --help lists them.");
}

EarlyEnd UnknownOption(const CLI::App& app, const std::string& word) {
    const std::vector<std::string> names = OptionNames(app);
    const std::vector<std::string_view> views(names.begin(), names.end());
    const std::string name = word.substr(0, word.find('='));
    const std::string command = app.get_name();
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
    return Wrong("Name a command: search, copy, run or sample. tarvix-cli --help tells more.");
}

void UnprotectAll(std::vector<std::string>& words) {
    for (std::string& word : words)
        word = Unprotect(word);
}

} // namespace

std::expected<RawArguments, EarlyEnd> ReadRawArguments(const std::vector<std::string>& arguments) {
    RawArguments raw;
    CLI::App app(kAbout, "tarvix-cli");
    app.footer(kAboutFooter)->allow_extras()->require_subcommand(0, 1);
    app.get_formatter()->column_width(34);
    AddGlobalOptions(app, raw);
    AddSearch(app, raw);
    AddCopy(app, raw);
    AddOthers(app, raw);
    try {
        std::vector<std::string> reversed;
        for (auto word = arguments.rbegin(); word != arguments.rend(); ++word)
            reversed.push_back(Protect(*word));
        app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        return std::unexpected(EarlyEnd{.out = app.help()});
    } catch (const CLI::CallForVersion& version) {
        return std::unexpected(EarlyEnd{.out = std::string(version.what()) + "\n"});
    } catch (const CLI::ParseError& error) {
        return std::unexpected(Explain(error));
    }
    if (auto leftover = CheckLeftovers(app)) return std::unexpected(std::move(*leftover));
    raw.command = app.get_subcommands().front()->get_name();
    for (auto* words : {&raw.patterns, &raw.locations, &raw.answers, &raw.drives})
        UnprotectAll(*words);
    return raw;
}

} // namespace tarvix::cli
