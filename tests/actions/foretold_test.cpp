#include "actions/place/destination.h"
#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "actions/request/ok_button.h"
#include "actions/request/preview.h"
#include "actions/request/read_request.h"
#include "results/selection.h"
#include "tests/actions/random_world.h"
#include "text/case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

namespace tarvix::testing {
namespace {

using actions::PreviewEntry;
using actions::Verdict;

// What a disk would look like if each entry of a preview were done by hand.
class ByHand {
  public:
    explicit ByHand(RandomWorld& world) : files_(world.Files()), folders_(world.Folders()) {}

    // False when the verdict can't be true on this disk.
    bool Do(const PreviewEntry& entry, const std::string& source) {
        switch (entry.verdict) {
        case Verdict::kCopy:
        case Verdict::kProtectedCopy:
        case Verdict::kCopyOnly:
            return Put(source, entry.strNewPath, false);
        case Verdict::kMove:
            return Put(source, entry.strNewPath, true);
        case Verdict::kRename:
            return RenameInPlace(source, entry.strNewPath);
        case Verdict::kDuplicateRename:
            return Put(source, entry.strNewPath, movesDuplicates);
        case Verdict::kDuplicateOverwrite:
            if (!Stands(entry.strNewPath)) return false;
            Remove(Resolved(entry.strNewPath));
            return Put(source, entry.strNewPath, false);
        case Verdict::kDuplicateSkip:
        case Verdict::kDuplicateAsk:
            return Stands(entry.strNewPath);
        default:
            return true;
        }
    }
    const std::map<std::string, std::string>& Files() const { return files_; }

    bool movesDuplicates = false;

  private:
    static bool IsIn(const std::string& path, const std::string& folder) {
        return path == folder || path.starts_with(folder + "\\");
    }
    bool IsThere(const std::string& path) const {
        return folders_.contains(path) || files_.contains(path);
    }
    // The object of that name in a folder as it is spelt, or the same text.
    std::string Spelled(const std::string& path) const {
        if (IsThere(path)) return path;
        for (const auto& [file, content] : files_) {
            if (text::EqualNoCase(file, path)) return file;
        }
        const auto folder = std::ranges::find_if(
            folders_, [&](const std::string& each) { return text::EqualNoCase(each, path); });
        return folder == folders_.end() ? path : *folder;
    }
    // Where a path really leads, links on the way walked through.
    std::string Resolved(const std::string& path) const {
        const std::size_t cut = path.rfind('\\');
        if (cut == path.npos) return path;
        std::string folder = Resolved(path.substr(0, cut));
        const auto link = files_.find(folder);
        if (link != files_.end() && link->second.starts_with("-> ")) {
            folder = Resolved(link->second.substr(3));
        }
        return Spelled(folder + path.substr(cut));
    }
    bool Stands(const std::string& path) const { return IsThere(Resolved(path)); }
    void Remove(const std::string& path) {
        std::erase_if(files_, [&](const auto& file) { return IsIn(file.first, path); });
        std::erase_if(folders_, [&](const auto& folder) { return IsIn(folder, path); });
    }
    void MakeFolders(const std::string& path) {
        for (std::size_t cut = path.find('\\'); cut != path.npos; cut = path.find('\\', cut + 1)) {
            if (cut > 2) folders_.insert(path.substr(0, cut));
        }
    }
    // What lies in a folder that was renamed before goes on from its new place.
    bool RenameInPlace(std::string source, const std::string& to) {
        for (const auto& [before, now] : renamed_) {
            if (IsIn(source, before)) source = now + source.substr(before.size());
        }
        renamed_.emplace_back(source, to);
        return Put(source, to, true);
    }
    bool Put(const std::string& from, const std::string& to, bool moves) {
        const std::string source = Resolved(from);
        std::string target = Resolved(to);
        const bool isCaseChange = moves && target == source && !to.ends_with(source);
        if (!IsThere(source) || (IsThere(target) && !isCaseChange)) return false;
        if (isCaseChange) target = to;
        std::map<std::string, std::string> files;
        std::set<std::string> folders;
        for (const auto& [path, content] : files_) {
            if (IsIn(path, source)) files[target + path.substr(source.size())] = content;
        }
        for (const std::string& path : folders_) {
            if (IsIn(path, source)) folders.insert(target + path.substr(source.size()));
        }
        if (moves) Remove(source);
        MakeFolders(target);
        files_.merge(files);
        folders_.merge(folders);
        return true;
    }

    std::map<std::string, std::string> files_;
    std::set<std::string> folders_;
    std::vector<std::pair<std::string, std::string>> renamed_;
};

// What the action really did, entry by entry.
class Recorder : public actions::OutcomeSink {
  public:
    void Settled(const actions::Outcome& outcome) override { outcomes.push_back(outcome); }
    std::vector<actions::Outcome> outcomes;
};

bool IsPlaced(Verdict verdict) {
    return verdict == Verdict::kCopy || verdict == Verdict::kMove || verdict == Verdict::kRename ||
           verdict == Verdict::kProtectedCopy || verdict == Verdict::kCopyOnly ||
           verdict == Verdict::kDuplicateRename || verdict == Verdict::kDuplicateOverwrite;
}

bool IsPlaced(actions::OutcomeKind kind) {
    using actions::OutcomeKind;
    return kind == OutcomeKind::kCopied || kind == OutcomeKind::kMoved ||
           kind == OutcomeKind::kRenamed || kind == OutcomeKind::kOverwrote ||
           kind == OutcomeKind::kReplaced;
}

std::string Told(const std::vector<PreviewEntry>& entries, const results::Selection& tables) {
    std::string told;
    for (const auto& entry : entries) {
        told.append(tables.strSelPath[entry.index]).append(" -> ").append(entry.strNewPath);
        told.append(": ").append(actions::VerdictText(entry.verdict)).append("\n");
    }
    return told;
}

bool AnyFails(const actions::PreviewResult& foretold) {
    return std::ranges::any_of(foretold.entries, [](const PreviewEntry& entry) {
        return entry.verdict == Verdict::kFailed || entry.verdict == Verdict::kNoRight ||
               entry.verdict == Verdict::kNoRoom || entry.verdict == Verdict::kNoTrash;
    });
}

struct Course {
    actions::PreviewResult foretold;
    Recorder real;
    std::map<std::string, std::string> expected;
    bool wasOpened = false;
    bool isPossible = true;
    bool examplesAgree = true;
    std::string told;
};

// Whether what goes to a new place without ado goes where the text of the request alone says.
bool ExamplesAgree(RandomWorld& world, const actions::PreviewResult& foretold) {
    const actions::ActionRequest request = actions::ReadRequest(world.S());
    if (request.way == actions::Way::kSpecialRule) return true;
    std::map<std::size_t, int> places;
    return std::ranges::all_of(foretold.entries, [&](const PreviewEntry& entry) {
        const int place = places[entry.index]++;
        if (entry.verdict != Verdict::kCopy && entry.verdict != Verdict::kMove) return true;
        const auto object = actions::ObjectAt(world.program().Selection(), entry.index);
        const auto example = actions::ComputeDestination(request, object, place);
        return actions::CleanedDestination(example.path) == entry.strNewPath;
    });
}

Course ForetellAndDo(RandomWorld& world) {
    Course run;
    world.Search();
    world.Select();
    if (world.program().Selection().lngSelTop < 0) return run;
    const bool renames = world.dice.Chance(20);
    Request request = world.AnyRequest();
    // A rehearsal takes two roads to one folder for two folders.
    for (std::string& place : request.places) {
        if (place.contains("road")) place = "C:\\new\\deep";
    }
    if (request.destination.contains("road")) request.destination = "E:\\new";
    const auto foretell = [&] {
        run.wasOpened = true;
        const auto before = world.Files();
        run.foretold = actions::Preview(world.S());
        EXPECT_EQ(world.Files(), before) << "a preview changes nothing";
        const auto& tables = world.program().Selection();
        run.told = Told(run.foretold.entries, tables);
        ByHand disk(world);
        for (const PreviewEntry& entry : run.foretold.entries) {
            // A hidden or system object is copied instead of moved.
            const auto facts = world.Disk().Facts(tables.strSelPath[entry.index]);
            disk.movesDuplicates =
                request.isMove && facts &&
                (facts->attributes & (platform::kHidden | platform::kSystem)) == 0;
            if (disk.Do(entry, std::string(tables.strSelPath[entry.index]))) continue;
            run.isPossible = false;
            run.told += "impossible: " + entry.strNewPath + "\n";
        }
        run.expected = disk.Files();
        if (!renames) run.examplesAgree = ExamplesAgree(world, run.foretold);
    };
    world.pressOk = [&run](session::Session& session) {
        actions::PressOk(session, session.frmDialog, &run.real);
    };
    world.beforeOk = foretell;
    if (renames) {
        world.Rename();
    } else {
        world.Copy(request);
    }
    return run;
}

TEST(Foretold, WhatAPreviewSaysIsWhatHappens) {
    const std::uint64_t rounds = std::getenv("TARVIX_NIGHTLY") != nullptr ? 10'000 : 1'000;
    int placed = 0;
    for (std::uint64_t seed = 1; seed <= rounds; ++seed) {
        RandomWorld world(seed, true);
        const Course run = ForetellAndDo(world);
        if (!run.wasOpened) continue;
        const std::string when = "with seed " + std::to_string(seed) + "\n" + run.told;
        // What a failed object leaves behind is not foretold.
        if (!AnyFails(run.foretold)) {
            ASSERT_TRUE(run.isPossible) << when;
            ASSERT_EQ(world.Files(), run.expected) << when;
        }
        ASSERT_TRUE(run.examplesAgree) << when;
        ASSERT_EQ(run.foretold.entries.size(), run.real.outcomes.size()) << when;
        for (std::size_t i = 0; i < run.real.outcomes.size(); ++i) {
            const auto& real = run.real.outcomes[i];
            const auto& entry = run.foretold.entries[i];
            ASSERT_EQ(entry.index, real.index) << when;
            ASSERT_EQ(entry.strNewPath, real.strDestination) << when;
            ASSERT_EQ(IsPlaced(entry.verdict), IsPlaced(real.kind)) << when;
            placed += IsPlaced(entry.verdict) ? 1 : 0;
        }
    }
    EXPECT_GT(placed, 300);
}

} // namespace
} // namespace tarvix::testing
