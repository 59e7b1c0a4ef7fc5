// SPDX-License-Identifier: MIT
#include "analysis/SchemeTable.h"

#include "model/NodeType.h"
#include "model/ParagraphType.h"

namespace {

using Kind = SchemeField::Kind;

constexpr SchemeField navFields[] = {
    {"ID", Kind::Number},     {"descriptionIs", Kind::Text}, {"typeIs", Kind::Type}, {"parentIs", Kind::Number},
    {"queryIs", Kind::Query}, {"parmIs", Kind::Parameter},   {"iconIs", Kind::Text}, {"roleIs", Kind::Text},
};

constexpr SchemeField webFields[] = {
    {"ID", Kind::Number},     {"XST1", Kind::Number},      {"seqNo", Kind::Number}, {"titleIs", Kind::Text},
    {"queryIs", Kind::Query}, {"parmIs", Kind::Parameter}, {"typeIs", Kind::Type},  {"formIs", Kind::Number},
    {"colsAre", Kind::Text},  {"extra", Kind::Text},
};

}  // namespace

constinit const SchemeTable navTable{.name = "XST1",
                                     .fields = navFields,
                                     .isType = [](char letter) { return nodeType(letter) != nullptr; },
                                     .keepsQuery =
                                         [](char letter) {
                                             const auto* type = nodeType(letter);
                                             return !type || type->hasQuery;
                                         }};
constinit const SchemeTable webTable{.name = "XST2",
                                     .fields = webFields,
                                     .isType = [](char letter) { return paragraphType(letter) != nullptr; },
                                     .keepsQuery = [](char /*letter*/) { return true; }};

std::string SchemeTable::header() const {
    std::string line;
    for (const auto& field : fields) line.append(line.empty() ? "\"" : ",\"").append(field.name).append("\"");
    return line;
}
