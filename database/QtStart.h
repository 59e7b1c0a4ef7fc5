// SPDX-License-Identifier: MIT
#pragma once

/// Makes the application object that Qt needs before it loads a driver or runs an event loop, unless there is one.
/// From then on Qt's own messages, which may hold pieces of statements, are not printed. Called by `Database::open`.
void startQt();
