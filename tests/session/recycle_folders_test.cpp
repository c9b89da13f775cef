#include "session/paths/recycle_folders.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tarvix::session {
namespace {

struct Folder {
    std::string_view path;
    bool isBin;       // no deletion takes it
    bool isLeftOut;   // of a crawl
    bool holdsBinned; // a request that names it means the bin
};

constexpr Folder kFolders[] = {
    {"C:\\RECYCLER", true, true, true},
    {"c:\\recycled", true, true, true},
    {"E:\\$Recycle.bin", true, true, true},
    {"E:\\$RECYCLE.BIN\\S-1-5", false, false, true},
    {"E:\\Recycled things", false, false, true},
    {"E:\\d\\RECYCLER", false, false, false},
    {"\\\\server\\share\\RECYCLER", true, true, true},
    {"\\\\server\\share\\old recycled", false, true, true},
    {"\\\\server\\share\\RECYCLER\\a", false, false, true},
    {"C:\\home\\ann\\.local\\share\\Trash", true, true, true},
    {"C:\\home\\ann\\.local\\share\\Trash\\files\\a", false, false, true},
    {"C:\\home\\ann\\share\\Trash", false, false, false},
    {"C:\\home\\ann\\Trash", false, false, false},
    {"E:\\.Trash-1000", true, true, true},
    {"E:\\.Trash-1000\\files", false, false, true},
    {"E:\\.Trash", true, true, true},
    {"E:\\.Trash-", false, false, false},
    {"E:\\.Trash-notes", false, false, false},
    {"E:\\.Trashes", false, false, false},
    {"C:\\Music", false, false, false},
    {"C:\\", false, false, false},
    {"", false, false, false},
};

TEST(RecycleFolders, AreToldByTheirPaths) {
    for (const Folder& folder : kFolders) {
        EXPECT_EQ(IsRecycleBin(folder.path), folder.isBin) << folder.path;
        EXPECT_EQ(IsRecycleBinPath(folder.path), folder.isLeftOut) << folder.path;
        EXPECT_EQ(IsInRecycleBin(folder.path), folder.holdsBinned) << folder.path;
    }
}

} // namespace
} // namespace tarvix::session
