#pragma once

#include "cli/request.h"

#include <CLI/CLI.hpp>

#include <expected>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::cli {

// Why nothing is to be run: a text for stdout (help, version), or a sentence for stderr.
struct EarlyEnd {
    int exitCode = 0;
    std::string out;
    std::string sentence;
};

// How a command shows: its name and summary in the list of commands; its own help begins and ends
// with the other two.
struct CommandHelp {
    const char* name;
    const char* summary;
    const char* about;
    const char* footer;
};

// Gives the app the program's manners. Comes before anything is added to it.
void SetUp(CLI::App& app);
CLI::App& AddCommand(CLI::App& app, const CommandHelp& help);

// Ends the parse: the request is wrong, as the sentence says.
[[noreturn]] void Refuse(std::string sentence);
// The value, or the refusal that stands in its place.
template <class T>
T Taken(std::expected<T, std::string> value) {
    if (!value) Refuse(std::move(value.error()));
    return std::move(*value);
}

// Adds options and arguments to a command, in one group of its help. `shown` is an option with
// what the help shows for its value: "--to FOLDER". Targets must outlive the parse; of several
// values the last one counts.
class Options {
  public:
    Options(CLI::App& app, const char* group);

    CLI::Option* Flag(const char* name, bool& target, const char* help);
    // May be repeated, and take several words at a time unless `oneByOne`.
    CLI::Option* Words(const char* shown, std::vector<std::string>& target, const char* help,
                       bool oneByOne = true);
    // The word itself.
    template <class Target>
    CLI::Option* Text(const std::string& shown, Target& target, const char* help) {
        return Taking(
            shown, [&target](const std::string& word) { target = word; }, help);
    }
    // What `read(name, word)` makes of the word; its failure is the sentence of the refusal.
    template <class Target, class Read>
    CLI::Option* Value(const std::string& shown, Target& target, Read read, const char* help) {
        const auto take = [name = NameOf(shown), &target, read](const std::string& word) {
            target = Taken(read(name, word));
        };
        return Taking(shown, take, help);
    }
    // One of the words, in either case; the target gets its position.
    template <class Target>
    CLI::Option* Choice(const std::string& shown, Target& target,
                        const std::vector<std::string>& words, const char* help) {
        return Typed(app_.add_option(NameOf(shown), target, help)->transform(OneOf(words)), shown);
    }

  private:
    using Take = std::function<void(const std::string&)>;
    static std::string NameOf(const std::string& shown);
    static CLI::Option* Typed(CLI::Option* option, const std::string& shown);
    static CLI::Validator OneOf(const std::vector<std::string>& words);
    CLI::Option* Taking(const std::string& shown, const Take& take, const char* help);

    CLI::App& app_;
};

void ExcludeEachOther(std::initializer_list<CLI::Option*> options);

// Parses the arguments of the process, without the program's name, into the targets of all options.
std::expected<void, EarlyEnd> Parse(CLI::App& app, const std::vector<std::string>& arguments);

} // namespace tarvix::cli
