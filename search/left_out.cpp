#include "search/left_out.h"

#include "search/criteria_boxes.h"
#include "session/lifecycle_events.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <utility>
#include <vector>

namespace tarvix::search {

namespace {

using session::kAttributeBoxes;
using session::LeftOut;
using session::Session;

// What one and several of them are called, in the order of the boxes; behind them those that no box
// allows.
constexpr std::array<std::pair<std::string_view, std::string_view>, kAttributeBoxes + 1> kWords{{
    {"read only", "read only"},
    {"hidden", "hidden"},
    {"system object", "system objects"},
    {"archive", "archive"},
    {"link", "links"},
    {"compressed", "compressed"},
    {"temporary", "temporary"},
    {"sparse", "sparse"},
    {"special file", "special files"},
    {"plain", "plain"},
    {"with an attribute that has no box", "with attributes that have no box"},
}};

std::string Counted(std::int64_t count, std::size_t which) {
    const auto& [one, several] = kWords[which];
    return fmt::format("{} {}", text::Format(count, "#,##0"), count == 1 ? one : several);
}

void cmdLeftOut_Click(Session& session) {
    auto& form = session.frmSearch;
    const LeftOut& leftOut = session.state.leftOut;
    for (std::size_t i = 0; i < kAttributeBoxes; ++i) {
        if (leftOut.byBox[i] > 0) form.attributeBoxes[i]->Value = 2;
    }
    if (leftOut.withoutBox > 0) session.state.blnFindsWithoutBox = true;
    PaintAttributeBoxes(session);
    session.events.Raise(session, lifecycle::kSearch);
}

} // namespace

void CountLeftOut(LeftOut& leftOut, const AttributeMasks& masks,
                  const platform::ObjectFacts& facts) {
    const std::uint32_t bits = facts.attributes & ~std::uint32_t{platform::kFolder};
    const std::uint32_t refused = bits & ~masks.intAttrAllowed;
    if (refused == 0 || (masks.intAttrRequired & ~bits) != 0) return;
    const auto boxes = AttributeBoxBits();
    const std::uint32_t known = std::accumulate(boxes.begin(), boxes.end(), 0U, std::bit_or{});
    const auto found =
        std::ranges::find_if(boxes, [refused](std::uint32_t bit) { return (refused & bit) != 0; });
    if (found == boxes.end() || (refused & ~known) != 0) {
        ++leftOut.withoutBox;
    } else {
        ++leftOut.byBox[static_cast<std::size_t>(found - boxes.begin())];
    }
}

std::string LeftOutText(const LeftOut& leftOut) {
    std::vector<std::pair<std::int64_t, std::size_t>> counts;
    for (std::size_t i = 0; i < kAttributeBoxes; ++i) {
        if (leftOut.byBox[i] > 0) counts.emplace_back(leftOut.byBox[i], i);
    }
    std::ranges::stable_sort(counts, std::greater{}, [](const auto& count) { return count.first; });
    if (leftOut.withoutBox > 0) counts.emplace_back(leftOut.withoutBox, kAttributeBoxes);
    std::string text;
    for (const auto& [count, which] : counts) {
        text.append(text.empty() ? "Left out: " : ", ").append(Counted(count, which));
    }
    return text;
}

void HideLeftOut(Session& session) {
    session.state.leftOut = {};
    session.frmSearch.cmdLeftOut.Visible = false;
}

void ShowLeftOut(Session& session) {
    const LeftOut& leftOut = session.state.leftOut;
    if (leftOut.Total() == 0 || session.state.IsBatch()) return;
    auto& button = session.frmSearch.cmdLeftOut;
    button.Caption = fmt::format("{}. Find them too", LeftOutText(leftOut));
    button.ToolTipText =
        leftOut.withoutBox == 0
            ? "They fit, but have an attribute that is to be left out. A click lets it pass "
              "and searches again."
            : "They fit, but have an attribute that is to be left out, or one that has no box, "
              "such "
              "as encrypted. A click lets them pass, those without a box until Tarvix is closed, "
              "and "
              "searches again.";
    button.Visible = true;
    session.events.Raise(session, kLeftOutTold);
}

void AddLeftOutEvents(session::EventTable& events) {
    events.On("frmSearch.cmdLeftOut_Click", cmdLeftOut_Click);
}

} // namespace tarvix::search
