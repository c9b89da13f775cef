#include "tests/model/model.h"

#include "tests/model/searching.h"

#include <algorithm>
#include <optional>

namespace tarvix::model {

namespace {

std::vector<std::string> Split(const std::string& path) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t slash = std::min(path.find('/', at), path.size());
        if (slash > at) parts.push_back(path.substr(at, slash - at));
        at = slash + 1;
    }
    return parts;
}

std::pair<std::string, std::string> SplitName(const Node& node) {
    const std::size_t dot = node.isFolder ? std::string::npos : node.name.rfind('.');
    if (dot == std::string::npos) return {node.name, ""};
    return {node.name.substr(0, dot), node.name.substr(dot + 1)};
}

void AddContents(const Node& node, std::vector<std::string>& contents) {
    if (!node.isFolder) contents.push_back(node.content);
    for (const auto& child : node.children) {
        AddContents(*child, contents);
    }
}

// One run of a copy or move.
class Placing {
  public:
    Placing(Node& tree, std::string root, const Request& request, const Actor& actor)
        : tree_(tree), root_(std::move(root)), request_(request), actor_(actor) {}

    void Place(Node& node);
    Expected expected;

  private:
    // Where an object goes: names from the tree's root, the last one its own.
    std::vector<std::string> PlaceOf(const Node& node) const;
    std::string Prefix(const Node& node) const;
    Node* Lookup(const std::vector<std::string>& path) const;
    bool IsBlocked(const std::vector<std::string>& path) const;
    Node* MakeFolderOf(const std::vector<std::string>& path);
    std::vector<std::string> FreePlace(const Node& node, std::vector<std::string> path) const;
    bool Recycle(Node& node);
    void Put(Node& node, const std::vector<std::string>& path, unsigned oldMode);
    bool Take(Node& node, Node& folder, const std::string& name);
    void Fail() {
        if (expected.exitCode == 0) expected.exitCode = 1;
    }

    Node& tree_;
    const std::string root_;
    const Request& request_;
    const Actor actor_;
    std::vector<std::unique_ptr<Node>> gone_; // overwritten; may be rows that come later
};

std::string Placing::Prefix(const Node& node) const {
    std::string prefix;
    const Node* folder = node.parent;
    for (int level = 0; level < request_.levels; ++level) {
        prefix = folder->name + (prefix.empty() ? "" : " ") + prefix;
        folder = folder->parent;
    }
    return prefix;
}

std::vector<std::string> Placing::PlaceOf(const Node& node) const {
    std::vector<std::string> below = Split(node.Path()); // p, in, ...
    if (request_.levels > 0) {
        below.pop_back();
        below.resize(below.size() - static_cast<std::size_t>(request_.levels));
        const std::string prefix = request_.withFolderNames ? Prefix(node) + " " : "";
        below.push_back(prefix + node.name);
        return below;
    }
    std::vector<std::string> place = Split(request_.to);
    if (request_.structure == Structure::kNone) {
        place.push_back(node.name);
    } else if (request_.structure == Structure::kFolder) {
        place.insert(place.end(), below.begin() + 2, below.end());
    } else {
        place.push_back("C");
        for (const std::string& part : Split(root_)) {
            place.push_back(part);
        }
        place.insert(place.end(), below.begin(), below.end());
    }
    return place;
}

// What stands at a path; null for nothing.
Node* Placing::Lookup(const std::vector<std::string>& path) const {
    Node* at = &tree_;
    for (const std::string& part : path) {
        if (at == nullptr || !at->isFolder) return nullptr;
        at = Find(*at, part);
    }
    return at;
}

// A file stands where a folder should be.
bool Placing::IsBlocked(const std::vector<std::string>& path) const {
    const Node* at = &tree_;
    for (std::size_t i = 0; i + 1 < path.size() && at != nullptr; ++i) {
        at = Find(*at, path[i]);
        if (at != nullptr && !at->isFolder) return true;
    }
    return false;
}

// The folder that is to hold the last name, made if need be; null where that can't be.
Node* Placing::MakeFolderOf(const std::vector<std::string>& path) {
    Node* at = &tree_;
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        Node* next = Find(*at, path[i]);
        if (next == nullptr) {
            if (!actor_.MayChange(*at)) return nullptr;
            next = Add(*at, NewFolder(path[i]));
            next->isOld = false;
        }
        at = next;
    }
    return at;
}

std::vector<std::string> Placing::FreePlace(const Node& node, std::vector<std::string> path) const {
    const auto [base, extension] = SplitName(node);
    const std::string prefix =
        request_.levels > 0 && request_.withFolderNames ? Prefix(node) + " " : "";
    std::string added;
    do {
        added += request_.renameText;
        path.back() = prefix + (request_.atBeginning ? added + base : base + added);
        if (!extension.empty()) path.back() += "." + extension;
    } while (Lookup(path) != nullptr);
    return path;
}

bool Placing::Recycle(Node& node) {
    const bool canLeave = !node.isFolder || !node.isForeign || actor_.MayWrite(node);
    if (!actor_.MayTake(node) || !canLeave) return false;
    AddContents(node, expected.trashed);
    gone_.push_back(TakeOut(node));
    return true;
}

// A move that the system allows. A folder of another user's gets another parent only if it may be
// written to.
bool Placing::Take(Node& node, Node& folder, const std::string& name) {
    const bool canLeave =
        !node.isFolder || !node.isForeign || actor_.MayWrite(node) || node.parent == &folder;
    if (!actor_.MayTake(node) || !canLeave || !actor_.MayChange(folder)) return false;
    auto taken = TakeOut(node);
    taken->name = name;
    Add(folder, std::move(taken));
    return true;
}

void Placing::Put(Node& node, const std::vector<std::string>& path, unsigned oldMode) {
    Node* const folder = MakeFolderOf(path);
    if (folder == nullptr || !actor_.MayChange(*folder)) return Fail();
    const bool isMove = request_.verb == Verb::kMove;
    // A hidden object is copied by a move, and told to be.
    if (isMove && !node.IsHidden() && Take(node, *folder, path.back())) return;
    if (isMove && node.IsHidden()) expected.exitCode = -1;
    if (isMove && !node.IsHidden()) Fail();      // its original stays
    if (!actor_.MayReadAll(node)) return Fail(); // nothing is left of a folder either
    auto copy = CopyOf(node);
    copy->name = path.back();
    if ((oldMode & 0200) == 0) copy->mode &= ~0222U;
    if (copy->isFolder) copy->isOld = true; // its mode counts
    Add(*folder, std::move(copy));
}

void Placing::Place(Node& node) {
    // What this run has overwritten isn't what the search saw.
    if (std::ranges::find(gone_, &node, &std::unique_ptr<Node>::get) != gone_.end()) return Fail();
    const auto path = PlaceOf(node);
    std::string target;
    for (const std::string& part : path) {
        target += (target.empty() ? "" : "/") + part;
    }
    const std::string own = Upper(node.Path());
    const bool isInto = Upper(target).starts_with(own + "/");
    if (Upper(target) == own || isInto) {
        expected.exitCode = -1; // told, and nothing is done
        return;
    }
    if (IsBlocked(path)) return Fail();
    Node* const old = Lookup(path);
    constexpr unsigned kNoOldMode = 0777;
    if (old == nullptr) return Put(node, path, kNoOldMode);
    switch (request_.duplicates) {
    case Duplicates::kSkip:
        return;
    case Duplicates::kRename:
        return Put(node, FreePlace(node, path), kNoOldMode);
    case Duplicates::kOverwrite:
        // What this run has put there is never overwritten.
        if (!old->isOld) return Put(node, FreePlace(node, path), kNoOldMode);
        if (!actor_.MayReadAll(node)) return Fail();
        const unsigned oldMode = old->mode;
        if (!Recycle(*old)) return Fail();
        return Put(node, path, oldMode); // under its own name, in its own case
    }
}

// One run of a rename.
class Renaming {
  public:
    Renaming(const Request& request, const Actor& actor) : request_(request), actor_(actor) {}

    void Rename(Node& node) { request_.insert.empty() ? Replace(node) : Insert(node); }
    Expected expected;

  private:
    struct Parts {
        std::string before, text, after;
    };
    Parts PartsOf(const Node& node) const;
    static std::string Joined(const Parts& parts, const std::string& text);
    void Insert(Node& node);
    void Replace(Node& node);
    bool GiveName(Node& node, const std::string& name);
    bool GoesOn(const Node& node);

    const Request& request_;
    const Actor actor_;
    const Node* asked_ = nullptr; // the object of the last question
};

Renaming::Parts Renaming::PartsOf(const Node& node) const {
    const auto [prefix, extension] = SplitName(node);
    if (node.isFolder || request_.portion == Portion::kName) return {"", node.name, ""};
    if (request_.portion == Portion::kPrefix) return {"", prefix, "." + extension};
    return {prefix + ".", extension, ""};
}

// A dot at the end is dropped.
std::string Renaming::Joined(const Parts& parts, const std::string& text) {
    std::string name = parts.before + text + parts.after;
    if (name.ends_with('.')) name.pop_back();
    return name;
}

// A taken name is asked about once for each object in which something is replaced.
bool Renaming::GoesOn(const Node& node) {
    expected.exitCode = 1;
    if (request_.insert.empty() && asked_ != &node) expected.answers.emplace_back("OK");
    asked_ = &node;
    return false;
}

bool Renaming::GiveName(Node& node, const std::string& name) {
    const Node* const other = Find(*node.parent, name);
    // The very name that it has counts as taken.
    if (name.empty() || name == node.name || (other != nullptr && other != &node)) {
        return GoesOn(node);
    }
    if (!actor_.MayTake(node)) {
        expected.exitCode = 1;
        expected.answers.emplace_back("Cancel"); // not once more
        return false;
    }
    node.name = name;
    return true;
}

void Renaming::Insert(Node& node) {
    const Parts parts = PartsOf(node);
    const std::string& added = request_.insert;
    GiveName(node, Joined(parts, request_.atBeginning ? added + parts.text : parts.text + added));
}

void Renaming::Replace(Node& node) {
    const Parts parts = PartsOf(node);
    const std::string sought = Upper(request_.find);
    const std::size_t oldLength = sought.size();
    const std::size_t newLength = request_.replace.size();
    std::string text = parts.text;
    std::size_t hit = 0; // from 1
    bool isReplaced = false;
    while (true) {
        std::size_t from = hit + 1;
        if (hit != 0 && newLength > oldLength) from += newLength - oldLength;
        if (hit != 0 && newLength < oldLength) from = hit + newLength;
        // What stays as it was gives no hit twice.
        if (hit != 0 && !isReplaced) from = std::max(from, hit + 1);
        const std::size_t at =
            from - 1 <= text.size() ? Upper(text).find(sought, from - 1) : std::string::npos;
        if (at == std::string::npos) return;
        hit = at + 1;
        const std::string replaced =
            text.substr(0, at) + request_.replace + text.substr(at + oldLength);
        const std::size_t asked = expected.answers.size();
        isReplaced = GiveName(node, Joined(parts, replaced));
        if (!isReplaced) {
            const bool isRefused =
                expected.answers.size() > asked && expected.answers.back() == "Cancel";
            if (isRefused || parts.text.empty()) return;
            continue;
        }
        if (request_.once) return;
        text = replaced;
    }
}

} // namespace

Expected Apply(Node& tree, const std::string& root, const Request& request, const Actor& actor) {
    const Found found = Search(tree, request, actor);
    Placing placing(tree, root, request, actor);
    Renaming renaming(request, actor);
    Expected& expected = request.verb == Verb::kRename ? renaming.expected : placing.expected;
    for (Node* node : found.rows) {
        if (request.verb == Verb::kRename) {
            renaming.Rename(*node);
        } else {
            placing.Place(*node);
        }
    }
    if (found.hasUnread && expected.exitCode == 0) expected.exitCode = 1;
    std::ranges::sort(expected.trashed);
    // Without an answer left a failure is only told.
    while (!expected.answers.empty() && expected.answers.back() == "Cancel")
        expected.answers.pop_back();
    return expected;
}

} // namespace tarvix::model
