// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "model/ParameterKind.h"

/// A parameter kind as the forms offer it. The rows stand in the order of the list and of `ParameterKind`.
struct ParameterChoice {
    ParameterKind kind;
    const char* entry;   ///< the text in the list
    const char* stored;  ///< what is stored for it; for CKey the length follows, in two digits
    const char* help;
};

[[nodiscard]] std::span<const ParameterChoice> parameterChoices();
