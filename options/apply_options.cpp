#include "options/apply_options.h"

#include "session/lifecycle/startup.h"
#include "session/lifecycle_events.h"
#include "session/remembered/options_file.h"
#include "session/session.h"
#include "session/settings/option_values.h"

#include <utility>

namespace tarvix::options {

namespace {

using session::OptionKey;
using session::Options;
using session::Session;

bool IsSame(const Options& before, const Options& now, const OptionKey& key) {
    return session::OptionLines(before, key) == session::OptionLines(now, key);
}

// The attribute boxes take their options each time, whatever they were set to meanwhile.
void ShowOnMainForm(Session& session, const Options& before) {
    const auto& now = session.state.options;
    for (const OptionKey& key : session::kOptionKeys) {
        if (!key.box.empty() || !IsSame(before, now, key)) session::ShowOption(session, key);
    }
    session.events.Raise(session, lifecycle::kPaintAttributeBoxes);
    session.frmSearch.lstMain.Tip = now.blnAllowAll ? "" : std::string(lifecycle::kListTip);
}

void ShowOnList(Session& session, const Options& before) {
    const auto& now = session.state.options;
    const bool isSorted = before.bytSortBy == now.bytSortBy && before.blnSort == now.blnSort;
    const bool isShown = before.blnListItems == now.blnListItems;
    if (!isShown) {
        session.state.blnColumnsChanged = true;
        fields::NoteChange(session.frmSearch.lstMain);
    }
    if (isSorted) return;
    session::ApplyColumnsToList(session);
    session.events.Raise(session, lifecycle::kArrangeRows);
}

// All that shows a path.
void ShowPathsAnew(Session& session) {
    for (fields::Form* form : session.forms.all) {
        for (fields::Control* control : form->Controls()) {
            fields::NoteChange(*control);
        }
    }
}

} // namespace

void ApplyOptions(Session& session, Options options, session::PlatformSettings settings) {
    auto& state = session.state;
    const Options before = std::exchange(state.options, std::move(options));
    const bool showedNative =
        std::exchange(state.platformSettings, std::move(settings)).showsNative;
    ShowOnMainForm(session, before);
    ShowOnList(session, before);
    if (showedNative != state.platformSettings.showsNative) ShowPathsAnew(session);
}

} // namespace tarvix::options
