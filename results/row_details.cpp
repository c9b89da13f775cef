#include "results/row_details.h"

#include "platform/content_types.h"
#include "platform/file_system.h"
#include "results/year_rank.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::results {

namespace {
constexpr std::size_t kLongestExtension = 6;
}

std::string RowDetails::Cell(const ResultRow& row, Column column, std::string_view path) {
    if (column == kYearRank) {
        const bool isListed = row.Has(kListed);
        return AssignYearRank(row.name, row.folder->longPath, session_.state.intMaxYear,
                              isListed ? YearRankForms::kPlaylist : YearRankForms::kSearch);
    }
    if (!session_.blnListItems[static_cast<std::size_t>(column)]) return {};
    if (column == kType) return TypeCell(row, path);
    if (IsLinkColumn(column)) return LinkCell(row, column, path);
    const ExeFacts& facts = FactsOf(row, path);
    if (column == kExeType) return ExeTypeText(facts.exeType);
    if (!facts.version) return {};
    return column == kVersion ? VersionText(*facts.version)
                              : std::string(OsText(facts.version->os));
}

int RowDetails::MaxYear() const {
    return session_.state.intMaxYear;
}

std::string RowDetails::LinkCell(const ResultRow& row, Column column, std::string_view path) {
    if (shortcuts::KindOf(row.name) == shortcuts::Kind::kNone) return {};
    return Links(row, path).shown[FieldOf(column)];
}

LinkCells& RowDetails::Links(const ResultRow& row, std::string_view path) {
    std::unique_ptr<LinkCells>& cells = links_[row.name.data()];
    if (cells) return *cells;
    const bool isShortcut = shortcuts::KindOf(row.name) != shortcuts::Kind::kNone;
    const bool isReadable = !row.isFolder && (row.attributes & platform::kSpecial) == 0;
    cells = std::make_unique<LinkCells>();
    if (isShortcut && isReadable) *cells = linkReader_.Read(path);
    return *cells;
}

void RowDetails::SetLinks(const ResultRow& row, LinkCells cells) {
    links_[row.name.data()] = std::make_unique<LinkCells>(std::move(cells));
}

void RowDetails::Renamed(const char* from, const char* to) {
    if (auto facts = read_.extract(from)) {
        facts.key() = to;
        read_.insert(std::move(facts));
    }
    if (auto cells = links_.extract(from)) {
        cells.key() = to;
        links_.insert(std::move(cells));
    }
}

std::uint64_t RowDetails::VersionKey(const ResultRow& row, std::string_view path) {
    constexpr int kMinorBits = 16;
    const auto& version = FactsOf(row, path).version;
    if (!version) return 0;
    return ((std::uint64_t{version->major} << kMinorBits) | version->minor) + 1;
}

std::string RowDetails::TypeCell(const ResultRow& row, std::string_view path) {
    platform::ObjectFacts facts;
    facts.attributes = row.attributes;
    std::string name = session_.platform.contentTypes.TypeName(path, facts);
    if (!name.empty()) return name;
    const std::string_view extension = text::GetExtension(row.name);
    if (extension.empty()) return "  Unknown";
    if (text::Length(extension) > kLongestExtension) return {};
    return fmt::format("{} File", text::Upper(extension));
}

const ExeFacts& RowDetails::FactsOf(const ResultRow& row, std::string_view path) {
    const auto [entry, isNew] = read_.try_emplace(row.name.data());
    if (isNew && (row.attributes & platform::kSpecial) == 0) {
        entry->second = ReadExeFacts(FileReader(session_.files(), path));
    }
    return entry->second;
}

} // namespace tarvix::results
