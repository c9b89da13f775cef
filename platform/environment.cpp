#include "platform/environment.h"

namespace tarvix::platform {

std::string ExpandVariables(const Environment& environment, std::string_view text) {
    std::string out;
    while (true) {
        const auto open = text.find('%');
        const auto close = open == text.npos ? text.npos : text.find('%', open + 1);
        if (close == text.npos) return out.append(text);
        const auto value = environment.Get(text.substr(open + 1, close - open - 1));
        out.append(text.substr(0, open));
        if (value) {
            out.append(*value);
            text.remove_prefix(close + 1);
        } else {
            // The closing sign may open the next variable.
            out.append(text.substr(open, close - open));
            text.remove_prefix(close);
        }
    }
}

} // namespace tarvix::platform
