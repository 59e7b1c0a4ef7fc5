// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "analysis/Rule.h"
#include "model/clsWebScheme.h"

class clsWebSchemes;

/// The beginning of the report on the web display scheme: the rules in words, and the heading of the findings.
extern const std::string_view webRulesInWords;

using WebFinding = Finding<clsWebScheme, clsWebScheme>;

/// Passes every finding on the paragraphs to `take`, in collection order. An orphan is not a finding.
void findInParagraphs(const clsWebSchemes& webs, const std::function<void(const WebFinding&)>& take);

/// Adds a finding on a paragraph to a report: what was found, the rule, and an empty line.
void appendFinding(std::string& report, const WebFinding& finding);
