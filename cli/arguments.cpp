#include "cli/arguments.h"

#include "cli/nearest.h"
#include "cli/values.h"
#include "text/case.h"
#include "text/characters.h"

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

// The choices that this version can carry out.
Checked<void> CheckOnlyChoice(std::string_view option, const std::optional<std::string>& value,
                              std::string_view only) {
    if (!value || text::EqualNoCase(*value, only)) return {};
    return std::unexpected(std::string(option) + " can only be \"" + std::string(only) +
                           "\" in this version, not \"" + *value + "\".");
}

Checked<Command> CheckCopy(const RawArguments& raw) {
    auto criteria = CheckCriteria(raw);
    if (!criteria) return std::unexpected(criteria.error());
    if (auto done = CheckOnlyChoice("--structure", raw.structure, "none"); !done) {
        return std::unexpected(done.error());
    }
    if (auto done = CheckOnlyChoice("--on-duplicate", raw.onDuplicate, "skip"); !done) {
        return std::unexpected(done.error());
    }
    if (raw.destination.value_or("").empty()) {
        return std::unexpected("Say where the copies go with --to, such as --to ~/Copies.");
    }
    return CopyRequest{std::move(*criteria), *raw.destination, raw.yes, raw.answers};
}

Checked<Command> CheckRun(const RawArguments& raw) {
    if (raw.target) return RunRequest{*raw.target};
    return std::unexpected("Name the script to run, or - to read it from stdin.");
}

Checked<Command> CheckSample(const RawArguments& raw) {
    if (raw.target) return SampleRequest{*raw.target};
    return std::unexpected("Name the folder to fill, such as ~/tarvix-sample.");
}

struct CommandCheck {
    std::string_view name;
    Checked<Command> (*check)(const RawArguments&);
};

constexpr std::array<CommandCheck, 4> kCommandChecks{
    {{"search", CheckSearch}, {"copy", CheckCopy}, {"run", CheckRun}, {"sample", CheckSample}}};

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
