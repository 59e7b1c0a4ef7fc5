#include <gtest/gtest.h>

#include <QApplication>

#include "views/Look.h"

namespace {

// A warning of Qt's in the middle of a test is a mistake of ours. What the platform has to say about itself is not.
void failOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool harmless = type == QtDebugMsg || type == QtInfoMsg ||
                          QLatin1String(context.category).startsWith(QLatin1String("qt.qpa")) ||
                          message.startsWith(QLatin1String("This plugin does not support"));
    if (!harmless) ADD_FAILURE() << context.category << ": " << message.toStdString();
}

}  // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // needs no screen
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Name of the program"));
    QApplication::setQuitOnLastWindowClosed(false);
    applyLook(application);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
