// SPDX-License-Identifier: MIT
// The least that a Qt Widgets program can be: the rival of the wizard's start.
#include "bench/FirstPaint.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QWidget window;
    runUntilPainted(window);
}
