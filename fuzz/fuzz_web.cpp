// SPDX-License-Identifier: MIT
#include <map>

#include "Fuzzing.h"
#include "model/clsNavSchemes.h"
#include "tests/model/Reference.h"

// Any bytes load as the plain reference reads them. What is saved loads and saves again unchanged. After a
// renumbering, every paragraph is connected or an orphan.

namespace {

std::vector<std::string> rowsOf(const clsWebSchemes& webs) {
    std::vector<std::string> rows;
    for (const auto& paragraph : webs.NewEnum()) {
        std::string row = std::to_string(paragraph->ID) + "|" + std::to_string(paragraph->XST1) + "|" +
                          std::to_string(paragraph->seqNo);
        for (const auto field : {paragraph->titleIs.view(), paragraph->queryIs.view(), paragraph->parmIs.view(),
                                 paragraph->typeIs.view()})
            row += "|" + std::string(field);
        row += "|" + std::to_string(paragraph->formIs);
        for (const auto field : {paragraph->colsAre.view(), paragraph->extra.view()}) row += "|" + std::string(field);
        rows.push_back(row);
    }
    return rows;
}

void addNode(clsNavSchemes& navs, std::int32_t id, std::int32_t parent) {
    auto node = std::make_shared<clsNavScheme>();
    node->ID = id;
    node->parentIs = parent;
    navs.Add(node);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    clsNavSchemes navs;
    auto& webs = navs.oWebs;
    load(webs, bytes);
    require(rowsOf(webs) == reference::paragraphsIn(bytes), "paragraphs load like the reference");

    const auto saved = savedBytes(webs);
    clsWebSchemes again;
    load(again, saved);
    require(rowsOf(again) == rowsOf(webs), "what is saved is what was loaded");
    require(savedBytes(again) == saved, "saving is stable");

    // Nodes 2, 1 and 3 become 1, 2 and 3.
    addNode(navs, 2, 0);
    addNode(navs, 1, 2);
    addNode(navs, 3, 2);
    std::vector<std::int32_t> expected;
    for (const auto& paragraph : webs.NewEnum()) {
        const auto node = paragraph->XST1;
        expected.push_back(node == 2 ? 1 : node == 1 ? 2 : node == 3 ? 3 : 0);
    }
    require(navs.Renumber(), "there are nodes");
    std::size_t place = 0;
    std::map<std::int32_t, std::int32_t> mostOf;
    for (const auto& paragraph : webs.NewEnum()) {
        const auto node = expected[place++];
        require(paragraph->XST1 == node, "paragraphs follow their nodes");
        require(paragraph->status == (node == 0 ? "O" : "C"), "orphans are known");
        mostOf[node] = std::max(mostOf[node], paragraph->seqNo);
    }
    for (const auto& [node, most] : mostOf)
        require(webs.MaxSeqNo(std::to_string(node)) == std::to_string(most), "the largest sequence number");

    webs.DelTreeNode("1");
    webs.DelTreeNode("0");
    for (const auto& paragraph : webs.NewEnum())
        require(paragraph->XST1 == 2 || paragraph->XST1 == 3, "paragraphs of deleted nodes are gone");
    webs.ClearAll();
    require(webs.Count() == 0, "nothing is left");
    return 0;
}
