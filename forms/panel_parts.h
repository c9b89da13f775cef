#pragma once

#include <QList>
#include <QString>

class QLabel;
class QWidget;

namespace tarvix::forms {

// The widgets side by side, no margins.
QWidget* InRow(const QList<QWidget*>& widgets, int spacing = 6);

// Lays out a panel of rows at once, where the event loop would take several rounds for it.
void SettleRows(QWidget& panel);

// A label that names a box.
QLabel* LabelFor(const QString& text, QWidget* box);

// Makes a widget stay in its place, disabled, while its field is hidden.
void KeepPlace(QWidget& widget);
bool KeepsPlace(const QWidget& widget);

// Keeps `companion` visible exactly while `leader` is.
void FollowVisibility(QWidget& leader, QWidget& companion);

} // namespace tarvix::forms
