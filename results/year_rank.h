#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The year of an object, with a month or a rank where there is one, as its name tells it. Texts are
// UTF-8. `intMaxYear` is the first year that is too late to be plausible.
namespace tarvix::results {

// The forms of a name that are tried before any search for a date.
enum class YearRankForms {
    kSearch,   // for rows of a search: also a year-rank at the bare end of the name
    kPlaylist, // for rows of a playlist: also "* - #### - *" and "* ~ #### ~ *"
};

// The last piece of the text that fits the first fitting row of the pattern table, rewritten; empty
// when there is none.
std::string ExtractYearRank(std::string_view text, int intMaxYear);

// The "####-###" at the start of a name, or in front of a "." and 1 to 4 characters at its end;
// empty when there is none. Any year and rank will do. Points into the name.
std::string_view FindRankForm(std::string_view name);

// What the Year-Rank column shows for the object `name` in the folder with the path `folder`; empty
// when it shows nothing.
std::string AssignYearRank(std::string_view name, std::string_view folder, int intMaxYear,
                           YearRankForms forms = YearRankForms::kSearch);

// The same for many objects: what the path of a folder tells is worked out once.
class YearRanks {
  public:
    // Folders have numbers below `folders`.
    YearRanks(int intMaxYear, std::size_t folders) : intMaxYear_(intMaxYear), ofFolders_(folders) {}
    // Stands until the next call.
    std::string_view Of(std::string_view name, std::size_t number, std::string_view folder,
                        YearRankForms forms);

  private:
    int intMaxYear_;
    std::string ofName_;
    std::vector<std::optional<std::string>> ofFolders_;
};

} // namespace tarvix::results
