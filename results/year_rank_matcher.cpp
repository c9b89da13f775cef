#include "results/year_rank_matcher.h"

#include "results/year_rank_table.h"
#include "text/case.h"
#include "text/characters.h"

#include <array>
#include <bit>
#include <cstdint>
#include <string>

namespace tarvix::results {

namespace {

constexpr int kDecadesFrom = 146;

constexpr char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

// Codes: every character that a pattern tells from others has a code of its own.

using Code = std::uint8_t;

constexpr Code kNoCharacter = 0; // behind the end of the text
constexpr Code kOtherCharacter = 1;
constexpr Code kFirstDigit = 2;
constexpr Code kFirstFreeCode = kFirstDigit + 10;

struct CodeTable {
    std::array<Code, 128> ofCharacter{};
    Code count = kFirstFreeCode;
};

constexpr CodeTable MakeCodes() {
    CodeTable codes;
    codes.ofCharacter.fill(kOtherCharacter);
    for (std::size_t digit = 0; digit < 10; ++digit) {
        codes.ofCharacter['0' + digit] = static_cast<Code>(kFirstDigit + digit);
    }
    for (const YearRankPattern& row : kYearRankPatterns) {
        for (const char c : row.pattern) {
            Code& code = codes.ofCharacter[static_cast<std::size_t>(UpperAscii(c))];
            if (code == kOtherCharacter) code = codes.count++;
        }
    }
    for (std::size_t c = 'a'; c <= 'z'; ++c) {
        codes.ofCharacter[c] = codes.ofCharacter[c - 32];
    }
    return codes;
}

constexpr CodeTable kCodes = MakeCodes();

// Acceptance: what a match of a row must hold besides its pattern.

struct Acceptance {
    bool always = false;
    bool notAtStart = false;
    bool isDecade = false;        // the first three digits of a year
    std::uint8_t yearOffsets = 0; // bits: a plausible year at one of them is enough
};

constexpr std::string_view kYear = "####";

constexpr Acceptance AcceptanceOf(std::string_view p) {
    const std::size_t length = p.size();
    if (length < 4) return {.always = true, .notAtStart = length == 2};
    if (p.starts_with("BC") || p.ends_with("BC")) return {.always = true};
    Acceptance accept;
    const auto yearAt = [&](std::size_t offset) {
        accept.yearOffsets |= static_cast<std::uint8_t>(1U << offset);
    };
    if (p[0] != '#' && p.substr(2, 4) == kYear) yearAt(2);
    if (p[0] != '#' && p.substr(1, 4) == kYear) yearAt(1);
    if (p.ends_with(kYear)) yearAt(length - kYear.size());
    if (p.starts_with(kYear)) yearAt(0);
    accept.isDecade = p.starts_with("###_");
    return accept;
}

// Candidates: a row, or the row spelled out. A text with the very characters of the pattern, "#"
// and "?" included, fits too, and that matters only for a row that asks for no year.

struct Candidate {
    std::uint8_t row = 0;
    bool isSpelledOut = false;
    Acceptance accept;
};

constexpr bool HasSpelledOutForm(const YearRankPattern& row) {
    return AcceptanceOf(row.pattern).always && row.pattern.contains('#');
}

constexpr std::size_t CountCandidates() {
    std::size_t count = 0;
    for (const YearRankPattern& row : kYearRankPatterns) {
        count += HasSpelledOutForm(row) ? 2 : 1;
    }
    return count;
}

constexpr std::size_t kCandidateCount = CountCandidates();

// In the order of the rows.
constexpr std::array<Candidate, kCandidateCount> MakeCandidates() {
    std::array<Candidate, kCandidateCount> candidates;
    std::size_t count = 0;
    for (std::size_t row = 0; row < kYearRankPatterns.size(); ++row) {
        const Acceptance accept = AcceptanceOf(kYearRankPatterns[row].pattern);
        const auto number = static_cast<std::uint8_t>(row);
        candidates[count++] = {number, false, accept};
        if (HasSpelledOutForm(kYearRankPatterns[row])) candidates[count++] = {number, true, accept};
    }
    return candidates;
}

constexpr std::array<Candidate, kCandidateCount> kCandidates = MakeCandidates();

// One bit for each candidate.
struct CandidateSet {
    std::uint64_t low = 0;
    std::uint64_t high = 0;

    constexpr void Add(std::size_t candidate) {
        (candidate < 64 ? low : high) |= std::uint64_t{1} << candidate % 64;
    }
    constexpr void RemoveFirst() { (low != 0 ? low : high) &= (low != 0 ? low : high) - 1; }
    constexpr std::size_t First() const {
        return static_cast<std::size_t>(low != 0 ? std::countr_zero(low)
                                                 : 64 + std::countr_zero(high));
    }
    constexpr bool IsEmpty() const { return (low | high) == 0; }
    constexpr CandidateSet operator&(const CandidateSet& other) const {
        return {low & other.low, high & other.high};
    }
};
static_assert(kCandidateCount <= 128);

constexpr std::array<CandidateSet, kYearRankPatterns.size() + 1> MakeRowsBefore() {
    std::array<CandidateSet, kYearRankPatterns.size() + 1> before;
    for (std::size_t row = 0; row < before.size(); ++row) {
        for (std::size_t i = 0; i < kCandidateCount; ++i) {
            if (kCandidates[i].row < row) before[row].Add(i);
        }
    }
    return before;
}

// By row; the last holds all.
constexpr std::array<CandidateSet, kYearRankPatterns.size() + 1> kRowsBefore = MakeRowsBefore();

// Codes from `first` up to, but not with, `last`.
struct CodeRange {
    std::size_t first;
    std::size_t last;
};

constexpr CodeRange CodesTaken(const Candidate& candidate, std::size_t offset) {
    const std::string_view pattern = kYearRankPatterns[candidate.row].pattern;
    if (offset >= pattern.size()) return {kNoCharacter, kCodes.count};
    const char c = pattern[offset];
    if (!candidate.isSpelledOut && c == '#') return {kFirstDigit, kFirstFreeCode};
    if (!candidate.isSpelledOut && c == '?') return {kNoCharacter + 1, kCodes.count};
    const std::size_t code = kCodes.ofCharacter[static_cast<std::size_t>(c)];
    return {code, code + 1};
}

using FittingByCode = std::array<CandidateSet, kCodes.count>;

constexpr std::array<FittingByCode, kLongestYearRankPattern> MakeFitting() {
    std::array<FittingByCode, kLongestYearRankPattern> fitting;
    for (std::size_t offset = 0; offset < fitting.size(); ++offset) {
        for (std::size_t i = 0; i < kCandidateCount; ++i) {
            const CodeRange taken = CodesTaken(kCandidates[i], offset);
            for (std::size_t code = taken.first; code < taken.last; ++code) {
                fitting[offset][code].Add(i);
            }
        }
    }
    return fitting;
}

// The candidates that take a character of this code at this offset of the piece.
constexpr std::array<FittingByCode, kLongestYearRankPattern> kFitting = MakeFitting();

// The codes of eight characters, the first in the lowest byte.
using Window = std::uint64_t;
static_assert(kLongestYearRankPattern == sizeof(Window));

Code CodeAt(Window window, std::size_t offset) {
    return static_cast<Code>(window >> offset * 8);
}

CandidateSet FittingCandidates(Window window, CandidateSet allowed) {
    for (std::size_t i = 0; i < kLongestYearRankPattern && !allowed.IsEmpty(); ++i) {
        allowed = allowed & kFitting[i][CodeAt(window, i)];
    }
    return allowed;
}

int NumberAt(Window window, std::size_t offset, std::size_t digits) {
    int number = 0;
    for (std::size_t i = 0; i < digits; ++i) {
        number = number * 10 + CodeAt(window, offset + i) - kFirstDigit;
    }
    return number;
}

int FirstThreeDigits(int year) {
    while (year >= 1000) {
        year /= 10;
    }
    return year;
}

bool IsAccepted(const Acceptance& accept, Window window, bool atStart, int intMaxYear) {
    if (accept.always) return !(accept.notAtStart && atStart);
    if (accept.isDecade) {
        const int decade = NumberAt(window, 0, 3);
        return decade >= kDecadesFrom && decade < FirstThreeDigits(intMaxYear);
    }
    for (unsigned left = accept.yearOffsets; left != 0; left &= left - 1) {
        const int year = NumberAt(window, static_cast<std::size_t>(std::countr_zero(left)), 4);
        if (IsPlausibleYear(year, intMaxYear)) return true;
    }
    return false;
}

// Every row asks for three digits in a run, for three "#" when it is spelled out, or for a pair of
// brackets.
bool MayHoldYearRank(std::string_view text) {
    int run = 0;
    char before = 0;
    for (const char c : text) {
        run = (c >= '0' && c <= '9') || c == '#' ? run + 1 : 0;
        if (run == 3) return true;
        if (c == ')' && before == '(') return true;
        if ((c == '}' || c == ']') && before == c - 2) return true;
        before = c;
    }
    return false;
}

// Moves `pos` from behind a character to its first byte.
Code CodeBefore(std::string_view text, std::size_t& pos) {
    const auto last = static_cast<unsigned char>(text[pos - 1]);
    if (last < 0x80) {
        --pos;
        return kCodes.ofCharacter[last];
    }
    for (std::size_t bytes = 2; bytes <= 4 && bytes <= pos; ++bytes) {
        std::size_t end = pos - bytes;
        const char32_t upper = text::UpperCharacter(text::NextCharacter(text, end));
        if (end != pos) continue;
        pos -= bytes;
        return upper < 0x80 ? kCodes.ofCharacter[upper] : kOtherCharacter;
    }
    --pos;
    return kOtherCharacter;
}

} // namespace

std::optional<YearRankMatch> FindYearRank(std::string_view text, int intMaxYear) {
    if (!MayHoldYearRank(text)) return {};
    std::optional<YearRankMatch> best;
    CandidateSet allowed = kRowsBefore.back();
    Window window = 0;
    for (std::size_t pos = text.size(); pos > 0 && !allowed.IsEmpty();) {
        window = window << 8 | CodeBefore(text, pos);
        CandidateSet fitting = FittingCandidates(window, allowed);
        for (; !fitting.IsEmpty(); fitting.RemoveFirst()) {
            const Candidate& candidate = kCandidates[fitting.First()];
            if (!IsAccepted(candidate.accept, window, pos == 0, intMaxYear)) continue;
            const std::size_t length = kYearRankPatterns[candidate.row].pattern.size();
            best = {candidate.row, text::Left(text.substr(pos), length)};
            allowed = kRowsBefore[candidate.row];
            break;
        }
    }
    return best;
}

} // namespace tarvix::results
