#pragma once

#include "batch/page_show.h"

#include <memory>
#include <optional>
#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::batch {

// Asks for all of a show of pages and starts it; its pages go on in the events of the timer.
void AskAndShowPages(session::Session& session, PageShow& show);

// The seconds of a page, from 1 to 655; nothing for a text that is none.
std::optional<double> ReadPageSeconds(std::string_view typed);

// Whether the text is not empty and holds only digits and points, and isn't a lone point.
bool IsNumericText(std::string_view text);

// The menu entry, which also ends a show that goes on, and the ticks of `Timer1`.
void AddPageEvents(session::EventTable& events);

} // namespace tarvix::batch
