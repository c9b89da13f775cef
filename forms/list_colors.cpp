#include "forms/list_colors.h"

#include "forms/theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

using results::RowSign;

struct TintRow {
    fields::Color color; // as the list names it
    QRgb light;          // on light ground
    QRgb dark;
};

// The colours of the second search string and those behind it, none of them near that of folders.
constexpr std::array<TintRow, 8> kTints{{{0x000040, 0xff7a5000, 0xffe6b455},
                                         {0x404040, 0xff4f5860, 0xffb4bcc4},
                                         {0x00FF00, 0xff0b6e22, 0xff74dc85},
                                         {0x7F00FF, 0xff96148c, 0xfff19ae9},
                                         {0xFFFF00, 0xff00667a, 0xff5fd3e6},
                                         {0x7F003F, 0xff5526a8, 0xffbda2fa},
                                         {0x007F00, 0xff4a6300, 0xffb9d35c},
                                         {0x003F7F, 0xff3a4a78, 0xffa3b6e8}}};

constexpr QRgb kBackLight = 0xff67696d;
constexpr QRgb kBackDark = 0xff9ba0a6;

constexpr int kLastColored = 10; // the last search string with a colour of its own

QIcon ThemeIcon(const char* name, QStyle::StandardPixmap otherwise) {
    const QIcon icon = QIcon::fromTheme(name);
    return icon.isNull() ? QApplication::style()->standardIcon(otherwise) : icon;
}

} // namespace

QColor ListTint(fields::Color color, const QPalette& palette) {
    const auto row = std::ranges::find(kTints, color, &TintRow::color);
    if (row == kTints.end()) return Tint(color, palette);
    return QColor::fromRgb(IsDark(palette) ? row->dark : row->light);
}

QColor StandingBack(const QPalette& palette) {
    return QColor::fromRgb(IsDark(palette) ? kBackDark : kBackLight);
}

SignLook LookOf(RowSign sign) {
    switch (sign) {
    case RowSign::kGone:
        return {ThemeIcon("user-trash", QStyle::SP_TrashIcon), {}};
    case RowSign::kCut:
        return {QIcon::fromTheme("edit-cut"), "✂"};
    case RowSign::kFailed:
        return {{}, "✗"};
    case RowSign::kMoved:
        return {{}, "→"};
    case RowSign::kRenamed:
        return {{}, "✎"};
    case RowSign::kReplacement:
        return {{}, "✓"};
    case RowSign::kEntry:
        return {{}, "▸"};
    case RowSign::kLink:
        return {ThemeIcon("emblem-symbolic-link", QStyle::SP_FileLinkIcon), {}};
    case RowSign::kFolder:
        return {ThemeIcon("folder", QStyle::SP_DirIcon), {}};
    case RowSign::kNone:
        break;
    }
    return {};
}

std::vector<LegendEntry> LegendOfList() {
    constexpr fields::Color kGreen = 32768;
    std::vector<LegendEntry> legend{
        {RowSign::kNone, 0, fields::kBlue, "name", "A file"},
        {RowSign::kFolder, 0, fields::kRed, "name", "A folder"},
        {RowSign::kLink, 0, fields::kBlue, "name", "A link"},
        {RowSign::kGone, 0, fields::kBlack, "name", "Moved to the trash since the search"},
        {RowSign::kCut, 0, fields::kBlack, "name", "Cut, to be moved where it is pasted"},
        {RowSign::kFailed, 0, fields::kBlue, "name", "Failed in the last action"},
        {RowSign::kMoved, 0, fields::kBlue, "name", "Moved by the last action"},
        {RowSign::kRenamed, 0, fields::kBlue, "name", "Renamed by the last action"},
    };
    for (int pattern = 2; pattern <= kLastColored; ++pattern) {
        legend.push_back({RowSign::kNone, pattern, results::PatternColor(pattern), "name",
                          QString("Found by search string %1").arg(pattern)});
    }
    legend.push_back({RowSign::kNone, 0, fields::kRed, "1,000,000,000,000 !",
                      "A size with more digits than sizes are sorted by"});
    legend.push_back({RowSign::kNone, 0, fields::kRed, "260++?",
                      "A length of a path that can only be opened by its short form"});
    legend.push_back({RowSign::kEntry, 0, fields::kBlue, "name", "An entry of the playlist"});
    legend.push_back({RowSign::kNone, 0, fields::kBlack, "name", "A possible duplicate of it"});
    legend.push_back({RowSign::kReplacement, 0, kGreen, "name",
                      "A replacement, which gets the Year-Rank of its group"});
    return legend;
}

} // namespace tarvix::forms
