#pragma once

#include <QStringList>

#include <functional>

class QComboBox;
class QString;

namespace tarvix::forms {

// Offers the entries of the list that hold what is typed. Enter with none of them chosen acts as if
// nothing had been offered.
void OfferCompletion(QComboBox& box);

// What a box of paths asks the disk for. Neither function looks at the disk itself.
struct FolderOffers {
    // Asks for the texts that could stand in place of this one, the folders below what is typed;
    // `onFound` is called with them, once, then or later, unless a newer question takes its place.
    std::function<void(const QString& typed, std::function<void(QStringList)> onFound)> ask;
};

// Offers the entries that hold what is typed, the newest first, and behind them the folders that
// the disk has. Typing is never held up.
void OfferFolders(QComboBox& box, FolderOffers offers);

} // namespace tarvix::forms
