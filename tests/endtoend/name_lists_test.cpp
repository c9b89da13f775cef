// Any name through the outputs, the lists and the scripts, byte for byte.
#include "tests/endtoend/random_names.h"
#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <set>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;

using Names = std::set<std::string>; // in the disk's bytes

bool HasLineBreak(std::string_view name) {
    return name.find_first_of("\r\n") != name.npos;
}

std::string Utf8(unsigned code) {
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) {
        return {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
    }
    return {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 0x3F)),
            static_cast<char>(0x80 | (code & 0x3F))};
}

// What a JSON string stands for; a lone surrogate DC80 to DCFF is the byte 80 to FF.
std::string FromJson(std::string_view text) {
    constexpr std::string_view kShort = "bfnrt";
    constexpr std::string_view kMeant = "\b\f\n\r\t";
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
        } else if (text[++i] == 'u') {
            const unsigned code = std::stoul(std::string(text.substr(i + 1, 4)), nullptr, 16);
            const bool isByte = code >= 0xDC80 && code <= 0xDCFF;
            out += isByte ? std::string(1, static_cast<char>(code & 0xFF)) : Utf8(code);
            i += 4;
        } else {
            const std::size_t at = kShort.find(text[i]);
            out += at == kShort.npos ? text[i] : kMeant[at];
        }
    }
    return out;
}

class NameListsTest : public Trees {
  protected:
    void Make(int count) {
        std::mt19937_64 random = NamesRandom();
        AddFolder("odd");
        for (int i = 0; i < count; ++i) {
            const std::string name = RandomName(random, i);
            if (made.insert(name).second) AddFile(fs::path("odd") / name, "");
        }
        for (const std::string& name : made) {
            if (!HasLineBreak(name)) oneLine.insert(name);
        }
    }
    // The lines of a written list behind `before`, without its end mark.
    static Names LinesOf(const std::string& text, std::string_view before) {
        Names lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find("\r\n", at), text.size());
            const std::string line = text.substr(at, end - at);
            at = end + 2;
            if (line == "*EOF") continue;
            EXPECT_TRUE(line.starts_with(before)) << line;
            lines.insert(line.substr(std::min(before.size(), line.size())));
        }
        return lines;
    }
    std::string Listed(const std::string& form, const char* file) {
        const Outcome outcome =
            Run({"list", "*", "--in", "odd", "--any-attribute", "--as", form, "--to", file});
        EXPECT_EQ(outcome.exitCode, oneLine.size() == made.size() ? 0 : 1) << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr("have a line break in their paths"));
        return ReadAll(Root() / file);
    }

    Names made;
    Names oneLine; // those that a list of lines can hold
};

TEST_F(NameListsTest, AnyNameStandsInEachOutputAndListAndInACopyByAScript) {
    Make(IsNightly() ? 100'000 : 1000);
    const std::string folder = Root().string() + "/odd/";

    const Outcome plain = Run({"search", "*", "--in", "odd", "--any-attribute", "--print0"});
    Names printed;
    for (std::size_t at = 0; at < plain.out.size(); at = plain.out.find('\0', at) + 1) {
        printed.insert(plain.out.substr(at, plain.out.find('\0', at) - at).substr(folder.size()));
    }
    EXPECT_EQ(printed, made);

    const Outcome json =
        Run({"search", "*", "--in", "odd", "--any-attribute", "--json", "--columns", "Name"});
    Names decoded;
    constexpr std::string_view kBegin = "{\"Name\":\"";
    for (std::size_t at = 0; at < json.out.size(); at = json.out.find('\n', at) + 1) {
        const std::size_t begin = at + kBegin.size();
        const std::size_t end = json.out.find("\",\"NativePath\":", begin);
        decoded.insert(FromJson(std::string_view(json.out).substr(begin, end - begin)));
    }
    EXPECT_EQ(decoded, made);

    EXPECT_EQ(LinesOf(Listed("names", "names.txt"), ""), oneLine);
    EXPECT_EQ(LinesOf(Listed("paths", "paths.txt"), folder), oneLine);

    const Outcome copied = RunScript("set cmbSearchFor = *\nset cmbDir = " + Root().string() +
                                     "/odd\nset chkReadOnly = 2\nset chkHidden = 2\n"
                                     "set chkFastSort = 1\nclick cmdSearch\nclick cmdSelectAll\n"
                                     "click cmdCopySelected\nset cmbDir = " +
                                     Root().string() + "/copied\nanswer OK\nclick OKButton\n");
    EXPECT_EQ(copied.exitCode, 0) << copied.err;
    Names there;
    for (const auto& entry : fs::directory_iterator(Root() / "copied"))
        there.insert(entry.path().filename().string());
    EXPECT_EQ(there, made);
}

// A Multiple Path List of folders is read back as locations.
TEST_F(NameListsTest, AnyFolderOfAPathListIsFoundAgain) {
    std::mt19937_64 random = NamesRandom();
    AddFolder("places");
    Names folders;
    for (int i = 0; i < 200; ++i) {
        const std::string name = RandomName(random, i);
        if (HasLineBreak(name) || !folders.insert(name).second) continue;
        AddFile(fs::path("places") / name / "inside.txt", "");
    }
    const Outcome listed = Run({"list", "*", "--in", "places", "--kind", "folders",
                                "--any-attribute", "--as", "mpl", "--to", "places.mpl"});
    EXPECT_EQ(listed.exitCode, 0) << listed.err;
    const Outcome found = RunScript("answer " + Root().string() +
                                    "/places.mpl\nset optBrowse(2) = 1\nclick cmdBrowse\n"
                                    "set cmbSearchFor = inside.txt\nset chkFastSort = 1\n"
                                    "click cmdSearch\ndump lblNumOfFilesFound\n");
    EXPECT_EQ(found.exitCode, 0) << found.err;
    EXPECT_EQ(found.out, std::to_string(folders.size()) + "\n");
}

} // namespace
} // namespace tarvix::endtoend
