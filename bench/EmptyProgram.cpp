// SPDX-License-Identifier: MIT
// The smallest possible Qt Widgets program, to compare the wizard's start with.
//   empty_program [WORD]    shows an empty window, or one with this word in it
#include <QLabel>

#include "bench/FirstPaint.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QWidget window;
    if (argc > 1) new QLabel(QString::fromLocal8Bit(argv[1]), &window);  // owned by the window
    runUntilPainted(window);
}
