#pragma once

#include "platform/object_facts.h"
#include "text/dates.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// The bits that an object must have, and those that it may have.
struct AttributeMasks {
    std::uint32_t intAttrRequired = 0;
    std::uint32_t intAttrAllowed = 0;
};

// From the ten three-state boxes.
AttributeMasks BuildSelectedAttributesVariable(const session::Session& session);
// The folder bit of a folder is left out of the test; every other bit counts.
bool DoesObjectMatchAttributesSelected(const AttributeMasks& masks,
                                       const platform::ObjectFacts& facts);

// The size and the local date of the chosen kind, as the tests and the row take them.
struct TestedFacts {
    double dblObjectSize = 0;
    text::DateTime datObjectDate;
};

// The size and date criteria of one search, read once from the boxes: they are locked meanwhile.
class Filters {
  public:
    explicit Filters(session::Session& session);

    // False for an unknown kind of date (told and logged). A date that can't be true is logged and
    // replaced by the first date box, or 1980, so that it drops no object by itself.
    bool GetFacts(const platform::ObjectFacts& facts, std::string_view folder,
                  std::string_view name, TestedFacts& result);
    bool CheckSizeAndDate(const TestedFacts& facts) const;
    bool CheckDate(const TestedFacts& facts) const;

  private:
    enum class SizeTest { kNone, kAtLeast, kAtMost, kRange, kInvalid };
    enum class DateTest { kNone, kSince, kBefore, kRange, kInvalid };
    enum class DateKind { kModified, kCreated, kAccessed, kInvalid };

    static SizeTest SizeTestOf(std::string_view text);
    static DateTest DateTestOf(std::string_view text);
    platform::FileTime TimeOf(const platform::ObjectFacts& facts) const;
    bool PassesSize(double size) const;
    bool PassesDate(const text::DateTime& date) const;
    void ReplaceBadDate(std::string_view folder, std::string_view name, TestedFacts& result);

    session::Session& session_;
    SizeTest sizeTest_ = SizeTest::kNone;
    DateTest dateTest_ = DateTest::kNone;
    DateKind dateKind_ = DateKind::kModified;
    double size1_ = 0;
    double size2_ = 0;
    text::DateTime date1_;
    text::DateTime date2_;
};

// Years 1980 to `latestYear`; February 29 needs a year that 4 divides.
bool IsValidDate(int day, int month, int year, int latestYear);
bool IsValidTime(int hour, int minute, int second);

} // namespace tarvix::search
