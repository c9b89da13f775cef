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
    // How it differs from the other one: "larger", "newer"; empty where it doesn't.
    std::string sizeNote;
    std::string dateNote;
};

// The question about a duplicate in its parts.
struct DuplicateQuestion {
    std::string question; // down to "replace existing"
    AskedObject existing;
    AskedObject thisOne;
    std::string rule; // how a duplicate would be renamed

    // What a window has besides.
    std::string headline;
    std::string position; // of the object in hand among all: "3 of 8"
    std::string content;  // whether both hold the same
    std::string newName;  // that a rename would give; empty where there is none
    std::string rest;     // what a cancel leaves undone
};

// The lines on one object, and the whole as it is told where nothing stands side by side.
std::string TextOf(const AskedObject& object);
std::string TextOf(const DuplicateQuestion& question);

} // namespace tarvix::fields
