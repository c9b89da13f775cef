#include "cli/arguments.h"

#include "cli/adding.h"
#include "cli/help_texts.h"
#include "cli/output_columns.h"
#include "cli/values.h"
#include "results/program.h"
#include "session/product.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <memory>

namespace tarvix::cli {

namespace {

constexpr const char* kSortHelp = "Sorts as by a click on a column head";

void AddMachine(CLI::App& app, Request& request) {
    MachineRequest& machine = request.machine;
    app.set_version_flag("--version",
                         fmt::format("{} {}", session::kProductName, session::ProductVersion()),
                         "Tells the version");
    Options options(app, "Options");
    options.Text("--data-folder DIR", machine.dataFolder,
                 "Where options, histories and logs lie; made if missing");
    const auto drives = std::make_shared<std::vector<std::string>>();
    options.Words("--drive E=/path", *drives,
                  "Gives a folder a drive letter of its own; may be repeated");
    app.callback([drives, &machine] {
        for (const std::string& drive : *drives)
            machine.drives.push_back(Taken(ReadDrive("--drive", drive)));
    });
    options.Value("--now TIME", machine.now, ReadDate, "Runs as if it were this time");
    options.Flag("--verbose", request.verbose,
                 "Tells each of several equal failures, which are one line with a count otherwise");
}

void AddSearch(CLI::App& app, Command& chosen) {
    const auto [command, search] =
        Add<SearchRequest>(app, kSearch, chosen, [](SearchRequest& request) {
            CheckCriteria(request.criteria);
            RowFormat& format = request.output.format;
            const bool hasColumns = !request.output.columns.empty();
            if (format == RowFormat::kPaths && hasColumns) format = RowFormat::kCells;
        });
    AddCriteria(command, search.criteria, search.answers);
    Options options(command, kOutputGroup);
    auto* columns = options.Value("--columns NAME,...", search.output.columns, ReadColumns,
                                  "These cells, in this order; all for all (see below)");
    command.footer(kSearch.footer + ColumnHelp());
    options.Value("--sort KEY[:desc]", search.output.sort, ReadSort, kSortHelp);
    const auto addFormat = [&](const char* name, RowFormat format, const char* help) {
        const auto take = [&taken = search.output.format, format] { taken = format; };
        return command.add_flag_callback(name, take, help);
    };
    auto* json =
        addFormat("--json", RowFormat::kJson, "One object a line: cells by column key, and facts");
    auto* table =
        addFormat("--tsv", RowFormat::kTable, "Cells with tabs between, under a head line");
    auto* zero = addFormat("--print0", RowFormat::kZeroPaths, "Paths, each ended by a NUL byte");
    ExcludeEachOther({json, table, zero});
    zero->excludes(columns);
}

void AddAutoMove(CLI::App& app, Command& chosen) {
    const auto [command, move] =
        Add<AutoMoveRequest>(app, kAutoMove, chosen, [](AutoMoveRequest& request) {
            CheckTests(request.criteria);
            if (request.searches.empty() || request.destinations.empty()) {
                Refuse("Name both lists, with --searches FILE and --destinations FILE.");
            }
            constexpr int kFolders = 3; // of --kind
            if (request.thenFiles && request.criteria.kind != kFolders) {
                Refuse("--then-files goes with --kind folders: without it files are moved anyway.");
            }
        });
    AddTests(command, move.criteria);
    Options options(command, kActionGroup);
    options.Text("--searches FILE", move.searches, "A list of patterns, one a line, then *EOF");
    options.Text("--destinations FILE", move.destinations,
                 "A list of folders, one for each pattern, then *EOF; or *REPEAT to start over");
    options.Choice("--on-duplicate CHOICE", move.renamesDuplicates, {"skip", "rename"},
                   "skip (unless given) or rename, where something stands already");
    options.Flag("--then-files", move.thenFiles, "Goes down the lists again, for files");
    options.Flag("--empty-folders", move.emptiesFolders,
                 "At the end sends all empty folders of the locations to the trash");
    options.Flag("-y,--yes", move.confirmed, "Confirms the run");
    options.Flag("-n,--dry-run", move.dryRun,
                 "Tells how many objects each line finds, and moves nothing");
    options.Flag("--json", move.json, "One object a line");
}

void CheckAutoPlaylist(AutoPlaylistRequest& request) {
    const bool isLocal = !request.folders.empty();
    if (request.searches.empty()) Refuse("Name the list of searches, with --searches FILE.");
    if (isLocal == !request.folder.empty()) {
        Refuse("Say where the playlists go: --folders FILE for one in each folder that is "
               "searched, or --to FOLDER for all in one.");
    }
    if (isLocal && !request.criteria.locations.empty()) {
        Refuse("--folders names the folders to search: leave --in out.");
    }
    if (isLocal) request.criteria.locations = {"/"}; // each step brings its own
    CheckTests(request.criteria);
    if (isLocal) request.criteria.locations.clear();
}

void AddAutoPlaylist(CLI::App& app, Command& chosen) {
    const auto [command, batch] =
        Add<AutoPlaylistRequest>(app, kAutoPlaylist, chosen, CheckAutoPlaylist);
    AddTests(command, batch.criteria);
    Options options(command, kActionGroup);
    options.Text("--searches FILE", batch.searches, "A list of patterns, one a line, then *EOF");
    auto* folders = options.Text("--folders FILE", batch.folders,
                                 "A list of folders, then *EOF: each is searched and gets the "
                                 "playlists of what lies there");
    auto* folder = options.Text("--to FOLDER", batch.folder,
                                "All playlists go there; what is searched is told by --in");
    const auto addForm = [&](const char* name, PlaylistForm form, const char* help) {
        const auto take = [&taken = batch.form, form] { taken = form; };
        return command.add_flag_callback(name, take, help);
    };
    auto* local = addForm("--local", kLocalNames, "With --folders: entries are names");
    auto* full = addForm("--full", kFullPaths, "Entries are full paths (unless told otherwise)");
    ExcludeEachOther({folders, folder});
    ExcludeEachOther({local, full});
    local->excludes(folder);
    options.Value("--sort KEY[:desc]", batch.sort, ReadSort, kSortHelp);
    options.Flag("--comments", batch.addsComments, "Tells missing ranks as comments");
    options.Flag("-n,--dry-run", batch.dryRun,
                 "Tells how many objects each playlist would hold, and writes nothing");
    options.Flag("--json", batch.json, "One object a line");
}

void AddShowPages(CLI::App& app, Command& chosen) {
    const auto [command, show] = Add<ShowPagesRequest>(app, kShowPages, chosen);
    Options(command, "Arguments")
        .Text("FILE", show.list, "The list of addresses, one a line, then *EOF")
        ->required();
    Options(command, kActionGroup)
        .Text("--seconds N", show.seconds, "How long each page stays, from 1 to 655")
        ->required();
}

void AddDelete(CLI::App& app, Command& chosen) {
    const auto [command, deletion] = Add<DeleteRequest>(
        app, kDelete, chosen, [](DeleteRequest& request) { CheckCriteria(request.criteria); });
    AddCriteria(command, deletion.criteria, deletion.answers);
    Options options(command, kActionGroup);
    options.Choice("--on-recycle-failure CHOICE", deletion.deletesForGood, {"keep", "delete"},
                   "keep or delete (for good) what can't go to the trash");
    options.Choice("--override-system-hidden CHOICE", deletion.takesProtected, {"no", "yes"},
                   "no or yes: whether hidden and system objects go too");
    options.Flag("--even-if-changed", deletion.takesChanged,
                 "Recycles what has changed since it was found, too");
    options.Flag("-y,--yes", deletion.confirmed, "Confirms the deletion");
    auto* dryRun = options.Flag("-n,--dry-run", deletion.dryRun,
                                "Tells what would become of each object, and deletes nothing");
    options.Flag("--json", deletion.json, "With --dry-run: one object a line")->needs(dryRun);
}

void AddFile(Options& options, std::string& file, bool& addsEof, bool& confirmed) {
    options.Text("--to FILE", file, "The file to write; - (unless given) for stdout");
    options.Flag("--eof", addsEof, "Ends it in a line \"*EOF\"; a name in .mpl always has that");
    options.Flag("-y,--yes", confirmed, "Replaces a file that stands already");
}

void AddList(CLI::App& app, Command& chosen) {
    const auto [command, list] = Add<ListRequest>(app, kList, chosen, [](ListRequest& request) {
        CheckCriteria(request.criteria);
        if (request.form != kWebPage || request.file != "-") return;
        Refuse("A web page needs a file, since its links begin there: give --to FILE.");
    });
    AddCriteria(command, list.criteria, list.answers);
    Options options(command, kActionGroup);
    options.Choice("--as FORM", list.form, {"paths", "names", "mpl", "html", "targets"},
                   "paths (unless given), names, mpl, html or targets");
    options.Choice("--text TEXT", list.pageText, {"PN", "P", "N", "R", "F"},
                   "Of a page's entries: PN path and name (unless given), P path, N name, R "
                   "relative path, F folder");
    options.Value("--sort KEY[:desc]", list.sort, ReadSort, kSortHelp);
    AddFile(options, list.file, list.addsEof, list.confirmed);
}

void AddPlaylist(CLI::App& app, Command& chosen) {
    const auto [command, playlist] =
        Add<PlaylistRequest>(app, kPlaylist, chosen, [](PlaylistRequest& request) {
            CheckCriteria(request.criteria);
            if (request.file.empty()) {
                Refuse("Say where the playlist goes with --to, such as --to ~/Music/all.m3u.");
            }
        });
    AddCriteria(command, playlist.criteria, playlist.answers);
    Options options(command, kActionGroup);
    options.Text("--to FILE", playlist.file, "The playlist to write");
    const auto addForm = [&](const char* name, PlaylistForm form, const char* help) {
        const auto take = [&taken = playlist.form, form] { taken = form; };
        return command.add_flag_callback(name, take, help);
    };
    ExcludeEachOther(
        {addForm("--full", kFullPaths, "Entries are full paths (unless told otherwise)"),
         addForm("--local", kLocalNames, "Entries are names: the playlist lies beside its files"),
         addForm("--relative", kRelativePaths, "Entries begin at the playlist's own folder")});
    auto* similar = options.Text("--similar FOLDER", playlist.similarFolder,
                                 "Notes files in there that are named alike as comments");
    options
        .Value("--deviation BYTES", playlist.deviation, ReadSize,
               "How much their sizes may differ; 400000 unless given")
        ->needs(similar);
    options.Value("--sort KEY[:desc]", playlist.sort, ReadSort, kSortHelp);
    options.Flag("--comments", playlist.addsComments, "Tells missing ranks as comments");
    options.Flag("-y,--yes", playlist.confirmed, "Replaces a file that stands already");
}

void AddNumbers(CLI::App& app, Command& chosen) {
    const auto [command, numbers] = Add<NumbersRequest>(app, kNumbers, chosen);
    Options options(command, kActionGroup);
    options.Text("--from N", numbers.from, "The first number")->required();
    options.Text("--until N", numbers.until, "The last number")->required();
    options.Text("--line TEXT", numbers.lineText, "The line; * (unless given) is the number");
    options.Text("--format PICTURE", numbers.picture, "How numbers look, such as 00#");
    AddFile(options, numbers.file, numbers.addsEof, numbers.confirmed);
}

void CheckFolders(FoldersRequest& request) {
    if (!request.list.empty()) return;
    if (!request.from.empty() && !(request.count.empty() && request.until.empty())) return;
    Refuse("Say which folders: --from N --count N, --from A --to ZZZ, or --list FILE.");
}

void AddMakeFolders(CLI::App& app, Command& chosen) {
    const auto [command, folders] = Add<FoldersRequest>(app, kMakeFolders, chosen, CheckFolders);
    Options options(command, kActionGroup);
    options.Text("--in FOLDER", folders.place, "The folder that they are made in")->required();
    auto* from = options.Text("--from START", folders.from, "The first number or name");
    auto* count = options.Text("--count N", folders.count, "How many numbers");
    auto* until = options.Text("--to END", folders.until, "The last counted name");
    auto* list = options.Text("--list FILE", folders.list, "A file of names, ended by *EOF");
    ExcludeEachOther({count, until, list});
    list->excludes(from);
}

void CheckOpen(OpenRequest& request) {
    if (!request.criteria.locations.empty()) return CheckCriteria(request.criteria);
    if (request.criteria.patterns.empty()) {
        Refuse("Say what to open: paths, or patterns with --in LOCATION.");
    }
}

template <class Record>
void AddLaunch(Options& options, Record& record, const char* confirms) {
    auto* dryRun = options.Flag("-n,--dry-run", record.dryRun,
                                "Tells what would be started, and starts "
                                "nothing");
    options.Flag("--json", record.json, "With --dry-run: one object a line")->needs(dryRun);
    options.Flag("-y,--yes", record.confirmed, confirms);
}

void AddOpen(CLI::App& app, Command& chosen) {
    const auto [command, open] = Add<OpenRequest>(app, kOpen, chosen, CheckOpen);
    AddCriteria(command, open.criteria, open.answers);
    Options options(command, kActionGroup);
    options.Text("--with APPLICATION", open.with,
                 "The name or id of an application, or a command: opens all with that one");
    AddLaunch(options, open, "Opens more than 200 objects, too");
}

void AddRunProgram(CLI::App& app, Command& chosen) {
    const auto [command, run] = Add<RunProgramRequest>(app, kRunProgram, chosen);
    Options(command, "Arguments").Text("PATH", run.path, "The program")->required();
    Options options(command, kActionGroup);
    AddLaunch(options, run, "Starts an .exe, too");
}

void AddRun(CLI::App& app, Command& chosen) {
    const auto [command, run] = Add<RunRequest>(app, kRun, chosen);
    Options(command, "Arguments")
        .Text("SCRIPT", run.script, "The script, or - for stdin")
        ->required();
}

void AddSample(CLI::App& app, Command& chosen) {
    const auto [command, sample] = Add<SampleRequest>(app, kSample, chosen);
    Options(command, "Arguments").Text("DIR", sample.folder, "The folder to fill")->required();
}

void AddPaths(CLI::App& app, Command& chosen) {
    const auto [command, paths] = Add<PathsRequest>(app, kPaths, chosen);
    Options(command, kOutputGroup).Flag("--json", paths.json, "One object, paths by name");
}

void AddOptions(CLI::App& app, Command& chosen) {
    const auto [command, request] = Add<OptionsRequest>(app, kOptions, chosen);
    Options(command, kOutputGroup).Flag("--json", request.json, "One object, values by key");
    command.require_subcommand(0, 1);
    const auto addVerb = [&](OptionsVerb verb, const char* name, const char* help) {
        const auto take = [&taken = request.verb, verb] { taken = verb; };
        return Options(*command.add_subcommand(name, help)->callback(take), "Arguments");
    };
    addVerb(OptionsVerb::kList, "list", "Lists all options, as without a word");
    auto get = addVerb(OptionsVerb::kGet, "get", "get KEY tells the option of that key");
    get.Text("KEY", request.key, "The option's key")->required();
    auto set = addVerb(OptionsVerb::kSet, "set", "set KEY VALUE gives it that value");
    set.Text("KEY", request.key, "The option's key")->required();
    set.Text("VALUE", request.value, "What it is to be")->required();
}

struct CommandEntry {
    const CommandHelp& help;
    void (*add)(CLI::App&, Command&);
};

// As the help lists them.
constexpr std::array kCommands{
    CommandEntry{kSearch, AddSearch},
    CommandEntry{kCopy, AddCopy},
    CommandEntry{kMove, AddMove},
    CommandEntry{kRename, AddRename},
    CommandEntry{kDelete, AddDelete},
    CommandEntry{kAutoMove, AddAutoMove},
    CommandEntry{kAutoPlaylist, AddAutoPlaylist},
    CommandEntry{kShowPages, AddShowPages},
    CommandEntry{kList, AddList},
    CommandEntry{kPlaylist, AddPlaylist},
    CommandEntry{kNumbers, AddNumbers},
    CommandEntry{kMakeFolders, AddMakeFolders},
    CommandEntry{kLinks, AddLinks},
    CommandEntry{kOpen, AddOpen},
    CommandEntry{kRunProgram, AddRunProgram},
    CommandEntry{kRun, AddRun},
    CommandEntry{kSample, AddSample},
    CommandEntry{kPaths, AddPaths},
    CommandEntry{kOptions, AddOptions},
};

} // namespace

// All the options of all commands take longer to add than many a run; a command whose name is
// nowhere among the arguments is known by its name alone.
std::expected<Request, EarlyEnd> ReadArguments(const std::vector<std::string>& arguments) {
    Request request;
    CLI::App app(kAbout, "tarvix-cli");
    SetUp(app);
    app.footer(kAboutFooter);
    AddMachine(app, request);
    for (const auto& [help, add] : kCommands) {
        if (std::ranges::find(arguments, help.name) != arguments.end()) {
            add(app, request.command);
        } else {
            AddCommand(app, help);
        }
    }
    auto parsed = Parse(app, arguments);
    if (!parsed) return std::unexpected(std::move(parsed.error()));
    return request;
}

} // namespace tarvix::cli
