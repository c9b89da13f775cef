#pragma once

#include "generate/list_source.h"

#include <memory>
#include <string>
#include <string_view>

namespace tarvix::generate {

// A web page of links to the selected objects.
std::unique_ptr<ListSource> MakePage(session::Session& session, const ListRequest& request);

// One trailing "\" off, each "\" as "/", each blank as "%20", behind "file:///".
std::string ToFileUrl(std::string_view path);

// The deepest folder that holds every selected object, without a final "\" except a drive's root;
// empty when they lie on several drives, and when nothing is selected.
std::string FolderOfSelection(const session::Session& session);

} // namespace tarvix::generate
