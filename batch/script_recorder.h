#pragma once

#include "session/input_recorder.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::batch {

// The event that ends a recording, if there is one, as the menu entry does.
constexpr std::string_view kEndRecording = "frmSearch.EndRecording";

// Writes what the user does as a script that does it again: the criteria as they stand at first,
// then a statement for each deed, with the answers to its questions before it.
class ScriptRecorder : public session::InputRecorder {
  public:
    explicit ScriptRecorder(session::Session& session);
    // The script up to now.
    std::string Text();

    void Clicked(const fields::Control& control) override;
    void Entered(const fields::Control& control, std::string_view value) override;
    void Left(const fields::Control& control) override;
    void Reset(const fields::Control& control) override;
    void Selected() override;
    void Sorted(int column) override;
    void Opened(int row) override;
    void Answered(std::string_view answer) override;

  private:
    // The statement goes on being the last one until the next comes, so that answers stand before
    // it.
    void Hold(std::string statement);
    void Settle();
    void WriteCriteria();
    void WriteList();
    void Set(const fields::Control& control, std::string_view value);
    std::string SelectStatement() const;

    session::Session& session_;
    std::string text_;
    std::string held_;
    std::string typedInto_; // the control that the held statement types into
    std::uint64_t heldAtYield_ = 0;
    bool isSelecting_ = false; // rows were selected since the last statement
};

// Record a Script: asks for the file and records until it is chosen again.
void AddRecorderEvents(session::EventTable& events);

} // namespace tarvix::batch
