#include "cli/adding.h"
#include "cli/arguments.h"
#include "cli/help_texts.h"
#include "cli/values.h"

namespace tarvix::cli {

namespace {

Added<ActionRequest> AddAction(CLI::App& app, const CommandHelp& help, ActionVerb verb,
                               Command& chosen, void (*check)(ActionRequest&)) {
    const auto added = Add<ActionRequest>(app, help, chosen, check);
    added.record.verb = verb;
    AddCriteria(added.command, added.record.criteria, added.record.answers);
    return added;
}

void AddRunOptions(Options& options, ActionRequest& action) {
    options.Flag("-y,--yes", action.confirmed, "Confirms the action");
    auto* dryRun =
        options.Flag("-n,--dry-run", action.dryRun, "Tells what would happen, and does nothing");
    options.Flag("--json", action.json, "With --dry-run: one object a line")->needs(dryRun);
}

// Makes a value that isn't empty the way of the action.
auto Goes(ActionRequest& action, Way way) {
    return [&action, way](const std::string& word) {
        if (!word.empty()) action.way = way;
    };
}

struct Ways {
    CLI::Option* folder;
    CLI::Option* rule;
};

// The options of a copy or move, which give each object a place.
Ways AddPlaces(Options& options, ActionRequest& action) {
    auto* folder = options.Text("--to FOLDER", action.destination, "The folder they go to");
    auto* rule = options.Text("--rule RULE", action.destination,
                              "A folder for each by its own path, such as 'E:\\Sorted\\*12*'");
    options.Choice("--structure STRUCTURE", action.structure,
                   {"none", "mirror", "folder", "backup"},
                   "none (unless given), mirror, folder or backup: the folders that come along");
    options.Choice("--on-duplicate CHOICE", action.duplicateChoice,
                   {"skip", "ask", "overwrite", "rename"},
                   "skip (unless given), ask, overwrite or rename, where something stands already");
    options.Text("--rename-text TEXT", action.renameText,
                 "What is added to the name of a duplicate; _ at first");
    options.Choice("--rename-at SIDE", action.renameAtBeginning, {"end", "beginning"},
                   "end (unless given) or beginning");
    return {folder->each(Goes(action, kToFolder)), rule->each(Goes(action, kByRule))};
}

void CheckMove(ActionRequest& move) {
    CheckCriteria(move.criteria);
    if (move.way == kNoWay) {
        Refuse("Say where they go with --to, --up or --rule, such as --to ~/Sorted.");
    }
    constexpr int kOverwrite = 2;
    if (move.duplicateChoice != kOverwrite) return;
    Refuse("A move never overwrites: --on-duplicate takes skip, ask or rename for it.");
}

void CheckRename(ActionRequest& rename) {
    CheckCriteria(rename.criteria);
    if (rename.wholeNames && rename.source != NameSource::kList) {
        Refuse("--whole-names goes with --from-list.");
    }
    const bool isTyped = rename.insertedText || !rename.soughtText.empty();
    if (isTyped && rename.source != NameSource::kTyped) {
        Refuse("The names come from one source: leave out --insert and --find, or the other one.");
    }
    if (isTyped || rename.source != NameSource::kTyped) return;
    Refuse("Say what to do with the names: --insert TEXT, or --find TEXT with --replace TEXT.");
}

// The options that take names from elsewhere.
void AddNameSources(CLI::App& command, Options& options, ActionRequest& rename) {
    const auto comes = [&rename](NameSource source) {
        return [&rename, source](const std::string&) { rename.source = source; };
    };
    auto* list = options.Text("--from-list FILE", rename.sourceFile,
                              "Line by line the names, without extensions, then *EOF");
    auto* links = options.Text("--from-links FILE", rename.sourceFile,
                               "What the links of a web page call them");
    auto* prefixes =
        options.Text("--prefix-from FILE", rename.sourceFile,
                     "The first line of a list that a file holds comes before its name");
    const auto addFlag = [&](const char* name, NameSource source, const char* help) {
        return command
            .add_flag_callback(
                name, [&rename, source] { rename.source = source; }, help)
            ->group(kActionGroup);
    };
    auto* titles = addFlag("--from-title", NameSource::kTitles,
                           "The title of its web page comes before each name");
    auto* edit = addFlag("--edit", NameSource::kEditor, "Shows the names in your editor");
    ExcludeEachOther({list->each(comes(NameSource::kList)), links->each(comes(NameSource::kLinks)),
                      prefixes->each(comes(NameSource::kPrefixes)), titles, edit});
    options.Flag("--whole-names", rename.wholeNames,
                 "The list has whole names, one for each, and two may change places");
}

} // namespace

void AddCopy(CLI::App& app, Command& chosen) {
    const auto [command, copy] =
        AddAction(app, kCopy, ActionVerb::kCopy, chosen, [](ActionRequest& request) {
            CheckCriteria(request.criteria);
            if (request.way == kNoWay) {
                Refuse("Say where the copies go with --to, such as --to ~/Copies.");
            }
            if (request.folderNames == 0) return;
            if (request.way != kToFolder || request.structure != 0) {
                Refuse("--name-from-folders goes with --to alone: all copies lie side by side.");
            }
        });
    Options options(command, kActionGroup);
    const Ways ways = AddPlaces(options, copy);
    auto* lists = options.Words(
        "--mpl LIST", copy.lists,
        "Into each folder of a Multiple Path List of the data folder; may be repeated");
    ways.rule->excludes(ways.folder)->excludes(lists->each(Goes(copy, kToLists)));
    options.Value("--name-from-folders N", copy.folderNames, ReadLevels,
                  "Each copy gets the names of the last N folders that it lies in as its name");
    AddRunOptions(options, copy);
}

void AddMove(CLI::App& app, Command& chosen) {
    const auto [command, move] = AddAction(app, kMove, ActionVerb::kMove, chosen, CheckMove);
    Options options(command, kActionGroup);
    const Ways ways = AddPlaces(options, move);
    auto* levels =
        options.Value("--up LEVELS", move.levels, ReadLevels, "So many levels up the folder tree");
    ExcludeEachOther({ways.folder, ways.rule, levels->each(Goes(move, kUpTheTree))});
    options.Flag("--with-folder-names", move.withFolderNames,
                 "With --up: the folders passed come before the name");
    AddRunOptions(options, move);
}

void AddRename(CLI::App& app, Command& chosen) {
    const auto [command, rename] =
        AddAction(app, kRename, ActionVerb::kRename, chosen, CheckRename);
    Options options(command, kActionGroup);
    auto* insert = options.Text("--insert TEXT", rename.insertedText, "Inserts it into each name");
    options.Choice("--at SIDE", rename.insertAtBeginning, {"end", "beginning"},
                   "end (unless given) or beginning");
    options.Text("--find TEXT", rename.soughtText, "Looks for it, in upper or lower case")
        ->excludes(insert);
    options.Text("--replace TEXT", rename.newText, "What stands there then; nothing at first");
    options.Flag("--once", rename.onlyOnce, "Replaces only the first in a name");
    options.Choice("--portion PORTION", rename.portion, {"prefix", "extension", "name"},
                   "prefix (unless given), extension or name: the part of a file's name");
    AddNameSources(command, options, rename);
    AddRunOptions(options, rename);
}

} // namespace tarvix::cli
