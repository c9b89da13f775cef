#pragma once

#include "text/by_text.h"
#include "text/last_found.h"

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// How paths and names stand in written lists: as this machine writes them, or in drive form, by the
// settings. Each folder is looked up once, so that many paths are cheap in any order.
class ListPaths {
  public:
    explicit ListPaths(session::Session& session);
    ListPaths(const ListPaths&) = delete;
    ListPaths& operator=(const ListPaths&) = delete;

    // Whether they stand as this machine writes them.
    bool IsNative() const { return isNative_; }
    // Appends a full drive path. In drive form one of 248 characters and more has short names in
    // front, unless `LongestPath` leaves lengths to the disk.
    void Append(std::string& out, std::string_view drivePath);
    std::string Of(std::string_view drivePath);
    // Appends one name.
    void AppendName(std::string& out, std::string_view driveName) const;

  private:
    // With a final "/"; empty when it is on no drive.
    const std::string& NativeFolder(std::string_view folder);

    session::Session& session_;
    bool isNative_;
    text::ByText<std::string> folders_;
    text::LastFound<std::string> lastFolders_;
};

// Whether a line of a list can hold the text: none that breaks in two.
bool FitsInLine(std::string_view text);

// The bytes but A-Z, a-z, 0-9 and -._~/ as "%XX".
std::string PercentEncode(std::string_view bytes);

} // namespace tarvix::generate
