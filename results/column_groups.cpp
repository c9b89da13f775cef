#include "results/column_groups.h"

namespace tarvix::results {

namespace {

constexpr std::array<std::string_view, 5> kTitles{"Usual", "Paths", "Programs", "Links", "Other"};

constexpr int kLeastWide = 200; // pixels at first

} // namespace

std::string_view TitleOf(ColumnGroup group) {
    return kTitles[static_cast<std::size_t>(group)];
}

ColumnGroup GroupOf(int column) {
    if (column >= kTargetPath && column <= kIconPath) return ColumnGroup::kLinks;
    switch (column) {
    case kName:
    case kSize:
    case kDate:
    case kType:
    case kExt:
    case kPath:
        return ColumnGroup::kUsual;
    case kVersion:
    case kExeType:
    case kOs:
        return ColumnGroup::kPrograms;
    case kPathName:
    case kPathNameNoSrch:
    case kPathNameLength:
    case kPathLevels:
    case kShortPath:
        return ColumnGroup::kPaths;
    default:
        return ColumnGroup::kOther;
    }
}

bool IsUsual(int column) {
    return GroupOf(column) == ColumnGroup::kUsual;
}

bool IsWide(int column) {
    return kColumns[static_cast<std::size_t>(column)].width >= kLeastWide;
}

} // namespace tarvix::results
