// SPDX-License-Identifier: MIT
// The least that a Qt Widgets program can be: the rival of the wizard's start.
//   empty_program [WORD]    shows an empty window, or one with this word in it
#include <QLabel>

#include "bench/FirstPaint.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QWidget window;
    if (argc > 1) new QLabel(QString::fromLocal8Bit(argv[1]), &window);  // the window's
    runUntilPainted(window);
}
