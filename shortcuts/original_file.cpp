#include "shortcuts/original_file.h"

#include "text/encoding.h"
#include "text/paths.h"

#include <utility>

namespace tarvix::shortcuts {

namespace {

constexpr std::string_view kPathLabel = "Path = ";
constexpr std::size_t kLongRecord = 8;
constexpr std::size_t kShortRecord = 4;

} // namespace

void AppendOriginal(std::string& text, const OriginalRecord& original) {
    text.append(kPathLabel).append(original.path).append("\r\n");
    AppendRecord(text, original.record);
}

std::optional<std::vector<OriginalRecord>> ParseOriginals(std::string_view text) {
    std::vector<OriginalRecord> originals;
    text::LineReader lines(text);
    while (!lines.AtEnd()) {
        std::string_view line = lines.Next();
        if (!line.starts_with(kPathLabel)) return std::nullopt;
        OriginalRecord original{.path = std::string(line.substr(kPathLabel.size())), .record = {}};
        const Kind kind = KindOf(text::FileNameOf(original.path));
        std::string record;
        for (std::size_t i = 0; i < (kind == Kind::kUrl ? kShortRecord : kLongRecord); ++i) {
            record.append(lines.Next()).append("\r\n");
        }
        EditedFile file = ParseEditFile(record, {kind});
        if (file.records.size() != 1) return std::nullopt;
        original.record = std::move(file.records[0]);
        originals.push_back(std::move(original));
    }
    return originals;
}

} // namespace tarvix::shortcuts
