#include "platform/rehearsal/rehearsal_steps.h"

namespace tarvix::platform {

RehearsedStep RehearsalSteps::operator[](std::size_t index) const {
    const Record& record = records_[index];
    const std::string_view both =
        std::string_view(texts_).substr(record.offset, record.fromLength + record.toLength);
    return {record.operation, both.substr(0, record.fromLength), both.substr(record.fromLength)};
}

void RehearsalSteps::Add(TreeChange operation, std::string_view from, std::string_view to) {
    records_.push_back({texts_.size(), static_cast<std::uint32_t>(from.size()),
                        static_cast<std::uint32_t>(to.size()), operation});
    texts_ += from;
    texts_ += to;
}

void RehearsalSteps::Clear() {
    texts_.clear();
    records_.clear();
}

} // namespace tarvix::platform
