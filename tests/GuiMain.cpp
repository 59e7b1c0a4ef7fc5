// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstring>

#include "views/Application.h"
#include "views/Look.h"

namespace {

// Warnings of Qt, about a connection that leads nowhere for instance, fail the test that they come in. What
// a screen plugin cannot do is no fault of the program.
void failOnWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const auto text = message.toStdString();
    const bool ofTheScreen = text.starts_with("This plugin does not support") ||
                             (context.category && std::strncmp(context.category, "qt.qpa", 6) == 0);
    if (ofTheScreen || text.starts_with("QStandardPaths: ") || type == QtDebugMsg || type == QtInfoMsg) return;
    ADD_FAILURE() << "warning: " << text;
}

}  // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // needs no screen
    qInstallMessageHandler(failOnWarnings);
    Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Reporting Scheme Wizard for Pelmo"));
    QApplication::setQuitOnLastWindowClosed(false);
    applyLook(application);
    return RUN_ALL_TESTS();
}
