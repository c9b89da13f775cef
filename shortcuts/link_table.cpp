#include "shortcuts/link_table.h"

#include "results/link_cells.h"
#include "results/result_list.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/paths.h"

#include <string>

namespace tarvix::shortcuts {

namespace {

using session::Session;

fields::LinkRow TableRow(Session& session, const EditedLink& link) {
    const results::LinkCells& cells = session.rows->Links(RowOf(session, link));
    fields::LinkRow row{.name = std::string(text::FileNameOf(link.path))};
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        row.values.push_back(cells.shown[i]);
        row.isEditable.push_back(HasField(link.kind, static_cast<Field>(i)));
    }
    return row;
}

LinkRecord RecordOf(const EditedLink& link, const fields::LinkRow& row) {
    LinkRecord record{.kind = link.kind, .name = row.name};
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        record.values[i] = row.values[i];
    }
    return record;
}

bool WriteTable(Session& session, const EditMode& mode) {
    std::string text;
    for (std::size_t i = 0; i < mode.links.size(); ++i) {
        AppendRecord(text, RecordOf(mode.links[i], session.forms.frmLinkTable.rows[i]));
    }
    return SaveEditText(session, "SaveTargetPathFile", text);
}

// Two buttons of a window that is asked whether to go on.
void AddAnswers(session::EventTable& events, const std::string& name, auto form) {
    for (const bool isConfirmed : {true, false}) {
        events.On(name + (isConfirmed ? ".cmdOK_Click" : ".cmdCancel_Click"),
                  [form, isConfirmed](Session& session, const session::EventArgs&) {
                      form(session).isConfirmed = isConfirmed;
                      form(session).Hide();
                  });
    }
}

} // namespace

void FillTable(Session& session, const EditMode& mode) {
    auto& form = session.forms.frmLinkTable;
    form.rows.clear();
    for (const EditedLink& link : mode.links) {
        form.rows.push_back(TableRow(session, link));
    }
    form.first = form.rows;
}

bool EditInTable(Session& session, const EditMode& mode) {
    auto& form = session.forms.frmLinkTable;
    form.lblMain.Caption = "Nothing is saved before you select Save Targets and see the changes.";
    form.isConfirmed = false;
    form.Show();
    session.ShowModal(session::PromptId::kLinkTable);
    return form.isConfirmed && WriteTable(session, mode);
}

void AddLinkTableEvents(session::EventTable& events) {
    AddAnswers(events, "frmLinkTable",
               [](Session& session) -> auto& { return session.forms.frmLinkTable; });
}

void AddLinkChangesEvents(session::EventTable& events) {
    AddAnswers(events, "frmLinkChanges",
               [](Session& session) -> auto& { return session.forms.frmLinkChanges; });
}

} // namespace tarvix::shortcuts
