#include "text/like.h"

#include "text/case.h"
#include "text/characters.h"

#include <algorithm>

namespace tarvix::text {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

char32_t CodeOf(char c) {
    return static_cast<unsigned char>(c);
}

bool IsDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

} // namespace

LikePattern::LikePattern(std::string_view pattern, bool ignoreCase) : ignoreCase_(ignoreCase) {
    if (ignoreCase) {
        Compile(Upper(pattern));
    } else {
        Compile(pattern);
    }
}

void LikePattern::Compile(std::string_view pattern) {
    std::size_t segmentBegin = 0;
    for (std::size_t pos = 0; pos < pattern.size();) {
        const char32_t c = NextCharacter(pattern, pos);
        if (c == '*') {
            CloseSegment(segmentBegin);
            segmentBegin = elements_.size();
        } else if (c == '?') {
            elements_.push_back({Kind::Any, 0});
        } else if (c == '#') {
            elements_.push_back({Kind::Digit, 0});
        } else if (c == '[') {
            const std::size_t close = pattern.find(']', pos);
            if (close == kNone || !AddClass(pattern.substr(pos, close - pos))) {
                bad_ = true;
                return;
            }
            pos = close + 1;
        } else {
            elements_.push_back({Kind::Character, c});
        }
    }
    CloseSegment(segmentBegin);
    takesAll_ = elements_.empty() && segments_.size() > 1;
}

// False for a range that runs backward.
bool LikePattern::AddClass(std::string_view members) {
    if (members.empty()) return true;
    CharacterClass made;
    if (members.size() > 1 && members.front() == '!') {
        made.negated = true;
        members.remove_prefix(1);
    }
    for (std::size_t pos = 0; pos < members.size();) {
        const bool atFront = pos == 0;
        Range range{NextCharacter(members, pos), 0};
        range.last = range.first;
        const bool dashFollows = pos + 1 < members.size() && members[pos] == '-';
        if (dashFollows && !(atFront && range.first == '-')) {
            range.last = NextCharacter(members, ++pos);
        }
        if (range.last < range.first) return false;
        for (char32_t c = range.first; c <= range.last && c < made.ascii.size(); ++c) {
            made.ascii[c] = true;
        }
        if (range.last >= made.ascii.size()) made.ranges.push_back(range);
    }
    elements_.push_back({Kind::Class, static_cast<char32_t>(classes_.size())});
    classes_.push_back(std::move(made));
    return true;
}

void LikePattern::CloseSegment(std::size_t begin) {
    Segment segment{begin, elements_.size(), {}, true};
    for (std::size_t i = begin; i < segment.end && segment.isLiteral; ++i) {
        segment.isLiteral = elements_[i].kind == Kind::Character && elements_[i].value < 0x80;
        segment.literal += static_cast<char>(elements_[i].value);
    }
    segments_.push_back(std::move(segment));
}

bool LikePattern::InClass(const CharacterClass& members, char32_t c) const {
    if (c < members.ascii.size()) return members.ascii[c] != members.negated;
    const bool found = std::ranges::any_of(
        members.ranges, [c](const Range& range) { return c >= range.first && c <= range.last; });
    return found != members.negated;
}

bool LikePattern::Fits(const Element& element, char32_t c) const {
    switch (element.kind) {
    case Kind::Character:
        return c == element.value;
    case Kind::Digit:
        return IsDigit(c);
    case Kind::Class:
        return InClass(classes_[element.value], c);
    case Kind::Any:
        break;
    }
    return true;
}

// Reads the character at byte `pos` as it is compared.
char32_t LikePattern::NextFolded(std::string_view text, std::size_t& pos) const {
    if (const char c = text[pos]; CodeOf(c) < 0x80) {
        ++pos;
        return CodeOf(ignoreCase_ ? UpperAscii(c) : c);
    }
    const char32_t c = NextCharacter(text, pos);
    return ignoreCase_ ? UpperCharacter(c) : c;
}

bool LikePattern::Matches(std::string_view text) const {
    if (bad_) return false;
    if (takesAll_) return true;
    return IsAscii(text) ? MatchesAscii(text) : MatchesAny(text);
}

// Whether the segment fits the ASCII text at `pos`, where there are bytes enough.
bool LikePattern::SegmentAt(const Segment& segment, std::string_view text, std::size_t pos) const {
    if (segment.isLiteral && !ignoreCase_) return text.substr(pos).starts_with(segment.literal);
    for (std::size_t i = segment.begin; i < segment.end; ++i, ++pos) {
        const char c = text[pos];
        if (!Fits(elements_[i], CodeOf(ignoreCase_ ? UpperAscii(c) : c))) return false;
    }
    return true;
}

// The first place from `pos` on where the whole segment fits into the ASCII text, or kNone.
std::size_t LikePattern::FindSegment(const Segment& segment, std::string_view text,
                                     std::size_t pos) const {
    if (segment.isLiteral && !ignoreCase_) return text.find(segment.literal, pos);
    const std::size_t size = segment.end - segment.begin;
    for (; text.size() - pos >= size; ++pos) {
        if (SegmentAt(segment, text, pos)) return pos;
    }
    return kNone;
}

// The first and the last segment are bound to the ends; each one between takes its first place,
// which leaves the most room for those behind it.
bool LikePattern::MatchesAscii(std::string_view text) const {
    const Segment& first = segments_.front();
    const Segment& last = segments_.back();
    const std::size_t firstSize = first.end - first.begin;
    const std::size_t lastSize = last.end - last.begin;
    if (segments_.size() == 1) return text.size() == firstSize && SegmentAt(first, text, 0);
    if (text.size() < firstSize + lastSize) return false;
    const std::size_t middleEnd = text.size() - lastSize;
    if (!SegmentAt(first, text, 0) || !SegmentAt(last, text, middleEnd)) return false;
    const std::string_view middle = text.substr(0, middleEnd);
    std::size_t pos = firstSize;
    for (std::size_t i = 1; i + 1 < segments_.size(); ++i) {
        pos = FindSegment(segments_[i], middle, pos);
        if (pos == kNone) return false;
        pos += segments_[i].end - segments_[i].begin;
    }
    return true;
}

// Whether the segment fits the characters at byte `pos`, which then moves behind them.
bool LikePattern::SegmentFrom(const Segment& segment, std::string_view text,
                              std::size_t& pos) const {
    std::size_t at = pos;
    for (std::size_t i = segment.begin; i < segment.end; ++i) {
        if (at >= text.size() || !Fits(elements_[i], NextFolded(text, at))) return false;
    }
    pos = at;
    return true;
}

// Whether the last segment is plain and the text's last bytes, being ASCII, are others.
bool LikePattern::EndsOtherwise(std::string_view text) const {
    const Segment& last = segments_.back();
    const std::size_t size = last.end - last.begin;
    if (!last.isLiteral || text.size() < size) return false;
    const std::size_t at = text.size() - size;
    return IsAscii(text.substr(at)) && !SegmentAt(last, text, at);
}

bool LikePattern::MatchesAny(std::string_view text) const {
    if (EndsOtherwise(text)) return false;
    std::size_t pos = 0;
    if (!SegmentFrom(segments_.front(), text, pos)) return false;
    if (segments_.size() == 1) return pos == text.size();
    for (std::size_t i = 1; i < segments_.size(); ++i) {
        const bool isLast = i + 1 == segments_.size();
        if (isLast && segments_[i].begin == segments_[i].end) return true;
        for (;;) {
            std::size_t end = pos;
            if (SegmentFrom(segments_[i], text, end) && (!isLast || end == text.size())) {
                pos = end;
                break;
            }
            if (pos >= text.size()) return false;
            NextFolded(text, pos);
        }
    }
    return true;
}

bool Like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).Matches(text);
}

bool LikeNoCase(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern, true).Matches(text);
}

std::string EscapeLikeChars(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 8);
    for (const char c : text) {
        if (c == '[') {
            out += "[[]";
        } else if (c == '#') {
            out += "[#]";
        } else {
            out += c;
        }
    }
    return out;
}

} // namespace tarvix::text
