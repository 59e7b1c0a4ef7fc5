// SPDX-License-Identifier: MIT
#include "database/ResultChecks.h"
#include "model/ParagraphType.h"
#include "preview/Paragraphs.h"

// Types H and I: one record, as the names and values of its fields. Type I has a picture, too.

namespace {

void addPicture(Html& html, const QueryResult& result, std::size_t field, Pictures& pictures) {
    const auto& cell = result.rows[0][field];
    if (cell.kind == Cell::Kind::Null) {
        addNote(html, "The field " + shownText(result.fields[field]) + " is empty: there is no picture.");
        return;
    }
    const auto picture = pictures.addBytes(cell.text);
    if (!picture.problem.empty()) {
        addNote(html, "The field " + shownText(result.fields[field]) + " (" +
                          counted(cell.text.size(), "byte", "bytes") + ") is not shown: " + picture.problem + ".");
        return;
    }
    html << "<img class=head src=\"picture/" << Escaped(picture.name) << "\" alt=\""
         << Escaped(shownText(result.fields[field])) << "\">";
}

// What the link to a form of the application would do there. Here it only says so.
void addForm(Html& html, const PageParagraph& paragraph) {
    const auto& record = *paragraph.record;
    if (record.formIs == 0) return;
    const auto form = std::to_string(record.formIs);
    const auto number = std::to_string(record.ID);
    const auto& rows = paragraph.result.rows;
    html << "<p class=form><a href=\"#form-" << Escaped(number) << "\" aria-describedby=\"form-" << Escaped(number)
         << "\">Form " << Escaped(form) << "</a> <span id=\"form-" << Escaped(number)
         << "\">In Pelmo this link opens data-entry form " << Escaped(form) << " of your application";
    if (!rows.empty() && !rows[0].empty()) html << ", for the ID " << Escaped(shownCell(rows[0][0], {}));
    html << ". Here it opens nothing.</span></p>";
}

}  // namespace

void addHeader(Html& html, const PageParagraph& paragraph, Pictures& pictures) {
    const auto& result = paragraph.result;
    const auto& type = *paragraphType(paragraph.record->typeIs.letter());
    const auto picture = pictureField(type, result);
    if (!result.rows.empty()) {
        html << "<div class=record><dl>";
        for (std::size_t field = 1; field < result.fields.size(); ++field) {
            if (field == picture) continue;
            html << "<div><dt>" << Escaped(shownText(result.fields[field])) << "</dt><dd>"
                 << Escaped(shownCell(result.rows[0][field], {})) << "</dd></div>";
        }
        html << "</dl>";
        if (picture) addPicture(html, result, *picture, pictures);
        html << "</div>";
    }
    addForm(html, paragraph);
    if (!type.fieldPrefix.empty() && !picture)
        addNote(html, "No field of the query has a name that begins with " + std::string(type.fieldPrefix) +
                          ", and so there is no picture.");
    if (result.rows.empty()) addNote(html, "The query returned no rows.");
    if (result.total > 1)
        addNote(html, "The query returned " + counted(result.total, "row", "rows") + ": a header shows the first.");
}
