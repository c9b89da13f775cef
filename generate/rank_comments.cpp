#include "generate/rank_comments.h"

#include "generate/digits.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/like.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::generate {

namespace {

constexpr std::int64_t kLastRank = 100;

std::string ThreeDigits(std::int64_t rank) {
    return text::Format(rank, "00#");
}

// The number that a rank begins with; 0 when it begins with none.
std::int64_t ValueOf(std::string_view rank) {
    const std::size_t end = std::min(rank.find_first_not_of("0123456789"), rank.size());
    return ReadDigits(rank.substr(0, end)).value_or(0);
}

// A year, with or without its hyphen.
bool IsYear(std::string_view key) {
    constexpr std::array<std::string_view, 4> kForms{"1???", "1??\?-", "2???", "2??\?-"};
    return std::ranges::any_of(kForms, [key](auto form) { return text::Like(key, form); });
}

std::string KeyOf(std::string_view searchFor) {
    // Without a wild card the search itself put one at either end.
    const bool isWrapped = searchFor.find_first_of(".*?") != searchFor.npos;
    if (!isWrapped) return std::string(searchFor);
    const std::size_t length = text::Length(searchFor);
    return std::string(length < 2 ? "" : text::Mid(searchFor, 2, length - 2));
}

std::size_t PositionNoCase(std::string_view text, std::string_view part) {
    return text::InStr(text::Upper(text), text::Upper(part));
}

void AppendRank(std::string& out, std::string_view rank) {
    out.append("#").append(rank).append("\r\n");
}

} // namespace

RankComments::RankComments(std::string_view strSearchFor) : key_(KeyOf(strSearchFor)) {
    if (!IsYear(key_)) key_.clear();
}

// By the form of the names: "1987-042 Song.mp3" or "Song 1987-042.mp3".
void RankComments::ReadRank(std::string_view name) {
    const std::size_t position = PositionNoCase(name, key_);
    if (position == 0) return;
    const std::string rankForm = key_.ends_with('-') ? "???" : "-???";
    const std::string key = text::EscapeLikeChars(key_);
    const std::size_t length = text::Length(name);
    const auto atEnd = [&] { return std::string(text::Mid(name, length - 6, 3)); };
    if (text::Like(name, fmt::format("{}{}*.mp3", key, rankForm))) {
        constexpr std::size_t kLatestBeginning = 8;
        constexpr std::size_t kEnding = 12;
        if (position <= kLatestBeginning) {
            strRank_ = text::Mid(name, 6, 3);
        } else {
            strRank_ = position > length - kEnding ? atEnd() : std::string();
        }
    } else if (text::Like(name, fmt::format("*{}{}.mp3", key, rankForm))) {
        strRank_ = atEnd();
    }
}

void RankComments::AppendBefore(std::string_view name, std::string& out) {
    std::string strLastRank = strRank_;
    if (!key_.empty()) ReadRank(name);
    const auto rank = ReadDigits(strRank_);
    if (!rank || *rank >= kLastRank) return;
    if (strLastRank.empty()) strLastRank = "000";
    strNextRank_ = ThreeDigits(ValueOf(strLastRank) + 1);
    while (strNextRank_ < strRank_) {
        AppendRank(out, strNextRank_);
        strNextRank_ = ThreeDigits(ValueOf(strNextRank_) + 1);
    }
}

void RankComments::AppendEnd(std::string& out) {
    const auto next = ReadDigits(strNextRank_);
    if (!next || *next >= kLastRank - 1) return;
    for (std::int64_t rank = *next + 1; rank <= kLastRank; ++rank) {
        AppendRank(out, ThreeDigits(rank));
    }
}

} // namespace tarvix::generate
