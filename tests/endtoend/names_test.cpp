// Every name that a disk can hold, through every front, byte for byte.
#include "tests/endtoend/random_names.h"
#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <map>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Contents = std::map<std::string, std::string>; // by name, in the disk's bytes

class NamesTest : public Trees {
  protected:
    NamesTest() {
        setenv("HOME", Root().c_str(), 1);
        setenv("XDG_DATA_HOME", (Root() / ".local/share").c_str(), 1);
    }
    fs::path Trash() const { return Root() / ".local/share/Trash"; }

    Contents In(const fs::path& folder) const {
        Contents contents;
        if (!fs::exists(Root() / folder)) return contents;
        for (const auto& entry : fs::directory_iterator(Root() / folder)) {
            contents[entry.path().filename().string()] = ReadAll(entry.path());
        }
        return contents;
    }
    void Done(const std::vector<std::string>& arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err << outcome.out;
    }
};

TEST_F(NamesTest, AnyNameIsFoundCopiedMovedRenamedRecycledAndRestored) {
    const int count = IsNightly() ? 10'000 : 400;
    std::mt19937_64 random = NamesRandom();
    Contents made;
    AddFolder("from");
    for (int i = 0; i < count; ++i) {
        const std::string name = RandomName(random, i);
        made[name] = std::to_string(i);
        AddFile(fs::path("from") / name, made[name]);
    }

    const Outcome found = Run({"search", "*", "--in", "from", "--any-attribute", "--print0"});
    EXPECT_EQ(found.exitCode, 0) << found.err;
    Contents listed;
    for (std::size_t at = 0; at < found.out.size();) {
        const std::string path = found.out.substr(at, found.out.find('\0', at) - at);
        listed[path.substr(path.rfind('/') + 1)] = ReadAll(path);
        at += path.size() + 1;
    }
    EXPECT_EQ(listed, made);

    Done({"copy", "*", "--in", "from", "--any-attribute", "--to", "copied", "--yes"});
    ASSERT_EQ(In("copied"), made);
    ASSERT_EQ(In("from"), made);

    Done({"move", "*", "--in", "copied", "--any-attribute", "--to", "moved", "--yes"});
    ASSERT_EQ(In("moved"), made);
    ASSERT_THAT(In("copied"), IsEmpty());

    Contents renamed;
    for (const auto& [name, content] : made) {
        if (name.size() < 255) renamed["x" + name] = content;
    }
    for (const auto& [name, content] : made) {
        if (name.size() == 255) fs::remove(Root() / "moved" / name);
    }
    Done({"rename", "*", "--in", "moved", "--any-attribute", "--insert", "x", "--at", "beginning",
          "--yes"});
    ASSERT_EQ(In("moved"), renamed);

    Done({"delete", "*", "--in", "moved", "--any-attribute", "--yes"});
    ASSERT_THAT(In("moved"), IsEmpty());
    for (const auto& entry : fs::directory_iterator(Trash() / "info")) {
        const std::string info = ReadAll(entry.path());
        const std::size_t begin = info.find("\nPath=") + 6;
        const std::string written = info.substr(begin, info.find('\n', begin) - begin);
        std::string path;
        for (std::size_t i = 0; i < written.size(); ++i) {
            const bool isEscaped = written[i] == '%';
            path += isEscaped ? static_cast<char>(std::stoi(written.substr(i + 1, 2), nullptr, 16))
                              : written[i];
            if (isEscaped) i += 2;
        }
        fs::rename(Trash() / "files" / entry.path().stem(), path);
    }
    EXPECT_EQ(In("moved"), renamed);
}

TEST_F(NamesTest, NoNoticeSpeaksOfNamesThatAreNoText) {
    for (const char* name : {"good.txt", "a\xFF.txt", "trailing ", " leading", "dot.", "x\uF03Ay"})
        AddFile(fs::path("odd") / name);
    AddFile("odd/folder \xE9 /inside.txt");
    const Outcome outcome = Run({"search", "*", "--in", "odd", "--columns", "Name"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("\ninside.txt\n"));
    EXPECT_THAT(outcome.out, HasSubstr("trailing \n"));
    EXPECT_THAT(outcome.out, HasSubstr("a\xFF.txt\n"));
    EXPECT_THAT(outcome.out, HasSubstr("x\uF03Ay\n"));
}

TEST_F(NamesTest, TypedCharactersFindNamesThatHoldThem) {
    AddFile("odd/a:b.txt");
    AddFile("odd/q\"<x>\\y");
    AddFile("odd/plain.txt");
    const auto found = [this](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "search");
        return Shown(Run(arguments).out);
    };
    EXPECT_EQ(found({"a:b*", "--in", "odd"}), "ROOT/odd/a:b.txt\n");
    EXPECT_EQ(found({"*\\y", "--in", "odd"}), "ROOT/odd/q\"<x>\\y\n");
    EXPECT_EQ(found({"a:b*", "--in", "odd", "--not"}), "ROOT/odd/plain.txt\nROOT/odd/q\"<x>\\y\n");
}

TEST_F(NamesTest, JsonWritesEachByteThatIsNoText) {
    AddFile("odd/caf\xE9 \u00E9.txt");
    const Outcome outcome = Run({"search", "*", "--in", "odd", "--json", "--columns", "Name"});
    EXPECT_EQ(Shown(outcome.out), "{\"Name\":\"caf\\udce9 \u00E9.txt\","
                                  "\"NativePath\":\"ROOT/odd/caf\\udce9 \u00E9.txt\"}\n");
}

TEST_F(NamesTest, ALocationThatEndsInABlankIsNotItsNeighbour) {
    AddFile("p/near.txt");
    AddFile("p /far.txt");
    EXPECT_EQ(Shown(Run({"search", "*", "--in", "p "}).out), "ROOT/p /far.txt\n");
    EXPECT_EQ(Shown(Run({"search", "*", "--in", "p"}).out), "ROOT/p/near.txt\n");
    Done({"copy", "near*", "--in", "p", "--to", "p ", "--yes"});
    EXPECT_TRUE(fs::exists(Root() / "p /near.txt"));
}

} // namespace
} // namespace tarvix::endtoend
