#pragma once

#include "platform/linux/copy_ahead.h"
#include "platform/linux/copy_crew.h"
#include "platform/linux/copy_run.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/folder_stack.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvix::platform {

// Copies one folder with all that is in it, depth first, without recursion. Names inside are taken
// as the disk has them, so that names which can't be drive paths are copied too.
class FolderCopier {
  public:
    // The paths are drive paths, for messages and the observer.
    FolderCopier(CopyRun& run, const DriveTable& drives, std::string_view from, std::string_view to)
        : run_(run), drives_(drives), from_(from), to_(to) {}

    // `madeTarget` tells that the target folder is new and shall get the source's mode and times; a
    // run that is inside of one goes on several threads.
    // Special files and mounts of others are skipped.
    Result<void> Copy(UniqueFd source, UniqueFd target, bool madeTarget);
    // What was skipped, in a sentence; empty for nothing.
    std::string Skipped() const;

  private:
    struct Level {
        FolderNames names;
        std::size_t fromLength;
        std::size_t toLength;
        bool isNew;
        std::size_t planned = 0; // how many of the names were looked through for copying ahead
        std::shared_ptr<const CopyCrew::Folder> folder = nullptr; // held for the crew
    };
    // What is begun, in its order: a file, or without one the end of the folder.
    struct Begun {
        std::shared_ptr<const CopyCrew::Folder> folder;
        std::shared_ptr<CopyCrew::File> file;
    };
    // What is copied by itself. Drive paths are for messages.
    struct Child {
        At source;
        At target;
        std::string_view from;
        std::string_view to;
        bool mayStand; // whether something may stand there already
    };

    Result<void> CopyContents();
    Result<void> GoThrough();
    Result<void> Begin(const char* name);
    Result<void> SettleAllBut(std::size_t count);
    Result<void> Settle(const Begun& begun);
    std::shared_ptr<const CopyCrew::Folder> FolderInHand();
    Result<void> CopyChild(const FolderNames::Item& item);
    Result<void> CopyFile(const Child& child);
    void NoteSkipped(std::string_view path);
    Result<void> CopySubfolder(const FolderNames::Item& item);
    Result<bool> MakeFolder(const char* name);
    Result<void> CheckFile(const struct statx& source, const Child& child);
    void PlanAhead();
    AheadItem AheadItemOf(const char* name);
    Result<void> PushLevel(bool isNew);
    Result<void> PopLevel();

    CopyRun& run_;
    const DriveTable& drives_;
    std::string from_;
    std::string to_;
    FolderStack sources_;
    FolderStack targets_;
    std::vector<Level> levels_;
    std::optional<CopyCrew> crew_; // for a target that bears no name of its own yet
    std::deque<Begun> begun_;
    std::string told_; // the file of it that was told last
    std::string firstSkipped_;
    std::size_t skipped_ = 0;
};

// Whether the innermost folder is another's mount, which is no part of what lies around it.
bool IsForeignMount(const FolderStack& stack, const DriveTable& drives);

// 75, for a folder that would go into itself.
std::unexpected<PlatformError> IntoItselfFailure(std::string_view from, std::string_view to);

// Whether an open folder is `outer` or lies in it.
bool IsWithin(int folder, const struct statx& outer);

} // namespace tarvix::platform
