// SPDX-License-Identifier: MIT
#include <memory>

#include "analysis/SchemeTable.h"
#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Dialect.h"
#include "commands/Module.h"
#include "commands/SavedScheme.h"
#include "model/Integer.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    const Dialect* dialect = nullptr;
};

std::string namesOf(const SchemeTable& table) {
    std::string names;
    for (const auto& field : table.fields) names.append(names.empty() ? "" : ", ").append(field.name);
    return names;
}

std::string columnsOf(const SchemeTable& table, const Dialect::Script& script) {
    std::string columns;
    for (const auto& field : table.fields) {
        const auto type = field.kind == SchemeField::Kind::Number ? script.integer : script.text;
        columns.append(columns.empty() ? "" : ", ").append(field.name).append(" ").append(type);
        if (&field == &table.fields.front()) columns += " NOT NULL PRIMARY KEY";
    }
    return columns;
}

// One of the texts around the rows, with its words in braces filled in.
std::string frame(std::string_view text, const Dialect& dialect, const SavedScheme& scheme, Encoding encoding,
                  std::string_view calls = {}) {
    return filled(text, {{"XST1", columnsOf(navTable, dialect.script)},
                         {"XST2", columnsOf(webTable, dialect.script)},
                         {"names1", namesOf(navTable)},
                         {"names2", namesOf(webTable)},
                         {"nodes", std::to_string(scheme.nodes().size())},
                         {"paragraphs", std::to_string(scheme.paragraphs().size())},
                         {"encoding", encoding == Encoding::Utf8 ? dialect.script.utf8 : dialect.script.codePage},
                         {"calls", calls}});
}

std::string heading(const Dialect& dialect, const SavedScheme& scheme) {
    return asComment(dialect, "The tables XST1 and XST2 for " + std::string(dialect.title) + ": " +
                                  std::to_string(scheme.nodes().size()) + " nodes, " +
                                  std::to_string(scheme.paragraphs().size()) + " paragraphs. They replace all " +
                                  "rows.\n" + std::string(dialect.script.usage) + "\n");
}

template <class Record>
void printRows(const SchemeTable& table, const std::vector<const Record*>& records, const Dialect& dialect,
               const Console& console) {
    printLines(dialect, console, filled(dialect.script.beforeRows, {{"table", table.name}}));
    const auto start = "INSERT INTO " + std::string(table.name) + " (" + namesOf(table) + ") VALUES (";
    std::string line;
    for (const auto* record : records) {
        line = start;
        const char* comma = "";
        for (const auto& value : valuesOf(*record)) {
            const auto* const number = std::get_if<std::int32_t>(&value);
            line.append(std::exchange(comma, ", "));
            line +=
                number ? keyText(*number) : quotedText(dialect, console.encoding, std::get<std::string_view>(value));
        }
        printLines(dialect, console, line.append(");\n"));
    }
    printLines(dialect, console, filled(dialect.script.afterRows, {{"table", table.name}}));
}

void printScript(const SavedScheme& scheme, const Dialect& dialect, const Console& console) {
    printLines(dialect, console, heading(dialect, scheme));
    printLines(dialect, console, frame(dialect.script.begin, dialect, scheme, console.encoding));
    printRows(navTable, scheme.nodes(), dialect, console);
    printRows(webTable, scheme.paragraphs(), dialect, console);
    printLines(dialect, console, frame(dialect.script.end, dialect, scheme, console.encoding));
}

void printModule(const SavedScheme& scheme, const Dialect& dialect, const Console& console) {
    Module module(dialect, console.encoding);
    module.addText(heading(dialect, scheme));
    module.addText(dialect.script.begin);
    for (const auto* node : scheme.nodes()) module.addRow(navTable.name, valuesOf(*node));
    for (const auto* paragraph : scheme.paragraphs()) module.addRow(webTable.name, valuesOf(*paragraph));
    const auto calls = module.calls();
    module.addText(frame(dialect.script.end, dialect, scheme, console.encoding, calls));
    module.print(console);
}

}  // namespace

RunCommand declareSql(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs");
    declareDialect(line, given->dialect);
    return [given](const Console& console) {
        const SavedScheme scheme(given->nodes, given->paragraphs, console);
        (given->dialect->isModule ? printModule : printScript)(scheme, *given->dialect, console);
        return nothingFound;
    };
}
