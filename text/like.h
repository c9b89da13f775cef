#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::text {

// A pattern of the Like operator, prepared once for many texts. The pattern must fit the whole
// text:
// "*" any run of characters, "?" one character, "#" one digit 0 to 9, "[a-f_]" one character of the
// class, "[!a-f_]" one that isn't in it, "[]" nothing, all else itself. In a class "-" at either
// end is itself, "*?#[" are themselves, and a lone "!" is itself. A "[" without its "]" and a range
// that runs backward make a bad pattern, which matches no text.
//
// With ignoreCase the upper-case forms of text and pattern are compared. Matches never allocates,
// and its time is at most the product of both lengths.
class LikePattern {
  public:
    // Keeps a compiled copy; `pattern` is UTF-8 and need not outlive the call.
    explicit LikePattern(std::string_view pattern, bool ignoreCase = false);

    // Whether the whole text, UTF-8, fits; never for a bad pattern.
    bool Matches(std::string_view text) const;

    // Whether the pattern is a bad one.
    bool IsBad() const { return bad_; }

  private:
    enum class Kind : std::uint8_t { Character, Any, Digit, Class };
    struct Element {
        Kind kind;
        char32_t value; // the character, or the index of the class
    };
    struct Range {
        char32_t first;
        char32_t last;
    };
    struct CharacterClass {
        bool negated = false;
        std::array<bool, 128> ascii{}; // members, not yet negated
        std::vector<Range> ranges;
    };
    // What stands between two stars: elements of one character each. `literal` holds them as bytes
    // when all are plain ASCII characters.
    struct Segment {
        std::size_t begin = 0;
        std::size_t end = 0;
        std::string literal;
        bool isLiteral = false;
    };

    void Compile(std::string_view pattern);
    bool AddClass(std::string_view members);
    void CloseSegment(std::size_t begin);

    bool Fits(const Element& element, char32_t c) const;
    bool InClass(const CharacterClass& members, char32_t c) const;
    char32_t NextFolded(std::string_view text, std::size_t& pos) const;

    bool SegmentAt(const Segment& segment, std::string_view text, std::size_t pos) const;
    std::size_t FindSegment(const Segment& segment, std::string_view text, std::size_t pos) const;
    bool MatchesAscii(std::string_view text) const;

    bool SegmentFrom(const Segment& segment, std::string_view text, std::size_t& pos) const;
    bool EndsOtherwise(std::string_view text) const;
    bool MatchesAny(std::string_view text) const;

    bool ignoreCase_;
    bool bad_ = false;
    bool takesAll_ = false; // nothing but stars
    std::vector<Element> elements_;
    std::vector<CharacterClass> classes_;
    std::vector<Segment> segments_; // one more than there are stars
};

// One match with a pattern that is used once.
bool Like(std::string_view text, std::string_view pattern);
bool LikeNoCase(std::string_view text, std::string_view pattern);

// The pattern that takes "[" and "#" of `text` literally, while "*" and "?" keep their sense.
std::string EscapeLikeChars(std::string_view text);

} // namespace tarvix::text
