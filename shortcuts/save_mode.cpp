#include "shortcuts/save_mode.h"

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/names.h"
#include "results/link_cells.h"
#include "results/link_target.h"
#include "results/result_list.h"
#include "session/attempt.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/prompt_service.h"
#include "session/session.h"
#include "shortcuts/save_link.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/encoding.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <optional>
#include <utility>

namespace tarvix::shortcuts {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kUsualTarget = 200; // characters; more take a short form
constexpr std::size_t kMostShownTroubles = 10;
constexpr std::size_t kMostText = std::size_t{1} << 30;
constexpr std::string_view kGap = "\r\n\r\n";
constexpr std::string_view kWrongLines =
    "The Shortcut Edit File does not have the correct number of lines in it.";
constexpr std::string_view kNothingYet = "No shortcut files have been updated yet. ";

session::ErrorContext ContextOf(std::string_view routine, std::string_view path) {
    return {.routine = routine,
            .moduleName = "frmSearch",
            .object = text::FileNameOf(path),
            .path = path,
            .objectType = session::ObjectType::kFile};
}

// One run of the save: what is left over is told once at its end.
class Save {
  public:
    Save(Session& session, const EditMode& mode) : session_(session), mode_(mode) {}
    Saved Run();

  private:
    std::optional<EditedFile> ReadFile();
    bool IsConfirmed();
    bool ShowChanges(const EditedFile& file);
    bool TellWrongFile(const EditedFile& file);
    bool TakeIntoList(const EditedFile& file);
    bool Shorten(std::string& value, std::size_t usual, std::string_view path);
    bool TakeRecord(std::size_t index, LinkRecord record, bool hasBadIcon);
    void SaveToLinkFiles();
    void SaveRow(std::size_t index);
    void Rename(std::size_t index);
    void RefreshRow(std::size_t row);
    Edits EditsOf(std::size_t index);
    bool CanSave(const EditedLink& link);
    void Note(std::string_view path, std::string_view trouble);
    void TellTroubles();

    Session& session_;
    const EditMode& mode_;
    std::vector<std::size_t> rows_;     // of each shortcut
    std::vector<std::string> newNames_; // for each shortcut; empty for its own
    std::vector<std::string> troubles_;
    bool isStopped_ = false;
};

void Save::Note(std::string_view path, std::string_view trouble) {
    troubles_.push_back(
        fmt::format("{}: {}", platform::ForDisplay(text::FileNameOf(path)), trouble));
}

void Save::TellTroubles() {
    if (troubles_.empty()) return;
    std::string text = "Not everything was saved:";
    for (std::size_t i = 0; i < troubles_.size() && i < kMostShownTroubles; ++i) {
        text.append(kGap).append(troubles_[i]);
    }
    if (troubles_.size() > kMostShownTroubles) {
        text += fmt::format("{}and {} more; the error log has them all.", kGap,
                            troubles_.size() - kMostShownTroubles);
    }
    session_.MsgBox(PromptId::kLinksNotSaved, text);
}

std::optional<EditedFile> Save::ReadFile() {
    const std::string& path = session_.state.strTargetPathFile;
    if (!platform::GetFile(session_.files(), path)) {
        session_.MsgBox(PromptId::kLinkFileMissing,
                        "The Shortcut Edit File does not exist, exiting.");
        return std::nullopt;
    }
    const auto read = session::Attempt(session_, ContextOf("SaveTargetPathFile", path), [&] {
        return session_.files().ReadBytes(path, 0, kMostText);
    });
    if (!read) return std::nullopt;
    std::vector<Kind> kinds;
    for (const EditedLink& link : mode_.links) {
        kinds.push_back(link.kind);
    }
    return ParseEditFile(text::FromFileBytes(*read.result), kinds);
}

// Where windows are shown, a list of the changes takes the place of the bare question.
bool Save::ShowChanges(const EditedFile& file) {
    auto& form = session_.forms.frmLinkChanges;
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < file.records.size(); ++i) {
        AppendChanges(lines, session_, mode_.links[i], file.records[i]);
    }
    form.lblMain.Caption =
        lines.empty() ? fmt::format("Nothing was changed in {} shortcuts. Saving writes them as "
                                    "they are.",
                                    mode_.links.size())
                      : fmt::format("Are you sure you want to apply these {} changes to the link "
                                    "files? The old versions go to the trash.",
                                    lines.size());
    form.lstChanges.SetItems(std::move(lines));
    form.isConfirmed = false;
    form.Show();
    session_.ShowModal(PromptId::kLinkChanges);
    return form.isConfirmed;
}

bool Save::IsConfirmed() {
    return session_.MsgBox(PromptId::kConfirmLinkChanges,
                           "Are you sure you want to apply these changes to the link files?") ==
           session::kYes;
}

bool Save::TellWrongFile(const EditedFile& file) {
    if (file.end != EditedFile::End::kWrongLine) return false;
    const std::string last =
        file.records.empty()
            ? std::string("No shortcut references were completely updated to this list.")
            : session_.Shown(mode_.links[file.records.size() - 1].path) +
                  " was the last shortcut reference to be fully updated to this list.";
    session_.MsgBox(PromptId::kLinkFileWrong,
                    fmt::format("{}{}{}{}{}", kWrongLines, kGap, kNothingYet, kGap, last));
    return true;
}

// A path that is too long for everything else here gets its short form, if the disk has one.
bool Save::Shorten(std::string& value, std::size_t usual, std::string_view path) {
    const bool isPath = value.size() > 2 && (value[1] == ':' || value.starts_with("\\\\"));
    if (!isPath || !session::ExceedsLimit(session_, value, usual)) return true;
    auto shortForm = session_.files().ShortPath(value);
    if (shortForm && text::Length(*shortForm) <= session::kLongPath) {
        value = std::move(*shortForm);
        return true;
    }
    if (text::Length(value) <= session::kFolderPortion) return true;
    session_.MsgBox(
        PromptId::kLinkPathUnusable,
        fmt::format("Unable to calculate usable path for - {} of: {}{}, cancelling entire "
                    "operation.{}Some shortcut references were updated to this list.{}Remember a "
                    "Path\\Name can not exceed 259 characters, although an attempt to use a short "
                    "path form of the path will occur. Link names will be limited to 175 "
                    "characters.",
                    value, session_.Shown(path), kGap, kGap, kGap));
    return false;
}

bool Save::TakeRecord(std::size_t index, LinkRecord record, bool hasBadIcon) {
    const EditedLink& link = mode_.links[index];
    results::LinkCells& cells = session_.rows->Links(rows_[index]);
    if (hasBadIcon) {
        Note(link.path, "Its icon has no comma with a number behind it and stays as it was.");
        record.values[kIcon] = cells.shown[kIcon];
    }
    Values& values = record.values;
    const bool isNew = record.name != text::FileNameOf(link.path);
    if (isNew) {
        std::string path = RenamedPath(link.path, record.name);
        if (!Shorten(path, session::kLongPath, link.path)) return false;
    }
    std::string icon = values[kIcon].substr(0, IconComma(values[kIcon]));
    const std::string number = values[kIcon].substr(icon.size());
    if (link.kind != Kind::kUrl && !Shorten(values[kTarget], kUsualTarget, link.path)) return false;
    if (!Shorten(values[kStartIn], session::kLongPath, link.path)) return false;
    if (!Shorten(icon, session::kLongPath, link.path)) return false;
    values[kIcon] = icon + number;
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (HasField(link.kind, static_cast<Field>(i))) cells.shown[i] = values[i];
    }
    if (isNew) newNames_[index] = record.name;
    return true;
}

bool Save::TakeIntoList(const EditedFile& file) {
    for (std::size_t i = 0; i < file.records.size(); ++i) {
        if (!TakeRecord(i, file.records[i], file.hasBadIcon[i])) return false;
    }
    return true;
}

// A bracket is no key that can be typed here; the key stays, all else is saved.
Edits Save::EditsOf(std::size_t index) {
    const EditedLink& link = mode_.links[index];
    const results::LinkCells& cells = session_.rows->Links(rows_[index]);
    Edits edits = Differences(cells.stored, cells.shown);
    auto& hotKey = edits[kHotKey];
    if (!hotKey) return edits;
    for (const auto& [bracket, name] : {std::pair("[", "open"), std::pair("]", "close")}) {
        if (hotKey->find(bracket) == std::string::npos) continue;
        session_.MsgBox(PromptId::kHotKeyBracket,
                        fmt::format("The '{}' ({} bracket) can not be inserted into a shortcut "
                                    "hotkey using this method, do it manually.",
                                    bracket, name));
        Note(link.path, fmt::format("Its hot key stays as it was: it can't take \"{}\".", bracket));
        hotKey.reset();
        break;
    }
    return edits;
}

// An address that has gone, or has nothing in it, is told and left alone.
bool Save::CanSave(const EditedLink& link) {
    const auto bytes = results::ReadShortcut(session_, link.path);
    const bool isMissing = !bytes && bytes.error().number == platform::kFileNotFound;
    if (!isMissing && (!bytes || !bytes->empty())) return true;
    if (link.kind == Kind::kUrl) {
        session_.MsgBox(PromptId::kShortcutMissing,
                        isMissing ? "ERROR shortcut is missing was previously written in "
                                    "'SaveToLinkFiles'."
                                  : "ERROR shortcut file is empty was previously written in "
                                    "'SaveToLinkFiles'.");
    }
    Note(link.path, isMissing ? "It has gone since it was found." : "It is empty.");
    return false;
}

void Save::Rename(std::size_t index) {
    const std::string& path = mode_.links[index].path;
    const std::string& name = newNames_[index];
    const auto renamed = ReNameLink(session_, path, name);
    if (!renamed)
        return Note(path, fmt::format("It kept its name. {}", session_.Shown(renamed.error())));
    session_.rows->Rename(rows_[index], text::FileNameOf(*renamed));
    session::LogTimed(session_, fmt::format(" Renamed {} as {} in Shortcut Editing Mode.",
                                            session_.Shown(path), session_.Shown(*renamed)));
}

platform::FileTime ListedTime(const Session& session, const platform::ObjectFacts& facts) {
    const auto& kinds = session.frmSearch.mnuSearch_DateType;
    if (kinds[1].Checked && facts.created != platform::kNoTime) return facts.created;
    return kinds[2].Checked ? facts.accessed : facts.modified;
}

void Save::RefreshRow(std::size_t row) {
    const std::string path = session_.rows->FullPath(row);
    if (const auto facts = platform::GetFile(session_.files(), path)) {
        results::ResultRow& shown = session_.rows->At(row);
        shown.size = facts->size;
        shown.date = text::ToSeconds(session_.platform.clock.ToLocal(ListedTime(session_, *facts)));
        shown.attributes = facts->attributes;
        shown.identity = session_.rows->Identities().Pack(facts->identity, false);
    }
    session_.rows->Links(row) = results::LinkReader(session_).Read(path);
}

void Save::SaveRow(std::size_t index) {
    const EditedLink& link = mode_.links[index];
    if (!CanSave(link)) return;
    const LinkChange change{.path = link.path,
                            .stored = session_.rows->Links(rows_[index]).stored,
                            .edits = EditsOf(index)};
    const auto saved = session::Attempt(
        session_, ContextOf("SaveToLinkFiles", link.path),
        [&] { return SaveLink(session_, change); },
        [&](const platform::PlatformError& error) -> std::optional<int> {
            const bool isRefused = error.number == platform::kPathFileAccess ||
                                   error.number == platform::kChangedSinceSearch;
            return isRefused ? std::optional(session::kRecoveryNext) : std::nullopt;
        });
    if (!saved) {
        Note(link.path, session_.Shown(saved.result.error()));
        isStopped_ = saved.recovery == session::kRecoveryLeave;
        return;
    }
    session::LogTimed(session_, fmt::format(" {} shortcut was updated in Shortcut Edit mode",
                                            session_.Shown(link.path)));
    if (!saved->oldBeside.empty()) {
        Note(link.path, fmt::format("No trash took its old version, which is beside it as {}.",
                                    session_.Shown(saved->oldBeside)));
    }
    if (!newNames_[index].empty()) Rename(index);
    RefreshRow(rows_[index]);
}

void Save::SaveToLinkFiles() {
    const platform::ManyChanges many(session_.files());
    for (std::size_t i = 0; i < rows_.size() && !isStopped_; ++i) {
        session_.Yield();
        SaveRow(i);
    }
}

Saved Save::Run() {
    for (const EditedLink& link : mode_.links) {
        rows_.push_back(RowOf(session_, link));
        if (rows_.back() == session_.rows->Count()) return Saved::kFailed;
    }
    session::LogTimed(session_, " User selected to save the files selected for Shortcut Edit mode");
    // The told question needs no look at the file; a list of changes does.
    const bool asksFirst = !session_.prompts.PrefersForms();
    if (asksFirst && !IsConfirmed()) return Saved::kNotWanted;
    const auto file = ReadFile();
    if (!file) return Saved::kFailed;
    if (!asksFirst && file->end != EditedFile::End::kWrongLine && !ShowChanges(*file)) {
        return Saved::kNotWanted;
    }
    newNames_.resize(mode_.links.size());
    if (!TakeIntoList(*file) || TellWrongFile(*file)) return Saved::kFailed;
    session::WriteToActionLog(session_,
                              fmt::format("{} file changes for Shortcut Edit mode were restored to "
                                          "the main list.",
                                          file->records.size()));
    session_.frmSearch.lblStatus.Caption = "Updating Shortcuts From List";
    SaveToLinkFiles();
    TellTroubles();
    return isStopped_ ? Saved::kFailed : Saved::kSaved;
}

} // namespace

Saved SaveTargetPathFile(Session& session, const EditMode& mode) {
    return Save(session, mode).Run();
}

} // namespace tarvix::shortcuts
