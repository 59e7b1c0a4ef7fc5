// SPDX-License-Identifier: MIT
#include <memory>
#include <ostream>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Input.h"

namespace {

struct Arguments {
    std::string file;
    std::string table;
    bool checksOnly = false;
};

const SchemeTable& tableFor(const Arguments& given, const InputFile& file) {
    for (const auto* table : {&navTable, &webTable})
        if (given.table == table->name) return *table;
    if (const auto* const table = tableOf(file)) return *table;
    throw Unusable(file.name + ":1: the first line is the header of neither table; name it with --table");
}

// What the wizard saves; empty if it refuses to save.
std::string savedBytes(const SchemeTable& table, InputFile file) {
    std::string saved;
    const auto write = [&](std::string_view bytes) { saved += bytes; };
    clsNavSchemes navs;
    if (&table == &navTable) {
        navs.LoadBytes(std::move(file.content));
        if (navs.Count() != 0) navs.WriteData(write);
    } else {
        navs.oWebs.LoadBytes(std::move(file.content));
        if (navs.oWebs.Count() != 0) navs.oWebs.WriteData(write);
    }
    return saved;
}

ExitStatus run(const Arguments& given, const Console& console) {
    auto file = readInput(given.file, console);
    const auto name = file.name;
    const auto& table = tableFor(given, file);
    const std::string before(given.checksOnly ? file.bytes() : std::string_view());
    const auto after = savedBytes(table, std::move(file));
    if (after.empty()) throw Unusable(name + ": there is no record in it, and so nothing to save");
    if (!given.checksOnly) {
        console.out << after;  // bytes of the code page, as in every scheme file
        return nothingFound;
    }
    if (before == after) return nothingFound;
    console.print(name + ": differs from what the wizard saves\n");
    return found;
}

}  // namespace

RunCommand declareFormat(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("FILE", given->file, "The file of the nodes or of the paragraphs");
    line.flag("--check", given->checksOnly, "Print no file; say whether it would differ");
    line.choice("--table", given->table, {"XST1", "XST2"}, "What the file is, where its header does not tell");
    return [given](const Console& console) { return run(*given, console); };
}
