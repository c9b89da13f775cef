#include "cli/arguments.h"

#include "cli/nearest.h"
#include "cli/values.h"
#include "text/case.h"
#include "text/characters.h"

#include <algorithm>
#include <array>

namespace tarvix::cli {

namespace {

template <class T>
using Checked = std::expected<T, std::string>;

Checked<MachineRequest> CheckMachine(const RawArguments& raw) {
    MachineRequest machine{.dataFolder = raw.dataFolder};
    for (const std::string& drive : raw.drives) {
        const std::size_t equals = drive.find('=');
        const std::string letter = drive.substr(0, equals);
        const bool isLetter = letter.size() == 1 || (letter.size() == 2 && letter[1] == ':');
        const char upper = letter.empty() ? ' ' : text::Upper(letter)[0];
        if (equals == drive.npos || equals + 1 == drive.size() || !isLetter || upper < 'D' ||
            upper > 'Z') {
            return std::unexpected("--drive takes a letter from D to Z and a folder, such as "
                                   "E=/srv/collection, not \"" +
                                   drive + "\".");
        }
        machine.drives.emplace_back(upper, drive.substr(equals + 1));
    }
    if (!raw.now) return machine;
    const auto now = ReadMoment("--now", *raw.now);
    if (!now) return std::unexpected(now.error());
    machine.now = *now;
    return machine;
}

std::vector<std::string_view> ColumnKeys() {
    std::vector<std::string_view> keys{"NativePath"};
    for (const auto& column : results::kColumns)
        keys.push_back(column.key);
    return keys;
}

std::string NoColumn(std::string_view key) {
    return "There is no column \"" + std::string(key) + "\"." + DidYouMean(key, ColumnKeys());
}

Checked<std::vector<int>> CheckColumns(std::string_view list) {
    std::vector<int> columns;
    for (const std::string_view piece : text::Split(list, ',')) {
        const std::string_view key = text::Trim(piece);
        const auto column = results::FindColumn(key);
        if (!column && !text::EqualNoCase(key, "NativePath")) return std::unexpected(NoColumn(key));
        columns.push_back(column ? static_cast<int>(*column) : kNativePathColumn);
    }
    return columns;
}

Checked<SortRequest> CheckSort(std::string_view value) {
    const std::size_t colon = value.find(':');
    const std::string_view order = colon == value.npos ? "" : value.substr(colon + 1);
    const auto column = results::FindColumn(value.substr(0, colon));
    if (!column) return std::unexpected(NoColumn(value.substr(0, colon)));
    const bool descending = text::EqualNoCase(order, "desc");
    if (colon != value.npos && !descending && !text::EqualNoCase(order, "asc")) {
        return std::unexpected("--sort takes a column key, with \":desc\" behind it to turn the "
                               "order round, not \"" +
                               std::string(value) + "\".");
    }
    return SortRequest{*column, descending};
}

Checked<RowFormat> CheckFormat(const RawArguments& raw) {
    if (int{raw.json} + int{raw.table} + int{raw.zero} > 1) {
        return std::unexpected("Give only one of --json, --tsv and --print0.");
    }
    if (raw.zero && raw.columns) {
        return std::unexpected("--print0 prints paths only: leave --columns out.");
    }
    if (raw.json) return RowFormat::kJson;
    if (raw.table) return RowFormat::kTable;
    if (raw.zero) return RowFormat::kZeroPaths;
    return raw.columns ? RowFormat::kCells : RowFormat::kPaths;
}

Checked<RowOutput> CheckOutput(const RawArguments& raw) {
    RowOutput output;
    const auto format = CheckFormat(raw);
    if (!format) return std::unexpected(format.error());
    output.format = *format;
    if (raw.columns) {
        auto columns = CheckColumns(*raw.columns);
        if (!columns) return std::unexpected(columns.error());
        output.columns = std::move(*columns);
    }
    if (raw.sort) {
        const auto sort = CheckSort(*raw.sort);
        if (!sort) return std::unexpected(sort.error());
        output.sort = *sort;
    }
    return output;
}

Checked<Command> CheckSearch(const RawArguments& raw) {
    auto criteria = CheckCriteria(raw);
    if (!criteria) return std::unexpected(criteria.error());
    auto output = CheckOutput(raw);
    if (!output) return std::unexpected(output.error());
    return SearchRequest{std::move(*criteria), std::move(*output), raw.answers};
}

// The position of a word among those that an option takes; the first without a value.
template <std::size_t N>
Checked<int> CheckChoice(std::string_view option, const std::optional<std::string>& value,
                         const std::array<std::string_view, N>& choices) {
    if (!value) return 0;
    std::string names;
    for (std::size_t i = 0; i < N; ++i) {
        if (text::EqualNoCase(*value, choices[i])) return static_cast<int>(i);
        names.append(i == 0 ? "" : i + 1 == N ? " or " : ", ").append(choices[i]);
    }
    return std::unexpected(std::string(option) + " takes " + names + ", not \"" + *value + "\"." +
                           DidYouMean(*value, choices));
}

constexpr std::array<std::string_view, 4> kStructures{"none", "mirror", "folder", "backup"};
constexpr std::array<std::string_view, 4> kDuplicateChoices{"skip", "ask", "overwrite", "rename"};
constexpr std::array<std::string_view, 2> kSides{"end", "beginning"};
constexpr std::array<std::string_view, 3> kPortions{"prefix", "extension", "name"};

Checked<void> CheckLevels(const RawArguments& raw, ActionRequest& request) {
    const std::string& levels = *raw.levels;
    const bool isNumber = !levels.empty() && levels.size() < 4 &&
                          levels.find_first_not_of("0123456789") == levels.npos;
    request.levels = isNumber ? std::stoi(levels) : 0;
    if (request.levels > 0) return {};
    return std::unexpected("--up takes a number of levels from 1 on, not \"" + levels + "\".");
}

// Where the objects go: one folder, the folders of lists, up the tree, or by rule.
Checked<void> CheckWay(const RawArguments& raw, ActionRequest& request) {
    const bool hasFolder = !raw.destination.value_or("").empty();
    const int ways = int{raw.rule.has_value()} + int{raw.levels.has_value()} +
                     int{!raw.lists.empty()} + int{hasFolder && raw.lists.empty()};
    const bool isMove = request.verb == ActionVerb::kMove;
    if (ways == 0) {
        return std::unexpected(
            isMove ? "Say where they go with --to, --up or --rule, such as --to ~/Sorted."
                   : "Say where the copies go with --to, such as --to ~/Copies.");
    }
    if (ways > 1) {
        return std::unexpected(isMove ? "Give only one of --to, --up and --rule."
                                      : "Give only one of --to and --rule, and --rule without "
                                        "--mpl.");
    }
    request.destination = raw.rule.value_or(raw.destination.value_or(""));
    request.lists = raw.lists;
    request.way = raw.rule ? 3 : raw.levels ? 2 : raw.lists.empty() ? 0 : 1;
    request.withFolderNames = raw.withFolderNames;
    return raw.levels ? CheckLevels(raw, request) : Checked<void>{};
}

Checked<void> CheckPlaces(const RawArguments& raw, ActionRequest& request) {
    if (auto way = CheckWay(raw, request); !way) return way;
    const auto structure = CheckChoice("--structure", raw.structure, kStructures);
    if (!structure) return std::unexpected(structure.error());
    request.structure = *structure;
    const auto duplicates = CheckChoice("--on-duplicate", raw.onDuplicate, kDuplicateChoices);
    if (!duplicates) return std::unexpected(duplicates.error());
    request.duplicateChoice = *duplicates;
    if (request.verb == ActionVerb::kMove && request.duplicateChoice == 2) {
        return std::unexpected("A move never overwrites: --on-duplicate takes skip, ask or rename "
                               "for it.");
    }
    const auto side = CheckChoice("--rename-at", raw.renameAt, kSides);
    if (!side) return std::unexpected(side.error());
    request.renameText = raw.renameText;
    request.renameAtBeginning = *side == 1;
    return {};
}

Checked<void> CheckNames(const RawArguments& raw, ActionRequest& request) {
    if (raw.insertedText.has_value() == raw.soughtText.has_value()) {
        return std::unexpected("Say what to do with the names: --insert TEXT, or --find TEXT with "
                               "--replace TEXT.");
    }
    if (raw.soughtText && raw.soughtText->empty()) {
        return std::unexpected("--find needs a text to look for.");
    }
    const auto side = CheckChoice("--at", raw.insertAt, kSides);
    if (!side) return std::unexpected(side.error());
    const auto portion = CheckChoice("--portion", raw.portion, kPortions);
    if (!portion) return std::unexpected(portion.error());
    request.insertsText = raw.insertedText.has_value();
    request.insertedText = raw.insertedText.value_or("");
    request.insertAtBeginning = *side == 1;
    request.soughtText = raw.soughtText.value_or("");
    request.newText = raw.newText.value_or("");
    request.onlyOnce = raw.onlyOnce;
    request.portion = *portion;
    return {};
}

Checked<Command> CheckAction(const RawArguments& raw) {
    auto criteria = CheckCriteria(raw);
    if (!criteria) return std::unexpected(criteria.error());
    ActionRequest request{.verb = raw.command == "copy"   ? ActionVerb::kCopy
                                  : raw.command == "move" ? ActionVerb::kMove
                                                          : ActionVerb::kRename,
                          .criteria = std::move(*criteria),
                          .confirmed = raw.yes,
                          .dryRun = raw.dryRun,
                          .json = raw.json,
                          .answers = raw.answers};
    auto checked =
        request.verb == ActionVerb::kRename ? CheckNames(raw, request) : CheckPlaces(raw, request);
    if (!checked) return std::unexpected(checked.error());
    if (raw.json && !raw.dryRun) {
        return std::unexpected("--json needs --dry-run: an action itself prints one line.");
    }
    return request;
}

// Whether the second of two words was given; nothing without a value.
Checked<std::optional<bool>> CheckEither(std::string_view option,
                                         const std::optional<std::string>& value,
                                         const std::array<std::string_view, 2>& choices) {
    if (!value) return std::nullopt;
    const auto choice = CheckChoice(option, value, choices);
    if (!choice) return std::unexpected(choice.error());
    return *choice == 1;
}

Checked<Command> CheckDelete(const RawArguments& raw) {
    auto criteria = CheckCriteria(raw);
    if (!criteria) return std::unexpected(criteria.error());
    const auto forGood =
        CheckEither("--on-recycle-failure", raw.onRecycleFailure, {"keep", "delete"});
    if (!forGood) return std::unexpected(forGood.error());
    const auto isProtected =
        CheckEither("--override-system-hidden", raw.overrideSystemHidden, {"no", "yes"});
    if (!isProtected) return std::unexpected(isProtected.error());
    return DeleteRequest{std::move(*criteria), *forGood, *isProtected, raw.yes, raw.answers};
}

Checked<Command> CheckRun(const RawArguments& raw) {
    if (raw.target) return RunRequest{*raw.target};
    return std::unexpected("Name the script to run, or - to read it from stdin.");
}

Checked<Command> CheckSample(const RawArguments& raw) {
    if (raw.target) return SampleRequest{*raw.target};
    return std::unexpected("Name the folder to fill, such as ~/tarvix-sample.");
}

Checked<Command> CheckPaths(const RawArguments& raw) {
    return PathsRequest{raw.json};
}

Checked<Command> CheckOptions(const RawArguments& raw) {
    constexpr std::array<std::string_view, 3> kVerbs{"list", "get", "set"};
    const auto& words = raw.words;
    const auto verb = words.empty() ? kVerbs.begin() : std::ranges::find(kVerbs, words.front());
    const auto needed = static_cast<std::size_t>(verb - kVerbs.begin()) + 1;
    if (verb == kVerbs.end() || words.size() != (words.empty() ? 0 : needed)) {
        return std::unexpected("options takes list, get KEY, or set KEY VALUE.");
    }
    OptionsRequest request{.verb = static_cast<OptionsVerb>(needed - 1), .json = raw.json};
    if (words.size() > 1) request.key = words[1];
    if (words.size() > 2) request.value = words[2];
    return request;
}

struct CommandCheck {
    std::string_view name;
    Checked<Command> (*check)(const RawArguments&);
};

constexpr std::array<CommandCheck, 9> kCommandChecks{{{"search", CheckSearch},
                                                      {"copy", CheckAction},
                                                      {"move", CheckAction},
                                                      {"rename", CheckAction},
                                                      {"delete", CheckDelete},
                                                      {"run", CheckRun},
                                                      {"sample", CheckSample},
                                                      {"paths", CheckPaths},
                                                      {"options", CheckOptions}}};

Checked<Request> Check(const RawArguments& raw) {
    auto machine = CheckMachine(raw);
    if (!machine) return std::unexpected(machine.error());
    for (const auto& [name, check] : kCommandChecks) {
        if (name != raw.command) continue;
        auto command = check(raw);
        if (!command) return std::unexpected(command.error());
        return Request{std::move(*machine), std::move(*command)};
    }
    return std::unexpected("There is no command \"" + raw.command + "\".");
}

} // namespace

std::expected<Request, EarlyEnd> ReadArguments(const std::vector<std::string>& arguments) {
    const auto raw = ReadRawArguments(arguments);
    if (!raw) return std::unexpected(raw.error());
    auto request = Check(*raw);
    if (request) return std::move(*request);
    return std::unexpected(
        EarlyEnd{.exitCode = kBadRequest, .sentence = std::move(request.error())});
}

} // namespace tarvix::cli
