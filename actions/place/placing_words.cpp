#include "actions/place/placing_words.h"

#include "text/characters.h"

#include <array>
#include <cstddef>

namespace tarvix::actions {

namespace {

struct Words {
    std::string_view doing;
    std::string_view as;
    std::string_view done;
    std::string_view into;
    std::string_view beforeMode;
    std::string_view end;
};
constexpr std::array<Words, 3> kWords{{
    {"Copying ", "  to  ", " Copy ", " -- to -- ", " ", ""},
    {"Moving ", "  to  ", " Move ", " -- to -- ", "", "."},
    {"Renaming ", "  as  ", " Renamed ", " -- as -- ", "", ""},
}};

} // namespace

void AppendPlacing(std::string& status, Verb verb, std::string_view source,
                   std::string_view place) {
    const Words& words = kWords[static_cast<std::size_t>(verb)];
    status.append(words.doing).append(source).append(words.as).append(place);
}

std::string PlacedLine(Verb verb, std::string_view source, std::string_view place,
                       std::string_view mode) {
    const Words& words = kWords[static_cast<std::size_t>(verb)];
    return text::Concat({words.done, source, words.into, place, words.beforeMode, mode, words.end});
}

} // namespace tarvix::actions
