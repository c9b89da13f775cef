#include "session/message_style.h"

#include "session/prompt_service.h"
#include "text/case.h"
#include "text/characters.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::session {

namespace {
constexpr std::array<std::pair<int, std::string_view>, 9> kCaptions{
    {{kOk, "OK"},
     {kCancel, "Cancel"},
     {kAbort, "Abort"},
     {kRetry, "Retry"},
     {kIgnore, "Ignore"},
     {kYes, "Yes"},
     {kNo, "No"},
     {kSkipAll, "Skip All Like This"},
     {kStopAll, "Stop"}}};
constexpr int kButtons = 7;  // the bits of a style that tell its buttons
constexpr int kDefaults = 3; // of its default button, counted from 0
} // namespace

std::vector<int> ButtonsOf(int style) {
    switch (style & kButtons) {
    case kOkCancel:
        return {kOk, kCancel};
    case kAbortRetryIgnore:
        return {kAbort, kRetry, kIgnore};
    case kYesNoCancel:
        return {kYes, kNo, kCancel};
    case kYesNo:
        return {kYes, kNo};
    case kRetryCancel:
        return {kRetry, kCancel};
    default:
        return {kOk};
    }
}

int DefaultAnswer(int style) {
    const auto buttons = ButtonsOf(style);
    const auto index = static_cast<std::size_t>((style / kSecondDefault) & kDefaults);
    return buttons[std::min(index, buttons.size() - 1)];
}

int SafeAnswer(int style) {
    const auto buttons = ButtonsOf(style);
    for (const int safe : {kCancel, kNo}) {
        if (std::ranges::find(buttons, safe) != buttons.end()) return safe;
    }
    return buttons.front();
}

int FocusedAnswer(int style) {
    const bool namesNone = (style & (kSecondDefault | kThirdDefault)) == 0;
    return namesNone && (style & kButtons) == kYesNo ? SafeAnswer(style) : DefaultAnswer(style);
}

int IconOf(int style) {
    return style & (kCritical | kQuestion | kInformation);
}

std::string_view CaptionOf(int answer) {
    const auto found =
        std::ranges::find(kCaptions, answer, &std::pair<int, std::string_view>::first);
    return found == kCaptions.end() ? std::string_view{} : found->second;
}

std::optional<int> AnswerOf(std::string_view caption) {
    const std::string plain = text::Replace(caption, "&", "");
    for (const auto& [answer, known] : kCaptions) {
        if (text::EqualNoCase(plain, known)) return answer;
    }
    return std::nullopt;
}

} // namespace tarvix::session
