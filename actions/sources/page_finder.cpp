#include "actions/sources/page_finder.h"

#include "platform/file_system.h"
#include "platform/folder_listing.h"
#include "text/case.h"

#include <algorithm>

namespace tarvix::actions {

namespace {

constexpr std::string_view kPageExtension = ".HTM";

} // namespace

const std::string& PageFinder::First(const std::string& folder, std::string_view base) {
    static const std::string none;
    const Pages& pages = PagesOf(folder);
    const std::string begin = text::Upper(base);
    const Page* first = nullptr;
    for (auto page = std::ranges::lower_bound(pages, begin, {}, &Page::upper);
         page != pages.end() && page->upper.starts_with(begin); ++page) {
        const bool isLike = page->upper.find(kPageExtension, begin.size()) != std::string::npos;
        if (isLike && (first == nullptr || page->order < first->order)) first = &*page;
    }
    return first == nullptr ? none : first->name;
}

const PageFinder::Pages& PageFinder::PagesOf(const std::string& folder) {
    const auto [found, isNew] = folders_.try_emplace(folder);
    Pages& pages = found->second;
    if (!isNew) return pages;
    platform::FolderListing listing;
    const auto opened = files_.Open(folder);
    if (!opened || !(*opened)->List(listing)) return pages;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        if (listing[i].isFolder) continue;
        std::string upper = text::Upper(listing[i].name);
        if (upper.find(kPageExtension) == std::string::npos) continue;
        pages.push_back({std::move(upper), std::string(listing[i].name), i});
    }
    std::ranges::sort(pages, {}, &Page::upper);
    return pages;
}

} // namespace tarvix::actions
