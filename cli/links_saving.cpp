#include "cli/links_saving.h"

#include "cli/messages.h"
#include "cli/print_rows.h"
#include "cli/request.h"
#include "platform/native_paths.h"
#include "session/session.h"
#include "shortcuts/edit_file.h"
#include "shortcuts/save_link.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <ostream>

namespace tarvix::cli {

namespace {

std::string ShownValue(const std::string& value) {
    return value.empty() ? std::string("(none)") : CellField(value);
}

} // namespace

void LinkSaver::Fail(const std::string& path, const std::string& why) {
    ++failed_;
    Complain(host_, fmt::format("{}: {}", session_.Shown(path), why));
}

void LinkSaver::PrintChanges(const Link& link) const {
    const std::string path = PlainField(session_.platform.paths.ToNative(link.path));
    if (!link.newName.empty()) {
        host_.out << path << ": Name: " << CellField(text::FileNameOf(link.path)) << " -> "
                  << CellField(link.newName) << '\n';
    }
    for (std::size_t i = 0; i < shortcuts::kFieldCount; ++i) {
        if (link.wanted[i] == link.stored[i]) continue;
        host_.out << path << ": " << shortcuts::LabelOf(static_cast<shortcuts::Field>(i)) << ": "
                  << ShownValue(link.stored[i]) << " -> " << ShownValue(link.wanted[i]) << '\n';
    }
}

void LinkSaver::Write(const Link& link, const shortcuts::Edits& edits) {
    std::string path = link.path;
    if (shortcuts::HasEdits(edits)) {
        const auto saved =
            shortcuts::SaveLink(session_, {.path = path, .stored = link.stored, .edits = edits});
        if (!saved) return Fail(path, session_.Shown(saved.error()));
        if (!saved->oldBeside.empty()) {
            Complain(host_, fmt::format("{}: no trash took its old version, which is beside it: {}",
                                        session_.Shown(path), session_.Shown(saved->oldBeside)));
        }
        session::LogTimed(session_, fmt::format(" {} shortcut was updated in Shortcut Edit mode",
                                                session_.Shown(path)));
    }
    if (!link.newName.empty()) {
        const auto renamed = shortcuts::ReNameLink(session_, path, link.newName);
        if (!renamed) return Fail(path, session_.Shown(renamed.error()));
        session::LogTimed(session_, fmt::format(" Renamed {} as {} in Shortcut Editing Mode.",
                                                session_.Shown(path), session_.Shown(*renamed)));
    }
    PrintChanges(link);
    ++changed_;
}

void LinkSaver::Save(const Link& link) {
    ++seen_;
    const shortcuts::Edits edits = shortcuts::Differences(link.stored, link.wanted);
    if (!shortcuts::HasEdits(edits) && link.newName.empty()) return;
    if (!isRehearsal_) return Write(link, edits);
    if (const auto refusal = shortcuts::WhyNotSaved(
            session_, {.path = link.path, .stored = link.stored, .edits = edits})) {
        return Fail(link.path, session_.Shown(*refusal));
    }
    PrintChanges(link);
    ++changed_;
}

int LinkSaver::End() const {
    std::string sum = fmt::format("{} {} of {} shortcuts",
                                  isRehearsal_ ? "Would change" : "Changed", changed_, seen_);
    if (failed_ > 0) sum += fmt::format("; {} failed", failed_);
    host_.out << sum << ".\n";
    return failed_ > 0 ? kSomeFailed : kDone;
}

} // namespace tarvix::cli
