#pragma once

#include "generate/list_source.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::generate {

// One line for each number from the start to the end; none when the start is beyond the end.
std::unique_ptr<ListSource> MakeNumberLines(const NumberPlan& plan);

// The web address that the line text is at first.
constexpr std::string_view kLineTextPreset = "http://www.*.com/";

// What is wrong with an answer as a number of the plan, in a sentence; empty when it is one.
std::string WhyNoNumber(std::string_view answer);
// The same for the picture of the numbers.
std::string WhyNoPicture(std::string_view picture);

// Asks for the plan: question by question, or where the user sees forms in one of them. Nothing
// when the user cancelled one of them.
std::optional<NumberPlan> AskNumbers(session::Session& session);

} // namespace tarvix::generate
