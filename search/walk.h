#pragma once

#include "search/find_family.h"
#include "search/folder_list.h"

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// The matrix of locations by search strings: a location is finished with all strings before the
// next one begins.
class Walk {
  public:
    explicit Walk(session::Session& session);
    Outcome Run();

  private:
    Outcome RunLocation(int index);
    Outcome RunString(int index);
    Outcome RunRoot();
    Outcome RunSubFolders(bool isFirst);
    Outcome RunOneLevel(bool isFirst);
    void SetVirtualStoreFlags();
    Outcome YieldAndTest();

    session::Session& session_;
    results::Counters counters_;
    FolderList list_;
    Filters filters_;
    FindFamily find_;
    std::string folder_;
    int kind_;
    bool blnListBuilt2_ = false;
};

} // namespace tarvix::search
