#include "forms/theme.h"

#include <QApplication>
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
    ::testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
