#include "actions/sources/exchange_order.h"
#include "results/selection.h"

#include <gmock/gmock.h>

namespace tarvix::actions {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class ExchangeOrder : public ::testing::Test {
  protected:
    // "a>b" is an object a that wants the name b.
    ExchangePlan Plan(const std::vector<std::string>& pairs) {
        selection = {};
        wanted.clear();
        for (const std::string& pair : pairs) {
            const std::string name = pair.substr(0, pair.find('>'));
            selection.strSelName.push_back(selection.texts.Keep(name));
            selection.strSelPath.push_back(selection.texts.Keep("C:\\t\\" + name));
            wanted.push_back(pair.substr(pair.find('>') + 1));
        }
        return {selection, wanted};
    }
    // Each chain as the names of its objects, with an "o" in front of a ring.
    std::vector<std::string> Chains(const std::vector<std::string>& pairs) {
        std::vector<std::string> told;
        for (const Chain& chain : Plan(pairs).Chains()) {
            std::string text = chain.isRing ? "o" : "";
            for (const std::size_t index : chain.indexes)
                text.append(" ").append(selection.strSelName[index]);
            told.push_back(text);
        }
        return told;
    }
    results::Selection selection;
    std::vector<std::string> wanted;
};

TEST_F(ExchangeOrder, WhoStandsInTheWayGoesFirst) {
    EXPECT_THAT(Chains({"a>x", "b>b", "c>y"}), ElementsAre(" a", " c"));
    EXPECT_THAT(Chains({"a>b", "b>c", "c>d"}), ElementsAre(" c b a"));
    EXPECT_THAT(Chains({"b>c", "a>b"}), ElementsAre(" b", " a"));
}

TEST_F(ExchangeOrder, InARingTheFirstStepsAside) {
    EXPECT_THAT(Chains({"a>b", "b>a"}), ElementsAre("o b a"));
    EXPECT_THAT(Chains({"a>b", "b>c", "c>a", "d>e"}), ElementsAre("o c b a", " d"));
}

TEST_F(ExchangeOrder, ANameInAnotherCaseIsNoRing) {
    EXPECT_THAT(Chains({"a>A"}), ElementsAre(" a"));
    EXPECT_THAT(Chains({"a>B", "b>A"}), ElementsAre("o b a"));
    EXPECT_THAT(Chains({"a>A", "A>a"}), ElementsAre("o A a"));
}

TEST_F(ExchangeOrder, TwoThatWantOneNameAreToldInAnyCase) {
    EXPECT_THAT(Plan({"a>x", "b>X", "c>y"}).Doubles(), ElementsAre(Pair(0, 1)));
    EXPECT_THAT(Plan({"a>b", "b>b"}).Doubles(), ElementsAre(Pair(0, 1)));
    EXPECT_THAT(Plan({"a>b", "b>a"}).Doubles(), IsEmpty());
    EXPECT_THAT(Plan({"a>a", "A>A"}).Doubles(), IsEmpty()) << "as they stand";
}

TEST_F(ExchangeOrder, RoomIsMadeByWhoGetsAnotherName) {
    const auto plan = Plan({"a>b", "b>c", "d>d"});
    EXPECT_TRUE(plan.MakesRoom("C:\\t\\B"));
    EXPECT_FALSE(plan.MakesRoom("C:\\t\\d"));
    EXPECT_FALSE(plan.MakesRoom("C:\\t\\x"));
}

} // namespace
} // namespace tarvix::actions
