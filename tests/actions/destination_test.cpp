#include "actions/place/action_run.h"
#include "actions/place/destination.h"
#include "actions/place/find_destination.h"
#include "tests/actions/bare_session.h"

#include <array>
#include <optional>
#include <random>
#include <vector>

namespace tarvix::actions {
namespace {

using enum Way;
using enum Structure;

class DestinationTest : public ::testing::Test {
  protected:
    std::string Of(const std::string& path, const std::string& relPath = {}, int place = 0) {
        const std::string name(text::FileNameOf(path));
        destination = ComputeDestination(
            request, {.name = name, .path = path, .actual = path, .relative = relPath}, place);
        return destination.path;
    }
    void Choose(Way way, Structure structure, const std::string& typed) {
        request.way = way;
        request.structure = structure;
        request.typed = typed;
    }

    ActionRequest request;
    Destination destination;
};

struct Case {
    Way way;
    Structure structure;
    const char* typed;
    const char* object;
    const char* result;
};

// The list path in hand is F:\List, the object's path below its search folder a\b.mp3.
constexpr Case kCases[] = {
    {kOneLocation, kNone, "E:\\Bk", "C:\\Music\\a\\b.mp3", "E:\\Bk\\b.mp3"},
    {kOneLocation, kDriveMirror, "E:\\Bk", "C:\\Music\\a\\b.mp3", "E:\\Music\\a\\b.mp3"},
    {kOneLocation, kFolderToFolder, "E:\\Bk", "C:\\Music\\a\\b.mp3", "E:\\Bk\\a\\b.mp3"},
    {kOneLocation, kBackup, "E:\\Bk", "C:\\Music\\a\\b.mp3", "E:\\Bk\\C\\Music\\a\\b.mp3"},
    {kOneLocation, kBackup, "E:\\Bk", "\\\\pc\\d\\Music\\a\\b.mp3",
     "E:\\Bk\\pc\\d\\Music\\a\\b.mp3"},
    {kOneLocation, kDriveMirror, "E:\\Bk", "\\\\pc\\d\\Music\\a\\b.mp3", "E:\\Music\\a\\b.mp3"},
    {kOneLocation, kDriveMirror, "\\\\pc\\d\\x", "C:\\Music\\a\\b.mp3",
     "\\\\pc\\d\\Music\\a\\b.mp3"},
    {kOneLocation, kBackup, "\\\\pc\\d", "C:\\Music\\a\\b.mp3", "\\\\pc\\d\\C\\Music\\a\\b.mp3"},
    {kOneLocation, kNone, "E:", "C:\\Music\\a\\b.mp3", "E:\\b.mp3"},
    {kOneLocation, kNone, "E:\\Größe", "C:\\é\\ü.mp3", "E:\\Größe\\ü.mp3"},
    {kMultipleLocations, kNone, "\\in", "C:\\Music\\a\\b.mp3", "F:\\List\\in\\b.mp3"},
    {kMultipleLocations, kNone, "", "C:\\Music\\a\\b.mp3", "F:\\List\\b.mp3"},
    {kMultipleLocations, kNone, "in", "C:\\Music\\a\\b.mp3", "F:\\Listin\\b.mp3"},
    {kMultipleLocations, kDriveMirror, "\\in", "C:\\Music\\a\\b.mp3", "F:\\Music\\a\\b.mp3"},
    {kMultipleLocations, kFolderToFolder, "\\in", "C:\\Music\\a\\b.mp3", "F:\\List\\in\\a\\b.mp3"},
    {kMultipleLocations, kBackup, "\\in", "C:\\Music\\a\\b.mp3",
     "F:\\List\\in\\C\\Music\\a\\b.mp3"},
};

TEST_F(DestinationTest, EachWayAndStructureMapsAsToldByTheTable) {
    request.strMultiPath = {"F:\\List"};
    for (const Case& c : kCases) {
        Choose(c.way, c.structure, c.typed);
        EXPECT_EQ(Of(c.object, "a\\b.mp3"), c.result) << c.typed << ' ' << c.object;
        EXPECT_TRUE(destination.IsThere());
    }
}

// What is shown of a path that is too long has short names in it, which are no folders.
TEST_F(DestinationTest, TheFoldersOfAShortenedPathAreNamedAsTheyAre) {
    const Object object{.name = "b.mp3",
                        .path = "C:\\MUSICA~1\\ROCKAB~1\\b.mp3",
                        .actual = "C:\\Music all\\Rock Album\\b.mp3",
                        .relative = "b.mp3"};
    const auto of = [&] { return ComputeDestination(request, object, 0).path; };
    Choose(kOneLocation, kBackup, "E:\\Bk");
    EXPECT_EQ(of(), "E:\\Bk\\C\\Music all\\Rock Album\\b.mp3");
    Choose(kOneLocation, kDriveMirror, "E:");
    EXPECT_EQ(of(), "E:\\Music all\\Rock Album\\b.mp3");
    request.levels = 1;
    request.prefixesFolders = true;
    Choose(kUpFolderTree, kNone, "");
    EXPECT_EQ(of(), "C:\\Music all\\Rock Album b.mp3");
    Choose(kSpecialRule, kNone, "E:\\*9**10**11**12*");
    request.rule = *ValidateSpecialRule(request.typed);
    EXPECT_EQ(of(), "E:\\all\\b.mp3");
    request.strAction = "CopyRenameAsFolderName";
    Choose(kOneLocation, kNone, "E:\\x");
    EXPECT_EQ(of(), "E:\\x\\Rock Album.mp3");
}

TEST_F(DestinationTest, BackupOfAnObjectAtTheDriveRootHasTheDriveAsFolder) {
    Choose(kOneLocation, kBackup, "E:\\Bk");
    EXPECT_EQ(Of("C:\\x.txt"), "E:\\Bk\\C\\x.txt");
}

TEST_F(DestinationTest, DriveMirrorUsesOnlyTheDriveOfWhatIsTyped) {
    Choose(kOneLocation, kDriveMirror, "E:\\any\\folder");
    EXPECT_EQ(Of("C:\\Music\\b.mp3"), "E:\\Music\\b.mp3");
}

TEST_F(DestinationTest, DriveMirrorPaysNoRegardToANewName) {
    Choose(kOneLocation, kDriveMirror, "E:\\Bk");
    const Object renamed{.name = "b_.mp3", .path = "C:\\Music\\b.mp3"};
    EXPECT_EQ(ComputeDestination(request, renamed, 0).path, "E:\\Music\\b.mp3");
}

TEST_F(DestinationTest, WithManyLocationsAndDriveMirrorWhatIsTypedPlaysNoPart) {
    request.strMultiPath = {"F:\\List"};
    Choose(kMultipleLocations, kDriveMirror, "nonsense without a root");
    EXPECT_EQ(Of("C:\\Music\\b.mp3"), "F:\\Music\\b.mp3");
}

TEST_F(DestinationTest, TheLocationInHandIsTheOneOfTheList) {
    request.strMultiPath = {"F:\\One", "G:\\Two"};
    Choose(kMultipleLocations, kNone, "");
    EXPECT_EQ(Of("C:\\b.mp3", {}, 1), "G:\\Two\\b.mp3");
    EXPECT_EQ(request.Places(), 2);
}

TEST_F(DestinationTest, ANetworkPathWithTooFewSeparatorsIsAnErrorOfItsOwn) {
    Choose(kOneLocation, kDriveMirror, "\\\\server\\share");
    EXPECT_EQ(Of("C:\\Music\\b.mp3"), "");
    EXPECT_EQ(destination.missing, Missing::kShare);
    EXPECT_EQ(destination.unrooted, "\\\\server\\share");
}

TEST_F(DestinationTest, TheNextObjectHasADestinationAgain) {
    Choose(kOneLocation, kDriveMirror, "\\\\server\\share");
    Of("C:\\Music\\b.mp3");
    request.typed = "E:\\x";
    EXPECT_EQ(Of("C:\\Music\\b.mp3"), "E:\\Music\\b.mp3");
    EXPECT_TRUE(destination.IsThere());
}

TEST_F(DestinationTest, ManyLocationsWithoutAListGiveNone) {
    Choose(kMultipleLocations, kNone, "\\in");
    EXPECT_EQ(Of("C:\\Music\\b.mp3"), "");
    EXPECT_EQ(destination.missing, Missing::kPlace);
}

// ---- up the tree ----

struct UpCase {
    const char* levels;
    const char* object;
    const char* result;
};

TEST_F(DestinationTest, UpTheTreeClimbsSoManyFolders) {
    Choose(kUpFolderTree, kNone, "");
    for (const UpCase& c : {
             UpCase{"1", "C:\\a\\b\\c.txt", "C:\\a\\c.txt"},
             UpCase{"2", "C:\\a\\b\\c.txt", "C:\\c.txt"},
             UpCase{"1", "C:\\a\\b\\folder", "C:\\a\\folder"},
             UpCase{"1", "\\\\pc\\d\\a\\b.txt", "\\\\pc\\d\\b.txt"},
             UpCase{"9", "\\\\pc\\d\\a\\b.txt", "\\\\pc\\d\\b.txt"},
         }) {
        request.levels = FolderTreeLevels(c.levels);
        EXPECT_EQ(Of(c.object), c.result) << c.levels << ' ' << c.object;
    }
}

TEST_F(DestinationTest, MoreLevelsThanTheObjectIsDeepLeaveTheDriveRoot) {
    Choose(kUpFolderTree, kNone, "");
    for (const char* levels : {"3", "250", "99999999999999999999"}) {
        request.levels = FolderTreeLevels(levels);
        EXPECT_EQ(Of("C:\\a\\b\\c.txt"), "C:\\c.txt") << levels;
    }
}

TEST_F(DestinationTest, UpTheTreeKnowsNoOtherStructure) {
    request.levels = 1;
    for (const Structure structure : {kDriveMirror, kFolderToFolder, kBackup}) {
        Choose(kUpFolderTree, structure, "E:\\Bk");
        EXPECT_EQ(Of("C:\\a\\b.txt"), "");
        EXPECT_EQ(destination.missing, Missing::kStructure);
    }
}

TEST_F(DestinationTest, TheFoldersPassedComeInFrontOfTheName) {
    Choose(kUpFolderTree, kNone, "");
    request.levels = 2;
    request.prefixesFolders = true;
    EXPECT_EQ(BuildFolderPrefix(request, {.path = "C:\\a\\b\\c\\f.txt"}), "b c");
    EXPECT_EQ(Of("C:\\a\\b\\c\\f.txt"), "C:\\a\\b c f.txt");
}

TEST(FolderPrefix, StopsAtTheRootWithoutBlanksInFront) {
    EXPECT_EQ(FolderPrefixOf("C:\\a\\f.txt", 1), "a");
    EXPECT_EQ(FolderPrefixOf("C:\\a\\f.txt", 50), "a");
    EXPECT_EQ(FolderPrefixOf("\\\\pc\\d\\a\\f.txt", 3), "a");
    EXPECT_EQ(FolderPrefixOf("C:\\f.txt", 2), "");
    EXPECT_EQ(FolderPrefixOf("f.txt", 2), "");
    EXPECT_EQ(FolderPrefixOf("C:\\a\\f.txt", 0), "");
}

// ---- as the folder's name ----

TEST_F(DestinationTest, ACopyCanBearTheNamesOfItsFolders) {
    request.strAction = "CopyRenameAsFolderName";
    Choose(kOneLocation, kNone, "E:\\Bk");
    request.levels = 2;
    EXPECT_EQ(Of("C:\\Music\\Rock\\Album\\01.mp3"), "E:\\Bk\\Rock Album.mp3");
    EXPECT_EQ(Of("C:\\Music\\Rock\\Album\\cover"), "E:\\Bk\\Rock Album");
    EXPECT_EQ(Of("C:\\Music\\Rock\\Album\\ends."), "E:\\Bk\\Rock Album");
}

TEST(FoldersAsName, TakesTheLastNames) {
    EXPECT_EQ(LastFoldersAsName("C:\\Music\\Rock\\Album", 1), "Album");
    EXPECT_EQ(LastFoldersAsName("C:\\Music\\Rock\\Album", 2), "Rock Album");
    EXPECT_EQ(LastFoldersAsName("C:\\Music\\Rock\\Album", 3), "Music Rock Album");
    EXPECT_EQ(LastFoldersAsName("C:\\", 1), "");
    EXPECT_EQ(LastFoldersAsName("", 1), "");
}

TEST(FoldersAsName, ALevelCountAboveTheDepthIncludesTheDriveLetterLessItsColon) {
    EXPECT_EQ(LastFoldersAsName("C:\\Music\\Rock\\Album", 4), "C  Music Rock Album");
    EXPECT_EQ(LastFoldersAsName("C:\\Music", 1000), "C  Music");
    EXPECT_EQ(LastFoldersAsName("\\\\pc\\d\\x", 9), "  pc d x");
}

TEST(FoldersAsName, AtMostAHundredOfEitherMarkAreReplaced) {
    const std::string slashes(103, '\\');
    EXPECT_EQ(FoldersAsWords(slashes + ":"), std::string(100, ' ') + "\\\\\\ ");
}

TEST(FolderTreeLevels, AreReadFromDigits) {
    for (const auto& [text, levels] :
         {std::pair{"", 0}, {"0", 0}, {"007", 7}, {"1000", kMostLevels}, {"77777", kMostLevels}}) {
        EXPECT_EQ(FolderTreeLevels(text), levels) << text;
    }
}

// ---- by rule ----

TEST_F(DestinationTest, ARuleThatGivesNoFolderLeavesTheObjectWithoutADestination) {
    Choose(kSpecialRule, kNone, "E:\\*200*");
    request.rule = *ValidateSpecialRule(request.typed);
    EXPECT_EQ(Of("C:\\a.txt"), "");
    EXPECT_EQ(destination.missing, Missing::kRuleFolder);
    EXPECT_EQ(destination.rule.end, RuleEnd::kShortReplace);
}

TEST_F(DestinationTest, ARuleGivesTheFolderThatTheNameGoesTo) {
    Choose(kSpecialRule, kNone, "E:\\Sorted\\*4*\\");
    request.rule = *ValidateSpecialRule(request.typed);
    EXPECT_EQ(Of("C:\\a.txt"), "E:\\Sorted\\a\\a.txt");
    EXPECT_TRUE(destination.IsThere());
}

TEST_F(DestinationTest, ASearchSetIsCompleteOnceItsFolderIsFound) {
    Choose(kSpecialRule, kNone, "E:\\Sorted\\|4,2|\\new");
    request.rule = *ValidateSpecialRule(request.typed);
    EXPECT_EQ(Of("C:\\be.mp3"), "");
    EXPECT_EQ(destination.missing, Missing::kSearch);
    EXPECT_EQ(destination.rule.front, "E:\\Sorted\\");
    EXPECT_EQ(destination.rule.set, "be");
    CompleteDestination(destination, {.name = "be.mp3", .path = "C:\\be.mp3"}, "Beatles, The");
    EXPECT_EQ(destination.path, "E:\\Sorted\\Beatles, The\\new\\be.mp3");
    EXPECT_TRUE(destination.IsThere());
}

// ---- with its user ----

using FindDestinationTest = BareSession;

TEST_F(FindDestinationTest, APathWithoutARootIsAnErrorOfItsObject) {
    ActionRequest request;
    request.structure = kDriveMirror;
    request.typed = "\\\\server\\share";
    ActionRun run(session, request);
    const auto found =
        FindDestination(session, run, {.name = "b.mp3", .path = "C:\\Music\\b.mp3"}, 0);
    EXPECT_EQ(found.path, "");
    EXPECT_TRUE(found.hasFailed);
    EXPECT_FALSE(run.rule.blnRuleFailed);
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(prompts.Records()[0].title, "Client Error Message");
    EXPECT_TRUE(prompts.Records()[0].text.starts_with("ComputeDestination "));
}

// ---- a second reading ----

using Names = std::vector<std::string>;

// A path taken apart by hand: "C:" or "\\server\share", and the names below.
struct Taken {
    bool isNetwork = false;
    Names root; // {"C"} or {"server", "share"}
    Names below;
};

std::string Join(const Names& names) {
    std::string joined;
    for (const std::string& name : names) {
        joined += '\\' + name;
    }
    return joined;
}

std::string RootText(const Taken& path) {
    return path.isNetwork ? "\\" + Join(path.root) : path.root[0] + ":";
}

std::string Text(const Taken& path) {
    return RootText(path) + Join(path.below);
}

Names operator+(Names a, const Names& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

struct Request {
    Taken object;
    std::size_t searchDepth = 0; // names of the object that the search folder has
    Taken typed;
    Taken listed;
    Names part; // typed behind a listed path
    int levels = 0;
};

// The new path as names; nothing where no root can be told.
std::optional<std::string> Expected(const Request& r, Way way, Structure structure) {
    const Taken& place = way == kMultipleLocations ? r.listed : r.typed;
    const Names extra = way == kMultipleLocations ? r.part : Names{};
    const Names& object = r.object.below;
    if (way == kUpFolderTree) {
        const std::size_t folders = object.size() - 1;
        const auto climbed = std::min(static_cast<std::size_t>(r.levels), folders);
        Taken up = r.object;
        up.below.assign(object.begin(), object.end() - 1 - static_cast<long>(climbed));
        up.below.push_back(object.back());
        return Text(up);
    }
    switch (structure) {
    case kNone:
        return Text(place) + Join(extra + Names{object.back()});
    case kDriveMirror:
        if (place.isNetwork && place.below.empty()) return std::nullopt;
        return RootText(place) + Join(object);
    case kFolderToFolder:
        return Text(place) +
               Join(extra + Names(object.begin() + static_cast<long>(r.searchDepth), object.end()));
    case kBackup:
        return Text(place) + Join(extra + r.object.root + object);
    }
    return std::nullopt;
}

class RandomPaths {
  public:
    std::size_t Below(std::size_t n) { return random_() % n; }
    Names SomeNames(std::size_t least, std::size_t most) {
        Names names;
        const std::size_t count = least + Below(most - least + 1);
        while (names.size() < count) {
            names.push_back(Name());
        }
        return names;
    }
    Taken Path(std::size_t least) {
        Taken path;
        path.isNetwork = Below(3) == 0;
        path.root = path.isNetwork ? Names{Name(), Name()}
                                   : Names{std::string(1, static_cast<char>('A' + Below(26)))};
        path.below = SomeNames(least, 6);
        return path;
    }

  private:
    std::string Name() {
        constexpr std::array kPieces{"a", "B",       ".", "é", "ß", "日本",
                                     "𝄞", "o\u0308", "#", "[", "-x"};
        std::string name = "n";
        for (std::size_t i = Below(6); i > 0; --i) {
            name += kPieces[Below(kPieces.size())];
        }
        return name;
    }
    std::mt19937 random_{20261115};
};

TEST_F(DestinationTest, AgreesWithASecondReadingOnRandomPaths) {
    RandomPaths random;
    for (int round = 0; round < 4000; ++round) {
        Request r{.object = random.Path(1), .typed = random.Path(0), .listed = random.Path(0)};
        r.searchDepth = random.Below(r.object.below.size());
        r.part = random.SomeNames(0, 2);
        r.levels = static_cast<int>(random.Below(9));
        request.strMultiPath = {Text(r.listed)};
        request.levels = r.levels;
        const std::string relPath =
            Join({r.object.below.begin() + static_cast<long>(r.searchDepth), r.object.below.end()})
                .substr(1);
        for (const Way way : {kOneLocation, kMultipleLocations, kUpFolderTree}) {
            for (const Structure structure : {kNone, kDriveMirror, kFolderToFolder, kBackup}) {
                if (way == kUpFolderTree && structure != kNone) continue;
                Choose(way, structure, way == kMultipleLocations ? Join(r.part) : Text(r.typed));
                const auto expected = Expected(r, way, structure);
                ASSERT_EQ(Of(Text(r.object), relPath), expected.value_or(""))
                    << Text(r.object) << " levels " << r.levels << " typed " << request.typed
                    << " listed " << Text(r.listed);
                ASSERT_EQ(destination.IsThere(), expected.has_value());
            }
        }
    }
}

} // namespace
} // namespace tarvix::actions
