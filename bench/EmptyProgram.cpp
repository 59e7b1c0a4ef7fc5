// SPDX-License-Identifier: MIT
// The least that a Qt Widgets program can be: the rival of the wizard's start.
#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
