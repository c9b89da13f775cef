#include "fuzz/fuzz_fixture.h"
#include "session/remembered/histories.h"

namespace {

using tarvix::session::Session;

struct Kind {
    std::string tarvix::session::SessionState::*file;
    void (*open)(Session&);
    void (*save)(Session&);
};

constexpr Kind kKinds[] = {
    {&tarvix::session::SessionState::strFSSearchHistoryFile, tarvix::session::OpenSearchHistoryFile,
     tarvix::session::SaveSearchHistoryFile},
    {&tarvix::session::SessionState::strFSFolderHistoryFile,
     tarvix::session::OpenFolderHistoryFile2, tarvix::session::SaveFolderHistoryFile2},
    {&tarvix::session::SessionState::strFDHistoryFile, tarvix::session::OpenDestHistoryFile2,
     tarvix::session::SaveDestHistoryFile2},
};

} // namespace

// Whatever stands in a history file: a save mends it, so that a further save changes nothing. A
// damaged one that could not be thrown away stays as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    if (size == 0) return 0;
    const Kind& kind = kKinds[data[0] % std::size(kKinds)];
    fuzz::Fixture fixture;
    auto& session = fixture.session;
    for (const char* standing : {"  *.lnk", "  *.mpl", "  *.url"})
        session.frmSearch.cmbSearchFor.AddItem(standing);
    const std::string& file = session.state.*kind.file;
    fixture.Put(file, data + 1, size - 1);
    kind.open(session);
    kind.save(session);
    const std::string saved = fixture.Content(file);
    if (session.state.filesLeftAlone.contains(file)) {
        const std::string_view found(reinterpret_cast<const char*>(data) + 1, size - 1);
        fuzz::Require(saved == found);
        return 0;
    }
    fuzz::Require(saved.ends_with("*EOF"));
    fuzz::Require(session.frmSearch.cmbDir.Items().size() <= 201);
    kind.save(session);
    fuzz::Require(fixture.Content(file) == saved);
    return 0;
}
