// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "analysis/Rule.h"
#include "model/clsWebScheme.h"

class clsWebSchemes;

/// The rules in words, with which the report on the web display scheme begins, and the heading of its findings.
extern const std::string_view webRulesInWords;

using WebFinding = Finding<clsWebScheme, clsWebScheme>;

/// Hands every finding on the paragraphs to `take`, in collection order. Orphans are none of them.
void findInParagraphs(const clsWebSchemes& webs, const std::function<void(const WebFinding&)>& take);

/// Adds to a report what was found in a paragraph, the rule, and an empty line.
void appendFinding(std::string& report, const WebFinding& finding);
