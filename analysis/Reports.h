// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class clsNavSchemes;
class clsWebSchemes;

// The four reports. Each is one string of bytes in the schemes' code page; its lines end with CR LF.

/// Checks every node against the rules. @return the rules and what breaks them
[[nodiscard]] std::string CheckNav(const clsNavSchemes& oNavs);

/// Checks every paragraph of `oNavs.oWebs` against the rules and lists the orphans. To find these it renumbers the
/// paragraphs (see `clsWebSchemes::Renumber`), so orphans then have the node 0, or the one that an earlier
/// renumbering gave them. Redraws nothing.
/// @return the rules, what breaks them, and the orphans
/// @throws std::bad_alloc, changing nothing
[[nodiscard]] std::string CheckScheme(clsNavSchemes& oNavs);

/// What remains to be done in the database for the tree; the list ends with the queries to write.
[[nodiscard]] std::string NavToDo(const clsNavSchemes& oNavs);

/// The same for the report pages.
[[nodiscard]] std::string WebToDo(const clsWebSchemes& oWebs);
