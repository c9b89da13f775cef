#include "cli/adding.h"
#include "cli/arguments.h"
#include "cli/help_texts.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::cli {

namespace {

// By the order of the values; those that are chosen from a few are only set.
struct FieldOption {
    const char* name;
    const char* what;
    bool isReplaced;
};
constexpr std::array<FieldOption, kLinkFields> kFields{{{"target", "the target", true},
                                                        {"arguments", "the arguments", true},
                                                        {"start-in", "the working folder", true},
                                                        {"hot-key", "the hot key", false},
                                                        {"window-style", "the window style", false},
                                                        {"description", "the description", true},
                                                        {"icon", "the icon", true}}};

void CheckLinks(LinksRequest& request) {
    if (request.verb == LinksVerb::kApply) return;
    if (request.criteria.patterns.empty()) {
        request.criteria.patterns = {"*.lnk|*.url|*.desktop"};
    }
    CheckCriteria(request.criteria);
    if (request.verb != LinksVerb::kSet) return;
    bool changesAny = false;
    for (std::size_t i = 0; i < kLinkFields; ++i) {
        const bool hasFrom = !request.from[i].empty();
        if (hasFrom != request.to[i].has_value()) {
            Refuse(fmt::format("--{0}-from and --{0}-to go together: give both.", kFields[i].name));
        }
        changesAny = changesAny || hasFrom || request.values[i];
    }
    if (!changesAny) {
        Refuse("Say what is to change, such as --target-from 'C:\\old' --target-to 'D:\\new'.");
    }
}

void AddSet(Options& set, LinksRequest& request) {
    for (std::size_t i = 0; i < kLinkFields; ++i) {
        const FieldOption& field = kFields[i];
        set.Text(fmt::format("--{} VALUE", field.name), request.values[i],
                 fmt::format("What {} is to be", field.what).c_str());
        if (!field.isReplaced) continue;
        set.Text(fmt::format("--{}-from TEXT", field.name), request.from[i],
                 fmt::format("What is replaced in {}", field.what).c_str());
        set.Text(fmt::format("--{}-to TEXT", field.name), request.to[i], "What takes its place");
    }
    set.Flag("--pattern", request.isPattern,
             "The whole value must fit: * is any run, ? one character");
    set.Flag("--match-case", request.matchesCase, "Letters count in their case");
}

} // namespace

void AddLinks(CLI::App& app, Command& chosen) {
    const auto [command, request] = Add<LinksRequest>(app, kLinks, chosen, CheckLinks);
    command.require_subcommand(1);
    const auto addVerb = [&](LinksVerb verb, const char* name, const char* help) -> CLI::App& {
        const auto take = [&taken = request.verb, verb] { taken = verb; };
        return *command.add_subcommand(name, help)->callback(take);
    };
    CLI::App& show = addVerb(LinksVerb::kShow, "show", "Prints the seven values of each shortcut");
    CLI::App& edit = addVerb(LinksVerb::kEdit, "edit", "Writes the values as a text for editing");
    CLI::App& apply = addVerb(LinksVerb::kApply, "apply", "Saves what was changed in that text");
    CLI::App& set = addVerb(LinksVerb::kSet, "set", "Changes values of all shortcuts found");
    CLI::App& check = addVerb(LinksVerb::kCheck, "check", "Prints those with a missing target");
    for (CLI::App* finding : {&show, &edit, &set, &check}) {
        AddCriteria(*finding, request.criteria, request.answers);
    }
    for (CLI::App* printing : {&show, &check}) {
        Options(*printing, kOutputGroup).Flag("--json", request.json, "One object a line");
    }
    Options editing(edit, kActionGroup);
    editing.Text("--to FILE", request.file,
                 "The text to write; unless given, the one that the "
                 "window uses");
    editing.Flag("-y,--yes", request.confirmed, "Replaces a file that stands already");
    Options applying(apply, kActionGroup);
    applying.Text("FILE", request.file, "The text; unless given, the one that the window uses");
    Options setting(set, kActionGroup);
    AddSet(setting, request);
    for (Options* saving : {&applying, &setting}) {
        saving->Flag("-n,--dry-run", request.dryRun, "Prints what would change and saves nothing");
    }
}

} // namespace tarvix::cli
