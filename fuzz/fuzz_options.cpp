#include "fuzz/fuzz_fixture.h"
#include "session/remembered/options_file.h"

// Whatever stands in the options file: a save mends it, so that it is read again as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    fuzz::Fixture fixture;
    auto& session = fixture.session;
    const std::string& file = session.state.strOptionFile;
    fixture.Put(file, data, size);
    session::OpenOptionFile(session);
    session::SaveOptionFile(session);
    if (session.state.blnOptionFileUnread) return 0;
    const std::string saved = fixture.Content(file);
    session::OpenOptionFile(session);
    fuzz::Require(session::OptionFileText(session) == saved);
    fuzz::Require(session.state.options.bytSortBy >= 0 && session.state.options.bytSortBy <= 26);
    return 0;
}
