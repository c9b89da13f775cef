#include "generate/number_lines.h"

#include "generate/digits.h"
#include "generate/number_form.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

class NumberLines : public ListSource {
  public:
    explicit NumberLines(const NumberPlan& plan)
        : plan_(plan), star_(plan.lineText.find('*')),
          count_(static_cast<std::size_t>(std::max<std::int64_t>(plan.end - plan.start + 1, 0))) {}
    std::size_t Count() const override { return count_; }
    Appended Append(std::size_t index, std::string& out) override {
        const auto number = plan_.start + static_cast<std::int64_t>(index);
        if (star_ == plan_.lineText.npos) {
            out += plan_.lineText;
        } else {
            out.append(plan_.lineText, 0, star_);
            out += text::Format(number, plan_.picture);
            out.append(plan_.lineText, star_ + 1);
        }
        out += kLineEnd;
        return Appended::kWritten;
    }

  private:
    NumberPlan plan_;
    std::size_t star_; // where the number goes
    std::size_t count_;
};

// The questions one after the other. False when one of them was cancelled.
class Questions {
  public:
    explicit Questions(Session& session) : session_(session) {}

    bool AskAll(NumberPlan& plan) {
        return AskRange(plan) && AskPicture(plan) &&
               Ask(PromptId::kNumberLine, "Enter Line Text.  Type * where number goes",
                   kLineTextPreset, plan.lineText);
    }

  private:
    bool Ask(PromptId id, std::string_view question, std::string_view preset, std::string& answer) {
        answer = session_.InputBox(id, question, preset);
        return !answer.empty();
    }
    // Whether it is one; otherwise says why not.
    bool TakeNumber(const std::string& answer, std::int64_t& number) {
        const std::string why = WhyNoNumber(answer);
        if (!why.empty()) {
            session_.MsgBox(PromptId::kNumberInvalid, why);
            return false;
        }
        number = *ReadDigits(answer);
        return true;
    }
    bool AskRange(NumberPlan& plan) {
        std::string answer;
        while (true) {
            do {
                if (!Ask(PromptId::kNumberStart, "Numeric Starting Point", "1", answer)) {
                    return false;
                }
            } while (!TakeNumber(answer, plan.start));
            if (!Ask(PromptId::kNumberEnd, "Numeric Ending Point", "100", answer)) return false;
            if (TakeNumber(answer, plan.end)) return true;
        }
    }
    bool AskPicture(NumberPlan& plan) {
        std::string answer;
        do {
            if (!Ask(PromptId::kNumberSameLength,
                     "Should numbers always be the same length? 1-True 0-False", "1", answer)) {
                return false;
            }
        } while (answer != "0" && answer != "1");
        plan.picture.clear();
        if (answer == "0") return true;
        while (Ask(PromptId::kNumberFormat, "Numeric Format String. example - 00#", "000#",
                   plan.picture)) {
            const std::string why = WhyNoPicture(plan.picture);
            if (why.empty()) return true;
            session_.MsgBox(PromptId::kNumberInvalid, why);
        }
        return false;
    }

    Session& session_;
};

} // namespace

std::unique_ptr<ListSource> MakeNumberLines(const NumberPlan& plan) {
    return std::make_unique<NumberLines>(plan);
}

std::string WhyNoNumber(std::string_view answer) {
    if (text::IsBlankValue(answer)) return fmt::format("\"{}\" is not valid.", answer);
    if (!text::IsAllDigits(answer)) return fmt::format("\"{}\" is not numeric.", answer);
    if (!ReadDigits(answer)) return fmt::format("\"{}\" is too big a number.", answer);
    return {};
}

std::string WhyNoPicture(std::string_view picture) {
    if (picture.contains('#')) return {};
    return "A # symbol is required to represent the number used in the numeric increment.\r\n"
           "The zeros represent the leading zeros for short numbers.\r\n"
           "Leading zeros allow you to create a numeric increment that is always the same number "
           "of characters.";
}

std::optional<NumberPlan> AskNumbers(Session& session) {
    if (session.prompts.PrefersForms()) return AskNumbersInForm(session);
    NumberPlan plan;
    if (Questions(session).AskAll(plan)) return plan;
    return std::nullopt;
}

} // namespace tarvix::generate
