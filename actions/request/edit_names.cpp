#include "actions/request/edit_names.h"

#include "actions/sources/name_list.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "session/attempt.h"
#include "session/session.h"
#include "session/text_viewer.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::actions {

namespace {

using session::Session;

platform::Result<void> WriteAll(platform::TextStream& stream, const std::string& text) {
    TX_TRY(stream.Write(text));
    return stream.Close();
}

} // namespace

platform::Result<std::string> WritePresentNames(Session& session) {
    const bool isWhole = session.frmDialog.chkWholeNames.Value == 1;
    const std::string text = PresentNames(
        session, isWhole ? ListedNames::kWhole : ListedNames::kWithoutExtensions, !isWhole);
    for (int number = 1;; ++number) {
        const std::string name =
            number == 1 ? "Rename List.txt" : fmt::format("Rename List {}.txt", number);
        const std::string path = text::JoinPath(session.state.strDataFolder, name);
        auto stream = session.files().CreateTextFile(path, false);
        if (!stream && stream.error().number == platform::kAlreadyExists) continue;
        if (!stream) return std::unexpected(stream.error());
        const auto written = WriteAll(**stream, text);
        if (written) return path;
        (void)session.files().DeleteFile(path, false);
        return std::unexpected(written.error());
    }
}

std::string ContentOf(Session& session, const std::string& path) {
    const auto facts = platform::GetFile(session.files(), path);
    if (!facts) return {};
    return session.files().ReadBytes(path, 0, facts->size).value_or(std::string());
}

void cmdEditNames_Click(Session& session) {
    const session::ErrorContext context{.routine = "cmdEditNames_Click",
                                        .moduleName = "frmDialog",
                                        .object = session.state.strDataFolder,
                                        .path = session.state.strDataFolder,
                                        .objectType = session::ObjectType::kFile};
    const auto written =
        session::Attempt(session, context, [&] { return WritePresentNames(session); });
    if (!written) return;
    session.frmDialog.cmbDir.Text = *written.result;
    session::ViewAsText(session, *written.result, "cmdEditNames_Click");
}

} // namespace tarvix::actions
