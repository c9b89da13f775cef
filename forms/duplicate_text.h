#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace tarvix::forms {

// The question about a duplicate, cut into its pieces, so that both objects can be shown side by
// side.
struct DuplicateText {
    QString question;
    QString existing;
    QString thisOne;
    QString rule; // how a duplicate would be renamed
};

// Nothing when the text is not made of these pieces.
std::optional<DuplicateText> CutDuplicateText(const QString& text);

// The text with both objects side by side, or as it stands where it can't be cut.
QWidget* MakeDuplicateText(const QString& text);

} // namespace tarvix::forms
