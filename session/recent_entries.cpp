#include "session/recent_entries.h"

#include "session/session.h"

#include <algorithm>
#include <numeric>

namespace tarvix::session {

namespace {

// The time of last use of each entry; null for a box without a history.
const std::vector<text::DateTime>* StampsOf(const Session& session, const fields::ComboBox& box) {
    if (&box == &session.frmSearch.cmbSearchFor) return &session.state.datSearchHistory;
    if (&box == &session.frmSearch.cmbDir) return &session.state.datFolderHistory;
    if (&box == &session.frmDialog.cmbDir) return &session.state.datDestHistory;
    return nullptr;
}

} // namespace

std::vector<std::size_t> RecentFirst(const Session& session, const fields::ComboBox& box) {
    std::vector<std::size_t> order(box.Items().size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto* stamps = StampsOf(session, box);
    if (stamps == nullptr) return order;
    const auto stampOf = [stamps](std::size_t row) {
        return row < stamps->size() ? (*stamps)[row] : text::DateTime{};
    };
    std::ranges::stable_sort(order, std::ranges::greater{}, stampOf);
    return order;
}

} // namespace tarvix::session
