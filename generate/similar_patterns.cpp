#include "generate/similar_patterns.h"

#include "text/case.h"
#include "text/characters.h"
#include "text/like.h"

#include <algorithm>
#include <vector>

namespace tarvix::generate {

namespace {

constexpr std::size_t kMostWords = 101;
constexpr std::string_view kYearRank = "####-###";

// Words that tell nothing.
bool IsDropped(std::string_view word) {
    constexpr std::array<std::string_view, 6> kNumbers{"#", "##", "####", "#)", "##)", "####)"};
    return word == "-" || word == "~" || word == " " || text::EqualNoCase(word, "THE") ||
           std::ranges::any_of(kNumbers, [word](auto form) { return text::Like(word, form); });
}

// A text by characters, positions from 1.
class Characters {
  public:
    explicit Characters(std::string_view text) {
        for (std::size_t at = 0; at < text.size();) {
            starts_.push_back(at);
            char32_t c = 0;
            at += text::DecodeOne(text.substr(at), c);
        }
        starts_.push_back(text.size());
        text_ = text;
    }
    std::size_t Length() const { return starts_.size() - 1; }
    bool IsBlank(std::size_t position) const { return text_[starts_[position - 1]] == ' '; }
    // The first blank from there on, 0 for none.
    std::size_t FirstBlank(std::size_t from) const {
        for (std::size_t position = from; position <= Length(); ++position) {
            if (IsBlank(position)) return position;
        }
        return 0;
    }
    // From one position to before another.
    std::string Part(std::size_t from, std::size_t end) const {
        const std::size_t last = std::min(end, Length() + 1);
        if (from >= last) return {};
        return std::string(text_.substr(starts_[from - 1], starts_[last - 1] - starts_[from - 1]));
    }

  private:
    std::string_view text_;
    std::vector<std::size_t> starts_;
};

// The words of a name; one that ends the table without being counted stands behind the others.
struct Words {
    std::vector<std::string> table;
    std::size_t count = 0;

    std::string At(std::size_t index) const {
        return index < table.size() ? table[index] : std::string();
    }
};

Words WordsOf(std::string_view name) {
    const Characters text(name);
    Words words;
    std::size_t place = 1;
    std::size_t start = 1;
    std::size_t next = text.FirstBlank(3);
    while (words.count + 1 < kMostWords) {
        if (place == 0 || next == 0) {
            const std::size_t blank = text.FirstBlank(start);
            if (blank == 0) break;
            std::string rest = text.Part(blank + 1, text.Length() + 1);
            if (rest != "-" && rest != "~") words.table.push_back(std::move(rest));
            break;
        }
        const std::size_t from = text.IsBlank(place) ? place + 1 : place;
        std::string word = text.Part(from, next);
        if (!IsDropped(word)) {
            words.table.push_back(std::move(word));
            ++words.count;
        }
        start += next - place;
        place = text.FirstBlank(start);
        next = place == 0 ? 0 : text.FirstBlank(place + 2);
        if (next == 0) next = text.Length() + 1;
    }
    return words;
}

bool IsYearRank(std::string_view word) {
    return text::Like(word, kYearRank);
}

// The index of the last word that counts.
std::size_t LastWord(const Words& words) {
    if (words.count <= 1) return 1;
    if (IsYearRank(words.At(words.count - 1))) return words.count - 2;
    const std::size_t last = words.count - 1;
    return words.At(last).empty() ? last - 1 : last;
}

std::string WithoutLast(const std::string& word) {
    const std::size_t length = text::Length(word);
    return std::string(text::Left(word, length == 0 ? 0 : length - 1));
}

} // namespace

std::string SimilarBaseName(std::string_view name) {
    constexpr std::size_t kRankAndBlank = 9;
    constexpr std::size_t kRank = 8;
    const std::string_view base = name.substr(0, name.rfind('.'));
    if (text::Like(base, "####-###*")) return std::string(text::Mid(base, kRankAndBlank + 1));
    if (text::Like(base, "*####-###")) {
        return std::string(text::Left(base, text::Length(base) - kRank));
    }
    return std::string(base);
}

std::array<std::string, 3> SimilarPatterns(std::string_view baseName) {
    const Words words = WordsOf(baseName);
    const std::size_t first = IsYearRank(words.At(0)) ? 1 : 0;
    const std::size_t last = LastWord(words);
    const std::size_t second = last >= 2 ? last - 1 : last;
    const bool hasBracket = words.At(last).ends_with(')');
    const std::string lastWord = hasBracket ? WithoutLast(words.At(last)) : words.At(last);
    const std::string secondWord = hasBracket ? WithoutLast(words.At(second)) : words.At(second);
    std::string all = "*";
    for (std::size_t i = first; i <= last; ++i) {
        all.append(i == last ? lastWord : words.At(i)).append("*");
    }
    return {all, text::Concat({"*", words.At(first), "*", lastWord, "*"}),
            text::Concat({"*", words.At(first), "*", secondWord, "*"})};
}

} // namespace tarvix::generate
