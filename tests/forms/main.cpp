#include "forms/theme.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

// What Qt warns of fails the test in which it happens.
void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // What the offscreen platform can't do.
    if (text.contains("propagateSizeHints") || text.contains("plugin does not support")) return;
    ADD_FAILURE() << "Qt warns: " << text.toStdString();
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    tarvix::forms::UseOutlines();
    // Without a desktop nobody says where the icons lie.
    QIcon::setThemeSearchPaths(QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                         "icons", QStandardPaths::LocateDirectory));
    ::testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
