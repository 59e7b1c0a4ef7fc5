// SPDX-License-Identifier: MIT
#include <QIcon>
#include <QTimer>

#include "shell/DetectableAutoRepeat.h"
#include "shell/fMain.h"
#include "views/Application.h"
#include "views/Look.h"

int main(int, char* argv[]) {
    int argc = 1;  // the program has no options, not even Qt's
    Application application(argc, argv);
    detectAutoRepeat(application);
    QApplication::setApplicationName(QStringLiteral("Reporting Scheme Wizard for Pelmo"));
    applyLook(application);
    // Once the first window is there: it need not wait until this is drawn in all sizes.
    QTimer::singleShot(0, &application,
                       [] { QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/wizard.svg"))); });

    fMain window;
    QApplication::setQuitOnLastWindowClosed(false);  // the windows of the start-up close before the main one opens
    window.Form_Load();
    window.show();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
