// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Asks for the password of the database on the terminal, which does not show it. Empty where there is no terminal.
/// @param isAgain after a password that was refused
[[nodiscard]] std::string askPassword(bool isAgain);
