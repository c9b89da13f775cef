#include "options/expert_mode.h"

#include "options/form_values.h"
#include "session/event_table.h"
#include "session/session.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <initializer_list>

namespace tarvix::options {

namespace {

using fields::FrmOptions;
using session::Session;

constexpr int kEmpty = 0;
constexpr int kGrey = 2;
constexpr int kSafestPattern = 2;

// The values of the ten boxes, in the order of `kAttributeOptions`.
using Pattern = std::array<int, kAttributeOptions.size()>;
using Box = fields::CheckBox FrmOptions::*;

Pattern PatternOf(std::initializer_list<Box> grey) {
    Pattern pattern{};
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isGrey = std::ranges::find(grey, kAttributeOptions[i].box) != grey.end();
        pattern[i] = isGrey ? kGrey : kEmpty;
    }
    return pattern;
}

// By the index of `optAttribDef`. Where paths are native nothing is left out for how it is stored.
Pattern AttributePattern(const Session& session, int index) {
    using Form = FrmOptions;
    if (index == 0) {
        Pattern all{};
        all.fill(kGrey);
        return all;
    }
    const bool isReadOnlyToo = index == 1;
    if (session.platform.traits.hasNativePaths) {
        return isReadOnlyToo ? PatternOf({&Form::chkReadOnly, &Form::chkArchive, &Form::chk128,
                                          &Form::chk512, &Form::chkCompressed})
                             : PatternOf({&Form::chkArchive, &Form::chk128, &Form::chk512,
                                          &Form::chkCompressed});
    }
    return isReadOnlyToo ? PatternOf({&Form::chkReadOnly, &Form::chkArchive})
                         : PatternOf({&Form::chkArchive});
}

Pattern PatternNow(const FrmOptions& form) {
    Pattern pattern{};
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        pattern[i] = (form.*kAttributeOptions[i].box).Value;
    }
    return pattern;
}

void SetPattern(Session& session, int index) {
    auto& form = session.forms.frmOptions;
    const Pattern pattern = AttributePattern(session, index);
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        (form.*kAttributeOptions[i].box).Value = pattern[i];
    }
}

void optAttribDef_Click(Session& session, const session::EventArgs& args) {
    if (args.index >= 0) SetPattern(session, args.index);
}

void chkAllowAll_Click(Session& session) {
    auto& form = session.forms.frmOptions;
    if (form.chkAllowAll.Value == 0) {
        form.chkAllowUserSelectSubfolders.Value = form.chkAutoOptions.Value =
            form.chkDefaultToIncludeSubfolders.Value = 0;
        if (form.optAttribDef.Chosen() < 0) form.optAttribDef.Choose(kSafestPattern);
        SetPattern(session, form.optAttribDef.Chosen());
    }
    LockByExpertMode(form);
}

// The three states in turn; no pattern may fit then.
void StepBox(Session& session, Box which) {
    auto& form = session.forms.frmOptions;
    auto& box = form.*which;
    box.Value = (box.Value + 1) % 3;
    ShowPattern(session, form);
}

} // namespace

void LockByExpertMode(FrmOptions& form) {
    const bool isExpert = form.chkAllowAll.Value == 1;
    form.chkAllowUserSelectSubfolders.Enabled = form.chkAutoOptions.Enabled =
        form.chkDefaultToIncludeSubfolders.Enabled = isExpert;
    form.fraAttribDef.Enabled = !isExpert;
    form.optAttribDef.SetEnabled(!isExpert);
    form.fraAttribDefExpert.Enabled = isExpert;
    for (const AttributeOption& attribute : kAttributeOptions) {
        (form.*attribute.box).Enabled = isExpert;
    }
}

void ShowPattern(Session& session, FrmOptions& form) {
    const Pattern now = PatternNow(form);
    int fitting = -1;
    for (int i = form.optAttribDef.Count() - 1; i >= 0; --i) {
        if (AttributePattern(session, i) == now) fitting = i;
    }
    form.optAttribDef.Choose(fitting);
}

void AddExpertModeEvents(session::EventTable& events) {
    events.On("frmOptions.chkAllowAll_Click", chkAllowAll_Click);
    events.On("frmOptions.optAttribDef_Click", optAttribDef_Click);
    const FrmOptions names;
    for (const AttributeOption& attribute : kAttributeOptions) {
        const std::string& name = (names.*attribute.box).Name();
        events.On(fmt::format("frmOptions.{}_Click", name),
                  [box = attribute.box](Session& session, const session::EventArgs&) {
                      StepBox(session, box);
                  });
        events.On(fmt::format("frmOptions.{}_Change", name),
                  [](Session& session, const session::EventArgs&) {
                      ShowPattern(session, session.forms.frmOptions);
                  });
    }
}

} // namespace tarvix::options
