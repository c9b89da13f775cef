#include "session/object_loop.h"

#include "session/message_style.h"
#include "session/prompt_id.h"
#include "session/prompt_table.h"
#include "session/session.h"

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

using Id = PromptId;

// What is asked or told of one object while many are acted on.
constexpr std::array kOfOneObject{Id::kFileNotFound,         Id::kBadNameInAction,
                                  Id::kPermissionDenied,     Id::kPathNotFound,
                                  Id::kNetworkDenied,        Id::kUnexpectedError,
                                  Id::kDuplicateNotRecycled, Id::kOverwriteNotRecycled,
                                  Id::kReplaceOverlaps,      Id::kWriteOverlaps,
                                  Id::kObjectUnshortened,    Id::kDuplicateUnshortened,
                                  Id::kDeepFolder,           Id::kRuleColon,
                                  Id::kRenameEmpty,          Id::kRenameNoName,
                                  Id::kRenameTaken,          Id::kRenameTakenGoOn};

} // namespace

void ObjectLoop::Begin(std::int64_t objects) {
    isRunning_ = objects > 1;
    skipped_.clear();
}

void ObjectLoop::End() {
    isRunning_ = false;
    skipped_.clear();
}

bool ObjectLoop::Covers(PromptId id) const {
    return isRunning_ && std::ranges::find(kOfOneObject, id) != kOfOneObject.end();
}

bool ObjectLoop::IsSkipped(PromptId id, int error) const {
    return std::ranges::find(skipped_, Skipped{id, error}) != skipped_.end();
}

void ObjectLoop::SkipAll(PromptId id, int error) {
    if (!IsSkipped(id, error)) skipped_.push_back({id, error});
}

bool IsOfAnError(PromptId id) {
    return id == Id::kUnexpectedError;
}

int SkipAnswer(PromptId id) {
    // Its OK goes on with the next object, its Cancel ends the action.
    return id == Id::kRenameTakenGoOn ? kOk : SafeAnswer(FactsOf(id).style);
}

int StopAnswer(PromptId id) {
    return SafeAnswer(FactsOf(id).style);
}

InLoop::InLoop(Session& session, std::int64_t objects) : session_(session) {
    session_.state.loop.Begin(objects);
}

InLoop::~InLoop() {
    session_.state.loop.End();
}

} // namespace tarvix::session
