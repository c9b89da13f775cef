#pragma once

#include <string>

namespace tarvix::fields {

// What is told of one of two objects that want the same place. Texts that aren't known are empty.
struct AskedObject {
    std::string folder;
    std::string name;
    bool isFile = true;
    std::string size;    // of a file
    std::string version; // of a program file
    std::string os;      // the system that it is for
    std::string date;
};

// The question about a duplicate in its parts.
struct DuplicateQuestion {
    std::string question; // down to "replace existing"
    AskedObject existing;
    AskedObject thisOne;
    std::string rule; // how a duplicate would be renamed
};

// The lines on one object, and the whole as it is told where nothing stands side by side.
std::string TextOf(const AskedObject& object);
std::string TextOf(const DuplicateQuestion& question);

} // namespace tarvix::fields
