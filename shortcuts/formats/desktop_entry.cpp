#include "shortcuts/formats/desktop_entry.h"

#include "shortcuts/formats/exec_line.h"
#include "shortcuts/formats/hot_key.h"
#include "shortcuts/formats/ini_text.h"
#include "text/characters.h"

#include <fmt/core.h>

namespace tarvix::shortcuts {

namespace {

constexpr std::string_view kGroup = "Desktop Entry";
constexpr std::string_view kTerminal = "Terminal";
constexpr std::string_view kNormal = "Normal";
constexpr std::string_view kLf = "\n";
constexpr std::size_t kNone = std::string::npos;

struct KeyOfField {
    Field field;
    std::string_view key;
};
// Those that stand in the file as they are shown.
constexpr std::array<KeyOfField, 3> kTexts{
    {{kStartIn, "Path"}, {kDescription, "Comment"}, {kIcon, "Icon"}}};

class Entry {
  public:
    explicit Entry(std::string_view bytes) : file_(bytes, kLf) {
        bool isInside = false;
        for (std::size_t i = 0; i < file_.Lines().size(); ++i) {
            const std::string_view section = file_.Lines()[i].Section();
            if (section.empty()) continue;
            isInside = group_ == kNone && section == kGroup;
            if (isInside) group_ = i;
        }
    }

    bool IsEntry() const { return group_ != kNone; }
    // Of keys that stand there twice the last counts.
    std::size_t LineOf(std::string_view key) const {
        std::size_t found = kNone;
        if (!IsEntry()) return found;
        for (std::size_t i = group_ + 1; i < file_.Lines().size(); ++i) {
            const IniText::Line& line = file_.Lines()[i];
            if (!line.Section().empty()) break;
            if (line.Key() == key) found = i;
        }
        return found;
    }
    // As the file has it, less blanks in front.
    std::string_view Stored(std::string_view key) const {
        const std::size_t line = LineOf(key);
        return line == kNone ? std::string_view() : text::LTrim(file_.Lines()[line].Value());
    }
    std::string Text(std::string_view key) const { return UnescapeValue(Stored(key)); }
    bool Is(std::string_view key) const { return Stored(key) == "true" || Stored(key) == "1"; }
    bool IsLink() const { return Stored("Type") == "Link"; }
    bool IsApplication() const { return Stored("Type") != "Directory" && !IsLink(); }

    void Set(std::string_view key, std::string_view value) {
        const std::string stored = EscapeValue(value);
        const std::size_t line = LineOf(key);
        if (line != kNone) return file_.SetValue(line, stored);
        if (!value.empty()) {
            file_.Insert(file_.EndOfSection(group_), fmt::format("{}={}", key, stored));
        }
    }
    bool CanHold(std::string_view text) const { return file_.CanHold(text); }
    std::string Bytes() const { return file_.Bytes(); }

  private:
    IniText file_;
    std::size_t group_ = kNone;
};

std::string SetCommand(Entry& entry, const Edits& edits) {
    if (entry.IsLink()) {
        if (edits[kArguments]) return "A link of the desktop has no arguments.";
        entry.Set("URL", *edits[kTarget]);
        return {};
    }
    if (!entry.IsApplication()) return "Only applications and links have a target.";
    const ExecLine old = SplitExec(entry.Text("Exec"));
    const std::string program = edits[kTarget] ? QuoteProgram(*edits[kTarget]) : old.stored;
    const std::string arguments = edits[kArguments].value_or(old.arguments);
    if (edits[kTarget] && edits[kTarget]->find('=') != std::string::npos) {
        return "The program of a desktop entry can't have a \"=\" in its path.";
    }
    entry.Set("Exec", arguments.empty() ? program : fmt::format("{} {}", program, arguments));
    return {};
}

std::string Refusal(const Entry& entry, const Edits& edits) {
    if (!entry.IsEntry()) return "It is no desktop entry; nothing of it was changed.";
    if (edits[kHotKey]) return "A desktop entry has no hot key.";
    const auto& style = edits[kWindowStyle];
    if (style && style != kNormal && ParseWindowStyle(*style)) {
        return fmt::format("A desktop entry can't say {}: its window is {} or {}.", *style, kNormal,
                           kTerminal);
    }
    if (edits[kTarget] && text::Trim(*edits[kTarget]).empty()) {
        return "A shortcut can't be without a target.";
    }
    for (const auto& edit : edits) {
        if (edit && edit->find('\0') != edit->npos) return "A value can't hold a null character.";
        if (edit && !entry.CanHold(*edit)) {
            return "The file is in an old encoding that lacks a letter of the new value.";
        }
    }
    return {};
}

} // namespace

Values ReadDesktopEntry(std::string_view bytes) {
    const Entry entry(bytes);
    Values values;
    if (!entry.IsEntry()) return values;
    for (const KeyOfField& text : kTexts) {
        values[text.field] = entry.Text(text.key);
    }
    if (entry.IsLink()) values[kTarget] = entry.Text("URL");
    if (!entry.IsApplication()) return values;
    ExecLine line = SplitExec(entry.Text("Exec"));
    values[kTarget] = std::move(line.program);
    values[kArguments] = std::move(line.arguments);
    values[kWindowStyle] = entry.Is(kTerminal) ? kTerminal : kNormal;
    return values;
}

Edited EditDesktopEntry(std::string_view bytes, const Edits& edits) {
    Entry entry(bytes);
    std::string refusal = Refusal(entry, edits);
    if (refusal.empty() && (edits[kTarget] || edits[kArguments])) {
        refusal = SetCommand(entry, edits);
    }
    if (!refusal.empty()) return std::unexpected(std::move(refusal));
    for (const KeyOfField& text : kTexts) {
        if (edits[text.field]) entry.Set(text.key, *edits[text.field]);
    }
    const auto& style = edits[kWindowStyle];
    if (style == kTerminal || style == kNormal) {
        entry.Set(kTerminal, *style == kTerminal ? "true" : "false");
    }
    return entry.Bytes();
}

} // namespace tarvix::shortcuts
