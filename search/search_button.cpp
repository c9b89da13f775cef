#include "search/search_button.h"

#include "platform/try.h"
#include "results/selection.h"
#include "results/sorting.h"
#include "search/browse.h"
#include "search/criteria_boxes.h"
#include "search/date_boxes.h"
#include "search/default_folders.h"
#include "search/empty_list.h"
#include "search/follow_up.h"
#include "search/left_out.h"
#include "search/search_form.h"
#include "search/unread.h"
#include "search/walk.h"
#include "session/lifecycle_events.h"
#include "session/native_entry.h"
#include "session/prompt_id.h"
#include "session/remembered/histories.h"
#include "session/search_lock.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <expected>
#include <string>
#include <utility>

namespace tarvix::search {

namespace {

using session::Session;

// A standing entry begins with two blanks.
void DropLeadingBlanks(fields::ComboBox& cmbSearchFor) {
    std::string text = cmbSearchFor.Text;
    while (text.starts_with("  ")) {
        text.erase(0, 2);
    }
    cmbSearchFor.Text = std::move(text);
}

void DropOuterBars(fields::ComboBox& cmbDir) {
    cmbDir.Text = std::string(text::StripLeadingBar(text::StripTrailingBar(cmbDir.Text.Get())));
}

// The box that a refusal is about.
fields::Control* BoxOf(fields::FrmSearch& form, session::PromptId refusal) {
    using session::PromptId;
    switch (refusal) {
    case PromptId::kSizeChoiceInvalid:
        return &form.cboSize;
    case PromptId::kFirstSizeInvalid:
    case PromptId::kSizesReversed:
        return &form.txtSize1;
    case PromptId::kSecondSizeInvalid:
        return &form.txtSize2;
    case PromptId::kDateChoiceInvalid:
        return &form.cboDate;
    case PromptId::kDatesReversed:
        return &form.txtDate2;
    default:
        return form.lblDate1.Date() ? &form.txtDate2 : &form.txtDate1;
    }
}

// The request that the boxes make; bad boxes are told and stop the search. `about` is then the
// first of them.
std::expected<SearchRequest, Interruption> ReadBoxes(Session& session, fields::Control*& about) {
    TakeDateBoxes(session);
    auto request = ReadSearchRequest(session);
    session.state.blnErrorPreparingForSearch = !request;
    if (!request) {
        for (const Refusal& refusal : request.error()) {
            session.MsgBox(refusal.id, refusal.text);
        }
        about = BoxOf(session.frmSearch, request.error().front().id);
        return std::unexpected(Interruption::kStopped);
    }
    TX_TRY(TestFlags(session.state));
    return std::move(*request);
}

bool IsAnyThere(const Locations& locations) {
    return std::ranges::any_of(
        locations.folders, [](const SearchLocation& location) { return !location.folder.empty(); });
}

// Looks for the locations and lets the user call a doubtful request off.
WalkEnd FindLocations(Session& session, SearchRequest& request, fields::Control*& about) {
    session.frmSearch.cmbDir.Text = request.searchIn;
    request.locations = ParseSearchFolder(session, request.searchIn);
    if (!IsAnyThere(request.locations)) about = &session.frmSearch.cmbDir;
    ConfirmSearchStrings(session, request.strings);
    return TestFlags(session.state);
}

// Everything up to the walk. An interruption ends the search before it began.
std::expected<SearchRequest, Interruption> Prepare(Session& session, fields::Control*& about) {
    auto& form = session.frmSearch;
    DropLeadingBlanks(form.cmbSearchFor);
    AskRepeatDelete(session);
    DropOuterBars(form.cmbDir);
    ClearForSearch(session);
    TX_TRY_ASSIGN(SearchRequest request, ReadBoxes(session, about));
    ShowSearching(session, request);
    results::BuildFileArray(session);
    session.Yield();
    TX_TRY(TestFlags(session.state));
    TX_TRY(FindLocations(session, request, about));
    session::UpdateFolderHistory(session);
    session::UpdateSearchHistory(session);
    return request;
}

void LogRequest(Session& session, const SearchRequest& request) {
    session::LogTimed(session, fmt::format(" User selected to search for {}{} with '{}' in {}",
                                           KindText(request.kind),
                                           request.subfolders ? " and search subfolders" : "",
                                           request.searchFor,
                                           session::EntryShown(session, session.frmSearch.cmbDir,
                                                               request.locations.text)));
}

WalkEnd WalkLogged(Session& session, const SearchRequest& request) {
    LogRequest(session, request);
    return Walk(session, request);
}

// One search from its boxes to what comes next. `about` is the box that is to blame where it didn't
// begin.
Next SearchOnce(Session& session, fields::Control*& about) {
    session.state.blnSearching = true;
    const auto request = Prepare(session, about);
    const WalkEnd end = request ? WalkLogged(session, *request) : std::unexpected(request.error());
    session.state.blnSearching = false;
    ShowEnd(session, end);
    if (request) {
        CommonEnd(session, *request);
        CountUnsearched(session, *request);
        results::ArrangeFoundRows(session);
    }
    return RunFollowUp(session, request ? &*request : nullptr, end);
}

void GiveFocusBack(fields::FrmSearch& form, fields::Control* about) {
    form.Focus = about != nullptr         ? about
                 : form.cmdSearch.Enabled ? static_cast<fields::Control*>(&form.cmbSearchFor)
                                          : static_cast<fields::Control*>(&form.chkRepeatSearch);
}

void ParseLocations(Session& session) {
    DropOuterBars(session.frmSearch.cmbDir);
    const Locations locations = ParseSearchFolder(session, session.frmSearch.cmbDir.Text.Get());
    session.state.strSearchFolder.clear();
    for (const SearchLocation& location : locations.folders) {
        if (location.folder.empty()) continue;
        session.state.strSearchFolder.push_back(location.folder);
    }
}

} // namespace

void cmdSearch_Click(Session& session) {
    if (session.state.blnSearching) return;
    Next next = Next::kSearchAgain;
    fields::Control* about = nullptr;
    while (next == Next::kSearchAgain) {
        next = SearchOnce(session, about);
    }
    if (next == Next::kEnd) return;
    session.Yield();
    GiveFocusBack(session.frmSearch, about);
}

void cmdStop_Click(Session& session) {
    if (session.state.blnRecycling) {
        session.state.blnStopAction = true;
        return;
    }
    session.state.blnStopClicked = true;
    session::LogTimed(session, " User selected to stop search.");
    if (session.state.IsBatch()) {
        session.state.blnStopAction = true; // between its searches it moves or writes
        return;
    }
    results::BuildFileArray(session);
    session::UnlockAfterSearch(session);
    session.frmSearch.Focus = &session.frmSearch.cmbSearchFor;
}

void cmdNext_Click(Session& session) {
    session.state.blnSkipSearch = true;
    session::LogTimed(session, " User selected to skip to next automated search.");
}

void AddSearchEvents(session::EventTable& events) {
    events.On("frmSearch.cmdSearch_Click", cmdSearch_Click);
    events.On("frmSearch.cmdStop_Click", cmdStop_Click);
    events.On("frmSearch.cmdNext_Click", cmdNext_Click);
    for (const std::string form : {"frmForChar", "frmTrailingSp", "frmAllUsers"}) {
        events.On(fmt::format("{}.cmdOK_Click", form),
                  [form](Session& session, const session::EventArgs&) {
                      session.forms.Find(form)->Hide();
                  });
    }
    events.On(std::string(lifecycle::kBrowseNormally),
              [](Session& session, const session::EventArgs&) { ChooseBrowseMode(session, 0); });
    events.On(std::string(lifecycle::kParseLocations), ParseLocations);
    events.On(std::string(lifecycle::kPaintAttributeBoxes), PaintAttributeBoxes);
    events.On(std::string(lifecycle::kListDefaultFolders), BuildDefaultFolderList);
    events.On(std::string(lifecycle::kWriteDefaultFolder),
              [](Session& session, const session::EventArgs& args) {
                  WriteDefaultSearchMPL(session, args.path);
              });
    AddCriteriaEvents(events);
    AddBrowseEvents(events);
    AddUnreadEvents(events);
    AddLeftOutEvents(events);
}

} // namespace tarvix::search
