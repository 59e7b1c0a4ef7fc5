// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Asks for the password of the database on the terminal, which does not show it. Empty where there is no terminal.
[[nodiscard]] std::string askPassword();
