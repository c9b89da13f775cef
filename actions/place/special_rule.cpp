#include "actions/place/special_rule.h"

#include "actions/place/no_short_path.h"
#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/like.h"
#include "text/numbers.h"
#include "text/paths.h"

#include <optional>

namespace tarvix::actions {

namespace {

using session::ActionState;
using session::Session;

constexpr int kHighestPosition = 250;
constexpr std::size_t kSearchLimit = 230;

constexpr const char* kUnmatched = "Asterick's do NOT MATCH in Special Rule - example *2*";
constexpr const char* kNotNumeric =
    "Replacement character position is not numeric in Special Rule - example *2*";
constexpr const char* kOutOfRange =
    "Replacement character position must be 1-250 in Special Rule - example *1**250*";
constexpr const char* kBadSearchSet = "Search Set is incorrect in Special Rule - example |2,2|";
constexpr const char* kNoRule = "You have selected 'Special Rule', yet you have not typed a rule.";

// ---- what is wrong with a rule; null when nothing is ----

const char* ReadReplacements(ActionState& state, std::string_view rule) {
    std::size_t open = rule.find('*');
    while (open != rule.npos) {
        const std::size_t close = rule.find('*', open + 1);
        if (close == rule.npos) return kUnmatched;
        const auto position = text::ParseWholeNumber(rule.substr(open + 1, close - open - 1));
        if (!position) return kNotNumeric;
        if (*position < 1 || *position > kHighestPosition) return kOutOfRange;
        state.intRulePosition.push_back(*position);
        open = rule.find('*', close + 1);
    }
    state.blnRuleHasReplacement = state.intRulePosition.size() > 1;
    return nullptr;
}

const char* ReadSearchSet(ActionState& state, std::string_view rule) {
    const std::size_t first = rule.find('|');
    const std::size_t second = first == rule.npos ? first : rule.find('|', first + 1);
    const std::size_t comma = rule.find(',', first == rule.npos ? 0 : first + 1);
    if (first == rule.npos && comma == rule.npos) return nullptr;
    const bool isWhole = second != rule.npos && comma < second && first > 0 &&
                         rule[first - 1] == '\\' &&
                         (second + 1 == rule.size() || rule[second + 1] == '\\');
    if (!isWhole) return kBadSearchSet;
    const auto start = text::ParseWholeNumber(rule.substr(first + 1, comma - first - 1));
    const auto length = text::ParseWholeNumber(rule.substr(comma + 1, second - comma - 1));
    if (!start || !length || *start < 1 || *length < 1) return kBadSearchSet;
    state.blnRuleHasSearchSet = true;
    state.intSetStart = *start;
    state.intSetLength = *length;
    state.strSearchSetText = "|" + std::to_string(*start) + "," + std::to_string(*length) + "|";
    return nullptr;
}

void ForgetRule(ActionState& state) {
    state.blnRuleHasReplacement = false;
    state.blnRuleHasSearchSet = false;
    state.intSetStart = 0;
    state.intSetLength = 0;
    state.intRulePosition.assign(1, 0);
}

// ---- one object ----

// The conversion of one object's path. Each step gives false, or an empty text, when the object
// gets no folder.
class Conversion {
  public:
    Conversion(Session& session, std::string_view path, std::string rule)
        : session_(session), state_(session.state.action), path_(path), typed_(std::move(rule)),
          rule_(typed_) {}

    std::string Run() {
        if (state_.blnRuleHasReplacement && !ReplaceCharacters()) return {};
        TellDoubledSlashes();
        if (!CheckColons()) return {};
        rule_ = text::CleanSpacesInPath(rule_, true);
        return state_.blnRuleHasSearchSet ? ApplySearchSet() : rule_;
    }

  private:
    bool ReplaceCharacters();
    void TellDoubledSlashes();
    bool CheckColons();
    std::string ApplySearchSet();
    std::optional<std::string> ReadSet();
    bool ShortenSearch(const std::string& front, const std::string& set, std::string& search);
    std::optional<std::string> FindFolder(std::string_view folder, std::string_view set);
    void TellNothingFound(const std::string& search);

    void Count(int& counter, int step = 1) {
        if (!state_.blnDuplicateRename) counter += step;
    }
    void Log(const std::string& text) {
        if (!state_.blnDuplicateRename) session::LogTimed(session_, text);
    }
    std::string LengthTold() const {
        return " " + std::string(path_) +
               "'s full path length is equal to: " + std::to_string(text::Length(path_));
    }
    std::string RuleTold() const {
        return " With this object " + std::string(path_) + " and this Special Rule " + typed_;
    }

    Session& session_;
    ActionState& state_;
    std::string_view path_;
    const std::string typed_;
    std::string rule_;
};

bool Conversion::ReplaceCharacters() {
    for (std::size_t k = 1;; ++k) {
        const std::size_t open = rule_.find('*');
        const std::size_t close = open == rule_.npos ? open : rule_.find('*', open + 1);
        if (close == rule_.npos || k >= state_.intRulePosition.size()) break;
        const int position = state_.intRulePosition[k];
        const std::string_view character = text::Mid(path_, static_cast<std::size_t>(position), 1);
        if (character.empty()) {
            Count(state_.intRuleShortReplace);
            Log(LengthTold() + ". Position *" + std::to_string(position) +
                "* is greater than that.");
            state_.strFailedPosition = std::to_string(position);
            return false;
        }
        rule_.replace(open, close - open + 1, character);
    }
    if (!state_.blnRuleHasSearchSet) Count(state_.intRuleOk);
    return true;
}

// A replaced character may itself be a "\".
void Conversion::TellDoubledSlashes() {
    if (!text::Mid(rule_, 3).contains("\\\\")) return;
    Log(RuleTold() + " this path was created, " + rule_ +
        " after applying the Replacement Characters. Replacing \\\\ with a single \\.");
}

bool Conversion::CheckColons() {
    const std::size_t first = text::InStr(rule_, ":");
    const std::size_t second = first == 0 ? 0 : text::InStr(rule_, ":", first + 1);
    if ((first == 0 || first == 2) && second == 0) return true;
    Count(state_.intRuleOk, -1);
    Count(state_.intRuleShortReplace);
    const std::string told =
        RuleTold() + " this path was created, " + rule_ +
        " It has a : in the wrong position, can only be position 2. Skipping this object.";
    Log(told);
    session::TellUnlessAuto(session_, session::PromptId::kRuleColon, told);
    return false;
}

std::optional<std::string> Conversion::ReadSet() {
    const auto start = static_cast<std::size_t>(state_.intSetStart);
    const auto length = static_cast<std::size_t>(state_.intSetLength);
    std::string set(text::Mid(path_, start, length));
    if (start + length - 1 > text::Length(path_)) {
        Count(state_.intRuleShortSearch);
        Log(LengthTold() + ". Position " + state_.strSearchSetText + " is greater than that.");
        return std::nullopt;
    }
    if (set.contains('\\')) {
        Count(state_.intRuleNoFolder);
        Log(RuleTold() + " this search Set was created, " + state_.strSearchSetText +
            " It has slashes '\\' which can not be searched for.");
        return std::nullopt;
    }
    return set;
}

// A search that is too long goes on with a short path in front, if the user lets it.
bool Conversion::ShortenSearch(const std::string& front, const std::string& set,
                               std::string& search) {
    session::AskLongPath(session_, search, "", "SpecialRuleConvert", "frmDialog");
    if (session::ContinuesLongPath(session_)) {
        const auto shortened =
            session::GetShortPathNameReturnCodes(session_, front, false, kSearchLimit);
        if (shortened.status >= 2) {
            search = shortened.path + "*" + set + "*";
            return true;
        }
        RefuseWithoutShortPath(session_, search, session::kLongPath);
    }
    Count(state_.intRuleNoFolder);
    return false;
}

// The first folder whose name contains the set; empty when there is none, or no folder to look in.
std::optional<std::string> Conversion::FindFolder(std::string_view folder, std::string_view set) {
    platform::FolderListing listing;
    const session::ErrorContext context{.routine = "SpecialRuleConvert",
                                        .moduleName = "frmDialog",
                                        .object = path_,
                                        .path = path_,
                                        .searchOrDestination = folder,
                                        .objectType = session::ObjectType::kUnknown};
    const auto isMissing = [](const platform::PlatformError& error) -> std::optional<int> {
        const bool told =
            error.number == platform::kPathNotFound || error.number == platform::kBadFileName;
        return told ? std::optional<int>(session::kRecoveryNext) : std::nullopt;
    };
    const auto list = [&]() -> platform::Result<void> {
        auto opened = session_.files().Open(folder);
        if (!opened) return std::unexpected(opened.error());
        return (*opened)->List(listing);
    };
    const auto listed = session::Attempt(session_, context, list, isMissing);
    if (!listed && listed.recovery != session::kRecoveryNext) {
        state_.blnErrorOccurred = true;
        return std::nullopt;
    }
    std::string literal = text::EscapeLikeChars(set);
    literal = text::Replace(text::Replace(literal, "*", "[*]"), "?", "[?]");
    const text::LikePattern pattern("*" + literal + "*", true);
    for (std::size_t i = 0; listed && i < listing.Size(); ++i) {
        if (listing[i].isFolder && pattern.Matches(listing[i].name)) {
            return std::string(listing[i].name);
        }
    }
    return std::string();
}

void Conversion::TellNothingFound(const std::string& search) {
    Count(state_.intRuleNoFolder);
    state_.strLastFailedSearch = search;
    Log(" " + std::string(path_) + " Triggered a search that found nothing. Using position " +
        state_.strSearchSetText + ". With " + std::string(path_) + " and " + typed_ +
        " this search path was created, " + search + " after applying the Search Set.");
}

std::string Conversion::ApplySearchSet() {
    const std::size_t open = rule_.find('|');
    const std::size_t close = open == rule_.npos ? open : rule_.find('|', open + 1);
    const auto set = ReadSet();
    if (!set || close == rule_.npos) return {};
    const std::string front = rule_.substr(0, open);
    std::string search = front + "*" + *set + "*";
    if (text::Length(search) > kSearchLimit && !ShortenSearch(front, *set, search)) return {};
    const std::string folder = search.substr(0, search.size() - set->size() - 2);
    const auto found = FindFolder(folder, *set);
    if (!found) return {};
    if (found->empty()) {
        TellNothingFound(search);
        return {};
    }
    Count(state_.intRuleOk);
    return front + *found + rule_.substr(close + 1);
}

} // namespace

bool ValidateSpecialRule(Session& session, std::string_view rule) {
    ActionState& state = session.state.action;
    ForgetRule(state);
    const char* wrong = ReadReplacements(state, rule);
    if (wrong == nullptr) wrong = ReadSearchSet(state, rule);
    if (wrong == nullptr && !state.blnRuleHasReplacement && !state.blnRuleHasSearchSet) {
        wrong = kNoRule;
    }
    if (wrong != nullptr) session.MsgBox(session::PromptId::kRuleInvalid, wrong);
    return wrong == nullptr;
}

std::string SpecialRuleConvert(Session& session, std::string_view path, std::string rule) {
    return Conversion(session, path, std::move(rule)).Run();
}

} // namespace tarvix::actions
