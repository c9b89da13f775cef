#pragma once

#include <string>
#include <string_view>

namespace tarvix::generate {

// Keeps account of the ranks of a yearly list as its objects come by, and tells which are missing.
class RankComments {
  public:
    // `strSearchFor` as it stands in the search box: "*1987*" or "*1987-*" for the list of a year.
    // Any other text gives no comments.
    explicit RankComments(std::string_view strSearchFor);

    // Appends a line for each rank between the object before and this one.
    void AppendBefore(std::string_view name, std::string& out);
    // Appends a line for each rank behind the last one, up to 100.
    void AppendEnd(std::string& out);

  private:
    void ReadRank(std::string_view name);

    std::string key_; // "1987" or "1987-"; empty without a year
    std::string strRank_;
    std::string strNextRank_; // still to be accounted for
};

} // namespace tarvix::generate
