#pragma once

#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "platform/file_system.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;
struct Object;

// Moves and renames of files for which nothing has to be asked, told or made: they go to their
// places one after the other while the next ones are prepared. At the first that meets anything
// else no other is begun; it and those behind it go by the ordinary steps, in their order.
class PlainMoves {
  public:
    struct Ends {
        // Takes the outcome of one that was made or went astray.
        std::function<void(Outcome)> settle;
        // Puts the object of that index through the ordinary steps; false ends the run.
        std::function<bool(std::size_t)> place;
    };

    PlainMoves(session::Session& session, ActionRun& run, Verb verb, Ends ends)
        : session_(session), run_(run), verb_(verb), ends_(std::move(ends)) {}
    // What isn't begun stays.
    ~PlainMoves();
    PlainMoves(const PlainMoves&) = delete;
    PlainMoves& operator=(const PlainMoves&) = delete;

    // Whether it took on the object; `path` is where it goes, in its final form. Where it didn't
    // nothing was done, and the object goes by the ordinary steps once Finish has settled all that
    // come before it.
    bool Take(const Object& object, const std::string& path);
    // Settles all that were taken on; once the user stops, those alone that were begun. False ends
    // the run.
    bool Finish();

  private:
    static constexpr std::size_t kLeast = 16;

    struct Handed {
        std::size_t index;
        std::int64_t at; // nanoseconds that only grow
        std::string path;
        std::string line; // for the log, where the machine doesn't write it
    };

    bool IsPlain(const Object& object, std::string_view path) const;
    void Pause();
    bool Hand(const Object& object, const std::string& path);
    void Note(Handed& handed, platform::MoveNote& note, std::string_view source,
              std::string_view place);
    // So many on their way that each waits but for a moment.
    void FitTo(std::int64_t waited);
    // False ends the run.
    bool Settle(platform::MoveWait wait);
    void SettleMade();
    void SettleAstray(const platform::PlatformError& error);
    bool MakeRoom();

    session::Session& session_;
    ActionRun& run_;
    const Verb verb_;
    const Ends ends_;
    std::deque<Handed> handed_;
    std::size_t most_ = kLeast; // on their way at once
    std::size_t taken_ = 0;     // in a row
    std::size_t refused_ = 0;   // grows where that is seldom many
    std::size_t pause_ = 0;     // so many are not tried
    bool hasEnded_ = false;
};

} // namespace tarvix::actions
