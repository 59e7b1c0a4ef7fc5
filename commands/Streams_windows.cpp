// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <initializer_list>

#include "commands/Streams.h"

void makeStreamsPlain() {
    for (auto* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}
