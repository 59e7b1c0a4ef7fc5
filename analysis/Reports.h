// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class clsNavSchemes;
class clsWebSchemes;

// The four reports. Each is one string of the schemes' bytes, whose lines end with CR LF.

/// Checks every node against the rules. @return the rules and what breaks them
[[nodiscard]] std::string CheckNav(const clsNavSchemes& oNavs);

/// Checks every paragraph of `oNavs.oWebs` against the rules and lists the orphans, to find which it renumbers the
/// paragraphs (see `clsWebSchemes::Renumber`): orphans then have the node 0, or that of an earlier renumbering. No
/// grid is filled.
/// @return the rules, what breaks them, and the orphans
/// @throws std::bad_alloc, changing nothing
[[nodiscard]] std::string CheckScheme(clsNavSchemes& oNavs);

/// What is left to do in the database for the tree, ending with the queries to be written.
[[nodiscard]] std::string NavToDo(const clsNavSchemes& oNavs);

/// The same for the report pages.
[[nodiscard]] std::string WebToDo(const clsWebSchemes& oWebs);
