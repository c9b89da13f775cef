#include "fuzz/fuzz_fixture.h"
#include "search/locations.h"
#include "session/paths/path_list.h"

// A list of folders from anywhere, and the search locations that are made of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    fuzz::Fixture fixture;
    auto& session = fixture.session;
    fixture.Put("C:\\home\\ann\\l.mpl", data, size);
    const std::string paths = session::ReadPathList(session, "C:\\home\\ann\\l.mpl");
    fuzz::Require(paths.find('\n') == std::string::npos);
    const search::Locations locations = search::ParseSearchFolder(session, paths);
    fuzz::Require(locations.folders.size() <= search::kSearchFolderLimit);
    return 0;
}
