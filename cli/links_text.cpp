#include "cli/links_text.h"

#include "cli/links_saving.h"
#include "cli/messages.h"
#include "cli/request.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/link_cells.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "shortcuts/original_file.h"
#include "shortcuts/save_link.h"
#include "text/encoding.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <optional>
#include <ostream>
#include <utility>

namespace tarvix::cli {

namespace {

using session::Session;

constexpr std::size_t kMostText = std::size_t{1} << 30;

std::string OriginalOf(const std::string& file) {
    return fmt::format("{}.original", file);
}

std::optional<std::string> TextOf(Host& host, Session& session, const std::string& file) {
    const auto bytes = session.files().ReadBytes(file, 0, kMostText);
    if (bytes) return text::FromFileBytes(*bytes);
    Complain(host, fmt::format("{}: {} Write it with \"links edit\" first.", session.Shown(file),
                               session.Shown(bytes.error())));
    return std::nullopt;
}

// The records of a text that is whole and in step with its shortcuts.
std::optional<shortcuts::EditedFile>
EditedOf(Host& host, std::string_view text,
         const std::vector<shortcuts::OriginalRecord>& originals) {
    std::vector<shortcuts::Kind> kinds;
    for (const auto& original : originals) {
        kinds.push_back(original.record.kind);
    }
    shortcuts::EditedFile edited = shortcuts::ParseEditFile(text, kinds);
    if (edited.end == shortcuts::EditedFile::End::kWhole) return edited;
    const bool isLong = edited.end == shortcuts::EditedFile::End::kLongName;
    Complain(host, fmt::format("Record {} of {} {}. Nothing was saved.", edited.records.size() + 1,
                               originals.size(),
                               isLong ? "has a name of more than 175 characters"
                                      : "lacks a line or has another one in its place"));
    return std::nullopt;
}

// Whether a record was saved by an earlier run already.
bool IsDone(Session& session, const shortcuts::OriginalRecord& original,
            const shortcuts::LinkRecord& edited) {
    const std::string path = edited.name == original.record.name
                                 ? original.path
                                 : shortcuts::RenamedPath(original.path, edited.name);
    return session.files().Facts(path) &&
           results::LinkReader(session).Read(path).shown == edited.values;
}

void SaveRecord(Session& session, LinkSaver& saver, const shortcuts::OriginalRecord& original,
                const shortcuts::LinkRecord& edited, bool hasBadIcon) {
    const shortcuts::Values& before = original.record.values;
    if (edited == original.record || IsDone(session, original, edited)) {
        return saver.Save({original.path, before, before, {}});
    }
    const results::LinkCells now = results::LinkReader(session).Read(original.path);
    if (now.shown != before) {
        return saver.Fail(original.path, "It doesn't hold what was written for editing any more, "
                                         "and is left as it is.");
    }
    if (hasBadIcon) {
        return saver.Fail(original.path, "Its icon takes a path, a comma and a number.");
    }
    shortcuts::Values wanted = now.stored;
    for (std::size_t i = 0; i < shortcuts::kFieldCount; ++i) {
        if (edited.values[i] != before[i]) wanted[i] = edited.values[i];
    }
    saver.Save({.path = original.path,
                .stored = now.stored,
                .wanted = wanted,
                .newName = edited.name == original.record.name ? std::string() : edited.name});
}

} // namespace

void LinksText::Add(std::string path, shortcuts::LinkRecord record) {
    shortcuts::AppendRecord(text_, record);
    shortcuts::AppendOriginal(originals_, {std::move(path), std::move(record)});
    ++count_;
}

int LinksText::Write(Host& host, Session& session, const std::string& file, bool replaces) const {
    if (count_ == 0) {
        Complain(host, "There is no shortcut with a target to edit.");
        return kDone;
    }
    if (!replaces && session.files().Facts(file)) {
        Complain(host, fmt::format("{} stands already: give --yes to replace it, or another name.",
                                   session.Shown(file)));
        return kUnanswered;
    }
    for (const auto& [path, text] :
         {std::pair(OriginalOf(file), &originals_), std::pair(file, &text_)}) {
        const auto written = session::ReplaceTextFile(session.files(), path, *text);
        if (written) continue;
        Complain(host, fmt::format("{}: {}", session.Shown(path), session.Shown(written.error())));
        return kSomeFailed;
    }
    host.out << session.platform.paths.ToNative(file) << '\n';
    return kDone;
}

int ApplyLinks(Host& host, Session& session, const std::string& file, bool isRehearsal) {
    const auto text = TextOf(host, session, file);
    const auto originalText = text ? TextOf(host, session, OriginalOf(file)) : std::nullopt;
    if (!originalText) return kBadRequest;
    const auto originals = shortcuts::ParseOriginals(*originalText);
    if (!originals) {
        Complain(host, fmt::format("{} is no such file: write it with \"links edit\".",
                                   session.Shown(OriginalOf(file))));
        return kBadRequest;
    }
    const auto edited = EditedOf(host, *text, *originals);
    if (!edited) return kBadRequest;
    LinkSaver saver(host, session, isRehearsal);
    for (std::size_t i = 0; i < originals->size() && host.interrupted() == 0; ++i) {
        SaveRecord(session, saver, (*originals)[i], edited->records[i], edited->hasBadIcon[i]);
    }
    return saver.End();
}

} // namespace tarvix::cli
