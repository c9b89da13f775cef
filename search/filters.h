#pragma once

#include "platform/object_facts.h"
#include "results/result_list.h"
#include "search/search_request.h"
#include "text/dates.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// The folder bit of a folder is left out of the test; every other bit counts.
bool DoesObjectMatchAttributesSelected(const AttributeMasks& masks,
                                       const platform::ObjectFacts& facts);

// The size and the local date of the chosen kind, as the tests and the row take them. The date in
// parts is made only where it is tested.
struct TestedFacts {
    double dblObjectSize = 0;
    std::int64_t seconds = results::kNoDate; // the date as text::ToSeconds gives it
    text::DateTime datObjectDate;
};

// The tests of one request on each object. The request must outlive this.
class Filters {
  public:
    Filters(session::Session& session, const SearchRequest& request);

    // Whether it has the attributes that are asked for, and none that a box refuses.
    bool CheckAttributes(const platform::ObjectFacts& facts) const {
        return DoesObjectMatchAttributesSelected(request_.attributes, facts);
    }
    // Takes the folder and the name for messages. False for an unknown kind of date (told and
    // logged). A date beyond `intLatestYear` or before 1980 is logged and replaced by the first
    // date of the request, or 1980, so that it drops no object by itself; with kAnyYear none is.
    bool GetFacts(const platform::ObjectFacts& facts, std::string_view folder,
                  std::string_view name, TestedFacts& result);
    // Whether it passes all but its attributes; says nothing of a date that can't be.
    bool PassesElse(const platform::ObjectFacts& facts, bool testsSize) const;
    // The bounds pass. Files are tested by both, folders and empty files by their date alone.
    bool CheckSizeAndDate(const TestedFacts& facts) const;
    bool CheckDate(const TestedFacts& facts) const;

  private:
    std::int64_t LocalSeconds(platform::FileTime time);
    bool IsPlausible(const text::DateTime& date) const;
    void RefuseDateKind(std::string_view folder, std::string_view name);
    text::DateTime StandIn() const; // for a date that can't be
    void ReplaceBadDate(std::string_view folder, std::string_view name, TestedFacts& result);

    session::Session& session_;
    const SearchRequest& request_;
    bool takesParts_; // of dates: they are tested
    // Days whose distance from UTC is one and the same all day.
    struct Day {
        std::int64_t number = INT64_MIN;
        std::int64_t offset = 0; // seconds
    };
    std::vector<Day> days_;
};

// Years 1980 to `latestYear`; February 29 needs a year that 4 divides.
bool IsValidDate(int day, int month, int year, int latestYear);
// Of 24 hours.
bool IsValidTime(int hour, int minute, int second);

} // namespace tarvix::search
