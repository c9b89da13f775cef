#include "generate/folder_plan.h"

#include "generate/digits.h"
#include "platform/dir.h"
#include "platform/file_system.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"

#include <fmt/core.h>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

class Questions {
  public:
    explicit Questions(Session& session) : session_(session) {}

    std::optional<FolderPlan> Ask() {
        std::string list;
        while (true) {
            list = session_.PickFile(PromptId::kPickFolderNames,
                                     "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|");
            if (list.empty()) break;
            const std::string why = WhyNoList(list);
            if (why.empty()) return FromList(list);
            session_.MsgBox(PromptId::kFolderNamesUnusable, why);
        }
        std::string kind;
        while (AskText(PromptId::kFoldersKind, "Numeric or Alphanumeric folder names(N,A)?", "A",
                       kind)) {
            kind = text::Upper(kind);
            if (kind == "N") return AskNumbers();
            if (kind == "A") return AskCounted();
            session_.MsgBox(PromptId::kFoldersAnswerInvalid,
                            fmt::format("\"{}\" is not valid response.", kind));
        }
        return std::nullopt;
    }

  private:
    std::string WhyNoList(const std::string& list) {
        if (platform::DirName(session_.files(), list, platform::kDirFiles).empty()) {
            return "file missing";
        }
        const auto facts = session_.files().Facts(list);
        return facts && facts->size == 0 ? "file is empty" : "";
    }
    static FolderPlan FromList(const std::string& list) {
        return {.log = fmt::format(" User selected to create folders. They were named using file: "
                                   "{}",
                                   list),
                .list = list};
    }
    bool AskText(PromptId id, std::string_view question, std::string_view preset,
                 std::string& answer) {
        answer = session_.InputBox(id, question, preset);
        return !answer.empty();
    }
    // Until the answer is one; false when it was cancelled.
    bool AskUntil(PromptId id, std::string_view question, std::string_view preset,
                  std::string (*whyNot)(std::string_view), std::string& answer) {
        while (AskText(id, question, preset, answer)) {
            const std::string why = whyNot(answer);
            if (why.empty()) return true;
            session_.MsgBox(PromptId::kFoldersAnswerInvalid, why);
        }
        return false;
    }
    std::optional<FolderPlan> AskNumbers() {
        std::string answer;
        if (!AskUntil(PromptId::kFoldersStart, "Numeric starting point for folder names?", "",
                      WhyNoFolderNumber, answer)) {
            return std::nullopt;
        }
        const std::int64_t start = *ReadDigits(answer);
        while (
            AskUntil(PromptId::kFoldersCount, "How many folders?", "", WhyNoFolderNumber, answer)) {
            const std::int64_t count = *ReadDigits(answer);
            const std::string biggest = std::to_string(start + count);
            if (!IsTooBig(biggest)) return Numbered(start, count);
            session_.MsgBox(PromptId::kFoldersAnswerInvalid,
                            fmt::format("Biggest numeric name - \"{}\" is to big a number limited "
                                        "to 2,147,483,648",
                                        biggest));
        }
        return std::nullopt;
    }
    static FolderPlan Numbered(std::int64_t start, std::int64_t count) {
        const std::int64_t last = count == 0 ? start : start + count - 1;
        return {.next = NumberedNames(start, count),
                .log = fmt::format(" User selected to create folders {} -- to -- {}",
                                   NumberedName(start, count, start),
                                   NumberedName(start, count, last))};
    }
    std::optional<FolderPlan> AskCounted() {
        std::string start;
        std::string end;
        const bool isAnswered =
            AskUntil(PromptId::kFoldersFirst, "AlphaNumeric starting point for folder names?", "0",
                     WhyNoCountedName, start) &&
            AskUntil(PromptId::kFoldersLast, "AlphaNumeric ending point for folder names?", "ZZZ",
                     WhyNoCountedName, end);
        if (!isAnswered) return std::nullopt;
        start = ThreePlaces(start);
        end = ThreePlaces(end);
        return FolderPlan{
            .next = CountedNames(start, end),
            .log = fmt::format(" User selected to create folders {} -- to -- {}", start, end)};
    }

    Session& session_;
};

} // namespace

std::optional<FolderPlan> AskFolderPlan(Session& session) {
    return Questions(session).Ask();
}

} // namespace tarvix::generate
