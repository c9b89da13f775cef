#include "cli/parser.h"

#include "cli/nearest.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace tarvix::cli {

namespace {

// The parser would take "[a,b]" for a list of its own, and what follows "--" behind a list for
// options; the mark keeps such words whole.
constexpr char kWordMark = '\x01';

std::vector<std::string> Marked(const std::vector<std::string>& words) {
    std::vector<std::string> marked;
    bool isPlain = false;
    for (const std::string& word : words) {
        const bool isList = word.size() > 1 && word.front() == '[' && word.back() == ']';
        marked.push_back(isPlain || isList ? kWordMark + word : word);
        isPlain = isPlain || word == "--";
    }
    return marked;
}

std::string Unmark(std::string& word) {
    if (word.starts_with(kWordMark)) word.erase(0, 1);
    return {};
}

// Shows the type of an option alone; what excludes what is told when it happens.
class OptionFormatter : public CLI::Formatter {
    std::string make_option_opts(const CLI::Option* option) const override {
        const bool isFlag = option->get_type_size() == 0;
        const bool takesMany = option->get_expected_max() == CLI::detail::expected_max_vector_size;
        const std::string type = isFlag ? "" : option->get_type_name();
        return fmt::format("{}{}{}", type.empty() ? "" : " ", type, takesMany ? " ..." : "");
    }
};

// "tarvix-cli", "tarvix-cli search".
std::string NameOf(const CLI::App& app) {
    const CLI::App* parent = app.get_parent();
    return parent ? fmt::format("{} {}", NameOf(*parent), app.get_name()) : app.get_name();
}

const CLI::App& Innermost(const CLI::App& app) {
    const auto given = app.get_subcommands();
    return given.empty() ? app : Innermost(*given.front());
}

std::vector<std::string> CommandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands(nullptr))
        names.push_back(command->get_name());
    return names;
}

std::string UnknownOption(const CLI::App& command, const std::string& word) {
    std::vector<std::string> names;
    for (const CLI::App* owner = &command; owner; owner = owner->get_parent()) {
        for (const CLI::Option* option : owner->get_options()) {
            for (const std::string& name : option->get_lnames())
                names.push_back(fmt::format("--{}", name));
        }
    }
    const std::string name = word.substr(0, word.find('='));
    return fmt::format("There is no option {}.{} {} --help lists them.", name,
                       DidYouMean(name, names), NameOf(command));
}

// The first word that nothing took.
std::optional<std::string> ExplainLeftover(const CLI::App& app, const CLI::App& command) {
    for (std::string& word : app.remaining(true)) {
        if (word == "--") continue;
        if (word.size() > 1 && word.front() == '-') return UnknownOption(command, word);
        Unmark(word);
        const auto names = CommandNames(command);
        if (names.empty()) {
            return fmt::format("{} can't use \"{}\": it has all its arguments already.",
                               NameOf(command), word);
        }
        return fmt::format("There is no command \"{}\".{} {} --help lists them.", word,
                           DidYouMean(word, names), NameOf(command));
    }
    return std::nullopt;
}

// The parser's sentence, with what to do where it doesn't say that.
std::string Explain(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App& command = Innermost(app);
    if (auto sentence = ExplainLeftover(app, command)) return *sentence;
    const std::string what = error.what();
    if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
        return fmt::format("{}: leave one of them out.", what);
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error) == nullptr) {
        return what + (what.ends_with('.') || what.ends_with('?') ? "" : ".");
    }
    const auto names = CommandNames(command);
    const std::string missing =
        names.empty() ? what : fmt::format("Name a command: {}", fmt::join(names, ", "));
    return fmt::format("{}. {} --help tells more.", missing, NameOf(command));
}

bool AsksForHelp(const CLI::App& app) {
    return app.get_help_ptr()->count() > 0 || Innermost(app).get_help_ptr()->count() > 0;
}

} // namespace

void SetUp(CLI::App& app) {
    constexpr int kColumnWidth = 28;
    const auto formatter = std::make_shared<OptionFormatter>();
    formatter->column_width(kColumnWidth);
    formatter->label("OPTIONS", "OPTION ...");
    formatter->label("SUBCOMMAND", "COMMAND");
    formatter->label("Positionals", "Arguments");
    app.formatter(formatter);
    app.set_help_flag("-h,--help", "Tells what a command does and takes");
    app.fallthrough()->require_subcommand(1)->group("Commands");
    app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

CLI::App& AddCommand(CLI::App& app, const CommandHelp& help) {
    CLI::App& command = *app.add_subcommand(help.name, help.summary)->footer(help.footer);
    command.preparse_callback([&](std::size_t) { command.description(help.about); });
    return command;
}

Options::Options(CLI::App& app, const char* group) : app_(app) {
    app_.option_defaults()->group(group);
}

std::string Options::NameOf(const std::string& shown) {
    return shown.substr(0, shown.find(' '));
}

CLI::Option* Options::Typed(CLI::Option* option, const std::string& shown) {
    const std::size_t type = std::min(shown.find(' '), shown.size() - 1) + 1;
    return option->type_name(shown.substr(type))->transform(CLI::Validator(Unmark, ""));
}

CLI::Option* Options::Taking(const std::string& shown, const Take& take, const char* help) {
    return Typed(app_.add_option_function<std::string>(NameOf(shown), take, help), shown);
}

CLI::Option* Options::Flag(const char* name, bool& target, const char* help) {
    return app_.add_flag(name, target, help);
}

CLI::Option* Options::Words(const char* shown, std::vector<std::string>& target, const char* help,
                            bool oneByOne) {
    return Typed(app_.add_option(NameOf(shown), target, help), shown)->allow_extra_args(!oneByOne);
}

CLI::Validator Options::OneOf(const std::vector<std::string>& words) {
    const CLI::IsMember isOne(words, CLI::ignore_case);
    const auto take = [words, isOne](std::string& word) {
        std::string sentence = isOne(word);
        if (!sentence.empty()) return fmt::format("{}.{}", sentence, DidYouMean(word, words));
        word = fmt::format("{}", std::ranges::find(words, word) - words.begin());
        return sentence;
    };
    return {take, ""};
}

void ExcludeEachOther(std::initializer_list<CLI::Option*> options) {
    for (CLI::Option* first : options) {
        for (CLI::Option* second : options)
            if (first != second) first->excludes(second);
    }
}

void Refuse(std::string sentence) {
    throw CLI::ValidationError(std::move(sentence), kBadRequest);
}

std::expected<void, EarlyEnd> Parse(CLI::App& app, const std::vector<std::string>& arguments) {
    std::vector<std::string> words = Marked(arguments);
    std::ranges::reverse(words);
    try {
        app.parse(std::move(words));
        return {};
    } catch (const CLI::CallForVersion& version) {
        return std::unexpected(EarlyEnd{.out = fmt::format("{}\n", version.what())});
    } catch (const CLI::ParseError& error) {
        if (AsksForHelp(app)) return std::unexpected(EarlyEnd{.out = app.help()});
        return std::unexpected(EarlyEnd{.exitCode = kBadRequest, .sentence = Explain(app, error)});
    }
}

} // namespace tarvix::cli
