#include "tests/model/world.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvix::model {

namespace {

namespace fs = std::filesystem;

constexpr std::array kFiles{"a.txt",   "A.TXT",        "b.txt",        "b",      "c.mp3",
                            "d.d.txt", "\xC3\xBC.txt", "\xC3\x9C.txt", ".h.txt", "x y.txt",
                            "q?.txt",  "e.TXT",        "aba.txt"};
constexpr std::array kFolders{"d", "D", "sub", "s.x", "\xC3\xA4"};

void AddFileTo(Node& folder, const char* name, Dice& dice, bool hasForeign) {
    if (std::ranges::any_of(folder.children, [&](const auto& one) { return one->name == name; })) {
        return;
    }
    auto file = std::make_unique<Node>();
    file->name = name;
    constexpr std::array kModes{0644U, 0644U, 0644U, 0600U, 0664U, 0444U, 0640U, 0000U};
    file->mode = dice.One(kModes);
    file->isForeign = hasForeign && dice.Chance(15);
    Node* const added = Add(folder, std::move(file));
    added->content = "content of " + added->Path();
}

Node* AddFolderTo(Node& folder, const char* name, Dice& dice, bool hasForeign) {
    for (const auto& child : folder.children) {
        if (child->name == name) return child->isFolder ? child.get() : nullptr;
    }
    constexpr std::array kModes{0755U, 0755U, 0755U, 0700U, 0555U, 0755U, 0311U, 0644U};
    Node* const added = Add(folder, NewFolder(name, dice.One(kModes)));
    added->isForeign = hasForeign && dice.Chance(15);
    if (added->isForeign) added->mode = dice.One(std::array{0755U, 0777U, 01777U});
    return added;
}

void Fill(Node& folder, int depth, Dice& dice, bool hasForeign) {
    for (int i = dice.Roll(5); i > 0; --i) {
        AddFileTo(folder, dice.One(kFiles), dice, hasForeign);
    }
    for (int i = depth > 0 ? dice.Roll(3) : 0; i > 0; --i) {
        Node* const inner = AddFolderTo(folder, dice.One(kFolders), dice, hasForeign);
        if (inner != nullptr) Fill(*inner, depth - 1, dice, hasForeign);
    }
}

// Names that differ in case alone are for copies and moves.
void DropTwins(Node& folder) {
    std::set<std::string> known;
    std::erase_if(folder.children,
                  [&](const auto& child) { return !known.insert(Upper(child->name)).second; });
    for (const auto& child : folder.children) {
        DropTwins(*child);
    }
}

// All can be looked at where objects go to.
void LetIn(Node& folder) {
    if ((folder.mode & 0500) != 0500 || folder.mode == 0644) folder.mode |= 0555;
    for (const auto& child : folder.children) {
        if (child->isFolder) LetIn(*child);
    }
}

std::string Slurp(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct Reader {
    std::set<std::string> withMode; // paths of folders
    std::vector<std::string> lines;

    void NoteExpected(const Node& node) {
        if (node.isFolder && node.isOld && node.parent != nullptr) withMode.insert(node.Path());
        for (const auto& child : node.children) {
            NoteExpected(*child);
        }
    }
    bool Read(const fs::path& folder, const std::string& below);
};

bool Reader::Read(const fs::path& folder, const std::string& below) {
    bool isHolding = false;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string path =
            below + (below.empty() ? "" : "/") + entry.path().filename().string();
        struct stat st {};
        ::lstat(entry.path().c_str(), &st);
        const bool isFolder = S_ISDIR(st.st_mode);
        ::chmod(entry.path().c_str(), isFolder ? 0700 : 0600);
        const std::string mode = ModeText(static_cast<unsigned>(st.st_mode));
        if (!isFolder) {
            lines.push_back(path + " " + mode + " " + Slurp(entry.path()));
            isHolding = true;
            continue;
        }
        const bool holds = Read(entry.path(), path);
        if (withMode.contains(path)) {
            lines.push_back(path + "/ " + mode);
        } else if (holds) {
            lines.push_back(path + "/");
        } else {
            continue;
        }
        isHolding = true;
    }
    return isHolding;
}

} // namespace

std::unique_ptr<Node> AnyTree(Dice& dice, Verb verb, bool hasForeign) {
    auto tree = NewFolder("");
    Node* const p = Add(*tree, NewFolder("p"));
    Node* const in = Add(*p, NewFolder("in"));
    Fill(*in, 3, dice, hasForeign);
    if (verb == Verb::kRename) {
        DropTwins(*in);
        return tree;
    }
    if (dice.Chance(80)) {
        Node* const out = AddFolderTo(*tree, "out", dice, hasForeign);
        Fill(*out, 2, dice, hasForeign);
        LetIn(*out);
    }
    return tree;
}

Request AnyRequest(Dice& dice, Verb verb) {
    Request request;
    request.verb = verb;
    request.pattern = dice.One(std::array{"*", "*", "*.txt", "a*", "*b*", "?.*"});
    request.wantsFolders = dice.Chance(25);
    request.hasSubfolders = !request.wantsFolders && dice.Chance(75);
    request.anyAttribute = dice.Chance(50);
    request.to =
        dice.One(std::array{"out", "out", "out/d", "out/new", "new/deep", "out/SUB", "p/in"});
    request.structure = dice.One(
        std::array{Structure::kNone, Structure::kNone, Structure::kFolder, Structure::kBackup});
    request.duplicates =
        dice.One(std::array{Duplicates::kSkip, Duplicates::kRename, Duplicates::kOverwrite});
    const bool renames = verb == Verb::kRename || request.duplicates == Duplicates::kRename;
    if (renames) request.renameText = dice.One(std::array{"_", "-x", "#1"});
    request.atBeginning = renames && dice.Chance(30);
    if (verb == Verb::kMove) {
        if (request.duplicates == Duplicates::kOverwrite) request.duplicates = Duplicates::kSkip;
        if (dice.Chance(25)) request.levels = 1 + dice.Roll(2);
        request.withFolderNames = dice.Chance(50);
    }
    // Whether a hidden object may overwrite is asked.
    if (request.duplicates == Duplicates::kOverwrite) request.anyAttribute = false;
    if (verb == Verb::kRename) {
        if (dice.Chance(50)) request.insert = dice.One(std::array{"-new", "A", "x.y"});
        request.find = dice.One(std::array{"a", "b", "t", ".", "AB"});
        request.replace = dice.One(std::array{"", "a", "A", "ba", "zz"});
        request.once = dice.Chance(40);
        request.portion =
            dice.One(std::array{Portion::kPrefix, Portion::kExtension, Portion::kName});
    }
    return request;
}

void MakeOnDisk(const Node& tree, const fs::path& folder, int owner) {
    for (const auto& child : tree.children) {
        const fs::path path = folder / child->name;
        if (child->isFolder) {
            fs::create_directory(path);
            MakeOnDisk(*child, path, owner);
        } else {
            std::ofstream(path, std::ios::binary) << child->content;
        }
        const auto user = static_cast<uid_t>(owner);
        if (owner != 0 && !child->isForeign) (void)!::lchown(path.c_str(), user, user);
        ::chmod(path.c_str(), child->mode);
    }
}

std::vector<std::string> LinesOnDisk(const fs::path& folder, const Node& expected) {
    Reader reader;
    reader.NoteExpected(expected);
    reader.Read(folder, "");
    std::ranges::sort(reader.lines);
    return reader.lines;
}

std::vector<std::string> ContentsBelow(const fs::path& folder) {
    std::vector<std::string> contents;
    if (!fs::exists(folder)) return contents;
    Reader reader;
    reader.Read(folder, ""); // for the right to read
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) contents.push_back(Slurp(entry.path()));
    }
    std::ranges::sort(contents);
    return contents;
}

} // namespace tarvix::model
