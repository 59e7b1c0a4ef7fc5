// SPDX-License-Identifier: MIT
#pragma once

#include "preview/Cells.h"
#include "preview/Page.h"

// How the result of a paragraph's query is shown, by the paragraph's type. Each of these gets a query that was called
// without an error, and adds what is below the title.

void addChart(Html& html, const PageParagraph& paragraph, Pictures& pictures);       ///< type C
void addHeader(Html& html, const PageParagraph& paragraph, Pictures& pictures);      ///< types H and I
void addAction(Html& html, const PageParagraph& paragraph, Pictures& pictures);      ///< type E
void addChapters(Html& html, const PageParagraph& paragraph, Pictures& pictures);    ///< type M
void addTable(Html& html, const PageParagraph& paragraph, Pictures& pictures);       ///< type S
void addThumbnails(Html& html, const PageParagraph& paragraph, Pictures& pictures);  ///< type T

// What they share.

/// The title; one that ends with a colon with the text of the clicked node behind it.
[[nodiscard]] std::string titleOf(const clsWebScheme& paragraph, const ClickedNode& clicked);

/// Something that the designer should know of what is shown.
void addNote(Html& html, std::string_view words);

/// Says that there are no rows, or more than those shown.
void addCount(Html& html, const QueryResult& result);

/// A table that scrolls by itself where it is wider than the window. Browsers let the keyboard scroll it.
void beginTable(Html& html, Markup cssClass);
void endTable(Html& html);

/// How many fields the outer table of a type M query has, the ID included; 0 where the rows do not tell.
[[nodiscard]] std::size_t outerFields(const QueryResult& result);
