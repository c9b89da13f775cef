#pragma once

#include "shortcuts/formats/values.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::shortcuts {

// What the text for editing holds of one shortcut.
struct LinkRecord {
    Kind kind = Kind::kNone;
    std::string name;
    Values values;
    bool operator==(const LinkRecord&) const = default;
};

// Whether records of a kind have that value: those of addresses have target, hot key and icon.
bool HasField(Kind kind, Field field);
// "Target", "Start in" ...
std::string_view LabelOf(Field field);

// One line a value behind its label ("Target = "), CR LF; 8 lines, or 4 for an address.
void AppendRecord(std::string& text, const LinkRecord& record);

// What a text gives for records of these kinds, in this order.
struct EditedFile {
    enum class End {
        kWhole,
        kWrongLine, // another label than the one that must stand there, or no more lines
        kLongName,  // of more than 175 characters; the rest isn't read
    };
    std::vector<LinkRecord> records; // those that were read whole
    // For each: its icon has no comma and doesn't count.
    std::vector<bool> hasBadIcon;
    End end = End::kWhole;
};

// Surplus lines aren't read.
EditedFile ParseEditFile(std::string_view text, const std::vector<Kind>& kinds);

} // namespace tarvix::shortcuts
