// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "model/ParameterKind.h"

/// The help of the list of parameter kinds in both forms.
inline constexpr char helpOnParameters[] =
    "The Parameters Can be one of the Following : 'None', 'LKey', 'CKeynn', 'Text', or 'Today'.";

/// A parameter kind as the forms offer it.
struct ParameterChoice {
    ParameterKind kind;
    const char* entry;  ///< the text in the list
    const char* help;
};

/// All kinds, in the order of the list and of `parameterKinds`.
[[nodiscard]] std::span<const ParameterChoice> parameterChoices();
