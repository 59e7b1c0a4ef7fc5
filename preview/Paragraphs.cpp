// SPDX-License-Identifier: MIT
#include "preview/Paragraphs.h"

#include "model/CodePage.h"

std::string titleOf(const clsWebScheme& paragraph, const ClickedNode& clicked) {
    auto title = toUtf8(paragraph.titleIs);
    title.erase(title.find_last_not_of(' ') + 1);
    if (title.ends_with(':')) title += " " + clicked.text;
    return title;
}

void addNote(Html& html, std::string_view words) {
    html << "<p class=note>" << Escaped(words) << "</p>";
}

void addCount(Html& html, const QueryResult& result) {
    if (result.rows.empty()) addNote(html, "The query returned no rows.");
    if (result.total > result.rows.size())
        addNote(html, "These are the first " + counted(result.rows.size(), "row", "rows") + " of " +
                          grouped(result.total) + ".");
}

void beginTable(Html& html, Markup cssClass) {
    html << "<div class=wide><table class=" << cssClass << ">";
}

void endTable(Html& html) {
    html << "</table></div>";
}

void addAction(Html& html, const PageParagraph& paragraph, Pictures&) {
    const auto& changed = paragraph.result.changed;
    html << "<p class=action>Ran " << Escaped(shownText(paragraph.call->name));
    if (changed) html << ", which changed " << Escaped(counted(*changed, "row", "rows"));
    html << ". The paragraphs below see what it did.";
    if (!paragraph.result.fields.empty()) html << " It returned rows, which this type does not show.";
    html << "</p>";
}
