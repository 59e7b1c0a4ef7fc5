// SPDX-License-Identifier: MIT
#include <memory>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Input.h"
#include "model/Integer.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
};

ExitStatus run(const Arguments& given, const Console& console) {
    clsNavSchemes navs;
    loadSchemes(navs, given.nodes, given.paragraphs, console);
    // Like the wizard's own command, this renumbers the paragraphs, which marks those without a node. Their nodes may
    // change, so note them first.
    std::vector<std::int32_t> nodes;
    for (const auto* paragraph : navs.oWebs.NewEnum()) nodes.push_back(paragraph->XST1);
    navs.oWebs.Renumber(navs);
    std::size_t place = 0;
    bool isAny = false;
    for (const auto* paragraph : navs.oWebs.NewEnum()) {
        const auto node = nodes[place++];
        if (paragraph->status != "O") continue;
        isAny = true;
        console.print("[ID=" + keyText(paragraph->ID) + "] " + shown(paragraph->titleIs) + " (there is no node " +
                      keyText(node) + ")\n");
    }
    return isAny ? found : nothingFound;
}

}  // namespace

RunCommand declareOrphans(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs");
    return [given](const Console& console) { return run(*given, console); };
}
