// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "model/clsWebScheme.h"

/// The rules in words, with which the report on the web display scheme begins, and the heading of its findings.
extern const std::string_view webRulesInWords;

/// Adds to the report, for each rule that the paragraph breaks, what was found, the rule, and an empty line.
void appendFindings(std::string& report, const clsWebScheme& paragraph);
