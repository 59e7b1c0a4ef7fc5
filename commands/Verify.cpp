// SPDX-License-Identifier: MIT
#include "database/Verify.h"

#include <algorithm>
#include <array>
#include <memory>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/DatabaseOptions.h"
#include "commands/Input.h"
#include "commands/ProblemFormats.h"
#include "database/GeneratedTree.h"

namespace {

constexpr std::size_t most = 1'000'000'000;

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    DatabaseOptions database;
    std::size_t depth = VerifyOptions().depth;
    std::size_t rows = VerifyOptions().rows;
    ProblemOptions output;
};

using Lines = LargeArray<std::uint32_t>;  // of the records, in the order of their collection

// The bytes are looked at as they are: loading changes them.
Lines linesOf(const SchemeTable& table, const InputFile& file) {
    return scanFile(table, file.bytes()).lines;
}

std::vector<Problem> located(std::vector<QueryFinding> findings, const std::array<Lines, 2>& lines) {
    std::vector<Problem> problems;
    for (auto& finding : findings) {
        const std::uint32_t file = finding.isNode ? 0 : 1;
        const auto line = lines[file].at(finding.slot);
        problems.push_back({file, line, std::move(finding)});
    }
    return problems;
}

ExitStatus run(const Arguments& given, const Console& console) {
    refuseTwoStandardInputs(given.nodes, given.paragraphs);
    const VerifyOptions options{.today = given.database.today(),
                                .depth = given.depth,
                                .rows = given.rows,
                                .runsActions = given.database.runsActions,
                                .limits = given.database.limits()};
    auto nodes = readInput(given.nodes, navTable, console);
    auto paragraphs = readInput(given.paragraphs, webTable, console);
    const std::array files = {nodes.name, paragraphs.name};
    const std::array lines = {linesOf(navTable, nodes), linesOf(webTable, paragraphs)};
    clsNavSchemes navs;
    navs.LoadBytes(std::move(nodes.content));
    navs.oWebs.LoadBytes(std::move(paragraphs.content));
    if (GeneratedTree(navs, options.today).root().node == nullptr)
        throw Unusable(files[0] + ": no node has the parent 0, and so there is no page to look at");
    const auto database = openDatabase(given.database);
    const auto problems = located(verifyQueries(navs, *database, options), lines);
    return printProblems({files, problems, allQueryProblemKinds}, given.output, console);
}

}  // namespace

RunCommand declareVerify(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs");
    declareDatabaseOptions(line, given->database);
    line.number("--depth", given->depth, 0, most, "LEVELS",
                "How many levels of generated nodes are followed; otherwise 5");
    line.number("--rows", given->rows, 0, most, "ROWS",
                "How many rows of each query of the tree are followed; otherwise 3");
    declareProblemOptions(line, given->output);
    return [given](const Console& console) {
        try {
            return run(*given, console);
        } catch (const DatabaseError& error) {
            throw Unusable(shownInOneLine(error.what()));
        }
    };
}
