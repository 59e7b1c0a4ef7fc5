// SPDX-License-Identifier: MIT
#include <algorithm>

#include "Fuzzing.h"
#include "analysis/Reports.h"
#include "model/clsNavSchemes.h"
#include "tests/model/Reference.h"

// Takes any two files all the way: loads, checks, lists, renumbers, saves and loads them again. The same check gives
// the same report, checking changes nothing that is saved except the nodes of orphans, what is saved loads as it was
// in memory, and what was loaded from a saved file is saved unchanged.

namespace {

// The part of a report below a heading.
std::string below(const std::string& report, std::string_view heading) {
    const auto at = report.rfind(heading);
    require(at != std::string::npos, "the report has its headings");
    return report.substr(at + heading.size());
}

std::string linkAndTexts(const clsNavScheme& node) {
    return std::to_string(node.ID) + "<" + std::to_string(node.parentIs) + "|" +
           std::string(node.descriptionIs.view()) + "|" + std::string(node.typeIs().view()) + "|" +
           std::string(node.queryIs().view());
}

void requireLines(const std::string& report) {
    require(report.ends_with("\r\n"), "a report ends with the end of a line");
    for (std::size_t at = 0; (at = report.find('\n', at)) != std::string::npos; ++at)
        require(at != 0 && report[at - 1] == '\r', "lines end with CR LF");
}

// The nodes that load from a saved file: those of the tree, in its order, but only the first of several with the same
// ID.
std::vector<std::string> savedNodes(const clsNavSchemes& navs) {
    std::vector<reference::Link> links;
    std::vector<std::string> rows;
    for (const auto& node : navs.NewEnum()) {
        links.push_back({node->ID, node->parentIs});
        rows.push_back(linkAndTexts(*node));
    }
    std::vector<std::string> saved;
    std::vector<std::int32_t> taken;
    for (const auto place : reference::treeOrder(links)) {
        if (std::find(taken.begin(), taken.end(), links[place].id) != taken.end()) continue;
        taken.push_back(links[place].id);
        saved.push_back(rows[place]);
    }
    return saved;
}

std::vector<std::string> allNodes(const clsNavSchemes& navs) {
    std::vector<std::string> rows;
    for (const auto& node : navs.NewEnum()) rows.push_back(linkAndTexts(*node));
    return rows;
}

std::vector<std::string> allParagraphs(const clsNavSchemes& navs) {
    std::vector<std::string> rows;
    for (const auto& paragraph : navs.oWebs.NewEnum())
        rows.push_back(std::to_string(paragraph->ID) + ">" + std::to_string(paragraph->XST1) + "|" +
                       std::to_string(paragraph->seqNo) + "|" + std::to_string(paragraph->formIs) + "|" +
                       std::string(paragraph->queryIs.view()));
    return rows;
}

void check(clsNavSchemes& navs) {
    const auto rules = CheckNav(navs);
    requireLines(rules);
    require(CheckNav(navs) == rules, "checking the nodes changes nothing");
    requireLines(NavToDo(navs));
    requireLines(WebToDo(navs.oWebs));
    const auto first = CheckScheme(navs);
    requireLines(first);
    const auto second = CheckScheme(navs);
    // (The node of an orphan becomes 0, so a node with the ID 0 adopts it.)
    bool hasZero = false;
    for (const auto& node : navs.NewEnum()) hasZero = hasZero || node->ID == 0;
    if (!hasZero) require(below(second, "THE ORPHANS: ") == below(first, "THE ORPHANS: "), "orphans stay orphans");
}

}  // namespace

// The first byte says where the first file ends and the second one begins.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(data + 1, data + size);
    const auto split = bytes.size() * data[0] / 255;
    clsNavSchemes navs;
    load(navs, std::string_view(bytes).substr(0, split));
    load(navs.oWebs, std::string_view(bytes).substr(split));
    check(navs);
    navs.Renumber();
    check(navs);

    const auto nodes = savedBytes(navs);
    const auto paragraphs = savedBytes(navs.oWebs);
    clsNavSchemes again;
    load(again, nodes);
    load(again.oWebs, paragraphs);
    require(allNodes(again) == savedNodes(navs), "the tree is what is loaded again");
    require(allParagraphs(again) == allParagraphs(navs), "the paragraphs are what is loaded again");
    check(again);
    // (Loading drops twins, which a renumbering may make; from then on nothing changes.)
    const auto settled = savedBytes(again);
    clsNavSchemes third;
    load(third, settled);
    require(third.Count() == 0 || savedBytes(third) == settled, "the nodes load as they were saved");
    again.oWebs.ClearAll();
    load(again.oWebs, paragraphs);
    require(again.oWebs.Count() == 0 || savedBytes(again.oWebs) == paragraphs,
            "the paragraphs load as they were saved");
    again.DelNode("1");
    check(again);
    return 0;
}
