// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "commands/Dialect.h"

/// All databases for which scripts are written.
extern const std::span<const Dialect* const> dialects;
