#include <gtest/gtest.h>

#include <QApplication>

#include "views/Look.h"

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // needs no screen
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Reporting Scheme Wizard for Pelmo"));
    QApplication::setQuitOnLastWindowClosed(false);
    applyLook(application);
    return RUN_ALL_TESTS();
}
