// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QIcon>
#include <QTimer>
#include <cstring>

#include "views/Application.h"
#include "views/Look.h"

namespace {

// A warning of Qt, for example about a connection that leads nowhere, fails the running test. It is not the program's
// fault what a screen plugin cannot do, or what Wine cannot. On Windows windows have a least and a greatest size.
void failOnWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const auto text = message.toStdString();
    const bool ofTheScreen = text.starts_with("This plugin does not support") ||
                             text.starts_with("setGeometry: Unable to set geometry") ||
                             (context.category && std::strncmp(context.category, "qt.qpa", 6) == 0);
    const bool ofWine =
        text.starts_with("EnableNonClientDpiScaling()") || text.starts_with("QPixmap::fromWinHICON()");
    if (ofTheScreen || ofWine || text.starts_with("QStandardPaths: ") || type == QtDebugMsg || type == QtInfoMsg)
        return;
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
    // On an X server Qt would look for the icons of each dialog in hundreds of folders, if the desktop has none.
    QIcon::setThemeSearchPaths({QStringLiteral(":/none")});
#ifdef _WIN32
    // A loop of events that a test ends from within another one sees that only at the next event.
    QTimer events;
    events.start(50);
#endif
    return RUN_ALL_TESTS();
}
