// SPDX-License-Identifier: MIT
#include <QIcon>

#include "shell/DetectableAutoRepeat.h"
#include "shell/fMain.h"
#include "views/Application.h"
#include "views/Look.h"

int main(int, char* argv[]) {
    int argc = 1;  // the program has no options, not Qt's either
    Application application(argc, argv);
    detectAutoRepeat(application);
    QApplication::setApplicationName(QStringLiteral("Reporting Scheme Wizard for Pelmo"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/wizard.svg")));
    applyLook(application);

    fMain window;
    QApplication::setQuitOnLastWindowClosed(false);  // the windows of the start-up come and go before the main one
    window.Form_Load();
    window.show();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
