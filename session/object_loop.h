#pragma once

#include "session/prompt.h"

#include <cstdint>
#include <vector>

namespace tarvix::session {

struct Session;

// What was answered for all objects of an action that meet the same trouble. Nothing stands before
// the first object and behind the last.
class ObjectLoop {
  public:
    // With one object there is nothing to answer for all.
    void Begin(std::int64_t objects);
    void End();

    // Whether the prompt is about the object in hand, so that it can be answered for others too.
    bool Covers(PromptId id) const;
    // The error is 0 for a prompt that isn't about one.
    bool IsSkipped(PromptId id, int error) const;
    void SkipAll(PromptId id, int error);

  private:
    struct Skipped {
        PromptId id;
        int error;
        bool operator==(const Skipped&) const = default;
    };
    bool isRunning_ = false;
    std::vector<Skipped> skipped_;
};

// Whether the same prompt is put for several errors.
bool IsOfAnError(PromptId id);
// What a prompt about one of many objects is answered with when its object is skipped, or the whole
// action ends: the answers of its style that do so.
int SkipAnswer(PromptId id);
int StopAnswer(PromptId id);

// An action goes from object to object as long as this lives.
class InLoop {
  public:
    InLoop(Session& session, std::int64_t objects);
    ~InLoop();
    InLoop(const InLoop&) = delete;
    InLoop& operator=(const InLoop&) = delete;

  private:
    Session& session_;
};

} // namespace tarvix::session
