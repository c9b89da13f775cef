#include "session/remembered/history_file.h"

#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/remembered/replace_file.h"
#include "session/remembered/unsaved.h"
#include "session/session.h"
#include "text/list_marks.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <cstdint>
#include <optional>

namespace tarvix::session {

namespace {

constexpr std::size_t kFullFrom = 200; // rows
constexpr int kTypeMismatch = 13;

platform::Result<text::DateTime> ToStamp(std::string_view line) {
    const auto stamp = text::ParseDate(line);
    if (stamp) return *stamp;
    return platform::Failure(kTypeMismatch, fmt::format("Type mismatch: \"{}\" is no date.", line));
}

} // namespace

// At saving nothing is asked about what stands in the file: the saving mends it.
template <class Statement>
auto HistoryFile::Try(std::string_view routine, Statement&& statement) {
    const ErrorContext context{.routine = routine,
                               .moduleName = kind_.moduleName,
                               .object = kind_.path,
                               .searchOrDestination = kind_.path,
                               .objectType = ObjectType::kFile};
    return Attempt(session_, context, std::forward<Statement>(statement),
                   [this](const platform::PlatformError& error) -> std::optional<int> {
                       const bool isContent =
                           error.number == platform::kInputPastEnd || error.number == kTypeMismatch;
                       if (isSaving_ && isContent) return kRecoveryLeave;
                       // The one trouble of the whole folder was told.
                       if (session_.state.blnDataUnwritable) return kRecoveryLeave;
                       return std::nullopt;
                   });
}

void HistoryFile::Open() {
    isSaving_ = false;
    switch (Read()) {
    case Ending::kDamaged:
        return AskAboutDamage();
    case Ending::kUnread:
        session_.state.filesLeftAlone.insert(kind_.path);
        break;
    case Ending::kDone:
        BeginAnew();
    }
}

void HistoryFile::Save() {
    isSaving_ = true;
    const bool isLeft = session_.state.filesLeftAlone.contains(kind_.path);
    if (isLeft || Read() == Ending::kUnread) {
        return NoteLeftAlone(session_, kind_.saveRoutine, kind_.path);
    }
    (void)Try(kind_.saveRoutine,
              [&] { return UpdateTextFile(session_.files(), kind_.path, FileText()); });
}

HistoryFile::Ending HistoryFile::Read() {
    const auto facts = Try(Routine(), [&]() -> platform::Result<std::optional<std::uint64_t>> {
        const auto found = session_.files().Facts(kind_.path);
        if (found) return found->size;
        const int error = found.error().number;
        const bool isMissing = error == platform::kFileNotFound || error == platform::kPathNotFound;
        if (!isMissing) return std::unexpected(found.error());
        return std::nullopt;
    });
    if (!facts) return Ending::kUnread;
    if (facts.result->value_or(0) <= kind_.emptyUpTo) return Ending::kDone;
    auto stream = Try(Routine(), [&] {
        return session_.files().OpenAsTextStream(kind_.path, platform::OpenMode::kRead);
    });
    return stream ? ReadEntries(**stream) : Ending::kUnread;
}

HistoryFile::Ending HistoryFile::ReadEntries(platform::TextStream& stream) {
    const auto next = [&] { return Try(Routine(), [&] { return stream.ReadLine(); }); };
    const auto endOf = [](const Attempted<std::string>& line) {
        return line.ErrorNumber() == platform::kInputPastEnd ? Ending::kDone : Ending::kUnread;
    };
    while (true) {
        const auto entry = next();
        if (!entry) return endOf(entry);
        const std::string& text = *entry.result;
        if (text.find('/') != text.npos) return Ending::kDamaged;
        const bool isListed = IsListed(text);
        if (!isListed && text == text::kEndMark) return Ending::kDone;
        if (!isListed && text == "12:00:00 AM") continue;
        const auto line = next();
        if (!line) return endOf(line);
        if (isListed) continue;
        if (line.result->find('/') == std::string::npos) return Ending::kDamaged;
        const auto stamp = Try(Routine(), [&] { return ToStamp(*line.result); });
        if (stamp) {
            Take(text, *stamp.result);
        } else if (!isSaving_) {
            return Ending::kDone;
        }
    }
}

bool HistoryFile::IsListed(std::string_view text) const {
    return rows_.Find(text) || kind_.isKnown(text, isSaving_);
}

void HistoryFile::Take(std::string_view text, const text::DateTime& stamp) {
    if (!CanBeHistoryEntry(text) || stamp.IsZero()) return;
    const auto oldest = rows_.Oldest();
    const bool hasRoom = rows_.Count() < kFullFrom;
    if (hasRoom || !oldest || stamp > rows_.Stamp(*oldest)) rows_.Add(text, stamp);
}

void HistoryFile::AskAboutDamage() {
    const std::string question = fmt::format("Your '{}' History file is corrupted. Would you like "
                                             "to fix it manually, and try again?",
                                             kind_.name);
    if (session_.MsgBox(PromptId::kHistoryDamaged, question) == kYes) {
        session_.state.blnEnded = true;
        session_.frmSearch.Hide();
        return;
    }
    session_.events.Raise(session_, kRecycleFile, {.path = kind_.path});
    if (session_.files().Facts(kind_.path)) {
        session_.state.filesLeftAlone.insert(kind_.path); // as the user wanted it
    } else {
        BeginAnew();
    }
}

// A folder that can't be written is told when the logs open, and a file that stands is kept.
void HistoryFile::BeginAnew() {
    if (auto made = session_.files().CreateTextFile(kind_.path, false)) (void)(*made)->Close();
}

std::string HistoryFile::FileText() const {
    std::string text;
    for (std::size_t row = rows_.First(); row < rows_.Count() && !rows_.Text(row).empty(); ++row) {
        text.append(rows_.Text(row)).append("\r\n");
        text.append(text::DefaultDateText(rows_.Stamp(row))).append("\r\n");
    }
    return text.append(text::kEndMark);
}

} // namespace tarvix::session
