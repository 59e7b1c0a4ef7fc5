// SPDX-License-Identifier: MIT
#include "database/QtStart.h"

#include <QCoreApplication>

void startQt() {
    if (QCoreApplication::instance() != nullptr) return;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int count = 1;
    static char name[] = "pelmo-scheme";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
}
