// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// The types that there are, spelled out here for all tests.

inline const std::string nodeLetters = "FGRN";
inline const std::string paragraphLetters = "CHEMIST";
