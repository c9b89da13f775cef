#include "cli/list_file.h"

#include "cli/messages.h"
#include "cli/summary.h"
#include "generate/list_source.h"
#include "generate/write_list.h"
#include "platform/file_system.h"
#include "session/paths/extra_path_file.h"
#include "session/session.h"
#include "session/user_input.h"
#include "text/characters.h"

#include <ostream>

namespace tarvix::cli {

using session::Session;

ListFile::ListFile(Host& host, CommandPrompts& prompts, const platform::Platform& machine,
                   Target target)
    : host_(host), file_(std::move(target.file)) {
    // What was asked for is no question; replacing a file is.
    const bool stands = machine.files.Facts(file_).has_value() ||
                        machine.files.Facts(session::ExtraPathFile(file_)).has_value();
    if (target.confirmed || !stands) prompts.ConfirmActions();
    prompts.SetDialogFiller([this](Session& session) { InWindow(session); });
}

void ListFile::InWindow(Session& session) const {
    auto& form = session.frmDialog;
    auto done = session::UserSet(session, form.cmbDir, file_);
    if (done && fill_) fill_(session);
    if (done) done = session::UserClick(session, form.OKButton);
    if (!done) Complain(host_, done.error());
    if (form.IsShown()) (void)session::UserClick(session, form.CancelButton);
    form.Hide();
}

int ListFile::End(Session& session, std::int64_t wanted) const {
    const auto& state = session.state;
    if (state.blnErrorOccurred) {
        Complain(host_, "The file was not written.");
        return kSomeFailed;
    }
    if (state.blnActionCancelled) return kBadRequest;
    return Summarize(host_, "Wrote", state.lastAction, wanted);
}

int PrintList(Host& host, Session& session, const generate::ListRequest& request) {
    const auto source = generate::MakeListSource(session, request);
    const auto outcome =
        generate::MakeListText(session, request, *source, [&](std::string_view piece) {
            host.out << text::Replace(piece, "\r\n", "\n");
            return host.out.good() && !host.interrupted();
        });
    host.out.flush();
    const std::string leftOut = generate::LeftOutText(session, outcome);
    if (!leftOut.empty()) Tell(host, leftOut);
    const bool isAll = outcome.written == static_cast<std::int64_t>(source->Count());
    return isAll && outcome.IsDone() ? kDone : kSomeFailed;
}

} // namespace tarvix::cli
