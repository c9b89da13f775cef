#include "cli/print_rows.h"

#include "cli/field_text.h"
#include "cli/output_columns.h"
#include "cli/row_facts.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "results/result_list.h"
#include "results/shown_cells.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iterator>
#include <ostream>
#include <utility>
#include <vector>

namespace tarvix::cli {

namespace {

constexpr std::size_t kBlock = 1 << 16;

// Control characters that JSON lets stand, but a terminal may obey.
bool IsUpperControl(char32_t c) {
    return c >= 0x7F && c <= 0x9F;
}

// JSON has no bytes: one that is no text is written as the lone surrogate U+DC00 plus the byte,
// which many readers give back as that byte.
void AppendJsonWithBytes(std::string& out, std::string_view text) {
    out += '"';
    std::size_t begin = 0;
    const auto appendValid = [&](std::size_t end) {
        const std::string quoted = nlohmann::json(text.substr(begin, end - begin)).dump();
        out.append(quoted, 1, quoted.size() - 2);
    };
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t at = pos;
        const char32_t c = text::NextCharacter(text, pos);
        const bool isText = c <= 0x10FFFF;
        if (isText && !IsUpperControl(c)) continue;
        appendValid(at);
        const auto code = static_cast<unsigned>(isText ? c : c - 0x110000 + 0xDC00);
        out += fmt::format("\\u{:04x}", code);
        begin = pos;
    }
    appendValid(text.size());
    out += '"';
}

// A text as JSON writes it. Plain ASCII, which nearly all cells are, takes a short road.
void AppendJsonText(std::string& out, const std::string& text) {
    const auto isPlain = [](char c) { return c >= ' ' && c < '\x7F'; };
    if (!std::ranges::all_of(text, isPlain)) return AppendJsonWithBytes(out, text);
    out += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    out += '"';
}

// Whether the cells of a column are digits, marks and letters of the program's own, which nothing
// has to be done with.
bool IsOwnText(int column) {
    constexpr std::array<int, 5> kOwn{results::kSize, results::kDate, results::kAttributes,
                                      results::kPathNameLength, results::kPathLevels};
    return column == kIsFolderColumn || column == kModifiedColumn || column == kBytesColumn ||
           std::ranges::find(kOwn, column) != kOwn.end();
}

// Gathers text and hands it on in large blocks.
class Gathered {
  public:
    explicit Gathered(std::ostream& out) : out_(out) { text_.reserve(2 * kBlock); }
    ~Gathered() { Flush(); }
    Gathered(const Gathered&) = delete;
    Gathered& operator=(const Gathered&) = delete;

    std::string& Text() { return text_; }
    bool EndRow() {
        if (text_.size() >= kBlock) Flush();
        return out_.good();
    }
    void Flush() {
        out_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
        text_.clear();
        out_.flush();
    }

  private:
    std::ostream& out_;
    std::string text_;
};

// Native paths of rows; each folder's is worked out once, in whatever order its rows come.
class RowPaths {
  public:
    RowPaths(const results::ResultList& rows, const platform::NativePaths& paths)
        : rows_(rows), paths_(paths), natives_(rows.FolderCount()) {}

    void Append(std::string& out, std::size_t index) {
        const results::ResultRow& row = rows_.At(index);
        if (row.folder == nullptr) {
            out += Whole(rows_.FullPath(index));
            return;
        }
        const std::string& folder = FolderOf(row);
        out += folder;
        if (row.isFolder) return;
        if (!folder.ends_with('/')) out += '/';
        platform::AppendNameToNative(out, row.name);
    }

    // The native path of a row's folder; the drive path where its drive isn't known.
    const std::string& FolderOf(const results::ResultRow& row) {
        std::string& native = natives_[row.folder->number];
        if (native.empty()) native = Whole(row.folder->longPath);
        return native;
    }

  private:
    std::string Whole(const std::string& drivePath) const {
        std::string native = paths_.ToNative(drivePath);
        return native.empty() ? drivePath : native;
    }

    const results::ResultList& rows_;
    const platform::NativePaths& paths_;
    std::vector<std::string> natives_; // by the folder's number
};

class RowPrinter {
  public:
    RowPrinter(const session::Session& session, const RowPrint& print, std::ostream& out)
        : session_(session), rows_(*session.rows), paths_(rows_, session.platform.paths),
          facts_(session, print.datesAreModified), format_(print.output.format),
          toTerminal_(print.toTerminal), columns_(print.output.columns), gathered_(out) {
        for (const int column : columns_)
            heads_.push_back(nlohmann::json(KeyOfOutput(column)).dump());
        std::ranges::transform(columns_, std::back_inserter(areOwn_), IsOwnText);
    }

    bool Print() {
        if (format_ == RowFormat::kTable) AppendHead();
        for (std::size_t i = 0; i < rows_.Count(); ++i) {
            if (rows_.At(i).IsSpacer()) continue;
            AppendRow(i);
            if (!gathered_.EndRow()) return false;
        }
        gathered_.Flush();
        return gathered_.EndRow();
    }

  private:
    // What the cell says, with nothing escaped.
    void AppendCell(std::string& out, std::size_t row, int column) {
        if (column == kNativePathColumn) {
            paths_.Append(out, row);
        } else if (column < 0) {
            facts_.Append(out, row, column);
        } else if (column == results::kPath && IsNativeShown(row)) {
            out += paths_.FolderOf(rows_.At(row));
        } else if (column == results::kPathName && IsNativeShown(row)) {
            paths_.Append(out, row);
        } else {
            const auto which = static_cast<results::Column>(column);
            results::AppendPlainCell(out, session_, rows_, row, which);
        }
    }

    // Whether the cells of the row's paths say what it is on this machine, and no other form.
    bool IsNativeShown(std::size_t row) {
        const results::ResultRow& shown = rows_.At(row);
        if (!session_.state.platformSettings.showsNative || shown.folder == nullptr) return false;
        if (shown.Has(results::kListed) || !paths_.FolderOf(shown).starts_with('/')) return false;
        return shown.folder->longPath.size() + 1 + shown.name.size() <= session::kLongPath;
    }

    void AppendHead() {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            gathered_.Text().append(i > 0 ? "\t" : "");
            const std::size_t begin = gathered_.Text().size();
            gathered_.Text() += HeadOf(columns_[i]);
            EscapeTsvField(gathered_.Text(), begin);
        }
        gathered_.Text() += '\n';
    }

    void AppendRow(std::size_t row) {
        switch (format_) {
        case RowFormat::kPaths:
            if (toTerminal_) return AppendPathForTerminal(row);
            [[fallthrough]];
        case RowFormat::kZeroPaths:
            paths_.Append(gathered_.Text(), row);
            gathered_.Text() += format_ == RowFormat::kPaths ? '\n' : '\0';
            break;
        case RowFormat::kJson:
            AppendObject(row);
            break;
        default:
            AppendFields(row);
        }
    }

    void AppendPathForTerminal(std::size_t row) {
        std::string& out = gathered_.Text();
        const std::size_t begin = out.size();
        paths_.Append(out, row);
        EscapeForTerminal(out, begin);
        out += '\n';
    }

    void AppendFields(std::size_t row) {
        std::string& out = gathered_.Text();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (i > 0) out += '\t';
            if (areOwn_[i]) {
                AppendOwnText(out, row, columns_[i]);
                continue;
            }
            const std::size_t begin = out.size();
            AppendCell(out, row, columns_[i]);
            EscapeField(out, begin);
        }
        out += '\n';
    }

    void AppendOwnText(std::string& out, std::size_t row, int column) const {
        if (column < 0) return facts_.Append(out, row, column);
        rows_.AppendCell(out, row, static_cast<results::Column>(column));
    }

    // What was appended from `begin` on, as the form of the output has it.
    void EscapeField(std::string& out, std::size_t begin) {
        const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
        if (format_ == RowFormat::kTable) {
            EscapeTsvField(out, begin);
        } else if (std::ranges::any_of(std::string_view(out).substr(begin), isControl)) {
            const std::string escaped = PlainField(out.substr(begin));
            out.replace(begin, out.npos, escaped);
        }
        if (toTerminal_) EscapeForTerminal(out, begin);
    }

    void AppendObject(std::size_t row) {
        std::string& out = gathered_.Text();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            out.append(i > 0 ? "," : "{").append(heads_[i]).append(":");
            if (columns_[i] < kNativePathColumn) {
                facts_.AppendJson(out, row, columns_[i]);
                continue;
            }
            cell_.clear();
            AppendCell(cell_, row, columns_[i]);
            AppendJsonText(out, cell_);
        }
        out += "}\n";
    }

    const session::Session& session_;
    const results::ResultList& rows_;
    RowPaths paths_;
    RowFacts facts_;
    RowFormat format_;
    bool toTerminal_;
    std::vector<int> columns_;
    std::vector<bool> areOwn_; // see IsOwnText
    std::vector<std::string> heads_;
    std::string cell_;
    Gathered gathered_;
};

} // namespace

void PrintPairs(const std::vector<std::pair<std::string, std::string>>& pairs,
                std::string_view between, bool asJson, std::ostream& out) {
    if (asJson) {
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        for (const auto& [name, value] : pairs)
            object[name] = value;
        PrintJson(object, out);
    } else {
        for (const auto& [name, value] : pairs)
            out << name << between << value << '\n';
    }
    out << std::flush;
}

void PrintJson(const nlohmann::ordered_json& object, std::ostream& out) {
    out << object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

std::string CellField(std::string_view cell) {
    return PlainField(platform::NameToNative(cell));
}

std::string PlainField(std::string field) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kEscapes{
        {{"\r\n", "\\n"}, {"\n", "\\n"}, {"\r", "\\r"}, {"\t", "\\t"}}};
    if (field.find_first_of("\r\n\t") == field.npos) return field;
    for (const auto& [control, escape] : kEscapes)
        field = text::Replace(field, control, escape);
    return field;
}

bool PrintRows(const session::Session& session, const RowPrint& print, std::ostream& out) {
    return RowPrinter(session, print, out).Print();
}

} // namespace tarvix::cli
