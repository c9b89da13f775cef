#pragma once

#include "search/locations.h"
#include "search/search_strings.h"
#include "text/dates.h"

#include <cstdint>
#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::fields {
class FrmSearch;
}
namespace tarvix::session {
enum class PromptId : std::uint8_t;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// What is looked for, in the order of `optFilesVsDirs`.
enum class Kind { kFiles, kEmptyFiles, kAllObjects, kFolders, kEmptyFolders };

// Each value is the item data of the entry of `cboSize`.
enum class SizeChoice { kNone = 0, kRange = 1, kAtMost = 2, kAtLeast = 4 };
struct SizeTest {
    SizeChoice choice = SizeChoice::kNone;
    double first = 0;  // bytes; the bounds belong to what passes
    double second = 0; // of a range
    bool operator==(const SizeTest&) const = default;
};

// Each value is the item data of the entry of `cboDate`.
enum class DateChoice { kNone = 0, kRange = 8, kSince = 16, kBefore = 32 };
struct DateTest {
    DateChoice choice = DateChoice::kNone;
    text::DateTime first;  // zero when none was picked; it also stands in for dates that can't be
    text::DateTime second; // of a range
    bool operator==(const DateTest&) const = default;
};

// Which date of an object is tested and listed, in the order of `mnuSearch_DateType`.
enum class DateKind { kModified, kCreated, kAccessed, kUnknown };

// The bits that an object must have, and those that it may have.
struct AttributeMasks {
    std::uint32_t intAttrRequired = 0;
    std::uint32_t intAttrAllowed = 0;
    bool operator==(const AttributeMasks&) const = default;
};

// All that one search is asked for, as values. Whoever searches reads this and no field.
struct SearchRequest {
    std::string searchFor; // the text of `cmbSearchFor`
    SearchStrings strings; // the same as patterns
    std::string searchIn;  // the text of `cmbDir`, or the first default folder in place of a blank
    Locations locations;   // the same as folders, once ParseSearchFolder has looked for them
    Kind kind = Kind::kFiles;
    bool subfolders = false;
    bool isNot = false; // never with several strings, nor in a batch
    bool oneEach = false;
    bool isRepeat = false;
    bool showsContents = false; // a column counts what folders hold
    SizeTest size;
    DateTest date;
    DateKind dateKind = DateKind::kModified;
    AttributeMasks attributes;
    std::string target; // in upper case; empty for any
    // Nobody asks for facts of what is found, and no test needs them: none are read.
    bool namesAlone = false;

    bool IsRecycleAllowed() const {
        return strings.blnRecycleAllowed || locations.blnRecycleAllowed;
    }
};

// The bits of the attribute boxes, in their order.
std::span<const std::uint32_t> AttributeBoxBits();

// Why boxes are refused, as the user is told.
struct Refusal {
    session::PromptId id{};
    std::string text;
};

// Reads the fields of the search form and changes none. `locations` stay empty: whether a folder
// exists is for ParseSearchFolder to say. Fails with all that is wrong with the boxes, size first.
std::expected<SearchRequest, std::vector<Refusal>>
ReadSearchRequest(const session::Session& session);

// The tests that the boxes ask for; none while `chkSize` or `chkDate` is off.
std::expected<SizeTest, Refusal> ValidateSizeBoxes(const fields::FrmSearch& form);
std::expected<DateTest, Refusal> ValidateDateBoxes(const fields::FrmSearch& form);

// From the ten three-state boxes.
AttributeMasks BuildSelectedAttributesVariable(const fields::FrmSearch& form);

// "files", "empty files", "files and folders", "folders" or "empty folders".
std::string_view KindText(Kind kind);

} // namespace tarvix::search
