#include "actions/request/remembered_structure.h"

#include "actions/place/action_request.h"
#include "platform/file_system.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "text/list_marks.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::actions {

namespace {

using session::Session;

// Destinations in drive form, the latest last, each with its structure where that isn't None.
using Remembered = std::vector<std::pair<std::string, Structure>>;

constexpr std::size_t kMostRemembered = 50;
constexpr std::string_view kHeading =
    "# The folder structure that the action window used last with a destination.";

std::string FileOf(const Session& session) {
    return text::JoinPath(session.state.strDataFolder, "TXDestinationStructures.txt");
}

bool IsMissing(const platform::PlatformError& error) {
    return error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
}

// "Backup = C:\srv\Backup"; lines that are none of these are passed over.
std::optional<std::pair<std::string, Structure>> FromLine(std::string_view line) {
    for (std::size_t i = 1; i < strStructureName.size(); ++i) {
        const std::string head = fmt::format("{} = ", strStructureName[i]);
        if (!line.starts_with(head)) continue;
        return std::pair{std::string(line.substr(head.size())), static_cast<Structure>(i)};
    }
    return std::nullopt;
}

// Nothing when the file can't be read whole: it is left as it is then.
std::optional<Remembered> Read(Session& session) {
    Remembered remembered;
    const auto stream =
        session.files().OpenAsTextStream(FileOf(session), platform::OpenMode::kRead);
    if (!stream) return IsMissing(stream.error()) ? std::optional(remembered) : std::nullopt;
    while (true) {
        const auto line = (*stream)->ReadLine();
        if (!line && line.error().number != platform::kInputPastEnd) return std::nullopt;
        if (!line || *line == text::kEndMark) return remembered;
        if (auto each = FromLine(*line)) remembered.push_back(std::move(*each));
    }
}

std::string TextOf(const Remembered& remembered) {
    std::string text = fmt::format("{}\r\n", kHeading);
    for (const auto& [destination, structure] : remembered) {
        const std::string_view name = strStructureName[static_cast<std::size_t>(structure)];
        text += fmt::format("{} = {}\r\n", name, destination);
    }
    return text.append(text::kEndMark).append("\r\n");
}

bool IsAWindow(const Session& session) {
    return session.prompts.PrefersForms() && !session.state.IsBatch();
}

} // namespace

void OfferStructureOf(Session& session) {
    auto& form = session.frmDialog;
    const bool isOffered = form.fraStructure.Visible && form.optTo[0].Value &&
                           !form.cmbDir.Text->empty() && IsAWindow(session);
    if (!isOffered) return;
    const auto remembered = Read(session);
    if (!remembered) return;
    const auto found = std::ranges::find(*remembered, form.cmbDir.Text.Get(),
                                         &std::pair<std::string, Structure>::first);
    if (found == remembered->end()) return;
    const int structure = static_cast<int>(found->second);
    if (form.optStructure[structure].Visible) form.optStructure.Choose(structure);
}

void RememberStructure(Session& session, const ActionRequest& request) {
    if (request.way != Way::kOneLocation || !IsAWindow(session)) return;
    auto remembered = Read(session);
    if (!remembered) return;
    const auto found =
        std::ranges::find(*remembered, request.typed, &std::pair<std::string, Structure>::first);
    const bool isThere = found != remembered->end();
    const Structure before = isThere ? found->second : Structure::kNone;
    if (before == request.structure) return;
    if (isThere) remembered->erase(found);
    if (request.structure != Structure::kNone) {
        remembered->emplace_back(request.typed, request.structure);
    }
    if (remembered->size() > kMostRemembered) remembered->erase(remembered->begin());
    const auto saved =
        session::ReplaceTextFile(session.files(), FileOf(session), TextOf(*remembered));
    if (!saved) session::LogTimed(session, fmt::format(" {}", session.Shown(saved.error())));
}

} // namespace tarvix::actions
