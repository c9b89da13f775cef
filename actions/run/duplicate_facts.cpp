#include "actions/run/duplicate_facts.h"

#include "actions/place/action_run.h"
#include "actions/place/duplicate.h"
#include "actions/place/duplicate_rename.h"
#include "actions/place/object.h"
#include "actions/run/figures.h"
#include "fields/duplicate_question.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::actions {

namespace {

using platform::ObjectFacts;
using session::Session;

constexpr std::uint64_t kMostRead = 32U * 1024 * 1024; // of each file, for one question
constexpr std::size_t kPiece = 256U * 1024;

enum class Content { kSame, kDiffers, kUnknown };

Content Compare(Session& session, std::string_view one, std::string_view other,
                std::uint64_t size) {
    for (std::uint64_t at = 0; at < size; at += kPiece) {
        session.Yield();
        const auto here = session.files().ReadBytes(one, at, kPiece);
        const auto there = session.files().ReadBytes(other, at, kPiece);
        if (!here || !there || here->empty() || there->empty()) return Content::kUnknown;
        if (*here != *there) return Content::kDiffers;
    }
    return Content::kSame;
}

std::string ContentText(Session& session, const Clash& clash, const ObjectFacts& there,
                        const ObjectFacts& here) {
    if (there.IsLink() || here.IsLink()) return {};
    if (there.size != here.size) return "The contents differ.";
    if (here.size > kMostRead) return "Both have the same size. They are too large to be compared.";
    switch (Compare(session, clash.destination, clash.object.TruePath(), here.size)) {
    case Content::kSame:
        return "Both have the same content.";
    case Content::kDiffers:
        return "The contents differ.";
    case Content::kUnknown:
        break;
    }
    return "Both have the same size. They could not be compared.";
}

void NoteWhich(std::string& there, std::string& here, bool thereIsMore, bool hereIsMore,
               const char* more) {
    if (thereIsMore) there = more;
    if (hereIsMore) here = more;
}

} // namespace

void TellDifferences(Session& session, const ActionRun& run, const Clash& clash,
                     fields::DuplicateQuestion& question) {
    const auto& totals = session.state.lastAction;
    const std::int64_t settled = totals.done + totals.skipped + totals.failed;
    const std::int64_t left = totals.wanted - settled;
    question.headline =
        fmt::format("{} is already in {}", question.existing.name, question.existing.folder);
    question.position = fmt::format("{} of {}", text::Format(settled + 1, "#,##0"),
                                    text::Format(totals.wanted, "#,##0"));
    question.rest = left <= 1 ? "Cancel leaves this object as it is."
                              : fmt::format("Cancel leaves this and the other {} as they are.",
                                            text::Format(left - 1, "#,##0"));
    question.newName =
        session.Shown(NameBeside(session, run.request, clash.destination, clash.object.isFile));
    const auto there = session.files().Facts(clash.destination);
    const auto here = session.files().Facts(clash.object.TruePath());
    if (!there || !here) return;
    NoteWhich(question.existing.dateNote, question.thisOne.dateNote,
              there->modified > here->modified, here->modified > there->modified, "newer");
    if (!clash.object.isFile || !clash.there.isFile) return;
    NoteWhich(question.existing.sizeNote, question.thisOne.sizeNote, there->size > here->size,
              here->size > there->size, "larger");
    question.content = ContentText(session, clash, *there, *here);
}

} // namespace tarvix::actions
