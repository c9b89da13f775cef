#include "launch/open_object.h"

#include "launch/class_command.h"
#include "launch/starting_folder.h"
#include "platform/file_system.h"
#include "platform/launcher.h"
#include "platform/native_paths.h"
#include "platform/try.h"
#include "results/link_target.h"
#include "session/paths/env_variables.h"
#include "session/session.h"
#include "session/tools.h"
#include "shortcuts/formats/values.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::launch {

namespace {

using platform::Failure;
using platform::LaunchPlan;
using platform::ProgramKind;
using platform::Result;
using session::Session;

Result<Opened> Carry(Session& session, LaunchPlan plan, Doing doing) {
    if (doing == Doing::kStart) TX_TRY(session.platform.applications.Start(plan));
    std::string name = plan.name;
    return Opened{.application = std::move(name), .plan = std::move(plan)};
}

Result<Opened> Carry(Session& session, Result<LaunchPlan> plan, Doing doing) {
    if (!plan) return std::unexpected(std::move(plan.error()));
    return Carry(session, std::move(*plan), doing);
}

std::string ExtensionOf(std::string_view path) {
    return text::Lower(text::GetExtension(text::FileNameOf(path)));
}

std::string Expanded(Session& session, std::string_view path) {
    if (path.find('%') == path.npos) return std::string(path);
    return session::RemoveEnvVarAndRestorePath(session, path);
}

std::unexpected<platform::PlatformError> Missing(Session& session, std::string_view path) {
    return std::unexpected(platform::PlatformError{
        platform::kFileNotFound, fmt::format("{} is not there.", session.Shown(path)),
        std::string(path)});
}

std::unexpected<platform::PlatformError> OnlyRuns(Session& session, std::string_view path) {
    return std::unexpected(platform::PlatformError{
        platform::kInvalidCall,
        fmt::format("{} is a program: 'Run a Program' in the Run menu starts it.",
                    session.Shown(path)),
        std::string(path)});
}

// The last resort but the viewer: what the class of the object says. Where this machine's programs
// are started by asking for it, a class can't start one either.
Result<Opened> BuildExecString(Session& session, const std::string& path, bool isFolder,
                               Doing doing) {
    auto& applications = session::ApplicationsOf(session);
    const std::string folder = StartingFolder(session);
    const std::string extension = ExtensionOf(path);
    const bool isTold = !session.platform.traits.hasNativePaths;
    const bool isProgram = extension == "pif" || extension == "com" || extension == "exe";
    if (isTold && isProgram) {
        return Carry(session, applications.PlanProgram(path, folder), doing);
    }
    const ClassCommand command = FindClassCommand(session, path, isFolder);
    if (command.startsItself && isTold) {
        return Carry(session, applications.PlanProgram(path, folder), doing);
    }
    if (!command.command.empty()) {
        return Carry(session, applications.PlanCommand(command.command, {&path, 1}, folder), doing);
    }
    if (isFolder) {
        return Failure(platform::kPermissionDenied, "No program is set here that opens folders.");
    }
    return ViewAsText(session, path, doing);
}

// Whether a double click must not start it.
bool IsProgram(Session& session, std::string_view path, bool isOpened) {
    if (!session.platform.traits.hasNativePaths) return false;
    const ProgramKind kind = session.platform.applications.KindOf(path);
    return kind == ProgramKind::kForeign || (kind == ProgramKind::kNative && !isOpened);
}

Result<Opened> OpenPlain(Session& session, const std::string& path, Doing doing) {
    const auto facts = session.files().Facts(path);
    if (!facts) return Missing(session, path);
    if (IsProgram(session, path, true)) return OnlyRuns(session, path);
    auto opened = StartDoc(session, path, doing);
    if (opened || opened.error().number == platform::kFileNotFound) return opened;
    if (IsProgram(session, path, false)) return OnlyRuns(session, path);
    auto byClass = BuildExecString(session, path, facts->IsFolder(), doing);
    // Why the application that is meant for it did not do tells more than the last resort's.
    return byClass ? byClass : opened;
}

bool IsAddress(std::string_view target) {
    return target.find("://") != target.npos || text::Lower(target).starts_with("mailto:");
}

Result<Opened> OpenAddress(Session& session, const std::string& address, Doing doing) {
    if (doing == Doing::kStart) {
        TX_TRY(session.platform.launcher.OpenPage(address, platform::PageSize::kNormal));
    }
    return Opened{.application = session.platform.launcher.DefaultBrowser().name,
                  .plan = {},
                  .address = address};
}

// What a .lnk or .url leads to: a drive path of this machine, or an address; empty for none.
std::string ShortcutTarget(Session& session, const std::string& path) {
    const std::string target = results::LinkTargetOf(session, path);
    const std::string here = session.platform.paths.ToDrive(target); // of a file address
    if (IsAddress(here)) return here;
    return results::PlaceOfTarget(session, path, here).value_or(here);
}

bool IsShortcut(std::string_view extension) {
    return extension == "lnk" || extension == "url";
}

// What a desktop entry that is no application leads to; empty for none.
std::string EntryTarget(Session& session, const std::string& path) {
    const auto bytes = results::ReadShortcut(session, path);
    if (!bytes) return {};
    return shortcuts::Read(shortcuts::Kind::kDesktop, *bytes)[shortcuts::kTarget];
}

// What a shortcut leads to; without a target it is opened itself.
Result<Opened> OpenTarget(Session& session, const std::string& path, const std::string& target,
                          Doing doing) {
    if (IsAddress(target)) return OpenAddress(session, target, doing);
    return OpenPlain(session, target.empty() ? path : target, doing);
}

// An entry that anybody may have put there starts nothing.
Result<Opened> OpenEntry(Session& session, const std::string& path, Doing doing) {
    auto& applications = session::ApplicationsOf(session);
    const std::string native = session.platform.paths.ToNative(path);
    if (!applications.Find(native)) {
        return OpenTarget(session, path, session.platform.paths.ToDrive(EntryTarget(session, path)),
                          doing);
    }
    if (applications.IsTrusted(path)) {
        return Carry(session, applications.PlanApplication(native, {}, StartingFolder(session)),
                     doing);
    }
    return std::unexpected(platform::PlatformError{
        platform::kPermissionDenied,
        fmt::format("{} starts a program, but has no right to run. Give it that right in its "
                    "properties if you trust it.",
                    session.Shown(path)),
        path});
}

// The id of the application that is meant; empty for none.
std::string ChosenId(platform::Applications& applications, std::string_view choice) {
    for (const std::string& id : {std::string(choice), fmt::format("{}.desktop", choice)}) {
        if (applications.Find(id)) return id;
    }
    for (const platform::Application& one : applications.All()) {
        if (text::EqualNoCase(one.name, choice)) return one.id;
    }
    return {};
}

} // namespace

Result<Opened> StartDoc(Session& session, std::string_view path, Doing doing) {
    auto& applications = session::ApplicationsOf(session);
    const std::string type = applications.TypeOf(path);
    if (type.empty()) return Missing(session, path);
    const auto application = applications.DefaultFor(type);
    if (!application) {
        return Failure(platform::kPermissionDenied,
                       fmt::format("No application is set for files of the type {}.", type));
    }
    const std::string object(path);
    return Carry(
        session,
        applications.PlanApplication(application->id, {&object, 1}, StartingFolder(session)),
        doing);
}

Result<Opened> ViewAsText(Session& session, const std::string& path, Doing doing) {
    if (!session.files().Facts(path)) return Missing(session, path);
    const session::Tool editor = session::FindTool(session, session::ToolKind::kEditor);
    return Carry(session, session::PlanTool(session, editor, {&path, 1}, StartingFolder(session)),
                 doing);
}

Result<Opened> OpenObject(Session& session, std::string_view path, Doing doing) {
    const std::string object = Expanded(session, path);
    const std::string extension = ExtensionOf(object);
    if (extension == "desktop") return OpenEntry(session, object, doing);
    if (!IsShortcut(extension)) return OpenPlain(session, object, doing);
    return OpenTarget(session, object, ShortcutTarget(session, object), doing);
}

Result<Opened> OpenWith(Session& session, std::string_view choice,
                        std::span<const std::string> paths, Doing doing) {
    auto& applications = session::ApplicationsOf(session);
    const std::string folder = StartingFolder(session);
    const std::string id = ChosenId(applications, choice);
    if (!id.empty()) {
        return Carry(session, applications.PlanApplication(id, paths, folder), doing);
    }
    if (!applications.ProgramOf(choice)) {
        return Failure(
            platform::kInvalidCall,
            fmt::format("\"{}\" is no application of this desktop, and no command.", choice));
    }
    return Carry(session, applications.PlanCommand(choice, paths, folder), doing);
}

Result<Opened> RunProgram(Session& session, const std::string& path, Doing doing) {
    auto& applications = session::ApplicationsOf(session);
    const std::string folder = StartingFolder(session);
    if (applications.KindOf(path) != ProgramKind::kForeign) {
        return Carry(session, applications.PlanProgram(path, folder), doing);
    }
    const auto runner = applications.DefaultFor(applications.TypeOf(path));
    if (!runner) {
        return Failure(platform::kPermissionDenied,
                       "No program is set here that runs .exe files, as Wine does.");
    }
    return Carry(session, applications.PlanApplication(runner->id, {&path, 1}, folder), doing);
}

} // namespace tarvix::launch
