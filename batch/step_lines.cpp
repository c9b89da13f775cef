#include "batch/step_lines.h"

#include "platform/try.h"

#include <utility>

namespace tarvix::batch {

using platform::Result;

Result<void> StepLines::Restart() {
    destination_.clear();
    TX_TRY(searches_.Restart());
    return destinations_.Restart();
}

Result<std::optional<StepLine>> StepLines::Next() {
    TX_TRY_ASSIGN(std::string search, searches_.Next());
    if (destination_ == kRepeatMark) TX_TRY(destinations_.Restart());
    TX_TRY_ASSIGN(destination_, destinations_.Next());
    if (search == kEndMark) return std::optional<StepLine>();
    return StepLine{std::move(search), destination_};
}

Result<void> StepLines::ReadPastMark() {
    TX_TRY(searches_.Next());
    return {};
}

} // namespace tarvix::batch
