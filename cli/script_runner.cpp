#include "cli/script_runner.h"

#include "cli/dump.h"
#include "cli/nearest.h"
#include "cli/print_rows.h"
#include "results/row_selector.h"
#include "session/native_entry.h"
#include "session/session.h"
#include "text/case.h"
#include "text/like.h"

#include <fmt/core.h>

#include <memory>
#include <ostream>
#include <utility>

namespace tarvix::cli {

using session::InputResult;

namespace {

InputResult Wrong(std::string sentence) {
    return std::unexpected(std::move(sentence));
}

InputResult NoRow(std::uint64_t number, std::size_t count) {
    return Wrong(fmt::format("There is no row {}: the list has {}.", number, count));
}

std::string NoForm(const fields::Forms& forms, const std::string& name) {
    return fmt::format("There is no form \"{}\".{}", name,
                       DidYouMean(name, forms.all, &fields::Form::Name));
}

std::string NoControl(const fields::Forms& forms, const fields::Form& form,
                      const std::string& name) {
    for (const fields::Form* other : forms.all) {
        if (other != &form && other->Find(name)) {
            return fmt::format("{0} has no control \"{1}\"; {2} has one: write {2}.{1}.",
                               form.Name(), name, other->Name());
        }
    }
    return fmt::format("{} has no control \"{}\".{}", form.Name(), name,
                       DidYouMean(name, form.Controls(), &fields::Control::Name));
}

} // namespace

ScriptRunner::ScriptRunner(std::vector<Statement> statements, session::ScriptedPrompts& prompts,
                           std::ostream& out)
    : statements_(std::move(statements)), prompts_(prompts), out_(out) {}

void ScriptRunner::QueueLeadingAnswers() {
    while (next_ < statements_.size() && statements_[next_].kind == StatementKind::kAnswer)
        prompts_.Queue(statements_[next_++].value);
}

void ScriptRunner::Run(results::Program& program) {
    program_ = &program;
    prompts_.SetModalRunner(
        [this](session::Session&, fields::Form& form) { return RunInside(form); });
    running_ = true;
    // However it ends, the unload that follows is no part of the script.
    const std::shared_ptr<void> ending(nullptr, [this](void*) {
        running_ = false;
        prompts_.SetModalRunner({});
    });
    while (next_ < statements_.size())
        RunNext();
}

bool ScriptRunner::RunInside(fields::Form& form) {
    modal_.push_back(&form);
    while (form.IsShown() && next_ < statements_.size())
        RunNext();
    modal_.pop_back();
    return !form.IsShown();
}

void ScriptRunner::RunNext() {
    const Statement& statement = statements_[next_++];
    line_ = statement.line;
    CheckInterruption();
    if (const auto done = Execute(statement); !done) return Stop(statement.line, done.error());
    const auto& totals = Session().state.lastAction;
    someFailed_ = someFailed_ || !totals.IsAsAsked();
    CheckInterruption();
}

void ScriptRunner::CheckInterruption() {
    if (!interrupted_()) return;
    Stop(line_, "The script was interrupted here. Nothing behind this line is done.");
}

void ScriptRunner::Stop(int line, std::string sentence) {
    ScriptStopped stopped{line, std::move(sentence)};
    if (!troubled_) throw stopped;
    Drop();
    troubled_(stopped);
}

InputResult ScriptRunner::Execute(const Statement& statement) {
    switch (statement.kind) {
    case StatementKind::kSet:
    case StatementKind::kClick:
    case StatementKind::kLeave:
    case StatementKind::kReset:
    case StatementKind::kAfter:
    case StatementKind::kDumpControl:
        return ExecuteOnControl(statement);
    case StatementKind::kColumn:
        return ClickColumn(statement);
    case StatementKind::kSelectRows:
    case StatementKind::kSelectLike:
        return Select(statement);
    case StatementKind::kSelectNone:
        return session::UserClick(Session(), Session().frmSearch.cmdSelectNone);
    case StatementKind::kDoubleClick:
        return DoubleClick(statement);
    case StatementKind::kRightClick:
        return RightClick(statement);
    case StatementKind::kAnswer:
        prompts_.Queue(statement.value);
        return {};
    default:
        return Dump(statement);
    }
}

InputResult ScriptRunner::ExecuteOnControl(const Statement& statement) {
    const auto control = FindControl(statement.target);
    if (!control) return Wrong(control.error());
    if (statement.kind == StatementKind::kDumpControl) {
        const std::string text = (*control)->ValueText();
        const bool isPath = session::TakesPaths(**control);
        out_ << CellField(isPath ? session::EntryShown(Session(), **control, text) : text) << '\n';
        return {};
    }
    if (auto reachable = CheckReachable(**control); !reachable) return reachable;
    if (statement.kind == StatementKind::kClick) return session::UserClick(Session(), **control);
    if (statement.kind == StatementKind::kLeave) {
        session::UserLeave(Session(), **control);
        return {};
    }
    if (statement.kind == StatementKind::kReset) return session::UserReset(Session(), **control);
    if (statement.kind == StatementKind::kAfter) {
        ClickAfter(statement, **control);
        return {};
    }
    return session::UserSet(Session(), **control, statement.value);
}

void ScriptRunner::ClickAfter(const Statement& statement, fields::Control& control) {
    const auto click = [this, line = statement.line, &control] {
        if (!running_) return;
        const auto done = session::UserClick(Session(), control);
        if (!done) Stop(line, done.error());
    };
    Session().yielder.After(statement.numbers.front(), click);
}

fields::Form& ScriptRunner::Top() {
    return modal_.empty() ? static_cast<fields::Form&>(Session().frmSearch) : *modal_.back();
}

std::expected<fields::Control*, std::string> ScriptRunner::FindControl(const std::string& name) {
    const fields::Forms& forms = Session().forms;
    const std::size_t dot = name.find('.');
    const fields::Form* form = &Top();
    if (dot != name.npos) form = forms.Find(name.substr(0, dot));
    if (!form) return std::unexpected(NoForm(forms, name.substr(0, dot)));
    const std::string bare = dot == name.npos ? name : name.substr(dot + 1);
    if (fields::Control* control = form->Find(bare)) return control;
    return std::unexpected(NoControl(forms, *form, bare));
}

InputResult ScriptRunner::CheckReachable(const fields::Control& control) {
    const fields::Form& owner = control.Owner();
    if (&owner == &Top()) return {};
    // It stands in the main window.
    const fields::Form& page = Session().forms.frmOutcome;
    if (&owner == &page && page.IsShown() && modal_.empty()) return {};
    const bool isOpen = &owner == &Session().frmSearch || owner.IsShown();
    return Wrong(fmt::format("{}.{} can't be used: {}", owner.Name(), control.Name(),
                             isOpen ? fmt::format("{} is open in front of it.", Top().Name())
                                    : fmt::format("{} isn't open.", owner.Name())));
}

InputResult ScriptRunner::ClickColumn(const Statement& statement) {
    auto& list = Session().frmSearch.lstMain;
    if (auto usable = session::CanUse(list); !usable) return usable;
    session::UserSort(Session(), statement.columns.front());
    return {};
}

InputResult ScriptRunner::Select(const Statement& statement) {
    if (auto usable = session::CanUse(Session().frmSearch.lstMain); !usable) return usable;
    auto& rows = program_->Rows();
    const std::size_t count = rows.Count();
    for (const std::uint64_t number : statement.numbers) {
        if (number <= count) continue;
        return NoRow(number, count);
    }
    const bool byName = statement.kind == StatementKind::kSelectLike;
    const text::LikePattern pattern(statement.value, true);
    std::size_t last = count;
    for (std::size_t row = 0; row < count; ++row) {
        results::ResultRow& candidate = rows.At(row);
        candidate.selected = byName && !candidate.IsSpacer() && pattern.Matches(candidate.name);
        if (candidate.selected) last = row;
    }
    for (const std::uint64_t number : statement.numbers) {
        last = number - 1;
        rows.At(last).selected = !rows.At(last).IsSpacer();
    }
    session::UserSelect(Session(), static_cast<int>(last));
    return {};
}

InputResult ScriptRunner::DoubleClick(const Statement& statement) {
    if (auto usable = session::CanUse(Session().frmSearch.lstMain); !usable) return usable;
    const std::uint64_t number = statement.numbers.front();
    const std::size_t count = program_->Rows().Count();
    if (number > count) return NoRow(number, count);
    session::UserOpen(Session(), static_cast<int>(number - 1));
    return {};
}

// As in the window: a row that isn't selected is selected first, alone.
InputResult ScriptRunner::RightClick(const Statement& statement) {
    if (auto usable = session::CanUse(Session().frmSearch.lstMain); !usable) return usable;
    auto& rows = program_->Rows();
    const std::uint64_t number = statement.numbers.front();
    if (number > rows.Count()) return NoRow(number, rows.Count());
    const std::size_t row = number - 1;
    if (!rows.At(row).selected && !rows.At(row).IsSpacer()) {
        results::RowSelector(rows).SelectOnly(row);
        session::UserSelect(Session(), static_cast<int>(row));
    }
    session::UserMenu(Session());
    return {};
}

InputResult ScriptRunner::Dump(const Statement& statement) {
    auto& files = Session().files();
    const auto& state = Session().state;
    switch (statement.kind) {
    case StatementKind::kDumpList:
        DumpList(Session(), statement.columns, out_);
        break;
    case StatementKind::kDumpPrompts:
        DumpPrompts(prompts_.Records(), out_);
        break;
    case StatementKind::kDumpLog:
        DumpFile(files, state.strActionLogFile, out_);
        break;
    default:
        DumpFile(files, state.strErrorLogFile, out_);
    }
    return {};
}

} // namespace tarvix::cli
