#include "launch/menu/menu_deeds.h"

#include "launch/custom/expand.h"
#include "launch/menu/clipboard_forms.h"
#include "launch/menu/open_with.h"
#include "platform/applications.h"
#include "platform/clipboard.h"
#include "platform/desktop.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "results/row_marks.h"
#include "session/action_log.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/user_input.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::menu {

namespace {

using platform::LaunchPlan;
using platform::Result;
using session::PromptId;
using session::Session;

void Tell(Session& session, std::string_view sentence) {
    session.MsgBox(PromptId::kMenuNotDone, sentence);
}

void TellFailure(Session& session, const Result<void>& done) {
    if (!done) Tell(session, session.Shown(done.error()));
}

void CopyToClipboard(Session& session, const MenuObjects& objects, Deed deed) {
    if (session.clipboard == nullptr) return;
    const auto paths = NativePathsOf(objects.chosen);
    session.clipboard->Put(deed == Deed::kCopyPath ? PathForms(paths)
                                                   : ObjectForms(paths, deed == Deed::kCut));
    if (deed == Deed::kCut) {
        results::MarkCut(session);
    } else {
        results::ClearCut(session);
    }
}

void ShowProperties(Session& session, const MenuObjects& objects) {
    std::vector<std::string> addresses;
    for (const custom::ChosenObject& object : objects.chosen.objects)
        addresses.push_back(platform::FileAddress(object.path));
    TellFailure(session, session.platform.desktop.ShowProperties(addresses));
}

void Compress(Session& session, const MenuObjects& objects, const Archiver& archiver) {
    const std::string& folder = objects.chosen.folder;
    LaunchPlan plan;
    plan.name = archiver.program;
    plan.processes.push_back(
        {ArchiverArguments(archiver, folder, NativePathsOf(objects.chosen)), folder});
    TellFailure(session, session.platform.applications.Start(plan));
}

// Entries of a file that anyone could have put there are asked about.
bool IsWanted(Session& session, const custom::CustomEntry& entry) {
    if (entry.isTrusted) return true;
    return session.MsgBox(
               PromptId::kActionNotTrusted,
               fmt::format("\"{}\" would run\r\n\r\n{}\r\n\r\nas {} tells, which is not marked "
                           "as a program (it lacks the right to run). Run it?",
                           entry.label, entry.command.line,
                           platform::NativeForDisplay(entry.command.file))) == session::kYes;
}

Result<LaunchPlan> PlanOf(Session& session, const custom::CustomEntry& entry,
                          std::vector<platform::PlannedProcess> processes) {
    LaunchPlan plan;
    plan.name = entry.label;
    for (platform::PlannedProcess& process : processes) {
        if (!entry.command.inTerminal) {
            plan.processes.push_back(std::move(process));
            continue;
        }
        auto shown = session.platform.applications.InTerminal(std::move(process));
        if (!shown) return std::unexpected(shown.error());
        plan.processes.push_back(std::move(*shown));
    }
    return plan;
}

void RunCustom(Session& session, const MenuObjects& objects, const custom::CustomEntry& entry) {
    auto processes = custom::Expand(entry.command, objects.chosen);
    if (!processes) return Tell(session, processes.error());
    if (!IsWanted(session, entry)) return;
    const auto plan = PlanOf(session, entry, std::move(*processes));
    if (!plan) return Tell(session, session.Shown(plan.error()));
    session::LogTimed(session, fmt::format(" User selected \"{}\" in the context menu for {} "
                                           "objects.",
                                           entry.label, objects.paths.size()));
    TellFailure(session, session.platform.applications.Start(*plan));
}

// The window's own buttons and entries, by their own checks.
void ClickControl(Session& session, const std::string& name) {
    fields::Control* control = session.frmSearch.Find(name);
    if (control == nullptr) return;
    const auto clicked = session::UserClick(session, *control);
    if (!clicked) session.frmSearch.lblStatus.Caption = clicked.error();
}

} // namespace

void Do(Session& session, const MenuObjects& objects, const ContextMenu& menu,
        const MenuChoice& choice) {
    switch (choice.deed) {
    case Deed::kOpen:
        return OpenObjects(session, objects);
    case Deed::kOpenWith:
        return OpenWith(session, objects, choice.what);
    case Deed::kChooseWith:
        return ChooseWith(session, objects);
    case Deed::kShowInFolder:
        return TellFailure(session, session.platform.applications.ShowInFolder(objects.paths));
    case Deed::kCopy:
    case Deed::kCut:
    case Deed::kCopyPath:
        return CopyToClipboard(session, objects, choice.deed);
    case Deed::kCompress:
        if (menu.archiver) Compress(session, objects, *menu.archiver);
        return;
    case Deed::kCustom:
        return RunCustom(session, objects, menu.custom[choice.index]);
    case Deed::kClick:
        return ClickControl(session, choice.what);
    case Deed::kProperties:
        return ShowProperties(session, objects);
    }
}

void AddDeedEvents(session::EventTable& events) {
    AddOpenWithEvents(events);
}

} // namespace tarvix::menu
