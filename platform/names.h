#pragma once

#include <string>
#include <string_view>

namespace tarvix::platform {

// A name on disk is any bytes but "/" and NUL; a drive path reserves some of them. What it can't
// hold is carried as U+F000 plus the code: \ : * ? " < > | and the control characters 1 to 31, a
// blank in front, a blank or dot at the end; and byte by byte what is no valid UTF-8 and what lies
// in U+F000 to U+F0FF itself. So every name has a drive form, which gives its bytes back.

// Disk name to drive form.
std::string NameToDrive(std::string_view nativeName);
void AppendNameToDrive(std::string& out, std::string_view nativeName);

// A piece of a name: blanks and dots at its ends stay, whatever else can't be is carried.
std::string PieceToDrive(std::string_view nativePiece);

// Drive form to disk name. A "?" or "*" stays as it is and so names nothing that can be opened.
std::string NameToNative(std::string_view driveName);
void AppendNameToNative(std::string& out, std::string_view driveName);

// False for a text that carries nothing; now and then true for one that does not, either.
bool MayHoldCarried(std::string_view text);

// Drive form of a text that a user typed for a part of a name: what drive paths reserve is carried,
// all else, a "/" too, stays as it is.
std::string CarryReserved(std::string_view typed);

// Whether one component of a drive path can be the name of an object: not empty, not "." or "..",
// valid UTF-8, and none of \ / : * ? " < > | or the control characters 0 to 31 as themselves. What
// can't gives error 52.
bool CanBeName(std::string_view driveName);

// What people are shown of a drive path or any text that names hold: carried characters as
// themselves, control characters among them as U+2400 pictures, bytes that are no text as \xNN.
std::string ForDisplay(std::string_view driveText);
// The same of a native path.
std::string NativeForDisplay(std::string_view native);
void AppendNativeForDisplay(std::string& out, std::string_view native);

// The "file://" address of an absolute native path, every byte that is no plain character as %XX.
std::string FileAddress(std::string_view native);

} // namespace tarvix::platform
