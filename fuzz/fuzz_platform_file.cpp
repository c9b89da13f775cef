#include "fuzz/fuzz_fixture.h"
#include "session/remembered/platform_file.h"

// Whatever stands in the file of machine settings: what is saved is read again as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    fuzz::Fixture fixture;
    auto& session = fixture.session;
    fixture.Put(session.state.strPlatformFile, data, size);
    session::OpenPlatformFile(session);
    session::SavePlatformFile(session);
    const auto saved = session.state.platformSettings;
    session::OpenPlatformFile(session);
    fuzz::Require(session.state.platformSettings == saved);
    return 0;
}
