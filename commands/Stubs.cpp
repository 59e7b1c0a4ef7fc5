// SPDX-License-Identifier: MIT
#include <memory>
#include <ostream>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Dialect.h"
#include "commands/Module.h"
#include "commands/Queries.h"
#include "model/CodePage.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    const Dialect* dialect = nullptr;
};

std::string joined(const std::vector<std::string>& parts) {
    std::string list;
    for (const auto& part : parts) list.append(list.empty() ? "" : ", ").append(part);
    return list;
}

std::string_view of(ValueType type, const std::array<std::string_view, 4>& words) {
    return words[static_cast<std::size_t>(type)];
}

std::string argumentsOf(const Query& query, const Dialect::Queries& words) {
    if (query.arguments.empty()) return {};
    std::vector<std::string> list;
    for (const auto& argument : query.arguments) {
        const auto type =
            filled(of(argument.type, words.argumentTypes), {{"length", std::to_string(argument.length)}});
        list.push_back(filled(words.argument, {{"name", argument.name}, {"type", type}}) +
                       std::string(argument.isOptional ? words.optional : ""));
    }
    return std::string(words.openArguments).append(joined(list)).append(words.closeArguments);
}

std::string fieldsOf(const Query& query, const std::array<std::string_view, 4>& words) {
    std::vector<std::string> list;
    for (const auto& field : query.fields)
        list.push_back(
            filled(of(field.type, words), {{"name", field.name}, {"length", std::to_string(field.length)}}));
    return joined(list);
}

std::string statementOf(const Query& query, const Dialect& dialect, Encoding encoding) {
    const auto& words = dialect.queries;
    const auto name = quotedName(dialect, query.name);
    return filled(query.fields.empty() ? words.action : words.returningRows,
                  {{"name", name},
                   {"text", quotedText(dialect, encoding, query.name)},
                   {"nameText", quotedText(dialect, encoding, fromUtf8(name))},
                   {"arguments", argumentsOf(query, words)},
                   {"columns", fieldsOf(query, words.columns)},
                   {"select", fieldsOf(query, words.fields)}});
}

std::string commentOf(const Query& query) {
    auto lines = shown(query.name.substr(0, 200)) + "\n" + query.uses;
    std::string optional;
    for (const auto& argument : query.arguments)
        if (argument.isOptional) optional += " " + argument.name;
    if (!optional.empty()) lines += "The calls differ in their number of values. Some do without:" + optional + ".\n";
    return lines;
}

std::string heading(const Dialect& dialect, std::size_t count) {
    return asComment(dialect, "Skeletons of " + std::to_string(count) +
                                  (count == 1 ? " query for " : " queries for ") + std::string(dialect.title) +
                                  ". Each returns no rows until it is written.\n" +
                                  std::string(dialect.queries.usage) + "\n");
}

void printScript(const std::vector<Query>& queries, const Dialect& dialect, const Console& console) {
    printLines(dialect, console, heading(dialect, queries.size()));
    const auto encoding = console.encoding == Encoding::Utf8 ? dialect.script.utf8 : dialect.script.codePage;
    printLines(dialect, console, filled(dialect.queries.begin, {{"encoding", encoding}}));
    for (const auto& query : queries)
        printLines(dialect, console,
                   "\n" + asComment(dialect, commentOf(query)) + statementOf(query, dialect, console.encoding));
}

constexpr std::string_view moduleEnd = R"(
Public Sub MakeQueries()
{calls}End Sub

Private Sub MakeQuery(queryName As String)
    Dim db As DAO.Database
    Dim query As DAO.QueryDef
    Set db = CurrentDb
    For Each query In db.QueryDefs
        If StrComp(query.Name, queryName, vbTextCompare) = 0 Then Exit Sub
    Next
    db.CreateQueryDef queryName, statement
End Sub
)";

void printModule(const std::vector<Query>& queries, const Dialect& dialect, const Console& console) {
    Module module(dialect, console.encoding);
    module.addText(heading(dialect, queries.size()));
    module.addText(dialect.queries.begin);
    for (const auto& query : queries) {
        module.addComment(commentOf(query));
        module.addQuery(query.name, statementOf(query, dialect, console.encoding));
    }
    const auto calls = module.calls();
    module.addText(filled(moduleEnd, {{"calls", calls}}));
    module.print(console);
}

// The queries whose names the script can hold. Reports the others.
std::vector<Query> usable(std::vector<Query> queries, const Dialect& dialect, const Console& console) {
    std::erase_if(queries, [&](const Query& query) {
        if (canBeName(dialect, console.encoding, query.name)) return false;
        const auto firstUse = query.uses.substr(0, query.uses.find('\n'));
        console.err << "pelmo-scheme: \"" << shown(query.name)
                    << "\" cannot be a name in this script and is left out: " << firstUse << '\n';
        return true;
    });
    return queries;
}

}  // namespace

RunCommand declareStubs(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs");
    declareDialect(line, given->dialect);
    return [given](const Console& console) {
        const SavedScheme scheme(given->nodes, given->paragraphs, console);
        const auto queries = usable(queriesOf(scheme), *given->dialect, console);
        (given->dialect->isModule ? printModule : printScript)(queries, *given->dialect, console);
        return nothingFound;
    };
}
