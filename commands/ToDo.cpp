// SPDX-License-Identifier: MIT
#include <memory>

#include "analysis/Reports.h"
#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Input.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
};

// The lines of a report end with CR LF.
void print(const std::string& report, const Console& console) {
    for (std::string_view rest = report; !rest.empty();) {
        const auto end = rest.find("\r\n");
        console.print(shown(rest.substr(0, end)).append("\n"));
        rest.remove_prefix(end + 2);
    }
}

}  // namespace

RunCommand declareToDo(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs", Need::Optional);
    return [given](const Console& console) {
        clsNavSchemes navs;
        loadSchemes(navs, given->nodes, given->paragraphs, console);
        print(NavToDo(navs), console);
        if (given->paragraphs.empty()) return nothingFound;
        console.print("\n");
        print(WebToDo(navs.oWebs), console);
        return nothingFound;
    };
}
