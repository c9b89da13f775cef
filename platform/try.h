#pragma once

#include "platform/error.h"

#include <utility>

// Leaves the routine with the failure of `expression`, a Result. NOLINTBEGIN(bugprone-macro-*)
#define TX_TRY(expression)                                                                         \
    do {                                                                                           \
        if (auto tried = (expression); !tried) {                                                   \
            return std::unexpected(std::move(tried).error());                                      \
        }                                                                                          \
    } while (false)

// The same, or initialises `declaration` ("auto name") with the value.
#define TX_TRY_ASSIGN(declaration, expression)                                                     \
    TX_TRY_ASSIGN_AS(TX_TRY_NAME(tried, __LINE__), declaration, expression)
#define TX_TRY_ASSIGN_AS(tried, declaration, expression)                                           \
    auto tried = (expression);                                                                     \
    if (!tried) return std::unexpected(std::move(tried).error());                                  \
    declaration = std::move(*tried)
#define TX_TRY_NAME(name, line) TX_TRY_JOIN(name, line)
#define TX_TRY_JOIN(name, line) name##line
// NOLINTEND(bugprone-macro-*)
