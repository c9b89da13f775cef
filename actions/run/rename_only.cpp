#include "actions/run/rename_only.h"

#include "actions/place/action_run.h"
#include "actions/place/engine.h"
#include "actions/place/name_parts.h"
#include "actions/place/outcome.h"
#include "actions/run/action_progress.h"
#include "actions/run/changed_objects.h"
#include "actions/run/fold_outcome.h"
#include "actions/run/new_path.h"
#include "actions/run/plain_moves.h"
#include "actions/run/renamed_folders.h"
#include "platform/dir.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::actions {

namespace {

using session::Session;

// The object in hand.
struct Renamed {
    std::size_t index = 0;
    bool isFile = true;
    NamePortion portion = NamePortion::kWholeName;
    NameParts parts;       // of the name as listed
    std::size_t above = 0; // bytes of the folder in `old`, with "\" behind it
    std::string old;       // the path as people see it, and then each newly reached one
    std::string actual;    // the same for file system calls
    std::string_view text; // the part of the name that is worked on, as listed
    bool isAsked = false;
    bool isTaken = false; // the new name is
    bool isChanged = false;
    bool hasFailed = false;
    bool isOther = false; // not what the search saw
    bool isTried = false; // a new name was made for it
    int errorNumber = 0;
    std::string error;

    std::string_view Parent() const { return std::string_view(old).substr(0, above); }
};

class Renaming {
  public:
    Renaming(Session& session, ActionRun& run)
        : session_(session), run_(run), request_(run.request.rename),
          find_(text::Upper(request_.find)), findLength_(text::Length(request_.find)),
          replaceLength_(text::Length(request_.replace)) {}

    RenameOnlyEnd Run();

  private:
    bool GoesOn();
    void RunFiles(ActionProgress& progress);
    void RunFolders(ActionProgress& progress);
    bool RenamesPlainly(PlainMoves& plain, std::size_t index);
    std::string PlainPath(const Renamed& object) const;
    void SettlePlain(Outcome outcome);
    void RenameObject(std::size_t index);
    void SettleChanged();
    Renamed ObjectAt(std::size_t index) const;
    void Settle(Renamed& object);
    // The window stays open: what it acts on next are the objects as they are named by then.
    void KeepNewNames();

    void GiveName(Renamed& object);
    void Insert(Renamed& object);
    void FindAndReplace(Renamed& object);
    enum class Round { kGoOn, kRenamed, kDone };
    Round RenameHit(Renamed& object, const std::string& text);
    std::size_t NextHit(std::string_view text, std::size_t hit, bool isReplaced) const;
    std::string ReplaceInText(std::string_view text, std::size_t hit) const;

    // The two parts of a text make one.
    std::string NewPath(const Renamed& object, std::string_view text,
                        std::string_view rest = {}) const;
    std::string InsertedPath(const Renamed& object) const;
    std::string ReplacedPath(const Renamed& object, std::string_view text) const;
    static bool IsPlain(const Renamed& object, std::string_view path);
    void ShowRenaming(const Renamed& object, std::string_view path);
    bool CanUse(const Renamed& object, std::string& path);
    bool TellTaken(Renamed& object, const std::string& path);
    enum class Moved { kYes, kNo, kTaken };
    Moved MoveUnlessTaken(Renamed& object, const std::string& path);
    Moved Move(Renamed& object, platform::FreePlace place);
    static void NoteRenamed(Renamed& object, std::string path);

    Session& session_;
    ActionRun& run_;
    const RenameRequest& request_;
    std::string find_;       // upper case
    std::size_t findLength_; // in characters, as all positions
    std::size_t replaceLength_;
    RenamedFolders folders_;
    std::vector<ChangedObject> changed_;
    std::vector<std::pair<std::size_t, std::string>> newNames_; // by index
    RenameOnlyEnd end_;
    bool hasEnded_ = false;
};

RenameOnlyEnd Renaming::Run() {
    session_.state.lastAction = {};
    session_.state.lastAction.wanted = session_.selection->lngSelTop + 1;
    session_.state.blnStopAction = session_.state.blnStopNow = false;
    const session::InLoop inLoop(session_, session_.selection->lngSelTop + 1);
    const platform::ManyChanges many(session_.files());
    ActionProgress progress(session_, session_.selection->lngSelTop + 1, 0);
    const auto plain = std::exchange(
        run_.observer, [&progress](const auto& copied) { return progress.InFile(copied); });
    RunFiles(progress);
    if (!hasEnded_) RunFolders(progress);
    SettleChanged();
    run_.observer = plain;
    if (end_.blnStopped) KeepNewNames();
    return end_;
}

// Whether there is another object to come to.
bool Renaming::GoesOn() {
    session_.Yield();
    if (session_.state.blnStopAction) hasEnded_ = true;
    return !hasEnded_;
}

void Renaming::RunFiles(ActionProgress& progress) {
    const auto& isFile = session_.selection->blnSelIsFile;
    const auto place = [&](std::size_t index) {
        if (!GoesOn()) return false;
        RenameObject(index);
        progress.Step();
        return !hasEnded_;
    };
    const auto settle = [&](Outcome outcome) {
        SettlePlain(std::move(outcome));
        progress.Step();
    };
    PlainMoves plain(session_, run_, Verb::kRename, {settle, place});
    for (std::size_t index = 0; index < isFile.size() && !hasEnded_; ++index) {
        if (!isFile[index]) continue;
        session_.Yield();
        if (!session_.state.blnStopAction && RenamesPlainly(plain, index)) continue;
        if (!plain.Finish() || !place(index)) hasEnded_ = true;
    }
    if (!plain.Finish()) hasEnded_ = true;
}

void Renaming::RunFolders(ActionProgress& progress) {
    const auto& isFile = session_.selection->blnSelIsFile;
    for (std::size_t index = 0; index < isFile.size(); ++index) {
        if (isFile[index]) continue;
        if (!GoesOn()) return;
        RenameObject(index);
        progress.Step();
    }
}

// One name, of which all is known before it is given.
bool Renaming::RenamesPlainly(PlainMoves& plain, std::size_t index) {
    const Renamed object = ObjectAt(index);
    const std::string path = PlainPath(object);
    if (path.empty() || !IsPlain(object, path)) return false;
    actions::Object present = actions::ObjectAt(*session_.selection, index);
    present.path = object.old;
    present.actual = object.actual;
    return plain.Take(present, path);
}

// Empty where there is more than one name to give, or none.
std::string Renaming::PlainPath(const Renamed& object) const {
    if (!request_.given.empty()) return {};
    if (request_.inserts) return InsertedPath(object);
    const std::size_t hit = NextHit(object.text, 0, false);
    if (hit == 0) return {};
    const std::string text = ReplaceInText(object.text, hit);
    if (!request_.onlyFirst && NextHit(text, hit, true) != 0) return {};
    return ReplacedPath(object, text);
}

void Renaming::SettlePlain(Outcome outcome) {
    Renamed object = ObjectAt(outcome.index);
    object.isTried = true;
    if (outcome.isPlaced) {
        NoteRenamed(object, std::move(outcome.strDestination));
    } else {
        object.hasFailed = true;
        object.errorNumber = outcome.errorNumber;
        object.error = std::move(outcome.error);
    }
    Settle(object);
}

void Renaming::SettleChanged() {
    std::vector<ChangedObject> left = std::move(changed_);
    if (hasEnded_ || !GoesOnWithChanged(session_, run_, left)) {
        return FoldChanged(session_, run_, left);
    }
    for (const ChangedObject& object : left)
        RenameObject(object.index);
}

void Renaming::RenameObject(std::size_t index) {
    Renamed object = ObjectAt(index);
    run_.leftParts.RemoveAround(session_, object.actual);
    if (!request_.given.empty()) {
        GiveName(object);
    } else if (request_.inserts) {
        Insert(object);
    } else {
        FindAndReplace(object);
    }
    Settle(object);
}

Renamed Renaming::ObjectAt(std::size_t index) const {
    const auto& tables = *session_.selection;
    const std::string_view name = tables.strSelName[index];
    Renamed object;
    object.index = index;
    object.isFile = tables.blnSelIsFile[index];
    object.portion = object.isFile ? request_.portion : NamePortion::kWholeName;
    object.parts = SplitPrefixAndExtension(name);
    object.old = folders_.Now(tables.strSelPath[index]);
    object.actual = folders_.Now(tables.strSelActualPath[index]);
    object.above = object.old.size() - text::FolderOwnName(object.old).size();
    object.text = object.portion == NamePortion::kPrefix      ? object.parts.strPrefix
                  : object.portion == NamePortion::kExtension ? object.parts.strExtension
                                                              : name;
    return object;
}

void Renaming::Settle(Renamed& object) {
    if (object.isChanged) {
        end_.blnRenamed = true;
        const std::string_view name = text::FolderOwnName(object.old);
        if (!request_.inserts) newNames_.emplace_back(object.index, name);
        if (!object.isFile) {
            const auto& tables = *session_.selection;
            folders_.Note(tables.strSelPath[object.index], name);
            folders_.Note(tables.strSelActualPath[object.index], name);
        }
    }
    // One that got some of its new names has been told as far as it came.
    if (object.isOther && !object.isChanged && run_.same != platform::Same::kName) {
        return changed_.push_back({object.index});
    }
    Outcome outcome{.index = object.index,
                    .strDestination = std::move(object.old),
                    .kind = object.isOther     ? OutcomeKind::kChanged
                            : object.hasFailed ? OutcomeKind::kFailed
                            : object.isChanged ? OutcomeKind::kRenamed
                            : !object.isTried  ? OutcomeKind::kUnchanged
                                               : OutcomeKind::kLeftAlone,
                    .isPlaced = object.isChanged,
                    .errorNumber = object.errorNumber,
                    .error = std::move(object.error)};
    if (outcome.kind == OutcomeKind::kLeftAlone && object.isTaken) {
        outcome.why = "another object has that name";
    }
    FoldOutcome(session_.state, run_, outcome);
}

void Renaming::KeepNewNames() {
    auto& tables = *session_.selection;
    tables.isRenamed = tables.isRenamed || end_.blnRenamed;
    for (std::size_t index = 0; !folders_.IsEmpty() && index < tables.strSelPath.size(); ++index) {
        std::string_view& actual = tables.strSelActualPath[index];
        const std::size_t above = actual.size() - tables.strSelRelPath[index].size();
        tables.strSelPath[index] = tables.texts.Keep(folders_.Now(tables.strSelPath[index]));
        actual = tables.texts.Keep(folders_.Now(actual));
        tables.strSelRelPath[index] = actual.substr(above);
    }
    for (const auto& [index, name] : newNames_) {
        const auto renamed = [&](std::string_view path) {
            path.remove_suffix(text::FolderOwnName(path).size());
            return tables.texts.Keep(text::Concat({path, name}));
        };
        tables.strSelPath[index] = renamed(tables.strSelPath[index]);
        tables.strSelActualPath[index] = renamed(tables.strSelActualPath[index]);
        tables.strSelRelPath[index] = renamed(tables.strSelRelPath[index]);
        tables.strSelName[index] = tables.texts.Keep(name);
    }
}

// ---- the two modes ----

void Renaming::Insert(Renamed& object) {
    object.isTried = true;
    std::string path = InsertedPath(object);
    const bool isPlain = IsPlain(object, path);
    if (!isPlain) ShowRenaming(object, path);
    if (!CanUse(object, path)) return;
    platform::Standing standing = platform::WhatStands(session_.files(), path);
    if (isPlain && !standing.IsFree()) ShowRenaming(object, path);
    if (!standing.IsFree() || Move(object, std::move(standing.place)) == Moved::kTaken) {
        TellTaken(object, path);
    }
}

void Renaming::GiveName(Renamed& object) {
    std::string path = text::Concat({object.Parent(), request_.given});
    if (path == object.old) return;
    object.isTried = true;
    if (!CanUse(object, path)) return;
    const Moved moved = MoveUnlessTaken(object, path);
    if (moved == Moved::kTaken) TellTaken(object, path);
}

// Each hit is a rename of its own.
void Renaming::FindAndReplace(Renamed& object) {
    std::string text(object.text);
    bool isReplaced = false;
    std::size_t hit = 0;
    while (!hasEnded_ && (hit = NextHit(text, hit, isReplaced)) != 0) {
        std::string replaced = ReplaceInText(text, hit);
        const Round round = RenameHit(object, replaced);
        isReplaced = round == Round::kRenamed;
        if (round == Round::kDone) return;
        if (!isReplaced) continue;
        if (request_.onlyFirst) return;
        text = std::move(replaced);
    }
}

Renaming::Round Renaming::RenameHit(Renamed& object, const std::string& text) {
    object.isTried = true;
    std::string path = ReplacedPath(object, text);
    if (!CanUse(object, path)) return Round::kDone;
    const Moved moved = MoveUnlessTaken(object, path);
    if (moved == Moved::kYes) return Round::kRenamed;
    if (moved == Moved::kNo) return Round::kDone;
    return TellTaken(object, path) ? Round::kGoOn : Round::kDone;
}

Renaming::Moved Renaming::MoveUnlessTaken(Renamed& object, const std::string& path) {
    platform::Standing standing = platform::WhatStands(session_.files(), path);
    const std::string& found = standing.name;
    // The object itself may be found under its name in another case.
    const bool isTaken =
        !found.empty() && (found == text::FolderOwnName(path) ||
                           !text::EqualNoCase(found, text::FolderOwnName(object.actual)));
    if (!standing.IsFree()) standing.place = {path, nullptr};
    return isTaken ? Moved::kTaken : Move(object, std::move(standing.place));
}

// The start depends on the two lengths, so that a replacement is not searched again. A text that
// stayed as it was never gives the same hit twice.
std::size_t Renaming::NextHit(std::string_view text, std::size_t hit, bool isReplaced) const {
    if (findLength_ == 0) return 0;
    std::size_t start = hit + 1;
    if (hit > 0 && replaceLength_ > findLength_) start += replaceLength_ - findLength_;
    if (hit > 0 && replaceLength_ < findLength_) start = hit + replaceLength_;
    if (!isReplaced) start = std::max(start, hit + 1);
    return text::InStr(text::Upper(text), find_, start);
}

std::string Renaming::ReplaceInText(std::string_view text, std::size_t hit) const {
    return text::Concat(
        {text::Left(text, hit - 1), request_.replace, text::Mid(text, hit + findLength_)});
}

// ---- one new name ----

std::string Renaming::NewPath(const Renamed& object, std::string_view text,
                              std::string_view rest) const {
    // Many a disk drops the dot of a name that has no extension; where it stays it isn't written.
    const bool hasNoDot =
        session_.platform.traits.keepsFinalDots && object.parts.strExtension.empty();
    const bool isPrefix = object.portion == NamePortion::kPrefix && !hasNoDot;
    const bool isExtension = object.portion == NamePortion::kExtension;
    std::string path = text::Concat({object.Parent(), isExtension ? object.parts.strPrefix : "",
                                     isExtension ? "." : "", text, rest, isPrefix ? "." : "",
                                     isPrefix ? object.parts.strExtension : ""});
    // No blank stays at either end of the name.
    const std::string_view name = std::string_view(path).substr(object.above);
    const std::size_t before = name.size() - text::LTrim(name).size();
    path.resize(object.above + text::RTrim(name).size());
    if (before > 0) path.erase(object.above, before);
    return path;
}

std::string Renaming::InsertedPath(const Renamed& object) const {
    const std::string& add = request_.add;
    return request_.addsAtEnd ? NewPath(object, object.text, add)
                              : NewPath(object, add, object.text);
}

std::string Renaming::ReplacedPath(const Renamed& object, std::string_view text) const {
    return NewPath(object, object.portion == NamePortion::kExtension ? text : text::Trim(text));
}

// Nothing is told of it before it is placed, which shows the same.
bool Renaming::IsPlain(const Renamed& object, std::string_view path) {
    return path.size() <= session::kLongPath && platform::CanBeName(path.substr(object.above));
}

void Renaming::ShowRenaming(const Renamed& object, std::string_view path) {
    run_.status.assign("Renaming ").append(run_.shownSources.Of(object.old));
    run_.status.append("  as  ").append(run_.shownPlaces.Of(path));
    session_.frmDialog.lblStatus.Caption = run_.status;
}

// Whether it makes a name and the path isn't too long, or could be shortened.
bool Renaming::CanUse(const Renamed& object, std::string& path) {
    const bool canUse = CanUseNewPath(session_,
                                      {.path = object.old,
                                       .parent = object.Parent(),
                                       .isFile = object.isFile,
                                       .routine = "RenameOnly"},
                                      path);
    if (session_.state.bytPathChoice == session::kPathCancel) hasEnded_ = true;
    return canUse;
}

// False when the object in hand is settled by it.
bool Renaming::TellTaken(Renamed& object, const std::string& path) {
    object.isTaken = true;
    const std::string told = fmt::format(
        "Could not rename: \r\n\r\n{}\r\n\r\n as: \r\n\r\n{}\r\n\r\nThat {} name already exists",
        session_.Shown(object.old), session_.Shown(path), object.isFile ? "File" : "Folder");
    if (request_.inserts || !request_.given.empty()) {
        session::TellAndLog(session_, session::PromptId::kRenameTaken, told);
        return false;
    }
    if (std::exchange(object.isAsked, true)) return true;
    const bool goesOn = session_.state.options.blnAutoMode ||
                        session_.MsgBox(session::PromptId::kRenameTakenGoOn, told) == session::kOk;
    session::LogTimed(session_,
                      fmt::format(" Was unable to rename {} as {}{}", session_.Shown(object.old),
                                  session_.Shown(path), goesOn ? "" : " and user canceled."));
    if (!goesOn) end_.blnStopped = hasEnded_ = true;
    return goesOn;
}

// Whether the object bears the new name now, or others took it just before.
Renaming::Moved Renaming::Move(Renamed& object, platform::FreePlace place) {
    Object present = actions::ObjectAt(*session_.selection, object.index);
    present.name = {};
    present.path = object.old;
    present.actual = object.actual;
    Outcome outcome = PlaceObject(
        session_, run_,
        {.object = present, .place = std::move(place), .verb = Verb::kRename, .wasFree = true});
    object.isOther = outcome.kind == OutcomeKind::kChanged;
    if (outcome.kind == OutcomeKind::kFailed || object.isOther) {
        object.hasFailed = true;
        object.errorNumber = outcome.errorNumber;
        object.error = std::move(outcome.error);
    }
    session_.state.blnPathLimitHit = false;
    if (session_.state.bytPathChoice == session::kPathCancel) hasEnded_ = true;
    if (outcome.isTaken) return Moved::kTaken;
    if (!outcome.isPlaced) return Moved::kNo;
    NoteRenamed(object, std::move(outcome.strDestination));
    return Moved::kYes;
}

void Renaming::NoteRenamed(Renamed& object, std::string path) {
    object.actual = std::move(path);
    object.old.replace(object.above, object.old.npos, text::FolderOwnName(object.actual));
    object.isChanged = true;
}

} // namespace

RenameOnlyEnd RenameOnly(Session& session, ActionRun& run) {
    return Renaming(session, run).Run();
}

} // namespace tarvix::actions
