// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "model/Text.h"

/// One node of the navigational scheme: a row of table XST1.
///
/// The record itself enforces one rule: F and N nodes have neither query nor parameter. So set the type before the
/// query and the parameter.
class clsNavScheme {
  public:
    clsNavScheme() = default;
    clsNavScheme(const clsNavScheme&) = default;  // no move: texts in a file must not leave their record
    clsNavScheme& operator=(const clsNavScheme&) = default;

    Text descriptionIs;          ///< shown for the node in the tree
    std::int32_t parentIs = 0;   ///< ID of the parent node; 0 marks the root
    Text iconIs;                 ///< icon that the reporting product shows for the node
    Text roleIs;                 ///< user role, empty if not set
    std::int32_t tID = 0;        ///< while renumbering, the new ID; while the paragraphs follow, the former one;
                                 ///< then the current one; not in the file
    std::int32_t tParentIs = 0;  ///< while renumbering, the new ID of the parent; not in the file
    std::int32_t ID = 0;         ///< number of the node, unique within the scheme

    /// The node's type: F (fixed), G (generating), R (recurring) or N (non-generating); empty in a new node.
    [[nodiscard]] const Text& typeIs() const { return typeIs_; }
    /// Sets the type to any text. F and N empty the query and the parameter.
    void setTypeIs(Text type);

    /// The query or stored procedure that generates the node's children.
    [[nodiscard]] const Text& queryIs() const { return queryIs_; }
    /// Sets the query; in an F or N node it becomes empty.
    void setQueryIs(Text query);

    /// The kind of parameter for the query: empty (none), "Lkey", "CKey" and two digits, "Text" or "Today".
    [[nodiscard]] const Text& parmIs() const { return parmIs_; }
    /// Sets the parameter kind; in an F or N node it becomes empty.
    void setParmIs(Text parm);

  private:
    [[nodiscard]] bool takesQuery() const;

    Text typeIs_;
    Text queryIs_;
    Text parmIs_;
};
