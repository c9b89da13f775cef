#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Copies one object to its destination (a full new path, brought into its final form first). With
// the mode "overwrite" what stands there goes to the recycle bin before. A read-only, hidden or
// system object can be copied, and the new one bears its attributes, combined with those of what it
// overwrote. What it did goes to the action log; an error ends in `HandleError` and leaves the
// source whole, nothing under the new name, and `blnErrorOccurred` set.
void CopyObject(session::Session& session, const std::string& strSource,
                const std::string& strSourceActual, std::string strDestination, bool blnIsFile,
                std::string_view strMode);

// The same for a move, or with `blnIsRename` a rename. Where the system refuses the move, the
// object is copied and the original recycled.
void MoveObject(session::Session& session, const std::string& strSource,
                const std::string& strSourceActual, std::string strDestination, bool blnIsFile,
                bool blnIsRename, std::string_view strMode);

// Puts the object in hand at `strDestination` in place of the object there; nothing when the two
// are the same.
void OverWriteDuplicate(session::Session& session);

// Puts the object in hand at `strDestination`, where nothing stands: by a move if that is the
// action, but a system or hidden object is always copied. Nothing without a destination.
void PerformMoveOrCopy(session::Session& session);

// A new path as it will be used: a blank next to a separator is never kept, since no folder can be
// made so, but a name of blanks alone is. A rename keeps the folder, however it is spelt.
std::string CleanedDestination(const std::string& path, bool isRename = false);

// The attributes that are carried: read-only, hidden, system and archive.
std::uint32_t CombineAttributes(std::uint32_t a, std::uint32_t b);

} // namespace tarvix::actions
