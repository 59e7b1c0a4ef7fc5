// SPDX-License-Identifier: MIT
#include <algorithm>

#include "database/ResultChecks.h"
#include "model/ParagraphType.h"
#include "preview/ColumnsField.h"
#include "preview/Paragraphs.h"

// Type T: small pictures of files whose paths the query returns, with the other fields as their texts.

namespace {

std::string textOf(const QueryResult& result, const std::vector<Cell>& row, std::size_t path) {
    std::string text;
    for (std::size_t field = 1; field < result.fields.size(); ++field) {
        const auto shown = field == path ? std::string() : shownCell(row[field], {});
        if (!shown.empty()) text.append(text.empty() ? "" : ", ").append(shown);
    }
    return text;
}

// ": b.jpg" for "/a/b.jpg".
std::string nameIn(const std::string& path) {
    return path.empty() ? std::string() : ": " + path.substr(path.find_last_of('/') + 1);
}

Html pictureOf(const Cell& path, const std::string& text, const ThumbnailLayout& layout, Pictures& pictures) {
    const auto picture =
        path.kind == Cell::Kind::Null ? Pictures::Added{{}, "there is no path"} : pictures.addFile(path.text);
    Html html;
    if (picture.problem.empty())
        html << "<img src=\"picture/" << Escaped(picture.name) << "\" alt=\"" << Escaped(text)
             << "\" width=" << Escaped(std::to_string(layout.width))
             << " height=" << Escaped(std::to_string(layout.height)) << ">";
    else
        html << "<span class=none title=\"" << Escaped(shownText(path.text)) << "\">"
             << Escaped(picture.problem + nameIn(shownText(path.text))) << "</span>";
    return html;
}

// The style sheet has a class for each number of columns.
constexpr Markup columnClasses[] = {"c1",  "c2",  "c3",  "c4",  "c5",  "c6",  "c7",  "c8",  "c9",  "c10",
                                    "c11", "c12", "c13", "c14", "c15", "c16", "c17", "c18", "c19", "c20"};

}  // namespace

void addThumbnails(Html& html, const PageParagraph& paragraph, Pictures& pictures) {
    const auto& result = paragraph.result;
    const auto layout = readThumbnailLayout(paragraph.record->colsAre);
    const auto& type = *paragraphType(paragraph.record->typeIs.letter());
    const auto path = pictureField(type, result);
    if (!path) {
        addNote(html, "No field of the query has a name that begins with " + std::string(type.fieldPrefix) +
                          ", and so there are no pictures.");
    } else if (!result.rows.empty()) {
        html << "<ul class=\"thumbnails " << columnClasses[layout.columns - 1];
        if (layout.isTextOnRight) html << " right";
        html << "\">";
        for (const auto& row : result.rows) {
            const auto text = textOf(result, row, *path);
            html << "<li>" << pictureOf(row[*path], text, layout, pictures) << "<span>" << Escaped(text)
                 << "</span></li>\n";
        }
        html << "</ul>";
    }
    addCount(html, result);
    for (const auto& note : layout.notes) addNote(html, note);
}
