#include "launch/custom/small_xml.h"

#include "text/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace tarvix::custom {

namespace {

constexpr std::size_t kMostElements = 20'000;
constexpr std::size_t kDeepest = 16;
constexpr std::string_view kBlanks = " \t\r\n";

constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};

// "#65", "#x41" or one of the five names.
std::optional<std::string> Entity(std::string_view name) {
    for (const auto& [known, character] : kEntities) {
        if (name == known) return std::string(1, character);
    }
    if (!name.starts_with('#')) return std::nullopt;
    const bool isHex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    unsigned code = 0;
    constexpr int kHex = 16;
    constexpr int kTen = 10;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? kHex : kTen);
    if (error != std::errc{} || end != digits.data() + digits.size() || code == 0)
        return std::nullopt;
    std::string character;
    text::AppendUtf8(character, code);
    return character;
}

std::string Decoded(std::string_view text) {
    constexpr std::size_t kLongestEntity = 10;
    std::string decoded;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('&'), text.size());
        decoded.append(text.substr(0, end));
        text.remove_prefix(end);
        if (text.empty()) break;
        const std::size_t semicolon = text.substr(0, kLongestEntity + 1).find(';');
        const auto entity =
            semicolon == text.npos ? std::nullopt : Entity(text.substr(1, semicolon - 1));
        decoded += entity ? *entity : "&";
        text.remove_prefix(entity ? semicolon + 1 : 1);
    }
    return decoded;
}

std::string Stripped(std::string text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

class Parser {
  public:
    explicit Parser(std::string_view bytes) : rest_(bytes) {}

    XmlElement Parse() {
        while (!rest_.empty()) {
            const std::size_t open = std::min(rest_.find('<'), rest_.size());
            if (!open_.empty()) open_.back().text += Decoded(rest_.substr(0, open));
            rest_.remove_prefix(open);
            if (!rest_.empty()) TakeTag();
            if (isDone_) break;
        }
        while (!open_.empty())
            Close();
        return std::move(root_);
    }

  private:
    // Takes all up to and with `end`; false when it isn't there.
    bool Skip(std::string_view begin, std::string_view end) {
        if (!rest_.starts_with(begin)) return false;
        const std::size_t at = rest_.find(end, begin.size());
        rest_.remove_prefix(at == rest_.npos ? rest_.size() : at + end.size());
        return true;
    }

    void TakeTag() {
        constexpr std::string_view kCdata = "<![CDATA[";
        if (rest_.starts_with(kCdata)) {
            const std::size_t end = std::min(rest_.find("]]>"), rest_.size());
            if (!open_.empty()) {
                open_.back().text += rest_.substr(kCdata.size(), end - kCdata.size());
            }
            rest_.remove_prefix(std::min(end + 3, rest_.size()));
            return;
        }
        if (Skip("<!--", "-->") || Skip("<?", "?>") || Skip("<!", ">")) return;
        const std::size_t end = std::min(rest_.find('>'), rest_.size());
        std::string_view tag = rest_.substr(1, end - std::min<std::size_t>(end, 1));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (tag.starts_with('/')) return TakeEnd(NameOfTag(tag.substr(1)));
        const bool isEmpty = tag.ends_with('/');
        const std::string_view name = NameOfTag(tag);
        if (name.empty() || ++count_ > kMostElements) return;
        open_.push_back({std::string(name), {}, {}});
        if (isEmpty) Close();
    }

    static std::string_view NameOfTag(std::string_view tag) {
        return tag.substr(0, std::min(tag.find_first_of(" \t\r\n/"), tag.size()));
    }

    // Ends the innermost element of that name; one that isn't open ends nothing.
    void TakeEnd(std::string_view name) {
        const bool isOpen = std::ranges::any_of(
            open_, [name](const XmlElement& element) { return element.name == name; });
        while (isOpen) {
            const bool isIt = open_.back().name == name;
            Close();
            if (isIt) break;
        }
    }

    void Close() {
        XmlElement closed = std::move(open_.back());
        open_.pop_back();
        closed.text = Stripped(std::move(closed.text));
        if (open_.empty()) {
            root_ = std::move(closed);
            isDone_ = true;
        } else if (open_.size() < kDeepest) {
            open_.back().children.push_back(std::move(closed));
        }
    }

    std::string_view rest_;
    std::vector<XmlElement> open_; // from the outermost on
    XmlElement root_;
    std::size_t count_ = 0;
    bool isDone_ = false;
};

} // namespace

const XmlElement* XmlElement::Find(std::string_view child) const {
    const auto found = std::ranges::find(children, child, &XmlElement::name);
    return found == children.end() ? nullptr : &*found;
}

std::string_view XmlElement::TextOf(std::string_view child) const {
    const XmlElement* found = Find(child);
    return found == nullptr ? std::string_view() : std::string_view(found->text);
}

XmlElement ParseXml(std::string_view bytes) {
    return Parser(bytes).Parse();
}

} // namespace tarvix::custom
