#pragma once

#include "platform/linux/trash_folder.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvix::platform {

// What a trash took since the start, by numbers from 0 on. Folders are kept once and names in one
// block, so that an object costs 48 bytes besides its name.
class TakenObjects {
  public:
    // Where an object was, by its folder and disk name, and where it lies now; native paths.
    struct Taken {
        std::string_view folder;
        std::string_view name;
        std::string_view trash;
        std::string_view held; // name in the trash
        TrashStamp stamp;
    };

    void Add(const Taken& taken);
    std::size_t Count() const { return records_.size(); }
    // The views stay until the next Add. Nothing for a number that was never given.
    std::optional<Taken> At(std::size_t number) const;

  private:
    struct Record {
        std::uint64_t name = 0; // in the block; the name in the trash follows where it is another
        TrashStamp stamp;
        std::uint32_t place = 0;
        std::uint16_t nameSize = 0;
        std::uint16_t heldSize = 0; // 0: the same name
    };
    // A folder, and the trash that its objects go to.
    struct Place {
        std::string folder;
        std::string trash;
    };

    std::uint32_t PlaceOf(std::string_view folder, std::string_view trash);

    std::vector<Record> records_;
    std::string names_;
    std::deque<Place> places_;
    std::unordered_map<std::string, std::uint32_t> placeNumbers_; // by folder and trash
};

} // namespace tarvix::platform
