#include "generate/first_lines.h"

#include "generate/list_request.h"
#include "generate/write_list.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::generate {

namespace {
constexpr std::size_t kLines = 20;
}

std::string FirstLinesKey(const session::Session& session) {
    const auto& state = session.state;
    const auto& form = session.frmDialog;
    const auto kind = ListKindOf(state.strAction);
    if (!kind || *kind == ListKind::kNumbers) return {};
    return fmt::format("{}|{}|{}|{}|{}{}{}|{}", state.strAction, state.strFileKind,
                       state.strHtmlText, form.cmbDir.Text.Get(), form.chkAddEOF.Value.Get(),
                       form.chkComments.Value.Get(), form.chkRelative.Value.Get(),
                       session.selection->lngSelTop);
}

std::vector<std::string> ListedFirst(session::Session& session) {
    if (FirstLinesKey(session).empty()) return {};
    ListRequest request = ReadListRequest(session);
    request.file = session.platform.paths.ToDrive(request.file); // it may be being typed
    std::vector<std::string> lines = FirstLines(session, request, kLines);
    for (std::string& line : lines) {
        line = platform::NativeForDisplay(line);
    }
    return lines;
}

} // namespace tarvix::generate
