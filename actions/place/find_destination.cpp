#include "actions/place/find_destination.h"

#include "actions/place/action_run.h"
#include "actions/place/destination.h"
#include "actions/place/no_short_path.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "session/attempt.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/like.h"

#include <fmt/core.h>

#include <optional>
#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::size_t kSearchLimit = 230;

// What one object's rule has come to, told and counted.
class RuleSettler {
  public:
    RuleSettler(Session& session, ActionRun& run, const Object& object, bool isAgain)
        : session_(session), tally_(run.rule), rule_(run.request.rule), object_(object),
          isAgain_(isAgain) {}

    // Completes the destination where its folder can be found.
    void Settle(Destination& destination) {
        RuleResult& result = destination.rule;
        if (!rule_) return;
        if (result.hasDoubledSlash) TellDoubledSlashes(result);
        if (result.end == RuleEnd::kFolder) {
            Count(tally_.intRuleOk);
        } else if (result.end == RuleEnd::kSearch) {
            LookForFolder(destination);
        } else {
            TellFailure(result);
        }
    }
    bool HasFailed() const { return hasFailed_; }

  private:
    void Count(int& counter, int step = 1) const {
        if (!isAgain_) counter += step;
    }
    void Log(std::string_view text) const {
        if (!isAgain_) session::LogTimed(session_, text);
    }
    void TellDoubledSlashes(const RuleResult& result) const;
    void TellFailure(const RuleResult& result);
    void TellShortReplace(int position);
    void TellColon(const RuleResult& result);
    void TellDots(const RuleResult& result);

    void LookForFolder(Destination& destination);
    // The folder to look in and the set, or nothing when the search is too long.
    std::optional<std::string> FittingFolder(const RuleResult& result);
    // The first folder whose name contains the set; empty when there is none, or no folder to look
    // in. Nothing after any other error.
    std::optional<std::string> FirstFolder(std::string_view folder, std::string_view set);
    void TellNothingFound(std::string search);

    Session& session_;
    RuleTally& tally_;
    const std::optional<SpecialRule>& rule_;
    const Object& object_;
    bool isAgain_;
    bool hasFailed_ = false;
};

void RuleSettler::TellDoubledSlashes(const RuleResult& result) const {
    Log(fmt::format(" With this object {} and this Special Rule {} this path was created, {} after "
                    "applying the Replacement Characters. Replacing \\\\ with a single \\.",
                    session_.Shown(object_.path), session_.Shown(rule_->text),
                    session_.Shown(result.made)));
}

void RuleSettler::TellFailure(const RuleResult& result) {
    switch (result.end) {
    case RuleEnd::kShortReplace:
        return TellShortReplace(result.position);
    case RuleEnd::kColon:
        return TellColon(result);
    case RuleEnd::kDots:
        return TellDots(result);
    case RuleEnd::kShortSearch:
        Count(tally_.intRuleShortSearch);
        return Log(fmt::format(" {}'s full path length is equal to: {}. Position {} is greater "
                               "than that.",
                               session_.Shown(object_.path), text::Length(object_.TruePath()),
                               rule_->SetText()));
    case RuleEnd::kSlashInSet:
        Count(tally_.intRuleNoFolder);
        return Log(fmt::format(" With this object {} and this Special Rule {} this search Set was "
                               "created, {} It has slashes '\\' which can not be searched for.",
                               session_.Shown(object_.path), session_.Shown(rule_->text),
                               rule_->SetText()));
    default:
        return;
    }
}

void RuleSettler::TellShortReplace(int position) {
    Count(tally_.intRuleShortReplace);
    Log(fmt::format(" {}'s full path length is equal to: {}. Position *{}* is greater than that.",
                    session_.Shown(object_.path), text::Length(object_.TruePath()), position));
    session_.state.strFailedPosition = std::to_string(position);
}

void RuleSettler::TellColon(const RuleResult& result) {
    // A rule without a set has been counted as good by its replacements.
    if (rule_->set) Count(tally_.intRuleOk, -1);
    Count(tally_.intRuleShortReplace);
    const std::string told = fmt::format(
        " With this object {} and this Special Rule {} this path was created, {} It "
        "has a : in the wrong position, can only be position 2. Skipping this object.",
        session_.Shown(object_.path), session_.Shown(rule_->text), session_.Shown(result.made));
    Log(told);
    session::TellUnlessAuto(session_, session::PromptId::kRuleColon, told);
}

void RuleSettler::TellDots(const RuleResult& result) {
    Count(tally_.intRuleNoFolder);
    Log(fmt::format(" With this object {} and this Special Rule {} this path was created, {} No "
                    "folder can be named . or .. Skipping this object.",
                    session_.Shown(object_.path), session_.Shown(rule_->text),
                    session_.Shown(result.made)));
    session_.state.strLastFailedSearch = result.made;
}

void RuleSettler::LookForFolder(Destination& destination) {
    const RuleResult& result = destination.rule;
    const auto folder = FittingFolder(result);
    if (!folder) return Count(tally_.intRuleNoFolder);
    const auto found = FirstFolder(*folder, result.set);
    if (!found) {
        hasFailed_ = true;
    } else if (found->empty()) {
        TellNothingFound(fmt::format("{}*{}*", *folder, result.set));
    } else {
        Count(tally_.intRuleOk);
        CompleteDestination(destination, object_, *found);
    }
}

std::optional<std::string> RuleSettler::FittingFolder(const RuleResult& result) {
    const std::string search = fmt::format("{}*{}*", result.front, result.set);
    if (!session::ExceedsLimit(session_, search, kSearchLimit)) return result.front;
    session::AskLongPath(session_, search, "", "SpecialRuleConvert", "frmDialog");
    if (!session::ContinuesLongPath(session_)) return std::nullopt;
    auto shortened =
        session::GetShortPathNameReturnCodes(session_, result.front, false, kSearchLimit);
    if (shortened.status >= 2) return std::move(shortened.path);
    RefuseWithoutShortPath(session_, search, session::kLongPath);
    return std::nullopt;
}

std::optional<std::string> RuleSettler::FirstFolder(std::string_view folder, std::string_view set) {
    platform::FolderListing listing;
    const session::ErrorContext context{.routine = "SpecialRuleConvert",
                                        .moduleName = "frmDialog",
                                        .object = object_.path,
                                        .path = object_.path,
                                        .searchOrDestination = folder,
                                        .objectType = session::ObjectType::kUnknown};
    const auto isMissing = [](const platform::PlatformError& error) -> std::optional<int> {
        const bool told =
            error.number == platform::kPathNotFound || error.number == platform::kBadFileName;
        return told ? std::optional<int>(session::kRecoveryNext) : std::nullopt;
    };
    const auto list = [&]() -> platform::Result<void> {
        TX_TRY_ASSIGN(const auto opened, session_.files().Open(folder));
        return opened->List(listing);
    };
    const auto listed = session::Attempt(session_, context, list, isMissing);
    if (!listed && listed.recovery != session::kRecoveryNext) return std::nullopt;
    std::string literal = text::EscapeLikeChars(set);
    literal = text::Replace(text::Replace(literal, "*", "[*]"), "?", "[?]");
    const text::LikePattern pattern(fmt::format("*{}*", literal), true);
    for (std::size_t i = 0; listed && i < listing.Size(); ++i) {
        if (listing[i].isFolder && pattern.Matches(listing[i].name)) {
            return std::string(listing[i].name);
        }
    }
    return std::string();
}

void RuleSettler::TellNothingFound(std::string search) {
    Count(tally_.intRuleNoFolder);
    Log(fmt::format(" {0} Triggered a search that found nothing. Using position {1}. With {0} and "
                    "{2} this search path was created, {3} after applying the Search Set.",
                    session_.Shown(object_.path), rule_->SetText(), session_.Shown(rule_->text),
                    session_.Shown(search)));
    session_.state.strLastFailedSearch = std::move(search);
}

// A path that has no root is an error of the object.
void HandleUnrooted(Session& session, const ActionRun& run, const Object& object, int place,
                    const Destination& destination) {
    const session::ErrorContext context{.routine = "ComputeDestination",
                                        .moduleName = "frmDialog",
                                        .object = object.name,
                                        .path = object.path,
                                        .searchOrDestination = RootPlace(run.request, place),
                                        .objectType = session::ObjectType::kUnknown};
    const std::string told = destination.missing == Missing::kPlace
                                 ? "There is no destination."
                                 : fmt::format("{} names no drive and no network share.",
                                               session.Shown(destination.unrooted));
    (void)session::Attempt(session, context, [&told]() -> platform::Result<void> {
        return platform::Failure(platform::kInvalidCall, told);
    });
}

} // namespace

FoundDestination FindDestination(Session& session, ActionRun& run, const Object& object, int place,
                                 bool isAgain) {
    Destination destination = ComputeDestination(run.request, object, place);
    if (run.request.way == Way::kSpecialRule) {
        RuleSettler settler(session, run, object, isAgain);
        settler.Settle(destination);
        run.rule.blnRuleFailed = run.rule.blnRuleFailed || !destination.IsThere();
        return {std::move(destination.path), settler.HasFailed()};
    }
    const bool isError =
        destination.missing == Missing::kPlace || destination.missing == Missing::kShare;
    if (isError) HandleUnrooted(session, run, object, place, destination);
    return {std::move(destination.path), isError};
}

} // namespace tarvix::actions
