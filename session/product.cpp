#include "session/product.h"

namespace tarvix::session {

std::string_view ProductVersion() {
    return TARVIX_VERSION;
}

} // namespace tarvix::session
