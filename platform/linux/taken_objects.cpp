#include "platform/linux/taken_objects.h"

#include "text/characters.h"

namespace tarvix::platform {

// Most often it is the folder of the object before.
std::uint32_t TakenObjects::PlaceOf(std::string_view folder, std::string_view trash) {
    if (!records_.empty()) {
        const Place& last = places_[records_.back().place];
        if (last.folder == folder && last.trash == trash) return records_.back().place;
    }
    const auto next = static_cast<std::uint32_t>(places_.size());
    const std::string key = text::Concat({folder, std::string_view("\0", 1), trash});
    const auto [found, isNew] = placeNumbers_.try_emplace(key, next);
    if (isNew) places_.push_back({std::string(folder), std::string(trash)});
    return found->second;
}

void TakenObjects::Add(const Taken& taken) {
    Record record;
    record.place = PlaceOf(taken.folder, taken.trash);
    record.name = names_.size();
    record.nameSize = static_cast<std::uint16_t>(taken.name.size());
    names_ += taken.name;
    if (taken.held != taken.name) {
        record.heldSize = static_cast<std::uint16_t>(taken.held.size());
        names_ += taken.held;
    }
    record.stamp = taken.stamp;
    records_.push_back(record);
}

std::optional<TakenObjects::Taken> TakenObjects::At(std::size_t number) const {
    if (number >= records_.size()) return std::nullopt;
    const Record& record = records_[number];
    const Place& place = places_[record.place];
    const std::string_view names = std::string_view(names_).substr(record.name);
    const std::string_view name = names.substr(0, record.nameSize);
    const std::string_view held =
        record.heldSize == 0 ? name : names.substr(record.nameSize, record.heldSize);
    return Taken{place.folder, name, place.trash, held, record.stamp};
}

} // namespace tarvix::platform
