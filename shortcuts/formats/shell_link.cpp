#include "shortcuts/formats/shell_link.h"

#include "shortcuts/formats/hot_key.h"
#include "shortcuts/formats/link_parts.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::shortcuts {

namespace {

using link::Parts;

constexpr std::size_t kMostCharacters = 0xFFFF;

std::string TargetOf(const Parts& parts) {
    std::string path = link::PathOfIdList(parts.idList);
    if (path.empty()) path = link::PathOfLinkInfo(parts.linkInfo);
    if (!path.empty()) return path;
    for (const link::Block& block : parts.blocks) {
        if (block.signature == link::kEnvironment) return link::PathOfEnvironment(block.all);
    }
    return {};
}

struct TextField {
    Field field;
    link::Text text;
};
// The icon's text has its number behind it.
constexpr std::array<TextField, 4> kTextFields{{{kArguments, link::kArgumentText},
                                                {kStartIn, link::kWorkingDir},
                                                {kDescription, link::kName},
                                                {kIcon, link::kIconLocation}}};

// The parts of a link while it is changed.
class Editor {
  public:
    explicit Editor(const Parts& parts)
        : header_(parts.header), flags_(parts.flags), idList_(parts.idList),
          linkInfo_(parts.linkInfo), tail_(parts.tail) {
        for (std::size_t i = 0; i < link::kTextCount; ++i) {
            texts_[i] = parts.texts[i];
        }
        for (const link::Block& block : parts.blocks) {
            blocks_.push_back({std::string(block.all), block.signature});
        }
    }

    // Empty, or why the value can't be stored.
    std::string Set(Field field, const std::string& value);
    std::string Bytes() const;

  private:
    struct OwnBlock {
        std::string all;
        std::uint32_t signature;
    };

    std::string SetTarget(std::string_view value);
    void DropTargetBlocks();
    std::string SetText(link::Text text, std::string_view value);
    std::string SetIcon(std::string_view value);
    std::string SetHotKey(std::string_view value);
    void MakeUnicode();
    void Flag(std::uint32_t flag, bool isOn) { flags_ = isOn ? flags_ | flag : flags_ & ~flag; }
    bool IsUnicode() const { return (flags_ & link::kIsUnicode) != 0; }
    void EraseBlocks(std::uint32_t signature) {
        std::erase_if(blocks_, [=](const OwnBlock& b) { return b.signature == signature; });
    }

    std::string header_;
    std::uint32_t flags_;
    std::string idList_;
    std::string linkInfo_;
    std::array<std::string, link::kTextCount> texts_;
    std::vector<OwnBlock> blocks_;
    std::string tail_;
};

std::string Editor::Set(Field field, const std::string& value) {
    switch (field) {
    case kTarget:
        return SetTarget(value);
    case kHotKey:
        return SetHotKey(value);
    case kWindowStyle:
        if (const auto style = ParseWindowStyle(value)) {
            PutDoubleWord(header_, link::kAtShow, *style);
        }
        return {};
    case kIcon:
        return SetIcon(value);
    case kArguments:
        return SetText(link::kArgumentText, value);
    case kStartIn:
        return SetText(link::kWorkingDir, value);
    case kDescription:
        return SetText(link::kName, value);
    }
    return {};
}

// As it is typed: quotes off, "/" as "\".
std::string CleanTarget(std::string_view value) {
    std::string path(value);
    if (path.size() >= 2 && path.starts_with('"') && path.ends_with('"')) {
        path = path.substr(1, path.size() - 2);
    }
    std::ranges::replace(path, '/', '\\');
    return path;
}

std::string Editor::SetTarget(std::string_view value) {
    const std::string path = CleanTarget(value);
    const std::uint32_t attributes = shortcuts::Bytes{header_}.DoubleWord(link::kAtAttributes);
    const bool isFolder = path.ends_with('\\') || (attributes & link::kFolderBit) != 0;
    auto target = link::MakeTarget(path, isFolder);
    if (!target) {
        return fmt::format("\"{}\" can't be the target of a .lnk file: that is a path with a drive "
                           "(C:\\...), on a share (\\\\server\\share\\...) or with a variable in "
                           "front, and not too long.",
                           value);
    }
    DropTargetBlocks();
    texts_[link::kRelativePath].clear();
    idList_ = std::move(target->idList);
    linkInfo_ = std::move(target->linkInfo);
    const bool hasVariable = !target->environment.empty();
    if (hasVariable) blocks_.push_back({std::move(target->environment), link::kEnvironment});
    Flag(link::kHasIdList, !idList_.empty());
    Flag(link::kHasLinkInfo, !linkInfo_.empty());
    Flag(link::kHasExpString, hasVariable);
    Flag(link::kPreferEnvironmentPath, hasVariable);
    Flag(link::kHasRelativePath | link::kForceNoLinkInfo | link::kHasDarwinId, false);
    header_.replace(link::kAtTimes, link::kTimesSize, link::kTimesSize, '\0');
    PutDoubleWord(header_, link::kAtAttributes, isFolder ? link::kFolderBit : link::kArchiveBit);
    return {};
}

void Editor::DropTargetBlocks() {
    for (const std::uint32_t signature : {link::kEnvironment, link::kTracker, link::kSpecialFolder,
                                          link::kDarwin, link::kKnownFolder, link::kVistaIdList}) {
        EraseBlocks(signature);
    }
    for (OwnBlock& block : blocks_) {
        if (block.signature == link::kPropertyStore) {
            block.all = link::WithoutTargetProperties(block.all);
        }
    }
    std::erase_if(blocks_, [](const OwnBlock& block) { return block.all.empty(); });
}

// All five texts share one encoding.
void Editor::MakeUnicode() {
    for (std::string& text : texts_) {
        text = ToUtf16(FromCodePage(text));
    }
    Flag(link::kIsUnicode, true);
}

std::string Editor::SetText(link::Text text, std::string_view value) {
    if (!IsUnicode() && !text::IsAscii(value)) MakeUnicode();
    std::string stored = IsUnicode() ? ToUtf16(value) : std::string(value);
    if (stored.size() / (IsUnicode() ? 2 : 1) > kMostCharacters) {
        return "A value of more than 65,535 characters can't be stored.";
    }
    texts_[text] = std::move(stored);
    Flag(link::kTextFlags[text], !value.empty());
    return {};
}

std::string Editor::SetIcon(std::string_view value) {
    const std::size_t comma = IconComma(value);
    std::optional<std::int32_t> index = 0;
    std::string_view path = value;
    if (!value.empty() && comma != value.npos) {
        path = value.substr(0, comma);
        if (comma + 1 < value.size()) index = text::ParseWholeNumber(value.substr(comma + 1));
    }
    if (!value.empty() && (comma == value.npos || !index)) {
        return fmt::format("\"{}\" is no icon: it takes a path, a comma and a number.", value);
    }
    PutDoubleWord(header_, link::kAtIconIndex, static_cast<std::uint32_t>(*index));
    const link::Text text = link::kIconLocation;
    const std::string old = IsUnicode() ? FromUtf16(texts_[text]) : FromCodePage(texts_[text]);
    if (std::string_view(old).substr(0, old.find('\0')) == path) return {};
    EraseBlocks(link::kIconEnvironment);
    Flag(link::kHasExpIcon, false);
    return SetText(text, path);
}

std::string Editor::SetHotKey(std::string_view value) {
    const auto hotKey = ParseHotKey(value);
    if (!hotKey) {
        return fmt::format("\"{}\" is no hot key: it takes keys such as CTRL+ALT+F5.", value);
    }
    PutWord(header_, link::kAtHotKey, *hotKey);
    return {};
}

std::string Editor::Bytes() const {
    std::string bytes = header_;
    PutDoubleWord(bytes, link::kAtFlags, flags_);
    bytes.append(idList_).append(linkInfo_);
    for (std::size_t i = 0; i < link::kTextCount; ++i) {
        if ((flags_ & link::kTextFlags[i]) == 0) continue;
        AppendWord(bytes, static_cast<std::uint16_t>(texts_[i].size() / (IsUnicode() ? 2 : 1)));
        bytes.append(texts_[i]);
    }
    for (const OwnBlock& block : blocks_) {
        bytes.append(block.all);
    }
    return bytes.append(tail_);
}

} // namespace

Values ReadShellLink(std::string_view bytes) {
    Values values;
    const auto parts = link::Take(bytes);
    if (!parts) return values;
    values[kTarget] = TargetOf(*parts);
    for (const TextField& field : kTextFields) {
        values[field.field] = parts->TextOf(field.text);
    }
    // The numbers of a file that ends too soon mean nothing.
    if (parts->isCut) return values;
    const shortcuts::Bytes header{parts->header};
    values[kHotKey] = HotKeyText(header.Word(link::kAtHotKey));
    values[kWindowStyle] = WindowStyleText(header.DoubleWord(link::kAtShow));
    const auto index = static_cast<std::int32_t>(header.DoubleWord(link::kAtIconIndex));
    values[kIcon] += fmt::format(",{}", index);
    return values;
}

Edited EditShellLink(std::string_view bytes, const Edits& edits) {
    const auto parts = link::Take(bytes);
    if (!parts || !parts->isWhole) {
        return std::unexpected(
            std::string("It is no whole shell link; nothing of it was changed."));
    }
    Editor editor(*parts);
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (!edits[i]) continue;
        std::string refusal = editor.Set(static_cast<Field>(i), *edits[i]);
        if (!refusal.empty()) return std::unexpected(std::move(refusal));
    }
    return editor.Bytes();
}

} // namespace tarvix::shortcuts
