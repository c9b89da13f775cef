#pragma once

#include <string>
#include <string_view>

namespace tarvix::platform {

// Names on disk may hold characters that drive paths reserve: \ : * ? " < > | and the control
// characters 1 to 31. Each is carried as U+F000 plus its code.

// Disk name (any bytes but "/" and NUL) to drive form. Bytes that are not UTF-8, and characters
// that already lie where carried ones go, become "?": such a name can't be opened.
std::string NameToDrive(std::string_view nativeName);
void AppendNameToDrive(std::string& out, std::string_view nativeName);

// Drive form to disk name. A "?" or "*" stays as it is and so names nothing that can be opened.
std::string NameToNative(std::string_view driveName);
void AppendNameToNative(std::string& out, std::string_view driveName);

// The same for text that a user typed for a part of a name: what drive paths reserve is carried,
// all else, a "/" too, stays as it is.
std::string CarryReserved(std::string_view typed);

// Whether one component of a drive path can be the name of an object: not empty, not "." or "..",
// valid UTF-8, and none of \ / : * ? " < > | or the control characters 0 to 31 as themselves. What
// can't gives error 52.
bool CanBeName(std::string_view driveName);

// What people are shown: carried characters as themselves, control characters as U+2400 pictures.
std::string ForDisplay(std::string_view driveText);

} // namespace tarvix::platform
