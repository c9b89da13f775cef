#include "tests/actions/random_world.h"

#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/user_input.h"

#include <algorithm>
#include <memory>

namespace tarvix::testing {

namespace {

using platform::MemoryNode;
using session::PromptId;

constexpr std::array<const char*, 10> kDestinations{
    "C:\\d",         "C:\\t",   "C:\\t\\sub", "C:\\road", "E:\\d",
    "C:\\new\\deep", "E:\\new", "C:\\d\\sub", "C:\\",     "E:\\road"};

std::string ContentOf(const MemoryNode& node) {
    return node.IsLink() ? "-> " + node.linkTarget : node.content;
}

void Collect(const MemoryNode& node, std::set<std::string>& contents) {
    if (!node.IsFolder()) contents.insert(ContentOf(node));
    for (const auto& [key, child] : node.Children()) {
        Collect(platform::InMemory(*child), contents);
    }
}

// What he may press in each prompt; nothing is ever deleted for good.
std::vector<std::string_view> ButtonsOn(PromptId id) {
    switch (id) {
    case PromptId::kDuplicate:
        return {"cmdSkip",          "cmdOverwrite",        "cmdRename",
                "cmdSkipAll",       "cmdOverwriteAll",     "cmdRenameAll",
                "cmdDeleteReplace", "cmdDeleteReplaceAll", "cmdCancel"};
    case PromptId::kAskLongPath:
        return {"cmdSkip", "cmdContinue", "cmdSkipAll", "cmdContinueAll", "cmdCancel"};
    case PromptId::kOverrideProtected:
        return {"cmdNo", "cmdYes", "cmdNoToAll", "cmdYesToAll", "cmdCancel"};
    case PromptId::kOverrideRecycleFailure:
        return {"cmdNo", "cmdNoToAll", "cmdCancel"};
    default:
        return {};
    }
}

// Whether it asks for what he has just started, with a warning in front or without.
bool Confirms(PromptId id) {
    return session::FactsOf(id).role == session::PromptRole::kConfirmation ||
           id == PromptId::kConfirmCopyOrMoveWarned || id == PromptId::kConfirmDeleteWarned;
}

bool Press(session::Session& session, fields::Form& form, std::string_view name) {
    fields::Control* button = form.Find(name);
    return button != nullptr && session::UserClick(session, *button).has_value();
}

} // namespace

int Dice::Roll(int sides) {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<int>((state_ >> 11) % static_cast<std::uint64_t>(sides));
}

int AnyUser::MsgBox(const session::Prompt& prompt) {
    const auto buttons = session::ButtonsOf(prompt.style);
    if (isCareful_) {
        return buttons.front() == session::kOk ? int{session::kOk}
                                               : session::SafeAnswer(prompt.style);
    }
    return Confirms(prompt.id) && dice_.Chance(90) ? buttons.front() : dice_.One(buttons);
}

void AnyUser::ShowModal(session::Session& session, fields::Form& form,
                        const session::Prompt& prompt) {
    if (prompt.id == PromptId::kActionWindow) {
        inDialog(session);
    } else if (const auto buttons = ButtonsOn(prompt.id); !buttons.empty()) {
        int tries = isCareful_ ? 0 : 30;
        while (form.IsShown() && tries-- > 0) {
            Press(session, form, dice_.One(buttons));
        }
        if (form.IsShown()) Press(session, form, buttons.front());
    }
    form.Hide();
}

RandomWorld::RandomWorld(std::uint64_t seed, bool isCareful) : dice(seed), user(dice, isCareful) {
    Disk().UseClock([this] { return machine.clock.FromLocal({2025, 6, 1, 12, 0, 0}); });
    Disk().AddFile(machine.environment.programFolder + "\\TXFSSearchHistoryFile.txt", "*EOF");
    Disk().AddDrive("E:");
    MakeTree();
    if (!isCareful) MakeTrouble();
    program_.Start({});
    S().frmSearch.chkFastSort.Value = 1;
    for (const auto& [path, content] : Files()) {
        first_.insert(content);
    }
    machine.faults.ResetCounts();
}

void RandomWorld::MakeTree() {
    constexpr std::array<const char*, 12> kAlways{
        "C:\\t\\a.txt",    "C:\\t\\b.txt",           "C:\\t\\sub\\a.txt", "C:\\t\\sub\\deep\\c.txt",
        "C:\\d\\a.txt",    "C:\\d\\sub\\a.txt",      "E:\\d\\a.txt",      "E:\\d\\sub\\deep\\c.txt",
        "C:\\d\\b.txt\\x", "C:\\t\\sub\\sub\\a.txt", "C:\\t\\noext",      "C:\\t\\dot."};
    constexpr std::array<const char*, 12> kSometimes{
        "C:\\t\\A.TXT",       "C:\\t\\ blank.txt", "C:\\t\\sub\\a_.txt", "C:\\d\\a_.txt",
        "C:\\t\\deep\\c.txt", "C:\\d\\blank.txt",  "C:\\d\\A.txt",       "C:\\new\\deep\\a.txt",
        "C:\\d\\t\\a.txt",    "C:\\a.txt",         "C:\\t\\ \\a.txt",    "C:\\d\\sub_\\a.txt"};
    for (const char* path : kAlways) {
        Disk().AddFile(path, std::string("content of ") + path);
    }
    for (const char* path : kSometimes) {
        if (dice.Chance(35)) Disk().AddFile(path, std::string("content of ") + path);
    }
    Disk().AddFolder("C:\\t\\empty");
    Disk().AddLink("C:\\road", "C:\\t");
    Disk().AddLink("E:\\road", "C:\\d");
    if (dice.Chance(40)) Disk().AddLink("C:\\d\\link", "C:\\t");
    if (dice.Chance(40)) Disk().AddLink("C:\\t\\link", "C:\\d\\a.txt");
    if (dice.Chance(30)) Disk().AddLink("C:\\d\\noext", "C:\\t\\noext");
    for (const char* path : {"C:\\t\\a.txt", "C:\\t\\sub", "C:\\d\\a.txt", "C:\\d\\sub"}) {
        constexpr std::array<std::uint32_t, 3> kMarks{platform::kReadOnly, platform::kHidden,
                                                      platform::kSystem};
        if (dice.Chance(20)) Disk().Node(path)->attributes |= dice.One(kMarks);
    }
}

void RandomWorld::MakeTrouble() {
    if (dice.Chance(20)) Disk().Node("C:\\t\\sub\\deep\\c.txt")->isUnreadable = true;
    if (dice.Chance(20)) Disk().Node("C:\\t\\b.txt")->isUnreadable = true;
    if (dice.Chance(15)) Disk().SetCapacity("E:", 100);
    if (dice.Chance(15)) machine.bin.SetHasTrash(dice.Chance(50) ? "E:" : "C:", false);
    if (dice.Chance(15)) machine.bin.Refuse("C:\\d\\a.txt", platform::kPermissionDenied);
    S().state.options.blnAutoMode = false;
}

void RandomWorld::Search() {
    constexpr std::array<const char*, 6> kPlaces{"C:\\t", "C:\\d", "C:\\t\\sub",
                                                 "E:\\d", "E:\\",  "C:\\t\\sub|C:\\d"};
    constexpr std::array<const char*, 4> kPatterns{"*", "*", "a*|sub", "sub"};
    auto& form = S().frmSearch;
    form.cmbSearchFor.Text = dice.One(kPatterns);
    form.cmbDir.Text = dice.One(kPlaces);
    form.optFilesVsDirs.Choose(dice.One(std::array{0, 0, 2, 3}));
    form.chkIncludeSubFolders.Value = dice.Roll(2);
    for (fields::CheckBox* box : form.attributeBoxes) {
        box->Value = 2;
    }
    (void)session::UserClick(S(), form.cmdSearch);
}

void RandomWorld::Select() {
    auto& form = S().frmSearch;
    (void)session::UserClick(S(), form.cmdSelectAll);
}

Request RandomWorld::AnyRequest() {
    Request request;
    request.isMove = dice.Chance(50);
    request.way =
        request.isMove ? dice.One(std::array{0, 0, 0, 2, 3}) : dice.One(std::array{0, 0, 0, 1, 3});
    request.structure = request.way == 2 ? 0 : dice.One(std::array{0, 0, 0, 1, 2, 2, 3});
    request.duplicates = dice.Roll(request.isMove ? 3 : 4);
    request.namesFolders = dice.Chance(40);
    request.destination = dice.One(kDestinations);
    if (request.way == 1) {
        request.destination = dice.Chance(50) ? "" : "\\sub";
        request.places = {dice.One(kDestinations), dice.One(kDestinations)};
    } else if (request.way == 2) {
        request.destination.clear();
    } else if (request.way == 3) {
        request.destination =
            dice.One(std::array{"E:\\*4*", "C:\\d\\*4**5*", "C:\\d\\|4,1|", "*1*:\\d\\sub"});
    }
    request.added = dice.One(std::array{"_", "_", " x", "0", " "});
    return request;
}

void RandomWorld::Enter(const Request& request) {
    auto& form = S().frmDialog;
    form.lstMulti.SetItems(request.places);
    form.optTo.Choose(request.way == 0 ? 3 : 0);
    (void)session::UserClick(S(), form.optTo[request.way]);
    form.OKButton.Visible = true;
    form.cmbDir.Text = request.destination;
    form.optStructure.Choose(request.structure);
    form.chkFolderRename.Value = request.namesFolders ? 1 : 0;
    form.txtRename.Text = request.added;
    const std::array<fields::CheckBox*, 4> boxes{&form.chkAsk, &form.chkSkipAll, &form.chkRename,
                                                 &form.chkOverWrite};
    (void)session::UserSet(S(), *boxes[static_cast<std::size_t>(request.duplicates)], "1");
}

void RandomWorld::ShowDialog(fields::CommandButton& button, const std::function<void()>& fill) {
    user.inDialog = [&](session::Session& session) {
        fill();
        if (beforeOk) beforeOk();
        if (pressOk) {
            pressOk(session);
        } else {
            (void)session::UserClick(session, session.frmDialog.OKButton);
        }
        if (session.frmDialog.IsShown()) {
            (void)session::UserClick(session, session.frmDialog.CancelButton);
        }
    };
    (void)session::UserClick(S(), button);
}

void RandomWorld::Copy(const Request& request) {
    auto& form = S().frmSearch;
    ShowDialog(request.isMove ? form.cmdMoveSelected : form.cmdCopySelected,
               [&] { Enter(request); });
}

void RandomWorld::Rename() {
    ShowDialog(S().frmSearch.cmdRenameSelected, [this] {
        auto& form = S().frmDialog;
        const bool adds = dice.Chance(50);
        (void)session::UserSet(S(), adds ? form.chkAdd : form.chkFindReplace, "1");
        form.txtAdd.Text = dice.One(std::array{"_", "x", " "});
        form.txtFind.Text = dice.One(std::array{"a", "sub", "t", "."});
        form.txtReplace.Text = dice.One(std::array{"A", "b", "", "aa"});
        form.optOnceVsAll.Choose(dice.Roll(2));
        form.optNamePortion.Choose(dice.Roll(3));
    });
}

void RandomWorld::Delete() {
    (void)session::UserClick(S(), S().frmSearch.cmdDeleteSelected);
}

void RandomWorld::Live(int actions) {
    for (int i = 0; i < actions; ++i) {
        Search();
        Select();
        const int what = dice.Roll(10);
        if (what < 7) {
            Copy(AnyRequest());
        } else if (what < 9) {
            Rename();
        } else {
            Delete();
        }
    }
}

std::set<std::string> RandomWorld::Folders() {
    const auto folders = Disk().AllFolders();
    return {folders.begin(), folders.end()};
}

std::map<std::string, std::string> RandomWorld::Files() {
    std::map<std::string, std::string> files;
    for (const std::string& path : Disk().AllFiles()) {
        if (path.starts_with("C:\\home\\") || path.starts_with(machine.environment.programFolder)) {
            continue;
        }
        files[path] = ContentOf(*Disk().Node(path));
    }
    return files;
}

std::vector<std::string> RandomWorld::Lost() {
    std::set<std::string> left;
    for (const std::string& path : Disk().AllFiles()) {
        left.insert(ContentOf(*Disk().Node(path)));
    }
    for (const auto& item : machine.bin.Items()) {
        Collect(*item.node, left);
    }
    std::vector<std::string> lost;
    std::ranges::set_difference(first_, left, std::back_inserter(lost));
    return lost;
}

std::vector<std::string> RandomWorld::Broken() {
    std::vector<std::string> broken;
    for (const auto& [path, content] : Files()) {
        if (!first_.contains(content)) broken.push_back(path + ": " + content);
    }
    return broken;
}

} // namespace tarvix::testing
