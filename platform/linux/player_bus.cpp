#include "platform/linux/player_bus.h"

#include "platform/linux/late_gio.h"
#include "text/case.h"

namespace tarvix::platform {

namespace {

constexpr const char* kObject = "/org/mpris/MediaPlayer2";
constexpr const char* kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";
constexpr std::string_view kPrefix = "org.mpris.MediaPlayer2.";

// "org.mpris.MediaPlayer2.vlc.instance123" is one of vlc.
bool IsPlayer(std::string_view name, std::string_view program) {
    if (!name.starts_with(kPrefix)) return false;
    name.remove_prefix(kPrefix.size());
    return text::EqualNoCase(name.substr(0, name.find('.')), program) ||
           text::EqualNoCase(name, program);
}

} // namespace

PlayerBus::PlayerBus(const std::string& program) {
    for (const std::string& name : bus_.Names()) {
        if (!IsPlayer(name, program)) continue;
        const BusMethod list{name, kObject, "org.mpris.MediaPlayer2.TrackList", ""};
        const auto editable = bus_.Property(list, "CanEditTracks");
        if (!editable || !TX_GIO(g_variant_is_of_type)(editable->get(), VariantType("b"))) continue;
        if (!TX_GIO(g_variant_get_boolean)(editable->get())) continue;
        name_ = name;
        return;
    }
}

BusMethod PlayerBus::On(const char* method) const {
    return {name_, kObject, "org.mpris.MediaPlayer2.TrackList", method};
}

Result<void> PlayerBus::Append(const std::string& address, bool plays) const {
    const auto tracks = bus_.Property(On(""), "Tracks");
    if (!tracks) return std::unexpected(tracks.error());
    std::string last = kNoTrack;
    if (TX_GIO(g_variant_is_of_type)(tracks->get(), VariantType("ao"))) {
        const gsize count = TX_GIO(g_variant_n_children)(tracks->get());
        if (count > 0) {
            const Variant track(TX_GIO(g_variant_get_child_value)(tracks->get(), count - 1));
            last = TX_GIO(g_variant_get_string)(track.get(), nullptr);
        }
    }
    const auto added = bus_.Call(
        On("AddTrack"), TX_GIO(g_variant_new)("(sob)", address.c_str(), last.c_str(), plays));
    if (!added) return std::unexpected(added.error());
    if (!plays) return {};
    // One that was paused stays so on its new track.
    (void)bus_.Call({name_, kObject, "org.mpris.MediaPlayer2.Player", "Play"}, nullptr);
    return {};
}

} // namespace tarvix::platform
