#pragma once

#include "session/errors.h"

#include <optional>
#include <type_traits>
#include <utility>

namespace tarvix::session {

// What became of one statement: its value, or the recovery that its routine goes on with.
template <class T>
struct Attempted {
    platform::Result<T> result;
    int recovery = 0; // 0 when it succeeded

    explicit operator bool() const { return result.has_value(); }
    decltype(auto) operator*() { return *result; }
    auto operator->() { return result.operator->(); }
    auto operator->() const { return result.operator->(); }
    int ErrorNumber() const { return result ? 0 : result.error().number; }
};

struct NoOwnRule {
    std::optional<int> operator()(const platform::PlatformError&) const { return {}; }
};

// Runs one statement of a routine under its error rule. `statement` gives a Result<T>. When it
// fails, `ownRule` may decide itself, with a recovery; otherwise `HandleError` does. A retry runs
// the statement again, any other recovery comes back to be branched on.
template <class Statement, class OwnRule = NoOwnRule>
auto Attempt(Session& session, const ErrorContext& context, Statement&& statement,
             OwnRule&& ownRule = {}) {
    using T = typename std::invoke_result_t<Statement&>::value_type;
    while (true) {
        Attempted<T> attempted{statement()};
        if (attempted) return attempted;
        const std::optional<int> own = ownRule(attempted.result.error());
        attempted.recovery = own ? *own : HandleError(session, attempted.result.error(), context);
        if (attempted.recovery != kRecoveryRetry) return attempted;
    }
}

} // namespace tarvix::session
