#include "cli/first_run_answers.h"

#include <array>

namespace tarvix::cli {

namespace {

struct StandingAnswer {
    std::string_view textStart;
    std::string_view answer;
};

constexpr std::array<StandingAnswer, 4> kFirstRun{{
    {"WARNING - Using this program carelessly", "OK"},
    {"Would you like to see the General Information file?", "No"},
    {"Would you like to see the Advanced Functions file?", "No"},
    {"Since you have upgraded Tarvix", "OK"},
}};

} // namespace

int FirstRunAnswers::MsgBox(std::string_view text, int style, std::string_view title) {
    for (const auto& [textStart, answer] : kFirstRun) {
        if (!inner_.HasQueued() && text.starts_with(textStart)) inner_.Queue(std::string(answer));
    }
    return inner_.MsgBox(text, style, title);
}

} // namespace tarvix::cli
