// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>

#include "commands/Command.h"
#include "commands/Input.h"
#include "commands/ProblemFormats.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    ProblemOptions output;
};

ExitStatus run(const Arguments& given, const Console& console) {
    refuseTwoStandardInputs(given.nodes, given.paragraphs);
    auto nodes = readInput(given.nodes, navTable, console);
    InputFile paragraphs;
    if (!given.paragraphs.empty()) paragraphs = readInput(given.paragraphs, webTable, console);
    const Problems problems(std::move(nodes), given.paragraphs.empty() ? nullptr : &paragraphs);
    return printProblems({problems.files(), problems.found(), allProblemKinds}, given.output, console);
}

}  // namespace

RunCommand declareCheck(CLI::App& command) {
    const auto given = std::make_shared<Arguments>();
    command.add_option("XST1", given->nodes, "The file of the nodes")->required();
    command.add_option("XST2", given->paragraphs, "The file of the paragraphs");
    declareProblemOptions(command, given->output);
    return [given](const Console& console) { return run(*given, console); };
}
