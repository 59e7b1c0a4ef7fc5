// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "model/Text.h"

/// One paragraph of the web display scheme: a row of table XST2. A plain record without rules.
///
/// Paragraph types: C (bar chart), H (header), E (action query), M (multi-chapter record set), I (header with an
/// image), S (table with sums), T (thumbnails of images).
class clsWebScheme {
  public:
    clsWebScheme() = default;
    clsWebScheme(const clsWebScheme&) = default;  // no move: texts in a file must not leave their record
    clsWebScheme& operator=(const clsWebScheme&) = default;

    std::int32_t XST1 = 0;   ///< ID of the node whose report page has the paragraph
    std::int32_t seqNo = 0;  ///< order of the paragraph on that page
    Text titleIs;
    Text queryIs;  ///< query or stored procedure, perhaps a blank and constant parameters after it
    Text parmIs;   ///< kind of parameter, stored as that of a node
    Text typeIs;
    std::int32_t formIs = 0;  ///< number of the data-entry form that the page links to; 0 for none
    Text colsAre;             ///< "All" or column numbers joined by ":"; for type C "X:Y"
    Text extra;               ///< free field, carried along
    std::int32_t tXST1 = 0;   ///< while renumbering, the new node; not in the file
    Text status;              ///< after a renumbering, "C" (connected) or "O" (orphan); not in the file
    std::int32_t ID = 0;      ///< number of the paragraph, unique within the scheme
};
