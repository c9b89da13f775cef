#pragma once

#include "platform/file_system.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::platform {

struct RehearsalNode;

// The objects of one folder, by upper-case names, those of one name by their exact text: so in
// `Dir` order.
struct RehearsalChildren {
    std::multimap<std::string, std::unique_ptr<RehearsalNode>, std::less<>> byUpper;
    int failure = 0; // why the real folder couldn't be listed; its objects come in by exact name
    // Made short names, worked out when one is asked for; null where two objects share one.
    std::optional<std::unordered_map<std::string, RehearsalNode*>> byShort;
};

// One object as it would be now.
struct RehearsalNode {
    std::string name;
    RehearsalNode* parent = nullptr;
    // The real path that it was moved or copied from; else it lies where its parent really lies.
    std::unique_ptr<std::string> origin;
    bool isMade = false; // there is nothing real behind it
    bool isFolder = false;
    bool isLink = false; // to a folder: isFolder too
    bool isBoundary = false;
    std::optional<ObjectFacts> facts;            // as far as they were asked for or changed
    std::shared_ptr<std::string> text;           // the bytes, where they were written anew
    std::unique_ptr<RehearsalChildren> children; // null until the folder is walked into

    bool IsTrueFolder() const { return isFolder && !isLink; }
    bool IsWithin(const RehearsalNode& other) const;
    std::string RealPath() const; // empty when there is none
};

// Real drives with changes that were never made: folders are read from the real file system when
// they are first walked into, and kept from then on. What is reached by two roads, through a link
// or under two drive names, is taken for two objects.
class RehearsalTree {
  public:
    struct Drive {
        std::string root; // upper case
        bool isReadOnly = false;
        RehearsalNode top;
    };
    // Where a path leads: its folder (null for a drive) and the object (null when missing).
    struct Place {
        Drive* drive = nullptr;
        RehearsalNode* folder = nullptr;
        RehearsalNode* node = nullptr;
        std::string_view name; // of the path that was walked
    };

    RehearsalTree(FileSystem& real, std::function<FileTime()> now)
        : real_(real), now_(std::move(now)) {}

    // Forgets what was read and changed.
    void Clear();

    // 52, 76 and what the real file system answers.
    Result<Place> Walk(std::string_view path);
    // The object must be there (53), be no folder (53), or lead to a folder (76).
    Result<Place> Need(std::string_view path);
    Result<Place> NeedFile(std::string_view path);
    Result<Place> NeedFolder(std::string_view path);
    // A place that may be written to: 70 on a drive that can't be.
    Result<Place> NeedTarget(std::string_view path);

    Result<RehearsalChildren*> ChildrenOf(RehearsalNode& folder);
    // By exact name, made short name, other case; null when there is none.
    Result<RehearsalNode*> Find(RehearsalNode& folder, std::string_view name);
    Result<RehearsalNode*> FindExact(RehearsalNode& folder, std::string_view name);
    Result<ObjectFacts> FactsOf(RehearsalNode& node);

    std::unique_ptr<RehearsalNode> MakeFolder() const;
    std::unique_ptr<RehearsalNode> MakeFile() const;
    // A copy of the object alone, in no folder.
    Result<std::unique_ptr<RehearsalNode>> Duplicate(RehearsalNode& node);
    // Puts a node that has no folder into a loaded one.
    RehearsalNode& Attach(RehearsalNode& folder, std::unique_ptr<RehearsalNode> node,
                          std::string_view name);
    // Takes a node out of its folder, which it must have.
    std::unique_ptr<RehearsalNode> Detach(RehearsalNode& node);
    FileTime Now() const { return now_(); }

  private:
    struct Recent {
        std::string path;
        Drive* drive = nullptr;
        RehearsalNode* folder = nullptr;
    };

    Result<Drive*> DriveOf(std::string_view root);
    Result<Place> Below(Drive& drive, RehearsalNode& folder, std::string_view name,
                        std::string_view path);
    std::unique_ptr<RehearsalChildren> Load(RehearsalNode& folder);
    Result<RehearsalNode*> FindUnlisted(RehearsalNode& folder, std::string_view name);
    void Remember(std::string_view folderPath, Drive& drive, RehearsalNode& folder);
    void ForgetRecent();

    FileSystem& real_;
    std::function<FileTime()> now_;
    std::map<std::string, std::unique_ptr<Drive>, std::less<>> drives_;
    std::array<Recent, 4> recent_; // folders that paths were looked up in, the next to go first
    std::size_t nextRecent_ = 0;
};

std::unexpected<PlatformError> RehearsalFailure(int number, std::string_view path);

} // namespace tarvix::platform
