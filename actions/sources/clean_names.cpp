#include "actions/sources/clean_names.h"

#include "text/characters.h"
#include "text/name_characters.h"

#include <array>

namespace tarvix::actions {

namespace {

constexpr std::string_view kHardBlank = "\xC2\xA0";
constexpr int kMostReplaced = 100; // of one kind

struct Substitute {
    char bad;
    char good;
};
constexpr std::array kSubstitutes{
    Substitute{'|', '~'},  Substitute{'>', ')'}, Substitute{'<', '('}, Substitute{'"', '\''},
    Substitute{'?', '!'},  Substitute{'*', '-'}, Substitute{':', '-'}, Substitute{'/', '-'},
    Substitute{'\\', '-'}, Substitute{'\t', '-'}};

void ReplaceFirst(std::string& text, const Substitute& substitute) {
    int left = kMostReplaced;
    for (char& c : text) {
        if (c != substitute.bad) continue;
        if (left-- == 0) return;
        c = substitute.good;
    }
}

} // namespace

std::string CleanTitle(std::string_view text) {
    std::string clean(text);
    std::erase_if(clean, [](char c) { return text::kNeverInNames.contains(c); });
    return clean;
}

std::string CleanWebName(std::string_view text) {
    std::string clean(text);
    std::erase_if(clean, text::IsControl);
    for (const Substitute& substitute : kSubstitutes)
        ReplaceFirst(clean, substitute);
    return clean;
}

std::string OnOneNameLine(std::string_view text) {
    std::string line = text::Replace(text, kHardBlank, " ");
    for (char& c : line) {
        if (text::IsControl(c)) c = ' ';
    }
    return std::string(text::Trim(line));
}

} // namespace tarvix::actions
