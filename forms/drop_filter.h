#pragma once

#include <QList>
#include <QUrl>

#include <functional>

class QComboBox;

namespace tarvix::forms {

// Lets files and folders be dropped on an editable box, while it is enabled, and hands them on.
void AcceptDrops(QComboBox& box, std::function<void(const QList<QUrl>&)> onDrop);

} // namespace tarvix::forms
