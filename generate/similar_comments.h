#pragma once

#include "generate/list_source.h"
#include "platform/error.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvix::generate {

constexpr std::string_view kDuplicateMark = "# Possible Duplicate - ";

// Asks for the folder to look through; empty when the user cancelled.
std::string AskSimilarFolder(session::Session& session);

// The same list with a comment behind each entry for every file in `folder` (a drive path) that is
// named like it and has about its size. Null when the user stopped the reading of the folder; a
// folder that can't be read to the end is told.
std::unique_ptr<ListSource> WithSimilar(session::Session& session, const ListRequest& request,
                                        std::unique_ptr<ListSource> list,
                                        const std::string& folder);

} // namespace tarvix::generate
